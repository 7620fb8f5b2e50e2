// The table of operations, and the generator that draws from it. Every field of a call is drawn, whatever the
// operation; the lists of values hold what the page format treats in a way of its own.
#include "RandomPage.h"

#include "RecordingSurface.h"
#include "support/SvgPage.h"

#include <algorithm>
#include <climits>
#include <random>

namespace {

// The arguments that operations take of a call.
template <auto field>
auto value(Call& c)
{
    return c.*field;
}
template <auto field>
auto* address(Call& c)
{
    return &(c.*field);
}
template <auto field, int index>
auto element(Call& c)
{
    return (c.*field)[index];
}
constexpr auto Rect = address<&Call::rect>;
constexpr auto Color = value<&Call::color>;
constexpr auto Flags = value<&Call::flags>;
constexpr auto Point = address<&Call::point>;
template <int index>
constexpr auto Number = element<&Call::numbers, index>;
template <int index>
constexpr auto Factor = element<&Call::matrix, index>;

RECT* rectOrNull(Call& c)
{
    return c.nullRect ? nullptr : &c.rect;
}
// Never null, for lists without a point are drawn as well.
POINT* points(Call& c)
{
    c.points.reserve(1);
    return c.points.data();
}
unsigned int size(Call& c)
{
    return static_cast<unsigned int>(c.points.size());
}
char* text(Call& c)
{
    return c.text.data();
}

template <auto operation, auto... arguments>
void perform(CSurface& s, Call& c)
{
    (s.*operation)(arguments(c)...);
}
template <auto operation>
constexpr auto PerformArc = perform<operation, Rect, Number<0>, Number<1>, Number<2>, Number<3>>;

template <bool straight>
void drawRuns(CSurface& s, Call& c)
{
    auto runs = pointersTo(c.runs);
    const int options = static_cast<int>(c.flags);
    straight ? s.drawString(&runs, &c.rect, options, 1, 2) : s.drawString(&runs, &c.rect, options);
}

void drawPaths(CSurface& s, Call& c)
{
    if (auto* const page = dynamic_cast<CSurfaceSVG*>(&s)) {
        page->drawPath(&c.rect, c.looks[0]);
        page->drawPath(c.points.data(), size(c), c.looks[1]);
        page->drawEraseRectangle(&c.rect, c.color);
    }
}

void setFont(CSurface& s, Call& c)
{
    s.setFont(c.text.data(), c.matrix[0], c.looks[0], c.looks[1], c.looks[2], c.looks[3]);
}

struct Operation {
    std::string_view name;
    void (*perform)(CSurface&, Call&);
};

using S = CSurface;
const Operation Operations[] = {
    {"prepareSurface", perform<&S::prepareSurface>},
    {"drawString",
     perform<static_cast<void (S::*)(const char*, RECT*, UINT)>(&S::drawString), text, Rect, Flags>},
    {"drawText", perform<&S::drawText, text, Rect, Flags>},
    {"drawTextAt", perform<&S::drawTextAt, text, Point, Flags>},
    {"drawTextOnBaseLine",
     perform<&S::drawTextOnBaseLine, Number<0>, Number<1>, Flags, rectOrNull, text, value<&Call::length>>},
    {"drawRuns", drawRuns<false>},
    {"drawStraightRuns", drawRuns<true>},
    {"drawLine", perform<&S::drawLine, Number<0>, Number<1>, Number<2>, Number<3>>},
    {"drawArc", PerformArc<&S::drawArc>},
    {"drawChord", PerformArc<&S::drawChord>},
    {"drawPie", PerformArc<&S::drawPie>},
    {"drawRectangle", perform<&S::drawRectangle, Rect>},
    {"drawRoundedRectangle",
     perform<&S::drawRoundedRectangle, Rect, value<&Call::cornerWidth>, value<&Call::cornerHeight>>},
    {"ellipse", perform<&S::ellipse, Rect>},
    {"polygon", perform<&S::polygon, points, size>},
    {"polyline", perform<&S::polyline, points, size>},
    {"solidPolygon", perform<&S::solidPolygon, points, size, Color>},
    {"drawSolidRectangle", perform<&S::drawSolidRectangle, Rect, Color>},
    {"frameRect", perform<&S::frameRect, Rect, Color>},
    {"drawFocusRect", perform<&S::drawFocusRect, Rect>},
    {"drawPaths", drawPaths},
    {"setPen", perform<static_cast<void (S::*)(CSurfacePen*)>(&S::setPen), address<&Call::pen>>},
    {"setBrush", perform<static_cast<void (S::*)(CSurfaceBrush*)>(&S::setBrush), address<&Call::brush>>},
    {"setTextStyle", perform<&S::setTextStyle, address<&Call::style>>},
    {"setTextRotation", perform<&S::setTextRotation, Number<0>, Number<1>>},
    {"setTextColor", perform<&S::setTextColor, Color>},
    {"setForeColor", perform<&S::setForeColor, Color>},
    {"setBackColor", perform<&S::setBackColor, Color>},
    {"setViewportOrigin", perform<&S::setViewportOrigin, Number<0>, Number<1>>},
    {"setFont", setFont},
    {"setClippingRegion", perform<&S::setClippingRegion, rectOrNull>},
    {"setTransform",
     perform<&S::setTransform, Factor<0>, Factor<1>, Factor<2>, Factor<3>, Factor<4>, Factor<5>>},
    {"clearTransform", perform<&S::clearTransform>},
};

// The engine's sequence is the same everywhere; the distributions of the library are not.
class Random {
public:
    explicit Random(unsigned int seed) : m_engine(seed) {}

    unsigned int word() { return static_cast<unsigned int>(m_engine()); }
    int below(int count) { return static_cast<int>(word() % static_cast<unsigned int>(count)); }
    int between(int first, int end) { return first + below(end - first); }
    bool once(int times) { return below(times) == 0; }
    template <typename Value, int count>
    const Value& of(const Value (&values)[count])
    {
        return values[below(count)];
    }

private:
    std::mt19937 m_engine;
};

constexpr const char* Fragments[] = {"&",      "<", ">",  "'",  "\"", "&lt;", "</text>",  "<tspan",
                                     "&#38;x", " ", "  ", "\n", "A",  "word", "\x80\xFF", "%d=\t"};
constexpr const char* Faces[] = {"Arial", "",          "It's a name of more than thirty-one", "<Caf\xE9&\"=",
                                 "A>B",   "transform", "A name that is cut before transform"};
constexpr unsigned int FlagWords[] = {0, 1, 2, 3, 4, 6, 0x25, 0x100, 0x101, 0x102, 0x80000000};
constexpr int Lengths[] = {-1, -1, 0, 3, 100};
constexpr int PenStyles[] = {0, 1, 2, 3, 4, 5, 6, 0x105, 0x211, 0x2205, -1, -11};
constexpr int BrushStyles[] = {0, 0, 1, 2, 7, 8, -3, 50};
constexpr int Angles[] = {0, 0, 0, 0, 90, -90, 45, 100, 225, 360, -720, INT_MIN};

std::string randomText(Random& random)
{
    std::string text;
    for (int count = random.below(8); count > 0; --count) {
        text += random.of(Fragments);
    }
    return text;
}

int randomCoordinate(Random& random)
{
    return random.between(-200, 1200);
}

RECT randomRect(Random& random)
{
    const int left = randomCoordinate(random);
    const int top = randomCoordinate(random);
    const RECT rects[] = {{},
                          {left, top, 0, 0},
                          {left, top, left + 7, top + 9},
                          {left, top, left + random.below(400), top + random.below(400)},
                          {left, top, randomCoordinate(random), randomCoordinate(random)}};
    return random.of(rects);
}

CSurfaceTextChunk randomRun(Random& random)
{
    const std::string text = random.once(3) ? "" : randomText(random);
    CSurfaceTextChunk chunk = run(text.c_str(), {randomCoordinate(random), randomCoordinate(random)},
                                  random.once(3), random.of(Lengths), random.once(4));
    chunk.m_isNewLine = random.once(4);
    chunk.m_findPosition[0] = random.below(2);
    chunk.m_findPosition[1] = random.below(2);
    return chunk;
}

// Thousandths that no rounding to hundredths has to halve.
float randomFraction(Random& random)
{
    constexpr int Thousandths[] = {-4, 0, 3};
    return static_cast<float>(random.between(-999, 999) * 10 + random.of(Thousandths)) / 1000.0F;
}

Call randomCall(Random& random, std::string_view operation)
{
    Call call;
    call.operation = operation;
    call.rect = randomRect(random);
    call.nullRect = random.once(3);
    std::ranges::generate(call.numbers, [&] {
        return call.is("setTextRotation") ? random.of(Angles) : randomCoordinate(random);
    });
    call.cornerWidth = random.word() % 3;
    call.cornerHeight = random.word() % 3;
    call.point = {randomCoordinate(random), randomCoordinate(random)};
    call.flags = random.of(FlagWords);
    call.length = random.of(Lengths);
    call.color = random.word();
    call.text = call.is("setFont") ? random.of(Faces) : randomText(random);
    call.points.resize(static_cast<std::size_t>(random.below(6)));
    for (POINT& corner : call.points) {
        corner = {randomCoordinate(random), randomCoordinate(random)};
    }
    for (int count = random.below(4); count > 0; --count) {
        call.runs.push_back(randomRun(random));
    }
    std::ranges::generate(call.matrix, [&] { return randomFraction(random); });
    std::ranges::generate(call.looks, [&] { return random.once(2); });
    call.pen.set(random.word(), random.of(PenStyles), random.below(9));
    call.brush.setPicture(random.below(4));
    call.brush.set(random.word(), random.of(BrushStyles));
    call.style = CTextStyle(random.word(), random.below(3), random.of(Angles), random.of(Angles));
    return call;
}

// Those calls that CSurfaceSVG has beyond the interface do nothing on other surfaces.
void draw(Calls calls, CSurface& surface)
{
    for (Call& call : calls) {
        const auto* const operation = std::ranges::find(Operations, call.operation, &Operation::name);
        operation->perform(surface, call);
    }
}

} // namespace

Calls randomPage(unsigned int seed)
{
    Random random(seed);
    const bool clips = random.once(2);
    Calls calls;
    bool transformed = false;
    for (int count = 80; count > 0; --count) {
        Call call = randomCall(random, random.of(Operations).name);
        if (!clips && call.is("setClippingRegion")) {
            continue;
        }
        if (transformed && (call.is("setFont") || call.is("setClippingRegion"))) {
            calls.emplace_back().operation = "clearTransform";
            transformed = false;
        }
        transformed = call.is("setTransform") || (transformed && !call.is("clearTransform"));
        calls.push_back(std::move(call));
    }
    return calls;
}

std::string pageOf(const Calls& calls)
{
    RECT sheet{0, 0, 210, 297};
    RECT logical{0, 0, PageWidth, PageHeight};
    CSurfaceSVG surface(&sheet, &logical);
    draw(calls, surface);
    return closedPage(surface);
}

Lines recorded(const Calls& calls)
{
    RecordingSurface surface;
    surface.m_width = PageWidth;
    surface.m_height = PageHeight;
    surface.m_pageWidth = 210;
    surface.m_pageHeight = 297;
    surface.m_outputWidth = 50;
    surface.m_outputHeight = 60;
    draw(calls, surface);
    return surface.calls();
}
