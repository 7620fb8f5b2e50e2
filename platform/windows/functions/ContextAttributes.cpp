// The state of a context: colours, modes, brush origin, position; saving and restoring it all.
#include <cmath>
#include <utility>

#include "DeviceContext.h"
#include "failWith.h"

using namespace wingdi;

namespace {

// Enough for every drawing; files that save without end are refused there.
constexpr std::size_t DeepestSave = 4096;

template <class Value>
Value read(HDC handle, const char* function, Value failure, Value ContextState::*field)
{
    return onContext(handle, function, failure, [&](DeviceContext& context) { return context.state.*field; });
}

template <class Value>
Value change(HDC handle, const char* function, Value failure, Value ContextState::*field, Value value,
             StateField changed)
{
    return onContext(handle, function, failure, [&](DeviceContext& context) {
        const Value former = std::exchange(context.state.*field, value);
        context.device().stateChanged(context, changed);
        return former;
    });
}

// A mode from `first` to `last`; 0 for others.
int changeMode(HDC handle, const char* function, int ContextState::*field, int mode, int first, int last,
               StateField changed)
{
    if (mode < first || mode > last) {
        return failWith(ERROR_INVALID_PARAMETER, 0);
    }
    return change(handle, function, 0, field, mode, changed);
}

template <class Value>
BOOL readInto(HDC handle, const char* function, Value* result, Value ContextState::*field)
{
    return onContext(handle, function, FALSE, [&](DeviceContext& context) {
        if (result == nullptr) {
            return FALSE;
        }
        *result = context.state.*field;
        return TRUE;
    });
}

template <class Value>
BOOL changePlace(HDC handle, const char* function, Value ContextState::*field, Value value, Value* former,
                 StateField changed)
{
    return onContext(handle, function, FALSE, [&](DeviceContext& context) {
        const Value old = std::exchange(context.state.*field, value);
        if (former != nullptr) {
            *former = old;
        }
        context.device().stateChanged(context, changed);
        return TRUE;
    });
}

constexpr COLORREF ColorMask = 0xFFFFFF;

} // namespace

COLORREF SetBkColor(HDC context, COLORREF color)
{
    return change(context, "SetBkColor", CLR_INVALID, &ContextState::backColor, color & ColorMask,
                  StateField::BackColor);
}

COLORREF GetBkColor(HDC context)
{
    return read(context, "GetBkColor", CLR_INVALID, &ContextState::backColor);
}

COLORREF SetTextColor(HDC context, COLORREF color)
{
    return change(context, "SetTextColor", CLR_INVALID, &ContextState::textColor, color & ColorMask,
                  StateField::TextColor);
}

COLORREF GetTextColor(HDC context)
{
    return read(context, "GetTextColor", CLR_INVALID, &ContextState::textColor);
}

int SetBkMode(HDC context, int mode)
{
    return changeMode(context, "SetBkMode", &ContextState::backMode, mode, TRANSPARENT, OPAQUE,
                      StateField::BackMode);
}

int GetBkMode(HDC context)
{
    return read(context, "GetBkMode", 0, &ContextState::backMode);
}

UINT SetTextAlign(HDC context, UINT alignment)
{
    return change(context, "SetTextAlign", GDI_ERROR, &ContextState::textAlign, alignment,
                  StateField::TextAlign);
}

UINT GetTextAlign(HDC context)
{
    return read(context, "GetTextAlign", GDI_ERROR, &ContextState::textAlign);
}

// The failure value is the one that no caller would set.
int SetTextCharacterExtra(HDC context, int extra)
{
    constexpr int Failure = static_cast<int>(0x80000000);
    return onContext(context, "SetTextCharacterExtra", Failure,
                     [&](DeviceContext& found) { return std::exchange(found.state.characterExtra, extra); });
}

int GetTextCharacterExtra(HDC context)
{
    constexpr int Failure = static_cast<int>(0x80000000);
    return read(context, "GetTextCharacterExtra", Failure, &ContextState::characterExtra);
}

BOOL SetTextJustification(HDC context, int extra, int count)
{
    return onContext(context, "SetTextJustification", FALSE, [&](DeviceContext& found) {
        found.state.breakExtra = extra;
        found.state.breakCount = count;
        found.device().stateChanged(found, StateField::TextJustification);
        return TRUE;
    });
}

int SetROP2(HDC context, int operation)
{
    return changeMode(context, "SetROP2", &ContextState::rop2, operation, R2_BLACK, R2_WHITE,
                      StateField::Rop2);
}

int GetROP2(HDC context)
{
    return read(context, "GetROP2", 0, &ContextState::rop2);
}

int SetPolyFillMode(HDC context, int mode)
{
    return changeMode(context, "SetPolyFillMode", &ContextState::polyFillMode, mode, ALTERNATE, WINDING,
                      StateField::PolyFillMode);
}

int GetPolyFillMode(HDC context)
{
    return read(context, "GetPolyFillMode", 0, &ContextState::polyFillMode);
}

int SetStretchBltMode(HDC context, int mode)
{
    return changeMode(context, "SetStretchBltMode", &ContextState::stretchMode, mode, BLACKONWHITE, HALFTONE,
                      StateField::StretchMode);
}

int GetStretchBltMode(HDC context)
{
    return read(context, "GetStretchBltMode", 0, &ContextState::stretchMode);
}

int SetArcDirection(HDC context, int direction)
{
    return changeMode(context, "SetArcDirection", &ContextState::arcDirection, direction, AD_COUNTERCLOCKWISE,
                      AD_CLOCKWISE, StateField::ArcDirection);
}

int GetArcDirection(HDC context)
{
    return read(context, "GetArcDirection", 0, &ContextState::arcDirection);
}

BOOL SetMiterLimit(HDC context, FLOAT limit, FLOAT* former)
{
    if (!std::isfinite(limit) || limit < 1) {
        return failWith(ERROR_INVALID_PARAMETER, FALSE);
    }
    return changePlace(context, "SetMiterLimit", &ContextState::miterLimit, limit, former,
                       StateField::MiterLimit);
}

BOOL SetBrushOrgEx(HDC context, int x, int y, POINT* former)
{
    return changePlace(context, "SetBrushOrgEx", &ContextState::brushOrigin, POINT{x, y}, former,
                       StateField::BrushOrigin);
}

BOOL GetBrushOrgEx(HDC context, POINT* origin)
{
    return readInto(context, "GetBrushOrgEx", origin, &ContextState::brushOrigin);
}

BOOL GetCurrentPositionEx(HDC context, POINT* point)
{
    return readInto(context, "GetCurrentPositionEx", point, &ContextState::position);
}

BOOL MoveToEx(HDC context, int x, int y, POINT* former)
{
    return changePlace(context, "MoveToEx", &ContextState::position, POINT{x, y}, former,
                       StateField::Position);
}

int SaveDC(HDC context)
{
    return onContext(context, "SaveDC", 0, [&](DeviceContext& found) {
        if (found.saved.size() >= DeepestSave) {
            return failWith(ERROR_NOT_ENOUGH_MEMORY, 0);
        }
        found.saved.push_back(found.state);
        found.device().stateSaved(found);
        return static_cast<int>(found.saved.size());
    });
}

BOOL RestoreDC(HDC context, int level)
{
    return onContext(context, "RestoreDC", FALSE, [&](DeviceContext& found) {
        const int depth = static_cast<int>(found.saved.size());
        if (level == 0 || level > depth || level < -depth) {
            return failWith(ERROR_INVALID_PARAMETER, FALSE);
        }
        const int kept = level > 0 ? level - 1 : depth + level;
        found.state = std::move(found.saved[static_cast<std::size_t>(kept)]);
        found.saved.resize(static_cast<std::size_t>(kept));
        found.device().stateRestored(found, kept - depth);
        return TRUE;
    });
}
