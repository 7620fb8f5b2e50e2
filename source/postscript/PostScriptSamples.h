// Samples of images as page text: hexadecimal digits, and a way back for samples that are needed in another
// form.
#pragma once

#include <cstdint>
#include <limits>
#include <string_view>

#include "sys/tovostr.h"

namespace postscript {

inline constexpr int WithTransparency = 32; // bits for a pixel

// Strings count in 32 bits; more than that is memory that there is not.
inline unsigned int lengthIn32Bits(std::uint64_t length)
{
    if (length > std::numeric_limits<unsigned int>::max()) {
        krnOutOfMemory();
    }
    return static_cast<unsigned int>(length);
}

// Appends two lower-case digits for each byte and a line feed after every 150th.
void appendHexadecimal(TovoTextString& out, std::string_view bytes);

// The bytes of such a text.
void decodeHexadecimal(TovoBinaryString& out, std::string_view text);

// What a stream in the form of the RunLengthDecode filter (PLRM 3.13.3) stands for. A stream that breaks off
// ends there.
void decodeRunLengths(TovoBinaryString& out, std::string_view stream);

} // namespace postscript
