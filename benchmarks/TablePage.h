// The first page that the benchmarks write: a table of N rows of shapes, drawn by one function on anything that has
// the drawing operations of CSurface. TablePage.cpp writes it with CSurfaceSVG, CairoPage.cpp with cairo's SVG
// surface, FloorPage.cpp as bare bytes; benchmarks.cpp measures the three side by side.
#pragma once

#include <string>

#include <windows.h>

inline constexpr RECT PageMillimetres{0, 0, 210, 297};
inline constexpr int RowWidth = 800; // logical units, as all that follows
inline constexpr int RowHeight = 20;
inline constexpr int ColumnWidth = 160;

// Calls of drawRow that put something on the page; attributes do not count.
inline constexpr int CallsPerRow = 12;

// Brush styles of a surface; the six hatches follow one another.
inline constexpr int SolidBrush = 0;
inline constexpr int HollowBrush = 1;
inline constexpr int FirstHatch = 2;
inline constexpr int HatchCount = 6;

// Pen styles of a surface.
inline constexpr int SolidPen = 0;
inline constexpr int DashedPen = 1;

inline constexpr unsigned long HatchColors[HatchCount] = {0x004080, 0x2060C0, 0x808000,
                                                          0x8000C0, 0x3333CC, 0x0A8C1E};

constexpr RECT tableBounds(int rows)
{
    return {0, 0, RowWidth, rows * RowHeight};
}

// Each row has one bar filled with a hatch, so that row N uses the page's pattern N.
constexpr int hatchStyle(int row)
{
    return FirstHatch + row % HatchCount;
}

constexpr unsigned long hatchColor(int row)
{
    return HatchColors[row % HatchCount];
}

// Frame, four column lines, a bar with its frame, a hatched bar, a dot, a diamond, a trend line and a dashed
// line below. Sizes of ellipses and numbers of points are even: the page format keeps those unchanged, so
// that a replay gives the same bytes.
template <class Canvas>
void drawRow(Canvas& canvas, int row)
{
    constexpr unsigned long FrameColor = 0x000000;
    constexpr unsigned long GridColor = 0xA0A0A0;
    constexpr unsigned long BarColor = 0x3C78D2;
    constexpr unsigned long MarkColor = 0x2850E6;
    const int top = row * RowHeight;
    const int bottom = top + RowHeight;
    const int value = 20 + row * 37 % 120;

    canvas.setPen(FrameColor, SolidPen, 1);
    canvas.setBrush(FrameColor, HollowBrush);
    RECT frame{0, top, RowWidth, bottom};
    canvas.drawRectangle(&frame);
    canvas.setPen(GridColor, SolidPen, 1);
    for (int x = ColumnWidth; x < RowWidth; x += ColumnWidth) {
        canvas.drawLine(x, top, x, bottom);
    }
    RECT bar{ColumnWidth + 4, top + 4, ColumnWidth + 4 + value, bottom - 4};
    canvas.drawSolidRectangle(&bar, BarColor);
    canvas.frameRect(&bar, FrameColor);
    canvas.setBrush(hatchColor(row), hatchStyle(row));
    RECT share{2 * ColumnWidth + 4, top + 4, 3 * ColumnWidth - value, bottom - 4};
    canvas.drawRectangle(&share);
    canvas.setBrush(MarkColor, SolidBrush);
    RECT dot{3 * ColumnWidth + 4, top + 4, 3 * ColumnWidth + 16, bottom - 4};
    canvas.ellipse(&dot);
    const int middle = 3 * ColumnWidth + 20 + value;
    POINT diamond[4] = {
        {middle - 6, top + 10}, {middle, top + 4}, {middle + 6, top + 10}, {middle, top + 16}};
    canvas.polygon(diamond, 4);
    POINT trend[6] = {};
    for (int step = 0; step < 6; ++step) {
        trend[step] = {4 * ColumnWidth + 4 + step * 30, top + 4 + (value + step * 7) % 12};
    }
    canvas.setPen(MarkColor, SolidPen, 2);
    canvas.polyline(trend, 6);
    canvas.setPen(GridColor, DashedPen, 1);
    canvas.drawLine(0, bottom, RowWidth, bottom);
}

template <class Canvas>
void drawTable(Canvas& canvas, int rows)
{
    for (int row = 0; row < rows; ++row) {
        drawRow(canvas, row);
    }
}

// Each makes the whole page and leaves its bytes in `page`, whose room is used again when it has some.
void makeSurfacePage(int rows, std::string& page);
void makeCairoPage(int rows, std::string& page);
// The bytes of makeSurfacePage by nothing but appending: literals as they are, numbers by std::to_chars.
void makeFloorPage(int rows, std::string& page);
