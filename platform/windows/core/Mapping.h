// From logical to device units: world transform, then window to viewport.
#pragma once

#include <windows.h>

namespace wingdi {

struct DevicePoint {
    double x;
    double y;
};

// x' = x * xx + y * yx + dx, y' = x * xy + y * yy + dy, in double precision.
struct Mapping {
    double xx = 1;
    double xy = 0;
    double yx = 0;
    double yy = 1;
    double dx = 0;
    double dy = 0;

    DevicePoint apply(double x, double y) const noexcept
    {
        return {x * xx + y * yx + dx, x * xy + y * yy + dy};
    }
    // Rounded to whole device units, half away from minus infinity, saturated to 32 bits; not-a-number gives 0.
    POINT toDevice(POINT point) const noexcept;
    // This mapping first, then the other.
    Mapping then(const Mapping& next) const noexcept;
    // The identity when there is no inverse.
    Mapping inverse() const noexcept;
    // Only scales and moves: rectangles stay rectangles.
    bool isAxisAligned() const noexcept { return xy == 0 && yx == 0; }
    // Device units of one logical unit along either axis, above or equal to 0.
    double scaleX() const noexcept;
    double scaleY() const noexcept;
};

Mapping mappingOf(const XFORM& transform) noexcept;

// Rounds and saturates to 32 bits; not-a-number gives 0.
LONG toDeviceUnit(double value) noexcept;

} // namespace wingdi
