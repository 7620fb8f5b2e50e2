// The lines of DrawTextA: prefix characters taken out, text broken at line ends and between words, what doesn't fit
// replaced by an ellipsis.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <vector>

#include "TextMeasure.h"

namespace wingdi {

// The DT_ flags of one call. DT_TABSTOP claims bits 8 to 15 for the tab's width; the flags that are there are
// off then.
struct DrawTextFormat {
    explicit DrawTextFormat(UINT given);

    bool has(UINT flag) const noexcept { return (flags & flag) != 0; }

    UINT flags;
    int tabCharacters = 8; // average characters
};

struct DrawTextLine {
    std::size_t first;
    std::size_t last;   // the character after the line's last; blanks at which it was broken belong to it
    std::int64_t width; // device units, without those blanks
};

// The room of a text.
struct DrawTextLimits {
    double width;      // device units; for DT_WORDBREAK and ellipses
    std::size_t lines; // at least 1; for DT_END_ELLIPSIS: the last one shows that more text follows
};

class DrawTextLayout {
public:
    // Linear in the length of the text.
    DrawTextLayout(TextMeasure& measure, const DrawTextFormat& format, const char* text, std::size_t length,
                   const DrawTextLimits& limits);

    // What lines are made of: the text, then the lines with an ellipsis.
    const std::vector<WCHAR>& text() const noexcept { return m_text; }
    // Whether a prefix underlines this character.
    bool isUnderlined(std::size_t index) const;
    const std::vector<DrawTextLine>& lines() const noexcept { return m_lines; }
    std::int64_t widestLine() const noexcept;

    // Where the next character begins when this one begins at `x`: device units from the line's start.
    std::int64_t step(std::int64_t x, WCHAR character);
    bool isTab(WCHAR character) const noexcept { return m_expandsTabs && character == u'\t'; }

private:
    void takeText(const char* text, std::size_t length, bool prefixes);
    bool isLineEnd(WCHAR character) const noexcept;
    // Gives where the next line begins.
    std::size_t addLine(std::size_t first, double maximumWidth, bool wraps);
    std::size_t behindLineEnd(std::size_t position) const noexcept;
    // Gives each line that needs one its ellipsis; `more`: text follows the last.
    void addEllipses(const DrawTextFormat& format, double maximumWidth, bool more);
    void cutEnd(DrawTextLine& line, double maximumWidth);
    void cutMiddle(DrawTextLine& line, double maximumWidth);
    // How many of the characters from `first` on fit.
    std::size_t fitting(std::size_t first, std::size_t last, double maximumWidth);
    std::int64_t widthOf(std::size_t first, std::size_t last);
    std::int64_t ellipsisWidth();
    // Makes the line one of both parts with the ellipsis between them.
    void compose(DrawTextLine& line, std::size_t headEnd, std::size_t tail, std::size_t tailEnd);
    void appendPart(std::size_t first, std::size_t last);

    TextMeasure& m_measure;
    bool m_expandsTabs;
    bool m_singleLine;
    bool m_wraps;
    std::int64_t m_tabWidth;
    std::vector<WCHAR> m_text;
    std::vector<std::size_t> m_underlined; // in order
    std::vector<DrawTextLine> m_lines;
};

} // namespace wingdi
