#include "recorder/DrawnBounds.h"

#include <algorithm>
#include <climits>
#include <cstdint>

namespace {

LONG saturated(std::int64_t value) noexcept
{
    return static_cast<LONG>(std::clamp<std::int64_t>(value, INT32_MIN, INT32_MAX));
}

} // namespace

void DrawnBounds::add(const RECTL& other) noexcept
{
    if (other.right < other.left || other.bottom < other.top) {
        return;
    }
    if (empty()) {
        box = other;
        return;
    }
    box = {std::min(box.left, other.left), std::min(box.top, other.top), std::max(box.right, other.right),
           std::max(box.bottom, other.bottom)};
}

void DrawnBounds::grow(LONG reach) noexcept
{
    if (empty() || reach <= 0) {
        return;
    }
    const std::int64_t far = reach;
    box = {saturated(box.left - far), saturated(box.top - far), saturated(box.right + far),
           saturated(box.bottom + far)};
}

void DrawnBounds::clip(const RECT& rect) noexcept
{
    box = {std::max(box.left, rect.left), std::max(box.top, rect.top),
           saturated(std::min<std::int64_t>(box.right, std::int64_t{rect.right} - 1)),
           saturated(std::min<std::int64_t>(box.bottom, std::int64_t{rect.bottom} - 1))};
    if (empty()) {
        box = {0, 0, -1, -1};
    }
}

RECT DrawnBounds::area() const noexcept
{
    return {box.left, box.top, saturated(std::int64_t{box.right} + 1),
            saturated(std::int64_t{box.bottom} + 1)};
}

DrawnBounds boundsOfPoints(const Mapping& mapping, std::span<const POINT> points) noexcept
{
    DrawnBounds bounds;
    for (const POINT& point : points) {
        bounds.add(mapping.toDevice(point));
    }
    return bounds;
}

DrawnBounds boundsWithEdges(const Mapping& mapping, const RECT& rect) noexcept
{
    const POINT corners[] = {
        {rect.left, rect.top}, {rect.right, rect.top}, {rect.right, rect.bottom}, {rect.left, rect.bottom}};
    return boundsOfPoints(mapping, corners);
}

DrawnBounds boundsOfArea(const Mapping& mapping, const RECT& rect) noexcept
{
    DrawnBounds bounds = boundsWithEdges(mapping, rect);
    if (bounds.box.right == bounds.box.left || bounds.box.bottom == bounds.box.top) {
        return {};
    }
    --bounds.box.right;
    --bounds.box.bottom;
    return bounds;
}
