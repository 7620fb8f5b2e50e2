#include "DrawTextLayout.h"

#include <algorithm>
#include <iterator>

#include "CodePageText.h"

namespace wingdi {

namespace {

constexpr UINT TabBits = 0xFF00;
constexpr UINT TabShift = 8;
constexpr int Dots = 3; // of an ellipsis

} // namespace

DrawTextFormat::DrawTextFormat(UINT given) : flags(given)
{
    if (!has(DT_TABSTOP)) {
        return;
    }
    if (const auto characters = static_cast<int>((given & TabBits) >> TabShift); characters > 0) {
        tabCharacters = characters;
    }
    flags &= ~TabBits;
}

DrawTextLayout::DrawTextLayout(TextMeasure& measure, const DrawTextFormat& format, const char* text,
                               std::size_t length, const DrawTextLimits& limits)
    : m_measure(measure), m_expandsTabs(format.has(DT_EXPANDTABS)), m_singleLine(format.has(DT_SINGLELINE)),
      m_wraps(format.has(DT_WORDBREAK) && !m_singleLine),
      m_tabWidth(std::int64_t{measure.font()->metrics().tmAveCharWidth} * format.tabCharacters)
{
    takeText(text, length, !format.has(DT_NOPREFIX));
    if (format.has(DT_HIDEPREFIX)) {
        m_underlined.clear();
    }
    const std::size_t lines = format.has(DT_END_ELLIPSIS) ? limits.lines : m_text.size();
    std::size_t position = 0;
    while (position < m_text.size() && m_lines.size() < lines) {
        const bool isLast = format.has(DT_END_ELLIPSIS) && m_lines.size() + 1 == lines;
        position = addLine(position, limits.width, m_wraps && !isLast);
    }
    if (format.has(DT_END_ELLIPSIS | DT_WORD_ELLIPSIS | DT_PATH_ELLIPSIS)) {
        addEllipses(format, limits.width, position < m_text.size());
    }
}

bool DrawTextLayout::isUnderlined(std::size_t index) const
{
    return std::binary_search(m_underlined.begin(), m_underlined.end(), index);
}

std::int64_t DrawTextLayout::widestLine() const noexcept
{
    std::int64_t widest = 0;
    for (const DrawTextLine& line : m_lines) {
        widest = std::max(widest, line.width);
    }
    return widest;
}

// "&" underlines the character after it and "&&" stands for one "&"; at the end of a line it stands for nothing.
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

// A line that is too wide ends after the last blanks that follow a word. The word after them is measured again as
// the next line's first, and that is the only time: a line's first word stays whole.
std::size_t DrawTextLayout::addLine(std::size_t first, double maximumWidth, bool wraps)
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
        if (!wraps) {
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

void DrawTextLayout::addEllipses(const DrawTextFormat& format, double maximumWidth, bool more)
{
    for (std::size_t index = 0; index < m_lines.size(); ++index) {
        DrawTextLine& line = m_lines[index];
        const bool isLast = index + 1 == m_lines.size();
        const bool tooWide = static_cast<double>(line.width) > maximumWidth;
        if (tooWide && format.has(DT_PATH_ELLIPSIS)) {
            cutMiddle(line, maximumWidth);
        } else if ((tooWide && format.has(DT_WORD_ELLIPSIS)) ||
                   ((tooWide || more) && isLast && format.has(DT_END_ELLIPSIS))) {
            cutEnd(line, maximumWidth);
        }
    }
}

void DrawTextLayout::cutEnd(DrawTextLine& line, double maximumWidth)
{
    const double room = maximumWidth - static_cast<double>(ellipsisWidth());
    const std::size_t kept = line.first + fitting(line.first, line.last, room);
    compose(line, kept, line.last, line.last);
}

// The text from the last backslash on is kept as long as it fits; without one it is the line's second half. What is left
// of the room goes to the text before it.
void DrawTextLayout::cutMiddle(DrawTextLine& line, double maximumWidth)
{
    const auto begin = m_text.begin() + static_cast<std::ptrdiff_t>(line.first);
    const auto end = m_text.begin() + static_cast<std::ptrdiff_t>(line.last);
    const auto backslash =
        std::find(std::make_reverse_iterator(end), std::make_reverse_iterator(begin), u'\\');
    const double room = maximumWidth - static_cast<double>(ellipsisWidth());
    std::size_t tail = line.last;
    if (backslash != std::make_reverse_iterator(begin)) {
        tail = static_cast<std::size_t>(backslash.base() - m_text.begin()) - 1;
    } else {
        for (double x = 0; tail > line.first; --tail) {
            x += m_measure.next(m_text[tail - 1]);
            if (x > room / 2) {
                break;
            }
        }
    }
    const std::size_t tailEnd = tail + fitting(tail, line.last, room);
    const double left = room - static_cast<double>(widthOf(tail, tailEnd));
    compose(line, line.first + fitting(line.first, tail, left), tail, tailEnd);
}

std::size_t DrawTextLayout::fitting(std::size_t first, std::size_t last, double maximumWidth)
{
    m_measure.beginLine();
    std::int64_t x = 0;
    for (std::size_t index = first; index < last; ++index) {
        x = step(x, m_text[index]);
        if (static_cast<double>(x) > maximumWidth) {
            return index - first;
        }
    }
    return last - first;
}

std::int64_t DrawTextLayout::widthOf(std::size_t first, std::size_t last)
{
    m_measure.beginLine();
    std::int64_t x = 0;
    for (std::size_t index = first; index < last; ++index) {
        x = step(x, m_text[index]);
    }
    return x;
}

std::int64_t DrawTextLayout::ellipsisWidth()
{
    return std::int64_t{Dots} * m_measure.next(u'.');
}

void DrawTextLayout::compose(DrawTextLine& line, std::size_t headEnd, std::size_t tail, std::size_t tailEnd)
{
    const std::size_t first = m_text.size();
    appendPart(line.first, headEnd);
    m_text.insert(m_text.end(), Dots, u'.');
    appendPart(tail, tailEnd);
    line = {first, m_text.size(), widthOf(first, m_text.size())};
}

void DrawTextLayout::appendPart(std::size_t first, std::size_t last)
{
    auto underlined =
        std::lower_bound(m_underlined.begin(), m_underlined.end(), first) - m_underlined.begin();
    for (std::size_t index = first; index < last; ++index) {
        if (static_cast<std::size_t>(underlined) < m_underlined.size() &&
            m_underlined[static_cast<std::size_t>(underlined)] == index) {
            m_underlined.push_back(m_text.size());
            ++underlined;
        }
        m_text.push_back(m_text[index]);
    }
}

} // namespace wingdi
