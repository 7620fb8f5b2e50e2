// The device that paints pixels: those of the bitmap which its context holds (DeviceContext::bitmap), be it a memory
// context or a page. Made by CreateCompatibleDC and by gdiCreateDevice; everybody else knows it as a Device.
//
// Two ways lead to the pixels. Rectangles, lines of one pixel, copies and flood fills go straight to the rows
// (Canvas), in every form of bitmap and with every raster operation. Curves, wide pens and glyphs are left to cairo
// (CairoPainter), which paints into the bitmap itself where it can and else into a mask that is laid down by rows.
//
// A pixel is a point of the grid: the pixel (x, y) belongs to a shape when the point (x, y) does, left and top edges
// included, right and bottom ones not. For cairo, which asks the middle of a pixel, shapes move by half a unit.
#pragma once

#include <windows.h>

#include <array>
#include <memory>

#include "CairoPainter.h"
#include "Device.h"
#include "Ink.h"
#include "Outline.h"
#include "PixelRows.h"
#include "gdidevice.h"

namespace wingdi {

class PixelSource;
struct PenLook;
struct ShapeFrame;

// A page's device.
std::unique_ptr<Device> makeRasterDevice(const GdiDeviceOptions& options);
// A memory context's, with the capabilities of the device that it is compatible with.
std::unique_ptr<Device> makeRasterDevice(const Device& reference);

class RasterDevice : public Device {
public:
    explicit RasterDevice(const GdiDeviceOptions& options);
    explicit RasterDevice(const Device& reference);

    int capability(int index) const override;
    void stateChanged(DeviceContext& context, StateField field) override;

    bool lineTo(DeviceContext& context, POINT from, POINT to) override;
    bool poly(DeviceContext& context, PolyShape shape, std::span<const POINT> points,
              std::span<const DWORD> counts) override;
    bool box(DeviceContext& context, BoxShape shape, const RECT& rect, SIZE corner) override;
    bool arc(DeviceContext& context, ArcShape shape, const RECT& rect, POINT start, POINT end) override;
    bool angleArc(DeviceContext& context, POINT center, DWORD radius, FLOAT startAngle,
                  FLOAT sweepAngle) override;
    bool path(DeviceContext& context, PathStep step) override;
    bool selectClipPath(DeviceContext& context, int mode) override;

    bool patternBlt(DeviceContext& context, std::span<const RECT> rects, const BrushObject& brush,
                    DWORD operation) override;
    bool fillRegion(DeviceContext& context, const Region& region,
                    const std::shared_ptr<BrushObject>& brush) override;
    bool floodFill(DeviceContext& context, POINT start, COLORREF color, UINT type) override;
    bool setPixel(DeviceContext& context, POINT point, COLORREF color) override;
    COLORREF pixel(DeviceContext& context, POINT point) override;

    bool copy(DeviceContext& context, const RECT& target, DeviceContext& source, const SourceArea& area,
              DWORD operation, bool stretch) override;
    bool copyDib(DeviceContext& context, const RECT& target, const BITMAPINFO* info, const void* bits,
                 UINT usage, const SourceArea& area, DWORD operation) override;

    bool text(DeviceContext& context, const TextOutput& output) override;

private:
    enum class PathState : unsigned char { None, Open, Complete };

    // Into the path while one is open, else onto the pixels.
    bool draw(DeviceContext& context, const Outline& outline, bool filled);
    // The figure that goes on from the current position: the path's last one, or a new one.
    void continueFrom(Outline& outline, DevicePoint from) const;
    void fill(Canvas& canvas, const Outline& outline, int fillMode, const Ink& ink);
    void stroke(Canvas& canvas, const Outline& outline, const PenLook& pen, const Ink& ink);
    void drawPath(DeviceContext& context, PathStep step);
    // Draws a rectangle in device units by rows; false, and nothing drawn, unless its pen is an unbroken line of one
    // pixel, or none.
    bool drawPlainBox(DeviceContext& context, const ShapeFrame& frame);
    void fillRects(DeviceContext& context, std::span<const RECT> rects, const Ink& ink);
    void lay(DeviceContext& context, Canvas& canvas, PixelSource& source, BYTE operation);
    void drawGlyphs(Canvas& canvas, const TextOutput& output, const Ink& ink);
    // A bar along the line of text, from `top` to `bottom` below its base line.
    void drawBar(Canvas& canvas, const TextOutput& output, double top, double bottom, const Ink& ink);
    // False when so many copies have succeeded that the next is to fail.
    bool mayStretch();

    std::array<int, 10> m_capabilities{};
    int m_failBlitsAfter = -1;
    int m_stretches = 0;
    InkPot m_inks;
    CairoPainter m_painter;
    PathState m_pathState = PathState::None;
    Outline m_path;
    bool m_pathMoved = false; // MoveToEx: the next line begins a figure
    bool m_pathWidened = false;
};

} // namespace wingdi
