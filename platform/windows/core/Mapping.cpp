#include "Mapping.h"

#include <cmath>
#include <limits>

namespace wingdi {

namespace {

constexpr double Lowest = std::numeric_limits<LONG>::min();
constexpr double Highest = std::numeric_limits<LONG>::max();

} // namespace

LONG toDeviceUnit(double value) noexcept
{
    if (std::isnan(value)) {
        return 0;
    }
    const double rounded = std::floor(value + 0.5);
    return static_cast<LONG>(rounded < Lowest ? Lowest : (rounded > Highest ? Highest : rounded));
}

POINT Mapping::toDevice(POINT point) const noexcept
{
    const DevicePoint mapped = apply(point.x, point.y);
    return {toDeviceUnit(mapped.x), toDeviceUnit(mapped.y)};
}

Mapping Mapping::then(const Mapping& next) const noexcept
{
    return {xx * next.xx + xy * next.yx,           xx * next.xy + xy * next.yy,
            yx * next.xx + yy * next.yx,           yx * next.xy + yy * next.yy,
            dx * next.xx + dy * next.yx + next.dx, dx * next.xy + dy * next.yy + next.dy};
}

Mapping Mapping::inverse() const noexcept
{
    const double determinant = xx * yy - xy * yx;
    if (determinant == 0 || !std::isfinite(determinant)) {
        return {};
    }
    return {yy / determinant,
            -xy / determinant,
            -yx / determinant,
            xx / determinant,
            (yx * dy - yy * dx) / determinant,
            (xy * dx - xx * dy) / determinant};
}

double Mapping::scaleX() const noexcept
{
    return std::hypot(xx, xy);
}

double Mapping::scaleY() const noexcept
{
    return std::hypot(yx, yy);
}

Mapping mappingOf(const XFORM& transform) noexcept
{
    return {transform.eM11, transform.eM12, transform.eM21, transform.eM22, transform.eDx, transform.eDy};
}

} // namespace wingdi
