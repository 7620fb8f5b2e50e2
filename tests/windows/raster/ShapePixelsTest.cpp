// What shapes, lines, fills, paths and text leave on a page, pixel by pixel.
#include <gtest/gtest.h>

#include <climits>
#include <cstring>

#include "windows/raster/RasterPage.h"

namespace {

struct Drawing {
    const char* name;
    int width;
    int height;
    void (*draw)(HDC);
    const char* picture;
};

class ShapePixels : public testing::TestWithParam<Drawing> {};

void useBrush(HDC d, COLORREF color)
{
    use(d, CreateSolidBrush(color));
}

const Drawing drawings[] = {
    {"RectanglesByMode", 20, 11,
     [](HDC d) {
         useBrush(d, red);
         Rectangle(d, 1, 1, 7, 5);
         SetGraphicsMode(d, GM_ADVANCED);
         Rectangle(d, 8, 1, 14, 5);
         SelectObject(d, GetStockObject(NULL_PEN));
         Rectangle(d, 15, 1, 19, 5);
         SetGraphicsMode(d, GM_COMPATIBLE);
         Rectangle(d, 15, 6, 19, 10);
         use(d, geometricPen(PS_JOIN_MITER, 3, black));
         Rectangle(d, 2, 7, 6, 10);
         use(d, geometricPen(PS_JOIN_MITER | PS_INSIDEFRAME, 2, black));
         Rectangle(d, 8, 6, 14, 11);
     },
     R"(
....................
.######.#######rrrr.
.#rrrr#.#rrrrr#rrrr.
.#rrrr#.#rrrrr#rrrr.
.######.#rrrrr#rrrr.
........#######.....
.######.######.rrr..
.######.######.rrr..
.######.##rr##.rrr..
.######.######......
.######.######......)"},
    {"RoundShapes", 26, 11,
     [](HDC d) {
         useBrush(d, red);
         Ellipse(d, 0, 0, 11, 11);
         RoundRect(d, 12, 0, 19, 5, 4, 4);
         SelectObject(d, GetStockObject(NULL_PEN));
         Ellipse(d, 20, 0, 26, 6);
         RoundRect(d, 12, 6, 19, 11, 0, 4);
     },
     R"(
...#####.....#####...rrr..
.##rrrrr##..#rrrrr#.rrrrr.
.#rrrrrrr#..#rrrrr#.rrrrr.
#rrrrrrrrr#.#rrrrr#.rrrrr.
#rrrrrrrrr#..#####...rrr..
#rrrrrrrrr#...............
#rrrrrrrrr#.rrrrrr........
#rrrrrrrrr#.rrrrrr........
.#rrrrrrr#..rrrrrr........
.##rrrrr##..rrrrrr........
...#####..................)"},
    {"ArcsByDirection", 33, 11,
     [](HDC d) {
         useBrush(d, red);
         Pie(d, 0, 0, 11, 11, 11, 5, 5, 0);
         SetArcDirection(d, AD_CLOCKWISE);
         Chord(d, 11, 0, 22, 11, 22, 5, 16, 11);
         SetArcDirection(d, AD_COUNTERCLOCKWISE);
         SetGraphicsMode(d, GM_ADVANCED);
         const XFORM flipped{1, 0, 0, -1, 22, 10};
         SetWorldTransform(d, &flipped);
         Arc(d, 0, 0, 10, 10, 10, 5, 5, 0);
     },
     R"(
.....###.........................
.....#rr##.......................
.....#rrr#.......................
.....#rrrr#......................
.....#rrrr#......................
.....######..........#..........#
....................##..........#
...................#r#..........#
..................#r#..........#.
.................#r##.........##.
................###.........##...)"},
    {"ThinLines", 22, 10,
     [](HDC d) {
         line(d, {1, 1}, {6, 1});
         line(d, {6, 1}, {6, 4});
         line(d, {1, 3}, {5, 8});
         const POINT zigzag[] = {{9, 1}, {20, 4}, {9, 8}};
         Polyline(d, zigzag, 3);
         // Far ends of a line leave its middle where it is.
         line(d, {-67000000, 9}, {67000000, 9});
     },
     R"(
......................
.######..##...........
......#....####.......
.#....#........####...
..#................##.
...#............###...
...#..........##......
....#......###........
..........#...........
######################)"},
    {"WidePens", 26, 12,
     [](HDC d) {
         const struct {
             DWORD style;
             DWORD width;
             POINT from;
             POINT to;
         } lines[] = {{PS_ENDCAP_FLAT, 3, {2, 2}, {9, 2}},
                      {PS_ENDCAP_SQUARE, 3, {15, 2}, {21, 2}},
                      {PS_ENDCAP_ROUND, 5, {4, 8}, {8, 8}},
                      {PS_ENDCAP_FLAT, 2, {14, 6}, {14, 11}},
                      {PS_ENDCAP_FLAT | PS_DASH, 2, {16, 7}, {26, 7}},
                      {PS_ENDCAP_FLAT | PS_DOT, 2, {-2000000000, 10}, {2000000000, 10}}};
         for (const auto& [style, width, from, to] : lines) {
             use(d, geometricPen(style, width, black));
             line(d, from, to);
         }
     },
     R"(
..........................
..#######.....#########...
..#######.....#########...
..#######.....#########...
..........................
..........................
...#######...##.######..##
..#########..##.######..##
..#########..##...........
###########.###.##..##..##
##.#######..###.##..##..##
..........................)"},
    {"DashesAndGaps", 20, 6,
     [](HDC d) {
         for (int style = 1; style <= 5; ++style) {
             use(d, geometricPen(static_cast<DWORD>(style), 0, black));
             line(d, {1, style - 1}, {19, style - 1});
         }
         SetBkColor(d, red);
         use(d, CreatePen(PS_DOT, 1, black));
         line(d, {1, 5}, {19, 5});
     },
     R"(
.###.###.###.###.##.
.#.#.#.#.#.#.#.#.#..
.###.#.###.#.###.#..
.###.#.#.###.#.#.##.
....................
.#r#r#r#r#r#r#r#r#r.)"},
    {"HatchesAndPatterns", 24, 8,
     [](HDC d) {
         SetBkColor(d, yellow);
         SetTextColor(d, blue);
         SelectObject(d, GetStockObject(NULL_PEN));
         use(d, CreateHatchBrush(HS_BDIAGONAL, black));
         Rectangle(d, 0, 0, 9, 9);
         const BYTE rows[] = {0xC0, 0, 0x80, 0};
         HBITMAP mono = CreateBitmap(2, 2, 1, 1, rows);
         use(d, CreatePatternBrush(mono));
         DeleteObject(mono);
         Rectangle(d, 8, 0, 13, 9);
         SetBkMode(d, TRANSPARENT);
         SetBrushOrgEx(d, 1, 2, nullptr);
         use(d, CreateHatchBrush(HS_CROSS, black));
         Rectangle(d, 15, 0, 25, 9);
     },
     R"(
yyyyyyy#yyyy.........#..
yyyyyy#yybyb.........#..
yyyyy#yyyyyy.........#..
yyyy#yyyybyb.........#..
yyy#yyyyyyyy.........#..
yy#yyyyyybyb.........#..
y#yyyyyyyyyy...#########
#yyyyyyyybyb.........#..)"},
    {"PolygonsByFillMode", 22, 9,
     [](HDC d) {
         useBrush(d, red);
         const POINT twice[] = {{1, 1}, {8, 1}, {8, 7}, {1, 7}, {1, 1},
                                {3, 3}, {6, 3}, {6, 5}, {3, 5}, {3, 3}};
         Polygon(d, twice, 10);
         SetPolyFillMode(d, WINDING);
         SetViewportOrgEx(d, 10, 0, nullptr);
         Polygon(d, twice, 10);
         SelectObject(d, GetStockObject(NULL_PEN));
         const POINT far[] = {{11, 0}, {INT_MAX, -INT_MAX}, {INT_MAX, INT_MAX}};
         Polygon(d, far, 3);
     },
     R"(
.....................r
.########..########...
.##rrrrr#..##rrrrr#...
.#r####r#..#r####r#...
.#r#..#r#..#r#rr#r#...
.#r####r#..#r####r#...
.#rrrrrr#..#rrrrrr#...
.########..########...
......................)"},
    {"BinaryOperations", 16, 4,
     [](HDC d) {
         const RECT half{0, 0, 16, 2};
         FillRect(d, &half, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
         use(d, CreatePen(PS_SOLID, 1, red));
         for (int operation = R2_BLACK; operation <= R2_WHITE; ++operation) {
             SetROP2(d, operation);
             line(d, {operation - 1, 1}, {operation - 1, 3});
         }
     },
     R"(
################
#?#?r.r.#?#?r.r.
##??##??rr..rr..
................)"},
    {"PathsAndClips", 24, 10,
     [](HDC d) {
         useBrush(d, red);
         BeginPath(d);
         MoveToEx(d, 1, 1, nullptr);
         LineTo(d, 9, 1);
         LineTo(d, 9, 8);
         CloseFigure(d);
         Rectangle(d, 4, 2, 9, 6);
         EndPath(d);
         StrokeAndFillPath(d);
         BeginPath(d);
         Ellipse(d, 12, 0, 23, 10);
         EndPath(d);
         SelectClipPath(d, RGN_COPY);
         const RECT all{0, 0, 24, 6};
         FillRect(d, &all, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
         use(d, geometricPen(0, 3, red));
         line(d, {0, 2}, {24, 2});
     },
     R"(
..............#####.....
.#########...rrrrrrrr...
..#r######..rrrrrrrrr...
...##...##..rrrrrrrrrr..
....##..##..##########..
....######..##########..
.......#r#..............
........##..............
.........#..............
........................)"},
    {"FloodsAndFrames", 14, 7,
     [](HDC d) {
         SelectObject(d, GetStockObject(NULL_BRUSH));
         Ellipse(d, 0, 0, 8, 7);
         useBrush(d, red);
         EXPECT_TRUE(ExtFloodFill(d, 4, 3, black, FLOODFILLBORDER));
         EXPECT_FALSE(ExtFloodFill(d, 0, 3, black, FLOODFILLBORDER));
         useBrush(d, green);
         EXPECT_TRUE(ExtFloodFill(d, 4, 3, red, FLOODFILLSURFACE));
         EXPECT_FALSE(ExtFloodFill(d, 4, 3, red, FLOODFILLSURFACE));
         const RECT frame{9, 1, 14, 6};
         FrameRect(d, &frame, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
         DrawFocusRect(d, &frame);
     },
     R"(
..####........
.#gggg#..#.#.#
#gggggg#......
#gggggg#.#...#
#gggggg#......
.#gggg#..#.#.#
..####........)"},
    {"TurnedByWorldTransform", 16, 8,
     [](HDC d) {
         SetGraphicsMode(d, GM_ADVANCED);
         const XFORM quarter{0, 1, -1, 0, 15, 0};
         SetWorldTransform(d, &quarter);
         Rectangle(d, 0, 0, 3, 6);
         const RECT block{4, 1, 7, 8};
         FillRect(d, &block, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
         const RECT opaque{0, 8, 4, 12};
         SetBkColor(d, red);
         ExtTextOutA(d, 0, 0, ETO_OPAQUE, &opaque, "", 0, nullptr);
     },
     R"(
...rrrr..#######
...rrrr..#.....#
...rrrr..#.....#
...rrrr..#######
.......#######..
.......#######..
.......#######..
................)"},
};

TEST_P(ShapePixels, AreExact)
{
    const Drawing& drawing = GetParam();
    const RasterPage page(drawing.width, drawing.height);
    drawing.draw(page.context());
    EXPECT_EQ(page.picture(), drawing.picture);
}

INSTANTIATE_TEST_SUITE_P(Raster, ShapePixels, testing::ValuesIn(drawings),
                         [](const auto& drawing) { return drawing.param.name; });

// How many pixels of a rectangle are neither white nor black: smoothed ones, and how many are black.
struct TextPixels {
    int smoothed = 0;
    int solid = 0;
};

TextPixels countIn(HDC context, const RECT& rect)
{
    TextPixels pixels;
    for (int y = rect.top; y < rect.bottom; ++y) {
        for (int x = rect.left; x < rect.right; ++x) {
            const COLORREF color = GetPixel(context, x, y);
            pixels.solid += color == black ? 1 : 0;
            pixels.smoothed += color != black && color != white ? 1 : 0;
        }
    }
    return pixels;
}

TEST(TextPixelsTest, LettersAreSmoothedTurnedAndClipped)
{
    const RasterPage page(80, 80);
    HDC d = page.context();
    LOGFONTA font{};
    font.lfHeight = -16;
    font.lfUnderline = TRUE;
    std::strcpy(font.lfFaceName, "Liberation Sans");
    for (const LONG angle : {0, 900}) {
        font.lfEscapement = angle;
        font.lfOrientation = angle;
        use(d, CreateFontIndirectA(&font));
        const RECT clip{0, 0, 80, 60};
        ExtTextOutA(d, 20, 60, ETO_CLIPPED, &clip, "HHH", 3, nullptr); // upright: all of it is clipped
        const bool upward = angle != 0;
        const TextPixels above = countIn(d, {20, 20, 40, 60});
        EXPECT_EQ(above.smoothed > 20, upward);
        EXPECT_EQ(above.solid > 20, upward) << "the underline alone has some 30 pixels";
        EXPECT_EQ(countIn(d, {0, 60, 80, 80}).solid, 0);
    }
}

TEST(DevicePages, CountCallsAndFailAsTold)
{
    GdiDeviceOptions options;
    options.width = 20;
    options.height = 10;
    options.dpi = 150;
    options.rasterCaps = RC_BITBLT;
    options.failBlitsAfter = 1;
    HDC d = gdiCreateDevice(&options);
    EXPECT_EQ(GetDeviceCaps(d, LOGPIXELSX), 150);
    EXPECT_EQ(GetDeviceCaps(d, RASTERCAPS), static_cast<int>(RC_BITBLT));
    EXPECT_EQ(GetDeviceCaps(d, HORZSIZE), 3);
    EXPECT_TRUE(StretchBlt(d, 0, 0, 4, 4, d, 8, 0, 2, 2, SRCCOPY));
    EXPECT_FALSE(StretchBlt(d, 0, 0, 4, 4, d, 8, 0, 2, 2, SRCCOPY));
    EXPECT_EQ(gdiDeviceCalls(d, "StretchBlt"), 2);
    EXPECT_EQ(gdiDeviceCalls(d, "Ellipse"), 0);
    SetPixelV(d, 1, 2, red);
    int stride = 0;
    const unsigned char* bits = gdiDeviceBits(d, &stride);
    EXPECT_EQ(bits[2 * stride + 4 + 2], 0xFF);
    EXPECT_EQ(bits[2 * stride + 4], 0);
    EXPECT_FALSE(gdiSavePng(d, "/nowhere/at/all.png"));
    DeleteDC(d);
    EXPECT_EQ(gdiDeviceBits(d, nullptr), nullptr);
    options.width = 1 << 20;
    options.height = 1 << 20;
    EXPECT_EQ(gdiCreateDevice(&options), nullptr);
}

} // namespace
