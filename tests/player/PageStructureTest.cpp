// Where elements begin and end, which ones a walk takes, and what the <svg> elements set.
#include "PlayedPage.h"

using namespace std::string_literals;

namespace {

const std::string wideClip =
    "<defs><clipPath id='clip1'><path  d='M0 0L90 0L90 90L0 90z' /></clipPath></defs>";
const std::string clipGroup = "<g clip-path='url(#clip1)'>";

const PageCase pages[] = {
    {"Sizes",
     "<?xml a?>\n<!DOCTYPE svg b>\n<!-- c -->\n\n"
     "<svg width='210mm' height='297mm' viewBox='1 2 100 200' ></svg>",
     {framePrepared}},
    {"WithoutSizes", "<svg ></svg>", {"prepareSurface 0x0 0x0 50x60"}},
    // The head is searched in the whole document, so a shape can supply what it lacks.
    {"SizesOfAShape",
     "<svg ><rect x='1' y='2' width='3' height='4' /></svg>",
     {"prepareSurface 0x0 3x4 50x60", plainBrush, plainPen, "drawRectangle (1, 2, 4, 6)"}},
    {"SizesSaturate",
     "<svg width='99999999999' height='-99999999999' viewBox='0 0 2147483648 0'></svg>",
     {"prepareSurface 2147483647x0 2147483647x-2147483648 50x60"}},
    {"ASecondDocumentIsNested",
     framed(wideClip) + "<svg viewBox='2 3 7 8'>" + clipGroup + "</g></svg>" + mark(1),
     {framePrepared, "setClippingRegion (2, 3, 7, 8)", "setClippingRegion (2, 3, 7, 8)", marked(1)}},
    {"TextBehindTheDocument", framed(mark(1)) + "</g> tail", {framePrepared, marked(1)}},
    {"ZeroByteInTheDocument", framed(mark(1) + "\0"s), {}}, // its end tag is out of sight
    {"ZeroByteBehindTheDocument", framed(mark(1)) + "\0"s + mark(2), {framePrepared, marked(1)}},
    {"DocumentWithoutEnd", "<svg viewBox='0 0 9 9'>" + mark(1), {}},
    {"Empty", "", {}},
    {"OneBracket", "<", {}},
    {"CutInAnElement", mark(1) + "<use x='2' y='0' xlink:href='#FocusRect'/", {marked(1)}},
};

const PageCase contents[] = {
    {"CommentEndsAtItsFirstBracket", "<!-- > " + mark(1) + " -->" + mark(2), {marked(1), marked(2)}},
    {"BracketOfAnElementEndsTheComment", "<!-- " + mark(1) + " -->" + mark(2), {marked(2)}},
    {"BracketInAValueEndsTheElement",
     "<use a='>' x='1' y='0' xlink:href='#FocusRect'/>" + mark(2),
     {marked(2)}},
    {"StrayBracketBeginsAnElement", "1 < 2 " + mark(1) + " > 0" + mark(2), {marked(2)}, 1},
    {"NestedSvgPairs",
     "<svg ><svg >" + mark(1) + "</svg>" + mark(2) + "</svg>" + mark(3),
     {marked(1), marked(2), marked(3)}},
    {"UnterminatedTextEndsTheWalk", mark(1) + "<text x='1'>" + mark(2), {marked(1)}},
    {"EndTagPairsWithTheInnerText", mark(1) + "<text x='1'><text x='2'></text>" + mark(2), {marked(1)}},
    // The end tag behind the parent does not count for the child.
    {"InnerWalkStaysInItsParent",
     "<svg ><text x='1'></svg>" + mark(1) + "</text>" + mark(2),
     {marked(1), marked(2)},
     1},
    {"TextNeedsItsBlank", "<text>" + mark(1) + "</text><text\nx='1'>" + mark(2), {marked(1), marked(2)}, 3},
    {"GroupNeedsItsBlank", "<g>" + mark(1) + "</g>", {marked(1)}, 1},
    {"DefsTakeNoAttributes", "<defs a='b'>" + wideClip.substr(6) + clipGroup, {}, 3},
    // Types go by prefix; shapes then look for their own name with a blank.
    {"LongerNames",
     "<used x='1' y='0' xlink:href='#FocusRect'/><lines x1='1' y1='2' x2='3' y2='4' /></groups>"
     "<rectangle x='1' y='2' width='3' height='4' /><polygons points='1,2 ' /><ellipsepath />",
     {marked(1)}},
    {"ElementsOutOfPlace",
     "<image /><tspan></tspan><textPath></textPath><pattern></pattern><symbol></symbol>"
     "<clipPath></clipPath><circle /><title>a</title>" +
         mark(1),
     {marked(1)},
     9},
    {"PrologElementsAreNothing", "<?xml ?><!DOCTYPE svg></svg ><!---->" + mark(1), {marked(1)}},
    {"NestedViewportEndsWithItsElement",
     wideClip + "<svg x='1' y='2' width='3' height='4' viewBox='0 0 5 6'>" + clipGroup + "</svg></g>" +
         clipGroup + "</g>",
     {"setClippingRegion (0, 0, 5, 6)", frameClip, "setClippingRegion (0, 0, 5, 6)", frameClip}},
};

INSTANTIATE_TEST_SUITE_P(Structure, WholePage, testing::ValuesIn(pages), nameOf);
INSTANTIATE_TEST_SUITE_P(Scanner, PageContent, testing::ValuesIn(contents), nameOf);

} // namespace
