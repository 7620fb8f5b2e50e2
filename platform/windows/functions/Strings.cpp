// The string functions of <windows.h>: 8-bit text in code page 1252, whatever the C locale is.
#include <windows.h>

#include <algorithm>
#include <array>
#include <bit>
#include <climits>
#include <cstring>

namespace {

enum class Kind : unsigned char { Other, Digit, Letter };

// Runs of characters of one kind. `toLower` leads from each of the run to its lower case. The superscript
// digits count as digits, as they do in the character types of Windows.
struct Run {
    unsigned char first;
    unsigned char last;
    Kind kind;
    unsigned char toLower = 0;
};

constexpr Run Runs[] = {
    {'0', '9', Kind::Digit},          {'A', 'Z', Kind::Letter, 0x20},   {'a', 'z', Kind::Letter},
    {0x83, 0x83, Kind::Letter},       {0x88, 0x88, Kind::Letter},       {0x8A, 0x8A, Kind::Letter, 0x10},
    {0x8C, 0x8C, Kind::Letter, 0x10}, {0x8E, 0x8E, Kind::Letter, 0x10}, {0x9A, 0x9A, Kind::Letter},
    {0x9C, 0x9C, Kind::Letter},       {0x9E, 0x9E, Kind::Letter},       {0x9F, 0x9F, Kind::Letter, 0x60},
    {0xAA, 0xAA, Kind::Letter},       {0xB2, 0xB3, Kind::Digit},        {0xB5, 0xB5, Kind::Letter},
    {0xB9, 0xB9, Kind::Digit},        {0xBA, 0xBA, Kind::Letter},       {0xC0, 0xD6, Kind::Letter, 0x20},
    {0xD8, 0xDE, Kind::Letter, 0x20}, {0xDF, 0xF6, Kind::Letter},       {0xF8, 0xFF, Kind::Letter},
};

struct CodePage {
    std::array<Kind, 256> kinds{};
    std::array<unsigned char, 256> lower{};
};

constexpr CodePage Windows1252 = [] {
    CodePage page;
    for (unsigned int character = 0; character < page.lower.size(); ++character) {
        page.lower[character] = static_cast<unsigned char>(character);
    }
    for (const Run& run : Runs) {
        for (unsigned int character = run.first; character <= run.last; ++character) {
            page.kinds[character] = run.kind;
            page.lower[character] = static_cast<unsigned char>(character + run.toLower);
        }
    }
    return page;
}();

Kind kindOf(CHAR character) noexcept
{
    return Windows1252.kinds[static_cast<unsigned char>(character)];
}

unsigned char lowerOf(CHAR character) noexcept
{
    return Windows1252.lower[static_cast<unsigned char>(character)];
}

} // namespace

int lstrlenA(LPCSTR text)
{
    return text != nullptr ? static_cast<int>(std::min(std::strlen(text), std::size_t{INT_MAX})) : 0;
}

LPSTR lstrcpyA(LPSTR target, LPCSTR text)
{
    if (target == nullptr || text == nullptr) {
        return nullptr;
    }
    std::memmove(target, text, std::strlen(text) + 1);
    return target;
}

LPSTR lstrcatA(LPSTR target, LPCSTR text)
{
    if (target == nullptr || text == nullptr) {
        return nullptr;
    }
    lstrcpyA(target + std::strlen(target), text);
    return target;
}

int lstrcmpA(LPCSTR first, LPCSTR second)
{
    if (first == nullptr || second == nullptr) {
        return (first != nullptr ? 1 : 0) - (second != nullptr ? 1 : 0);
    }
    const int order = std::strcmp(first, second);
    return (order > 0 ? 1 : 0) - (order < 0 ? 1 : 0);
}

LPSTR CharLowerA(LPSTR text)
{
    if (const auto value = std::bit_cast<ULONG_PTR>(text); value < 65536) {
        return std::bit_cast<LPSTR>(ULONG_PTR{Windows1252.lower[value & 0xFF]});
    }
    for (char* character = text; *character != '\0'; ++character) {
        *character = static_cast<char>(lowerOf(*character));
    }
    return text;
}

BOOL IsCharAlphaA(CHAR character)
{
    return kindOf(character) == Kind::Letter ? TRUE : FALSE;
}

BOOL IsCharAlphaNumericA(CHAR character)
{
    return kindOf(character) != Kind::Other ? TRUE : FALSE;
}
