// Fills with a brush that is handed over: rectangles, frames, regions, floods.
#include <algorithm>
#include <bit>
#include <vector>

#include "DeviceContext.h"
#include "HandleTable.h"
#include "StockObjects.h"
#include "failWith.h"

using namespace wingdi;

namespace {

// FillRect also takes the number of a system colour, plus 1, in the place of a handle.
std::shared_ptr<BrushObject> fillBrush(HBRUSH handle)
{
    constexpr ULONG_PTR MostSystemColors = 32;
    const auto value = std::bit_cast<ULONG_PTR>(handle);
    if (value > 0 && value <= MostSystemColors) {
        return makeSolidBrush(GetSysColor(static_cast<int>(value) - 1));
    }
    return HandleTable::instance().find<BrushObject>(handle, ObjectKind::Brush);
}

bool isEmpty(const RECT& rect) noexcept
{
    return rect.left >= rect.right || rect.top >= rect.bottom;
}

// The sides of a frame of one unit. No two overlap, so that inverting them twice brings everything back.
std::vector<RECT> frameStrips(const RECT& rect)
{
    std::vector<RECT> strips{{rect.left, rect.top, rect.right, rect.top + 1}};
    if (rect.bottom - 1 > rect.top) {
        strips.push_back({rect.left, rect.bottom - 1, rect.right, rect.bottom});
    }
    if (rect.bottom - 1 > rect.top + 1) {
        strips.push_back({rect.left, rect.top + 1, rect.left + 1, rect.bottom - 1});
        if (rect.right - 1 > rect.left) {
            strips.push_back({rect.right - 1, rect.top + 1, rect.right, rect.bottom - 1});
        }
    }
    return strips;
}

// Every other pixel white on black: inverting with it is the same whatever the context's colours are.
std::shared_ptr<const BrushObject> dottedBrush()
{
    auto pattern = Bitmap::create(8, 8, 1, false, true);
    if (!pattern) {
        return nullptr;
    }
    for (int y = 0; y < 8; ++y) {
        *pattern->row(y) = y % 2 == 0 ? 0x55 : 0xAA;
    }
    auto brush = std::make_shared<BrushObject>();
    brush->style = BS_DIBPATTERNPT;
    brush->pattern = std::move(pattern);
    return brush;
}

} // namespace

int FillRect(HDC context, const RECT* rect, HBRUSH brush)
{
    return onContext(context, "FillRect", FALSE, [&](DeviceContext& found) {
        const std::shared_ptr<BrushObject> fill = fillBrush(brush);
        if (rect == nullptr || !fill) {
            return failWith(fill ? ERROR_INVALID_PARAMETER : ERROR_INVALID_HANDLE, FALSE);
        }
        // Where an axis points the other way, top and bottom or left and right come the other way round.
        const auto [left, right] = std::minmax(rect->left, rect->right);
        const auto [top, bottom] = std::minmax(rect->top, rect->bottom);
        const RECT area{left, top, right, bottom};
        return isEmpty(area) || found.device().patternBlt(found, {&area, 1}, *fill, PATCOPY) ? TRUE : FALSE;
    });
}

int FrameRect(HDC context, const RECT* rect, HBRUSH brush)
{
    return onContext(context, "FrameRect", FALSE, [&](DeviceContext& found) {
        const auto frame = HandleTable::instance().find<BrushObject>(brush, ObjectKind::Brush);
        if (rect == nullptr || !frame || isEmpty(*rect)) {
            return failWith(frame ? ERROR_INVALID_PARAMETER : ERROR_INVALID_HANDLE, FALSE);
        }
        return found.device().patternBlt(found, frameStrips(*rect), *frame, PATCOPY) ? TRUE : FALSE;
    });
}

BOOL DrawFocusRect(HDC context, const RECT* rect)
{
    return onContext(context, "DrawFocusRect", FALSE, [&](DeviceContext& found) {
        if (rect == nullptr) {
            return failWith(ERROR_INVALID_PARAMETER, FALSE);
        }
        static const std::shared_ptr<const BrushObject> Dotted = dottedBrush();
        if (!Dotted) {
            return failWith(ERROR_NOT_ENOUGH_MEMORY, FALSE);
        }
        return isEmpty(*rect) || found.device().patternBlt(found, frameStrips(*rect), *Dotted, PATINVERT)
                   ? TRUE
                   : FALSE;
    });
}

BOOL FillRgn(HDC context, HRGN region, HBRUSH brush)
{
    return onContext(context, "FillRgn", FALSE, [&](DeviceContext& found) {
        const auto area = HandleTable::instance().find<RegionObject>(region, ObjectKind::Region);
        const auto fill = HandleTable::instance().find<BrushObject>(brush, ObjectKind::Brush);
        if (!area || !fill) {
            return failWith(ERROR_INVALID_HANDLE, FALSE);
        }
        return found.device().fillRegion(found, area->region, fill) ? TRUE : FALSE;
    });
}

BOOL ExtFloodFill(HDC context, int x, int y, COLORREF color, UINT type)
{
    return onContext(context, "ExtFloodFill", FALSE, [&](DeviceContext& found) {
        if (type > FLOODFILLSURFACE) {
            return failWith(ERROR_INVALID_PARAMETER, FALSE);
        }
        return found.device().floodFill(found, {x, y}, color & 0xFFFFFF, type) ? TRUE : FALSE;
    });
}
