#include "DrawnBounds.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <numeric>

namespace wingdi {

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
        {rect.left, rect.top}, {rect.right, rect.bottom}, {rect.right, rect.top}, {rect.left, rect.bottom}};
    const std::span<const POINT> all(corners);
    return boundsOfPoints(mapping, mapping.isAxisAligned() ? all.first(2) : all);
}

DrawnBounds boundsOfArea(const Mapping& mapping, const RECT& rect) noexcept
{
    DrawnBounds bounds = boundsWithEdges(mapping, rect);
    if (!mapping.isAxisAligned()) {
        const bool empty = rect.left == rect.right || rect.top == rect.bottom;
        return empty ? DrawnBounds{} : bounds; // its corners lie within pixels, not between them
    }
    if (bounds.box.right == bounds.box.left || bounds.box.bottom == bounds.box.top) {
        return {};
    }
    --bounds.box.right;
    --bounds.box.bottom;
    return bounds;
}

DrawnBounds boundsOfArc(const DrawnBounds& ellipse, POINT start, POINT end) noexcept
{
    constexpr double Quarter = std::numbers::pi / 2;
    const double centerX = std::midpoint<double>(ellipse.box.left, ellipse.box.right);
    const double centerY = std::midpoint<double>(ellipse.box.top, ellipse.box.bottom);
    const double radiusX = ellipse.box.right - centerX;
    const double radiusY = ellipse.box.bottom - centerY;
    const auto angleOf = [&](POINT point) {
        return std::atan2((centerY - point.y) * radiusX, (point.x - centerX) * radiusY);
    };
    DrawnBounds bounds;
    const auto addAt = [&](double angle) {
        bounds.add(POINT{toDeviceUnit(centerX + radiusX * std::cos(angle)),
                         toDeviceUnit(centerY - radiusY * std::sin(angle))});
    };
    const double first = angleOf(start);
    double last = angleOf(end);
    if (last <= first) {
        last += 4 * Quarter;
    }
    addAt(first);
    addAt(last);
    // Between its ends an arc reaches furthest where it crosses an axis.
    const int lastQuarter = static_cast<int>(std::ceil(last / Quarter));
    for (int crossing = static_cast<int>(std::ceil(first / Quarter)); crossing < lastQuarter; ++crossing) {
        addAt(crossing * Quarter);
    }
    return bounds;
}

} // namespace wingdi
