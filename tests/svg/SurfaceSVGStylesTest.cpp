// The attributes of pens and brushes, branch by branch.
#include "SvgPage.h"

#include <climits>

namespace {

DrawnCase pen(std::string name, int style, int width, const std::string& attributes)
{
    return {name,
            [=](CSurfaceSVG& s) {
                s.setPen(0xFF030201, style, width);
                s.drawLine(1, 2, 3, 4);
            },
            "<line x1='1' y1='2' x2='3' y2='4' tovo:penStyle='" + std::to_string(style) + "' " + attributes +
                " />\n"};
}

std::string stroke(int width, const std::string& rest)
{
    return " stroke='rgb(1,2,3)' stroke-width='" + std::to_string(width) + "' " + rest;
}

DrawnCase fill(std::string name, int style, const std::string& defs, const std::string& attribute)
{
    return {name,
            [=](CSurfaceSVG& s) {
                s.setBrush(0xFF030201, style);
                s.drawRectangle(in({1, 2, 4, 6}));
            },
            defs + "<rect x='1' y='2' width='3' height='4' fill='" + attribute + "' " + freshPen + " />\n"};
}

DrawnCase hatchFill(std::string name, int style)
{
    return fill("Fill" + name, style,
                definitions("<pattern id='pattern1' stroke='rgb(1,2,3)' xlink:href='#" + name +
                            "'></pattern>\n\n" + hatches),
                "url(#pattern1)");
}

const std::vector<DrawnCase> cases = {
    pen("Dash", 1, 3, stroke(3, "stroke-dasharray='9,3' ")),
    pen("Dot", 2, 3, stroke(3, "stroke-dasharray='3,3' ")),
    pen("DashDot", 3, 3, stroke(3, "stroke-dasharray='9,3,3,3' ")),
    pen("DashDotDot", 4, 3, stroke(3, "stroke-dasharray='9,3,3,3,3,3' ")),
    pen("InsideFrame", 6, 3, stroke(3, "stroke-dasharray='none' ")),
    pen("DashWithoutCapAndJoin", 0x12101, 0, stroke(0, "stroke-dasharray='0,0' ")),
    pen("WrappingDash", 1, INT_MAX, stroke(INT_MAX, "stroke-dasharray='2147483645,2147483647' ")),
    pen("NoLine", 5, 3, " stroke='none' "),
    pen("NoLineWithCapAndJoin", 0x12105, 3, " stroke='none' "),
    pen("SquareBevel", 0x1100, 3, stroke(3, "stroke-linecap='square' stroke-linejoin='bevel' ")),
    pen("FlatMiter", 0x12200, 3, stroke(3, "stroke-linecap='butt' stroke-linejoin='miter' ")),
    pen("UnknownCap", 0x1300, 3, stroke(3, "stroke-linejoin='bevel' ")),
    pen("UnknownJoin", 0x3100, 3, stroke(3, "stroke-linecap='square' ")),
    pen("UnknownLine", 0x2207, -3, stroke(-3, "stroke-linecap='butt' stroke-linejoin='miter' ")),
    pen("AllBits", -1, 3, stroke(3, "")),
    fill("FillSolid", 0, "", "rgb(1,2,3)"),
    fill("FillHollow", 1, "", "none"),
    hatchFill("HatchHorizontal", 2),
    hatchFill("HatchVertical", 3),
    hatchFill("HatchFDiagonal", 4),
    hatchFill("HatchBDiagonal", 5),
    hatchFill("HatchCross", 6),
    hatchFill("HatchDiagCross", 7),
    hatchFill("", 8),
    {"EachHatchFillIsANewPattern",
     [](CSurfaceSVG& s) {
         s.setBrush(1, 2);
         s.drawPath(in({1, 2, 3, 4}), true);
         s.polygon(through({{1, 2}, {3, 4}}), 2);
     },
     definitions("<pattern id='pattern1' stroke='rgb(1,0,0)' xlink:href='#HatchHorizontal'></pattern>\n"
                 "<pattern id='pattern2' stroke='rgb(1,0,0)' xlink:href='#HatchHorizontal'></pattern>\n\n" +
                 hatches) +
         "<path  d='M1 2L3 2L3 4L1 4z'" + freshPen +
         " fill='url(#pattern1)'  />\n<polygon points='1,2 3,4 '" + freshPen + " fill='url(#pattern2)'  />"},
};

INSTANTIATE_TEST_SUITE_P(Styles, SvgPage, testing::ValuesIn(cases), nameOf);

} // namespace
