// Shapes that are drawn with the context's pen and brush.
#include <cmath>
#include <cstdint>
#include <numbers>

#include "DeviceContext.h"
#include "failWith.h"

using namespace wingdi;

namespace {

// Which counts of points a shape takes: at least so many, and a multiple of `step` more.
struct PointRule {
    PolyShape shape;
    std::int64_t least;
    std::int64_t step;
    bool moves; // the last point becomes the current position
};
constexpr PointRule PolylineRule{PolyShape::Polyline, 2, 1, false};
constexpr PointRule PolylineToRule{PolyShape::PolylineTo, 1, 1, true};
constexpr PointRule PolygonRule{PolyShape::Polygon, 2, 1, false};
constexpr PointRule PolyBezierRule{PolyShape::PolyBezier, 4, 3, false};
constexpr PointRule PolyBezierToRule{PolyShape::PolyBezierTo, 3, 3, true};

BOOL drawPoints(HDC handle, const char* function, const PointRule& rule, const POINT* points,
                std::int64_t count)
{
    return onContext(handle, function, FALSE, [&](DeviceContext& context) {
        if (points == nullptr || count < rule.least || (count - rule.least) % rule.step != 0) {
            return failWith(ERROR_INVALID_PARAMETER, FALSE);
        }
        const std::span all(points, static_cast<std::size_t>(count));
        const auto length = static_cast<DWORD>(count);
        if (!context.device().poly(context, rule.shape, all, {&length, 1})) {
            return FALSE;
        }
        if (rule.moves) {
            context.state.position = all.back();
        }
        return TRUE;
    });
}

BOOL drawFigures(HDC handle, const char* function, PolyShape shape, const POINT* points, const DWORD* counts,
                 std::int64_t figures)
{
    return onContext(handle, function, FALSE, [&](DeviceContext& context) {
        if (points == nullptr || counts == nullptr || figures < 1) {
            return failWith(ERROR_INVALID_PARAMETER, FALSE);
        }
        const std::span lengths(counts, static_cast<std::size_t>(figures));
        std::uint64_t total = 0;
        for (const DWORD length : lengths) {
            if (length < 2 || length > INT32_MAX) {
                return failWith(ERROR_INVALID_PARAMETER, FALSE);
            }
            total += length;
        }
        const std::span all(points, static_cast<std::size_t>(total));
        return context.device().poly(context, shape, all, lengths) ? TRUE : FALSE;
    });
}

BOOL drawBox(HDC handle, const char* function, BoxShape shape, const RECT& rect, SIZE corner)
{
    return onContext(handle, function, FALSE, [&](DeviceContext& context) {
        return context.device().box(context, shape, rect, corner) ? TRUE : FALSE;
    });
}

// Where the radial through a point meets the ellipse in the rectangle.
POINT onEllipse(const RECT& rect, POINT radial) noexcept
{
    const double radiusX = (static_cast<double>(rect.right) - rect.left) / 2;
    const double radiusY = (static_cast<double>(rect.bottom) - rect.top) / 2;
    const double centerX = rect.left + radiusX;
    const double centerY = rect.top + radiusY;
    const double x = (radial.x - centerX) * radiusY;
    const double y = (radial.y - centerY) * radiusX;
    const double length = std::hypot(x, y);
    if (length == 0) {
        return {toDeviceUnit(centerX), toDeviceUnit(centerY)};
    }
    return {toDeviceUnit(centerX + radiusX * x / length), toDeviceUnit(centerY + radiusY * y / length)};
}

BOOL drawArc(HDC handle, const char* function, ArcShape shape, const RECT& rect, POINT start, POINT end)
{
    return onContext(handle, function, FALSE, [&](DeviceContext& context) {
        if (!context.device().arc(context, shape, rect, start, end)) {
            return FALSE;
        }
        if (shape == ArcShape::ArcTo) {
            context.state.position = onEllipse(rect, end);
        }
        return TRUE;
    });
}

} // namespace

BOOL LineTo(HDC context, int x, int y)
{
    return onContext(context, "LineTo", FALSE, [&](DeviceContext& found) {
        const POINT to{x, y};
        if (!found.device().lineTo(found, found.state.position, to)) {
            return FALSE;
        }
        found.state.position = to;
        return TRUE;
    });
}

BOOL Polyline(HDC context, const POINT* points, int count)
{
    return drawPoints(context, "Polyline", PolylineRule, points, count);
}

BOOL PolylineTo(HDC context, const POINT* points, DWORD count)
{
    return drawPoints(context, "PolylineTo", PolylineToRule, points, count);
}

BOOL Polygon(HDC context, const POINT* points, int count)
{
    return drawPoints(context, "Polygon", PolygonRule, points, count);
}

BOOL PolyBezier(HDC context, const POINT* points, DWORD count)
{
    return drawPoints(context, "PolyBezier", PolyBezierRule, points, count);
}

BOOL PolyBezierTo(HDC context, const POINT* points, DWORD count)
{
    return drawPoints(context, "PolyBezierTo", PolyBezierToRule, points, count);
}

BOOL PolyPolyline(HDC context, const POINT* points, const DWORD* counts, DWORD lines)
{
    return drawFigures(context, "PolyPolyline", PolyShape::PolyPolyline, points, counts, lines);
}

BOOL PolyPolygon(HDC context, const POINT* points, const INT* counts, int polygons)
{
    // A count below 0 is a large one as an unsigned number, and refused like it.
    return drawFigures(context, "PolyPolygon", PolyShape::PolyPolygon, points,
                       reinterpret_cast<const DWORD*>(counts), polygons);
}

BOOL Rectangle(HDC context, int left, int top, int right, int bottom)
{
    return drawBox(context, "Rectangle", BoxShape::Rectangle, {left, top, right, bottom}, {0, 0});
}

BOOL RoundRect(HDC context, int left, int top, int right, int bottom, int cornerWidth, int cornerHeight)
{
    return drawBox(context, "RoundRect", BoxShape::RoundRectangle, {left, top, right, bottom},
                   {cornerWidth, cornerHeight});
}

BOOL Ellipse(HDC context, int left, int top, int right, int bottom)
{
    return drawBox(context, "Ellipse", BoxShape::Ellipse, {left, top, right, bottom}, {0, 0});
}

BOOL Arc(HDC context, int left, int top, int right, int bottom, int x1, int y1, int x2, int y2)
{
    return drawArc(context, "Arc", ArcShape::Arc, {left, top, right, bottom}, {x1, y1}, {x2, y2});
}

BOOL ArcTo(HDC context, int left, int top, int right, int bottom, int x1, int y1, int x2, int y2)
{
    return drawArc(context, "ArcTo", ArcShape::ArcTo, {left, top, right, bottom}, {x1, y1}, {x2, y2});
}

BOOL Chord(HDC context, int left, int top, int right, int bottom, int x1, int y1, int x2, int y2)
{
    return drawArc(context, "Chord", ArcShape::Chord, {left, top, right, bottom}, {x1, y1}, {x2, y2});
}

BOOL Pie(HDC context, int left, int top, int right, int bottom, int x1, int y1, int x2, int y2)
{
    return drawArc(context, "Pie", ArcShape::Pie, {left, top, right, bottom}, {x1, y1}, {x2, y2});
}

BOOL AngleArc(HDC context, int x, int y, DWORD radius, FLOAT startAngle, FLOAT sweepAngle)
{
    return onContext(context, "AngleArc", FALSE, [&](DeviceContext& found) {
        if (!std::isfinite(startAngle) || !std::isfinite(sweepAngle)) {
            return failWith(ERROR_INVALID_PARAMETER, FALSE);
        }
        if (!found.device().angleArc(found, {x, y}, radius, startAngle, sweepAngle)) {
            return FALSE;
        }
        const double end = (double{startAngle} + double{sweepAngle}) * std::numbers::pi / 180;
        found.state.position = {toDeviceUnit(x + radius * std::cos(end)),
                                toDeviceUnit(y - radius * std::sin(end))};
        return TRUE;
    });
}
