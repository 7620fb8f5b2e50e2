// RasterDevice: fills with a brush that is handed over, floods, single pixels.
#include "DeviceContext.h"
#include "FloodFill.h"
#include "RasterDevice.h"
#include "ShapeOutlines.h"

namespace wingdi {

void RasterDevice::fillRects(DeviceContext& context, std::span<const RECT> rects, const Ink& ink)
{
    Canvas canvas(context);
    const Mapping mapping = context.mapping();
    for (const RECT& rect : rects) {
        if (!mapping.isAxisAligned()) {
            fill(canvas, rectangleOutline(wholeFrame(mapping, rect)), WINDING, ink);
            continue;
        }
        canvas.fill(deviceBox(mapping, rect), ink);
    }
}

bool RasterDevice::patternBlt(DeviceContext& context, std::span<const RECT> rects, const BrushObject& brush,
                              DWORD operation)
{
    const BYTE table = ternaryOf(operation);
    if (!usesPattern(table)) {
        fillRects(context, rects, Ink{table, 0, nullptr, {0, 0}});
    } else if (const auto ink = m_inks.ofBrush(context, brush, table)) {
        fillRects(context, rects, *ink);
    }
    return true;
}

bool RasterDevice::fillRegion(DeviceContext& context, const Region& region,
                              const std::shared_ptr<BrushObject>& brush)
{
    if (const auto ink = m_inks.ofBrush(context, *brush, ternaryOfBinary(context.state.rop2))) {
        fillRects(context, region.rectangles(), *ink);
    }
    return true;
}

bool RasterDevice::floodFill(DeviceContext& context, POINT start, COLORREF color, UINT type)
{
    Canvas canvas(context);
    const POINT at = context.mapping().toDevice(start);
    const auto ink = m_inks.ofBrush(context, *context.state.brush, CopyPattern);
    return flood(canvas, at, pixelOf(color), type == FLOODFILLBORDER, ink);
}

bool RasterDevice::setPixel(DeviceContext& context, POINT point, COLORREF color)
{
    Canvas canvas(context);
    const POINT at = context.mapping().toDevice(point);
    if (!canvas.contains(at.x, at.y)) {
        return false;
    }
    canvas.fillSpan(at.y, at.x, at.x + 1, Ink{CopyPattern, pixelOf(color), nullptr, {0, 0}});
    return true;
}

COLORREF RasterDevice::pixel(DeviceContext& context, POINT point)
{
    const Canvas canvas(context);
    const POINT at = context.mapping().toDevice(point);
    return canvas.contains(at.x, at.y) ? colorOf(canvas.view().pixel(at.x, at.y)) : CLR_INVALID;
}

} // namespace wingdi
