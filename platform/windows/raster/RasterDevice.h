// The device that paints pixels: those of the bitmap which its context holds (DeviceContext::bitmap), be it a memory
// context or a page. Made by CreateCompatibleDC and by gdiCreateDevice; everybody else knows it as a Device.
//
// Two ways lead to the pixels. Rectangles, lines of one pixel, copies and flood fills go straight to the rows
// (Canvas), in every form of bitmap and with every raster operation. Curves, wide pens and glyphs are left to cairo
// (CairoPainter), which paints into the bitmap itself where it can and else into a mask that is laid down by rows.
//
// For cairo, which asks the middle of a pixel, shapes move by half a unit.
#pragma once

#include <windows.h>

#include <array>
#include <memory>

#include "CairoPainter.h"
#include "Ink.h"
#include "PixelRows.h"
#include "ShapeDevice.h"
#include "gdidevice.h"

namespace wingdi {

class PixelSource;
struct PenLook;

// A page's device.
std::unique_ptr<Device> makeRasterDevice(const GdiDeviceOptions& options);
// A memory context's, with the capabilities of the device that it is compatible with.
std::unique_ptr<Device> makeRasterDevice(const Device& reference);

class RasterDevice : public ShapeDevice {
public:
    explicit RasterDevice(const GdiDeviceOptions& options);
    explicit RasterDevice(const Device& reference);

    int capability(int index) const override;
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
    bool alphaBlend(DeviceContext& context, const RECT& target, DeviceContext& source, const SourceArea& area,
                    const AlphaShare& share) override;

    bool text(DeviceContext& context, const TextOutput& output) override;

protected:
    void drawShape(DeviceContext& context, const Outline& outline, bool isArea) override;
    void drawPath(DeviceContext& context, const DrawnPath& path) override;
    // By rows; only with a pen that is an unbroken line of one pixel, or with none.
    bool drawPlainBox(DeviceContext& context, const ShapeFrame& frame) override;

private:
    void fill(Canvas& canvas, const Outline& outline, int fillMode, const Ink& ink);
    void stroke(Canvas& canvas, const Outline& outline, const PenLook& pen, const Ink& ink);
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
};

} // namespace wingdi
