#include "PenReach.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "DeviceContext.h"

namespace wingdi {

namespace {

// The widest that a pen of one logical unit can be on the device.
double widestUnit(const Mapping& mapping) noexcept
{
    return std::max({mapping.scaleX(), mapping.scaleY(), std::hypot(mapping.xx, mapping.yx),
                     std::hypot(mapping.xy, mapping.yy)});
}

// How far ends and joins reach beyond half the pen's width, as a factor.
double reachOfEnds(const DeviceContext& context, const PenObject& pen, Corners corners) noexcept
{
    const double ends = (pen.style & PS_ENDCAP_MASK) == PS_ENDCAP_SQUARE ? std::numbers::sqrt2 : 1;
    const bool mitred = corners == Corners::Any && (pen.style & PS_JOIN_MASK) == PS_JOIN_MITER;
    return mitred ? std::max<double>(ends, context.state.miterLimit) : ends;
}

} // namespace

LONG penReach(const DeviceContext& context, Corners corners) noexcept
{
    const PenObject* const pen = context.state.pen.get();
    if (pen == nullptr || (pen->style & PS_STYLE_MASK) == PS_NULL) {
        return 0;
    }
    const bool cosmetic = pen->extended && (pen->style & PS_TYPE_MASK) != PS_GEOMETRIC;
    const double width = cosmetic ? 0 : pen->width * widestUnit(context.mapping());
    return width <= 1 ? 0 : toDeviceUnit((width * reachOfEnds(context, *pen, corners) + 1) / 2);
}

} // namespace wingdi
