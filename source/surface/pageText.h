// The one way from numbers and literals to page text.
//
// appendPieces(out, "<line x1='", x1, "' y1='", y1, "'") appends its pieces in order: literals and string
// views as they are, int and unsigned in decimal, FixedNumber with a fixed count of decimals, RgbColor as
// "rgb(r,g,b)". No piece depends on the locale. A further kind of piece needs two overloads: maximumLength,
// a bound on its characters, and putPiece, which writes it and gives the place after it.
#pragma once

#include <charconv>
#include <cstddef>
#include <cstring>
#include <limits>
#include <string_view>

#include "color.h"
#include "sys/krnos.h"
#include "sys/tovostr.h"

namespace drawing {

// A number with `decimals` digits after the point. `room` is the size in bytes of the buffer that the text
// has to fit, its terminator counted: a page format fixes it, since it decides the text of extreme values.
struct FixedNumber {
    float value;
    int decimals;
    int room;
};

struct RgbColor {
    unsigned long color;
};

constexpr std::size_t IntegerRoom = 11; // "-2147483648", "4294967295"

template <std::size_t N>
constexpr std::size_t maximumLength(const char (&/*literal*/)[N])
{
    return N - 1;
}

constexpr std::size_t maximumLength(std::string_view text)
{
    return text.size();
}

constexpr std::size_t maximumLength(int /*number*/)
{
    return IntegerRoom;
}

constexpr std::size_t maximumLength(unsigned int /*number*/)
{
    return IntegerRoom;
}

constexpr std::size_t maximumLength(RgbColor /*color*/)
{
    return std::string_view("rgb(255,255,255)").size();
}

inline std::size_t maximumLength(FixedNumber number)
{
    return static_cast<std::size_t>(number.room);
}

template <std::size_t N>
char* putPiece(char* at, const char (&literal)[N])
{
    std::memcpy(at, literal, N - 1);
    return at + (N - 1);
}

inline char* putPiece(char* at, std::string_view text)
{
    if (!text.empty()) {
        std::memcpy(at, text.data(), text.size());
    }
    return at + text.size();
}

inline char* putPiece(char* at, int number)
{
    return std::to_chars(at, at + IntegerRoom, number).ptr;
}

inline char* putPiece(char* at, unsigned int number)
{
    return std::to_chars(at, at + IntegerRoom, number).ptr;
}

inline char* putPiece(char* at, RgbColor color)
{
    at = putPiece(at, "rgb(");
    at = putPiece(at, redOf(color.color));
    *at++ = ',';
    at = putPiece(at, greenOf(color.color));
    *at++ = ',';
    at = putPiece(at, blueOf(color.color));
    *at++ = ')';
    return at;
}

inline char* putPiece(char* at, FixedNumber number)
{
    const std::string_view text = intlFloatToStringFixed(at, number.room, number.value, number.decimals);
    std::memmove(at, text.data(), text.size()); // the conversion may begin anywhere in its buffer
    return at + text.size();
}

template <typename... Pieces>
void appendPieces(TovoTextString& out, const Pieces&... pieces)
{
    const std::size_t bound = (maximumLength(pieces) + ...);
    if (bound > std::numeric_limits<unsigned int>::max()) {
        krnOutOfMemory();
    }
    char* const start = out.room(static_cast<unsigned int>(bound));
    char* end = start;
    ((end = putPiece(end, pieces)), ...);
    out.grow(static_cast<unsigned int>(end - start));
}

} // namespace drawing
