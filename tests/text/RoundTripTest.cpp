// The way of whole pages: random calls are drawn, the page is stored and played, and the calls that come out
// are those that went in, changed as the table below says, and in nothing else. The page that a replay makes
// goes the same way again.
#include "CallSequences.h"
#include "player/PlayedPage.h"
#include "svg/SvgPage.h"
#include "sys/krnutil.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <utility>

namespace {

// A row of the table: what goes into a page, what comes out of it. The rows apply one after the other.
struct Rule {
    const char* in;
    const char* out;
    std::function<void(Calls&)> apply;
};

const Names runForms = {"drawRuns", "drawStraightRuns"};
const Names unwritten = {"prepareSurface", "requiredPictureType", "drawPaths",    "drawStringRotated",
                         "floodFill",      "setBackMode",         "setBackColor", "printerNofMMarker",
                         "resetBrushOrg",  "restorePen",          "setForeColor", "setViewportOrigin",
                         "restoreBrush",   "restoreFont"};

// For rows that look at one call at a time, of these operations only, or of any.
std::function<void(Calls&)> on(Names names, void (*change)(Call&))
{
    return [names = std::move(names), change](Calls& calls) {
        for (Call& call : calls) {
            if (names.empty() || isOneOf(names, call)) {
                change(call);
            }
        }
    };
}
std::function<void(Calls&)> onEach(void (*change)(Call&))
{
    return on({}, change);
}

float hundredths(float value)
{
    return static_cast<float>(std::round(value * 100.0) / 100);
}

// The side at the right or bottom moves so that the extent is even, then the sides are put in order.
void makeEven(int& first, int& second)
{
    second -= (second - first) % 2;
    if (second < first) {
        std::swap(first, second);
    }
}

void clipToPage(Call& call)
{
    RECT& rect = call.rect;
    rect = {std::max(rect.left, 0), std::max(rect.top, 0), std::min(rect.right, pageWidth),
            std::min(rect.bottom, pageHeight)};
    if (rect.left >= rect.right || rect.top >= rect.bottom) {
        rect = {};
    }
}

void convertImage(Call& call)
{
    const bool typed = call.mode == 1 || call.mode == 3;
    if (call.mode == 7 || call.mode == 8 || (!typed && call.text.starts_with("\x89PNG"))) {
        return;
    }
    FreeImageDesc images(false);
    FIBITMAP* const image =
        images.imageLoadFromMem(FIF_BMP, reinterpret_cast<unsigned char*>(call.text.data()),
                                static_cast<unsigned int>(call.text.size()));
    fiio_mem_handle_s png{};
    images.imageSaveToMem(FIF_PNG, image, &png);
    images.imageUnload(image);
    call.text.assign(static_cast<char*>(png.data), static_cast<std::size_t>(png.datalen));
    std::free(png.data);
}

void drawTextOrAtAPoint(Call& call)
{
    const RECT& rect = call.rect;
    const int centred = (call.flags & 1) != 0 ? rect.left + (rect.right - rect.left) / 2 : rect.left;
    call.point = {(call.flags & 2) != 0 ? rect.right : centred, rect.top};
    call.operation = rect.right == 0 && rect.bottom == 0 ? "drawTextAt" : "drawText";
}

void cutTrailingBlanks(std::string& text)
{
    text.erase(text.find_last_not_of(' ') + 1);
}

// Whether the line of a text is turned, and whether anything of it is.
bool onATurnedLine(const Call& call)
{
    return call.is("drawRuns") && call.style.getTextAngle() % 360 != 0;
}
bool isTurned(const Call& call)
{
    return onATurnedLine(call) || (call.is("drawRuns") && call.style.getCharAngle() % 360 != 0);
}

bool isBare(const CSurfaceTextChunk& run)
{
    return run.m_followsPrevious && run.m_text.isEmpty() && run.m_textLength == -1 && !run.m_underline;
}

void loseBareRuns(Call& call)
{
    if (!isTurned(call)) {
        call.runs.erase(std::ranges::find_if(call.runs, isBare), call.runs.end());
    }
}

void placeFollowingRuns(Call& call)
{
    const unsigned int lineBelowTop = static_cast<unsigned int>(call.rect.top) + INT_MAX;
    int y = INT_MAX;
    for (CSurfaceTextChunk& run : call.runs) {
        if (run.m_followsPrevious) {
            run.m_position = {INT_MAX, onATurnedLine(call) ? static_cast<int>(lineBelowTop) : y};
        }
        y = run.m_position.y;
    }
}

void drawPageCount(Call& call)
{
    if (call.pageCount && call.runs.empty()) {
        call.color = call.style.getColor();
        call.operation = "setTextColor";
    } else if (call.pageCount) {
        call.text = call.runs.front().m_text.text();
        cutTrailingBlanks(call.text);
        call.operation = "drawText";
    }
}

void placeBaseLine(Call& call)
{
    call.text = call.length == -1 ? call.text : call.text.substr(0, static_cast<std::size_t>(call.length));
    call.length = -1;
    const bool exact = (call.flags & 4) != 0 && !call.nullRect;
    call.rect = exact ? call.rect : RECT{call.numbers[0], call.numbers[1], 0, 0};
    call.nullRect = call.flags == 0;
}

const Rule table[] = {
    {"pen, brush, text colour, style and rotation", "nothing; those in force stay with what is drawn",
     bindAttributes},
    {"printerNofMMarker", "the next string, in any form, has the page-count class", bindPageCount},
    {"what no element is written for", "nothing", on(unwritten, [](Call& c) { c.operation = {}; })},
    {"colours", "without bits 24 to 31", onEach([](Call& c) {
         c.color &= 0xFFFFFF;
         c.pen.setColor(c.pen.getColor() & 0xFFFFFF);
         c.brush.setColor(c.brush.getColor() & 0xFFFFFF);
         c.style =
             CTextStyle(c.style.getColor() & 0xFFFFFF, 0, c.style.getCharAngle(), c.style.getTextAngle());
     })},

    {"image number never included, or above 65535", "nothing; as a brush, hollow", loseUnknownImages},
    {"image scaled at natural size", "mode 0", unscaleNaturalSizes},
    {"image of a mode above 2", "mode 1, 0 for an empty rectangle",
     on({"drawImage"},
        [](Call& c) {
            const bool empty = c.rect.right == c.rect.left && c.rect.bottom == c.rect.top;
            c.mode = c.mode <= 2 ? c.mode : empty ? 0 : 1;
        })},
    {"bytes of an image", "PNG under the old type; JPEG and PNG stay, told by type or else by signature",
     on({"includeImage"}, convertImage)},
    {"10 bytes or fewer, or no image at all", "nothing",
     on({"includeImage"}, [](Call& c) { c.operation = c.text.size() <= 10 ? "" : c.operation; })},
    {"includeImage", "before all drawing",
     [](Calls& calls) {
         std::stable_partition(calls.begin(), calls.end(), [](Call& c) { return c.is("includeImage"); });
     }},

    {"pen whose low bits are 5", "same style word, colour 0, width 1", onEach([](Call& c) {
         c.pen = (c.pen.getStyle() & 15) == 5 ? CSurfacePen(0, c.pen.getStyle(), 1) : c.pen;
     })},
    {"hollow brush; solid and hatch brush; picture brush", "colour and picture 0; picture 0; colour 0",
     onEach([](Call& c) {
         const int style = c.brush.getStyle();
         const int picture = c.brush.getPicture();
         c.brush = CSurfaceBrush(style == 1 || style == 99 ? 0 : c.brush.getColor(), style);
         if (style == 99) {
             c.brush.setPicture(picture);
         }
     })},
    {"picture number below 1, or an undefined brush style", "horizontal hatch", onEach([](Call& c) {
         const int style = c.brush.getStyle();
         const bool picture = style == 99 && c.brush.getPicture() >= 1;
         c.brush = picture || (style >= 0 && style <= 7) ? c.brush : CSurfaceBrush(c.brush.getColor(), 2);
     })},
    {"arcs", "a hollow brush", on({"drawArc"}, [](Call& c) { c.brush = CSurfaceBrush(); })},

    {"rectangle or rounded rectangle, solid brush, pen bits 5", "drawSolidRectangle, corners lost",
     on({"drawRectangle", "drawRoundedRectangle"},
        [](Call& c) {
            const bool solid = c.brush.getStyle() == 0 && (c.pen.getStyle() & 15) == 5;
            c.operation = solid ? "drawSolidRectangle" : c.operation;
            c.color = c.brush.getColor();
        })},
    {"rounded rectangle with 0, 0", "drawRectangle",
     on({"drawRoundedRectangle"},
        [](Call& c) { c.operation = c.cornerWidth + c.cornerHeight == 0 ? "drawRectangle" : c.operation; })},
    {"odd point count", "first point once more at the end",
     on({"polygon", "polyline", "solidPolygon"},
        [](Call& c) {
            if (c.points.size() % 2 == 1) {
                c.points.push_back(POINT(c.points.front()));
            }
        })},
    {"solid polygon", "solidPolygon, the outline lost",
     on({"polygon"},
        [](Call& c) {
            c.operation = c.brush.getStyle() == 0 ? "solidPolygon" : c.operation;
            c.color = c.brush.getColor();
        })},
    {"ellipse", "normalised; an odd size one unit smaller",
     on({"ellipse"},
        [](Call& c) {
            makeEven(c.rect.left, c.rect.right);
            makeEven(c.rect.top, c.rect.bottom);
        })},

    {"transform", "two decimals",
     on({"setTransform"}, [](Call& c) { std::ranges::transform(c.matrix, c.matrix.begin(), hundredths); })},
    {"transform", "clearTransform before each next one and at the end, none without one", endTransforms},
    {"clip", "its overlap with the whole page; nothing left gives (0, 0, 0, 0)",
     on({"setClippingRegion"}, clipToPage)},
    {"end of a clip (null, next clip, font, page end)",
     "clip of the whole page, behind a font the same clip again; null with no clip open gives nothing",
     endClips},
    {"font", "size with two decimals, face name of 31 bytes without apostrophes",
     on({"setFont"},
        [](Call& c) {
            c.matrix[0] = hundredths(c.matrix[0]);
            c.text.resize(std::min<std::size_t>(c.text.size(), 31));
            std::erase(c.text, '\'');
        })},
    {"a face name that holds \">\" or \"transform\"", "no font",
     on({"setFont"},
        [](Call& c) {
            const bool lost = c.text.find('>') != c.text.npos || c.text.find("transform") != c.text.npos;
            c.operation = lost ? "" : c.operation;
        })},

    {"no run at all", "drawText of one line feed",
     on(runForms,
        [](Call& c) {
            c.text = "\n";
            c.operation = c.runs.empty() ? "drawText" : c.operation;
        })},
    {"page-count class on plain text", "no trailing blanks",
     on({"drawString", "drawText"},
        [](Call& c) {
            if (c.pageCount) {
                cutTrailingBlanks(c.text);
            }
        })},
    {"drawString", "drawText; with right and bottom 0, drawTextAt at the anchor and top",
     on({"drawString", "drawText"}, drawTextOrAtAPoint)},
    {"base-line text", "length -1; rectangle null with options 0, exact with bit 4, else (x, y, 0, 0)",
     on({"drawTextOnBaseLine"}, placeBaseLine)},
    {"run that follows, empty, without width or underline, not turned",
     "it and all later runs of its text are lost", on(runForms, loseBareRuns)},
    {"run that follows", "x 2147483647, y of the run before (on a turned line 2147483647 below the top)",
     on(runForms, placeFollowingRuns)},
    {"runs", "new-line flag false, find position 0, 0",
     on(runForms,
        [](Call& c) {
            for (CSurfaceTextChunk& run : c.runs) {
                run.m_isNewLine = false;
                run.m_findPosition[0] = run.m_findPosition[1] = 0;
            }
        })},
    {"the five-argument form", "the three-argument form",
     on(runForms, [](Call& c) { c.operation = "drawRuns"; })},
    {"page-count class on runs", "drawText of the first run without its trailing blanks",
     on(runForms, drawPageCount)},

    {"nothing", "the attributes: brush and pen of each shape, colour of each text, a new rotation of runs",
     setAttributes},
    {"nothing", "prepareSurface once",
     [](Calls& calls) {
         calls.insert(calls.begin(), callOf("prepareSurface"));
     }},
};

// What comes out when these calls went in, by all rows of the table or by all but one.
Calls replayed(Calls calls, const Rule* left = nullptr)
{
    for (const Rule& rule : table) {
        if (&rule != left) {
            rule.apply(calls);
            std::erase_if(calls, [](const Call& call) { return call.is(""); });
        }
    }
    return calls;
}

Lines played(const std::string& page)
{
    RecordingSurface surface;
    EXPECT_EQ(playOn(surface, page), 1);
    return surface.calls();
}

std::string pageOfReplay(const std::string& page)
{
    CSurfaceSVG surface(nullptr, nullptr);
    EXPECT_EQ(playOn(surface, page), 1);
    return closedPage(surface);
}

// Where two lists of calls part, with what went before; empty when they are the same.
std::string difference(const Lines& expected, const Lines& actual)
{
    const auto [wanted, found] = std::ranges::mismatch(expected, actual);
    const auto line = [](const auto& place, const Lines& lines) {
        return place == lines.end() ? "the end" : *place;
    };
    if (wanted == expected.end() && found == actual.end()) {
        return "";
    }
    return "call " + std::to_string(wanted - expected.begin()) + "\n  expected " + line(wanted, expected) +
           "\n  actual   " + line(found, actual);
}

constexpr unsigned int seeds = 1000;

TEST(RoundTrip, CallsComeOutAsTheTableSays)
{
    for (unsigned int seed = 0; seed < seeds; ++seed) {
        const Calls calls = randomPage(seed);
        const std::string page = pageOf(calls);
        const Calls once = replayed(calls);
        ASSERT_EQ(difference(recorded(once), played(page)), "") << "seed " << seed;
        ASSERT_EQ(difference(recorded(replayed(once)), played(pageOfReplay(page))), "")
            << "second replay, seed " << seed;
    }
}

// The pages are rich enough: no row could be left out.
TEST(RoundTrip, EachRowIsNeeded)
{
    for (const Rule& rule : table) {
        unsigned int seed = 0;
        const auto isSeen = [&] {
            const Calls calls = randomPage(seed);
            return recorded(replayed(calls)) != recorded(replayed(calls, &rule));
        };
        while (seed < seeds && !isSeen()) {
            ++seed;
        }
        EXPECT_LT(seed, seeds) << rule.in << " -> " << rule.out;
    }
}

// From the first replay on nothing changes any more, but that clips of the whole page multiply. The exception
// is a text that loses all its runs, which takes one replay more to become a plain line feed.
TEST(RoundTrip, ReplayedPageStaysAsItIs)
{
    for (unsigned int seed = 0; seed < seeds; ++seed) {
        Calls calls = randomPage(seed);
        const bool clipped = seed % 3 == 0;
        std::erase_if(calls, [clipped](const Call& call) {
            return call.is("printerNofMMarker") || (!clipped && call.is("setClippingRegion")) ||
                   (isOneOf(runForms, call) && !call.runs.empty() && isBare(call.runs.front()));
        });
        const std::string once = pageOfReplay(pageOf(calls));
        const std::string twice = pageOfReplay(once);
        const auto callsWithoutEnds = [](const std::string& page) {
            Lines lines = played(page);
            std::erase(lines, "setClippingRegion (0, 0, 1000, 800)");
            return lines;
        };
        ASSERT_EQ(difference(callsWithoutEnds(once), callsWithoutEnds(twice)), "") << "seed " << seed;
        ASSERT_TRUE(clipped || once == twice) << "seed " << seed;
    }
}

} // namespace
