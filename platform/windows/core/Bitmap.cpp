#include "Bitmap.h"

#include <algorithm>
#include <bit>
#include <climits>
#include <cstring>
#include <new>

namespace wingdi {

namespace {

constexpr RGBQUAD BlackAndWhite[] = {{0, 0, 0, 0}, {0xFF, 0xFF, 0xFF, 0}};

DWORD colorOf(const RGBQUAD& entry) noexcept
{
    return (DWORD{entry.rgbRed} << 16) | (DWORD{entry.rgbGreen} << 8) | entry.rgbBlue;
}

// One component of a pixel, widened or narrowed to 8 bits.
DWORD component(DWORD pixel, DWORD mask) noexcept
{
    if (mask == 0) {
        return 0;
    }
    const int shift = std::countr_zero(mask);
    const std::uint64_t most = mask >> shift;
    const std::uint64_t value = (pixel & mask) >> shift;
    return static_cast<DWORD>((value * 255 + most / 2) / most);
}

DWORD placed(DWORD value, DWORD mask) noexcept
{
    if (mask == 0) {
        return 0;
    }
    const int shift = std::countr_zero(mask);
    const std::uint64_t most = mask >> shift;
    return (static_cast<DWORD>((value * most + 127) / 255) << shift) & mask;
}

// The palette index with the least sum of squared differences; the first of equals.
BYTE nearest(std::span<const RGBQUAD> palette, DWORD color) noexcept
{
    const auto square = [color](int entry, unsigned int shift) {
        const int difference = entry - static_cast<int>((color >> shift) & 0xFF);
        return difference * difference;
    };
    BYTE best = 0;
    int least = INT_MAX;
    for (std::size_t index = 0; index < palette.size() && least > 0; ++index) {
        const RGBQUAD& entry = palette[index];
        const int distance = square(entry.rgbRed, 16) + square(entry.rgbGreen, 8) + square(entry.rgbBlue, 0);
        if (distance < least) {
            least = distance;
            best = static_cast<BYTE>(index);
        }
    }
    return best;
}

} // namespace

unsigned int BitmapView::index(int x, int y) const noexcept
{
    const BYTE* bytes = row(y);
    switch (bitsPerPixel) {
    case 1:
        return (bytes[x / 8] >> (7 - x % 8)) & 1U;
    case 4:
        return (bytes[x / 2] >> (x % 2 == 0 ? 4 : 0)) & 0xFU;
    default:
        return bytes[x];
    }
}

DWORD BitmapView::pixel(int x, int y) const noexcept
{
    if (bitsPerPixel <= 8) {
        const unsigned int entry = index(x, y);
        return entry < palette.size() ? colorOf(palette[entry]) : 0;
    }
    const BYTE* bytes = row(y) + std::ptrdiff_t{x} * (bitsPerPixel / 8);
    if (bitsPerPixel == 24) {
        return (DWORD{bytes[2]} << 16) | (DWORD{bytes[1]} << 8) | bytes[0];
    }
    DWORD value = 0;
    std::memcpy(&value, bytes, static_cast<std::size_t>(bitsPerPixel / 8));
    if (bitsPerPixel == 32 && redMask == 0xFF0000 && greenMask == 0xFF00 && blueMask == 0xFF) {
        return value & 0xFFFFFF;
    }
    return (component(value, redMask) << 16) | (component(value, greenMask) << 8) |
           component(value, blueMask);
}

std::shared_ptr<Bitmap> Bitmap::create(int width, int height, int bitsPerPixel, bool bottomUp,
                                       bool dibSection) noexcept
{
    if (width < 1 || height < 1 || bitsPerPixel < 1 || bitsPerPixel > 32) {
        return nullptr;
    }
    const std::uint64_t rowBits = std::uint64_t(width) * static_cast<unsigned int>(bitsPerPixel);
    const std::uint64_t stride = (rowBits + 31) / 32 * 4;
    if (stride * static_cast<unsigned int>(height) > LargestBitmap) {
        return nullptr;
    }
    try {
        auto bitmap = std::make_shared<Bitmap>();
        bitmap->m_width = width;
        bitmap->m_height = height;
        bitmap->m_bitsPerPixel = bitsPerPixel;
        bitmap->m_bottomUp = bottomUp;
        bitmap->m_dibSection = dibSection;
        bitmap->m_stride = static_cast<std::ptrdiff_t>(stride);
        bitmap->m_bits.resize(static_cast<std::size_t>(stride * static_cast<unsigned int>(height)));
        if (bitsPerPixel == 1) {
            bitmap->m_palette.assign(std::begin(BlackAndWhite), std::end(BlackAndWhite));
        } else if (bitsPerPixel == 16) {
            bitmap->setMasks(0x7C00, 0x03E0, 0x001F);
        } else if (bitsPerPixel > 16) {
            bitmap->setMasks(0xFF0000, 0xFF00, 0xFF);
        }
        return bitmap;
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

void Bitmap::setMasks(DWORD red, DWORD green, DWORD blue) noexcept
{
    m_masks[0] = red;
    m_masks[1] = green;
    m_masks[2] = blue;
}

std::shared_ptr<Bitmap> Bitmap::createDib(const DibHead& head) noexcept
{
    std::shared_ptr<Bitmap> bitmap = create(head.width, head.height, head.bitsPerPixel, head.bottomUp, true);
    if (!bitmap) {
        return nullptr;
    }
    try {
        bitmap->m_palette.assign(head.palette.begin(), head.palette.end());
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
    bitmap->setMasks(head.masks[0], head.masks[1], head.masks[2]);
    return bitmap;
}

std::shared_ptr<Bitmap> Bitmap::createDib(const DibHead& head, const void* bits) noexcept
try {
    std::shared_ptr<Bitmap> bitmap = createDib(head);
    if (!bitmap || bits == nullptr) {
        return nullptr;
    }
    const std::span given(static_cast<const BYTE*>(bits), head.bitsBytes);
    if (head.compression != BI_RLE8 && head.compression != BI_RLE4) {
        std::ranges::copy(given, bitmap->m_bits.begin());
        return bitmap;
    }
    std::optional<std::vector<BYTE>> rows = expandRle(head, given);
    if (!rows) {
        return nullptr;
    }
    bitmap->m_bits = std::move(*rows);
    return bitmap;
} catch (const std::bad_alloc&) {
    return nullptr;
}

BitmapView Bitmap::view() const noexcept
{
    return {m_width, m_height,  m_bitsPerPixel, m_bottomUp, m_stride,
            m_bits,  m_palette, m_masks[0],     m_masks[1], m_masks[2]};
}

void Bitmap::setPixel(int x, int y, DWORD color) noexcept
{
    BYTE* bytes = row(y);
    switch (m_bitsPerPixel) {
    case 1: {
        const auto bit = static_cast<BYTE>(0x80 >> (x % 8));
        const bool set = nearest(m_palette, color) != 0;
        bytes[x / 8] = static_cast<BYTE>(set ? bytes[x / 8] | bit : bytes[x / 8] & ~bit);
        return;
    }
    case 4: {
        const int shift = x % 2 == 0 ? 4 : 0;
        bytes[x / 2] =
            static_cast<BYTE>((bytes[x / 2] & (0xF0 >> shift)) | (nearest(m_palette, color) << shift));
        return;
    }
    case 8:
        bytes[x] = nearest(m_palette, color);
        return;
    default:
        break;
    }
    const DWORD value = placed((color >> 16) & 0xFF, m_masks[0]) | placed((color >> 8) & 0xFF, m_masks[1]) |
                        placed(color & 0xFF, m_masks[2]);
    const auto size = static_cast<std::size_t>(m_bitsPerPixel / 8);
    std::memcpy(bytes + static_cast<std::size_t>(x) * size, &value, size); // low bytes first, as in the file
}

void Bitmap::setRow(int y, const BitmapView& source, int sourceY) noexcept
{
    const int count = std::min(m_width, source.width);
    const auto samePalette = [&] {
        return std::ranges::equal(m_palette, source.palette, {}, colorOf, colorOf);
    };
    const bool sameForm =
        m_bitsPerPixel == source.bitsPerPixel && m_masks[0] == source.redMask &&
        m_masks[1] == source.greenMask && m_masks[2] == source.blueMask &&
        (m_bitsPerPixel > 8 || (samePalette() && std::int64_t{count} * m_bitsPerPixel % 8 == 0));
    if (sameForm) {
        std::memcpy(row(y), source.row(sourceY),
                    static_cast<std::size_t>(std::int64_t{count} * m_bitsPerPixel / 8));
        return;
    }
    for (int x = 0; x < count; ++x) {
        setPixel(x, y, source.pixel(x, sourceY));
    }
}

} // namespace wingdi
