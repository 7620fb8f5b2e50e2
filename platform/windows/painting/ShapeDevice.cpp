#include "ShapeDevice.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "DeviceContext.h"
#include "PenLook.h"

namespace wingdi {

namespace {

DevicePoint exactPoint(const Mapping& mapping, POINT point)
{
    return mapping.apply(point.x, point.y);
}

DevicePoint wholePoint(const Mapping& mapping, POINT point)
{
    const POINT device = mapping.toDevice(point);
    return {static_cast<double>(device.x), static_cast<double>(device.y)};
}

bool isCurve(PolyShape shape)
{
    return shape == PolyShape::PolyBezier || shape == PolyShape::PolyBezierTo;
}

bool isArea(PolyShape shape)
{
    return shape == PolyShape::Polygon || shape == PolyShape::PolyPolygon;
}

void appendLines(Outline& outline, const Mapping& mapping, std::span<const POINT> points)
{
    for (const POINT point : points) {
        outline.lineTo(wholePoint(mapping, point));
    }
}

// Points that don't make up a whole curve are left out.
void appendCurves(Outline& outline, const Mapping& mapping, std::span<const POINT> points)
{
    for (; points.size() >= 3; points = points.subspan(3)) {
        outline.curveTo(exactPoint(mapping, points[0]), exactPoint(mapping, points[1]),
                        exactPoint(mapping, points[2]));
    }
}

// Without rotation: a unit of the frame is a pixel.
bool isInPixels(const ShapeFrame& frame)
{
    return frame.toDevice.isAxisAligned() && frame.toDevice.xx == 1;
}

// Without a pen the pixels from edge to edge are filled, not those between its middle lines.
ShapeFrame filledFrame(const ShapeFrame& frame)
{
    return {frame.left - 0.5,   frame.top - 0.5, frame.right - 0.5,
            frame.bottom - 0.5, frame.toDevice,  frame.mirrored};
}

bool hasNoPen(const DeviceContext& context)
{
    return (context.state.pen->style & PS_STYLE_MASK) == PS_NULL;
}

double inRadians(double degrees)
{
    constexpr double Most = 360;
    const double turn = std::isfinite(degrees) ? std::clamp(degrees, -Most, Most) : 0.0;
    return turn * std::numbers::pi / 180;
}

} // namespace

void ShapeDevice::stateChanged(DeviceContext& /*context*/, StateField field)
{
    if (field == StateField::Position) {
        m_pathMoved = true;
    }
}

bool ShapeDevice::put(DeviceContext& context, const Outline& outline, bool filled)
{
    if (m_pathState == PathState::Open) {
        m_path.append(outline);
        m_pathMoved = true;
    } else if (!outline.empty()) {
        drawShape(context, outline, filled);
    }
    return true;
}

bool ShapeDevice::putFromPosition(DeviceContext& context, const Outline& outline)
{
    const bool done = put(context, outline, false);
    m_pathMoved = false;
    return done;
}

void ShapeDevice::continueFrom(Outline& outline, DevicePoint from) const
{
    if (m_pathState != PathState::Open || m_pathMoved || !m_path.isOpen()) {
        outline.moveTo(from);
    }
}

bool ShapeDevice::lineTo(DeviceContext& context, POINT from, POINT to)
{
    const Mapping mapping = context.mapping();
    Outline outline;
    continueFrom(outline, wholePoint(mapping, from));
    outline.lineTo(wholePoint(mapping, to));
    return putFromPosition(context, outline);
}

bool ShapeDevice::poly(DeviceContext& context, PolyShape shape, std::span<const POINT> points,
                       std::span<const DWORD> counts)
{
    const Mapping mapping = context.mapping();
    const DWORD whole = static_cast<DWORD>(points.size());
    const bool goesOn = shape == PolyShape::PolylineTo || shape == PolyShape::PolyBezierTo;
    if (shape != PolyShape::PolyPolyline && shape != PolyShape::PolyPolygon) {
        counts = {&whole, 1};
    }
    Outline outline;
    for (const DWORD count : counts) {
        std::span<const POINT> figure = points.first(std::min<std::size_t>(count, points.size()));
        points = points.subspan(figure.size());
        if (figure.empty()) {
            continue;
        }
        if (goesOn) {
            continueFrom(outline, wholePoint(mapping, context.state.position));
        } else {
            outline.moveTo(wholePoint(mapping, figure[0]));
            figure = figure.subspan(1);
        }
        if (isCurve(shape)) {
            appendCurves(outline, mapping, figure);
        } else {
            appendLines(outline, mapping, figure);
        }
        if (isArea(shape)) {
            outline.close();
        }
    }
    return goesOn ? putFromPosition(context, outline) : put(context, outline, isArea(shape));
}

bool ShapeDevice::box(DeviceContext& context, BoxShape shape, const RECT& rect, SIZE corner)
{
    ShapeFrame frame = frameOf(context, rect);
    const PenObject& pen = *context.state.pen;
    const bool inDevice = isInPixels(frame);
    if ((pen.style & PS_STYLE_MASK) == PS_INSIDEFRAME) {
        const PenLook look = lookOf(context, pen);
        const double inset = look.thin ? 0 : ((inDevice ? look.width : look.logicalWidth) - 1) / 2;
        frame = frame.inset(inset, inset);
    }
    if (frame.empty()) {
        return true;
    }
    if (inDevice && shape != BoxShape::Rectangle && hasNoPen(context)) {
        frame = filledFrame(frame);
    }
    switch (shape) {
    case BoxShape::Rectangle:
        if (inDevice && m_pathState != PathState::Open && drawPlainBox(context, frame)) {
            return true;
        }
        return put(context, rectangleOutline(frame), true);
    case BoxShape::Ellipse:
        return put(context, ellipseOutline(frame), true);
    case BoxShape::RoundRectangle:
        break;
    }
    const Mapping mapping = context.mapping();
    const double width = std::abs(static_cast<double>(corner.cx)) * (inDevice ? mapping.scaleX() : 1);
    const double height = std::abs(static_cast<double>(corner.cy)) * (inDevice ? mapping.scaleY() : 1);
    return put(context, roundRectOutline(frame, width, height), true);
}

bool ShapeDevice::arc(DeviceContext& context, ArcShape shape, const RECT& rect, POINT start, POINT end)
{
    ShapeFrame frame = frameOf(context, rect);
    if (frame.empty()) {
        return true;
    }
    const bool filled = shape == ArcShape::Chord || shape == ArcShape::Pie;
    const ArcSweep sweep =
        sweepBetween(frame, pointInFrame(context, frame, start), pointInFrame(context, frame, end),
                     context.state.arcDirection == AD_CLOCKWISE);
    if (filled && hasNoPen(context) && m_pathState != PathState::Open) {
        frame = isInPixels(frame) ? filledFrame(frame) : frame;
        if (isWhole(sweep)) {
            return put(context, ellipseOutline(frame), true);
        }
    }
    Outline outline;
    if (shape == ArcShape::ArcTo) {
        continueFrom(outline, wholePoint(context.mapping(), context.state.position));
        outline.lineTo(arcStart(frame, sweep));
    } else {
        outline.moveTo(arcStart(frame, sweep));
    }
    appendArc(outline, frame, sweep);
    if (shape == ArcShape::Pie) {
        outline.lineTo(frameCenter(frame));
    }
    if (filled) {
        outline.close();
    }
    return shape == ArcShape::ArcTo ? putFromPosition(context, outline) : put(context, outline, filled);
}

bool ShapeDevice::angleArc(DeviceContext& context, POINT center, DWORD radius, FLOAT startAngle,
                           FLOAT sweepAngle)
{
    const double x = center.x;
    const double y = center.y;
    const double r = radius;
    const ShapeFrame frame{x - r, y - r, x + r, y + r, context.mapping(), false};
    const double start = std::isfinite(startAngle) ? std::fmod(static_cast<double>(startAngle), 360.0) : 0.0;
    const ArcSweep sweep{inRadians(start), inRadians(static_cast<double>(sweepAngle))};
    Outline outline;
    continueFrom(outline, wholePoint(context.mapping(), context.state.position));
    outline.lineTo(arcStart(frame, sweep));
    appendArc(outline, frame, sweep);
    return putFromPosition(context, outline);
}

bool ShapeDevice::path(DeviceContext& context, PathStep step)
{
    switch (step) {
    case PathStep::Begin:
        m_path.clear();
        m_pathState = PathState::Open;
        m_pathMoved = true;
        m_pathWidened = false;
        return true;
    case PathStep::Abort:
        m_path.clear();
        m_pathState = PathState::None;
        return true;
    case PathStep::CloseFigure:
        m_path.close();
        return m_pathState == PathState::Open;
    case PathStep::End:
        if (m_pathState != PathState::Open) {
            return false;
        }
        m_pathState = PathState::Complete;
        return true;
    default:
        break;
    }
    if (m_pathState != PathState::Complete) {
        return false;
    }
    if (step == PathStep::Flatten || step == PathStep::Widen) {
        m_path = m_path.flattened();
        m_pathWidened = m_pathWidened || step == PathStep::Widen;
        return true;
    }
    const bool filled = step == PathStep::Fill || step == PathStep::StrokeAndFill;
    const bool stroked = step == PathStep::Stroke || step == PathStep::StrokeAndFill;
    if (!m_path.empty()) {
        drawPath(context, {step == PathStep::StrokeAndFill ? m_path.closed() : m_path, filled, stroked,
                           m_pathWidened});
    }
    m_path.clear();
    m_pathState = PathState::None;
    return true;
}

std::optional<Outline> ShapeDevice::takePath()
{
    if (m_pathState != PathState::Complete) {
        return std::nullopt;
    }
    m_pathState = PathState::None;
    return std::exchange(m_path, {});
}

} // namespace wingdi
