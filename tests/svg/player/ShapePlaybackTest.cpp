// Shapes, their attributes, and the symbols and patterns that they refer to: elements in, their calls out.
#include "support/PlayedPage.h"

namespace {

const std::string NoPen = "setPen rgb(0,0,0) style 5 width 1; ";
const std::string Rect = "<rect x='1' y='2' width='3' height='4' ";
const std::string Line = "<line x1='1' y1='2' x2='3' y2='4' ";
const std::string Use = "<use x='1' y='2' width='3' height='4' ";

const PageCase Shapes[] = {
    {"Rectangle", Rect + "fill='rgb(1,2,3)'  tovo:penStyle='257'  stroke='rgb(4,5,6)' stroke-width='7' />",
     "setBrush rgb(1,2,3) style 0 picture 0; setPen rgb(4,5,6) style 257 width 7; "
     "drawRectangle (1, 2, 4, 6)"},
    // The pen style of a rectangle counts only beside a stroke.
    {"RectangleWithoutStroke", Rect + "tovo:penStyle='2' stroke-width='5' />",
     Plain + "drawRectangle (1, 2, 4, 6)"},
    {"RectangleCorners", Rect + "rx='3' />" + Rect + "ry='3' />",
     Plain + "drawRoundedRectangle (1, 2, 4, 6) 3 0; " + Plain + "drawRoundedRectangle (1, 2, 4, 6) 0 3"},
    // Reading goes on after each radius.
    {"RectangleRadiiOutOfOrder", Rect + "fill='rgb(1,2,3)' ry='5' rx='4' />",
     Plain + "drawRoundedRectangle (1, 2, 4, 6) 4 0"},
    {"RectangleStyleIsReadAndDropped",
     Rect + "style='fill:rgb(1,2,3); stroke:none' stroke='none' fill='rgb(9,9,9)' />" + Rect +
         "style='fill:red' />",
     Plain + "drawRectangle (1, 2, 4, 6)"},
    {"CoordinatesSaturateAndWrap",
     "<rect x='2147483647' y='-99999999999' width='1' height='-1' />"
     "<ellipse cx='-2147483648' cy='0' rx='1' ry='-2' />"
     "<use x='2147483647' y='99999999999' width='1' height='2' xlink:href='#FocusRect'/>",
     Plain + "drawRectangle (2147483647, -2147483648, -2147483648, 2147483647); " + Plain +
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
     Line + "tovo:penStyle='4' stroke='none' stroke-dasharray='3,1' />" + Line + "stroke='none' />" + Line +
         "stroke='rgb(256,-1,511)' stroke-width='99999999999' />",
     "setPen rgb(0,0,0) style 4 width 1; drawLine 1 2 3 4; " + NoPen +
         "drawLine 1 2 3 4; setPen rgb(0,255,255) style 0 width 2147483647; drawLine 1 2 3 4"},
    {"ColourHalfRead", Line + "stroke='rgb(1,2)' />" + Rect + "fill='rgb(1,2)' />", ""},
    // Attributes are sought from the end of the list on; a polyline takes no brush.
    {"PointListAttributes",
     "<polygon fill='rgb(1,2,3)' points='1,2 ' />"
     "<polyline points='3,99999999999 ' fill='rgb(1,2,3)' stroke='none' /><polygon points='' /><polyline "
     "points='' />",
     Plain + "polygon [(1, 2)]; " + NoPen + "polyline [(3, 2147483647)]; " + Plain + "polygon []; " +
         PlainPen + "polyline []"},
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
         NoPen + "drawChord (0, 0, 9, 8) 1 2 3 2147483647; " + Plain + "drawPie (0, 0, 9, 8) 1 2 3 4"},
    {"PathsForViewersOnly",
     "<path d='M0 0z' /><path tovo:penStyle='0'  stroke='rgb(0,0,0)' /><path tovo:arc='1 2 3 4 5 6 7' />",
     ""},
    {"Symbol", "<use  x='7'\ty='8' xlink:href = \"#FocusRect\" />", "drawFocusRect (7, 8, 7, 8)"},
    {"SymbolsThatCannotBeUsed",
     Use + "xlink:href='#FrameRect2' stroke='rgb(1,2,3)'/>" + Use + "xlink:href=''/>" + Use +
         "xlink:href />" + Use + "xlink:href='#FrameRect'/>" + Use +
         "xlink:href='#FrameRect' stroke='red'/>" + Use + "fill='rgb(1,2,3)' xlink:href='#SolidRect'/>" +
         Use +
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
        elements.append(Rect).append("fill='").append(fill).append("' />");
    }
    return elements;
}

const std::string Hatch = "setBrush rgb(1,2,3) style ";
const std::string OnRect = " picture 0; " + PlainPen + "drawRectangle (1, 2, 4, 6); ";
const PageCase Patterns[] = {
    // Octal and hexadecimal where they are defined, decimal where they are used.
    {"Numbers",
     "<defs>" + pattern("pattern1", "Hatch") + pattern("pattern2", "a") + pattern("pattern3", "a") +
         pattern("pattern4", "a") + pattern("pattern5", "a") + pattern("pattern6", "a") +
         pattern("pattern7", "a") + pattern("pattern08", "HatchVertical") +
         pattern("pattern010", "HatchCross") + pattern("pattern0x9", "HatchDiagCross") + "</defs>" +
         filled({"url(#pattern1)", "url(#pattern8)", "url(#pattern010)", "url(#pattern09)"}),
     Hatch + "2" + OnRect + Hatch + "6" + OnRect + Hatch + "7" + OnRect},
    // The shared patterns have names for ids; "id" is found inside "width" as well.
    {"WithoutEntry",
     "<defs>" + pattern("HatchCross", "a") +
         "<pattern ></pattern><pattern width='9' id='pattern1'></pattern></defs>" +
         filled({"url(#pattern1)", "url(#pattern0)", "url(#pattern-1)", "url(#pattern)", "url(#HatchCross)"}),
     ""},
    {"NothingInIt", "<defs><pattern id = \"pattern1\"></pattern></defs>" + filled({"url(#pattern1)", "red"}),
     "setBrush rgb(0,0,0) style 2 picture 0; " + PlainPen + "drawRectangle (1, 2, 4, 6); " + Plain +
         "drawRectangle (1, 2, 4, 6)"},
};

INSTANTIATE_TEST_SUITE_P(Shapes, PageContent, testing::ValuesIn(Shapes), nameOf);
INSTANTIATE_TEST_SUITE_P(Patterns, PageContent, testing::ValuesIn(Patterns), nameOf);

} // namespace
