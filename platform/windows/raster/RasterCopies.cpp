// RasterDevice: copies of pixels from contexts and from memory.
#include <algorithm>
#include <cstdint>
#include <vector>

#include "DeviceContext.h"
#include "PixelSource.h"
#include "RasterDevice.h"

namespace wingdi {

namespace {

ColorRule ruleBetween(const DeviceContext& target, const DeviceContext& source)
{
    const bool toMonochrome = target.bitmap->bitmap->isMonochrome();
    if (toMonochrome == source.bitmap->bitmap->isMonochrome()) {
        return {};
    }
    if (toMonochrome) {
        return {ColorRule::Kind::ToMonochrome, pixelOf(source.state.backColor), 0};
    }
    return {ColorRule::Kind::FromMonochrome, pixelOf(target.state.backColor),
            pixelOf(target.state.textColor)};
}

bool holdsPixels(const DeviceContext& context)
{
    return context.bitmap && context.bitmap->bitmap;
}

// AlphaBlend's formula, of one pixel.
DWORD blended(DWORD below, DWORD above, const AlphaShare& share)
{
    constexpr DWORD Full = 255;
    const DWORD ofPixel = share.ofPixels ? above >> 24 : Full;
    const DWORD rest = Full - (ofPixel * share.whole + Full / 2) / Full;
    DWORD result = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        const DWORD sum = (above >> shift & Full) * share.whole + (below >> shift & Full) * rest;
        result |= std::min((sum + Full / 2) / Full, Full) << shift;
    }
    return result;
}

} // namespace

void RasterDevice::lay(DeviceContext& context, Canvas& canvas, PixelSource& source, BYTE operation)
{
    std::optional<Ink> ink;
    if (usesPattern(operation)) {
        ink = m_inks.ofBrush(context, *context.state.brush, operation);
        if (!ink) {
            return;
        }
    }
    std::vector<DWORD> pattern;
    canvas.change(source.box(), [&](DWORD* pixels, int x, int y, int count) {
        const PixelSource::Stretch stretch = source.read(x, y, count);
        if (stretch.count == 0) {
            return;
        }
        const auto length = static_cast<std::size_t>(stretch.count);
        if (!ink || !ink->tile) {
            combine(operation, pixels + stretch.offset, ink ? ink->color : 0, stretch.pixels, length);
            return;
        }
        pattern.resize(length);
        ink->pattern(pattern.data(), x + stretch.offset, y, stretch.count);
        combine(operation, pixels + stretch.offset, pattern.data(), stretch.pixels, length);
    });
}

bool RasterDevice::copy(DeviceContext& context, const RECT& target, DeviceContext& source,
                        const SourceArea& area, DWORD operation, bool stretch)
{
    if (!holdsPixels(context) || !holdsPixels(source) || (stretch && !mayStretch())) {
        return false;
    }
    Canvas canvas(context);
    BitmapView view = source.bitmap->bitmap->view();
    // A bitmap that is copied onto itself is read before it changes.
    std::vector<BYTE> before;
    if (source.bitmap == context.bitmap) {
        before.assign(view.bits.begin(), view.bits.end());
        view.bits = before;
    }
    const bool oneBit = view.bitsPerPixel == 1 || context.bitmap->bitmap->isMonochrome();
    CornerPair corners = cornersOf(area, source.mapping());
    if (stretch) {
        takeFirstPixel(corners, area.width < 0, area.height < 0);
    }
    PixelSource pixels(view, corners, target, context.mapping(), canvas.box(),
                       {ruleBetween(context, source),
                        shrinkingFor(context.state.stretchMode, ternaryOf(operation), oneBit), stretch});
    lay(context, canvas, pixels, ternaryOf(operation));
    m_stretches += stretch ? 1 : 0;
    return true;
}

bool RasterDevice::copyDib(DeviceContext& context, const RECT& target, const BITMAPINFO* info,
                           const void* bits, UINT usage, const SourceArea& area, DWORD operation)
{
    const std::optional<DibHead> head = readPictureHead(info, usage);
    if (!head || bits == nullptr || !holdsPixels(context)) {
        return false;
    }
    std::shared_ptr<Bitmap> expanded;
    const std::optional<BitmapView> view = viewOf(*head, info, bits, usage, expanded);
    if (!view) {
        return false;
    }
    Canvas canvas(context);
    const CornerPair corners = cornersOfDib(area, head->bottomUp);
    const Shrinking shrinking =
        shrinkingFor(context.state.stretchMode, ternaryOf(operation), view->bitsPerPixel == 1);
    PixelSource pixels(*view, corners, target, context.mapping(), canvas.box(), {{}, shrinking, true});
    lay(context, canvas, pixels, ternaryOf(operation));
    return true;
}

bool RasterDevice::alphaBlend(DeviceContext& context, const RECT& target, DeviceContext& source,
                              const SourceArea& area, const AlphaShare& share)
{
    if (!holdsPixels(context) || !holdsPixels(source)) {
        return false;
    }
    Canvas canvas(context);
    BitmapView view = source.bitmap->bitmap->view();
    std::vector<BYTE> before;
    if (source.bitmap == context.bitmap) {
        before.assign(view.bits.begin(), view.bits.end());
        view.bits = before;
    }
    PixelSource pixels(view, cornersOf(area, source.mapping()), target, context.mapping(), canvas.box(),
                       {ruleBetween(context, source), Shrinking::Nearest, false});
    canvas.change(pixels.box(), [&](DWORD* row, int x, int y, int count) {
        const PixelSource::Stretch stretch = pixels.read(x, y, count);
        for (int i = 0; i < stretch.count; ++i) {
            DWORD& below = row[stretch.offset + i];
            below = blended(below, stretch.pixels[i], share);
        }
    });
    return true;
}

} // namespace wingdi
