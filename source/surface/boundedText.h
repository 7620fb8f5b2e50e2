// Text of callers that is bounded by a length as well as by its terminator.
#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>

#include "textFlags.h"

namespace drawing {

// The first `length` characters, or all there are before the terminator; WholeText: all, any other number below 0: none.
// No byte after them is looked at.
inline std::string_view leftOf(const char* text, int length)
{
    if (length == WholeText) {
        return std::string_view(text);
    }
    const std::size_t limit = length > 0 ? static_cast<std::size_t>(length) : 0;
    const void* const end = std::memchr(text, '\0', limit);
    return std::string_view(
        text, end != nullptr ? static_cast<std::size_t>(static_cast<const char*>(end) - text) : limit);
}

} // namespace drawing
