// The word between the two numbers of a page count, as in "1 of 3".
#pragma once

#include <cstring>

#include "sys/krnutil.h"

class PageCountWord {
public:
    static constexpr int Room = 300; // characters, the terminator included

    PageCountWord()
    {
        constexpr int Message = 15301;
        if (krnGetMessageText(Message, _text, Room) != 0) {
            std::strcpy(_text, "of");
        }
    }

    const char* text() const { return _text; }

private:
    char _text[Room];
};
