// gdidevice.h where the system's drawing interface paints: what a page is, and what it refuses.
#include <gdidevice.h>

#include <cstddef>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include <gtest/gtest.h>

#include "sys/krnutil.h"

namespace {

constexpr int Width = 300; // longer than the longest run of a compressed row
constexpr int Height = 7;
constexpr int BytesPerPixel = 4;

HDC newPage()
{
    const GdiDeviceOptions options{Width, Height};
    return gdiCreateDevice(&options);
}

TEST(Page, HasPixelsUntilItsContextEnds)
{
    const HDC page = newPage();
    const HDC other = newPage();
    ASSERT_NE(page, nullptr);
    int stride = 0;
    const unsigned char* const bits = gdiDeviceBits(page, &stride);
    ASSERT_NE(bits, nullptr);
    EXPECT_EQ(stride, 4 * Width);
    EXPECT_NE(bits, gdiDeviceBits(other, nullptr));
    for (int i = 0; i < stride * Height; ++i) {
        ASSERT_EQ(bits[i], i % BytesPerPixel != BytesPerPixel - 1 ? 0xFF : 0) << i;
    }
    EXPECT_TRUE(SetPixelV(page, 1, 2, 0x563412));
    gdiDeviceBits(page, nullptr);
    EXPECT_EQ(std::string(bits + 2 * stride + 4, bits + 2 * stride + 7), "\x56\x34\x12");

    EXPECT_TRUE(DeleteDC(page));
    EXPECT_EQ(gdiDeviceBits(page, &stride), nullptr);
    EXPECT_FALSE(gdiSavePng(page, "gone.png"));
    const HDC memory = CreateCompatibleDC(nullptr);
    EXPECT_EQ(gdiDeviceBits(memory, &stride), nullptr);
    DeleteDC(memory);
    const HDC next = newPage(); // takes the memory of the one that ended
    EXPECT_NE(gdiDeviceBits(next, nullptr), nullptr);
    EXPECT_NE(gdiDeviceBits(other, nullptr), nullptr);
    DeleteDC(next);
    DeleteDC(other);
}

TEST(Page, IsRefused)
{
    const GdiDeviceOptions refused[] = {{0, 5}, {5, -1}, {5, 5, 0}, {5, 5, 1200}, {32768, 32768}};
    for (const GdiDeviceOptions& options : refused) {
        EXPECT_EQ(gdiCreateDevice(&options), nullptr) << options.width << ' ' << options.dpi;
        const bool otherResolution = options.dpi == 1200;
        EXPECT_EQ(GetLastError(), otherResolution ? ERROR_NOT_SUPPORTED : ERROR_INVALID_PARAMETER);
    }
}

// Decoded again by the image library.
TEST(Page, IsSavedAsItIs)
{
    const HDC page = newPage();
    for (int i = 0; i < Width; ++i) {
        SetPixelV(page, i, 1 + i % 2, static_cast<COLORREF>(i * 0x020305)); // no runs
        SetPixelV(page, i, 4, 0x0080FF);                                    // one
    }
    const std::string path = testing::TempDir() + "page.png";
    ASSERT_TRUE(gdiSavePng(page, path.c_str()));
    EXPECT_FALSE(gdiSavePng(page, "Z:\\nowhere\\page.png"));
    EXPECT_FALSE(gdiSavePng(page, nullptr));
    std::ifstream file(path, std::ios::binary);
    std::string png{std::istreambuf_iterator<char>(file), {}};
    file.close();
    std::remove(path.c_str());

    FreeImageDesc images(false);
    FIBITMAP* const bitmap = images.imageLoadFromMem(FIF_PNG, reinterpret_cast<unsigned char*>(png.data()),
                                                     static_cast<unsigned int>(png.size()));
    ASSERT_NE(bitmap, nullptr);
    const BITMAPINFOHEADER& header = images.imageGetInfo(bitmap)->bmiHeader;
    ASSERT_EQ(std::to_string(header.biWidth) + 'x' + std::to_string(header.biHeight), "300x7");
    ASSERT_EQ(header.biBitCount, 24);
    int stride = 0;
    const unsigned char* const bits = gdiDeviceBits(page, &stride);
    for (std::ptrdiff_t y = 0; y < Height; ++y) {
        const unsigned char* const decoded = images.imageGetBits(bitmap) + (Height - 1 - y) * (3 * Width);
        for (std::ptrdiff_t x = 0; x < Width; ++x) {
            for (int channel = 0; channel < 3; ++channel) {
                ASSERT_EQ(decoded[3 * x + channel], bits[y * stride + 4 * x + channel]) << x << ", " << y;
            }
        }
    }
    images.imageUnload(bitmap);
    DeleteDC(page);
}

} // namespace
