// A device that paints shapes: here the calls become outlines in device units, and go into a path or to whoever paints
// them, on pixels or on a page of vectors.
//
// A pixel is a point of the grid: the pixel (x, y) belongs to a shape when the point (x, y) does, left and top edges
// included, right and bottom ones not.
#pragma once

#include <windows.h>

#include <optional>

#include "Device.h"
#include "Outline.h"
#include "ShapeOutlines.h"

namespace wingdi {

class ShapeDevice : public Device {
public:
    void stateChanged(DeviceContext& context, StateField field) override;

    bool lineTo(DeviceContext& context, POINT from, POINT to) override;
    bool poly(DeviceContext& context, PolyShape shape, std::span<const POINT> points,
              std::span<const DWORD> counts) override;
    bool box(DeviceContext& context, BoxShape shape, const RECT& rect, SIZE corner) override;
    bool arc(DeviceContext& context, ArcShape shape, const RECT& rect, POINT start, POINT end) override;
    bool angleArc(DeviceContext& context, POINT center, DWORD radius, FLOAT startAngle,
                  FLOAT sweepAngle) override;
    bool path(DeviceContext& context, PathStep step) override;

protected:
    // What a path is drawn as, by its last step.
    struct DrawnPath {
        const Outline& outline;
        bool filled;
        bool stroked;
        bool widened; // what it surrounds is what its pen would have covered
    };

    // With the context's pen, and its brush where it is an area. The outline is not empty, nor that of a path.
    virtual void drawShape(DeviceContext& context, const Outline& outline, bool isArea) = 0;
    virtual void drawPath(DeviceContext& context, const DrawnPath& path) = 0;
    // A rectangle whose frame is in device units, by a shorter way; false, and nothing drawn, when there is none.
    virtual bool drawPlainBox(DeviceContext& /*context*/, const ShapeFrame& /*frame*/) { return false; }

    // The path that was ended, which is no more then; nothing when there is none.
    std::optional<Outline> takePath();

private:
    enum class PathState : unsigned char { None, Open, Complete };

    // Into the path while one is open, else onto the page.
    bool put(DeviceContext& context, const Outline& outline, bool filled);
    // The same of a figure from the current position on, which ends where the next one goes on.
    bool putFromPosition(DeviceContext& context, const Outline& outline);
    // The figure that goes on from the current position: the path's last one, or a new one.
    void continueFrom(Outline& outline, DevicePoint from) const;

    PathState m_pathState = PathState::None;
    Outline m_path;
    // The path's last point is not the current position: the next line begins a figure.
    bool m_pathMoved = false;
    bool m_pathWidened = false;
};

} // namespace wingdi
