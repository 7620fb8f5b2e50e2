// Where an arc begins and ends. Callers give it as a bounding rectangle and two points that only give
// directions from its centre.
#pragma once

#include <cmath>

#include "rectangle.h"

namespace drawing {

// To eleven places, as the page formats have it: what is truncated to whole numbers depends on it.
inline constexpr double Pi = 3.14159265359;

constexpr POINT centreOf(const RECT& rect)
{
    return POINT{wrapAdd(rect.left, widthOf(rect) / 2), wrapAdd(rect.top, heightOf(rect) / 2)};
}

// From the centre to the point, counter-clockwise with y pointing up, 0 to 2 Pi. The centre itself counts as
// straight above.
inline double angleOf(const POINT& centre, const POINT& point)
{
    const int dx = wrapSubtract(point.x, centre.x);
    const int dy = wrapSubtract(centre.y, point.y);
    double angle = dx == 0 ? Pi / 2 : std::atan(static_cast<double>(dy) / static_cast<double>(dx));
    if (dx < 0) {
        angle += Pi;
    } else if (dy < 0) {
        angle += dx == 0 ? Pi : 2 * Pi;
    }
    return angle;
}

} // namespace drawing
