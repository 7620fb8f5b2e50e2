// Text between the 8-bit form of the platform, code page 1252, and 16-bit characters. One character is one
// character on either side, so that positions mean the same in both.
//
// Called where a metafile record holds 16-bit text.
#include <windows.h>

#include "sys/krnos.h"
#include "sys/tovostr.h"

#include <algorithm>
#include <iterator>

namespace {

// The characters from 128 to 159; all others are the first 256 of Unicode. The five that the code page does not
// define stand for themselves ("bestfit1252" of the Unicode consortium's mapping tables).
constexpr unsigned short UpperControls[] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};
static_assert(std::size(UpperControls) == 32);

constexpr unsigned short FirstUpperControl = 0x80;
constexpr unsigned short LastUpperControl = 0x9F;
constexpr unsigned short LastCharacter = 0xFF;

unsigned short toUnicode(char character) noexcept
{
    const auto value = static_cast<unsigned char>(character);
    return value >= FirstUpperControl && value <= LastUpperControl ? UpperControls[value - FirstUpperControl]
                                                                   : value;
}

char toCodePage(unsigned short character) noexcept
{
    if (character < FirstUpperControl || (character > LastUpperControl && character <= LastCharacter)) {
        return static_cast<char>(character);
    }
    const auto* const found = std::find(std::begin(UpperControls), std::end(UpperControls), character);
    return found != std::end(UpperControls)
               ? static_cast<char>(FirstUpperControl + (found - std::begin(UpperControls)))
               : '?';
}

template <typename Source, typename Target, typename Convert>
int convertText(const Source* source, Target* target, int size, Convert convert) noexcept
{
    if (target == nullptr || size <= 0) {
        return 0;
    }
    int length = 0;
    while (source != nullptr && length < size - 1 && source[length] != 0) {
        target[length] = convert(source[length]);
        ++length;
    }
    target[length] = 0;
    return length;
}

} // namespace

int intlUnicodeToCString(const unsigned short* source, char* target, int size)
{
    return convertText(source, target, size, toCodePage);
}

int intlCStringToUnicode(const char* source, unsigned short* target, int size)
{
    return convertText(source, target, size, toUnicode);
}

void TovoTextString::toLower() noexcept
{
    if (_capacity != 0) {
        CharLowerA(_text);
    }
}
