// Copies: their geometry, their operations, and what becomes of colours between the forms of bitmaps.
#include <gtest/gtest.h>

#include <array>
#include <initializer_list>
#include <utility>

#include "windows/raster/RasterPage.h"

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
    constexpr COLORREF colors[] = {red, green, blue};
    for (int i = 0; i < 12; ++i) {
        SetPixelV(context, i % 4, i / 4, colors[(i % 4 + i / 4) % 3]);
    }
}

TEST(CopyPixels, StretchMirrorTurnAndStayWhereTheSourceEnds)
{
    const RasterPage page(26, 13);
    HDC d = page.context();
    const MemoryBitmap source(4, 3, 24, true);
    paintDiagonals(source.context());
    const auto stretch = [&](const RECT& to, const RECT& from) {
        EXPECT_TRUE(StretchBlt(d, to.left, to.top, to.right, to.bottom, source.context(), from.left, from.top,
                               from.right, from.bottom, SRCCOPY));
    };
    stretch({0, 0, 4, 3}, {0, 0, 4, 3});   // rectangles are told by position and size here
    stretch({5, 0, 8, 6}, {0, 0, 4, 3});   // doubled
    stretch({18, 0, -4, 3}, {0, 0, 4, 3}); // mirrored
    stretch({19, 0, 4, 3}, {0, 3, 4, -3}); // upside down
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
    const RasterPage page(8, 1);
    HDC d = page.context();
    const MemoryBitmap source(8, 1, 32);
    for (unsigned int table = 0; table < 256; ++table) {
        // Pixel i stands for entry i: pattern, source and destination are its bits.
        std::string expected = "\n";
        for (int i = 0; i < 8; ++i) {
            SetPixelV(d, i, 0, (i & 1) != 0 ? white : black);
            SetPixelV(source.context(), i, 0, (i & 2) != 0 ? white : black);
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
    SetBkColor(source.context(), green);
    BitBlt(mask.context(), 0, 0, 4, 3, source.context(), 0, 0, SRCCOPY);
    EXPECT_EQ(pictureOf(mask.context(), 4, 3), "\n#.##\n.##.\n##.#");

    const RasterPage page(10, 3);
    HDC d = page.context();
    SetTextColor(d, blue);
    SetBkColor(d, yellow);
    BitBlt(d, 0, 0, 4, 3, mask.context(), 0, 0, SRCCOPY);
    EXPECT_EQ(gdiDeviceCalls(d, "BitBlt"), 1);
    // The three steps that leave out one colour choose the same pixels, whatever the sizes are.
    SetTextColor(d, black);
    SetBkColor(d, white);
    for (const auto& [from, operation] :
         {std::pair{&source, SRCINVERT}, {&mask, SRCAND}, {&source, SRCINVERT}}) {
        StretchBlt(d, 5, 0, 5, 3, from->context(), 0, 0, 4, 3, operation);
    }
    EXPECT_EQ(page.picture(), R"(
bybb.r.bbr
ybby..brr.
bbyb.br..b)");
}

// Every form of bitmap takes and gives the same picture as a page.
TEST(CopyPixels, AreTheSameInAllFormsOfBitmaps)
{
    const auto draw = [](HDC d) {
        const RECT all{0, 0, 16, 8};
        FillRect(d, &all, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
        use(d, CreateSolidBrush(red));
        Ellipse(d, 0, 0, 8, 8);
        use(d, geometricPen(0, 3, black));
        line(d, {10, 1}, {14, 6});
        SetROP2(d, 6); // what is there is inverted
        Rectangle(d, 8, 3, 14, 6);
    };
    const RasterPage page(16, 8);
    draw(page.context());
    for (const WORD bits : std::initializer_list<WORD>{4, 8, 16, 24, 32}) {
        for (const bool bottomUp : {false, true}) {
            const MemoryBitmap bitmap(16, 8, bits, bottomUp);
            draw(bitmap.context());
            EXPECT_EQ(pictureOf(bitmap.context(), 16, 8), page.picture()) << bits << bottomUp;
            const RasterPage copy(16, 8);
            BitBlt(copy.context(), 0, 0, 16, 8, bitmap.context(), 0, 0, SRCCOPY);
            EXPECT_EQ(copy.picture(), page.picture()) << bits << bottomUp;
        }
    }
}

} // namespace
