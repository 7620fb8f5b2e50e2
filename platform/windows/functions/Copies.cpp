// Copies of pixels between contexts and from memory, and single pixels.
#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "DeviceContext.h"
#include "failWith.h"

using namespace wingdi;

namespace {

LONG sum(std::int64_t first, std::int64_t second) noexcept
{
    return static_cast<LONG>(std::clamp<std::int64_t>(first + second, INT32_MIN, INT32_MAX));
}

RECT rectAt(int x, int y, int width, int height) noexcept
{
    return {x, y, sum(x, width), sum(y, height)};
}

// The result of a ternary operation takes the source along when its truth table differs for source 0 and 1.
bool needsSource(DWORD operation) noexcept
{
    const DWORD table = (operation >> 16) & 0xFF;
    return (((table >> 2) ^ table) & 0x33) != 0;
}

bool fillWithPattern(DeviceContext& context, const RECT& rect, DWORD operation)
{
    const RECT ordered{std::min(rect.left, rect.right), std::min(rect.top, rect.bottom),
                       std::max(rect.left, rect.right), std::max(rect.top, rect.bottom)};
    if (ordered.left == ordered.right || ordered.top == ordered.bottom) {
        return true;
    }
    return context.device().patternBlt(context, {&ordered, 1}, *context.state.brush, operation);
}

// Whether the area lies on the context's bitmap.
bool holds(DeviceContext& context, const SourceArea& area)
{
    const Mapping mapping = context.mapping();
    const POINT first = mapping.toDevice({area.x, area.y});
    const POINT second = mapping.toDevice({sum(area.x, area.width), sum(area.y, area.height)});
    const Bitmap& bitmap = *context.bitmap->bitmap;
    return std::min(first.x, second.x) >= 0 && std::min(first.y, second.y) >= 0 &&
           std::max(first.x, second.x) <= bitmap.width() && std::max(first.y, second.y) <= bitmap.height();
}

BOOL copyBetween(HDC targetHandle, const char* function, const RECT& target, HDC sourceHandle,
                 const SourceArea& area, DWORD operation, bool stretch)
{
    return onContext(targetHandle, function, FALSE, [&](DeviceContext& context) {
        if (!needsSource(operation)) {
            return fillWithPattern(context, target, operation) ? TRUE : FALSE;
        }
        const auto copy = [&](DeviceContext& source) {
            const bool nothing = target.left == target.right || target.top == target.bottom ||
                                 area.width == 0 || area.height == 0;
            return nothing || context.device().copy(context, target, source, area, operation, stretch)
                       ? TRUE
                       : FALSE;
        };
        // A context named twice got the call once.
        return sourceHandle == targetHandle ? copy(context) : onContext(sourceHandle, function, FALSE, copy);
    });
}

} // namespace

BOOL BitBlt(HDC target, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
            DWORD operation)
{
    return copyBetween(target, "BitBlt", rectAt(x, y, width, height), source,
                       {sourceX, sourceY, width, height}, operation, false);
}

BOOL StretchBlt(HDC target, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
                int sourceWidth, int sourceHeight, DWORD operation)
{
    return copyBetween(target, "StretchBlt", rectAt(x, y, width, height), source,
                       {sourceX, sourceY, sourceWidth, sourceHeight}, operation, true);
}

BOOL GdiAlphaBlend(HDC target, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
                   int sourceWidth, int sourceHeight, BLENDFUNCTION function)
{
    return onContext(target, "GdiAlphaBlend", FALSE, [&](DeviceContext& context) {
        const auto blend = [&](DeviceContext& from) {
            const bool isSound = width >= 0 && height >= 0 && sourceWidth >= 0 && sourceHeight >= 0 &&
                                 function.BlendOp == AC_SRC_OVER && function.AlphaFormat <= AC_SRC_ALPHA &&
                                 from.bitmap && from.bitmap->bitmap;
            if (!isSound || !holds(from, {sourceX, sourceY, sourceWidth, sourceHeight})) {
                return failWith(ERROR_INVALID_PARAMETER, FALSE);
            }
            const bool ofPixels = function.AlphaFormat == AC_SRC_ALPHA;
            if (ofPixels && from.bitmap->bitmap->bitsPerPixel() != 32) {
                return failWith(ERROR_INVALID_PARAMETER, FALSE);
            }
            const bool nothing = width == 0 || height == 0 || sourceWidth == 0 || sourceHeight == 0;
            const AlphaShare share{function.SourceConstantAlpha, ofPixels};
            return nothing ||
                           context.device().alphaBlend(context, rectAt(x, y, width, height), from,
                                                       {sourceX, sourceY, sourceWidth, sourceHeight}, share)
                       ? TRUE
                       : FALSE;
        };
        return source == target ? blend(context) : onContext(source, "GdiAlphaBlend", FALSE, blend);
    });
}

int StretchDIBits(HDC target, int x, int y, int width, int height, int sourceX, int sourceY, int sourceWidth,
                  int sourceHeight, const void* bits, const BITMAPINFO* info, UINT usage, DWORD operation)
{
    return onContext(target, "StretchDIBits", 0, [&](DeviceContext& context) {
        const RECT rect = rectAt(x, y, width, height);
        if (!needsSource(operation)) {
            return fillWithPattern(context, rect, operation) ? std::max(1, std::abs(height)) : 0;
        }
        const std::optional<DibHead> head = readPictureHead(info, usage);
        if (!head || bits == nullptr) {
            return failWith(ERROR_INVALID_PARAMETER, 0);
        }
        const int top =
            head->bottomUp ? sum(head->height, -std::int64_t{sourceY} - std::int64_t{sourceHeight}) : sourceY;
        const SourceArea area{sourceX, top, sourceWidth, sourceHeight};
        const bool nothing = width == 0 || height == 0 || sourceWidth == 0 || sourceHeight == 0;
        if (!nothing && !context.device().copyDib(context, rect, info, bits, usage, area, operation)) {
            return 0;
        }
        return static_cast<int>(std::min(std::abs(std::int64_t{sourceHeight}), std::int64_t{head->height}));
    });
}

BOOL PatBlt(HDC context, int x, int y, int width, int height, DWORD operation)
{
    return onContext(context, "PatBlt", FALSE, [&](DeviceContext& found) {
        if (needsSource(operation)) {
            return failWith(ERROR_INVALID_PARAMETER, FALSE);
        }
        return fillWithPattern(found, rectAt(x, y, width, height), operation) ? TRUE : FALSE;
    });
}

COLORREF GetPixel(HDC context, int x, int y)
{
    return onContext(context, "GetPixel", CLR_INVALID, [&](DeviceContext& found) {
        return found.device().pixel(found, {x, y});
    });
}

BOOL SetPixelV(HDC context, int x, int y, COLORREF color)
{
    return onContext(context, "SetPixelV", FALSE, [&](DeviceContext& found) {
        return found.device().setPixel(found, {x, y}, color & 0xFFFFFF) ? TRUE : FALSE;
    });
}
