// Escaping of text on its way into a page and back: the five XML special characters as entities.
//
// One pass each way, with the result of a pass per entity: the replaced characters occur in no entity, and the
// ampersand, which does, is escaped first and decoded last. Like every search of a TovoTextString, both stop
// at a zero byte; what is after it is passed on as it is.
#pragma once

#include "sys/tovostr.h"

namespace drawing {

// Appends `length` bytes of `text` to `out`, escaped.
void appendEscaped(TovoTextString& out, const char* text, unsigned int length);

} // namespace drawing
