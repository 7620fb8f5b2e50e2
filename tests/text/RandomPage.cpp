// The table of operations, and the generator that draws from it. Every field of a call is drawn, whatever the
// operation; the lists of values hold what the page format treats in a way of its own.
#include "RandomPage.h"

#include "RecordingSurface.h"
#include "svg/SvgPage.h"

#include <algorithm>
#include <climits>
#include <random>

namespace {

// The arguments that operations take of a call.
RECT* rect(Call& c)
{
    return &c.rect;
}
RECT* rectOrNull(Call& c)
{
    return c.nullRect ? nullptr : &c.rect;
}
template <int index>
int number(Call& c)
{
    return c.numbers[index];
}
template <int index>
float element(Call& c)
{
    return c.matrix[index];
}
POINT* point(Call& c)
{
    return &c.point;
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
template <auto field>
auto value(Call& c)
{
    return c.*field;
}
constexpr auto color = value<&Call::color>;
constexpr auto flags = value<&Call::flags>;
constexpr auto mode = value<&Call::mode>;
constexpr auto id = value<&Call::id>;

template <auto operation, auto... arguments>
void perform(CSurface& s, Call& c)
{
    (s.*operation)(arguments(c)...);
}
template <auto operation>
constexpr auto performArc = perform<operation, rect, number<0>, number<1>, number<2>, number<3>>;

template <bool straight>
void drawRuns(CSurface& s, Call& c)
{
    auto runs = pointersTo(c.runs);
    const int options = static_cast<int>(c.flags);
    straight ? s.drawString(&runs, &c.rect, options, 1, 2) : s.drawString(&runs, &c.rect, options);
}

void includeImage(CSurface& s, Call& c)
{
    s.includeImage(c.id, reinterpret_cast<unsigned char*>(c.text.data()), static_cast<int>(c.text.size()),
                   c.rect.right - c.rect.left, c.rect.bottom - c.rect.top, c.mode);
}

void drawPaths(CSurface& s, Call& c)
{
    if (auto* const page = dynamic_cast<CSurfaceSVG*>(&s)) {
        page->drawPath(&c.rect, c.looks[0]);
        page->drawPath(c.points.data(), size(c), c.looks[1]);
        page->drawEraseRectangle(&c.rect, c.color);
    }
}

void drawString(CSurface& s, Call& c)
{
    s.drawString(c.text.c_str(), &c.rect, c.flags);
}

void setFont(CSurface& s, Call& c)
{
    s.setFont(c.text.data(), c.matrix[0], c.looks[0], c.looks[1], c.looks[2], c.looks[3]);
}

void setTextRotation(CSurface& s, Call& c)
{
    s.setTextRotation(c.style.getCharAngle(), c.style.getTextAngle());
}

struct Operation {
    std::string_view name;
    void (*perform)(CSurface&, Call&);
};

using S = CSurface;
const Operation operations[] = {
    {"prepareSurface", perform<&S::prepareSurface>},
    {"requiredPictureType", perform<&S::requiredPictureType, mode>},
    {"includeImage", includeImage},
    {"drawImage", perform<&S::drawImage, rect, id, mode, number<0>, number<1>>},
    {"drawString", drawString},
    {"drawText", perform<&S::drawText, text, rect, flags>},
    {"drawTextAt", perform<&S::drawTextAt, text, point, flags>},
    {"drawTextOnBaseLine",
     perform<&S::drawTextOnBaseLine, number<0>, number<1>, flags, rectOrNull, text, value<&Call::length>>},
    {"drawRuns", drawRuns<false>},
    {"drawStraightRuns", drawRuns<true>},
    {"drawStringRotated", perform<&S::drawStringRotated, text, rect, flags, number<0>, number<1>>},
    {"printerNofMMarker", perform<&S::printerNofMMarker, value<&Call::point>>},
    {"drawLine", perform<&S::drawLine, number<0>, number<1>, number<2>, number<3>>},
    {"drawArc", performArc<&S::drawArc>},
    {"drawChord", performArc<&S::drawChord>},
    {"drawPie", performArc<&S::drawPie>},
    {"drawRectangle", perform<&S::drawRectangle, rect>},
    {"drawRoundedRectangle",
     perform<&S::drawRoundedRectangle, rect, value<&Call::cornerWidth>, value<&Call::cornerHeight>>},
    {"ellipse", perform<&S::ellipse, rect>},
    {"polygon", perform<&S::polygon, points, size>},
    {"polyline", perform<&S::polyline, points, size>},
    {"solidPolygon", perform<&S::solidPolygon, points, size, color>},
    {"drawSolidRectangle", perform<&S::drawSolidRectangle, rect, color>},
    {"frameRect", perform<&S::frameRect, rect, color>},
    {"drawFocusRect", perform<&S::drawFocusRect, rect>},
    {"drawPaths", drawPaths},
    {"floodFill", perform<&S::floodFill, number<0>, number<1>, color, flags>},
    {"setPen",
     [](S& s, Call& c) {
         s.setPen(&c.pen);
     }},
    {"setBrush",
     [](S& s, Call& c) {
         s.setBrush(&c.brush);
     }},
    {"setTextStyle",
     [](S& s, Call& c) {
         s.setTextStyle(&c.style);
     }},
    {"setTextRotation", setTextRotation},
    {"setTextColor", perform<&S::setTextColor, color>},
    {"setForeColor", perform<&S::setForeColor, color>},
    {"setBackColor", perform<&S::setBackColor, color>},
    {"setBackMode", perform<&S::setBackMode, mode>},
    {"setViewportOrigin", perform<&S::setViewportOrigin, number<0>, number<1>>},
    {"resetBrushOrg", perform<&S::resetBrushOrg, point, mode>},
    {"restoreBrush", perform<&S::restoreBrush>},
    {"restoreFont", perform<&S::restoreFont>},
    {"restorePen", perform<&S::restorePen>},
    {"setFont", setFont},
    {"setClippingRegion", perform<&S::setClippingRegion, rectOrNull>},
    {"setTransform",
     perform<&S::setTransform, element<0>, element<1>, element<2>, element<3>, element<4>, element<5>>},
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

constexpr const char* fragments[] = {"&",      "<", ">",  "'",  "\"", "&lt;", "</text>",  "<tspan",
                                     "&#38;x", " ", "  ", "\n", "A",  "word", "\x80\xFF", "%d=\t"};
constexpr const char* faces[] = {"Arial", "",          "It's a name of more than thirty-one", "<Caf\xE9&\"=",
                                 "A>B",   "transform", "A name that is cut before transform"};
constexpr unsigned int flagWords[] = {0, 1, 2, 3, 4, 6, 0x25, 0x100, 0x101, 0x102, 0x80000000};
constexpr int lengths[] = {-1, -1, 0, 3, 100};
constexpr int modes[] = {0, 1, 1, 2, 3, 7, 8};
constexpr int pictures[] = {0, 1, 2, 3, -1, 70000};
constexpr int penStyles[] = {0, 1, 2, 3, 4, 5, 6, 0x105, 0x211, 0x2205, -1, -11};
constexpr int brushStyles[] = {0, 0, 1, 2, 7, 8, -3, 50, 99, 99};
constexpr int angles[] = {0, 0, 0, 0, 90, -90, 45, 100, 225, 360, -720, INT_MIN};

// A Windows bitmap of one pixel.
constexpr char bitmap[] = "BM:\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\1\0\0\0\1\0\0\0\1\0\x18\0\0\0\0\0\4\0\0\0"
                          "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\1\2\3";
static_assert(sizeof bitmap == 58);

std::string randomText(Random& random)
{
    std::string text;
    for (int count = random.below(8); count > 0; --count) {
        text += random.of(fragments);
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
                                  random.once(3), random.of(lengths), random.once(4));
    chunk.m_isNewLine = random.once(4);
    chunk.m_findPosition[0] = random.below(2);
    chunk.m_findPosition[1] = random.below(2);
    return chunk;
}

// Thousandths that no rounding to hundredths has to halve.
float randomFraction(Random& random)
{
    constexpr int thousandths[] = {-4, 0, 3};
    return static_cast<float>(random.between(-999, 999) * 10 + random.of(thousandths)) / 1000.0F;
}

void drawAttributes(Random& random, Call& call)
{
    call.pen.set(random.word(), random.of(penStyles), random.below(9));
    call.brush.setPicture(random.of(pictures));
    call.brush.set(random.word(), random.of(brushStyles));
    call.style = CTextStyle(random.word(), random.below(3), random.of(angles), random.of(angles));
}

Call randomCall(Random& random, std::string_view operation)
{
    Call call;
    call.operation = operation;
    call.rect = call.is("includeImage") ? RECT{0, 0, 7, random.once(3) ? 5 : 9} : randomRect(random);
    call.nullRect = random.once(3);
    for (int& number : call.numbers) {
        number = randomCoordinate(random);
    }
    call.cornerWidth = random.word() % 3;
    call.cornerHeight = random.word() % 3;
    call.point = {randomCoordinate(random), randomCoordinate(random)};
    call.id = static_cast<unsigned int>(random.of(pictures));
    call.mode = random.of(modes);
    call.flags = random.of(flagWords);
    call.length = random.of(lengths);
    call.color = random.word();
    call.text = call.is("setFont") ? random.of(faces) : randomText(random);
    if (call.is("includeImage") && random.once(2)) {
        call.text.assign(bitmap, sizeof bitmap);
    }
    call.points.resize(static_cast<std::size_t>(random.below(6)));
    for (POINT& corner : call.points) {
        corner = {randomCoordinate(random), randomCoordinate(random)};
    }
    for (int count = random.below(4); count > 0; --count) {
        call.runs.push_back(randomRun(random));
    }
    std::ranges::generate(call.matrix, [&] { return randomFraction(random); });
    std::ranges::generate(call.looks, [&] { return random.once(2); });
    drawAttributes(random, call);
    return call;
}

// Those calls that CSurfaceSVG has beyond the interface do nothing on other surfaces.
void draw(Calls calls, CSurface& surface)
{
    for (Call& call : calls) {
        const auto* const operation = std::ranges::find(operations, call.operation, &Operation::name);
        operation->perform(surface, call);
    }
}

} // namespace

Calls randomPage(unsigned int seed)
{
    constexpr std::string_view imageCalls[] = {"includeImage", "drawImage", "setBrush", "drawRectangle"};
    const bool images = seed % 20 == 0;
    Random random(seed);
    Calls calls;
    bool transformed = false;
    for (int count = 80; count > 0; --count) {
        Call call =
            randomCall(random, images && random.once(2) ? random.of(imageCalls) : random.of(operations).name);
        if (!images && call.is("includeImage")) {
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
    RECT logical{0, 0, pageWidth, pageHeight};
    CSurfaceSVG surface(&sheet, &logical);
    draw(calls, surface);
    return closedPage(surface);
}

Lines recorded(const Calls& calls)
{
    RecordingSurface surface;
    surface.m_width = pageWidth;
    surface.m_height = pageHeight;
    surface.m_pageWidth = 210;
    surface.m_pageHeight = 297;
    surface.m_outputWidth = 50;
    surface.m_outputHeight = 60;
    draw(calls, surface);
    return surface.calls();
}
