// Shapes: an element in, its calls out.
#include "PlayedPage.h"

namespace {

constexpr const char* noPen = "setPen rgb(0,0,0) style 5 width 1";
const std::string rect = "<rect x='1' y='2' width='3' height='4'";
const std::string line = "<line x1='1' y1='2' x2='3' y2='4'";
const std::string arc = "<path d='M0 0A5 5 0 0 0 1 1' ";

const PageCase rectangles[] = {
    {"Rect",
     rect + " fill='rgb(1,2,3)'  tovo:penStyle='257'  stroke='rgb(4,5,6)' stroke-width='7' />",
     {"setBrush rgb(1,2,3) style 0 picture 0", "setPen rgb(4,5,6) style 257 width 7",
      "drawRectangle (1, 2, 4, 6)"}},
    {"RectSolid",
     rect + " fill='rgb(255,0,0)'  tovo:penStyle='261'  stroke='none' />",
     {"drawSolidRectangle (1, 2, 4, 6) rgb(255,0,0)"}},
    {"RectInvisible",
     rect + " fill='none'  tovo:penStyle='5'  stroke='none' />",
     {plainBrush, noPen, "drawRectangle (1, 2, 4, 6)"}},
    // The pen style of a rectangle counts only beside a stroke.
    {"RectWithoutStroke",
     rect + " tovo:penStyle='2' stroke-width='5' />",
     {plainBrush, plainPen, "drawRectangle (1, 2, 4, 6)"}},
    {"RectSquare", rect + " rx='0' ry='0' />", {plainBrush, plainPen, "drawRectangle (1, 2, 4, 6)"}},
    {"RectRounded", rect + " rx='3' />", {plainBrush, plainPen, "drawRoundedRectangle (1, 2, 4, 6) 3 0"}},
    {"RectRoundedOtherWay",
     rect + " ry='3' fill='rgb(0,0,9)' stroke='none' />",
     {"drawSolidRectangle (1, 2, 4, 6) rgb(0,0,9)"}},
    // Reading goes on behind each radius.
    {"RectRadiiOutOfOrder",
     rect + " fill='rgb(1,2,3)' ry='5' rx='4' />",
     {plainBrush, plainPen, "drawRoundedRectangle (1, 2, 4, 6) 4 0"}},
    {"RectStyleIsReadAndDropped",
     rect + " style='fill:rgb(1,2,3); stroke:none' stroke='none' fill='rgb(9,9,9)' />",
     {plainBrush, plainPen, "drawRectangle (1, 2, 4, 6)"}},
    {"RectStyleWithoutStroke", rect + " style='fill:rgb(1,2,3)' />", {}},
    {"RectWraps",
     "<rect x='2147483647' y='-99999999999' width='1' height='-1' />",
     {plainBrush, plainPen, "drawRectangle (2147483647, -2147483648, -2147483648, 2147483647)"}},
    {"RectHeadsThatCannotBeUsed",
     "<rect y='2' x='1' width='3' height='4' /><rect x='1' y='2' width='3' /><rect  x='1' y='2' width='3' "
     "height='4' /><rect\tx='1' y='2' width='3' height='4' /><rect x=\"1\" y='2' width='3' height='4' "
     "/><rect />",
     {}},
};

const PageCase ellipsesAndLines[] = {
    {"Ellipse",
     "<ellipse cx='10' cy='20' rx='3' ry='4'  fill='rgb(1,2,3)'  tovo:penStyle='5'  stroke='none'  />",
     {"setBrush rgb(1,2,3) style 0 picture 0", noPen, "ellipse (7, 16, 13, 24)"}},
    {"EllipseWraps",
     "<ellipse cx='-2147483648' cy='0' rx='1' ry='-2' />",
     {plainBrush, plainPen, "ellipse (2147483647, 2, -2147483647, -2)"}},
    {"EllipseHalfRead", "<ellipse cx='10' cy='20' rx='3' />", {}},
    {"Line",
     line + " tovo:penStyle='0'  stroke='rgb(0,0,255)' stroke-width='2' />",
     {"setPen rgb(0,0,255) style 0 width 2", "drawLine 1 2 3 4"}},
    {"LineWithoutStroke",
     line + " tovo:penStyle='2' stroke-width='99999999999' />",
     {"setPen rgb(0,0,0) style 2 width 2147483647", "drawLine 1 2 3 4"}},
    // The style word has the last word; the dashes beside it are for viewers.
    {"LinePenStyleGoesBeforeStroke",
     line + " tovo:penStyle='4' stroke='none' stroke-dasharray='3,1' />",
     {"setPen rgb(0,0,0) style 4 width 1", "drawLine 1 2 3 4"}},
    {"LineColourByteByByte",
     line + " stroke='rgb(256,-1,511)' />",
     {"setPen rgb(0,255,255) style 0 width 1", "drawLine 1 2 3 4"}},
    {"LineColourHalfRead", line + " stroke='rgb(1,2)' />", {}},
    {"LineHalfRead", "<line x1='1' y1='2' x2='3' />", {}},
};

const PageCase pointLists[] = {
    {"Polygon",
     "<polygon points='1,2 3,4 5,6 ' tovo:penStyle='5'  stroke='none'  fill='none'  />",
     {plainBrush, noPen, "polygon [(1, 2) (3, 4) (5, 6)]"}},
    {"PolygonSolid",
     "<polygon points='1,2 3,4 ' tovo:penStyle='0'  stroke='rgb(0,0,255)' fill='rgb(255,0,0)'  />",
     {"solidPolygon rgb(255,0,0) [(1, 2) (3, 4)]"}},
    // Attributes are sought from the end of the list on.
    {"PolygonFillTooEarly",
     "<polygon fill='rgb(1,2,3)' points='1,2 ' />",
     {plainBrush, plainPen, "polygon [(1, 2)]"}},
    {"PolylineTakesNoBrush",
     "<polyline points='-1,-2 99999999999,4 ' fill='rgb(1,2,3)' stroke='none' />",
     {noPen, "polyline [(-1, -2) (2147483647, 4)]"}},
    {"EmptyLists",
     "<polygon points='' /><polyline points='' />",
     {plainBrush, plainPen, "polygon []", plainPen, "polyline []"}},
    {"ListsWithoutTheirLastBlank",
     "<polygon points='1,2 3,4'/><polyline points='1,2 3,4'/><polyline points='1,2 3,4' stroke='none' />",
     {}},
    {"NoList", "<polygon fill='none' /><polyline stroke='none' />", {}},
};

const PageCase arcs[] = {
    {"Arc",
     arc + "fill='none'  tovo:penStyle='1'  stroke='rgb(1,2,3)' stroke-width='4' tovo:arc='0 0 10 20 1 2 -3 "
           "4' />",
     {plainBrush, "setPen rgb(1,2,3) style 1 width 4", "drawArc (0, 0, 10, 20) 1 2 -3 4"}},
    {"Chord",
     arc + " tovo:penStyle='5'  stroke='none'  fill='rgb(1,2,3)' tovo:chord='0 0 10 20 1 2 3 4' />",
     {"setBrush rgb(1,2,3) style 0 picture 0", noPen, "drawChord (0, 0, 10, 20) 1 2 3 4"}},
    {"PieWithoutStroke",
     arc + "tovo:penStyle='2' tovo:pie='0 0 10 20 1 2 3 99999999999' />",
     {plainBrush, plainPen, "drawPie (0, 0, 10, 20) 1 2 3 2147483647"}},
    {"NamesByPrefix",
     "<path tovo:a='1' tovo:archer='1 2 3 4 5 6 7 8' tovo:pie='0 0 0 0 0 0 0 0' />",
     {plainBrush, plainPen, "drawArc (1, 2, 3, 4) 5 6 7 8"}},
    {"PathsForViewersOnly",
     arc + "/><path d='M0 0z' tovo:penStyle='0'  stroke='rgb(0,0,0)' /><path tovo:arc='1 2 3 4 5 6 7' />",
     {}},
};

INSTANTIATE_TEST_SUITE_P(Rectangles, PageContent, testing::ValuesIn(rectangles), nameOf);
INSTANTIATE_TEST_SUITE_P(EllipsesAndLines, PageContent, testing::ValuesIn(ellipsesAndLines), nameOf);
INSTANTIATE_TEST_SUITE_P(PointLists, PageContent, testing::ValuesIn(pointLists), nameOf);
INSTANTIATE_TEST_SUITE_P(Arcs, PageContent, testing::ValuesIn(arcs), nameOf);

} // namespace
