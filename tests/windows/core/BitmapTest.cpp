// Bitmaps from memory: forms that are read, and heads that are refused.
#include <windows.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

struct PackedDib {
    BITMAPINFOHEADER head;
    RGBQUAD colors[256];
    BYTE rows[16];
};

BITMAPINFOHEADER head(LONG width, LONG height, WORD bits, DWORD compression = BI_RGB, DWORD colors = 0)
{
    return {sizeof(BITMAPINFOHEADER), width, height, 1, bits, compression, 8, 0, 0, colors, 0};
}

TEST(Bitmaps, RefuseUnsoundHeads)
{
    const BITMAPINFOHEADER heads[] = {
        head(0, 1, 24),         head(1, 0, 24),          head(-1, 1, 24),
        head(1, 1, 2),          head(1, INT_MIN, 24),    head(INT_MAX, INT_MAX, 32),
        head(1, 1, 24, 4),      head(16384, 8192, 24),   head(1, 1, 4, BI_RGB, 17),
        head(1, 1, 4, BI_RLE8), head(1, -1, 8, BI_RLE8),
    };
    for (const BITMAPINFOHEADER& entry : heads) {
        const PackedDib dib{entry, {}, {}};
        EXPECT_EQ(CreateDIBPatternBrushPt(&dib, DIB_RGB_COLORS), nullptr) << &entry - heads;
    }
}

// Each form holds the same two rows of one pixel, red over blue.
TEST(Bitmaps, AreFilledFromEveryForm)
{
    constexpr RGBQUAD Red{0, 0, 0xFF, 0};
    constexpr RGBQUAD Blue{0xFF, 0, 0, 0};
    constexpr RGBQUAD Masks[] = {{0, 0xF8, 0, 0}, {0xE0, 7, 0, 0}, {0x1F, 0, 0, 0}};
    const PackedDib forms[] = {
        {head(1, -2, 1), {Blue, Red}, {0x80, 0, 0, 0, 0}},
        {head(1, -2, 4), {Red, Blue}, {0, 0, 0, 0, 0x10}},
        {head(1, 2, 8), {Red, Blue}, {1, 0, 0, 0, 0}},
        {head(1, 2, 8, BI_RLE8), {Red, Blue}, {1, 1, 0, 0, 1, 0, 0, 1}},
        {head(1, 2, 16), {}, {0x1F, 0, 0, 0, 0, 0x7C}},
        {head(1, 2, 16, BI_BITFIELDS), {Masks[0], Masks[1], Masks[2]}, {0x1F, 0, 0, 0, 0, 0xF8}},
        {head(1, 2, 24), {}, {0xFF, 0, 0, 9, 0, 0, 0xFF, 9}},
        {head(1, -2, 32), {}, {0, 0, 0xFF, 0, 0xFF, 0, 0, 0}},
    };
    const BITMAPINFO sectionInfo{head(1, -2, 24), {}};
    for (const PackedDib& form : forms) {
        void* bits = nullptr;
        const HBITMAP section = CreateDIBSection(nullptr, &sectionInfo, DIB_RGB_COLORS, &bits, nullptr, 0);
        ASSERT_NE(bits, nullptr);
        const auto* info = reinterpret_cast<const BITMAPINFO*>(&form);
        EXPECT_EQ(SetDIBits(nullptr, section, 0, 2, form.rows, info, DIB_RGB_COLORS), 2);
        const BYTE* pixels = static_cast<const BYTE*>(bits);
        const std::vector<BYTE> both = {pixels[0], pixels[1], pixels[2], pixels[4], pixels[5], pixels[6]};
        EXPECT_EQ(both, (std::vector<BYTE>{0, 0, 0xFF, 0xFF, 0, 0})) << &form - forms;
        EXPECT_TRUE(DeleteObject(section));
    }
}

// The same picture in pairs of counts and values, in literals, and by moves over what stays 0, with 8 and 4 bits.
TEST(Bitmaps, RunLengthsRepeatCopyAndMove)
{
    struct Form {
        WORD bits;
        std::vector<BYTE> codes;
    };
    const Form forms[] = {
        {8, {1, 1, 1, 2, 0, 0, 3, 0, 1, 1, 0, 1}},
        {8, {0, 3, 1, 2, 0, 9, 0, 2, 0, 1, 1, 1, 0, 1}},
        {4, {2, 0x12, 0, 0, 3, 0x00, 1, 0x10, 0, 1}},
        {4, {0, 3, 0x12, 0x0F, 0, 2, 0, 1, 1, 0x10, 0, 1}},
        {4, {0, 5, 0x12, 0x00, 0x10, 9, 0, 0, 0, 2, 3, 0, 1, 0x10, 0, 1}}, // one pixel too many is dropped
    };
    for (const Form& form : forms) {
        PackedDib dib{head(4, 2, form.bits, form.bits == 8 ? BI_RLE8 : BI_RLE4), {}, {}};
        for (BYTE color = 0; color < 3; ++color) {
            dib.colors[color] = {color, 0, 0, 0};
        }
        dib.head.biSizeImage = static_cast<DWORD>(form.codes.size());
        std::copy(form.codes.begin(), form.codes.end(), dib.rows);
        const BITMAPINFO info{head(4, -2, 32), {}};
        void* bits = nullptr;
        const HBITMAP section = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        ASSERT_NE(bits, nullptr);
        EXPECT_EQ(SetDIBits(nullptr, section, 0, 2, dib.rows, reinterpret_cast<const BITMAPINFO*>(&dib), 0),
                  2);
        std::string blue;
        for (int pixel = 0; pixel < 8; ++pixel) {
            blue += static_cast<const char*>(bits)[std::ptrdiff_t{4} * pixel];
        }
        EXPECT_EQ(blue, std::string("\0\0\0\1\1\2\0\0", 8)) << &form - forms;
        DeleteObject(section);
    }
}

} // namespace
