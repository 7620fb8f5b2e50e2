// Measures text in the font of a context: advances in whole device units, with the context's character extra and
// justification, and their logical form.
#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>

#include "DeviceContext.h"
#include "RealizedFont.h"
#include "TextFrame.h"

namespace wingdi {

class TextMeasure {
public:
    explicit TextMeasure(const DeviceContext& context);

    // Null when no font is installed; then nothing else may be asked.
    const std::shared_ptr<const RealizedFont>& font() const noexcept { return m_font; }
    const TextFrame& frame() const noexcept { return m_frame; }

    // The advance of the next character of a line, in device units.
    int next(WCHAR character) { return extras(m_font->advance(character), character == u' '); }
    int nextGlyph(WCHAR glyph) { return extras(m_font->glyphAdvance(glyph), false); }
    // The space that justification brings starts anew.
    void beginLine() noexcept { m_breaks = 0; }

    // Rounded and saturated.
    LONG logicalWidth(std::int64_t device) const noexcept;
    LONG logicalHeight(std::int64_t device) const noexcept;

private:
    int extras(int advance, bool isBreak) noexcept
    {
        return advance + m_characterExtra + (isBreak && m_breakCount > 0 ? breakExtra() : 0);
    }
    int breakExtra() noexcept;

    TextFrame m_frame;
    std::shared_ptr<const RealizedFont> m_font;
    int m_characterExtra;
    int m_breakExtra;
    int m_breakCount;
    int m_breaks = 0;
};

} // namespace wingdi
