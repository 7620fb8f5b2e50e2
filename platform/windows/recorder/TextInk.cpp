#include "TextInk.h"

#include <cairo.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numeric>

#include "DeviceContext.h"
#include "RealizedFont.h"

namespace wingdi {

namespace {

// Two axes on the device and where they meet.
struct Axes {
    DevicePoint start;
    TextVector right;
    TextVector down;

    DevicePoint at(double along, double below) const noexcept
    {
        return {start.x + along * right.x + below * down.x, start.y + along * right.y + below * down.y};
    }
};

// Collects boxes.
class InkBox {
public:
    void add(const Axes& axes, double left, double top, double right, double bottom) noexcept
    {
        for (const DevicePoint corner :
             {axes.at(left, top), axes.at(right, top), axes.at(left, bottom), axes.at(right, bottom)}) {
            m_low = {std::min(m_low.x, corner.x), std::min(m_low.y, corner.y)};
            m_high = {std::max(m_high.x, corner.x), std::max(m_high.y, corner.y)};
        }
    }
    // The whole pixels.
    DrawnBounds bounds() const noexcept
    {
        return {{toDeviceUnit(std::floor(m_low.x)), toDeviceUnit(std::floor(m_low.y)),
                 toDeviceUnit(std::ceil(m_high.x) - 1), toDeviceUnit(std::ceil(m_high.y) - 1)}};
    }

private:
    static constexpr double Farthest = std::numeric_limits<double>::max();
    DevicePoint m_low{Farthest, Farthest};
    DevicePoint m_high{-Farthest, -Farthest};
};

// A record has advances in logical units; played, they put letters up to so far from where the device's own put them.
double driftOf(const DeviceContext& context, const TextOutput& text)
{
    if (context.state.mapMode == MM_TEXT && context.state.graphicsMode == GM_COMPATIBLE) {
        return 0; // units are pixels
    }
    const double scale = text.frame.along;
    double drift = 0;
    double logical = 0;
    double device = 0;
    const std::size_t count = std::min(text.advances.size(), text.deviceAdvances.size());
    for (std::size_t i = 0; i < count; ++i) {
        logical += text.advances[i];
        device += text.deviceAdvances[i];
        drift = std::max(drift, std::abs(logical * scale - device));
    }
    // Alignment moves the line by its length.
    return (context.state.textAlign & TA_CENTER) != TA_LEFT ? 2 * drift : drift;
}

// Letters that follow the line's direction are measured together, as the line lies, others each by itself.
void addLetters(InkBox& ink, const TextOutput& text, const Axes& line)
{
    cairo_scaled_font_t* const font = text.font->scaledFont();
    if (font == nullptr) {
        return;
    }
    const bool indices = (text.options & ETO_GLYPH_INDEX) != 0;
    const TextFrame& frame = text.frame;
    const bool together = frame.glyphRight.x == frame.right.x && frame.glyphRight.y == frame.right.y;
    Axes letters{line.start, frame.glyphRight, frame.glyphDown};
    std::array<cairo_glyph_t, 64> glyphs;
    std::size_t count = 0;
    double along = 0;
    for (std::size_t i = 0; i < text.text.size(); ++i) {
        const WCHAR character = text.text[i];
        if (!together) {
            letters.start = line.at(along, 0);
        }
        glyphs[count++] = {indices ? character : text.font->glyph(character), together ? along : 0, 0};
        if (!together || count == glyphs.size() || i + 1 == text.text.size()) {
            cairo_text_extents_t box{};
            cairo_scaled_font_glyph_extents(font, glyphs.data(), static_cast<int>(count), &box);
            if (box.width > 0 && box.height > 0) {
                ink.add(letters, box.x_bearing, box.y_bearing, box.x_bearing + box.width,
                        box.y_bearing + box.height);
            }
            count = 0;
        }
        along += i < text.deviceAdvances.size() ? text.deviceAdvances[i] : 0;
    }
}

// Letters that lie askew fall anywhere between pixels, and whoever paints them rounds.
LONG roundingOf(const TextOutput& text) noexcept
{
    const auto alongAxis = [](TextVector vector) {
        return vector.x == 0 || vector.y == 0;
    };
    const TextFrame& frame = text.frame;
    return alongAxis(frame.right) && alongAxis(frame.glyphRight) && alongAxis(frame.glyphDown) ? 0 : 1;
}

} // namespace

bool isUpright(const TextOutput& text) noexcept
{
    return text.frame.right.x == 1 && text.frame.glyphRight.x == 1 && text.frame.glyphDown.y == 1;
}

DrawnBounds boundsOfInk(const DeviceContext& context, const TextOutput& text)
{
    if (text.text.empty() || !text.font) {
        return {};
    }
    const Axes line{{text.baselineX, text.baselineY}, text.frame.right, text.frame.down};
    InkBox ink;
    addLetters(ink, text, line);
    const TEXTMETRICA& metrics = text.font->metrics();
    const double length = std::accumulate(text.deviceAdvances.begin(), text.deviceAdvances.end(), 0.0);
    const auto addBar = [&](double top, double bottom) {
        ink.add(line, 0, top, length, bottom);
    };
    addBar(-metrics.tmAscent, metrics.tmDescent);
    const double thickness = text.font->lineThickness();
    if (metrics.tmUnderlined != 0) {
        addBar(text.font->underlinePosition(), text.font->underlinePosition() + thickness);
    }
    if (metrics.tmStruckOut != 0) {
        addBar(text.font->strikeOutPosition(), text.font->strikeOutPosition() + thickness);
    }
    DrawnBounds bounds = ink.bounds();
    bounds.grow(toDeviceUnit(std::ceil(driftOf(context, text))) + roundingOf(text));
    return bounds;
}

} // namespace wingdi
