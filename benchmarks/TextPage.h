// The second page that the benchmarks write: N rows of text in every written form, drawn by one function on
// anything that has the five operations below. TextPage.cpp writes it with CSurfaceSVG, CairoText.cpp with
// cairo's SVG surface, FloorText.cpp as bare bytes. It is also the page that is searched and stamped.
//
// A canvas has font(bold), color(color), cell(text, rect, flags), point(text, x, y), baseLine(text, x, y) and
// runs(runs, rect, turned).
#pragma once

#include <string>
#include <string_view>

#include "TablePage.h"

// A text, and the same as it stands in a page.
struct CellText {
    const char* text;
    std::string_view escaped;
};

inline constexpr int CellTextCount = 6;
inline constexpr CellText CellTexts[CellTextCount] = {
    {"Hinges, brass, 40 mm", "Hinges, brass, 40 mm"},
    {"12,480.50", "12,480.50"},
    {"Nuts & bolts < 8 mm", "Nuts &amp; bolts &lt; 8 mm"},
    {"North depot", "North depot"},
    {"K\xC3\xA4stner & S\xC3\xB6hne", "K\xC3\xA4stner &amp; S\xC3\xB6hne"},
    {"2024-03-18", "2024-03-18"},
};

// The last line of the page, and what searches look for: a word of that line and one that is nowhere.
inline constexpr CellText ClosingText{"Carried forward from all rows above",
                                      "Carried forward from all rows above"};
inline constexpr const char* ClosingWord = "forward";
inline constexpr const char* MissingWord = "backward";

// A piece of formatted text. `x` counts from the left of the rectangle, in logical units.
struct Run {
    std::string_view text;
    int x;
    bool follows; // goes on where the run before ends
    int fittedTo; // width in logical units; -1: as wide as it is
    bool underline;
};

inline constexpr int RunCount = 3;
inline constexpr Run NoteRuns[RunCount] = {
    {"Delivered ", 0, false, -1, false}, {"in full", 0, true, -1, true}, {"by noon", 66, false, 30, false}};
inline constexpr Run TurnedRuns[RunCount] = {
    {"Batch", 0, false, -1, false}, {"checked", 40, false, -1, true}, {"twice", 90, false, 36, false}};

inline constexpr int TurnedAngle =
    270; // degrees, of the line, which leads down; its characters stand upright
inline constexpr int RowsPerTurnedText = 10;

inline constexpr char FontName[] = "Helvetica";
inline constexpr int FontSize = 9; // points

inline constexpr unsigned int CentreFlag = 0x1;
inline constexpr unsigned int RightFlag = 0x2;
inline constexpr unsigned int NoClipFlag = 0x100;
inline constexpr int CellCount = 4;
inline constexpr unsigned int CellFlags[CellCount] = {0x24, 0x25, 0x26, 0x124};

// Texts on the page of N rows.
constexpr int textCalls(int rows)
{
    return rows * (CellCount + 3) + (rows + RowsPerTurnedText - 1) / RowsPerTurnedText + 1;
}

constexpr RECT textBounds(int rows)
{
    return tableBounds(rows + 1);
}

constexpr RECT textCell(int row, int column)
{
    constexpr int Width = 110;
    return {column * Width + 3, row * RowHeight + 2, column * Width + Width - 3,
            row * RowHeight + RowHeight - 2};
}

constexpr int anchorOf(const RECT& rect, unsigned int flags)
{
    if ((flags & RightFlag) != 0) {
        return rect.right;
    }
    return (flags & CentreFlag) != 0 ? rect.left + (rect.right - rect.left) / 2 : rect.left;
}

// The runs come last: upright ones after the turned ones, so that a replay leaves no plain text turned.
template <class Canvas>
void drawTextRow(Canvas& canvas, int row)
{
    const auto textOf = [row](int place) -> const CellText& {
        return CellTexts[(row + place) % CellTextCount];
    };
    const int top = row * RowHeight;
    canvas.color(row % 2 == 0 ? 0x000000 : 0x702010);
    for (int column = 0; column < CellCount; ++column) {
        canvas.cell(textOf(column), textCell(row, column), CellFlags[column]);
    }
    canvas.point(textOf(CellCount), 445, top + 2);
    canvas.baseLine(textOf(CellCount + 1), 555, top + 16);
    if (row % RowsPerTurnedText == 0) {
        canvas.runs(TurnedRuns, RECT{770, top, 790, top + 160}, true);
    }
    canvas.runs(NoteRuns, RECT{665, top + 2, 765, top + RowHeight - 2}, false);
}

template <class Canvas>
void drawText(Canvas& canvas, int rows)
{
    canvas.font(false);
    for (int row = 0; row < rows; ++row) {
        drawTextRow(canvas, row);
    }
    canvas.font(true);
    canvas.cell(ClosingText, textCell(rows, 0), NoClipFlag);
}

class CSurface;
void drawSurfaceText(CSurface& surface, int rows);

// Each makes the whole page and leaves its bytes in `page`, whose room is used again when it has some.
void makeSurfaceText(int rows, std::string& page);
void makeCairoText(int rows, std::string& page);
// The bytes of makeSurfaceText by nothing but appending.
void makeFloorText(int rows, std::string& page);

// The surface's page with one more line at its end, which shows the page count once it is stamped.
void makeMarkedText(int rows, std::string& page);
inline constexpr std::string_view PageCountField = "#               ";
