#include "OutputRun.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

#include "CodePageText.h"
#include "failWith.h"

using namespace wingdi;

namespace {

// The longest text of one call, as long as a record can reasonably hold.
constexpr UINT LongestText = 65535;

constexpr double Farthest = 1e15; // device units: whole numbers up to here are exact

constexpr UINT HorizontalMask = TA_CENTER;
constexpr UINT VerticalMask = TA_BASELINE;

struct RunAdvances {
    std::vector<INT> logical;
    std::vector<double> device;
    std::int64_t deviceTotal = 0;
    std::int64_t logicalTotal = 0;
};

RunAdvances measureRun(TextMeasure& measure, const OutputRun& run)
{
    RunAdvances advances;
    advances.logical.reserve(run.text.size());
    advances.device.reserve(run.text.size());
    const bool glyphs = (run.options & ETO_GLYPH_INDEX) != 0;
    measure.beginLine();
    for (std::size_t index = 0; index < run.text.size(); ++index) {
        std::int64_t device = 0;
        std::int64_t logical = 0;
        // Sums are rounded, not single advances, so that errors don't add up.
        if (run.advances != nullptr) {
            logical = run.advances[index];
            const double sum = static_cast<double>(advances.logicalTotal + logical) * measure.frame().along;
            device = std::llround(std::clamp(sum, -Farthest, Farthest)) - advances.deviceTotal;
        } else {
            const WCHAR character = run.text[index];
            device = glyphs ? measure.nextGlyph(character) : measure.next(character);
            logical = measure.logicalWidth(advances.deviceTotal + device) - advances.logicalTotal;
        }
        advances.deviceTotal += device;
        advances.logicalTotal += logical;
        advances.device.push_back(static_cast<double>(device));
        advances.logical.push_back(static_cast<INT>(logical));
    }
    return advances;
}

// How far the run's start lies after its reference point.
std::int64_t shiftOf(UINT alignment, std::int64_t total)
{
    switch (alignment & HorizontalMask) {
    case TA_RIGHT:
        return total;
    case TA_CENTER:
        return total / 2;
    default:
        return 0;
    }
}

// How far the base line lies below the reference point.
int baselineBelow(UINT alignment, const TEXTMETRICA& metrics)
{
    switch (alignment & VerticalMask) {
    case TA_BASELINE:
        return 0;
    case TA_BOTTOM:
        return -metrics.tmDescent;
    default:
        return metrics.tmAscent;
    }
}

// The box around two corners or four, inclusive.
RECTL boxOf(std::span<const DevicePoint> corners)
{
    const auto [left, right] = std::minmax_element(corners.begin(), corners.end(),
                                                   [](const auto& a, const auto& b) { return a.x < b.x; });
    const auto [top, bottom] = std::minmax_element(corners.begin(), corners.end(),
                                                   [](const auto& a, const auto& b) { return a.y < b.y; });
    return {toDeviceUnit(left->x), toDeviceUnit(top->y), toDeviceUnit(right->x - 1),
            toDeviceUnit(bottom->y - 1)};
}

RECTL cellOf(const TextOutput& output, const TextFrame& frame, std::int64_t total)
{
    const TEXTMETRICA& metrics = output.font->metrics();
    const auto corner = [&](double along, double below) {
        return DevicePoint{output.baselineX + along * frame.right.x + below * frame.down.x,
                           output.baselineY + along * frame.right.y + below * frame.down.y};
    };
    const auto width = static_cast<double>(total);
    const DevicePoint corners[] = {corner(0, -metrics.tmAscent), corner(width, -metrics.tmAscent),
                                   corner(0, metrics.tmDescent), corner(width, metrics.tmDescent)};
    return boxOf(corners);
}

RECTL deviceBox(const Mapping& mapping, const RECT& rect)
{
    const DevicePoint corners[] = {mapping.apply(rect.left, rect.top), mapping.apply(rect.right, rect.top),
                                   mapping.apply(rect.left, rect.bottom),
                                   mapping.apply(rect.right, rect.bottom)};
    return boxOf(corners);
}

void movePosition(ContextState& state, const TextFrame& frame, std::int64_t logicalTotal)
{
    const UINT horizontal = state.textAlign & HorizontalMask;
    if (horizontal == TA_CENTER) {
        return;
    }
    const double distance = static_cast<double>(horizontal == TA_RIGHT ? -logicalTotal : logicalTotal);
    state.position = {toDeviceUnit(state.position.x + distance * frame.logicalRight.x),
                      toDeviceUnit(state.position.y + distance * frame.logicalRight.y)};
}

// Every second advance leads downward; none of them is used.
std::vector<INT> withoutVerticals(const INT* pairs, UINT count)
{
    std::vector<INT> advances(count);
    for (std::size_t index = 0; index < count; ++index) {
        advances[index] = pairs[2 * index];
    }
    return advances;
}

// The arguments of ExtTextOut once the text is of 16 bits.
BOOL textOut(DeviceContext& context, POINT reference, UINT options, const RECT* rect,
             std::span<const WCHAR> text, const INT* advances)
{
    std::vector<INT> horizontals;
    if ((options & ETO_PDY) != 0 && advances != nullptr) {
        horizontals = withoutVerticals(advances, static_cast<UINT>(text.size()));
        advances = horizontals.data();
    }
    options &= ~ETO_PDY;
    if (rect == nullptr) {
        options &= ~(ETO_OPAQUE | ETO_CLIPPED);
    }
    if (text.empty() && (options & ETO_OPAQUE) == 0) {
        return TRUE;
    }
    TextMeasure measure(context);
    const OutputRun run{reference, options, rect != nullptr ? *rect : RECT{}, text, advances};
    return outputRun(context, measure, run) ? TRUE : FALSE;
}

} // namespace

bool wingdi::outputRun(DeviceContext& context, TextMeasure& measure, const OutputRun& run)
{
    if (!measure.font() && !run.text.empty()) {
        return false;
    }
    const bool updatesPosition = (context.state.textAlign & TA_UPDATECP) != 0;
    const TextFrame& frame = measure.frame();
    const RunAdvances advances = measureRun(measure, run);

    TextOutput output{};
    output.reference = updatesPosition ? context.state.position : run.reference;
    output.options = run.options;
    output.rect = run.rect;
    output.text = run.text;
    output.advances = advances.logical;
    output.font = measure.font();
    output.frame = frame;
    output.deviceAdvances = advances.device;

    const POINT start = context.mapping().toDevice(output.reference);
    output.baselineX = start.x;
    output.baselineY = start.y;
    if (run.text.empty()) {
        output.bounds = deviceBox(context.mapping(), run.rect);
    } else {
        const auto back = static_cast<double>(shiftOf(context.state.textAlign, advances.deviceTotal));
        const double below = baselineBelow(context.state.textAlign, output.font->metrics());
        output.baselineX += below * frame.down.x - back * frame.right.x;
        output.baselineY += below * frame.down.y - back * frame.right.y;
        output.bounds = cellOf(output, frame, advances.deviceTotal);
    }
    if (!context.device().text(context, output)) {
        return false;
    }
    if (updatesPosition) {
        movePosition(context.state, frame, advances.logicalTotal);
    }
    return true;
}

BOOL WINAPI ExtTextOutA(HDC context, int x, int y, UINT options, const RECT* rect, LPCSTR text, UINT length,
                        const INT* advances)
{
    return onContext(context, "ExtTextOutA", BOOL{FALSE}, [&](DeviceContext& found) -> BOOL {
        if (length > LongestText || (text == nullptr && length > 0)) {
            return failWith(ERROR_INVALID_PARAMETER, FALSE);
        }
        if ((options & ETO_GLYPH_INDEX) != 0) {
            // Glyph numbers have 16 bits in this form, too.
            std::vector<WCHAR> glyphs(length);
            std::copy_n(text, glyphs.size() * sizeof(WCHAR), reinterpret_cast<char*>(glyphs.data()));
            return textOut(found, {x, y}, options, rect, glyphs, advances);
        }
        return textOut(found, {x, y}, options, rect, wideText(text, length), advances);
    });
}

BOOL WINAPI ExtTextOutW(HDC context, int x, int y, UINT options, const RECT* rect, const WCHAR* text,
                        UINT length, const INT* advances)
{
    return onContext(context, "ExtTextOutW", BOOL{FALSE}, [&](DeviceContext& found) -> BOOL {
        if (length > LongestText || (text == nullptr && length > 0)) {
            return failWith(ERROR_INVALID_PARAMETER, FALSE);
        }
        return textOut(found, {x, y}, options, rect, {text, length}, advances);
    });
}
