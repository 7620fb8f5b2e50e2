// What shapes, lines, fills, paths and text leave on a page, pixel by pixel.
#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <vector>

#include "support/PixelPage.h"

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

const Drawing Drawings[] = {
    {"RectanglesByMode", 20, 11,
     [](HDC d) {
         useBrush(d, Red);
         Rectangle(d, 1, 1, 7, 5);
         SetGraphicsMode(d, GM_ADVANCED);
         Rectangle(d, 8, 1, 14, 5);
         SelectObject(d, GetStockObject(NULL_PEN));
         Rectangle(d, 15, 1, 19, 5);
         SetGraphicsMode(d, GM_COMPATIBLE);
         Rectangle(d, 15, 6, 19, 10);
         use(d, geometricPen(PS_JOIN_MITER, 3, Black));
         Rectangle(d, 2, 7, 6, 10);
         use(d, geometricPen(PS_JOIN_MITER | PS_INSIDEFRAME, 2, Black));
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
    {"ArcsByDirection", 33, 11,
     [](HDC d) {
         useBrush(d, Red);
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
    {"DashesByCap", 23, 13,
     [](HDC d) {
         use(d, geometricPen(PS_DASH | PS_ENDCAP_SQUARE, 3, Black));
         line(d, {2, 1}, {20, 1});
         use(d, geometricPen(PS_DASH | PS_ENDCAP_FLAT, 3, Black));
         line(d, {2, 5}, {20, 5});
         use(d, geometricPen(PS_DOT | PS_ENDCAP_SQUARE, 3, Black));
         line(d, {2, 9}, {20, 9});
         // Gaps of one pixel stay open.
         SetGraphicsMode(d, GM_ADVANCED);
         const XFORM larger{1.5F, 0, 0, 1.5F, 0, 0};
         SetWorldTransform(d, &larger);
         use(d, geometricPen(PS_DOT, 1, Black));
         line(d, {2, 8}, {12, 8});
     },
     R"(
.#########...#########.
.#########...#########.
.#########...#########.
.......................
..#########...######...
..#########...######...
..#########...######...
.......................
.###...###...###.......
.###...###...###.......
.###...###...###.......
.......................
...##.##.##.##.##......)"},
    {"HatchesAndPatterns", 24, 8,
     [](HDC d) {
         SetBkColor(d, Yellow);
         SetTextColor(d, Blue);
         SelectObject(d, GetStockObject(NULL_PEN));
         use(d, CreateHatchBrush(HS_BDIAGONAL, Black));
         Rectangle(d, 0, 0, 9, 9);
         const BYTE rows[] = {0xC0, 0, 0x80, 0};
         HBITMAP mono = CreateBitmap(2, 2, 1, 1, rows);
         use(d, CreatePatternBrush(mono));
         DeleteObject(mono);
         Rectangle(d, 8, 0, 13, 9);
         SetBkMode(d, TRANSPARENT);
         SetBrushOrgEx(d, 1, 2, nullptr);
         use(d, CreateHatchBrush(HS_CROSS, Black));
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
    {"PathsAndClips", 24, 10,
     [](HDC d) {
         useBrush(d, Red);
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
         use(d, geometricPen(0, 3, Red));
         line(d, {0, 2}, {24, 2});
     },
     R"(
...............####.....
.#########...rrrrrrrr...
..#r######...rrrrrrrr...
...##...##..rrrrrrrrrr..
....##..##..##########..
....######..##########..
.......#r#..............
........##..............
.........#..............
........................)"},
};

TEST_P(ShapePixels, AreExact)
{
    const Drawing& drawing = GetParam();
    const PixelPage page(drawing.width, drawing.height);
    drawing.draw(page.context());
    EXPECT_EQ(page.picture(), drawing.picture);
}

INSTANTIATE_TEST_SUITE_P(Raster, ShapePixels, testing::ValuesIn(Drawings),
                         [](const auto& drawing) { return drawing.param.name; });

// With and without rotation, from any point round the whole ellipse.
TEST(ShapePixels, WholePiesWithoutAPenAreEllipses)
{
    for (const int mode : {GM_COMPATIBLE, GM_ADVANCED}) {
        for (const XFORM& world : {XFORM{1, 0, 0, 1, 0, 0}, XFORM{0.8F, 0.6F, -0.6F, 0.8F, 9, -5}}) {
            const auto picture = [&](const auto& draw) {
                const PixelPage page(30, 24);
                SelectObject(page.context(), GetStockObject(NULL_PEN));
                useBrush(page.context(), Red);
                SetGraphicsMode(page.context(), mode);
                SetWorldTransform(page.context(), &world);
                draw(page.context());
                return page.picture();
            };
            const std::string ellipse = picture([](HDC d) { Ellipse(d, 3, 2, 27, 19); });
            EXPECT_EQ(ellipse, picture([](HDC d) { Pie(d, 3, 2, 27, 19, 20, 3, 20, 3); }));
            EXPECT_EQ(ellipse, picture([](HDC d) { Chord(d, 3, 2, 27, 19, 4, 17, 4, 17); }));
        }
    }
}

// What is far outside is cut away, before anything is painted that has no such numbers.
TEST(ShapePixels, OfLargeOutlinesShowWhatIsOnThePage)
{
    constexpr LONG Far = 100000000;
    const PixelPage page(8, 6);
    SelectObject(page.context(), GetStockObject(NULL_PEN));
    useBrush(page.context(), Red);
    const POINT lowerHalf[] = {{-Far, 3}, {Far, 3}, {Far, Far}, {-Far, Far}};
    Polygon(page.context(), lowerHalf, 4);
    useBrush(page.context(), Blue);
    const POINT rightOf[] = {{4 - Far, -Far}, {4 + Far, Far}, {Far, -Far}}; // above the line y = x - 4
    Polygon(page.context(), rightOf, 3);
    EXPECT_EQ(page.picture(), R"(
....bbbb
.....bbb
......bb
rrrrrrrb
rrrrrrrr
rrrrrrrr)");
}

TEST(TextPixels, AreSmoothedTurnedAndClipped)
{
    const PixelPage page(80, 80);
    HDC d = page.context();
    LOGFONTA font{};
    font.lfHeight = -16;
    std::strcpy(font.lfFaceName, "Liberation Sans");
    for (const LONG angle : {0, 900}) {
        font.lfEscapement = font.lfOrientation = angle;
        use(d, CreateFontIndirectA(&font));
        const RECT clip{0, 0, 80, 60}; // what runs to the right lies below it
        ExtTextOutA(d, 20, 60, ETO_CLIPPED, &clip, "HHH", 3, nullptr);
        const std::string picture = page.picture();
        EXPECT_EQ(picture.find('#') != std::string::npos, angle != 0);
        EXPECT_EQ(picture.find('?') != std::string::npos, angle != 0);
        EXPECT_EQ(picture.find_first_not_of(".\n", 60UL * 81), std::string::npos);
    }
}

// Liberation Sans strikes out from 0.259 em above the base line downwards, and underlines from 0.033 em below it.
TEST(TextPixels, HaveTheirLinesWhereTheFaceSays)
{
    const PixelPage page(60, 160);
    LOGFONTA font{};
    font.lfHeight = -100;
    font.lfStrikeOut = font.lfUnderline = 1;
    std::strcpy(font.lfFaceName, "Liberation Sans");
    use(page.context(), CreateFontIndirectA(&font));
    SetTextAlign(page.context(), TA_BASELINE);
    ExtTextOutA(page.context(), 0, 100, 0, nullptr, "  ", 2, nullptr);
    const auto isInk = [&](int y) {
        return GetPixel(page.context(), 5, y) == Black;
    };
    std::vector<int> tops;
    for (int y = 1; y < 160; ++y) {
        if (isInk(y) && !isInk(y - 1)) {
            tops.push_back(y);
        }
    }
    EXPECT_EQ(tops, (std::vector<int>{74, 103}));
}

} // namespace
