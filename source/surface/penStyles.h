// The fields of a pen's style word: line, cap and join, of four bits each.
#pragma once

#include <cstddef>
#include <string_view>

namespace drawing {

inline constexpr int PenLineMask = 0xF;
inline constexpr int PenWithoutLine = 5;
inline constexpr unsigned int PenCapBit = 8; // the first of the four bits of the field
inline constexpr unsigned int PenJoinBit = 12;

// The text for one four-bit field of a pen's style word; none for a value the table does not have.
template <std::size_t N>
constexpr std::string_view textOfField(const std::string_view (&texts)[N], int style, unsigned int firstBit)
{
    const std::size_t value = (static_cast<unsigned int>(style) >> firstBit) & 0xFU;
    return value < N ? texts[value] : std::string_view();
}

} // namespace drawing
