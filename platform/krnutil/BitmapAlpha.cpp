#include "BitmapAlpha.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace krnutil {

namespace {

constexpr std::size_t HeaderAt = 14; // after the head of the file
constexpr std::size_t CompressionAt = HeaderAt + 16;
constexpr std::size_t AlphaMaskAt = HeaderAt + 52; // after the masks of red, green and blue

// Sizes of the headers that have the mask as a field: the third version of the header, the fourth and the fifth.
constexpr std::uint32_t SizesWithAlphaMask[] = {56, 108, 124};

// In the first version, this compression says that four masks follow the header.
constexpr std::uint32_t PlainHeader = 40;
constexpr std::uint32_t AlphaBitFields = 6;

constexpr std::size_t PixelSize = 4;

std::uint32_t numberAt(const unsigned char* bytes) noexcept
{
    return bytes[0] | std::uint32_t{bytes[1]} << 8U | std::uint32_t{bytes[2]} << 16U |
           std::uint32_t{bytes[3]} << 24U;
}

} // namespace

bool hasAlphaMask(const unsigned char* file, std::size_t size) noexcept
{
    if (size < AlphaMaskAt + sizeof(std::uint32_t)) {
        return false;
    }
    const std::uint32_t header = numberAt(file + HeaderAt);
    const bool hasField = std::find(std::begin(SizesWithAlphaMask), std::end(SizesWithAlphaMask), header) !=
                              std::end(SizesWithAlphaMask) ||
                          (header == PlainHeader && numberAt(file + CompressionAt) == AlphaBitFields);
    return hasField && numberAt(file + AlphaMaskAt) != 0;
}

void makeOpaqueIfUnused(unsigned char* pixels, std::size_t count) noexcept
{
    for (std::size_t i = 0; i < count; ++i) {
        if (pixels[i * PixelSize + 3] != 0) {
            return;
        }
    }
    for (std::size_t i = 0; i < count; ++i) {
        pixels[i * PixelSize + 3] = 255;
    }
}

} // namespace krnutil
