// Pictures that callers and files bring as JPEG or PNG.
#pragma once

#include <memory>
#include <span>

#include "Bitmap.h"

namespace wingdi {

// Decoded, of 32 bits a pixel and opaque. Null when the data are not sound, are not as large as the head says, or when there
// is no library that decodes them. Bounded before it is decoded, as all images are.
std::shared_ptr<Bitmap> decodePicture(const DibHead& head, std::span<const BYTE> data);

// Whether every program that reads documents shows these data as they are decoded here: grey or colour, eight bits a sample,
// coded by Huffman's method, of this size (ITU-T T.81, B.2.2).
bool isCommonJpeg(std::span<const BYTE> data, int width, int height) noexcept;

} // namespace wingdi
