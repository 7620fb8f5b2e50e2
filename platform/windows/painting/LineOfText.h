// A laid-out line of text as a space of its own: along its base line, and down from it.
#pragma once

#include <windows.h>

#include <span>

#include "Device.h"
#include "Outline.h"
#include "Region.h"

namespace wingdi {

// A point of the line: so far along its base line, so far below it.
struct LineSpace {
    double x;
    double y;
    double rightX;
    double rightY;
    double downX;
    double downY;

    DevicePoint at(double along, double below) const
    {
        return {x + along * rightX + below * downX, y + along * rightY + below * downY};
    }
    bool isUpright() const { return rightX == 1 && downY == 1; }
};

LineSpace spaceOf(const TextOutput& output);
// The part of the line from `left` to `right` along it, from `top` to `bottom` below its base line.
Outline barOf(const LineSpace& space, double left, double top, double right, double bottom);
// What a logical rectangle lets text be seen in, in device units.
Region textClip(const DeviceContext& context, const RECT& rect);
double lengthOf(std::span<const double> advances);

} // namespace wingdi
