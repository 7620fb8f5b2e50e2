// Formatted text: runs that know their places, joined and drawn at once.
#include <algorithm>
#include <cstring>

#include "DeviceScale.h"
#include "GdiDetail.h"
#include "surfaceGDI.h"
#include "undo.h"
#include "wrappingInt.h"

using namespace drawing;
using namespace gdi;

namespace {

struct JoinedText {
    TovoTextString text;
    int lines = 1;
    int lineStep = 0; // logical units from the first line to the second
};

// For DrawText an ampersand is a mark, and two of them are one.
void appendDoubled(TovoTextString& target, const TovoTextString& text)
{
    const char* rest = text.text();
    while (const char* const mark = std::strchr(rest, '&')) {
        target.append(rest, static_cast<unsigned int>(mark + 1 - rest));
        target.append("&", 1);
        rest = mark + 1;
    }
    target.append(rest);
}

JoinedText join(Array<CSurfaceTextChunk, 2>& chunks, UINT flags)
{
    JoinedText joined;
    CSurfaceTextChunk* first = nullptr;
    CSurfaceTextChunk* previous = nullptr;
    for (unsigned int i = 0; i < chunks.size(); ++i) {
        CSurfaceTextChunk* const chunk = chunks[i];
        if (chunk == nullptr) {
            continue;
        }
        first = first != nullptr ? first : chunk;
        if (chunk->isStartOfAnotherLine(previous)) {
            joined.text.append("\n", 1);
            if (++joined.lines == 2) {
                joined.lineStep = wrapSubtract(chunk->m_position.y, first->m_position.y);
            }
        }
        if (chunk->m_underline) {
            joined.text.append("&", 1); // marks the run's first character as underlined
        }
        if ((flags & DT_NOPREFIX) == 0) {
            appendDoubled(joined.text, chunk->m_text);
        } else {
            joined.text.append(chunk->m_text);
        }
        previous = chunk;
    }
    return joined;
}

} // namespace

// From a far rectangle, so that nothing wraps; ampersands count as characters.
RECT CSurfaceGDI::Detail::measured(const char* text, unsigned int length, unsigned int flags) const
{
    constexpr int Far = 32767;
    RECT rect{0, 0, Far, Far};
    DrawTextA(m_surface.m_hdc, text, static_cast<int>(length), &rect, flags | DT_CALCRECT | DT_NOPREFIX);
    return rect;
}

// Makes the font smaller by the surplus of one line, in points. False when the lines fit.
bool CSurfaceGDI::Detail::reduceFont(int height, int laidOut, int lines)
{
    if (lines < 2 || height <= laidOut) {
        return false;
    }
    const float surplus = static_cast<float>(height) - static_cast<float>(laidOut);
    const float dotsPerInch = static_cast<float>(std::max(GetDeviceCaps(m_surface.m_hdc, LOGPIXELSY), 1));
    CSurfaceFont reduced(m_surface.m_font);
    reduced.setSize(m_surface.m_font.getSize() - surplus * 72 / dotsPerInch / static_cast<float>(lines));
    m_surface.setFont(&reduced);
    return true;
}

// Device units by which characters move together, so that the widest of the runs keeps the width recorded for it.
int CSurfaceGDI::Detail::tightening(Array<CSurfaceTextChunk, 2>& chunks, float xScale,
                                    unsigned int flags) const
{
    int tighten = 0;
    for (unsigned int i = 0; i < chunks.size(); ++i) {
        const CSurfaceTextChunk* const chunk = chunks[i];
        if (chunk == nullptr || std::strchr(chunk->m_text.text(), '\t') != nullptr) {
            continue;
        }
        const int length = static_cast<int>(chunk->m_text.length());
        const int target = saturateToInt(static_cast<float>(chunk->m_textLength) * xScale);
        if (length <= 1 || target <= 0) {
            continue;
        }
        const RECT rect = measured(chunk->m_text.text(), chunk->m_text.length(), flags);
        if (rect.right > target) {
            tighten = std::max<int>(tighten, (rect.right - target) / length + 1);
        }
    }
    return tighten;
}

void CSurfaceGDI::Detail::drawJoined(Array<CSurfaceTextChunk, 2>& chunks, RECT device,
                                     const DeviceScale& scale, unsigned int flags)
{
    const JoinedText joined = join(chunks, flags);
    CSurfaceFont formerFont(m_surface.m_font);
    const int laidOut =
        saturateToInt(static_cast<float>(joined.lineStep) * scale.y * static_cast<float>(joined.lines));
    bool reduced = false;
    const auto putFontBack = [&] {
        if (reduced) {
            m_surface.setFont(&formerFont);
        }
    };
    const auto draw = [&] {
        reduced = reduceFont(measured(joined.text.text(), joined.text.length(), flags).bottom, laidOut,
                             joined.lines);
        if (const int tighten = tightening(chunks, scale.x, flags); tighten > 0) {
            SetTextCharacterExtra(m_surface.m_hdc, -tighten);
        }
        SetGraphicsMode(m_surface.m_hdc, GM_ADVANCED);
        if (m_surface.m_textStyle.getCharAngle() != 0 || m_surface.m_textStyle.getTextAngle() != 0) {
            m_surface.drawStringRotated(joined.text.text(), &device, flags,
                                        m_surface.m_textStyle.getCharAngle(),
                                        m_surface.m_textStyle.getTextAngle());
        } else {
            m_surface.drawString(joined.text.text(), &device, flags);
        }
    };
    doOrUndo(draw, putFontBack);
    putFontBack();
}

bool CSurfaceGDI::drawString(Array<CSurfaceTextChunk, 2>* chunks, RECT* rect, int flags)
{
    if (chunks == nullptr || rect == nullptr) {
        return false;
    }
    const UINT drawFlags = static_cast<UINT>(flags) & ~DT_WORDBREAK; // lines come from the runs
    const int formerExtra = GetTextCharacterExtra(m_hdc);
    const DeviceScale scale(m_hdc);
    SetGraphicsMode(m_hdc, GM_ADVANCED);
    XFORM world{1, 0, 0, 1, 0, 0};
    GetWorldTransform(m_hdc, &world);
    const XFORM scaled = scale.transform(world);
    SetWorldTransform(m_hdc, &scaled);
    const int formerMode = SetMapMode(m_hdc, MM_TEXT);
    const auto putMappingBack = [&] {
        SetMapMode(m_hdc, formerMode);
        SetViewportExtEx(m_hdc, scale.viewport.cx, scale.viewport.cy, nullptr);
        SetWindowExtEx(m_hdc, scale.window.cx, scale.window.cy, nullptr);
        SetTextCharacterExtra(m_hdc, formerExtra);
        SetWorldTransform(m_hdc, &world);
    };
    doOrUndo([&] { Detail(*this).drawJoined(*chunks, scale.rect(*rect), scale, drawFlags); }, putMappingBack);
    putMappingBack();
    return true;
}
