// How large an encoded image says it is, for the formats whose header FreeImage does not read alone.
//
// Used by FreeImageDesc.cpp before it decodes bytes from strangers: a file of a hundred bytes may state
// gigabytes of pixels.
#pragma once

#include <cstddef>
#include <cstdint>

#include "sys/krnutil.h"

// Bytes that the pixels take once decoded, the largest number that the data states; 0 when it states none or
// the format is not one of these.
std::uint64_t statedPixelBytes(FREE_IMAGE_FORMAT format, const unsigned char* data, std::size_t size);
