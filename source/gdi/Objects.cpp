// Fonts, brushes and pens: made, cached, exchanged in the device, deleted.
#include <algorithm>
#include <cstring>
#include <string_view>

#include "GdiDetail.h"
#include "brushStyles.h"
#include "moduleObjects.h"
#include "surfaceGDI.h"
#include "undo.h"
#include "wrappingInt.h"

using namespace drawing;

namespace {

void describeFont(char* buffer, HFONT font)
{
    LOGFONTA description{}; // a dead font leaves it so
    GetObjectA(font, sizeof(description), &description);
    description.lfFaceName[sizeof(description.lfFaceName) - 1] = '\0';
    intlSprintf(buffer,
                "Family=%s, size=%d, bold=%d, italic=%d, strikeout=%d, underline=%d, orientation=%d, "
                "escapement=%d",
                description.lfFaceName, static_cast<int>(description.lfHeight),
                static_cast<int>(description.lfWeight), description.lfItalic, description.lfStrikeOut,
                description.lfUnderline, static_cast<int>(description.lfOrientation),
                static_cast<int>(description.lfEscapement));
}

void logExchangedFont(HFONT expected, HFONT found)
{
    char description[320]; // a face of 31 characters, seven numbers and the words between them
    moduleLog.log("Current font is not same as that previously set!");
    describeFont(description, expected);
    moduleLog.log("Expected font %s", description);
    describeFont(description, found);
    moduleLog.log("but found %s", description);
}

// In device units. Below 0 Windows takes it as the height of the em, above, which a size below 0 gives, as that of the
// whole line; 0 is the default.
LONG fontHeight(HDC hdc, float points)
{
    constexpr int Largest = 32767;
    const float height = static_cast<float>(GetDeviceCaps(hdc, LOGPIXELSY)) * points / 72;
    return -std::clamp(saturateToInt(height), -Largest, Largest);
}

// Whoever exchanged an object behind the surface's back broke its rule.
void assertSelected(HGDIOBJ cached, HDC hdc, UINT type, const char* expression, int line)
{
    if (cached != nullptr && cached != GetCurrentObject(hdc, type)) {
        kosAssertFail("Assertion failed", expression, "surface", "source\\SurfaceGDI", line);
    }
}

// Puts an object into the device in place of `current`. Where it could not be made, or the device did not take it,
// `current` becomes null, and what the device still holds goes to `stranded`, to be deleted in the end.
template <typename Object>
void selectAndDelete(HDC hdc, Object object, Object& current, Object& stranded)
{
    const HGDIOBJ former = SelectObject(hdc, object);
    if (former == nullptr) {
        DeleteObject(object);
        stranded = current != nullptr ? current : stranded;
        current = nullptr;
        return;
    }
    DeleteObject(former);
    if (stranded != former) {
        DeleteObject(stranded);
    }
    stranded = nullptr;
    current = object;
}

HBRUSH plainBrush(int style, COLORREF color)
{
    switch (style) {
    case SolidBrush:
        return CreateSolidBrush(color);
    case HollowBrush:
        return static_cast<HBRUSH>(GetStockObject(NULL_BRUSH));
    default:
        return CreateHatchBrush(wrapSubtract(style, FirstHatchBrush), color);
    }
}

HPEN geometricPen(const CSurfacePen& pen)
{
    const LOGBRUSH brush{BS_SOLID, static_cast<COLORREF>(pen.getColor()), 0};
    return ExtCreatePen(static_cast<DWORD>(pen.getStyle()) | PS_GEOMETRIC, static_cast<DWORD>(pen.getWidth()),
                        &brush, 0, nullptr);
}

} // namespace

void CSurfaceGDI::createFont(char* face, float points, bool bold, bool italic, bool strikethru,
                             bool underline, int orientation, int escapement)
{
    constexpr int TenthsOfADegree = 10;
    LOGFONTA description{};
    description.lfHeight = fontHeight(m_hdc, points);
    description.lfWeight = bold ? FW_BOLD : FW_NORMAL;
    description.lfItalic = italic ? 1 : 0;
    description.lfUnderline = underline ? 1 : 0;
    description.lfStrikeOut = strikethru ? 1 : 0;
    description.lfCharSet = DEFAULT_CHARSET;
    description.lfQuality = PROOF_QUALITY;
    description.lfOrientation = wrapMultiply(orientation, TenthsOfADegree);
    description.lfEscapement = wrapMultiply(escapement, TenthsOfADegree);
    std::string_view(face).copy(description.lfFaceName, sizeof(description.lfFaceName) - 1);

    const HFONT font = CreateFontIndirectA(&description);
    // The font of one change ago goes now: it left the device then, so none is deleted while it is selected.
    if (m_savedFont != nullptr) {
        DeleteObject(m_savedFont);
    }
    m_savedFont = static_cast<HFONT>(SelectObject(m_hdc, font));
    if (m_savedFont != nullptr) {
        m_strandedFont = nullptr;
        m_createdFont = font;
        return;
    }
    DeleteObject(font);
    m_strandedFont = m_createdFont != nullptr ? m_createdFont : m_strandedFont;
    m_createdFont = nullptr;
}

void CSurfaceGDI::createFont(CSurfaceFont& font, int orientation, int escapement)
{
    createFont(font.getFaceName(), font.getSize(), font.getBold(), font.getItalic(), font.getStrikethru(),
               font.getUnderline(), orientation, escapement);
}

void CSurfaceGDI::setFont(CSurfaceFont* font)
{
    if (font == nullptr) {
        return;
    }
    bool changed = *font != m_font;
    m_font = *font;
    if (m_currentFont != nullptr) {
        const HFONT found = static_cast<HFONT>(GetCurrentObject(m_hdc, OBJ_FONT));
        if (found != m_currentFont) {
            logExchangedFont(m_currentFont, found);
            changed = true;
        }
        if (!changed) {
            return;
        }
    }
    createFont(m_font, 0, 0);
    m_currentFont = m_createdFont;
}

void CSurfaceGDI::restoreFont()
{
    if (m_savedFont == nullptr) {
        return;
    }
    const HGDIOBJ former = SelectObject(m_hdc, m_savedFont);
    m_createdFont = m_savedFont;
    DeleteObject(former);
    m_currentFont = nullptr;
    m_savedFont = nullptr;
}

void CSurfaceGDI::newTextStyle(CTextStyle* style)
{
    if (style == nullptr || (style->getCharAngle() == m_textStyle.getCharAngle() &&
                             style->getTextAngle() == m_textStyle.getTextAngle())) {
        return;
    }
    createFont(m_font, style->getCharAngle(), style->getTextAngle());
}

void CSurfaceGDI::setBrush(CSurfaceBrush* brush)
{
    if (brush == nullptr) {
        return;
    }
    const CSurfaceBrush before = m_brush;
    const bool changed = *brush != m_brush;
    m_brush = *brush;
    assertSelected(m_currentBrush, m_hdc, OBJ_BRUSH, "m_currentBrush == ::GetCurrentObject(m_hdc, OBJ_BRUSH)",
                   __LINE__);
    if (!changed && m_currentBrush != nullptr) {
        return;
    }
    const int style = m_brush.getStyle();
    HBRUSH made = nullptr;
    if (style == PictureBrush) {
        made = doOrUndo([&] { return Detail(*this).pictureBrush(m_brush.getPicture()); },
                        [&] { m_brush = before; });
    } else {
        made = plainBrush(style, static_cast<COLORREF>(m_brush.getColor()));
        if (style != SolidBrush && style != HollowBrush) {
            UnrealizeObject(made);
        }
    }
    selectAndDelete(m_hdc, made, m_currentBrush, m_strandedBrush);
    if (style != SolidBrush) {
        resetBrushOrg(nullptr, 8);
    }
}

void CSurfaceGDI::setPen(CSurfacePen* pen)
{
    if (pen == nullptr) {
        return;
    }
    const bool changed = *pen != m_pen;
    m_pen = *pen;
    assertSelected(m_currentPen, m_hdc, OBJ_PEN, "m_currentPen == ::GetCurrentObject(m_hdc, OBJ_PEN)",
                   __LINE__);
    if (!changed && m_currentPen != nullptr) {
        return;
    }
    selectAndDelete(m_hdc, geometricPen(m_pen), m_currentPen, m_strandedPen);
}

void CSurfaceGDI::restoreBrush() {}

void CSurfaceGDI::restorePen() {}

void CSurfaceGDI::createBrush()
{
    const COLORREF color = static_cast<COLORREF>(m_brush.getColor());
    if (m_createdBrush != nullptr && m_createdBrushColor == color &&
        m_createdBrushStyle == m_brush.getStyle() && GetCurrentObject(m_hdc, OBJ_BRUSH) == m_createdBrush) {
        return;
    }
    const HBRUSH made = plainBrush(m_brush.getStyle(), color);
    SelectObject(m_hdc, made);
    if (m_createdBrush != nullptr) {
        DeleteObject(m_createdBrush);
    }
    m_createdBrush = made;
    m_createdBrushColor = color;
    m_createdBrushStyle = m_brush.getStyle();
}

void CSurfaceGDI::createPen()
{
    const COLORREF color = static_cast<COLORREF>(m_pen.getColor());
    if (m_createdPen != nullptr && m_createdPenWidth == m_pen.getWidth() && m_createdPenColor == color &&
        m_createdPenStyle == m_pen.getStyle() && GetCurrentObject(m_hdc, OBJ_PEN) == m_createdPen) {
        return;
    }
    const HPEN made = geometricPen(m_pen);
    SelectObject(m_hdc, made);
    if (m_createdPen != nullptr) {
        DeleteObject(m_createdPen);
    }
    m_createdPen = made;
    m_createdPenWidth = m_pen.getWidth();
    m_createdPenColor = color;
    m_createdPenStyle = m_pen.getStyle();
}
