// The attributes of pens and plain brushes, branch by branch; hatches are in the test of the definitions.
#include "support/SvgPage.h"

#include <climits>

namespace {

// A pen of the colour (1, 2, 3) and what follows its style word.
DrawnCase pen(const char* name, int style, int width, const std::string& attributes)
{
    return {name, [=](CSurfaceSVG& s) { s.setPen(0xFF030201, style, width), s.drawLine(1, 2, 3, 4); },
            "<line x1='1' y1='2' x2='3' y2='4' tovo:penStyle='" + std::to_string(style) + "' " + attributes +
                " />\n"};
}

DrawnCase fill(const char* name, int style, const std::string& value)
{
    return {name,
            [=](CSurfaceSVG& s) {
                s.setBrush(0xFF030201, style), s.ellipse(in({0, 0, 4, 6}));
            },
            "<ellipse cx='2' cy='3' rx='2' ry='3'  fill='" + value + "' " + FreshPen + " />\n"};
}

const std::string Stroke = " stroke='rgb(1,2,3)' stroke-width='3' ";

const DrawnCase Cases[] = {
    pen("Dash", 1, 3, Stroke + "stroke-dasharray='9,3' "),
    pen("Dot", 2, 3, Stroke + "stroke-dasharray='3,3' "),
    pen("DashDot", 3, 3, Stroke + "stroke-dasharray='9,3,3,3' "),
    pen("DashDotDot", 4, 3, Stroke + "stroke-dasharray='9,3,3,3,3,3' "),
    pen("InsideFrame", 6, 3, Stroke + "stroke-dasharray='none' "),
    pen("WrappingDash", 1, INT_MAX,
        " stroke='rgb(1,2,3)' stroke-width='2147483647' stroke-dasharray='2147483645,2147483647' "),
    pen("NoLineHidesCapAndJoin", 0x12105, 3, " stroke='none' "),
    pen("RoundRound", 0, 3, Stroke + "stroke-linecap='round' stroke-linejoin='round' "),
    pen("SquareBevel", 0x1100, 3, Stroke + "stroke-linecap='square' stroke-linejoin='bevel' "),
    pen("FlatMiter", 0x12200, 3, Stroke + "stroke-linecap='butt' stroke-linejoin='miter' "),
    pen("UnknownCap", 0x1300, 3, Stroke + "stroke-linejoin='bevel' "),
    pen("UnknownJoin", 0x3100, 3, Stroke + "stroke-linecap='square' "),
    pen("AllBits", -1, 3, Stroke),
    fill("Solid", 0, "rgb(1,2,3)"),
    fill("Hollow", 1, "none"),
};

INSTANTIATE_TEST_SUITE_P(Styles, SvgPage, testing::ValuesIn(Cases), nameOf);

} // namespace
