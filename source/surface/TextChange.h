// What an operation appends to a text, cut off again unless it comes to its end. Cutting needs no memory.
#pragma once

#include "sys/tovostr.h"

namespace drawing {

class TextChange {
public:
    explicit TextChange(TovoTextString& text) : m_text(text), m_length(text.length()) {}
    TextChange(const TextChange&) = delete;
    TextChange& operator=(const TextChange&) = delete;
    ~TextChange()
    {
        if (!m_kept) {
            m_text.cutTo(m_length);
        }
    }

    void keep() { m_kept = true; }

private:
    TovoTextString& m_text;
    unsigned int m_length;
    bool m_kept = false;
};

} // namespace drawing
