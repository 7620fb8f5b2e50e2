// Rectangles of device units, right and bottom excluded.
#pragma once

#include <windows.h>

#include <algorithm>

namespace wingdi {

constexpr bool isEmpty(const RECT& rect)
{
    return rect.left >= rect.right || rect.top >= rect.bottom;
}

// All zero when there is none.
constexpr RECT overlap(const RECT& first, const RECT& second)
{
    const RECT both{std::max(first.left, second.left), std::max(first.top, second.top),
                    std::min(first.right, second.right), std::min(first.bottom, second.bottom)};
    return isEmpty(both) ? RECT{0, 0, 0, 0} : both;
}

constexpr RECT grown(const RECT& rect, int reach)
{
    return {rect.left - reach, rect.top - reach, rect.right + reach, rect.bottom + reach};
}

constexpr bool liesWithin(const RECT& inner, const RECT& outer)
{
    return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}

// Farther points than this from what is seen are cut off before cairo, whose coordinates end at 2^23.
constexpr int Nearby = 1 << 20;

} // namespace wingdi
