// The first page that the benchmarks write: a table of N rows of shapes, drawn by one function on anything that has
// the drawing operations of CSurface. TablePage.cpp writes it with CSurfaceSVG, CairoPage.cpp with cairo's SVG
// surface, FloorPage.cpp as bare bytes; benchmarks.cpp measures the three side by side.
#pragma once

#include <string>

#include <windows.h>

inline constexpr RECT pageMillimetres{0, 0, 210, 297};
inline constexpr int rowWidth = 800; // logical units, as all that follows
inline constexpr int rowHeight = 20;
inline constexpr int columnWidth = 160;

// Calls of drawRow that put something on the page; attributes do not count.
inline constexpr int callsPerRow = 12;

// Brush styles of a surface; the six hatches follow one another.
inline constexpr int solidBrush = 0;
inline constexpr int hollowBrush = 1;
inline constexpr int firstHatch = 2;
inline constexpr int hatchCount = 6;

// Pen styles of a surface.
inline constexpr int solidPen = 0;
inline constexpr int dashedPen = 1;

inline constexpr unsigned long hatchColors[hatchCount] = {0x004080, 0x2060C0, 0x808000,
                                                          0x8000C0, 0x3333CC, 0x0A8C1E};

constexpr RECT tableBounds(int rows)
{
    return {0, 0, rowWidth, rows * rowHeight};
}

// Each row has one bar filled with a hatch, so that row N uses the page's pattern N.
constexpr int hatchStyle(int row)
{
    return firstHatch + row % hatchCount;
}

constexpr unsigned long hatchColor(int row)
{
    return hatchColors[row % hatchCount];
}

// Frame, four column lines, a bar with its frame, a hatched bar, a dot, a diamond, a trend line and a dashed
// line below. Sizes of ellipses and numbers of points are even: the page format keeps those unchanged, so
// that a replay gives the same bytes.
template <class Canvas>
void drawRow(Canvas& canvas, int row)
{
    constexpr unsigned long frameColor = 0x000000;
    constexpr unsigned long gridColor = 0xA0A0A0;
    constexpr unsigned long barColor = 0x3C78D2;
    constexpr unsigned long markColor = 0x2850E6;
    const int top = row * rowHeight;
    const int bottom = top + rowHeight;
    const int value = 20 + row * 37 % 120;

    canvas.setPen(frameColor, solidPen, 1);
    canvas.setBrush(frameColor, hollowBrush);
    RECT frame{0, top, rowWidth, bottom};
    canvas.drawRectangle(&frame);
    canvas.setPen(gridColor, solidPen, 1);
    for (int x = columnWidth; x < rowWidth; x += columnWidth) {
        canvas.drawLine(x, top, x, bottom);
    }
    RECT bar{columnWidth + 4, top + 4, columnWidth + 4 + value, bottom - 4};
    canvas.drawSolidRectangle(&bar, barColor);
    canvas.frameRect(&bar, frameColor);
    canvas.setBrush(hatchColor(row), hatchStyle(row));
    RECT share{2 * columnWidth + 4, top + 4, 3 * columnWidth - value, bottom - 4};
    canvas.drawRectangle(&share);
    canvas.setBrush(markColor, solidBrush);
    RECT dot{3 * columnWidth + 4, top + 4, 3 * columnWidth + 16, bottom - 4};
    canvas.ellipse(&dot);
    const int middle = 3 * columnWidth + 20 + value;
    POINT diamond[4] = {
        {middle - 6, top + 10}, {middle, top + 4}, {middle + 6, top + 10}, {middle, top + 16}};
    canvas.polygon(diamond, 4);
    POINT trend[6] = {};
    for (int step = 0; step < 6; ++step) {
        trend[step] = {4 * columnWidth + 4 + step * 30, top + 4 + (value + step * 7) % 12};
    }
    canvas.setPen(markColor, solidPen, 2);
    canvas.polyline(trend, 6);
    canvas.setPen(gridColor, dashedPen, 1);
    canvas.drawLine(0, bottom, rowWidth, bottom);
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
