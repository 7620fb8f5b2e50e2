// Text of pages as UTF-8, which terminals and other programs take.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace pagetool {

// Adds a character of 21 bits; one that is no character as U+FFFD.
void appendUtf8(std::string& text, char32_t character);

// Of UTF-16, whose halves of pairs that miss the other become U+FFFD.
std::string utf8Of(std::u16string_view text);
// Of bytes as drawn: what is UTF-8 already stays, all else is taken as code page 1252.
std::string utf8Of(std::string_view text);
// The same on one line: control characters become blanks.
std::string utf8Line(std::string_view text);

// A text to be sought: as it is, and as the other of UTF-8 and code page 1252 has it where these differ and both can hold it.
std::vector<std::string> spellingsOf(const std::string& text);
// The line with a place of a text in it, with so much before and after it as fits on a terminal; on one line, UTF-8.
std::string excerpt(std::string_view text, std::size_t start);

} // namespace pagetool
