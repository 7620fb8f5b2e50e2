// What closes a page of text: a head composed last goes in front of the content.
#pragma once

#include <cstring>

#include "sys/tovostr.h"

namespace drawing {

// In place, since the page may be large and its buffer mostly has the room.
inline void putInFront(TovoTextString& page, const TovoTextString& head)
{
    page.room(head.length());
    std::memmove(page.text() + head.length(), page.text(), page.length());
    if (!head.isEmpty()) {
        std::memcpy(page.text(), head.text(), head.length());
    }
    page.grow(head.length());
}

} // namespace drawing
