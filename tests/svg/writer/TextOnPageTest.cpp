// Text on its way into a page: the five written forms, byte for byte, the page-count class, rotation, and the
// escapes that all of them pass through.
#include "support/Runs.h"
#include "support/SvgPage.h"

#include <climits>
#include <tuple>

namespace {

constexpr int NoClip = 0x100;
RECT box{10, 20, 110, 40};

void drawRuns(CSurfaceSVG& s, Runs runs, RECT rect = {}, int flags = 0)
{
    auto pointers = pointersTo(runs);
    EXPECT_TRUE(s.drawString(&pointers, &rect, flags));
}

// The form that does not turn its text.
void drawStraight(CSurfaceSVG& s, Runs runs)
{
    auto pointers = pointersTo(runs);
    EXPECT_TRUE(s.drawString(&pointers, &box, NoClip, 1.5F, -2));
}

void drawOnBaseLine(CSurfaceSVG& s, unsigned int options, RECT* rect, int length)
{
    constexpr const char* Whole = "a&bc";
    const bool cut = length >= 0 && length < 4;
    // Nothing lies after the characters of a cut text, not even an end.
    std::vector<char> text(Whole, Whole + (cut ? length : 5));
    s.drawTextOnBaseLine(1, -2, options, rect, text.data(), length);
}

void drawAt(CSurfaceSVG& s, const char* text, POINT point)
{
    s.drawTextAt(text, &point, ~0U);
}

const std::string BoxClip = "<clipPath id='clip1'><path  d='M10 20L110 20L110 40L10 40z' /></clipPath>\n";
const std::string Red = " fill='rgb(255,0,0)'";
const std::string InBox = " tovo:textRect='(10,20,110,40)' tovo:drawOptions='256'" + Red;
const std::string AtOrigin = "<text x='0' y='0' dy='1em'";
const std::string NoOptions = " tovo:drawOptions='0'" + Red;
const std::string Spaced = " xml:space='preserve'";
const std::string PointAttributes = " style=' TovoFlags:-1'" + Red;

std::string onBaseLine(const std::string& attributes, const std::string& text)
{
    return "<text x='1' y='-2' " + attributes + Red + " xml:space='preserve' class='BLT'>" + text +
           "</text>\n";
}

const DrawnCase PlainForms[] = {
    {"StringInAClip",
     [](auto& s) {
         s.setTextColor(0xFF030201);
         s.drawString("A&B", &box, 0);
     },
     "<defs>\n" + BoxClip +
         "\n</defs>\n\n<text x='10' y='20' dy='1em' clip-path='url(#clip1)'  tovo:drawOptions='0' "
         "fill='rgb(1,2,3)'>A&amp;B</text>\n"},
    // A point says nothing of the rotation.
    {"Rotated",
     [](auto& s) {
         s.setTextRotation(-5, 7);
         s.drawText("<'\">\n\xE9", &box, NoClip);
         drawAt(s, "", {3, 4});
     },
     "<text x='10' y='20' dy='1em'" + InBox +
         " tovo:charAngle='-5' tovo:textAngle='7'>&lt;&apos;&quot;&gt;\n\xE9</text>\n"
         "<text x='3' y='4' dy='1em'" +
         PointAttributes + "></text>\n"},
    {"BaseLine",
     [](auto& s) {
         drawOnBaseLine(s, 4, &box, -1);
         drawOnBaseLine(s, 4, nullptr, 2);
         drawOnBaseLine(s, 0, &box, 9);
     },
     "<defs>\n" + BoxClip + "\n</defs>\n\n" +
         onBaseLine(" clip-path='url(#clip1)' style=' TovoFlags:4'", "a&amp;bc") +
         onBaseLine(" style=' TovoFlags:4'", "a&amp;") + onBaseLine(" style=' TovoFlags:0'", "a&amp;bc")},
    // The mark waits for a string: text at a point and on a base line neither shows nor ends it.
    {"PageCountMark",
     [](auto& s) {
         s.printerNofMMarker({});
         s.printerNofMMarker({});
         drawAt(s, "a", {});
         drawOnBaseLine(s, 0, nullptr, 1);
         s.drawText("1", in({}), 0);
         s.drawText("2", in({}), 0);
         s.printerNofMMarker({});
         drawRuns(s, {});
         s.printerNofMMarker({});
         drawStraight(s, {});
         drawRuns(s, {});
     },
     AtOrigin + PointAttributes + ">a</text>\n" + onBaseLine(" style=' TovoFlags:0'", "a") + AtOrigin +
         " class='nofm'" + NoOptions + ">1</text>\n" + AtOrigin + NoOptions + ">2</text>\n" + AtOrigin +
         Spaced + " class='nofm'" + NoOptions + ">\n</text>\n" + "<text x='10' y='20' dy='1em'" + Spaced +
         " class='nofm'" + InBox + ">\n</text>\n" + AtOrigin + Spaced + NoOptions + ">\n</text>\n"},
};

// The reference point follows the alignment; right goes before centred, halves go toward zero.
TEST(TextOnPage, Anchor)
{
    const std::tuple<unsigned int, RECT, int> anchors[] = {
        {0, {10, 1, 21, 0}, 10}, {1, {10, 1, 21, 0}, 15}, {1, {21, 1, 10, 0}, 16}, {3, {10, 1, 21, 0}, 21}};
    for (auto [flags, rect, x] : anchors) {
        const std::string head = "<text x='" + std::to_string(x) + "' y='1' dy='1em' ";
        const auto draw = [flags = flags, rect = rect](CSurfaceSVG& s) mutable {
            s.drawString("", &rect, flags | NoClip);
            drawRuns(s, {}, rect, static_cast<int>(flags) | NoClip);
        };
        const std::string page = drawnPage(draw);
        EXPECT_TRUE(page.starts_with(head) && page.find(head, 1) != page.npos) << page;
    }
}

const std::string RunsInBox = "<text x='10' y='20' dy='1em'" + Spaced + InBox;

// A page of runs in the box, turned by these angles, with its paths.
DrawnCase turned(const char* name, int charAngle, int textAngle, const Runs& runs, const std::string& paths,
                 const std::string& angles, const std::string& content)
{
    return {name,
            [=](auto& s) {
                s.setTextRotation(charAngle, textAngle);
                drawRuns(s, runs, box, NoClip);
            },
            (paths.empty() ? "" : "<defs>\n" + paths + "\n</defs>\n\n") + RunsInBox + angles + ">\n" +
                content + "</text>\n"};
}

std::string path(int number, int angle)
{
    return "<path id='textPath" + std::to_string(number) +
           "' d='M10 20L1010 20' transform='translate(0 0) rotate( " + std::to_string(-angle) +
           " 10 20)'/>\n";
}

std::string onPath(int number, const std::string& attributes, const std::string& text)
{
    return "\t<textPath xlink:href='#textPath" + std::to_string(number) + "' startOffset='-10'>\n\t\t<tspan" +
           attributes + ">" + text + "</tspan>\n\t</textPath>\n";
}

const Runs PlainRuns = {run("a<", {1, 2}), run("", {3, 4}, true), run(" b ", {-3, -4}, false, 0, true),
                        run("c", {}, true, -2, true)};
const std::string PlainContent =
    "\t<tspan x='1' y='2' dy='1em'>a&lt;</tspan>\n\t<tspan></tspan>\n"
    "\t<tspan x='-3' y='-4' dy='1em' textLength='0' text-decoration='underline'> b </tspan>\n"
    "\t<tspan textLength='-2' text-decoration='underline'>c</tspan>\n";
const Runs Pair = {run("AB&", {12, 25}), run("", {}, true, 5)};

const DrawnCase RunForms[] = {
    turned("Straight", 0, 0, PlainRuns, "", "", PlainContent),
    turned("FullTurns", 360, -720, PlainRuns, "", " tovo:charAngle='360' tovo:textAngle='-720'",
           PlainContent),
    {"FormThatDoesNotTurn",
     [](auto& s) {
         s.setTextRotation(30, 90);
         drawStraight(s, PlainRuns);
     },
     RunsInBox + " tovo:charAngle='30' tovo:textAngle='90'>\n" + PlainContent + "</text>\n"},
    // Upright characters on a rising line: each run has a path, y counts from the top of the rectangle.
    turned("Line", 0, 90, Pair, path(1, 90) + path(2, 90), " tovo:textAngle='90'",
           onPath(1, " x='12' y='5' baseline-shift='-0.5em' glyph-orientation-horizontal='90' rotate='0 0 0'",
                  "AB&amp;") +
               onPath(2,
                      " textLength='5' baseline-shift='-0.5em' glyph-orientation-horizontal='90' rotate=''",
                      "")),
    turned("LineAndCharacters", 90, 90, {run("A", {0, 0})}, path(1, 90),
           " tovo:charAngle='90' tovo:textAngle='90'",
           onPath(1, " x='0' y='-20' baseline-shift='-1.0em'", "A")),
    // The shift goes by the angle of the characters as it was given.
    turned("NegativeAngles", -90, -90, {run("A", {0, 0})}, path(1, 270),
           " tovo:charAngle='-90' tovo:textAngle='-90'",
           onPath(1, " x='0' y='-20' baseline-shift='0.0em'", "A")),
    turned("Characters", 100, 0, Pair, "", " tovo:charAngle='100'",
           "\t<tspan x='12' y='25' dy='1em' glyph-orientation-horizontal='-90' rotate='-10 -10 -10'>AB&amp;"
           "</tspan>\n\t<tspan textLength='5' glyph-orientation-horizontal='-90' rotate=''></tspan>\n"),
    turned("LeastAngle", 0, INT_MIN, {run("A", {0, 0})}, path(1, 232), " tovo:textAngle='-2147483648'",
           onPath(1, " x='0' y='-20' baseline-shift='-0.3em' glyph-orientation-horizontal='270' rotate='-38'",
                  "A")),
};

// Quarter turns of the glyphs and what remains to turn, both negated.
TEST(TextOnPage, GlyphOrientation)
{
    const std::tuple<int, int, const char*> bands[] = {
        {45, 0, "0' rotate='-45"},        {46, 0, "-90' rotate='44"},    {134, 0, "-90' rotate='-44"},
        {135, 0, "-180' rotate='45"},     {225, 0, "-180' rotate='-45"}, {226, 0, "-270' rotate='44"},
        {314, 0, "-270' rotate='-44"},    {315, 0, "-360' rotate='45"},  {719, 0, "-360' rotate='1"},
        {INT_MIN, 0, "-270' rotate='38"}, {0, 45, "0' rotate='45"},      {10, 145, "180' rotate='-45"}};
    for (const auto& band : bands) {
        const std::string page = drawnPage([&](CSurfaceSVG& s) {
            s.setTextRotation(std::get<0>(band), std::get<1>(band));
            drawRuns(s, {run("A", {})});
        });
        const std::string numbers = std::string(" glyph-orientation-horizontal='") + std::get<2>(band) + "'>";
        EXPECT_NE(page.find(numbers), page.npos) << page;
    }
}

TEST(TextOnPage, Escapes)
{
    const char* const escapes[][2] = {{"plain \x80\xFF\n", "plain \x80\xFF\n"},
                                      {"&\"<>'", "&amp;&quot;&lt;&gt;&apos;"},
                                      {"&lt;&&amp;", "&amp;lt;&amp;&amp;amp;"}};
    for (const auto& [plain, escaped] : escapes) {
        EXPECT_STREQ(escaped, CSurface::toXML(plain).text());
        EXPECT_STREQ(plain, CSurface::fromXML(escaped).text());
    }
    // What no page of ours holds.
    EXPECT_STREQ("&lt &#38;&AMP;&<lt;&", CSurface::fromXML("&lt &#38;&AMP;&&lt;lt;&").text());
}

// A run that nobody has given a width is not squeezed to one.
TEST(TextOnPage, RunsOfNoWidth)
{
    const std::string page = drawnPage([](CSurfaceSVG& s) {
        Runs runs(1);
        runs[0].m_text = "A";
        drawRuns(s, runs);
    });
    EXPECT_NE(page.find(">A</"), page.npos);
    EXPECT_EQ(page.find("textLength"), page.npos) << page;
}

TEST(TextOnPage, RunsThatBeginALine)
{
    CSurfaceTextChunk before = run("B", {0, 5});
    const std::tuple<int, bool, bool, bool> runs[] = {{4, true, false, true},  {5, false, false, false},
                                                      {6, false, false, true}, {4, false, false, false},
                                                      {6, false, true, false}, {4, true, true, true}};
    for (const auto& [y, newLine, follows, begins] : runs) {
        CSurfaceTextChunk chunk = run("A", {0, y}, follows);
        chunk.m_isNewLine = newLine;
        EXPECT_EQ(begins, chunk.isStartOfAnotherLine(&before)) << y << newLine << follows;
        EXPECT_EQ(newLine, chunk.isStartOfAnotherLine(nullptr)) << y << newLine << follows;
    }
}

INSTANTIATE_TEST_SUITE_P(PlainText, SvgPage, testing::ValuesIn(PlainForms), nameOf);
INSTANTIATE_TEST_SUITE_P(Runs, SvgPage, testing::ValuesIn(RunForms), nameOf);

} // namespace
