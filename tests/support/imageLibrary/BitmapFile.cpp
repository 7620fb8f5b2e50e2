// Windows bitmap files without compression ([MS-WMF] 2.2.2.3, 2.2.2.9).
#include "Bitmap.h"

#include <algorithm>

namespace {

constexpr std::size_t HeaderAt = 14; // after the head of the file

template <typename Number>
Number numberAt(const Bytes& file, std::size_t at)
{
    Number number = 0;
    std::memcpy(&number, file.data() + at, sizeof(number));
    return number;
}

bool isKnown(unsigned int bits, DWORD compression)
{
    const bool indexed = bits == 1 || bits == 4 || bits == 8;
    const bool direct = bits == 16 || bits == 24 || bits == 32;
    return (compression == BI_RGB && (indexed || direct)) || (compression == BI_BITFIELDS && bits == 32);
}

} // namespace

OwnedBitmap readBitmapFile(const Bytes& file, bool withPixels)
{
    constexpr LONG LongestSide = 0x7FFF;
    if (file.size() < HeaderAt + sizeof(BITMAPINFOHEADER)) {
        return nullptr;
    }
    const auto headerSize = numberAt<DWORD>(file, HeaderAt);
    const auto width = numberAt<LONG>(file, HeaderAt + 4);
    const auto height = numberAt<LONG>(file, HeaderAt + 8);
    const unsigned int bits = numberAt<WORD>(file, HeaderAt + 14);
    const auto pixelsAt = std::size_t{numberAt<DWORD>(file, 10)};
    if (headerSize < sizeof(BITMAPINFOHEADER) || width < 1 || height < 1 || width > LongestSide ||
        height > LongestSide || !isKnown(bits, numberAt<DWORD>(file, HeaderAt + 16)) ||
        pixelsAt > file.size()) {
        return nullptr;
    }
    const std::size_t colors = bits <= 8 ? std::size_t{1} << bits : 0;
    auto bitmap = std::make_unique<Bitmap>(width, height, bits, colors, withPixels);
    const std::size_t table = HeaderAt + headerSize;
    if (table + colors * sizeof(RGBQUAD) > file.size()) {
        return nullptr;
    }
    std::memcpy(bitmap->colors(), file.data() + table, colors * sizeof(RGBQUAD));
    if (withPixels) {
        // Rows that are cut off stay black.
        const std::size_t wanted = bitmap->stride * bitmap->height();
        std::memcpy(bitmap->row(0), file.data() + pixelsAt, std::min(wanted, file.size() - pixelsAt));
    }
    return bitmap;
}
