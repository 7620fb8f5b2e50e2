// Shapes, their attributes, and the symbols and patterns that they refer to: elements in, their calls out.
#include "PlayedPage.h"

namespace {

const std::string noPen = "setPen rgb(0,0,0) style 5 width 1; ";
const std::string rect = "<rect x='1' y='2' width='3' height='4' ";
const std::string line = "<line x1='1' y1='2' x2='3' y2='4' ";
const std::string use = "<use x='1' y='2' width='3' height='4' ";

const PageCase shapes[] = {
    {"Rectangle", rect + "fill='rgb(1,2,3)'  tovo:penStyle='257'  stroke='rgb(4,5,6)' stroke-width='7' />",
     "setBrush rgb(1,2,3) style 0 picture 0; setPen rgb(4,5,6) style 257 width 7; "
     "drawRectangle (1, 2, 4, 6)"},
    // The pen style of a rectangle counts only beside a stroke.
    {"RectangleWithoutStroke", rect + "tovo:penStyle='2' stroke-width='5' />",
     plain + "drawRectangle (1, 2, 4, 6)"},
    {"RectangleCorners", rect + "rx='3' />" + rect + "ry='3' />",
     plain + "drawRoundedRectangle (1, 2, 4, 6) 3 0; " + plain + "drawRoundedRectangle (1, 2, 4, 6) 0 3"},
    // Reading goes on after each radius.
    {"RectangleRadiiOutOfOrder", rect + "fill='rgb(1,2,3)' ry='5' rx='4' />",
     plain + "drawRoundedRectangle (1, 2, 4, 6) 4 0"},
    {"RectangleStyleIsReadAndDropped",
     rect + "style='fill:rgb(1,2,3); stroke:none' stroke='none' fill='rgb(9,9,9)' />" + rect +
         "style='fill:red' />",
     plain + "drawRectangle (1, 2, 4, 6)"},
    {"CoordinatesSaturateAndWrap",
     "<rect x='2147483647' y='-99999999999' width='1' height='-1' />"
     "<ellipse cx='-2147483648' cy='0' rx='1' ry='-2' />"
     "<use x='2147483647' y='99999999999' width='1' height='2' xlink:href='#FocusRect'/>",
     plain + "drawRectangle (2147483647, -2147483648, -2147483648, 2147483647); " + plain +
         "ellipse (2147483647, 2, -2147483647, -2); "
         "drawFocusRect (2147483647, 2147483647, -2147483648, -2147483647)"},
    {"HeadsThatCannotBeUsed",
     "<rect y='2' x='1' width='3' height='4' /><rect x='1' y='2' width='3' />"
     "<rect  x='1' y='2' width='3' height='4' /><rect\tx='1' y='2' width='3' height='4' /><rect x=\"1\" "
     "y='2' width='3' height='4' /><rect />"
     "<ellipse cx='10' cy='20' rx='3' /><line x1='1' y1='2' x2='3' />",
     ""},
    // The style word has the last word; the dashes beside it are for viewers.
    {"LinePens",
     line + "tovo:penStyle='4' stroke='none' stroke-dasharray='3,1' />" + line + "stroke='none' />" + line +
         "stroke='rgb(256,-1,511)' stroke-width='99999999999' />",
     "setPen rgb(0,0,0) style 4 width 1; drawLine 1 2 3 4; " + noPen +
         "drawLine 1 2 3 4; setPen rgb(0,255,255) style 0 width 2147483647; drawLine 1 2 3 4"},
    {"ColourHalfRead", line + "stroke='rgb(1,2)' />" + rect + "fill='rgb(1,2)' />", ""},
    // Attributes are sought from the end of the list on; a polyline takes no brush.
    {"PointListAttributes",
     "<polygon fill='rgb(1,2,3)' points='1,2 ' />"
     "<polyline points='3,99999999999 ' fill='rgb(1,2,3)' stroke='none' /><polygon points='' /><polyline "
     "points='' />",
     plain + "polygon [(1, 2)]; " + noPen + "polyline [(3, 2147483647)]; " + plain + "polygon []; " +
         plainPen + "polyline []"},
    {"PointListsThatCannotBeUsed",
     "<polygon points='1,2 3,4'/><polyline points='1,2 3,4'/><polyline points='1,2 3,4' stroke='none' />"
     "<polygon fill='none' /><polyline stroke='none' />",
     ""},
    // Other tovo: attributes may come first; names go by prefix.
    {"Arcs",
     "<path d='M0 0z' fill='none'  tovo:penStyle='1'  stroke='rgb(1,2,3)' tovo:arc='0 0 9 8 1 2 -3 4' />"
     "<path tovo:penStyle='5'  stroke='none'  fill='rgb(1,2,3)' tovo:chop='0 0 9 8 1 2 3 99999999999' />"
     "<path tovo:penStyle='2' tovo:pie='0 0 9 8 1 2 3 4' />",
     "setBrush rgb(0,0,0) style 1 picture 0; setPen rgb(1,2,3) style 1 width 1; "
     "drawArc (0, 0, 9, 8) 1 2 -3 4; setBrush rgb(1,2,3) style 0 picture 0; " +
         noPen + "drawChord (0, 0, 9, 8) 1 2 3 2147483647; " + plain + "drawPie (0, 0, 9, 8) 1 2 3 4"},
    {"PathsForViewersOnly",
     "<path d='M0 0z' /><path tovo:penStyle='0'  stroke='rgb(0,0,0)' /><path tovo:arc='1 2 3 4 5 6 7' />",
     ""},
    {"Symbol", "<use  x='7'\ty='8' xlink:href = \"#FocusRect\" />", "drawFocusRect (7, 8, 7, 8)"},
    {"SymbolsThatCannotBeUsed",
     use + "xlink:href='#FrameRect2' stroke='rgb(1,2,3)'/>" + use + "xlink:href=''/>" + use +
         "xlink:href />" + use + "xlink:href='#FrameRect'/>" + use +
         "xlink:href='#FrameRect' stroke='red'/>" + use + "fill='rgb(1,2,3)' xlink:href='#SolidRect'/>" +
         use +
         "xlink:href='#SolidRect' fill='rgb(1,2'/>"
         "<use y='2' xlink:href='#FocusRect'/><use x='1' xlink:href='#FocusRect'/><use x='1' y='2' />",
     ""},
};

std::string pattern(const std::string& id, const std::string& name)
{
    return "<pattern id='" + id + "' stroke='rgb(1,2,3)' xlink:href='#" + name + "'></pattern>\n";
}

// A shape for each fill.
std::string filled(std::initializer_list<const char*> fills)
{
    std::string elements;
    for (const std::string fill : fills) {
        elements.append(rect).append("fill='").append(fill).append("' />");
    }
    return elements;
}

const std::string hatch = "setBrush rgb(1,2,3) style ";
const std::string onRect = " picture 0; " + plainPen + "drawRectangle (1, 2, 4, 6); ";
const PageCase patterns[] = {
    // Octal and hexadecimal where they are defined, decimal where they are used.
    {"Numbers",
     "<defs>" + pattern("pattern1", "Hatch") + pattern("pattern2", "a") + pattern("pattern3", "a") +
         pattern("pattern4", "a") + pattern("pattern5", "a") + pattern("pattern6", "a") +
         pattern("pattern7", "a") + pattern("pattern08", "HatchVertical") +
         pattern("pattern010", "HatchCross") + pattern("pattern0x9", "HatchDiagCross") + "</defs>" +
         filled({"url(#pattern1)", "url(#pattern8)", "url(#pattern010)", "url(#pattern09)"}),
     hatch + "2" + onRect + hatch + "6" + onRect + hatch + "7" + onRect},
    // The shared patterns have names for ids; "id" is found inside "width" as well.
    {"WithoutEntry",
     "<defs>" + pattern("HatchCross", "a") +
         "<pattern ></pattern><pattern width='9' id='pattern1'></pattern></defs>" +
         filled({"url(#pattern1)", "url(#pattern0)", "url(#pattern-1)", "url(#pattern)", "url(#HatchCross)"}),
     ""},
    {"NothingInIt", "<defs><pattern id = \"pattern1\"></pattern></defs>" + filled({"url(#pattern1)", "red"}),
     "setBrush rgb(0,0,0) style 2 picture 0; " + plainPen + "drawRectangle (1, 2, 4, 6); " + plain +
         "drawRectangle (1, 2, 4, 6)"},
};

INSTANTIATE_TEST_SUITE_P(Shapes, PageContent, testing::ValuesIn(shapes), nameOf);
INSTANTIATE_TEST_SUITE_P(Patterns, PageContent, testing::ValuesIn(patterns), nameOf);

} // namespace
