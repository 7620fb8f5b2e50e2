// The element of each shape, with reversed, odd, empty and extreme arguments. Most are drawn without an
// outline, which keeps them short.
#include "support/SvgPage.h"

#include <climits>

namespace {

const DrawnCase Cases[] = {
    {"Line", [](CSurfaceSVG& s) { s.drawLine(INT_MIN, INT_MAX, 0, -1); },
     "<line x1='-2147483648' y1='2147483647' x2='0' y2='-1'" + FreshPen + " />\n"},
    {"RectanglesAndEllipses",
     [](CSurfaceSVG& s) {
         s.setPen(0, 5, 1);
         s.drawRectangle(in({110, 20, 10, 70}));
         s.drawRectangle(in({INT_MIN, INT_MAX, INT_MAX, INT_MIN}));
         s.drawRectangle(in({1, 2, 5, 8}), 5, 0);
         s.drawRoundedRectangle(in({1, 2, 5, 8}), 8, 6);
         s.drawRoundedRectangle(in({1, 2, 5, 8}), UINT_MAX, 7);
         s.ellipse(in({10, 20, 111, 71}));
         s.ellipse(in({111, 71, 10, 20}));
         s.ellipse(in({INT_MIN, 0, 0, INT_MIN}));
     },
     R"(<rect x='110' y='20' width='-100' height='50' fill='none'  tovo:penStyle='5'  stroke='none'  />
<rect x='-2147483648' y='2147483647' width='-1' height='1' fill='none'  tovo:penStyle='5'  stroke='none'  />
<rect x='1' y='2' width='4' height='6' rx='5' fill='none'  tovo:penStyle='5'  stroke='none'  />
<rect x='1' y='2' width='4' height='6' rx='8' ry='6' fill='none'  tovo:penStyle='5'  stroke='none'  />
<rect x='1' y='2' width='4' height='6' ry='7' fill='none'  tovo:penStyle='5'  stroke='none'  />
<ellipse cx='60' cy='45' rx='50' ry='25'  fill='none'  tovo:penStyle='5'  stroke='none'  />
<ellipse cx='61' cy='46' rx='50' ry='25'  fill='none'  tovo:penStyle='5'  stroke='none'  />
<ellipse cx='1073741824' cy='-1073741824' rx='1073741824' ry='1073741824' )"
     " fill='none'  tovo:penStyle='5'  stroke='none'  />\n"},
    // An odd count is evened out by the first point; with a count of 0 there is none to read.
    {"PolygonsAndPaths",
     [](CSurfaceSVG& s) {
         POINT points[] = {{1, 2}, {3, -4}, {5, 6}, {7, 8}};
         s.setPen(0, 5, 1);
         s.polygon(points, 4);
         s.drawPath(in({30, 40, 10, 20}), false);
         s.polyline(points, 3);
         s.drawPath(points, 3, true);
         s.drawPolygon(points, 1, false);
         s.polygon(points + 4, 0);
     },
     R"(<polygon points='1,2 3,-4 5,6 7,8 ' tovo:penStyle='5'  stroke='none'  fill='none'  />)"
     R"(<path  d='M30 40L10 40L10 20L30 20z' tovo:penStyle='5'  stroke='none'  />
<polyline points='1,2 3,-4 5,6 1,2 ' tovo:penStyle='5'  stroke='none'  />)"
     R"(<path  d='M1 2L3 -4L5 6z' tovo:penStyle='5'  stroke='none'  fill='none'  />
<polygon points='1,2 1,2 ' tovo:penStyle='5'  stroke='none'  />)"
     R"(<polygon points='' tovo:penStyle='5'  stroke='none'  fill='none'  />)"},
    {"BorrowedColoursComeBack",
     [](CSurfaceSVG& s) {
         POINT points[] = {{1, 2}, {3, 4}};
         s.setPen(0, 5, 1);
         s.m_brush.setPicture(4);
         s.m_brush.setColor(7);
         const CSurfaceBrush brush = s.m_brush;
         s.solidPolygon(points, 2, 0x030201);
         EXPECT_EQ(brush, s.m_brush);
         s.setForeColor(5);
         s.drawEraseRectangle(in({1, 2, 3, 4}), 6);
         EXPECT_EQ(5UL, s.getForeColor());
     },
     "<polygon points='1,2 3,4 ' tovo:penStyle='5'  stroke='none'  fill='rgb(1,2,3)'  />"
     "<path  d='M1 2L3 2L3 4L1 4z' tovo:penStyle='5'  stroke='none'  />\n"},
    // The definitions hold what the page needs and no more.
    {"SolidRectangleAlone",
     [](CSurfaceSVG& s) {
         s.drawSolidRectangle(in({4, 6, 1, 2}), 0x030201);
     },
     "<defs>\n\t<symbol id='SolidRect'><rect x='0' y='0' width='100%' height='100%'/></symbol>\n</defs>\n\n"
     "<use x='4' y='6' width='-3' height='-4' xlink:href='#SolidRect' fill='rgb(1,2,3)'/>\n"},
};

INSTANTIATE_TEST_SUITE_P(Shapes, SvgPage, testing::ValuesIn(Cases), nameOf);

} // namespace
