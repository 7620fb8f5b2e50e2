// Text tools of the report's pages: faces, captions, axis labels, and formatted text made of runs.
//
// Called by the page drawings. A face stays until the next one is chosen; on a page of SVG it is a group, so it
// is chosen outside of clips and transforms. Coordinates are logical units of 1/96 inch, sizes points.
#pragma once

#include <deque>
#include <initializer_list>

#include "chartParts.h"

struct Face {
    const char* name;
    float size;
    bool bold = false;
    bool italic = false;
    bool strikethru = false;
    bool underline = false;
};

inline constexpr Face TitleFace = {"Arial", 15, true};
inline constexpr Face HeadingFace = {"Arial", 9, true};
inline constexpr Face BodyFace = {"Arial", 8};
inline constexpr Face SmallFace = {"Arial", 7};

// Bits of DrawText that the pages use.
enum TextFlag { LeftAligned = 0, Centred = 1, RightAligned = 2, NotClipped = 0x100 };

struct Caption {
    int x;
    int y; // top
    const char* text;
};

void chooseFace(CSurface& surface, const Face& face);
void drawCaption(CSurface& surface, const Caption& caption);
void drawCaptions(CSurface& surface, unsigned long colour, std::initializer_list<Caption> captions);
void drawCell(CSurface& surface, RECT cell, const char* text, int flags);
// Numbers at each of `rows` steps of the plot's left axis, in its own unit.
void labelValues(CSurface& surface, const Plot& plot, int rows);
// The slots' numbers below the plot, each `step` from 0 on.
void labelSlots(CSurface& surface, const Plot& plot, int step);

struct RunLook {
    bool underlined = false;
    int width = -1; // logical units to fit the run to; -1: its own width
};

// Formatted text, run by run in the order of reading.
class Runs {
public:
    Runs& at(LONG x, LONG y, const char* text, RunLook look = {});
    // Goes on where the run before ends.
    Runs& then(const char* text, RunLook look = {});
    // Under the rotation of the surface's text style.
    void draw(CSurface& surface, RECT box, int flags);
    // Whatever that rotation is.
    void drawUpright(CSurface& surface, RECT box, int flags);

private:
    Runs& add(POINT place, bool follows, const char* text, RunLook look);

    std::deque<CSurfaceTextChunk> m_runs; // whose elements stay where they are
    Array<CSurfaceTextChunk, 2> m_order;
};
