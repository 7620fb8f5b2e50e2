// Bitmaps as this layer keeps them, and the reader of those that callers and files bring.
#pragma once

#include <windows.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace wingdi {

// The most bytes that one bitmap may take.
constexpr std::size_t LargestBitmap = std::size_t{256} << 20;

// Where the rows of a bitmap are and what they hold, without owning them. Sizes were checked when it was made: every
// pixel from (0, 0), the top left one, to (width - 1, height - 1) lies within `bits`.
struct BitmapView {
    int width = 0;
    int height = 0;
    int bitsPerPixel = 0; // 1, 4, 8, 16, 24 or 32
    bool bottomUp = false;
    std::ptrdiff_t stride = 0; // bytes from one stored row to the next, above 0
    std::span<const BYTE> bits;
    std::span<const RGBQUAD> palette; // 1, 4 and 8 bits
    DWORD redMask = 0;                // 16 and 32 bits
    DWORD greenMask = 0;
    DWORD blueMask = 0;

    const BYTE* row(int y) const noexcept { return bits.data() + stride * (bottomUp ? height - 1 - y : y); }
    // The palette index of a pixel of 1, 4 or 8 bits.
    unsigned int index(int x, int y) const noexcept;
    // A pixel as 0x00RRGGBB, through palette or masks; an index beyond the palette is black.
    DWORD pixel(int x, int y) const noexcept;
};

// What the head of a device-independent bitmap (BITMAPINFOHEADER or longer, masks, palette) says.
struct DibHead {
    int width = 0;
    int height = 0; // above 0
    int bitsPerPixel = 0;
    bool bottomUp = true;
    DWORD compression =
        BI_RGB;                // BI_RGB, BI_BITFIELDS, BI_RLE8 or BI_RLE4; of pictures also BI_JPEG or BI_PNG
    std::size_t stride = 0;    // of a row without compression; 0 for JPEG and PNG
    std::size_t headBytes = 0; // of head, masks and palette
    std::size_t bitsBytes = 0; // of the rows, as compressed
    std::span<const RGBQUAD> palette;
    DWORD masks[3] = {}; // red, green, blue; 16 bits and more
};
// Nothing for an unsound head, for one that leaves `info`, and for DIB_PAL_COLORS.
std::optional<DibHead> readDibHead(std::span<const BYTE> info, UINT usage) noexcept;
// The same, or that of a picture that is encoded as JPEG or PNG: it can be copied, but is no bitmap of an object.
std::optional<DibHead> readPictureHead(std::span<const BYTE> info, UINT usage) noexcept;
bool isEncoded(const DibHead& head) noexcept;

// Reads the head of a device-independent bitmap that is in `info` with its rows in `bits`: 1, 4, 8, 16, 24 or 32 bits, uncompressed or with masks. Nothing when head, sizes or rows are
// unsound or leave the bytes given. RLE is decoded by expandRle() first.
std::optional<BitmapView> viewDib(std::span<const BYTE> info, std::span<const BYTE> bits, UINT usage);

// The bytes of head and palette at the start of a packed bitmap, and of its rows: 0 for an unsound head. For callers
// that hand over a pointer without a length, as the Windows interface does: head and palette are trusted to be there.
struct DibSize {
    std::size_t head = 0;
    std::size_t bits = 0;
};
DibSize measurePicture(const BITMAPINFO* info, UINT usage) noexcept;
std::optional<DibHead> readDibHead(const BITMAPINFO* info, UINT usage) noexcept;
std::optional<DibHead> readPictureHead(const BITMAPINFO* info, UINT usage) noexcept;

// Rows decoded from BI_RLE8 or BI_RLE4 (8 or 4 bits a pixel, bottom-up, pixels without a code are 0); nothing when unsound.
std::optional<std::vector<BYTE>> expandRle(const DibHead& head, std::span<const BYTE> bits);

// A bitmap that owns its pixels. Compatible ones have 32 bits a pixel (blue, green, red, unused; masks 0xFF0000,
// 0xFF00, 0xFF), monochrome ones 1 bit with the most significant bit leftmost and palette black, white; DIB sections
// have any form, bottom-up or not, with rows padded to 32 bits.
class Bitmap {
public:
    // Null when the size is below 1 or over the limit, or without memory; all pixels 0.
    static std::shared_ptr<Bitmap> create(int width, int height, int bitsPerPixel, bool bottomUp,
                                          bool dibSection) noexcept;
    // A DIB section of the form that the head describes, all pixels 0.
    static std::shared_ptr<Bitmap> createDib(const DibHead& head) noexcept;
    // The same with the pixels of `bits`, whose length follows from the head.
    static std::shared_ptr<Bitmap> createDib(const DibHead& head, const void* bits) noexcept;

    BitmapView view() const noexcept;
    // Stored rows, for writing.
    BYTE* bits() noexcept { return m_bits.data(); }
    BYTE* row(int y) noexcept { return m_bits.data() + m_stride * (m_bottomUp ? m_height - 1 - y : y); }
    // Sets a pixel from 0x00RRGGBB: nearest palette colour, masks or as it is.
    void setPixel(int x, int y, DWORD color) noexcept;
    // Fills the pixels of a row with those of the view's row; what the view is too narrow for stays.
    void setRow(int y, const BitmapView& source, int sourceY) noexcept;
    int width() const noexcept { return m_width; }
    int height() const noexcept { return m_height; }
    int bitsPerPixel() const noexcept { return m_bitsPerPixel; }
    bool isMonochrome() const noexcept { return m_bitsPerPixel == 1 && !m_dibSection; }
    bool isDibSection() const noexcept { return m_dibSection; }
    std::vector<RGBQUAD>& palette() noexcept { return m_palette; }

private:
    void setMasks(DWORD red, DWORD green, DWORD blue) noexcept;

    int m_width = 0;
    int m_height = 0;
    int m_bitsPerPixel = 0;
    bool m_bottomUp = false;
    bool m_dibSection = false;
    std::ptrdiff_t m_stride = 0;
    DWORD m_masks[3] = {}; // red, green, blue
    std::vector<BYTE> m_bits;
    std::vector<RGBQUAD> m_palette;
};

} // namespace wingdi
