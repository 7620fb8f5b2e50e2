// The word between the two numbers of a page count, as in "1 of 3".
#pragma once

#include <cstring>

#include "sys/krnutil.h"

namespace drawing {

class PageCountWord {
public:
    static constexpr int Room = 300; // characters, the terminator included

    PageCountWord()
    {
        constexpr int Message = 15301;
        if (krnGetMessageText(Message, m_text, Room) != 0) {
            std::strcpy(m_text, "of");
        }
    }

    const char* text() const { return m_text; }

private:
    char m_text[Room];
};

} // namespace drawing
