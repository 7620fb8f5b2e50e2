#include "BitmapAlpha.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace {

constexpr std::size_t headerAt = 14; // after the head of the file
constexpr std::size_t compressionAt = headerAt + 16;
constexpr std::size_t alphaMaskAt = headerAt + 52; // after the masks of red, green and blue

// Sizes of the headers that have the mask as a field: the third version of the header, the fourth and the fifth.
constexpr std::uint32_t sizesWithAlphaMask[] = {56, 108, 124};

// In the first version, this compression says that four masks follow the header.
constexpr std::uint32_t plainHeader = 40;
constexpr std::uint32_t alphaBitFields = 6;

constexpr std::size_t pixelSize = 4;

std::uint32_t numberAt(const unsigned char* bytes) noexcept
{
    return bytes[0] | std::uint32_t{bytes[1]} << 8U | std::uint32_t{bytes[2]} << 16U |
           std::uint32_t{bytes[3]} << 24U;
}

} // namespace

bool hasAlphaMask(const unsigned char* file, std::size_t size) noexcept
{
    if (size < alphaMaskAt + sizeof(std::uint32_t)) {
        return false;
    }
    const std::uint32_t header = numberAt(file + headerAt);
    const bool hasField = std::find(std::begin(sizesWithAlphaMask), std::end(sizesWithAlphaMask), header) !=
                              std::end(sizesWithAlphaMask) ||
                          (header == plainHeader && numberAt(file + compressionAt) == alphaBitFields);
    return hasField && numberAt(file + alphaMaskAt) != 0;
}

void makeOpaqueIfUnused(unsigned char* pixels, std::size_t count) noexcept
{
    for (std::size_t i = 0; i < count; ++i) {
        if (pixels[i * pixelSize + 3] != 0) {
            return;
        }
    }
    for (std::size_t i = 0; i < count; ++i) {
        pixels[i * pixelSize + 3] = 255;
    }
}
