#include "FreshAttributes.h"

#include "DeviceContext.h"

namespace wingdi {

namespace {

bool selectStock(HDC context, const GdiObject& selected, int index)
{
    return selected.stockIndex() == index || SelectObject(context, GetStockObject(index)) != nullptr;
}

template <class Result, class Value>
struct Setting {
    Value ContextState::*field;
    Result (*set)(HDC, Value);
};

constexpr Setting<COLORREF, COLORREF> Colors[] = {
    {&ContextState::textColor, SetTextColor},
    {&ContextState::backColor, SetBkColor},
};
constexpr Setting<UINT, UINT> Alignments[] = {
    {&ContextState::textAlign, SetTextAlign},
};
constexpr Setting<int, int> Modes[] = {
    {&ContextState::backMode, SetBkMode},
    {&ContextState::characterExtra, SetTextCharacterExtra},
    {&ContextState::rop2, SetROP2},
    {&ContextState::polyFillMode, SetPolyFillMode},
    {&ContextState::stretchMode, SetStretchBltMode},
    {&ContextState::arcDirection, SetArcDirection},
};

template <class Settings>
void refresh(HDC context, const ContextState& state, const ContextState& fresh, const Settings& settings)
{
    for (const auto& [field, set] : settings) {
        if (state.*field != fresh.*field) {
            set(context, fresh.*field);
        }
    }
}

bool differ(POINT first, POINT second) noexcept
{
    return first.x != second.x || first.y != second.y;
}

} // namespace

bool setFreshAttributes(HDC context, const ContextState& state)
{
    const ContextState fresh;
    refresh(context, state, fresh, Colors);
    refresh(context, state, fresh, Alignments);
    refresh(context, state, fresh, Modes);
    if (state.breakExtra != fresh.breakExtra || state.breakCount != fresh.breakCount) {
        SetTextJustification(context, fresh.breakExtra, fresh.breakCount);
    }
    if (state.miterLimit != fresh.miterLimit) {
        SetMiterLimit(context, fresh.miterLimit, nullptr);
    }
    if (differ(state.brushOrigin, fresh.brushOrigin)) {
        SetBrushOrgEx(context, fresh.brushOrigin.x, fresh.brushOrigin.y, nullptr);
    }
    if (differ(state.position, fresh.position)) {
        MoveToEx(context, fresh.position.x, fresh.position.y, nullptr);
    }
    return selectStock(context, *state.pen, BLACK_PEN) && selectStock(context, *state.brush, WHITE_BRUSH) &&
           selectStock(context, *state.font, SYSTEM_FONT);
}

} // namespace wingdi
