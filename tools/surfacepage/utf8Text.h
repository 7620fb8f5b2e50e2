// Text of pages as UTF-8, which terminals and other programs take.
#pragma once

#include <string>
#include <string_view>

namespace pagetool {

// Adds a character of 21 bits; one that is no character as U+FFFD.
void appendUtf8(std::string& text, char32_t character);

// Of UTF-16, whose halves of pairs that miss the other become U+FFFD.
std::string utf8Of(std::u16string_view text);
// Of bytes as drawn: what is UTF-8 already stays, all else is taken as code page 1252.
std::string utf8Of(std::string_view text);
// The same on one line: control characters become blanks.
std::string utf8Line(std::string_view text);

} // namespace pagetool
