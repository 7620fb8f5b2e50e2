// Pixels as a PNG file, for systems where the layer that paints brings no writer.
#pragma once

#include <cstddef>

namespace device {

// Rows from the top, `stride` bytes apart; a pixel is blue, green, red and one byte that is not looked at. False when the
// file can't be written or there is no memory; what was written of it is then gone.
bool writePng(const char* path, const unsigned char* bits, std::size_t stride, int width,
              int height) noexcept;

} // namespace device
