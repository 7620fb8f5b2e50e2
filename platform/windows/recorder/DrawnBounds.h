// The device pixels that drawing reaches, as an inclusive rectangle.
#pragma once

#include <windows.h>

#include <span>

#include "Mapping.h"

namespace wingdi {

struct DrawnBounds {
    RECTL box{0, 0, -1, -1}; // so written in records when nothing is drawn

    bool empty() const noexcept { return box.right < box.left || box.bottom < box.top; }
    void add(const RECTL& other) noexcept;
    void add(POINT point) noexcept { add(RECTL{point.x, point.y, point.x, point.y}); }
    // Grows to all sides, saturated.
    void grow(LONG reach) noexcept;
    // What of it the rectangle (right and bottom excluded) holds.
    void clip(const RECT& rect) noexcept;
    // The same pixels with right and bottom excluded.
    RECT area() const noexcept;
};

// The pixels of points, of all that a logical rectangle holds with its edges, and of what it holds without the right
// and bottom ones; its corners may be swapped.
DrawnBounds boundsOfPoints(const Mapping& mapping, std::span<const POINT> points) noexcept;
DrawnBounds boundsWithEdges(const Mapping& mapping, const RECT& rect) noexcept;
DrawnBounds boundsOfArea(const Mapping& mapping, const RECT& rect) noexcept;
// The pixels of the part of an ellipse in this box that runs counter-clockwise between the radials through two points.
DrawnBounds boundsOfArc(const DrawnBounds& ellipse, POINT start, POINT end) noexcept;

} // namespace wingdi
