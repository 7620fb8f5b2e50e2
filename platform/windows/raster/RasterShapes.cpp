// RasterDevice: shapes with the context's pen and brush, and paths.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "DeviceContext.h"
#include "PenLook.h"
#include "RasterDevice.h"
#include "ShapeOutlines.h"

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

void RasterDevice::continueFrom(Outline& outline, DevicePoint from) const
{
    if (m_pathState != PathState::Open || m_pathMoved || !m_path.isOpen()) {
        outline.moveTo(from);
    }
}

bool RasterDevice::lineTo(DeviceContext& context, POINT from, POINT to)
{
    const Mapping mapping = context.mapping();
    Outline outline;
    continueFrom(outline, wholePoint(mapping, from));
    outline.lineTo(wholePoint(mapping, to));
    return draw(context, outline, false);
}

bool RasterDevice::poly(DeviceContext& context, PolyShape shape, std::span<const POINT> points,
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
    return draw(context, outline, isArea(shape));
}

bool RasterDevice::box(DeviceContext& context, BoxShape shape, const RECT& rect, SIZE corner)
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
        return draw(context, rectangleOutline(frame), true);
    case BoxShape::Ellipse:
        return draw(context, ellipseOutline(frame), true);
    case BoxShape::RoundRectangle:
        break;
    }
    const Mapping mapping = context.mapping();
    const double width = std::abs(static_cast<double>(corner.cx)) * (inDevice ? mapping.scaleX() : 1);
    const double height = std::abs(static_cast<double>(corner.cy)) * (inDevice ? mapping.scaleY() : 1);
    return draw(context, roundRectOutline(frame, width, height), true);
}

bool RasterDevice::drawPlainBox(DeviceContext& context, const ShapeFrame& frame)
{
    const PenLook look = lookOf(context, *context.state.pen);
    const auto penInk = m_inks.ofPen(context, *context.state.pen);
    if (penInk && (!look.thin || !look.dashes.empty())) {
        return false;
    }
    Canvas canvas(context);
    const auto unit = [](double value) {
        constexpr double Farthest = 1 << 26;
        return static_cast<LONG>(std::clamp(value, -Farthest, Farthest));
    };
    const RECT box{unit(frame.left), unit(frame.top), unit(frame.right), unit(frame.bottom)};
    const LONG edge = penInk ? 1 : 0;
    const RECT inside{box.left + edge, box.top + edge, box.right, box.bottom};
    if (const auto ink = m_inks.ofBrush(context, *context.state.brush, ternaryOfBinary(context.state.rop2))) {
        canvas.fill(inside, *ink);
    }
    if (!penInk) {
        return true;
    }
    canvas.fill({box.left, box.top, box.right + 1, box.top + 1}, *penInk);
    if (box.bottom > box.top) {
        canvas.fill({box.left, box.bottom, box.right + 1, box.bottom + 1}, *penInk);
        canvas.fill({box.left, box.top + 1, box.left + 1, box.bottom}, *penInk);
        if (box.right > box.left) {
            canvas.fill({box.right, box.top + 1, box.right + 1, box.bottom}, *penInk);
        }
    }
    return true;
}

bool RasterDevice::arc(DeviceContext& context, ArcShape shape, const RECT& rect, POINT start, POINT end)
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
            return draw(context, ellipseOutline(frame), true);
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
    return draw(context, outline, filled);
}

bool RasterDevice::angleArc(DeviceContext& context, POINT center, DWORD radius, FLOAT startAngle,
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
    return draw(context, outline, false);
}

} // namespace wingdi
