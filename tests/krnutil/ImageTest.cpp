// FreeImageDesc over small images that are given here as bytes or are made from such.
#include "sys/krnutil.h"

#include <cstdint>
#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

#include "BitmapAlpha.h"

namespace {

std::string number(std::uint32_t value, int bytes)
{
    std::string text;
    for (; bytes > 0; --bytes, value >>= 8) {
        text += static_cast<char>(value);
    }
    return text;
}

// A BMP whose colour table goes from black to white and whose pixel bytes count up, as far as there are any.
std::string bmp(std::uint32_t width, std::uint32_t height, std::uint32_t bits, std::uint32_t pixelBytes)
{
    const std::uint32_t colours = bits <= 8 ? 1U << bits : 0;
    std::string image = "BM" + number(54 + 4 * colours + pixelBytes, 4) + number(0, 4) +
                        number(54 + 4 * colours, 4) + number(40, 4) + number(width, 4) + number(height, 4) +
                        number(1, 2) + number(bits, 2) + number(0, 24);
    for (std::uint32_t colour = 0; colour < colours; ++colour) {
        image += number(colour * 255 / (colours - 1) * 0x010101, 4);
    }
    for (std::uint32_t pixel = 0; pixel < pixelBytes; ++pixel) {
        image += static_cast<char>(0x55 + pixel * 9);
    }
    return image;
}

#if defined(_WIN32)
constexpr const char* otherLibrary = "kernel32.dll";
#else
constexpr const char* otherLibrary = "libc.so.6";
#endif

class Image : public testing::Test {
protected:
    void TearDown() override { krnSetImageLibrary(nullptr); }

    static unsigned char* bytesOf(std::string& text) { return reinterpret_cast<unsigned char*>(text.data()); }

    FIBITMAP* load(FREE_IMAGE_FORMAT stated, std::string image)
    {
        return m_desc.imageLoadFromMem(stated, bytesOf(image), static_cast<unsigned int>(image.size()));
    }

    // "width x height x bits: " and the pixel bytes of the bottom row; "none" when nothing was decoded.
    std::string look(FREE_IMAGE_FORMAT stated, const std::string& image)
    {
        return lookAt(load(stated, image));
    }

    std::string lookAt(FIBITMAP* bitmap)
    {
        if (bitmap == nullptr) {
            return "none";
        }
        const BITMAPINFO* const info = m_desc.imageGetInfo(bitmap);
        const BITMAPINFOHEADER& header = info->bmiHeader;
        EXPECT_EQ(m_desc.imageGetBits(bitmap),
                  reinterpret_cast<const unsigned char*>(info->bmiColors + header.biClrUsed));
        EXPECT_EQ(header.biCompression, 0U);
        std::string text = std::to_string(header.biWidth) + 'x' + std::to_string(header.biHeight) + 'x' +
                           std::to_string(header.biBitCount) + ':';
        for (int i = 0; i < header.biWidth * header.biBitCount / 8; ++i) {
            text += ' ' + std::to_string(m_desc.imageGetBits(bitmap)[i]);
        }
        m_desc.imageUnload(bitmap);
        return text;
    }

    // False with a stand-in of the library that knows Windows bitmaps and PNG only.
    bool hasAllFormats()
    {
        FIBITMAP* const bitmap = load(FIF_BMP, bmp(1, 1, 24, 4));
        fiio_mem_handle_s handle = {};
        const bool saves = m_desc.imageSaveToMem(FIF_TIFF, bitmap, &handle);
        std::free(handle.data);
        m_desc.imageUnload(bitmap);
        return saves;
    }

    // The BMP in another format.
    std::string converted(const std::string& image, FREE_IMAGE_FORMAT target)
    {
        return saved(load(FIF_BMP, image), target);
    }

    // Unloads the bitmap.
    std::string saved(FIBITMAP* bitmap, FREE_IMAGE_FORMAT target)
    {
        fiio_mem_handle_s handle = {};
        EXPECT_TRUE(m_desc.imageSaveToMem(target, bitmap, &handle));
        std::string result(static_cast<const char*>(handle.data), static_cast<std::size_t>(handle.datalen));
        std::free(handle.data);
        m_desc.imageUnload(bitmap);
        return result;
    }

    FreeImageDesc m_desc{false};
};

TEST_F(Image, ComesOutAsAStandardBitmapWithThePixelsAfterTheHeader)
{
    if (!hasAllFormats()) {
        GTEST_SKIP() << "NOT TESTED: the image library knows few formats";
    }
    using namespace std::string_literals;
    const std::pair<std::string, const char*> cases[] = {
        {bmp(8, 1, 1, 4), "8x1x8: 0 255 0 255 0 255 0 255"},
        {bmp(4, 1, 4, 4), "4x1x4: 85 94"},
        {bmp(4, 2, 8, 8), "4x2x8: 85 94 103 112"},
        {bmp(2, 1, 16, 4), "2x1x24: 172 148 189 57 24 230"},
        {bmp(1, 1, 24, 4), "1x1x24: 85 94 103"},
        {bmp(1, 1, 32, 4), "1x1x32: 85 94 103 112"},
        {"P5 2 1 65535\n\x12\x34\xAB\xCD"s, "2x1x8: 18 171"},
        {"P6 1 1 65535\n\x11\x00\x22\x00\x33\x00"s, "1x1x24: 51 34 17"},
        {"Pf\n2 1\n-1.0\n\x00\x00\x00\x3F\x00\x00\x80\x3F"s, "2x1x8: 0 255"},
        {"PF\n1 1\n-1.0\n\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00"s, "1x1x24: 0 0 0"},
    };
    for (const auto& [image, expected] : cases) {
        EXPECT_EQ(look(FIF_UNKNOWN, image), expected);
    }
}

// Two pixels of 32 bits; `masks` go between header and pixels.
std::string bmp32(std::uint32_t header, std::uint32_t compression, const std::string& masks,
                  const std::string& fourths)
{
    std::string image = bmp(2, 1, 32, 0);
    image.replace(10, 8, number(static_cast<std::uint32_t>(54 + masks.size()), 4) + number(header, 4));
    image.replace(30, 4, number(compression, 4));
    return image + masks + "\x01\x02\x03" + fourths[0] + "\x04\x05\x06" + fourths[1];
}

TEST_F(Image, OfFourthBytesThatAreUnusedIsSeen)
{
    if (!hasAllFormats()) {
        GTEST_SKIP() << "NOT TESTED: the image library knows few formats";
    }
    const std::string unused(2, '\0');
    const std::string colours = number(0xFF0000, 4) + number(0xFF00, 4) + number(0xFF, 4);
    EXPECT_EQ(look(FIF_UNKNOWN, bmp32(40, 0, "", unused)), "2x1x32: 1 2 3 255 4 5 6 255");
    EXPECT_EQ(look(FIF_UNKNOWN, bmp32(40, 3, colours, unused)), "2x1x32: 1 2 3 255 4 5 6 255");
    const std::string oneUsed = bmp32(40, 0, "", std::string{'\0', '\1'});
    EXPECT_EQ(look(FIF_UNKNOWN, oneUsed), "2x1x32: 1 2 3 0 4 5 6 1");
    // Other formats that are transparent throughout stay so.
    for (const FREE_IMAGE_FORMAT format : {FIF_PNG, FIF_TIFF}) {
        FIBITMAP* const bitmap = load(FIF_BMP, oneUsed);
        m_desc.imageGetBits(bitmap)[7] = 0;
        EXPECT_EQ(look(format, saved(bitmap, format)), "2x1x32: 1 2 3 0 4 5 6 0") << format;
    }
    // Which headers have a mask for alpha is asked of the reader itself, for FreeImage takes only the first one.
    const auto masked = [&](std::uint32_t header, std::uint32_t compression, std::uint32_t mask) {
        const std::string image = bmp32(header, compression, colours + number(mask, 4), unused);
        return krnutil::hasAlphaMask(reinterpret_cast<const unsigned char*>(image.data()), image.size());
    };
    for (const std::uint32_t header : {56U, 108U, 124U}) {
        EXPECT_TRUE(masked(header, 3, 0xFF000000)) << header;
        EXPECT_FALSE(masked(header, 3, 0)) << header;
    }
    EXPECT_TRUE(masked(40, 6, 0xFF000000));
    EXPECT_FALSE(masked(40, 3, 0xFF000000)); // a pixel is there
    EXPECT_FALSE(masked(64, 3, 0xFF000000)); // of another system
    EXPECT_FALSE(krnutil::hasAlphaMask(nullptr, 0));
}

TEST_F(Image, IsDecodedByItsOwnSignatureInSilence)
{
    if (!hasAllFormats()) {
        GTEST_SKIP() << "NOT TESTED: the image library knows few formats";
    }
    const std::string original = bmp(16, 16, 8, 256);
    const std::string expected = look(FIF_BMP, original);
    testing::internal::CaptureStderr();
    for (const FREE_IMAGE_FORMAT format : {FIF_ICO, FIF_PNG, FIF_TIFF, FIF_GIF}) {
        std::string image = converted(original, format);
        FIMEMORY* const memory = m_desc.imageOpenMemory(bytesOf(image), static_cast<int>(image.size()));
        EXPECT_EQ(m_desc.imageGetFileTypeFromMemory(memory, 0), format);
        m_desc.imageCloseMemory(memory);
        for (const int stated : {-1, 0, 1, 2, 13, 18, 19, 25, 9999}) {
            EXPECT_EQ(look(static_cast<FREE_IMAGE_FORMAT>(stated), image), expected) << format << stated;
        }
        for (std::size_t length = 0; length < image.size(); length += 1 + length / 40) {
            look(format, image.substr(0, length));
        }
        EXPECT_EQ(look(format, image.substr(0, 3)), "none");
    }
    EXPECT_EQ(look(FIF_BMP, std::string(100, '\0')), "none");
    EXPECT_EQ(look(FIF_JPEG, "no image at all"), "none");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(Image, OfMoreThanItsShareOfMemoryIsRefused)
{
    if (!hasAllFormats()) {
        GTEST_SKIP() << "NOT TESTED: the image library knows few formats";
    }
    using namespace std::string_literals;
    const std::string pixels = "\x02\x02\x4C\x01\x00\x3B"s;
    const std::string smallScreen = "GIF89a\x01\x00\x01\x00\x00\x00\x00"s;
    const std::string extension = "\x21\xFE\x02,,\x00"s;
    EXPECT_EQ(look(FIF_GIF, smallScreen + extension + ",\0\0\0\0\xFF\xFF\xFF\xFF\0"s + pixels), "none");
    EXPECT_NE(look(FIF_GIF, smallScreen + extension + ",\0\0\0\0\x02\x00\x02\x00\0"s + pixels), "none");
    EXPECT_EQ(look(FIF_BMP, bmp(40000, 40000, 24, 64)), "none");
    EXPECT_EQ(look(FIF_BMP, bmp(40000, 40000, 1, 64)), "none");
    const std::string sgi = "\x01\xDA\x00\x01\x00\x03\xFF\xFF\xFF\xFF\x00\x03"s;
    EXPECT_EQ(look(FIF_UNKNOWN, sgi + std::string(600, '\0')), "none");
}

// Headers that FreeImage itself would follow past the end of its blocks.
TEST_F(Image, WithAHeaderThatNoPictureHasIsRefused)
{
    if (!hasAllFormats()) {
        GTEST_SKIP() << "NOT TESTED: the image library knows few formats";
    }
    using namespace std::string_literals;
    const std::string icon = converted(bmp(16, 16, 8, 256), FIF_ICO);
    const std::size_t header = 22;
    const std::pair<std::size_t, std::string> cases[] = {
        {header + 14, number(64, 2)},        {header + 14, number(0, 2)},
        {header + 4, number(0xFFFFFFF0, 4)}, {header + 8, number(0xFFFFFFE0, 4)},
        {header + 4, number(0x40000000, 4)}, {header + 8, number(1, 4)},
        {18, number(0x7FFFFFF0, 4)},         {18, number(2000, 4)}};
    for (const auto& [offset, bytes] : cases) {
        std::string damaged = icon;
        damaged.replace(offset, bytes.size(), bytes);
        EXPECT_EQ(look(FIF_ICO, damaged), "none") << offset;
    }
    const std::string tiff = converted(bmp(16, 16, 8, 256), FIF_TIFF);
    const std::size_t samples = tiff.find("\x15\x01\x03\x00\x01\x00\x00\x00\x01\x00"s);
    ASSERT_NE(samples, std::string::npos);
    for (const std::string& tagTypeCountAndValue :
         {"\x15\x01\x03\x00\x01\x00\x00\x00\x08\x00"s, "\x02\x01\x03\x00\x01\x00\x00\x00\x08\x00"s,
          "\x15\x00\x03\x00\x01\x00\x00\x00\x01\x00"s, "\x15\x01\x03\x00\xFF\xFF\xFF\xFF\x01\x00"s}) {
        std::string damaged = tiff;
        damaged.replace(samples, 10, tagTypeCountAndValue);
        EXPECT_EQ(look(FIF_TIFF, damaged), "none");
    }
    EXPECT_EQ(look(FIF_UNKNOWN, "/* XPM */\nstatic char *x[] = {\n\"1 1 1 1\",\n\"a c #000000\",\n\"a\"};\n"),
              "none");
}

TEST_F(Image, Becomes24BitsAndIsSaved)
{
    if (!hasAllFormats()) {
        GTEST_SKIP() << "NOT TESTED: the image library knows few formats";
    }
    FIBITMAP* const narrow = load(FIF_BMP, bmp(2, 1, 8, 4));
    FIBITMAP* const wide = m_desc.imageConvertTo24Bits(narrow);
    fiio_mem_handle_s handle = {};
    EXPECT_FALSE(m_desc.imageSaveToMem(FIF_UNKNOWN, wide, &handle));
    EXPECT_FALSE(m_desc.imageSaveToMem(FIF_PNG, nullptr, &handle));
    EXPECT_EQ(handle.data, nullptr);
    ASSERT_TRUE(m_desc.imageSaveToMem(FIF_JPEG, wide, &handle));
    EXPECT_EQ(std::string(static_cast<char*>(handle.data), 2), "\xFF\xD8");
    std::free(handle.data);
    m_desc.imageUnload(narrow);
    EXPECT_EQ(lookAt(wide), "2x1x24: 85 85 85 94 94 94");
}

TEST_F(Image, IsNoneWithoutTheLibrary)
{
    std::string image = bmp(2, 1, 8, 4);
    krnSetImageLibrary("no such library");
    FreeImageDesc without(false);
    EXPECT_FALSE(without.isProcLoaded());
    EXPECT_EQ(without.imageOpenMemory(bytesOf(image), 4), nullptr);
    EXPECT_EQ(without.imageGetFileTypeFromMemory(nullptr, 0), FIF_UNKNOWN);
    EXPECT_EQ(without.imageLoadFromMem(FIF_BMP, bytesOf(image), 1), nullptr);
    EXPECT_EQ(without.imageGetInfo(nullptr), nullptr);
    EXPECT_EQ(without.imageConvertTo24Bits(nullptr), nullptr);
    EXPECT_NE(look(FIF_BMP, image), "none") << "the one made before keeps its library";
    krnSetImageLibrary(otherLibrary);
    EXPECT_FALSE(FreeImageDesc(false).isProcLoaded());
    krnSetImageLibrary(nullptr);
    EXPECT_TRUE(FreeImageDesc(false).isProcLoaded());
}

} // namespace
