// Steps from word to word of a text that separators cut.
#pragma once

#include <cstddef>
#include <string_view>

#include "wordSeparators.h"

namespace metafile {

using namespace drawing;

class WordCursor {
public:
    // In front of the first word.
    explicit WordCursor(std::string_view text) : m_text(text) {}

    // Moves to the next word; false, and no word, after the last one.
    bool next()
    {
        m_start = m_end;
        while (m_start < m_text.size() && isWordSeparator(m_text[m_start])) {
            ++m_start;
        }
        m_end = m_start;
        while (m_end < m_text.size() && !isWordSeparator(m_text[m_end])) {
            ++m_end;
        }
        return m_end > m_start;
    }

    std::string_view word() const { return m_text.substr(m_start, m_end - m_start); }
    unsigned int start() const { return static_cast<unsigned int>(m_start); }
    unsigned int end() const { return static_cast<unsigned int>(m_end); }

private:
    std::string_view m_text;
    std::size_t m_start = 0;
    std::size_t m_end = 0;
};

} // namespace metafile
