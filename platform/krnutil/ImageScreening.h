// A look at the bytes of an encoded image before FreeImage gets them, where FreeImage does not look closely enough
// itself: a file of a hundred bytes may state gigabytes of pixels, or a header that no picture can have.
//
// Used by FreeImageDesc.cpp.
#pragma once

#include <cstddef>
#include <cstdint>

#include "sys/krnutil.h"

namespace krnutil {

// Bytes that the pixels take once decoded, the largest number that the data states, for the formats whose header
// FreeImage does not read alone; 0 when it states none or the format is not one of these.
std::uint64_t statedPixelBytes(FREE_IMAGE_FORMAT format, const unsigned char* data, std::size_t size);

// Whether FreeImage's decoder of this format can be let near bytes from strangers. Those that cannot, all of
// formats that are rare today, write past their blocks, read past them or never end on damaged data.
bool isSoundDecoder(FREE_IMAGE_FORMAT format);

// Whether the header of an icon file, or of a TIFF file, describes a first picture that FreeImage can be trusted
// with; of other formats every one does. FreeImage takes an icon's bits per pixel and the signs of its sides as
// they come, and ends the process over samples in a TIFF file that it has no form for.
bool hasSoundHeader(FREE_IMAGE_FORMAT format, const unsigned char* data, std::size_t size);

} // namespace krnutil
