// Copies: their geometry, their operations, and what becomes of colours between the forms of bitmaps.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <initializer_list>
#include <iterator>
#include <utility>
#include <vector>

#include "support/PixelPage.h"

namespace {

// A memory context with a bitmap of a given form, which may be painted and read like a page.
class MemoryBitmap {
public:
    MemoryBitmap(int width, int height, WORD bitsPerPixel, bool bottomUp = false)
        : m_context(CreateCompatibleDC(nullptr))
    {
        struct {
            BITMAPINFOHEADER header;
            std::array<RGBQUAD, 256> palette;
        } info{};
        info.header = {40, width, bottomUp ? height : -height, 1, bitsPerPixel, BI_RGB, 0, 0, 0, 0, 0};
        info.palette[1] = {255, 255, 255, 0};
        info.palette[2] = {0, 0, 255, 0};
        m_bitmap = CreateDIBSection(nullptr, reinterpret_cast<const BITMAPINFO*>(&info), DIB_RGB_COLORS,
                                    nullptr, nullptr, 0);
        SelectObject(m_context, m_bitmap);
    }
    explicit MemoryBitmap(HBITMAP bitmap) : m_context(CreateCompatibleDC(nullptr)), m_bitmap(bitmap)
    {
        SelectObject(m_context, bitmap);
    }
    MemoryBitmap(const MemoryBitmap&) = delete;
    MemoryBitmap& operator=(const MemoryBitmap&) = delete;
    ~MemoryBitmap()
    {
        DeleteDC(m_context);
        DeleteObject(m_bitmap);
    }

    HDC context() const { return m_context; }

private:
    HDC m_context;
    HBITMAP m_bitmap;
};

// Four by three pixels: red, green and blue by diagonals.
void paintDiagonals(HDC context)
{
    constexpr COLORREF Colors[] = {Red, Green, Blue};
    for (int i = 0; i < 12; ++i) {
        SetPixelV(context, i % 4, i / 4, Colors[(i % 4 + i / 4) % 3]);
    }
}

TEST(CopyPixels, StretchMirrorTurnAndStayWhereTheSourceEnds)
{
    const PixelPage page(26, 13);
    HDC d = page.context();
    const MemoryBitmap source(4, 3, 24, true);
    paintDiagonals(source.context());
    SetStretchBltMode(d, COLORONCOLOR);
    const auto stretch = [&](const RECT& to, const RECT& from) {
        EXPECT_TRUE(StretchBlt(d, to.left, to.top, to.right, to.bottom, source.context(), from.left, from.top,
                               from.right, from.bottom, SRCCOPY));
    };
    stretch({0, 0, 4, 3}, {0, 0, 4, 3});   // rectangles are given by position and size here
    stretch({5, 0, 8, 6}, {0, 0, 4, 3});   // doubled
    stretch({17, 0, -4, 3}, {0, 0, 4, 3}); // mirrored: from the pixel at 17 to the left
    stretch({19, 0, 4, 3}, {0, 2, 4, -3}); // upside down: from the row 2 upwards
    stretch({0, 4, 2, 2}, {0, 0, 4, 3});   // made smaller
    stretch({14, 4, 6, 5}, {-1, -1, 6, 5});
    stretch({20, 5, 2000000000, 3}, {0, 0, 4, 3});
    EXPECT_TRUE(BitBlt(d, 1, 7, 4, 3, d, 0, 0, SRCCOPY));
    EXPECT_TRUE(BitBlt(d, 2, 7, 4, 3, d, 1, 7, SRCCOPY)); // onto itself
    SetGraphicsMode(d, GM_ADVANCED);
    const XFORM quarter{0, 1, -1, 0, 11, 8};
    SetWorldTransform(d, &quarter);
    EXPECT_TRUE(BitBlt(d, 0, 0, 4, 3, source.context(), 0, 0, SRCCOPY));
    EXPECT_EQ(page.picture(), R"(
rgbr.rrggbbrr.rbgr.brgb...
gbrg.rrggbbrr.grbg.gbrg...
brgb.ggbbrrgg.bgrb.rgbr...
.....ggbbrrgg.............
gr...bbrrggbb.............
rb...bbrrggbb..rgbr.rrrrrr
...............gbrg.gggggg
.rrgbr.........brgb.bbbbbb
.ggbrg..bgr...............
.bbrgb..rbg...............
........grb...............
........bgr...............
..........................)");
}

TEST(CopyPixels, FollowEveryTruthTable)
{
    const PixelPage page(8, 1);
    HDC d = page.context();
    const MemoryBitmap source(8, 1, 32);
    for (unsigned int table = 0; table < 256; ++table) {
        // Pixel i stands for entry i: pattern, source and destination are its bits.
        std::string expected = "\n";
        for (int i = 0; i < 8; ++i) {
            SetPixelV(d, i, 0, (i & 1) != 0 ? White : Black);
            SetPixelV(source.context(), i, 0, (i & 2) != 0 ? White : Black);
            expected += (table >> i & 1) != 0 ? '.' : '#';
        }
        for (int half = 0; half < 2; ++half) {
            SelectObject(d, GetStockObject(half == 0 ? BLACK_BRUSH : WHITE_BRUSH));
            EXPECT_TRUE(BitBlt(d, half * 4, 0, 4, 1, source.context(), half * 4, 0, table << 16));
        }
        EXPECT_EQ(page.picture(), expected) << table;
    }
}

TEST(CopyPixels, MeetMonochromeBitmapsByTheColoursOfContexts)
{
    const MemoryBitmap source(4, 3, 32);
    paintDiagonals(source.context());
    const MemoryBitmap mask(CreateBitmap(4, 3, 1, 1, nullptr));
    SetBkColor(source.context(), Green);
    BitBlt(mask.context(), 0, 0, 4, 3, source.context(), 0, 0, SRCCOPY);
    EXPECT_EQ(pictureOf(mask.context(), 4, 3), "\n#.##\n.##.\n##.#");

    const PixelPage page(10, 3);
    HDC d = page.context();
    SetTextColor(d, Blue);
    SetBkColor(d, Yellow);
    BitBlt(d, 0, 0, 4, 3, mask.context(), 0, 0, SRCCOPY);
    EXPECT_EQ(gdiDeviceCalls(d, "BitBlt"), 1);
    // The three steps that leave out one colour choose the same pixels, whatever the sizes are.
    SetTextColor(d, Black);
    SetBkColor(d, White);
    for (const auto& [from, operation] :
         {std::pair{&source, SRCINVERT}, {&mask, SRCAND}, {&source, SRCINVERT}}) {
        StretchBlt(d, 5, 0, 5, 3, from->context(), 0, 0, 4, 3, operation);
    }
    EXPECT_EQ(page.picture(), R"(
bybb.r.bbr
ybby..brr.
bbyb.br..b)");
}

struct ShrinkCase {
    const char* name;
    WORD bits; // 0: monochrome
    int mode;
    RECT to; // given by position and size, as is `from`
    RECT from;
    DWORD operation;
    const char* levels; // of the page's top row, two digits a pixel; it was 20 before
};

// The source's columns are white, black, white, white: a line that nearest pixels lose or keep by chance.
const ShrinkCase ShrinkCases[] = {
    {"halves", 24, BLACKONWHITE, {0, 0, 2, 2}, {0, 0, 4, 4}, SRCCOPY, "80ff20"},
    {"partial weights", 8, WHITEONBLACK, {0, 0, 3, 2}, {0, 0, 4, 4}, SRCCOPY, "bf80ff"},
    {"rows only", 32, BLACKONWHITE, {0, 0, 4, 2}, {0, 0, 4, 4}, SRCCOPY, "ff00ffff"},
    {"wider and lower", 32, BLACKONWHITE, {0, 0, 6, 1}, {0, 0, 4, 4}, SRCCOPY, "ff0000ffffff"},
    {"narrower and higher", 16, HALFTONE, {0, 0, 2, 8}, {0, 0, 4, 4}, SRCCOPY, "80ff20"},
    {"mirrored", 24, BLACKONWHITE, {1, 0, -2, 2}, {0, 0, 4, 4}, SRCCOPY, "ff8020"},
    {"half outside", 24, BLACKONWHITE, {0, 0, 3, 2}, {-1, 0, 6, 4}, SRCCOPY, "ff8020"},
    {"middle outside", 24, BLACKONWHITE, {0, 0, 2, 2}, {-3, 0, 6, 4}, SRCCOPY, "20aa20"},
    {"far outside", 24, BLACKONWHITE, {0, 0, 2, 2}, {1, 0, 2000000000, 4}, SRCCOPY, "202020"},
    {"colour on colour", 24, COLORONCOLOR, {0, 0, 2, 2}, {0, 0, 4, 4}, SRCCOPY, "00ff20"},
    {"raster step", 24, BLACKONWHITE, {0, 0, 2, 2}, {0, 0, 4, 4}, SRCINVERT, "20df20"},
    {"raster step in halftone", 24, HALFTONE, {0, 0, 2, 2}, {0, 0, 4, 4}, SRCAND, "002020"},
    {"one bit, black stays", 1, BLACKONWHITE, {0, 0, 2, 2}, {0, 0, 4, 4}, SRCCOPY, "00ff20"},
    {"one bit, each pixel once", 1, BLACKONWHITE, {0, 0, 3, 2}, {0, 0, 4, 4}, SRCCOPY, "ff00ff"},
    {"one bit, white stays", 1, WHITEONBLACK, {0, 0, 2, 2}, {0, 0, 4, 4}, SRCCOPY, "ffff20"},
    {"one bit, averaged", 1, HALFTONE, {0, 0, 2, 2}, {0, 0, 4, 4}, SRCCOPY, "80ff20"},
    {"text colour stays", 0, BLACKONWHITE, {0, 0, 2, 2}, {0, 0, 4, 4}, SRCCOPY, "c04020"},
    {"background colour stays", 0, WHITEONBLACK, {0, 0, 2, 2}, {0, 0, 4, 4}, SRCCOPY, "404020"},
    {"both averaged", 0, HALFTONE, {0, 0, 2, 2}, {0, 0, 4, 4}, SRCCOPY, "804020"},
};

std::string levelsOf(HDC context, std::size_t pixels)
{
    std::string levels;
    for (std::size_t x = 0; x < pixels; ++x) {
        char digits[16];
        std::snprintf(digits, sizeof(digits), "%02x", GetPixel(context, static_cast<int>(x), 0) >> 8 & 0xFF);
        levels += digits;
    }
    return levels;
}

void paintLine(HDC context)
{
    const RECT all{0, 0, 4, 4};
    FillRect(context, &all, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    line(context, {1, 0}, {1, 4});
}

TEST(CopyPixels, KeepThinLinesOfPicturesMadeSmaller)
{
    for (const ShrinkCase& shrink : ShrinkCases) {
        const MemoryBitmap source = shrink.bits == 0 ? MemoryBitmap(CreateBitmap(4, 4, 1, 1, nullptr))
                                                     : MemoryBitmap(4, 4, shrink.bits);
        paintLine(source.context());
        const PixelPage page(6, 8);
        HDC d = page.context();
        const RECT all{0, 0, 6, 8};
        const HBRUSH before = CreateSolidBrush(0x202020);
        FillRect(d, &all, before);
        DeleteObject(before);
        SetTextColor(d, 0xC0C0C0);
        SetBkColor(d, 0x404040);
        SetStretchBltMode(d, shrink.mode);
        EXPECT_TRUE(StretchBlt(d, shrink.to.left, shrink.to.top, shrink.to.right, shrink.to.bottom,
                               source.context(), shrink.from.left, shrink.from.top, shrink.from.right,
                               shrink.from.bottom, shrink.operation));
        const std::string expected = shrink.levels;
        EXPECT_EQ(levelsOf(d, expected.size() / 2), expected) << shrink.name;
    }
}

// Through mappings, from memory with the byte that colours leave free, within a clip of many pieces, to one bit.
TEST(CopyPixels, MadeSmallerAreTheSameByEveryWay)
{
    const PixelPage page(6, 4);
    HDC d = page.context();
    const MemoryBitmap source(4, 4, 24);
    paintLine(source.context());
    SetMapMode(d, MM_ANISOTROPIC);
    SetWindowExtEx(d, 2, 2, nullptr);
    EXPECT_TRUE(BitBlt(d, 0, 0, 4, 4, source.context(), 0, 0, SRCCOPY));
    EXPECT_EQ(levelsOf(d, 2), "80ff");

    SetMapMode(d, MM_TEXT);
    const HRGN clip = CreateRectRgn(2, 0, 3, 1);
    const HRGN piece = CreateRectRgn(4, 0, 5, 1);
    CombineRgn(clip, clip, piece, RGN_OR);
    SelectClipRgn(d, clip);
    DeleteObject(clip);
    DeleteObject(piece);
    const DWORD rows[] = {0x10FF0000, 0x20000000, 0x3000FF00, 0x400000FF};
    BITMAPINFO info{};
    info.bmiHeader = {40, 2, 2, 1, 32, 0, 0, 0, 0, 0, 0};
    EXPECT_EQ(StretchDIBits(d, 2, 0, 3, 1, 0, 0, 2, 2, rows, &info, DIB_RGB_COLORS, SRCCOPY), 2);
    const unsigned char* const bits = gdiDeviceBits(d, nullptr);
    EXPECT_EQ(std::vector<int>(bits + 8, bits + 20),
              (std::vector<int>{0, 128, 128, 32, 255, 255, 255, bits[15], 128, 0, 0, 48}));

    SelectClipRgn(d, nullptr);
    SetGraphicsMode(d, GM_ADVANCED);
    const XFORM quarter{0, 0.5F, -0.5F, 0, 6, 0};
    SetWorldTransform(d, &quarter);
    EXPECT_TRUE(BitBlt(d, 0, 0, 4, 4, source.context(), 0, 0, SRCCOPY));
    // Farther than samples lie apart, the middle is what is left.
    const XFORM far{0, 1e-6F, -1e-6F, 0, 3.5F, 0.5F};
    SetWorldTransform(d, &far);
    EXPECT_TRUE(StretchBlt(d, -2, -2, 4, 4, source.context(), 0, 0, 4, 4, SRCCOPY));
    ModifyWorldTransform(d, nullptr, MWT_IDENTITY);
    EXPECT_EQ(levelsOf(d, 6).substr(6), "ff8080");

    const MemoryBitmap mask(CreateBitmap(2, 2, 1, 1, nullptr));
    SetBkColor(source.context(), White);
    StretchBlt(mask.context(), 0, 0, 2, 2, source.context(), 0, 0, 4, 4, SRCCOPY);
    EXPECT_EQ(pictureOf(mask.context(), 2, 2), "\n#.\n#.");
}

// Sizes below 0 begin with the pixel at their position, be it in the source or in the target, rows from memory too.
TEST(CopyPixels, MirrorInPlace)
{
    const DWORD pixels[] = {0xFF0000, 0x00FF00, 0x0000FF, 0xFFFF00};
    const struct {
        RECT to; // given by position and size, as is `from`
        RECT from;
    } cases[] = {{{1, 0, -2, 2}, {0, 0, 2, 2}},
                 {{0, 0, 2, 2}, {1, 0, -2, 2}},
                 {{0, 1, 2, -2}, {0, 0, 2, 2}},
                 {{0, 0, 2, 2}, {0, 1, 2, -2}},
                 {{1, 1, -2, -2}, {1, 1, -2, -2}}};
    const char* const pictures[] = {"\nyb\ngr", "\nyb\ngr", "\nrg\nby", "\nrg\nby", "\nby\nrg"};
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        const auto& [to, from] = cases[i];
        for (const LONG height : {2, -2}) { // the same picture, whatever row comes first
            const PixelPage page(2, 2);
            const BITMAPINFO info{{40, 2, height, 1, 32, 0, 0, 0, 0, 0, 0}, {}};
            const DWORD rows[] = {pixels[height < 0 ? 2 : 0], pixels[height < 0 ? 3 : 1],
                                  pixels[height < 0 ? 0 : 2], pixels[height < 0 ? 1 : 3]};
            StretchDIBits(page.context(), to.left, to.top, to.right, to.bottom, from.left, from.top,
                          from.right, from.bottom, rows, &info, DIB_RGB_COLORS, SRCCOPY);
            EXPECT_EQ(page.picture(), pictures[i]) << i << " " << height;
        }
    }
    // Where axes point back, a size below 0 is one above 0 on the page.
    const PixelPage page(2, 2);
    const MemoryBitmap source(2, 2, 32);
    SetPixelV(source.context(), 0, 0, Red);
    SetMapMode(page.context(), MM_ANISOTROPIC);
    SetViewportExtEx(page.context(), -1, -1, nullptr);
    StretchBlt(page.context(), 0, 0, -2, -2, source.context(), 0, 0, 2, 2, SRCCOPY);
    EXPECT_EQ(page.picture(), "\nr#\n##");
}

// The share of the whole, and that of each pixel; what does not lie on the source's bitmap is none.
TEST(CopyPixels, AreLaidOverByTheirShare)
{
    const PixelPage page(2, 1);
    const MemoryBitmap source(2, 1, 32, false);
    SetPixelV(page.context(), 0, 0, 0x0000C8);
    SetPixelV(page.context(), 1, 0, 0x0000C8);
    SetPixelV(source.context(), 0, 0, 0x640000);
    const BLENDFUNCTION half{AC_SRC_OVER, 0, 128, 0};
    EXPECT_TRUE(GdiAlphaBlend(page.context(), 0, 0, 1, 1, source.context(), 0, 0, 1, 1, half));
    EXPECT_EQ(page.at(0, 0), 0x320064U);
    const BLENDFUNCTION byPixels{AC_SRC_OVER, 0, 255, AC_SRC_ALPHA}; // whose fourth byte is 0
    EXPECT_TRUE(GdiAlphaBlend(page.context(), 1, 0, 1, 1, source.context(), 1, 0, 1, 1, byPixels));
    EXPECT_EQ(page.at(1, 0), 0x0000C8U);
    EXPECT_FALSE(GdiAlphaBlend(page.context(), 0, 0, 1, 1, source.context(), 2, 0, 1, 1, half));
    EXPECT_FALSE(GdiAlphaBlend(page.context(), 0, 0, 1, 1, source.context(), 0, 0, -1, 1, half));
}

// Every form of bitmap takes and gives the same picture as a page.
TEST(CopyPixels, AreTheSameInAllFormsOfBitmaps)
{
    const auto draw = [](HDC d) {
        const RECT all{0, 0, 16, 8};
        FillRect(d, &all, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
        use(d, CreateSolidBrush(Red));
        Ellipse(d, 0, 0, 8, 8);
        use(d, geometricPen(0, 3, Black));
        line(d, {10, 1}, {14, 6});
        SetROP2(d, 6); // what is there is inverted
        Rectangle(d, 8, 3, 14, 6);
    };
    const PixelPage page(16, 8);
    draw(page.context());
    for (const WORD bits : std::initializer_list<WORD>{4, 8, 16, 24, 32}) {
        for (const bool bottomUp : {false, true}) {
            const MemoryBitmap bitmap(16, 8, bits, bottomUp);
            draw(bitmap.context());
            EXPECT_EQ(pictureOf(bitmap.context(), 16, 8), page.picture()) << bits << bottomUp;
            const PixelPage copy(16, 8);
            BitBlt(copy.context(), 0, 0, 16, 8, bitmap.context(), 0, 0, SRCCOPY);
            EXPECT_EQ(copy.picture(), page.picture()) << bits << bottomUp;
        }
    }
}

} // namespace
