// What frames, floods, binary operations, regions, wide pens and bitmaps leave on a page, and the page as a file.
#include <gtest/gtest.h>

#include <climits>
#include <cstdio>
#include <random>
#include <string>

#include "support/PixelPage.h"

namespace {

// A brush for the calls that are given one.
class Fill {
public:
    explicit Fill(COLORREF color) : m_brush(CreateSolidBrush(color)) {}
    Fill(const Fill&) = delete;
    Fill& operator=(const Fill&) = delete;
    ~Fill() { DeleteObject(m_brush); }
    operator HBRUSH() const { return m_brush; }

private:
    HBRUSH m_brush;
};

void useBrush(HDC d, COLORREF color)
{
    use(d, CreateSolidBrush(color));
}

void box(HDC d, COLORREF color, RECT rect)
{
    useBrush(d, color);
    Rectangle(d, rect.left, rect.top, rect.right, rect.bottom);
}

struct Drawing {
    const char* name;
    int width;
    int height;
    void (*draw)(HDC);
    const char* picture;
};

const Drawing Drawings[] = {
    // A focus frame drawn twice is gone; swapped corners fill the same.
    {"frames", 26, 9,
     [](HDC d) {
         RECT rects[] = {{1, 1, 7, 6},   {8, 1, 14, 6},  {15, 1, 21, 6},
                         {16, 2, 20, 5}, {25, 8, 22, 1}, {1, 7, 1, 9}};
         FrameRect(d, &rects[0], Fill(Red));
         DrawFocusRect(d, &rects[1]);
         DrawFocusRect(d, &rects[2]);
         DrawFocusRect(d, &rects[2]);
         FillRect(d, &rects[3], Fill(Green));
         FillRect(d, &rects[4], Fill(Blue));
         FrameRect(d, &rects[5], Fill(Red));
     },
     "\n..........................\n.rrrrrr.#.#.#.........bbb.\n.r....r......#..gggg..bbb."
     "\n.r....r.#.......gggg..bbb.\n.r....r......#..gggg..bbb.\n.rrrrrr.#.#.#.........bbb."
     "\n......................bbb.\n......................bbb.\n.........................."},
    {"edges", 10, 8,
     [](HDC d) {
         RECT rect{1, 1, 9, 7};
         DrawEdge(d, &rect, BDR_SUNKENOUTER, BF_LEFT | BF_BOTTOM | BF_MONO | BF_ADJUST);
         FillRect(d, &rect, Fill(Red));
     },
     "\n..........\n.#rrrrrrr.\n.#rrrrrrr.\n.#rrrrrrr.\n.#rrrrrrr.\n.#rrrrrrr.\n.########.\n.........."},
    {"diagonal edges", 40, 12,
     [](HDC d) {
         const UINT ends[] = {BF_DIAGONAL_ENDTOPRIGHT, BF_DIAGONAL_ENDTOPLEFT, BF_DIAGONAL_ENDBOTTOMLEFT,
                              BF_DIAGONAL_ENDBOTTOMRIGHT, BF_DIAGONAL};
         for (int i = 0; i < 5; ++i) {
             RECT rect{8 * i, 0, 8 * i + 7, 4};
             FillRect(d, &rect, Fill(Red));
             const UINT edge = i == 4 ? BDR_SUNKENOUTER : BDR_RAISEDOUTER | BDR_RAISEDINNER;
             DrawEdge(d, &rect, edge, ends[i] | BF_MONO | BF_MIDDLE | BF_ADJUST);
             SetPixelV(d, rect.left, rect.top, Blue);
             SetPixelV(d, rect.right - 1, rect.bottom - 1, Green);
             rect = {8 * i, 5, 8 * i + 4, 12};
             FillRect(d, &rect, Fill(Red));
             DrawEdge(d, &rect, BDR_RAISEDINNER, ends[i]); // white at the top
         }
         RECT hostile{INT_MIN, INT_MIN, INT_MAX, INT_MAX};
         EXPECT_FALSE(DrawEdge(d, &hostile, BDR_RAISEDINNER, BF_DIAGONAL));
     },
     "\nrrrrr##.#.........b..##.brrrrrr.b....##.\nrrr##...r##........##rg..##rgrr....##rr."
     "\nb##.....rrb##....##rrrr....##rr..##rrrr.\n#...g...rrrrr#g.#rrrrrr......##.#rrrrrg."
     "\n........................................\nrrr......rrr....rrr?....?rrr....rrr?...."
     "\nrr.r....r.rr....rr?r....r?rr....rr?r....\nrr.r....r.rr....rr?r....r?rr....rr?r...."
     "\nr.rr....rr.r....r?rr....rr?r....r?rr....\nr.rr....rr.r....r?rr....rr?r....r?rr...."
     "\n.rrr....rrr.....?rrr....rrr?....?rrr....\n.rrr....rrr.....?rrr....rrr?....?rrr...."},
    {"floods", 20, 8,
     [](HDC d) {
         box(d, White, {1, 1, 9, 7});
         box(d, White, {11, 1, 19, 7});
         useBrush(d, Red);
         ExtFloodFill(d, 3, 3, Black, FLOODFILLBORDER);
         useBrush(d, Green);
         ExtFloodFill(d, 13, 3, White, FLOODFILLSURFACE);
         ExtFloodFill(d, 11, 1, White, FLOODFILLSURFACE); // is black there
         useBrush(d, Blue);
         ExtFloodFill(d, 0, 0, White, FLOODFILLSURFACE);
         ExtFloodFill(d, INT_MAX, INT_MIN, White, FLOODFILLBORDER);
     },
     "\nbbbbbbbbbbbbbbbbbbbb\nb########bb########b\nb#rrrrrr#bb#gggggg#b\nb#rrrrrr#bb#gggggg#b"
     "\nb#rrrrrr#bb#gggggg#b\nb#rrrrrr#bb#gggggg#b\nb########bb########b\nbbbbbbbbbbbbbbbbbbbb"},
    // Inverted, black, inverted twice, inverted without a look at the brush.
    {"binary operations", 18, 6,
     [](HDC d) {
         SelectObject(d, GetStockObject(NULL_PEN));
         box(d, Green, {0, 0, 19, 4});
         SetROP2(d, R2_NOTXORPEN);
         box(d, Black, {1, 1, 5, 6});
         SetROP2(d, R2_BLACK);
         box(d, Black, {6, 1, 10, 6});
         SetROP2(d, 7); // exclusive or
         box(d, White, {11, 1, 15, 6});
         box(d, White, {11, 1, 15, 6});
         SetROP2(d, 6); // not
         box(d, White, {15, 1, 18, 6});
     },
     "\ngggggggggggggggggg\ngmmmgg###ggggggmmg\ngmmmgg###ggggggmmg\n.###..###......##.\n.###..###......##."
     "\n.................."},
    {"regions and fill modes", 28, 11,
     [](HDC d) {
         POINT star[] = {{6, 0}, {10, 10}, {0, 4}, {12, 4}, {2, 10}};
         SelectObject(d, GetStockObject(NULL_PEN));
         useBrush(d, Red);
         Polygon(d, star, 5);
         SetPolyFillMode(d, WINDING);
         for (POINT& point : star) {
             point.x += 14;
         }
         Polygon(d, star, 5);
         const HRGN frame = CreateRectRgn(0, 0, 4, 3);
         const HRGN hole = CreateRectRgn(1, 1, 3, 2);
         CombineRgn(frame, frame, hole, RGN_DIFF);
         FillRgn(d, frame, Fill(Blue));
         DeleteObject(frame);
         DeleteObject(hole);
     },
     "\nbbbb........................\nb..b..r.............r.......\nbbbb..r.............r......."
     "\n.....rrr...........rrr......\nrrrrr...rrrrr.rrrrrrrrrrrrr.\n..rr....rrr.....rrrrrrrrr..."
     "\n..................rrrrr.....\n....r...r.........rrrrr.....\n...rrrrrrr.......rrrrrrr...."
     "\n...r.....r.......r.....r....\n............................"},
    {"caps and joins", 40, 14,
     [](HDC d) {
         const DWORD caps[] = {PS_ENDCAP_FLAT, PS_ENDCAP_SQUARE, PS_ENDCAP_ROUND};
         const DWORD joins[] = {PS_JOIN_MITER, PS_JOIN_BEVEL, PS_JOIN_ROUND};
         const COLORREF colors[] = {Black, Red, Blue};
         for (int i = 0; i < 3; ++i) {
             use(d, geometricPen(caps[i], 5, colors[i]));
             const LONG left = 4 + 12 * i + i / 2;
             line(d, {left, 4}, {left + 6, 4});
             use(d, geometricPen(PS_ENDCAP_FLAT | joins[i], 3, colors[i]));
             const POINT corner[] = {{3 + 12 * i, 12}, {3 + 12 * i, 9}, {9 + 12 * i, 9}};
             Polyline(d, corner, 3);
         }
     },
     "\n........................................\n........................................"
     "\n....######....rrrrrrrrrrr...bbbbbbbbb...\n....######....rrrrrrrrrrr..bbbbbbbbbbb.."
     "\n....######....rrrrrrrrrrr..bbbbbbbbbbb..\n....######....rrrrrrrrrrr..bbbbbbbbbbb.."
     "\n....######....rrrrrrrrrrr...bbbbbbbbb...\n........................................"
     "\n..#######......rrrrrr.....bbbbbbb.......\n..#######.....rrrrrrr.....bbbbbbb......."
     "\n..#######.....rrrrrrr.....bbbbbbb.......\n..###.........rrr.........bbb..........."
     "\n........................................\n........................................"},
    // Source rows count from the bottom; what lies above the bitmap changes nothing; the last one has its top row first.
    {"bitmaps", 12, 6,
     [](HDC d) {
         BITMAPINFO info{};
         info.bmiHeader = {40, 2, 4, 1, 32, 0, 0, 0, 0, 0, 0};
         const DWORD rows[] = {0xFF0000, 0xFF0000, 0x00FF00, 0x00FF00, 0x0000FF, 0x0000FF, 0, 0};
         StretchDIBits(d, 0, 0, 2, 4, 0, 0, 2, 4, rows, &info, DIB_RGB_COLORS, SRCCOPY);
         StretchDIBits(d, 3, 0, 2, 2, 0, 0, 2, 2, rows, &info, DIB_RGB_COLORS, SRCCOPY);
         StretchDIBits(d, 6, 0, 4, 4, 0, 1, 2, 2, rows, &info, DIB_RGB_COLORS, SRCCOPY);
         StretchDIBits(d, 3, 3, 2, 3, 0, 2, 2, 3, rows, &info, DIB_RGB_COLORS, SRCCOPY);
         info.bmiHeader.biHeight = -4;
         StretchDIBits(d, 10, 0, 2, 4, 0, 0, 2, 4, rows, &info, DIB_RGB_COLORS, SRCCOPY);
     },
     "\n##.gg.bbbbrr\nbb.rr.bbbbgg\ngg....ggggbb\nrr....gggg##\n...##.......\n...bb......."},
};

TEST(FillPixels, AreExact)
{
    for (const Drawing& drawing : Drawings) {
        const PixelPage page(drawing.width, drawing.height);
        drawing.draw(page.context());
        EXPECT_EQ(page.picture(), drawing.picture) << drawing.name;
    }
}

TEST(RasterPages, AreSavedAsPictures)
{
    const PixelPage page(3, 2);
    const std::string path = testing::TempDir() + "saved-page.png";
    EXPECT_TRUE(gdiSavePng(page.context(), path.c_str()));
    std::FILE* const file = std::fopen(path.c_str(), "rb");
    ASSERT_NE(nullptr, file);
    unsigned char head[24] = {};
    EXPECT_EQ(sizeof(head), std::fread(head, 1, sizeof(head), file));
    EXPECT_EQ("PNG 3 2", std::string(head + 1, head + 4) + " " + std::to_string(head[19]) + " " +
                             std::to_string(head[23]));
    std::fclose(file);
    std::remove(path.c_str());
    EXPECT_FALSE(gdiSavePng(page.context(), "/nowhere/saved-page.png"));
    EXPECT_FALSE(gdiSavePng(nullptr, path.c_str()));
}

// Areas and wide lines of very many points are painted in another way: as regions are, and as all their segments.
TEST(FillPixels, OfVeryManyPoints)
{
    std::mt19937 engine(1);
    std::vector<POINT> points;
    for (int i = 0; i < 60; ++i) {
        const POINT point{static_cast<LONG>(engine() % 100) - 10, static_cast<LONG>(engine() % 80) - 10};
        points.insert(points.end(), 100, point);
    }
    const auto count = static_cast<int>(points.size());
    for (const int mode : {ALTERNATE, WINDING}) {
        const PixelPage area(80, 60);
        SetPolyFillMode(area.context(), mode);
        SelectObject(area.context(), GetStockObject(NULL_PEN));
        use(area.context(), CreateSolidBrush(Blue));
        Polygon(area.context(), points.data(), count);
        const PixelPage region(80, 60);
        const HRGN shape = CreatePolygonRgn(points.data(), count, mode);
        const HBRUSH brush = CreateSolidBrush(Blue);
        FillRgn(region.context(), shape, brush);
        DeleteObject(brush);
        DeleteObject(shape);
        EXPECT_EQ(area.picture(), region.picture()) << mode;
    }
    const PixelPage whole(80, 60);
    use(whole.context(), geometricPen(PS_SOLID, 5, Red));
    Polyline(whole.context(), points.data(), count);
    const PixelPage segments(80, 60);
    use(segments.context(), geometricPen(PS_SOLID, 5, Red));
    for (int i = 1; i < count; ++i) {
        line(segments.context(), points[static_cast<std::size_t>(i) - 1],
             points[static_cast<std::size_t>(i)]);
    }
    int further = 0; // of two edges a pixel apart, the gap may be filled
    for (int i = 0; i < 80 * 60; ++i) {
        const bool covered = segments.at(i % 80, i / 80) == Red;
        EXPECT_TRUE(!covered || whole.at(i % 80, i / 80) == Red) << i;
        further += !covered && whole.at(i % 80, i / 80) == Red ? 1 : 0;
    }
    EXPECT_LE(further, 3);
}

} // namespace
