// The part of MetafileDevice that records lines, shapes, paths and fills.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <numeric>
#include <utility>

#include "DeviceContext.h"
#include "MetafileDevice.h"

namespace wingdi {

namespace {

struct PolyTypes {
    DWORD wide;   // 32-bit coordinates
    DWORD narrow; // 16-bit ones
};

// In the order of PolyShape.
constexpr PolyTypes TypesOfShapes[] = {
    {EMR_POLYLINE, EMR_POLYLINE16},         {EMR_POLYLINETO, EMR_POLYLINETO16},
    {EMR_POLYGON, EMR_POLYGON16},           {EMR_POLYBEZIER, EMR_POLYBEZIER16},
    {EMR_POLYBEZIERTO, EMR_POLYBEZIERTO16}, {EMR_POLYPOLYLINE, EMR_POLYPOLYLINE16},
    {EMR_POLYPOLYGON, EMR_POLYPOLYGON16},
};
static_assert(std::size(TypesOfShapes) == static_cast<std::size_t>(PolyShape::PolyPolygon) + 1);

// In the order of ArcShape.
constexpr DWORD ArcTypes[] = {EMR_ARC, EMR_ARCTO, EMR_CHORD, EMR_PIE};
static_assert(std::size(ArcTypes) == static_cast<std::size_t>(ArcShape::Pie) + 1);

// In the order of PathStep.
constexpr DWORD PathTypes[] = {EMR_BEGINPATH, EMR_ENDPATH,     EMR_CLOSEFIGURE,
                               EMR_ABORTPATH, EMR_FLATTENPATH, EMR_WIDENPATH,
                               EMR_FILLPATH,  EMR_STROKEPATH,  EMR_STROKEANDFILLPATH};
static_assert(std::size(PathTypes) == static_cast<std::size_t>(PathStep::StrokeAndFill) + 1);

template <class Number>
LONG saturated(Number value) noexcept
{
    return static_cast<LONG>(std::clamp<std::int64_t>(value, INT32_MIN, INT32_MAX));
}

// The box of logical points; left above right when there are none.
RECT boxOf(std::span<const POINT> points) noexcept
{
    RECT box{INT32_MAX, INT32_MAX, INT32_MIN, INT32_MIN};
    for (const POINT& point : points) {
        box = {std::min(box.left, point.x), std::min(box.top, point.y), std::max(box.right, point.x),
               std::max(box.bottom, point.y)};
    }
    return box;
}

bool fitsSixteenBits(const RECT& box) noexcept
{
    using Limits = std::numeric_limits<std::int16_t>;
    return box.left >= Limits::min() && box.top >= Limits::min() && box.right <= Limits::max() &&
           box.bottom <= Limits::max();
}

void writePoints(BYTE* target, std::span<const POINT> points, bool narrow) noexcept
{
    if (!narrow) {
        std::memcpy(target, points.data(), points.size_bytes());
        return;
    }
    for (const POINT& point : points) {
        const POINTS pair{static_cast<std::int16_t>(point.x), static_cast<std::int16_t>(point.y)};
        std::memcpy(target, &pair, sizeof(pair));
        target += sizeof(pair);
    }
}

// A shape's box as records have it: sorted, with the edges that are drawn. Playback always takes it so, whereas in
// GM_COMPATIBLE right and bottom don't belong to the rectangle. False when nothing of it is left.
bool inclusiveBox(const DeviceContext& context, const RECT& rect, RECTL& box) noexcept
{
    box = {std::min(rect.left, rect.right), std::min(rect.top, rect.bottom), std::max(rect.left, rect.right),
           std::max(rect.top, rect.bottom)};
    if (context.state.graphicsMode == GM_COMPATIBLE) {
        if (box.left == box.right || box.top == box.bottom) {
            return false;
        }
        --box.right;
        --box.bottom;
    }
    return true;
}

// Of a shape as it is played from the record's box. Where units are no pixels, its last pixel is another than the one
// before the edge that GM_COMPATIBLE leaves out of what is drawn: bounds hold both.
DrawnBounds boundsWhenPlayed(const DeviceContext& context, const RECTL& inclusive) noexcept
{
    return boundsWithEdges(context.mapping(),
                           {inclusive.left, inclusive.top, inclusive.right, inclusive.bottom});
}

// True when logical points lie on device pixels, so that rounding turns no direction.
bool keepsDirections(const Mapping& mapping) noexcept
{
    const auto isWhole = [](double value) {
        return value == std::floor(value);
    };
    return mapping.isAxisAligned() && isWhole(mapping.xx) && isWhole(mapping.yy) && isWhole(mapping.dx) &&
           isWhole(mapping.dy);
}

// Of an arc, a chord or a pie in this ellipse. Where its ends are uncertain: those of the whole ellipse.
DrawnBounds boundsOfPart(const DeviceContext& context, ArcShape shape, const DrawnBounds& ellipse,
                         POINT start, POINT end)
{
    const Mapping mapping = context.mapping();
    const bool advanced = context.state.graphicsMode == GM_ADVANCED;
    const bool flipped = (mapping.xx < 0) != (mapping.yy < 0);
    // Directions are those of the device in GM_COMPATIBLE, of the logical plane in GM_ADVANCED, and when it is played.
    const RECTL& box = ellipse.box;
    const bool flat = box.left == box.right || box.top == box.bottom;
    if (!keepsDirections(mapping) || flat || (flipped && !advanced)) {
        return ellipse;
    }
    if ((context.state.arcDirection == AD_CLOCKWISE) != flipped) {
        std::swap(start, end);
    }
    DrawnBounds bounds = boundsOfArc(ellipse, mapping.toDevice(start), mapping.toDevice(end));
    if (shape == ArcShape::Pie) {
        // The centre may lie between two pixels.
        bounds.add(POINT{std::midpoint(box.left, box.right), std::midpoint(box.top, box.bottom)});
        bounds.add(POINT{std::midpoint(box.right, box.left), std::midpoint(box.bottom, box.top)});
    }
    return bounds;
}

} // namespace

bool MetafileDevice::lineTo(DeviceContext& context, POINT from, POINT to)
{
    const POINT ends[] = {from, to};
    markStroked(context, boundsOfPoints(context.mapping(), ends), Corners::None);
    return record(EMR_LINETO, EMRPOINT{{}, {to.x, to.y}}) != nullptr;
}

bool MetafileDevice::poly(DeviceContext& context, PolyShape shape, std::span<const POINT> points,
                          std::span<const DWORD> counts)
{
    if (points.empty()) {
        return false;
    }
    const Mapping mapping = context.mapping();
    const RECT box = boxOf(points);
    DrawnBounds bounds =
        mapping.isAxisAligned() ? boundsWithEdges(mapping, box) : boundsOfPoints(mapping, points);
    if (shape == PolyShape::PolylineTo || shape == PolyShape::PolyBezierTo) {
        bounds.add(mapping.toDevice(context.state.position));
    }
    const bool narrow = fitsSixteenBits(box);
    const PolyTypes& types = TypesOfShapes[static_cast<std::size_t>(shape)];
    const DWORD type = narrow ? types.narrow : types.wide;
    const std::uint64_t pointsLength = points.size() * (narrow ? sizeof(POINTS) : sizeof(POINTL));
    const RECTL drawn = markStroked(context, bounds, Corners::Any);
    const auto pointCount = static_cast<DWORD>(points.size());
    BYTE* tail = nullptr;
    if (shape == PolyShape::PolyPolyline || shape == PolyShape::PolyPolygon) {
        const EMRPOLYPOLY fields{{}, drawn, static_cast<DWORD>(counts.size()), pointCount};
        tail = record(type, fields, counts.size_bytes() + pointsLength);
        if (tail != nullptr && !counts.empty()) {
            std::memcpy(tail, counts.data(), counts.size_bytes());
            tail += counts.size_bytes();
        }
    } else {
        tail = record(type, EMRPOLY{{}, drawn, pointCount}, pointsLength);
    }
    if (tail == nullptr) {
        return false;
    }
    writePoints(tail, points, narrow);
    return true;
}

bool MetafileDevice::box(DeviceContext& context, BoxShape shape, const RECT& rect, SIZE corner)
{
    RECTL inclusive{};
    if (!inclusiveBox(context, rect, inclusive)) {
        return true;
    }
    const bool square = shape == BoxShape::Rectangle && context.mapping().isAxisAligned();
    DrawnBounds bounds = boundsWhenPlayed(context, inclusive);
    bounds.add(boundsOfArea(context.mapping(), rect).box);
    markStroked(context, bounds, square ? Corners::Square : Corners::Any);
    if (shape == BoxShape::RoundRectangle) {
        return record(EMR_ROUNDRECT, EMRROUNDRECT{{}, inclusive, corner}) != nullptr;
    }
    return record(shape == BoxShape::Ellipse ? EMR_ELLIPSE : EMR_RECTANGLE, EMRBOX{{}, inclusive}) != nullptr;
}

bool MetafileDevice::arc(DeviceContext& context, ArcShape shape, const RECT& rect, POINT start, POINT end)
{
    RECTL inclusive{};
    if (!inclusiveBox(context, rect, inclusive)) {
        return true;
    }
    DrawnBounds bounds = boundsOfPart(context, shape, boundsWhenPlayed(context, inclusive), start, end);
    if (const DrawnBounds drawn = boundsOfArea(context.mapping(), rect); !drawn.empty()) {
        bounds.add(boundsOfPart(context, shape, drawn, start, end).box);
    }
    if (shape == ArcShape::ArcTo) {
        bounds.add(context.mapping().toDevice(context.state.position));
    }
    markStroked(context, bounds, Corners::Any);
    const EMRARC fields{{}, inclusive, {start.x, start.y}, {end.x, end.y}};
    return record(ArcTypes[static_cast<std::size_t>(shape)], fields) != nullptr;
}

bool MetafileDevice::angleArc(DeviceContext& context, POINT center, DWORD radius, FLOAT startAngle,
                              FLOAT sweepAngle)
{
    const Mapping mapping = context.mapping();
    const std::int64_t reach = radius;
    DrawnBounds bounds = boundsWithEdges(mapping, {saturated(center.x - reach), saturated(center.y - reach),
                                                   saturated(center.x + reach), saturated(center.y + reach)});
    bounds.add(mapping.toDevice(context.state.position));
    markStroked(context, bounds, Corners::Any);
    return record(EMR_ANGLEARC, EMRANGLEARC{{}, {center.x, center.y}, radius, startAngle, sweepAngle}) !=
           nullptr;
}

bool MetafileDevice::path(DeviceContext& context, PathStep step)
{
    const DWORD type = PathTypes[static_cast<std::size_t>(step)];
    switch (step) {
    case PathStep::Begin:
        m_path = {};
        m_pathState = PathState::Open;
        break;
    case PathStep::Abort:
        m_path = {};
        m_pathState = PathState::None;
        break;
    case PathStep::End:
    case PathStep::CloseFigure:
        if (m_pathState != PathState::Open) {
            return false;
        }
        m_pathState = step == PathStep::End ? PathState::Ended : PathState::Open;
        break;
    default:
        if (m_pathState != PathState::Ended) {
            return false;
        }
        if (step >= PathStep::Fill) {
            const RECTL drawn = markPath(context, step != PathStep::Fill);
            return record(type, EMRPATH{{}, drawn}) != nullptr;
        }
        if (step == PathStep::Widen) {
            m_path.grow(penReach(context, Corners::Any));
        }
    }
    return record(type, EMR{}) != nullptr;
}

bool MetafileDevice::fillRegion(DeviceContext& context, const Region& region,
                                const std::shared_ptr<BrushObject>& brush)
{
    const DWORD entry = brush ? entryOf(*brush) : 0;
    if (entry == 0) {
        return false;
    }
    const RegionRecord data(region);
    const DrawnBounds bounds = boundsOfArea(context.mapping(), region.box());
    BYTE* const tail = record(EMR_FILLRGN, EMRFILLRGN{{}, bounds.box, data.length(), entry}, data.length());
    if (tail == nullptr) {
        return false;
    }
    data.write(tail);
    markDrawn(context, bounds);
    return true;
}

bool MetafileDevice::floodFill(DeviceContext& context, POINT start, COLORREF color, UINT type)
{
    markDrawn(context, boundsOfPoints(context.mapping(), {&start, 1}));
    return record(EMR_EXTFLOODFILL, EMREXTFLOODFILL{{}, {start.x, start.y}, color, type}) != nullptr;
}

bool MetafileDevice::setPixel(DeviceContext& context, POINT point, COLORREF color)
{
    markDrawn(context, boundsOfPoints(context.mapping(), {&point, 1}));
    return record(EMR_SETPIXELV, EMRSETPIXELV{{}, {point.x, point.y}, color}) != nullptr;
}

} // namespace wingdi
