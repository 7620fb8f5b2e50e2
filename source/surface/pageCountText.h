// The text of a page count, as a stamp writes it: "7 of 12", or one number alone.
#pragma once

#include <cstring>
#include <string_view>

#include "sys/krnos.h"
#include "sys/krnutil.h"

namespace drawing {

class PageCountText {
    static constexpr int WordRoom = 300; // characters, the terminator included

public:
    static constexpr unsigned int Room = 2 * 11 + WordRoom + 2; // two numbers, the word, two blanks

    PageCountText() : m_length(0) { m_text[0] = '\0'; }

    explicit PageCountText(int number) : m_length(intlSprintf(m_text, "%d", number)) {}

    // The word between the two is the platform's message, or else "of".
    PageCountText(int pageNumber, int pageCount)
    {
        constexpr int Message = 15301;
        char word[WordRoom];
        if (krnGetMessageText(Message, word, WordRoom) != 0) {
            std::strcpy(word, "of");
        }
        m_length = intlSprintf(m_text, "%d %s %d", pageNumber, word, pageCount);
    }

    const char* text() const { return m_text; } // ends with a zero byte
    unsigned int length() const { return static_cast<unsigned int>(m_length); }

private:
    char m_text[Room];
    int m_length;
};

} // namespace drawing
