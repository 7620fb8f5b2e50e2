// The screen that nobody sees: it answers and measures, and takes all drawing without painting.
#pragma once

#include "Device.h"

namespace wingdi {

class ScreenDevice : public Device {
public:
    // The measures of the screen: 508 mm of 1920 pixels are 96 dots per inch exactly.
    static constexpr int Width = 1920;
    static constexpr int Height = 1440;
    static constexpr int WidthMillimeters = 508;
    static constexpr int HeightMillimeters = 381;
    static constexpr int DotsPerInch = 96;

    int capability(int index) const override;

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
};

} // namespace wingdi
