// The reader of device-independent bitmaps ([MS-WMF] 2.2.2.9) that callers and files bring.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "Bitmap.h"

namespace wingdi {

namespace {

constexpr std::size_t HeaderSize = sizeof(BITMAPINFOHEADER);
constexpr std::size_t LongestHeader = 256; // beyond every version of the header
constexpr DWORD MostColors = 256;

constexpr std::size_t MaskBytes = 3 * sizeof(DWORD);

enum class Use : unsigned char { Bitmap, Picture };

constexpr bool isEncodedForm(DWORD compression) noexcept
{
    return compression == BI_JPEG || compression == BI_PNG;
}

bool knownForm(const BITMAPINFOHEADER& header) noexcept
{
    switch (header.biCompression) {
    case BI_RGB:
        return header.biBitCount == 1 || header.biBitCount == 4 || header.biBitCount == 8 ||
               header.biBitCount == 16 || header.biBitCount == 24 || header.biBitCount == 32;
    case BI_BITFIELDS:
        return header.biBitCount == 16 || header.biBitCount == 32;
    case BI_RLE8:
        return header.biBitCount == 8 && header.biHeight > 0;
    case BI_RLE4:
        return header.biBitCount == 4 && header.biHeight > 0;
    default:
        return false;
    }
}

bool soundHeader(const BITMAPINFOHEADER& header, Use use) noexcept
{
    return header.biSize >= HeaderSize && header.biSize <= LongestHeader && header.biWidth > 0 &&
           header.biHeight != 0 && header.biHeight != std::numeric_limits<LONG>::min() &&
           (knownForm(header) || (use == Use::Picture && isEncodedForm(header.biCompression))) &&
           header.biClrUsed <= MostColors;
}

void defaultMasks(DibHead& head) noexcept
{
    if (head.bitsPerPixel == 16) {
        std::ranges::copy(std::initializer_list<DWORD>{0x7C00, 0x03E0, 0x001F}, head.masks);
    } else if (head.bitsPerPixel > 16) {
        std::ranges::copy(std::initializer_list<DWORD>{0xFF0000, 0xFF00, 0xFF}, head.masks);
    }
}

// Of a picture whose data say the rest.
std::optional<DibHead> readEncodedHead(const BITMAPINFOHEADER& header) noexcept
{
    constexpr std::uint64_t PixelBytes = 4; // once it is decoded
    DibHead head;
    head.width = header.biWidth;
    head.height = std::abs(header.biHeight);
    head.bottomUp = header.biHeight > 0;
    head.compression = header.biCompression;
    head.headBytes = header.biSize;
    head.bitsBytes = header.biSizeImage;
    const std::uint64_t pixels = std::uint64_t(head.width) * static_cast<unsigned int>(head.height);
    const bool isSound =
        head.bitsBytes > 0 && head.bitsBytes <= LargestBitmap && pixels <= LargestBitmap / PixelBytes;
    return isSound ? std::optional(head) : std::nullopt;
}

// Reads from `info`, which may be longer than the head; `known` is how many of its bytes may be read.
std::optional<DibHead> readHead(const BYTE* info, std::size_t known, UINT usage, Use use) noexcept
{
    BITMAPINFOHEADER header;
    if (info == nullptr || known < HeaderSize || usage != DIB_RGB_COLORS) {
        return std::nullopt;
    }
    std::memcpy(&header, info, sizeof header);
    if (!soundHeader(header, use) || header.biSize > known) {
        return std::nullopt;
    }
    if (isEncodedForm(header.biCompression)) {
        return readEncodedHead(header);
    }
    DibHead head;
    head.width = header.biWidth;
    head.height = header.biHeight < 0 ? -header.biHeight : header.biHeight;
    head.bottomUp = header.biHeight > 0;
    head.bitsPerPixel = header.biBitCount;
    head.compression = header.biCompression;

    const std::uint64_t rowBits = std::uint64_t(head.width) * header.biBitCount;
    const std::uint64_t stride = (rowBits + 31) / 32 * 4;
    const std::uint64_t rows = stride * static_cast<unsigned int>(head.height);
    if (rows > LargestBitmap || header.biSizeImage > LargestBitmap) {
        return std::nullopt;
    }
    head.stride = static_cast<std::size_t>(stride);
    const bool compressed = head.compression == BI_RLE8 || head.compression == BI_RLE4;
    head.bitsBytes = compressed ? header.biSizeImage : static_cast<std::size_t>(rows);

    // Masks are after the shortest header and are part of the longer ones.
    const bool hasMasks = head.compression == BI_BITFIELDS;
    const std::size_t paletteStart =
        hasMasks ? std::max(std::size_t{header.biSize}, HeaderSize + MaskBytes) : header.biSize;
    const bool indexed = header.biBitCount <= 8;
    const DWORD mostEntries = indexed ? 1U << header.biBitCount : MostColors;
    const DWORD entries = indexed && header.biClrUsed == 0 ? mostEntries : header.biClrUsed;
    head.headBytes = paletteStart + entries * sizeof(RGBQUAD);
    if (entries > mostEntries || head.headBytes > known) {
        return std::nullopt;
    }
    if (hasMasks) {
        std::memcpy(head.masks, info + HeaderSize, MaskBytes);
    } else {
        defaultMasks(head);
    }
    if (indexed) {
        // Four bytes without alignment: any address will do.
        head.palette = {reinterpret_cast<const RGBQUAD*>(info + paletteStart), entries};
    }
    return head;
}

} // namespace

std::optional<DibHead> readDibHead(std::span<const BYTE> info, UINT usage) noexcept
{
    return readHead(info.data(), info.size(), usage, Use::Bitmap);
}

std::optional<DibHead> readPictureHead(std::span<const BYTE> info, UINT usage) noexcept
{
    return readHead(info.data(), info.size(), usage, Use::Picture);
}

bool isEncoded(const DibHead& head) noexcept
{
    return isEncodedForm(head.compression);
}

std::optional<DibHead> readDibHead(const BITMAPINFO* info, UINT usage) noexcept
{
    return readHead(reinterpret_cast<const BYTE*>(info), std::numeric_limits<std::size_t>::max(), usage,
                    Use::Bitmap);
}

std::optional<DibHead> readPictureHead(const BITMAPINFO* info, UINT usage) noexcept
{
    return readHead(reinterpret_cast<const BYTE*>(info), std::numeric_limits<std::size_t>::max(), usage,
                    Use::Picture);
}

std::optional<BitmapView> viewDib(std::span<const BYTE> info, std::span<const BYTE> bits, UINT usage)
{
    const std::optional<DibHead> head = readDibHead(info, usage);
    if (!head || head->compression == BI_RLE8 || head->compression == BI_RLE4 ||
        bits.size() < head->bitsBytes) {
        return std::nullopt;
    }
    return BitmapView{head->width,
                      head->height,
                      head->bitsPerPixel,
                      head->bottomUp,
                      static_cast<std::ptrdiff_t>(head->stride),
                      bits.first(head->bitsBytes),
                      head->palette,
                      head->masks[0],
                      head->masks[1],
                      head->masks[2]};
}

DibSize measurePicture(const BITMAPINFO* info, UINT usage) noexcept
{
    const std::optional<DibHead> head = readPictureHead(info, usage);
    return head ? DibSize{head->headBytes, head->bitsBytes} : DibSize{};
}

} // namespace wingdi
