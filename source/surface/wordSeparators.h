// What is between the words of a page's text for a search of whole words.
#pragma once

#include <array>
#include <string_view>

namespace drawing {

// A zero byte separates too: it is where a text was cut into words.
inline constexpr std::array<bool, 256> WordSeparators = [] {
    std::array<bool, 256> separators{};
    for (const char character : std::string_view(" ,;:/\"'\0", 8)) {
        separators[static_cast<unsigned char>(character)] = true;
    }
    return separators;
}();

constexpr bool isWordSeparator(char character)
{
    return WordSeparators[static_cast<unsigned char>(character)];
}

} // namespace drawing
