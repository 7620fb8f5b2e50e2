// The way of whole pages: random calls are drawn, the page is stored and played, and the calls that come out
// are those that went in, changed as the functions below say, and in nothing else. The page that a replay makes
// goes the same way again. Images and page counts have tests of their own.
#include "RandomPage.h"
#include "support/PlayedPage.h"
#include "support/SvgPage.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <utility>

namespace {

using Names = std::vector<std::string_view>;
const Names Attributes = {"setPen", "setBrush", "setTextStyle", "setTextRotation", "setTextColor"};
const Names Unwritten = {"prepareSurface", "drawPaths", "setForeColor", "setBackColor", "setViewportOrigin"};
const Names RunForms = {"drawRuns", "drawStraightRuns"};
const Names Texts = {"drawText", "drawTextAt", "drawTextOnBaseLine", "drawRuns"};
const Names Strokes = {"drawLine", "polyline"};
const Names PointLists = {"polygon", "polyline", "solidPolygon"};
const Names Rectangles = {"drawRectangle", "drawRoundedRectangle"};
const Names Shapes = {"drawRectangle", "drawRoundedRectangle", "ellipse", "polygon", "drawArc", "drawChord",
                      "drawPie"};

bool isOneOf(const Names& names, const Call& call)
{
    return std::ranges::find(names, call.operation) != names.end();
}

Call renamed(Call call, std::string_view operation)
{
    call.operation = operation;
    return call;
}

// What is drawn gets the attributes that were set last, whose own calls are dropped.
void bindAttributes(Calls& calls)
{
    Call now;
    for (Call& call : calls) {
        if (call.is("setPen")) {
            now.pen = call.pen;
        } else if (call.is("setBrush")) {
            now.brush = call.brush;
        } else if (call.is("setTextStyle")) {
            now.style = call.style;
        } else if (call.is("setTextRotation")) {
            now.style.setRotation(call.numbers[0], call.numbers[1]);
        } else if (call.is("setTextColor")) {
            now.style = CTextStyle(call.color, 0, now.style.getCharAngle(), now.style.getTextAngle());
        } else {
            call.pen = now.pen;
            call.brush = now.brush;
            call.style = now.style;
        }
    }
    std::erase_if(calls, [](const Call& call) { return isOneOf(Attributes, call); });
}

// The other way: brush and pen come before each shape, the colour before each text, and a new rotation before
// runs.
void setAttributes(Calls& calls)
{
    Calls list;
    CTextStyle turned;
    for (Call& call : calls) {
        const bool shape = isOneOf(Shapes, call);
        const bool text = isOneOf(Texts, call);
        const CTextStyle& style = call.style;
        const bool turns = call.is("drawRuns") && (style.getCharAngle() != turned.getCharAngle() ||
                                                   style.getTextAngle() != turned.getTextAngle());
        turned = turns ? style : turned;
        call.color = text ? style.getColor() : call.color;
        list.push_back(renamed(call, shape ? "setBrush" : ""));
        list.push_back(renamed(call, shape || isOneOf(Strokes, call) ? "setPen" : ""));
        list.push_back(renamed(call, text ? "setTextColor" : ""));
        if (turns) {
            list.push_back(renamed(call, "setTextRotation"));
            list.back().numbers[0] = style.getCharAngle();
            list.back().numbers[1] = style.getTextAngle();
        }
        list.push_back(call);
    }
    calls = std::move(list);
}

// Each transform ends before the next one and at the page's end, and only one that is open does.
void endTransforms(Calls& calls)
{
    Calls list;
    bool open = false;
    for (const Call& call : calls) {
        const bool begins = call.is("setTransform");
        const bool ends = call.is("clearTransform");
        list.push_back(renamed({}, open && begins ? "clearTransform" : ""));
        list.push_back(renamed(call, open || !ends ? call.operation : ""));
        open = begins || (open && !ends);
    }
    list.push_back(renamed({}, open ? "clearTransform" : ""));
    calls = std::move(list);
}

// A clip ends, by a clip of the whole page, before the next one, at null, at a font and at the page's end; after
// the font it begins again.
void endClips(Calls& calls)
{
    Call end = renamed({}, "setClippingRegion");
    end.rect = {0, 0, PageWidth, PageHeight};
    Calls list;
    Call open;
    for (const Call& call : calls) {
        const bool clip = call.is("setClippingRegion");
        if (clip || call.is("setFont")) {
            list.push_back(open.is("") ? open : end);
        }
        list.push_back(renamed(call, clip && call.nullRect ? "" : call.operation));
        if (call.is("setFont")) {
            list.push_back(open);
        } else if (clip) {
            open = call.nullRect ? Call() : call;
        }
    }
    list.push_back(open.is("") ? open : end);
    calls = std::move(list);
}

float hundredths(float value)
{
    return static_cast<float>(std::round(value * 100.0) / 100);
}

// The side at the right or bottom moves so that the extent is even, then the sides are put in order.
void makeEven(LONG& first, LONG& second)
{
    second -= (second - first) % 2;
    if (second < first) {
        std::swap(first, second);
    }
}

void changeAttributes(Call& c)
{
    // Colours lose bits 24 to 31.
    c.color &= 0xFFFFFF;
    c.style = CTextStyle(c.style.getColor() & 0xFFFFFF, 0, c.style.getCharAngle(), c.style.getTextAngle());
    // A pen whose low bits are 5 keeps its style word only.
    const int pen = c.pen.getStyle();
    c.pen = (pen & 15) == 5 ? CSurfacePen(0, pen, 1)
                            : CSurfacePen(c.pen.getColor() & 0xFFFFFF, pen, c.pen.getWidth());
    // Brushes lose their picture, a hollow one and that of an arc its colour too; unknown styles become hatches.
    const int style = c.brush.getStyle();
    c.brush = c.is("drawArc") || style == 1
                  ? CSurfaceBrush(0, 1)
                  : CSurfaceBrush(c.brush.getColor() & 0xFFFFFF, style >= 0 && style <= 7 ? style : 2);
}

void changeShape(Call& c)
{
    const bool solid = c.brush.getStyle() == 0;
    if (isOneOf(Rectangles, c) && solid && (c.pen.getStyle() & 15) == 5) {
        c.operation = "drawSolidRectangle"; // whatever its corners
        c.color = c.brush.getColor();
    } else if (c.is("drawRoundedRectangle") && c.cornerWidth + c.cornerHeight == 0) {
        c.operation = "drawRectangle";
    } else if (c.is("ellipse")) {
        makeEven(c.rect.left, c.rect.right);
        makeEven(c.rect.top, c.rect.bottom);
    } else if (c.is("polygon") && solid) {
        c.operation = "solidPolygon";
        c.color = c.brush.getColor();
    }
    // The first of an odd count of points is at the end again.
    if (isOneOf(PointLists, c) && c.points.size() % 2 == 1) {
        c.points.push_back(POINT(c.points.front()));
    }
    if (c.is("setTransform")) {
        std::ranges::transform(c.matrix, c.matrix.begin(), hundredths);
    } else if (c.is("setClippingRegion")) {
        const RECT page{0, 0, PageWidth, PageHeight};
        IntersectRect(&c.rect, &c.rect, &page);
    }
}

void changeFont(Call& c)
{
    c.matrix[0] = hundredths(c.matrix[0]);
    c.text.resize(std::min<std::size_t>(c.text.size(), 31));
    std::erase(c.text, '\'');
    const bool lost = c.text.find('>') != c.text.npos || c.text.find("transform") != c.text.npos;
    c.operation = lost ? "" : c.operation;
}

// Text is known by its rectangle; without right and bottom it is at its reference point.
void changePlainText(Call& c)
{
    const RECT& rect = c.rect;
    const int centred = (c.flags & 1) != 0 ? rect.left + (rect.right - rect.left) / 2 : rect.left;
    c.point = {(c.flags & 2) != 0 ? rect.right : centred, rect.top};
    c.operation = rect.right == 0 && rect.bottom == 0 ? "drawTextAt" : "drawText";
}

void changeBaseLine(Call& c)
{
    c.text = c.length == -1 ? c.text : c.text.substr(0, static_cast<std::size_t>(c.length));
    c.length = -1;
    const bool exact = (c.flags & 4) != 0 && !c.nullRect;
    c.rect = exact ? c.rect : RECT{c.numbers[0], c.numbers[1], 0, 0};
    c.nullRect = c.flags == 0;
}

bool isBare(const CSurfaceTextChunk& run)
{
    return run.m_followsPrevious && run.m_text.isEmpty() && run.m_textLength == -1 && !run.m_underline;
}

void changeRuns(Call& c)
{
    const bool onATurnedLine = c.is("drawRuns") && c.style.getTextAngle() % 360 != 0;
    const bool turned = onATurnedLine || (c.is("drawRuns") && c.style.getCharAngle() % 360 != 0);
    if (!turned) { // a run without anything to it is lost with all after it
        c.runs.erase(std::ranges::find_if(c.runs, isBare), c.runs.end());
    }
    const unsigned int lineBelowTop = static_cast<unsigned int>(c.rect.top) + INT_MAX;
    int y = INT_MAX;
    for (CSurfaceTextChunk& run : c.runs) {
        if (run.m_followsPrevious) {
            run.m_position = {INT_MAX, onATurnedLine ? static_cast<int>(lineBelowTop) : y};
        }
        y = run.m_position.y;
        run.m_isNewLine = false;
        run.m_findPosition[0] = run.m_findPosition[1] = 0;
    }
    c.operation = "drawRuns";
}

void changeText(Call& c)
{
    if (c.is("setFont")) {
        changeFont(c);
    } else if (isOneOf(RunForms, c) && !c.runs.empty()) {
        changeRuns(c);
    } else if (isOneOf(RunForms, c)) {
        c.text = "\n";
        changePlainText(c);
    } else if (c.is("drawString") || c.is("drawText")) {
        changePlainText(c);
    } else if (c.is("drawTextOnBaseLine")) {
        changeBaseLine(c);
    }
}

// What comes out when these calls went in.
Calls replayed(Calls calls)
{
    bindAttributes(calls);
    std::erase_if(calls, [](const Call& call) { return isOneOf(Unwritten, call); });
    std::ranges::for_each(calls, changeAttributes);
    std::ranges::for_each(calls, changeShape);
    endTransforms(calls);
    endClips(calls);
    std::ranges::for_each(calls, changeText);
    setAttributes(calls);
    calls.insert(calls.begin(), renamed({}, "prepareSurface"));
    std::erase_if(calls, [](const Call& call) { return call.is(""); });
    return calls;
}

// The calls of a page, and the page that a surface without sizes of its own makes of it.
std::pair<Lines, std::string> played(const std::string& page)
{
    RecordingSurface recording;
    CSurfaceSVG surface(nullptr, nullptr);
    EXPECT_TRUE(playOn(recording, page) == 1 && playOn(surface, page) == 1);
    return {recording.calls(), closedPage(surface)};
}

// Where two lists of calls part; empty when they are the same.
std::string difference(const Lines& expected, const Lines& actual)
{
    const auto [wanted, found] = std::ranges::mismatch(expected, actual);
    if (wanted == expected.end() && found == actual.end()) {
        return "";
    }
    return "call " + std::to_string(wanted - expected.begin()) + "\n  expected " +
           (wanted == expected.end() ? "the end" : *wanted) + "\n  actual   " +
           (found == actual.end() ? "the end" : *found);
}

TEST(RoundTrip, CallsComeOutChangedAsStatedAndInNothingElse)
{
    for (unsigned int number = 0; number < 1000; ++number) {
        const Calls calls = randomPage(number);
        const auto [once, secondPage] = played(pageOf(calls));
        ASSERT_EQ(difference(recorded(replayed(calls)), once), "") << "random page " << number;
        const auto [twice, thirdPage] = played(secondPage);
        ASSERT_EQ(difference(recorded(replayed(replayed(calls))), twice), "") << "replayed page " << number;
        // From here on only the clips of the whole page, at the end of each clip, multiply.
        const bool clipped = std::ranges::count(calls, "setClippingRegion", &Call::operation) != 0;
        EXPECT_TRUE(clipped || played(thirdPage).second == thirdPage) << "replayed page " << number;
    }
}

// The one order of groups that a page does not keep, for which random pages have none of it.
TEST(RoundTrip, AFontEndsTheTransformThatItIsSetIn)
{
    RECT sheet{0, 0, 9, 9};
    CSurfaceSVG surface(&sheet, &sheet);
    char face[] = "A";
    surface.setFont(face, 9, false, false, false, false);
    surface.setTransform(1, 0, 0, 1, 5, 0);
    surface.setFont(face, 8, false, false, false, false);
    surface.drawFocusRect(&sheet);
    surface.clearTransform();
    const Lines expected = {"setFont \"A\" 9", "setTransform 1 0 0 1 5 0", "clearTransform",
                            "setFont \"A\" 8", "drawFocusRect (0, 0, 9, 9)"};
    const Lines calls = played(closedPage(surface)).first;
    EXPECT_EQ(difference(expected, {calls.begin() + 1, calls.end()}), "");
}

} // namespace
