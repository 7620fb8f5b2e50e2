// The 8-bit text of the A functions, code page 1252, as 16-bit characters and back. One byte is one character.
#pragma once

#include <windows.h>

#include <cstddef>
#include <string>
#include <vector>

namespace wingdi {

WCHAR wideCharacter(char character) noexcept;
std::vector<WCHAR> wideText(const char* text, std::size_t length);

// "?" for what the code page lacks.
std::string codePageText(const std::string& utf8);
std::string utf8Text(const std::u16string& text);

} // namespace wingdi
