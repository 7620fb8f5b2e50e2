// Text in one piece. drawString() is the one place that draws it, in device units.
#include <optional>
#include <string_view>

#include "DeviceScale.h"
#include "GdiDetail.h"
#include "boundedText.h"
#include "moduleObjects.h"
#include "surfaceGDI.h"
#include "undo.h"
#include "wrappingInt.h"

using namespace drawing;
using namespace gdi;

namespace {

// The one drawing call of the process at a time.
class DrawTextTurn {
public:
    DrawTextTurn() { drawTextLock.acquire(); }
    ~DrawTextTurn() { drawTextLock.relinquish(); }
    DrawTextTurn(const DrawTextTurn&) = delete;
    DrawTextTurn& operator=(const DrawTextTurn&) = delete;
};

// Without a last ampersand that no second one makes a character.
int drawnLength(const char* text, UINT flags)
{
    const int length = lstrlenA(text);
    const bool marksNothing = (flags & DT_NOPREFIX) == 0 && length > 0 && text[length - 1] == '&' &&
                              (length == 1 || text[length - 2] != '&');
    return marksNothing ? length - 1 : length;
}

// A context in device units until the end of its life, when its map mode, extents and world transform come back.
class InDeviceUnits {
public:
    explicit InDeviceUnits(HDC hdc)
        : m_hdc(hdc), m_mode(GetMapMode(hdc)), m_scale(hdc), m_world{1, 0, 0, 1, 0, 0}
    {
        if (m_mode == MM_TEXT) {
            return;
        }
        SetGraphicsMode(m_hdc, GM_ADVANCED);
        GetWorldTransform(m_hdc, &m_world);
        const XFORM scaled = m_scale.transform(m_world);
        SetWorldTransform(m_hdc, &scaled);
        SetMapMode(m_hdc, MM_TEXT);
    }
    ~InDeviceUnits()
    {
        if (m_mode == MM_TEXT) {
            return;
        }
        SetMapMode(m_hdc, m_mode);
        SetViewportExtEx(m_hdc, m_scale.viewport.cx, m_scale.viewport.cy, nullptr);
        SetWindowExtEx(m_hdc, m_scale.window.cx, m_scale.window.cy, nullptr);
        SetWorldTransform(m_hdc, &m_world);
    }
    InDeviceUnits(const InDeviceUnits&) = delete;
    InDeviceUnits& operator=(const InDeviceUnits&) = delete;

    RECT rect(const RECT& logical) const { return m_mode == MM_TEXT ? logical : m_scale.rect(logical); }

private:
    HDC m_hdc;
    int m_mode;
    DeviceScale m_scale;
    XFORM m_world;
};

// The text's height in the units of the context's map mode, measured on a context beside it of the same dots, so that
// nothing of it is touched or recorded. Nothing when there is none, or when the mode has no height.
std::optional<int> heightOn(HDC hdc, const char* text, const RECT& rect, UINT flags, HFONT font)
{
    const bool inDeviceUnits = GetMapMode(hdc) == MM_TEXT;
    const DeviceScale scale(hdc);
    const HDC beside = CreateCompatibleDC(hdc);
    if (beside == nullptr || (!inDeviceUnits && scale.y == 0)) {
        DeleteDC(beside);
        return std::nullopt;
    }
    RECT measured = inDeviceUnits ? rect : scale.rect(rect);
    const HGDIOBJ former = SelectObject(beside, font);
    DrawTextA(beside, text, -1, &measured, flags | DT_CALCRECT);
    SelectObject(beside, former);
    DeleteDC(beside);
    const int height = wrapSubtract(measured.bottom, measured.top);
    return inDeviceUnits ? height : saturateToInt(static_cast<float>(height) / scale.y);
}

} // namespace

void CSurfaceGDI::drawString(const char* text, RECT* rect, unsigned int flags)
{
    if (text == nullptr || rect == nullptr) {
        return;
    }
    const InDeviceUnits units(m_hdc);
    RECT device = units.rect(*rect);
    const DrawTextTurn turn;
    const int length = drawnLength(text, flags);
    setBackMode(TRANSPARENT);
    DrawTextA(m_hdc, text, length, &device, flags);
}

void CSurfaceGDI::Detail::drawStyled(const char* text, RECT* rect, unsigned int flags)
{
    const bool turned =
        m_surface.m_textStyle.getCharAngle() != 0 || m_surface.m_textStyle.getTextAngle() != 0;
    if (turned) {
        SetGraphicsMode(m_surface.m_hdc, GM_ADVANCED);
    }
    const COLORREF color = static_cast<COLORREF>(m_surface.m_textStyle.getColor());
    if (GetTextColor(m_surface.m_hdc) != color) {
        SetTextColor(m_surface.m_hdc, color);
    }
    const auto endTurn = [&] {
        if (turned) {
            SetGraphicsMode(m_surface.m_hdc, GM_COMPATIBLE);
        }
    };
    doOrUndo([&] { m_surface.drawString(text, rect, flags); }, endTurn);
    endTurn();
}

void CSurfaceGDI::drawText(const char* text, RECT* rect, unsigned int flags)
{
    if (text == nullptr || rect == nullptr) {
        return;
    }
    if ((flags & DT_CENTER) != 0) {
        const int room = wrapSubtract(rect->bottom, rect->top);
        const int height = heightOn(m_hdc, text, *rect, flags, m_createdFont).value_or(room);
        const int offset = wrapSubtract(room, height) / 2;
        if (offset > 0) {
            rect->top = wrapAdd(rect->top, offset);
        }
    }
    Detail(*this).drawStyled(text, rect, flags);
}

void CSurfaceGDI::drawTextAt(const char* text, POINT* point, unsigned int flags)
{
    if (text == nullptr || point == nullptr) {
        return;
    }
    constexpr int Far = 32767;
    constexpr int HalfWay = 16383;
    RECT rect{point->x, point->y, Far, Far};
    if ((flags & DT_RIGHT) != 0) {
        rect.left = wrapSubtract(point->x, Far);
        rect.right = point->x;
    } else if ((flags & DT_CENTER) != 0) {
        rect.left = wrapSubtract(point->x, HalfWay);
        rect.right = wrapAdd(point->x, HalfWay + 1);
    }
    Detail(*this).drawStyled(text, &rect, flags);
}

void CSurfaceGDI::drawStringRotated(const char* text, RECT* rect, unsigned int flags, int charAngle,
                                    int textAngle)
{
    if (text == nullptr || rect == nullptr) {
        return;
    }
    createFont(m_font, charAngle, textAngle);
    const int former = SetGraphicsMode(m_hdc, GM_ADVANCED);
    const auto putBack = [&] {
        SetGraphicsMode(m_hdc, former);
        restoreFont();
    };
    doOrUndo([&] { drawString(text, rect, flags); }, putBack);
    putBack();
}

void CSurfaceGDI::drawTextOnBaseLine(int x, int y, unsigned int options, RECT* rect, char* text, int length)
{
    if (text == nullptr) {
        return;
    }
    const std::string_view drawn = leftOf(text, length);
    const UINT former = SetTextAlign(m_hdc, TA_BASELINE);
    ExtTextOutA(m_hdc, x, y, options, rect, drawn.data(), static_cast<UINT>(drawn.size()), nullptr);
    SetTextAlign(m_hdc, former);
}
