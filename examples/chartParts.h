// The parts that the report's pages share: colours, pen words, plots, and small figures.
//
// Called by the page drawings (reportPages.cpp, reportGroupPages.cpp). Everything draws through CSurface, so
// any back end can stand behind it. Coordinates are logical units of 1/96 inch.
#pragma once

#include <vector>

#include "surface.h"

inline constexpr unsigned long White = 0xFFFFFF;
inline constexpr unsigned long Ink = 0x4A3323;
inline constexpr unsigned long Accent = 0x2FA5F2;
inline constexpr unsigned long Warning = 0x2B2BC0;
inline constexpr unsigned long Mist = 0xF8F5F2;
inline constexpr unsigned long Rule = 0xD2C9C1;

// Brush styles and the fields of the pen style word.
enum BrushWord { SolidBrush = 0, HollowBrush = 1 };
enum PenWord {
    SolidPen = 0,
    DashPen = 1,
    DotPen = 2,
    DashDotPen = 3,
    DashDotDotPen = 4,
    NoPen = 5,
    SquareCap = 0x100,
    FlatCap = 0x200,
    BevelJoin = 0x1000,
    MiterJoin = 0x2000
};

// The colour with `percent` of white mixed in.
unsigned long tint(unsigned long colour, int percent);

// Where values are in a rectangle: `slots` steps from left to right, 0 at the bottom, `top` at the top.
struct Plot {
    RECT area;
    int slots;
    int top;

    int x(int slot) const { return area.left + (area.right - area.left) * slot / slots; }
    int y(int value) const { return area.bottom - (area.bottom - area.top) * value / top; }
    std::vector<POINT> curve(const int* values, int count) const;
};

// A point that gives the direction `degrees` from `centre`, counter-clockwise from three o'clock; far away, so
// that whole coordinates still show tenths of a degree.
POINT towards(POINT centre, double degrees);
RECT around(POINT centre, int radius);

// Turned clockwise and scaled about `centre`, which becomes the origin, until clearTransform.
void turnAbout(CSurface& surface, POINT centre, double degrees, double scale);

// Head and foot of a page; the foot marks `page` among `pages`.
void drawFurniture(CSurface& surface, int page, int pages);
// Filled and outlined in one colour.
void fillBox(CSurface& surface, RECT box, unsigned long colour);
// A rounded box, white with a fine outline.
void drawPanel(CSurface& surface, RECT box);
// Dotted lines at each of `rows` steps, and the two axes.
void drawAxes(CSurface& surface, const Plot& plot, int rows);
// Line by line: a curve that no viewer fills.
void drawCurve(CSurface& surface, const std::vector<POINT>& points);
void drawDot(CSurface& surface, POINT centre, int radius, unsigned long colour);
// An arc clockwise over `sweep` degrees from the direction `start`, with the pen.
void drawSweep(CSurface& surface, POINT centre, int radius, double start, double sweep);
// A sector clockwise over `sweep` degrees from the direction `start`, with pen and brush.
void drawSector(CSurface& surface, POINT centre, int radius, double start, double sweep);
