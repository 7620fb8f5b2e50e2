// The element of each shape, with reversed, odd, empty and extreme arguments.
#include "SvgPage.h"

#include <climits>

namespace {

DrawnCase rectangle(std::string name, RECT rect, const std::string& attributes)
{
    return {name,
            [rect](CSurfaceSVG& s) {
                RECT r = rect;
                s.drawRectangle(&r);
            },
            "<rect " + attributes + hollow + freshPen + " />\n"};
}

DrawnCase rounded(std::string name, unsigned int width, unsigned int height, const std::string& radii)
{
    return {name,
            [=](CSurfaceSVG& s) {
                s.drawRoundedRectangle(in({1, 2, 5, 8}), width, height);
            },
            "<rect x='1' y='2' width='4' height='6'" + radii + hollow + freshPen + " />\n"};
}

DrawnCase ellipse(std::string name, RECT rect, const std::string& attributes)
{
    return {name,
            [rect](CSurfaceSVG& s) {
                RECT r = rect;
                s.ellipse(&r);
            },
            "<ellipse " + attributes + " " + hollow + freshPen + " />\n"};
}

// An odd count is evened out by the first point; a count of 0 must not touch it.
DrawnCase polygon(std::string name, std::vector<POINT> points, const std::string& list)
{
    return {name,
            [points](CSurfaceSVG& s) {
                std::vector<POINT> p = points;
                s.polygon(p.data(), static_cast<unsigned int>(p.size()));
                s.polyline(p.data(), static_cast<unsigned int>(p.size()));
            },
            "<polygon points='" + list + "'" + freshPen + hollow + " /><polyline points='" + list + "'" +
                freshPen + " />"};
}

const std::vector<DrawnCase> cases = {
    {"Line", [](CSurfaceSVG& s) { s.drawLine(INT_MIN, INT_MAX, 0, -1); },
     "<line x1='-2147483648' y1='2147483647' x2='0' y2='-1'" + freshPen + " />\n"},
    rectangle("Rectangle", {10, 20, 110, 70}, "x='10' y='20' width='100' height='50'"),
    rectangle("ReversedRectangle", {110, 70, 10, 20}, "x='110' y='70' width='-100' height='-50'"),
    rectangle("WrappingRectangle", {INT_MIN, INT_MAX, INT_MAX, INT_MIN},
              "x='-2147483648' y='2147483647' width='-1' height='1'"),
    {"RectangleWithOneRadius",
     [](CSurfaceSVG& s) {
         s.drawRectangle(in({1, 2, 5, 8}), 5, 0);
         s.drawRectangle(in({1, 2, 5, 8}), -5, 7);
     },
     "<rect x='1' y='2' width='4' height='6' rx='5'" + hollow + freshPen +
         " />\n<rect x='1' y='2' width='4' height='6' ry='7'" + hollow + freshPen + " />\n"},
    rounded("RoundedRectangle", 8, 6, " rx='8' ry='6'"),
    rounded("RoundedRectangleWithoutCorners", 0, 0, ""),
    rounded("RoundedRectangleBeyondInt", UINT_MAX, INT_MAX, " ry='2147483647'"),
    ellipse("OddEllipse", {10, 20, 111, 71}, "cx='60' cy='45' rx='50' ry='25'"),
    ellipse("ReversedEllipse", {111, 71, 10, 20}, "cx='61' cy='46' rx='50' ry='25'"),
    ellipse("WrappingEllipse", {INT_MIN, 0, 0, INT_MIN},
            "cx='1073741824' cy='-1073741824' rx='1073741824' ry='1073741824'"),
    polygon("EvenPoints", {{1, 2}, {3, -4}, {INT_MIN, 6}, {7, 8}}, "1,2 3,-4 -2147483648,6 7,8 "),
    polygon("OddPoints", {{1, 2}, {3, 4}, {5, 6}}, "1,2 3,4 5,6 1,2 "),
    polygon("OnePoint", {{1, 2}}, "1,2 1,2 "),
    {"NoPoints",
     [](CSurfaceSVG& s) {
         POINT point{1, 2};
         s.polygon(&point + 1, 0);
         s.polyline(&point + 1, 0);
     },
     "<polygon points=''" + freshPen + hollow + " /><polyline points=''" + freshPen + " />"},
    {"UnfilledPolygon",
     [](CSurfaceSVG& s) {
         s.drawPolygon(through({{1, 2}, {3, 4}}), 2, false);
     },
     "<polygon points='1,2 3,4 '" + freshPen + " />"},
    {"Paths",
     [](CSurfaceSVG& s) {
         s.drawPath(in({30, 40, 10, 20}), false);
         s.drawPath(through({{1, 2}, {3, -4}, {5, 6}}), 3, true);
         s.drawPath(through({{1, 2}}), 1, false);
     },
     "<path  d='M30 40L10 40L10 20L30 20z'" + freshPen + " />\n<path  d='M1 2L3 -4L5 6z'" + freshPen +
         hollow + " />\n<path  d='M1 2z'" + freshPen + " />\n"},
    {"EraseRectangleKeepsForeColour",
     [](CSurfaceSVG& s) {
         s.setForeColor(5);
         s.drawEraseRectangle(in({1, 2, 3, 4}), 6);
         EXPECT_EQ(5UL, s.getForeColor());
     },
     "<path  d='M1 2L3 2L3 4L1 4z'" + freshPen + " />\n"},
    {"SolidPolygonKeepsBrush",
     [](CSurfaceSVG& s) {
         s.m_brush.set(7, 0);
         s.m_brush.setPicture(4);
         const CSurfaceBrush before = s.m_brush;
         s.solidPolygon(through({{1, 2}, {3, 4}}), 2, 0x030201);
         EXPECT_EQ(before, s.m_brush);
     },
     "<polygon points='1,2 3,4 '" + freshPen + " fill='rgb(1,2,3)'  />"},
    {"SolidRectangle",
     [](CSurfaceSVG& s) {
         s.drawSolidRectangle(in({1, 2, -3, INT_MIN}), ~0xFFUL);
     },
     definitions(solidSymbol) + "<use x='1' y='2' width='-4' height='2147483646' xlink:href='#SolidRect' "
                                "fill='rgb(0,255,255)'/>\n"},
    {"Frame",
     [](CSurfaceSVG& s) {
         s.frameRect(in({1, 2, 4, 6}), 0x80030201);
     },
     definitions(frameSymbol) + "<use x='1' y='2' width='3' height='4' xlink:href='#FrameRect' "
                                "stroke='rgb(1,2,3)'/>\n"},
    {"FocusRectangle",
     [](CSurfaceSVG& s) {
         s.drawFocusRect(in({1, 2, 4, 6}));
     },
     definitions(focusSymbol) + "<use x='1' y='2' width='3' height='4' xlink:href='#FocusRect'/>\n"},
};

INSTANTIATE_TEST_SUITE_P(Shapes, SvgPage, testing::ValuesIn(cases), nameOf);

} // namespace
