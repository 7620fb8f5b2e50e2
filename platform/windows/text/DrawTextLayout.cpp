#include "DrawTextLayout.h"

#include <algorithm>

#include "CodePageText.h"

namespace {

constexpr UINT tabBits = 0xFF00;
constexpr UINT tabShift = 8;

} // namespace

DrawTextFormat::DrawTextFormat(UINT given) : flags(given)
{
    if (!has(DT_TABSTOP)) {
        return;
    }
    if (const auto characters = static_cast<int>((given & tabBits) >> tabShift); characters > 0) {
        tabCharacters = characters;
    }
    flags &= ~tabBits;
}

DrawTextLayout::DrawTextLayout(TextMeasure& measure, const DrawTextFormat& format, const char* text,
                               std::size_t length, double maximumWidth)
    : m_measure(measure), m_expandsTabs(format.has(DT_EXPANDTABS)), m_singleLine(format.has(DT_SINGLELINE)),
      m_wraps(format.has(DT_WORDBREAK) && !m_singleLine),
      m_tabWidth(std::int64_t{measure.font()->metrics().tmAveCharWidth} * format.tabCharacters)
{
    takeText(text, length, !format.has(DT_NOPREFIX));
    for (std::size_t position = 0; position < m_text.size();) {
        position = addLine(position, maximumWidth);
    }
}

std::int64_t DrawTextLayout::widestLine() const noexcept
{
    std::int64_t widest = 0;
    for (const DrawTextLine& line : m_lines) {
        widest = std::max(widest, line.width);
    }
    return widest;
}

// "&" underlines the character behind it and "&&" stands for one "&"; at the end of a line it stands for nothing.
void DrawTextLayout::takeText(const char* text, std::size_t length, bool prefixes)
{
    m_text.reserve(length);
    for (std::size_t index = 0; index < length; ++index) {
        if (prefixes && text[index] == '&') {
            if (++index == length) {
                return;
            }
            if (text[index] != '&' && !isLineEnd(wideCharacter(text[index]))) {
                m_underlined.push_back(m_text.size());
            }
        }
        m_text.push_back(wideCharacter(text[index]));
    }
}

bool DrawTextLayout::isLineEnd(WCHAR character) const noexcept
{
    return !m_singleLine && (character == u'\n' || character == u'\r');
}

std::size_t DrawTextLayout::behindLineEnd(std::size_t position) const noexcept
{
    const bool pair =
        m_text[position] == u'\r' && position + 1 < m_text.size() && m_text[position + 1] == u'\n';
    return position + (pair ? 2 : 1);
}

std::int64_t DrawTextLayout::step(std::int64_t x, WCHAR character)
{
    if (!isTab(character)) {
        return x + m_measure.next(character);
    }
    return x < 0 ? 0 : (x / m_tabWidth + 1) * m_tabWidth;
}

// A line that is too wide ends behind the last blanks that follow a word. The word behind them is measured again as
// the next line's first, and that is the only time: a line's first word stays whole.
std::size_t DrawTextLayout::addLine(std::size_t first, double maximumWidth)
{
    m_measure.beginLine();
    std::int64_t x = 0;
    std::int64_t wordsWidth = 0; // up to the blanks that were met last
    std::int64_t breakWidth = 0;
    std::size_t breakAt = first;
    bool behindWord = false;
    for (std::size_t index = first; index < m_text.size(); ++index) {
        const WCHAR character = m_text[index];
        if (isLineEnd(character)) {
            m_lines.push_back({first, index, x});
            return behindLineEnd(index);
        }
        const std::int64_t start = x;
        x = step(x, character);
        if (!m_wraps) {
            continue;
        }
        if (character == u' ' || isTab(character)) {
            wordsWidth = behindWord ? start : wordsWidth;
            behindWord = false;
            continue;
        }
        if (!behindWord && wordsWidth > 0) {
            breakAt = index;
            breakWidth = wordsWidth;
        }
        behindWord = true;
        if (breakAt > first && static_cast<double>(x) > maximumWidth) {
            m_lines.push_back({first, breakAt, breakWidth});
            return breakAt;
        }
    }
    m_lines.push_back({first, m_text.size(), x});
    return m_text.size();
}
