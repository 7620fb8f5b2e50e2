// The letters of a line, each with its character and its place.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "Device.h"

namespace wingdi {

struct PlacedLetter {
    unsigned long glyph;
    // One that a text may hold. Nothing: the letter before has it, in the second half of a pair.
    std::optional<char32_t> character;
    // In the space that the letters' own directions span around the first one, device units.
    double x;
    double y;
};

// None when the directions span nothing.
std::vector<PlacedLetter> placedLetters(const TextOutput& output);

void appendUtf8(std::string& text, char32_t character);
std::string utf8Of(const WCHAR* text, std::size_t length);

} // namespace wingdi
