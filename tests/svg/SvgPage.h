// Pages as text: what the tests of the SVG writer share. A test draws on a fresh page and compares all that
// came of it, since each blank is part of the page format.
#pragma once

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "surfaceSVG.h"

// What calls leave on a page: the name of the case, the calls, definitions and content of the page.
struct DrawnCase {
    std::string name;
    std::function<void(CSurfaceSVG&)> draw;
    std::string page;
};

void PrintTo(const DrawnCase& drawn, std::ostream* out);

// The test of all tables of such cases; each file brings its own.
class SvgPage : public testing::TestWithParam<DrawnCase> {};

std::string nameOf(const testing::TestParamInfo<DrawnCase>& info);

// Closes the surface and takes the document.
std::string closedPage(CSurfaceSVG& surface);

// The head of a document with the given sizes: millimetres, then logical units.
std::string headOf(int pageWidth, int pageHeight, int width, int height);

// What `draw` leaves on a fresh page between the document's head and its end.
std::string drawnPage(const std::function<void(CSurfaceSVG&)>& draw);

std::string definitions(const std::string& content);

// The arguments of calls, which take the address of a value that may end with the call.
inline RECT* in(RECT&& rect)
{
    return &rect;
}
inline POINT* through(std::vector<POINT>&& points)
{
    return points.data();
}
void useFont(CSurfaceSVG& surface, std::string face, float size = 10, bool bold = false, bool italic = false,
             bool strikethru = false, bool underline = false);

// The attributes of the pen and the brush that a surface starts with.
inline const std::string freshPen = " tovo:penStyle='0'  stroke='rgb(0,0,0)' stroke-width='1' "
                                    "stroke-linecap='round' stroke-linejoin='round' ";
inline const std::string hollow = " fill='none' ";

// The shared definitions.
extern const std::string frameSymbol;
extern const std::string focusSymbol;
extern const std::string solidSymbol;
extern const std::string hatches;
