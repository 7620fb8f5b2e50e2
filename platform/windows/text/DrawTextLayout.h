// The lines of DrawTextA: prefix characters taken out, text broken at line ends and between words.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <vector>

#include "TextMeasure.h"

// The DT_ flags of one call. DT_TABSTOP claims bits 8 to 15 for the tab's width; the flags that stand there are
// off then.
struct DrawTextFormat {
    explicit DrawTextFormat(UINT given);

    bool has(UINT flag) const noexcept { return (flags & flag) != 0; }

    UINT flags;
    int tabCharacters = 8; // average characters
};

struct DrawTextLine {
    std::size_t first;
    std::size_t last;   // the character behind the line's last; blanks at which it was broken belong to it
    std::int64_t width; // device units, without those blanks
};

class DrawTextLayout {
public:
    // `maximumWidth` in device units; it counts with DT_WORDBREAK only. Linear in the length of the text.
    DrawTextLayout(TextMeasure& measure, const DrawTextFormat& format, const char* text, std::size_t length,
                   double maximumWidth);

    const std::vector<WCHAR>& text() const noexcept { return m_text; }
    // The characters that a prefix underlines, in order.
    const std::vector<std::size_t>& underlined() const noexcept { return m_underlined; }
    const std::vector<DrawTextLine>& lines() const noexcept { return m_lines; }
    std::int64_t widestLine() const noexcept;

    // Where the next character begins when this one begins at `x`: device units from the line's start.
    std::int64_t step(std::int64_t x, WCHAR character);
    bool isTab(WCHAR character) const noexcept { return m_expandsTabs && character == u'\t'; }

private:
    void takeText(const char* text, std::size_t length, bool prefixes);
    bool isLineEnd(WCHAR character) const noexcept;
    // Gives where the next line begins.
    std::size_t addLine(std::size_t first, double maximumWidth);
    std::size_t behindLineEnd(std::size_t position) const noexcept;

    TextMeasure& m_measure;
    bool m_expandsTabs;
    bool m_singleLine;
    bool m_wraps;
    std::int64_t m_tabWidth;
    std::vector<WCHAR> m_text;
    std::vector<std::size_t> m_underlined;
    std::vector<DrawTextLine> m_lines;
};
