// Outlines of the shapes that a bounding rectangle describes.
#pragma once

#include <windows.h>

#include "Device.h"
#include "Outline.h"
#include "Region.h"

namespace wingdi {

// The bounding rectangle of a shape, as points of the grid that both belong to it, and the way from its units to
// device units.
struct ShapeFrame {
    double left;
    double top;
    double right;
    double bottom;
    Mapping toDevice; // the identity where the rectangle is in device units already
    bool mirrored;    // what runs counter-clockwise in logical units runs clockwise in those of the frame

    bool empty() const { return left > right || top > bottom; }
    // Smaller by so much on each side, in units of the frame.
    ShapeFrame inset(double x, double y) const;
};

// In GM_COMPATIBLE right and bottom are left out, and the frame is in device units, as it is in GM_ADVANCED without
// rotation; else it is in logical units.
ShapeFrame frameOf(const DeviceContext& context, const RECT& rect);
// All of a rectangle in logical units.
ShapeFrame wholeFrame(const Mapping& mapping, const RECT& rect);
// The device rectangle around a logical one, cut off at +-2^26; right and bottom excluded from both.
RECT deviceBox(const Mapping& mapping, const RECT& rect);
// The pixels of an area, within a rectangle at least: what lies beyond may be left out.
Region visibleRegion(const Outline& outline, const RECT& visible, int fillMode);
// A logical point in the frame's units.
DevicePoint pointInFrame(const DeviceContext& context, const ShapeFrame& frame, POINT point);

Outline rectangleOutline(const ShapeFrame& frame);
Outline ellipseOutline(const ShapeFrame& frame);
// The corners are those of an ellipse of this width and height, in units of the frame.
Outline roundRectOutline(const ShapeFrame& frame, double cornerWidth, double cornerHeight);

// A piece of an ellipse. Angles are those of the circle that the ellipse was before it was flattened, in radians,
// counter-clockwise from the right.
struct ArcSweep {
    double start;
    double sweep;
};
// Between the radials through two points; the whole ellipse when they are one.
ArcSweep sweepBetween(const ShapeFrame& frame, DevicePoint start, DevicePoint end, bool clockwise);
bool isWhole(const ArcSweep& arc) noexcept;
DevicePoint arcStart(const ShapeFrame& frame, const ArcSweep& arc);
// Adds the arc to a figure whose last point is its start.
void appendArc(Outline& outline, const ShapeFrame& frame, const ArcSweep& arc);
DevicePoint frameCenter(const ShapeFrame& frame);

} // namespace wingdi
