#include "ShapeOutlines.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "DeviceContext.h"
#include "DeviceRect.h"

namespace wingdi {

namespace {

constexpr double Quarter = std::numbers::pi / 2;

struct EllipseForm {
    double x;
    double y;
    double rx;
    double ry;

    DevicePoint at(double angle) const { return {x + rx * std::cos(angle), y - ry * std::sin(angle)}; }
};

EllipseForm ellipseIn(const ShapeFrame& frame)
{
    return {(frame.left + frame.right) / 2, (frame.top + frame.bottom) / 2, (frame.right - frame.left) / 2,
            (frame.bottom - frame.top) / 2};
}

DevicePoint mapped(const ShapeFrame& frame, DevicePoint point)
{
    return frame.toDevice.apply(point.x, point.y);
}

// Adds pieces of at most a quarter, each one Bézier curve.
void appendEllipseArc(Outline& outline, const EllipseForm& ellipse, const ArcSweep& arc,
                      const Mapping& toDevice)
{
    const int pieces = std::max(1, static_cast<int>(std::ceil(std::abs(arc.sweep) / Quarter - 1e-9)));
    const double step = arc.sweep / pieces;
    const double handle = 4.0 / 3 * std::tan(step / 4);
    for (int i = 0; i < pieces; ++i) {
        const double from = arc.start + step * i;
        const double to = from + step;
        const DevicePoint a = ellipse.at(from);
        const DevicePoint d = ellipse.at(to);
        const DevicePoint b{a.x - ellipse.rx * handle * std::sin(from),
                            a.y - ellipse.ry * handle * std::cos(from)};
        const DevicePoint c{d.x + ellipse.rx * handle * std::sin(to),
                            d.y + ellipse.ry * handle * std::cos(to)};
        outline.curveTo(toDevice.apply(b.x, b.y), toDevice.apply(c.x, c.y), toDevice.apply(d.x, d.y));
    }
}

double angleThrough(const EllipseForm& ellipse, DevicePoint point)
{
    constexpr double Thinnest = 1e-9;
    return std::atan2((ellipse.y - point.y) / std::max(ellipse.ry, Thinnest),
                      (point.x - ellipse.x) / std::max(ellipse.rx, Thinnest));
}

} // namespace

ShapeFrame ShapeFrame::inset(double x, double y) const
{
    return {left + x, top + y, right - x, bottom - y, toDevice, mirrored};
}

ShapeFrame frameOf(const DeviceContext& context, const RECT& rect)
{
    const Mapping mapping = context.mapping();
    const bool advanced = context.state.graphicsMode == GM_ADVANCED;
    if (advanced && !mapping.isAxisAligned()) {
        return wholeFrame(mapping, rect);
    }
    const POINT first = mapping.toDevice({rect.left, rect.top});
    const POINT second = mapping.toDevice({rect.right, rect.bottom});
    const double edge = advanced ? 0 : 1;
    return {static_cast<double>(std::min(first.x, second.x)),
            static_cast<double>(std::min(first.y, second.y)),
            static_cast<double>(std::max(first.x, second.x)) - edge,
            static_cast<double>(std::max(first.y, second.y)) - edge,
            Mapping{},
            advanced && mapping.xx * mapping.yy < 0};
}

ShapeFrame wholeFrame(const Mapping& mapping, const RECT& rect)
{
    return {static_cast<double>(std::min(rect.left, rect.right)),
            static_cast<double>(std::min(rect.top, rect.bottom)),
            static_cast<double>(std::max(rect.left, rect.right)),
            static_cast<double>(std::max(rect.top, rect.bottom)),
            mapping,
            false};
}

RECT deviceBox(const Mapping& mapping, const RECT& rect)
{
    constexpr LONG Farthest = 1 << 26;
    RECT box{Farthest, Farthest, -Farthest, -Farthest};
    for (const POINT corner : {POINT{rect.left, rect.top}, POINT{rect.right, rect.top},
                               POINT{rect.left, rect.bottom}, POINT{rect.right, rect.bottom}}) {
        const POINT point = mapping.toDevice(corner);
        const LONG x = std::clamp(point.x, -Farthest, Farthest);
        const LONG y = std::clamp(point.y, -Farthest, Farthest);
        box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x), std::max(box.bottom, y)};
    }
    return box;
}

Region visibleRegion(const Outline& outline, const RECT& visible, int fillMode)
{
    const RECT around = grown(visible, 1);
    const Outline flat =
        liesWithin(outline.box(), around) ? outline.flattened() : outline.clippedArea(around);
    std::vector<POINT> points;
    std::vector<INT> counts;
    for (const Outline::Figure& figure : flat.figures()) {
        for (const DevicePoint point : figure.points) {
            points.push_back({toDeviceUnit(point.x), toDeviceUnit(point.y)});
        }
        counts.push_back(static_cast<INT>(figure.points.size()));
    }
    return Region::fromPolygons(points, counts, fillMode);
}

DevicePoint pointInFrame(const DeviceContext& context, const ShapeFrame& frame, POINT point)
{
    const Mapping mapping = context.mapping();
    if (context.state.graphicsMode == GM_ADVANCED && !frame.toDevice.isAxisAligned()) {
        return {static_cast<double>(point.x), static_cast<double>(point.y)};
    }
    const POINT device = mapping.toDevice(point);
    return {static_cast<double>(device.x), static_cast<double>(device.y)};
}

Outline rectangleOutline(const ShapeFrame& frame)
{
    Outline outline;
    outline.moveTo(mapped(frame, {frame.left, frame.top}));
    outline.lineTo(mapped(frame, {frame.right, frame.top}));
    outline.lineTo(mapped(frame, {frame.right, frame.bottom}));
    outline.lineTo(mapped(frame, {frame.left, frame.bottom}));
    outline.close();
    return outline;
}

Outline ellipseOutline(const ShapeFrame& frame)
{
    const ArcSweep whole{0, 4 * Quarter};
    Outline outline;
    outline.moveTo(arcStart(frame, whole));
    appendArc(outline, frame, whole);
    outline.close();
    return outline;
}

Outline roundRectOutline(const ShapeFrame& frame, double cornerWidth, double cornerHeight)
{
    const double rx = std::min(cornerWidth, frame.right - frame.left) / 2;
    const double ry = std::min(cornerHeight, frame.bottom - frame.top) / 2;
    if (rx <= 0 || ry <= 0) {
        return rectangleOutline(frame);
    }
    const DevicePoint centers[] = {{frame.right - rx, frame.top + ry},
                                   {frame.left + rx, frame.top + ry},
                                   {frame.left + rx, frame.bottom - ry},
                                   {frame.right - rx, frame.bottom - ry}};
    Outline outline;
    double start = 0;
    for (const DevicePoint center : centers) {
        const EllipseForm corner{center.x, center.y, rx, ry};
        const DevicePoint begin = mapped(frame, corner.at(start));
        if (start == 0) {
            outline.moveTo(begin);
        } else {
            outline.lineTo(begin);
        }
        appendEllipseArc(outline, corner, {start, Quarter}, frame.toDevice);
        start += Quarter;
    }
    outline.close();
    return outline;
}

ArcSweep sweepBetween(const ShapeFrame& frame, DevicePoint start, DevicePoint end, bool clockwise)
{
    constexpr double Whole = 4 * Quarter;
    const EllipseForm ellipse = ellipseIn(frame);
    const double from = angleThrough(ellipse, start);
    const double ax = start.x - ellipse.x;
    const double ay = start.y - ellipse.y;
    const double bx = end.x - ellipse.x;
    const double by = end.y - ellipse.y;
    const bool same = ax * by == ay * bx && ax * bx + ay * by >= 0;
    double sweep = same ? 0 : angleThrough(ellipse, end) - from;
    if (clockwise != frame.mirrored) {
        sweep = sweep < 0 ? sweep : sweep - Whole;
    } else {
        sweep = sweep > 0 ? sweep : sweep + Whole;
    }
    return {from, sweep};
}

bool isWhole(const ArcSweep& arc) noexcept
{
    return std::abs(arc.sweep) >= 4 * Quarter;
}

DevicePoint arcStart(const ShapeFrame& frame, const ArcSweep& arc)
{
    return mapped(frame, ellipseIn(frame).at(arc.start));
}

void appendArc(Outline& outline, const ShapeFrame& frame, const ArcSweep& arc)
{
    appendEllipseArc(outline, ellipseIn(frame), arc, frame.toDevice);
}

DevicePoint frameCenter(const ShapeFrame& frame)
{
    const EllipseForm ellipse = ellipseIn(frame);
    return mapped(frame, {ellipse.x, ellipse.y});
}

} // namespace wingdi
