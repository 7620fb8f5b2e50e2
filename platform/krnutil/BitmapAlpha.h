// The fourth bytes of 32-bit Windows bitmaps. A file without an alpha mask leaves them unused, and most programs
// write 0 there: taken as alpha, such a picture would be invisible.
//
// Used by FreeImageDesc.cpp.
#pragma once

#include <cstddef>

namespace krnutil {

// Whether the header of a BMP file has a mask for alpha ([MS-WMF] 2.2.2.3 to 2.2.2.5; bV4AlphaMask). False for bytes that
// are no such header.
bool hasAlphaMask(const unsigned char* file, std::size_t size) noexcept;

// Makes 32-bit pixels opaque whose fourth bytes are all 0. Where only one of them is something else they are alpha,
// and all stay.
void makeOpaqueIfUnused(unsigned char* pixels, std::size_t count) noexcept;

} // namespace krnutil
