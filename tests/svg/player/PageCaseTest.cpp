// The two tests that all tables of pages feed, and the tables of what holds a page together: where elements
// begin and end, which of them a walk takes, documents, groups and definitions.
#include "support/PlayedPage.h"

using namespace std::string_literals;

namespace {

// Whatever a page holds, it counts as played and nothing is logged.
void expectCalls(const std::string& page, const std::string& calls, std::size_t assertions)
{
    const PlayedPage played = playPage(page);
    EXPECT_EQ(played.calls, calls) << page;
    EXPECT_EQ(played.log, std::vector<std::string>());
    EXPECT_EQ(played.assertions,
              std::vector(assertions, "Assertion failed: false, surface, MetaFilePlayerSVG"s));
}

} // namespace

TEST_P(WholePage, GivesItsCalls)
{
    expectCalls(GetParam().page, GetParam().calls, GetParam().assertions);
}

TEST_P(PageContent, GivesItsCalls)
{
    const std::string calls = Prepared + GetParam().calls;
    expectCalls(framed(GetParam().page), calls.substr(0, calls.find_last_not_of("; ") + 1),
                GetParam().assertions);
}

namespace {

std::string marked(int number)
{
    const std::string x = std::to_string(number);
    return "drawFocusRect (" + x + ", 0, " + x + ", 0); ";
}

std::string clip(const std::string& id, const std::string& left, const std::string& right)
{
    return "<clipPath id='" + id + "'><path  d='M" + left + " 0L" + right + " 0L" + right + " 90L" + left +
           " 90z' /></clipPath>\n";
}

const std::string Defs = "<defs>\n" + clip("clip1", "-5", "90") + clip("clip2", "100", "150") + "</defs>";
const std::string Clip1 = "<g clip-path='url(#clip1)'>";
const std::string Clipped = "setClippingRegion (0, 0, 90, 90); ";
const std::string Transform = "<g transform='matrix(1.00,0.50,-0.50,1.00,10.25,-20.00)'>";
const std::string Transformed = "setTransform 1 0.5 -0.5 1 10.25 -20; ";
const std::string Head = "<?xml a?>\n<!DOCTYPE svg b>\n<!-- c -->\n\n";

const PageCase Pages[] = {
    {"SizesSaturate",
     Head + "<svg width='99999999999mm' height='-99999999999' viewBox='1 2 2147483648 5'></svg>",
     "prepareSurface 2147483647x5 2147483647x-2147483648 50x60"},
    // The head is searched in the whole document, so a shape can supply what it lacks.
    {"SizesOfAShape", "<svg ><line /><rect x='1' y='2' width='3' height='4' /></svg>",
     "prepareSurface 0x0 3x4 50x60; " + Plain + "drawRectangle (1, 2, 4, 6)"},
    {"ASecondDocumentIsNested", framed(Defs) + "<svg viewBox='2 3 7 8'>" + Clip1 + "</g></svg> tail",
     Prepared + "setClippingRegion (2, 3, 7, 8); setClippingRegion (2, 3, 7, 8)"},
    {"ZeroByteHidesTheEndOfTheDocument", framed(mark(1) + "\0"s), ""},
    {"ZeroByteEndsTheWalk", mark(1) + "\0"s + mark(2), "drawFocusRect (1, 0, 1, 0)"},
    {"DocumentWithoutEnd", mark(1) + "<svg viewBox='0 0 9 9'>" + mark(2), "drawFocusRect (1, 0, 1, 0)"},
};

const PageCase Elements[] = {
    {"CommentEndsAtItsFirstBracket", "<!-- > " + mark(1) + " --> <!-- " + mark(2) + " -->" + mark(3),
     marked(1) + marked(3)},
    {"BracketsInValuesAndText", "<use a='>' x='1' y='0' xlink:href='#FocusRect'/>1 < 2 " + mark(3) + mark(4),
     marked(4), 1},
    {"NestedDocumentsPair", "<svg ><svg >" + mark(1) + "</svg>" + mark(2) + "</svg>" + mark(3),
     marked(1) + marked(2) + marked(3)},
    {"EndTagPairsWithTheInnerText", mark(1) + "<text x='1'><text x='2'></text>" + mark(2), marked(1)},
    // An end tag is sought its own length into the element.
    {"EndTagTooNear", mark(1) + "<symbol></symbol>" + mark(2), marked(1)},
    {"InnerWalkStaysInItsParent", "<svg ><text x='1'></svg>" + mark(1) + "</text>" + mark(2),
     marked(1) + marked(2), 1},
    // Some names need a blank after them, <defs> stands alone.
    {"NamesThatAreUnknown",
     "<text>" + mark(1) + "</text><text\nx='1'><g>" + mark(2) + "<defs a='b'>" + Defs.substr(6) + Clip1,
     marked(1) + marked(2), 8},
    // Types go by prefix; shapes then look for their own name with a blank.
    {"LongerNames",
     Defs + Clip1 +
         "<used x='1' y='0' xlink:href='#FocusRect'/><lines x1='1' y1='2' x2='3' y2='4' /></groups>"
         "<rectangle x='1' y='2' width='3' height='4' /><polygons points='1,2 ' /><ellipsepath />",
     Clipped + marked(1) + Unclipped},
    {"ElementsOutOfPlace",
     "<image /><tspan ></tspan><textPath ></textPath><pattern ></pattern><symbol ></symbol>"
     "<clipPath ></clipPath><circle /></circle><?xml ?><!DOCTYPE svg></svg ><!---->" +
         mark(1),
     marked(1), 8},
};

const std::string Arial = "<g font-family='Arial' font-size='8.00pt' ";
const PageCase Groups[] = {
    {"ClipIsNarrowedForGood",
     Defs + "<svg viewBox='0 0 5 6'>" + Clip1 + "</svg></g></g>" + Clip1 + "<g clip-path='url(#clip2)'>",
     "setClippingRegion (0, 0, 5, 6); " + Unclipped +
         "; setClippingRegion (0, 0, 5, 6); setClippingRegion (0, 0, 0, 0)"},
    {"ClipWithoutEntry",
     Defs + "<g clip-path='url(#clip3)'></g><g clip-path='url(#clip-1)'></g>"
            "<g clip-path='url(#clip4294967297)'></g><g clip-path='none'></g>",
     ""},
    {"EndsGoByState", Defs + Transform + Clip1 + Transform + "</g>" + mark(1) + "</g></g><g id='a'></g>",
     Transformed + Clipped + Transformed + "clearTransform; " + marked(1) + Unclipped},
    // After the first number the comma is sought four characters on: short numbers lose their neighbours.
    {"ShortFirstNumber", "<g transform='matrix(1,0,0,1,5,6,7,8)'>", "setTransform 1 1 5 6 7 8"},
    {"TransformsThatCannotBeUsed",
     "<g transform='matrix(1,0,0,1,5,6)'></g><g transform='scale(2.00,2.00,2.00,2.00,2.00,2.00)'></g>", ""},
    {"Fonts", Arial + "font-style='not italic' font-weight='semibold' text-decoration='line-through'></g>",
     "setFont \"Arial\" 8 bold italic strikethru"},
    // Words count only inside their values, and decoration only after the weight.
    {"FontWordsElsewhere",
     Arial +
         "text-decoration='underline' font-style='normal' font-weight='normal' a='bold italic underline'>",
     "setFont \"Arial\" 8"},
    {"FontOfALongName",
     "<g font-family='" + std::string(40, 'a') + "' font-size='-1.50' font-style='' font-weight='bold>",
     "setFont \"" + std::string(31, 'a') + "\" -1.5 bold"},
    {"FontsThatCannotBeUsed",
     Defs + Clip1 + Arial + "font-style=''></g>" + Arial +
         "font-weight='' font-style=''>"
         "<g font-family='A' font-style='' font-size='1' font-weight=''><g font-family='A>"
         "<g font-family='transform' font-size='8.00pt' font-style='' font-weight=''>",
     Clipped + Unclipped},
};

const PageCase Definitions[] = {
    // Only the next free number is taken.
    {"ClipNumbers",
     "<defs>" + clip("clip2", "0", "1") + clip("clip0", "0", "2") + clip("clip1", "0", "3") +
         clip("clip1", "0", "4") + clip("clip2147483647", "0", "5") + clip("clip2", "0", "6") + "</defs>" +
         Clip1 + "<g clip-path='#clip2'>",
     "setClippingRegion (0, 0, 3, 90); setClippingRegion (0, 0, 6, 90)"},
    {"UnreadableClipIsEmpty",
     "<defs>" + clip("clip1", "0", "x") + clip("clip2", "0", "6") + "</defs>" + Clip1 +
         "<g clip-path='#clip2'>",
     "setClippingRegion (0, 0, 0, 0); setClippingRegion (0, 0, 6, 90)"},
    {"MissingPathEndsTheSection",
     "<defs><clipPath id='clip1'></clipPath>" + clip("clip1", "0", "6") + "</defs>" + Clip1 + mark(1),
     marked(1)},
    {"OtherElementsAreReported",
     "<defs><rect /><!-- --><symbol id='a'><line /></symbol><path d='M' />" + Defs.substr(6) + Clip1, Clipped,
     2},
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Documents, WholePage, testing::ValuesIn(Pages), nameOf);
INSTANTIATE_TEST_SUITE_P(Elements, PageContent, testing::ValuesIn(Elements), nameOf);
INSTANTIATE_TEST_SUITE_P(Groups, PageContent, testing::ValuesIn(Groups), nameOf);
INSTANTIATE_TEST_SUITE_P(Definitions, PageContent, testing::ValuesIn(Definitions), nameOf);
