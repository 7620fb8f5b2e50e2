// Pens and brushes.
#include <algorithm>
#include <bit>
#include <utility>

#include "DeviceContext.h"
#include "HandleTable.h"
#include "StockObjects.h"
#include "failWith.h"

using namespace wingdi;

namespace {

constexpr COLORREF ColorMask = 0xFFFFFF;
constexpr DWORD MostDashes = 16;

bool isHatch(ULONG_PTR hatch) noexcept
{
    return hatch <= ULONG_PTR{HS_DIAGCROSS};
}

bool soundDashes(DWORD style, DWORD count, const DWORD* dashes)
{
    if (style != PS_USERSTYLE) {
        return count == 0 && dashes == nullptr;
    }
    if (count == 0 || count > MostDashes || dashes == nullptr) {
        return false;
    }
    const std::span all(dashes, count);
    return std::ranges::any_of(all, [](DWORD dash) { return dash != 0; });
}

// A cosmetic pen is one pixel wide and of one colour. Width 0 stands for the same in records.
bool soundPen(DWORD style, DWORD width, const LOGBRUSH& brush)
{
    const DWORD line = style & PS_STYLE_MASK;
    const bool geometric = (style & PS_TYPE_MASK) == PS_GEOMETRIC;
    if ((style & ~(PS_STYLE_MASK | PS_ENDCAP_MASK | PS_JOIN_MASK | PS_GEOMETRIC)) != 0 ||
        line > PS_ALTERNATE || (style & PS_ENDCAP_MASK) > PS_ENDCAP_FLAT ||
        (style & PS_JOIN_MASK) > PS_JOIN_MITER) {
        return false;
    }
    if (!geometric) {
        return width <= 1 && line != PS_INSIDEFRAME && brush.lbStyle == BS_SOLID;
    }
    return line != PS_ALTERNATE &&
           (brush.lbStyle == BS_SOLID || brush.lbStyle == BS_NULL || brush.lbStyle == BS_PATTERN ||
            brush.lbStyle == BS_DIBPATTERNPT || (brush.lbStyle == BS_HATCHED && isHatch(brush.lbHatch)));
}

// A copy of a bitmap's pixels; null when there is none of this handle.
std::shared_ptr<const Bitmap> patternOf(HBITMAP bitmap)
{
    const auto found = HandleTable::instance().find<BitmapObject>(bitmap, ObjectKind::Bitmap);
    return found ? std::make_shared<const Bitmap>(*found->bitmap)
                 : failWith(ERROR_INVALID_HANDLE, std::shared_ptr<const Bitmap>());
}

// Of head, colours and rows in one piece; null for a form that brushes do not have.
std::shared_ptr<const Bitmap> patternOf(const void* packed, UINT usage)
{
    const std::optional<DibHead> head = readDibHead(static_cast<const BITMAPINFO*>(packed), usage);
    return head ? Bitmap::createDib(*head, static_cast<const BYTE*>(packed) + head->headBytes)
                : failWith(ERROR_INVALID_PARAMETER, std::shared_ptr<Bitmap>());
}

std::shared_ptr<const Bitmap> patternOf(const LOGBRUSH& brush)
{
    switch (brush.lbStyle) {
    case BS_PATTERN:
        return patternOf(std::bit_cast<HBITMAP>(brush.lbHatch));
    case BS_DIBPATTERNPT:
        return patternOf(std::bit_cast<const void*>(brush.lbHatch), brush.lbColor & 0xFFFF);
    default:
        return nullptr;
    }
}

HBRUSH addBrush(std::shared_ptr<BrushObject> brush)
{
    return static_cast<HBRUSH>(HandleTable::instance().add(std::move(brush)));
}

HBRUSH addPatternBrush(UINT style, std::shared_ptr<const Bitmap> pattern)
{
    if (!pattern) {
        return nullptr;
    }
    auto brush = std::make_shared<BrushObject>();
    brush->style = style;
    brush->pattern = std::move(pattern);
    return addBrush(std::move(brush));
}

} // namespace

HPEN CreatePen(int style, int width, COLORREF color)
{
    if (style < 0 || style > static_cast<int>(PS_INSIDEFRAME)) {
        return failWith(ERROR_INVALID_PARAMETER, nullptr);
    }
    return guarded<HPEN>(nullptr, [&] {
        auto pen = std::make_shared<PenObject>();
        const auto line = static_cast<DWORD>(style);
        pen->width = width < 0 ? 0U - static_cast<DWORD>(width) : static_cast<DWORD>(width);
        const bool dashed = line >= PS_DASH && line <= PS_DASHDOTDOT;
        pen->style = dashed && pen->width > 1 ? PS_SOLID : line; // thin pens only have dashes
        pen->color = color & ColorMask;
        return static_cast<HPEN>(HandleTable::instance().add(std::move(pen)));
    });
}

HPEN ExtCreatePen(DWORD style, DWORD width, const LOGBRUSH* brush, DWORD dashCount, const DWORD* dashes)
{
    if (brush == nullptr || !soundPen(style, width, *brush) ||
        !soundDashes(style & PS_STYLE_MASK, dashCount, dashes)) {
        return failWith(ERROR_INVALID_PARAMETER, nullptr);
    }
    return guarded<HPEN>(nullptr, [&]() -> HPEN {
        auto pen = std::make_shared<PenObject>();
        pen->pattern = patternOf(*brush);
        const bool isPatterned = brush->lbStyle == BS_PATTERN || brush->lbStyle == BS_DIBPATTERNPT;
        if (isPatterned && !pen->pattern) {
            return nullptr;
        }
        pen->style = style;
        pen->width = width;
        pen->color = isPatterned ? 0 : brush->lbColor & ColorMask;
        pen->brushStyle = brush->lbStyle;
        pen->hatch = brush->lbStyle == BS_HATCHED ? static_cast<DWORD>(brush->lbHatch) : 0;
        pen->extended = true;
        pen->dashes.assign(dashes, dashes + dashCount);
        return static_cast<HPEN>(HandleTable::instance().add(std::move(pen)));
    });
}

HBRUSH CreateBrushIndirect(const LOGBRUSH* brush)
{
    if (brush == nullptr) {
        return failWith(ERROR_INVALID_PARAMETER, nullptr);
    }
    switch (brush->lbStyle) {
    case BS_SOLID:
        return CreateSolidBrush(brush->lbColor);
    case BS_NULL:
        return guarded<HBRUSH>(nullptr, [] {
            auto hollow = std::make_shared<BrushObject>();
            hollow->style = BS_NULL;
            return addBrush(std::move(hollow));
        });
    case BS_HATCHED:
        return isHatch(brush->lbHatch) ? CreateHatchBrush(static_cast<int>(brush->lbHatch), brush->lbColor)
                                       : failWith(ERROR_INVALID_PARAMETER, nullptr);
    case BS_PATTERN:
        return CreatePatternBrush(std::bit_cast<HBITMAP>(brush->lbHatch));
    case BS_DIBPATTERNPT:
        return CreateDIBPatternBrushPt(std::bit_cast<const void*>(brush->lbHatch), brush->lbColor & 0xFFFF);
    default:
        return failWith(ERROR_INVALID_PARAMETER, nullptr);
    }
}

HBRUSH CreateSolidBrush(COLORREF color)
{
    return guarded<HBRUSH>(nullptr, [&] { return addBrush(makeSolidBrush(color)); });
}

HBRUSH CreateHatchBrush(int hatch, COLORREF color)
{
    if (hatch < HS_HORIZONTAL || hatch > HS_DIAGCROSS) {
        return failWith(ERROR_INVALID_PARAMETER, nullptr);
    }
    return guarded<HBRUSH>(nullptr, [&] {
        auto brush = makeSolidBrush(color);
        brush->style = BS_HATCHED;
        brush->hatch = static_cast<DWORD>(hatch);
        return addBrush(std::move(brush));
    });
}

HBRUSH CreatePatternBrush(HBITMAP bitmap)
{
    return guarded<HBRUSH>(nullptr, [&] { return addPatternBrush(BS_PATTERN, patternOf(bitmap)); });
}

HBRUSH CreateDIBPatternBrushPt(const void* packed, UINT usage)
{
    return guarded<HBRUSH>(nullptr,
                           [&] { return addPatternBrush(BS_DIBPATTERNPT, patternOf(packed, usage)); });
}
