// Regions and clips.
#include <windows.h>

#include <array>
#include <climits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

using Box = std::array<LONG, 4>;

// By GetRgnBox or GetClipBox.
template <class Handle>
Box boxOf(int (*ask)(Handle, RECT*), Handle handle)
{
    RECT box{1, 1, 1, 1};
    ask(handle, &box);
    return {box.left, box.top, box.right, box.bottom};
}

TEST(Regions, HoldThePixelsOfAPolygon)
{
    constexpr LONG Most = 1 << 26;
    // A square with a square hole of the same direction.
    const std::vector<POINT> frame = {{0, 0}, {6, 0}, {6, 6}, {0, 6}, {0, 0},
                                      {2, 2}, {4, 2}, {4, 4}, {2, 4}, {2, 2}};
    const struct {
        std::vector<POINT> points;
        int mode;
        int complexity;
        Box box;
    } cases[] = {
        {{{0, 0}, {4, 0}, {4, 3}, {0, 3}}, ALTERNATE, SIMPLEREGION, {0, 0, 4, 3}},
        {{{1, 0}, {3, 4}, {-1, 4}}, ALTERNATE, COMPLEXREGION, {0, 1, 3, 4}},
        {frame, WINDING, SIMPLEREGION, {0, 0, 6, 6}},
        {frame, ALTERNATE, COMPLEXREGION, {0, 0, 6, 6}},
        // Too large to be scanned row by row: the box, cut off at the limit.
        {{{INT_MIN, INT_MIN}, {INT_MAX, -9}, {9, INT_MAX}},
         WINDING,
         SIMPLEREGION,
         {-Most, -Most, Most, Most}},
    };
    for (const auto& entry : cases) {
        const auto count = static_cast<int>(entry.points.size());
        const HRGN region = CreatePolygonRgn(entry.points.data(), count, entry.mode);
        EXPECT_EQ(boxOf(GetRgnBox, region), entry.box) << &entry - cases;
        EXPECT_EQ(CombineRgn(region, region, nullptr, RGN_COPY), entry.complexity) << &entry - cases;
        EXPECT_TRUE(DeleteObject(region));
    }
}

TEST(Regions, CombineAndClip)
{
    const HRGN first = CreateRectRgn(10, 10, 0, 0); // corners swapped
    const HRGN second = CreateRectRgn(5, 0, 15, 10);
    const HRGN result = CreateRectRgn(0, 0, 0, 0);
    const HDC context = GetDC(nullptr);
    const std::pair<int, Box> cases[] = {{RGN_AND, {5, 0, 10, 10}},
                                         {RGN_OR, {0, 0, 15, 10}},
                                         {RGN_XOR, {0, 0, 15, 10}},
                                         {RGN_DIFF, {0, 0, 5, 10}}};
    for (const auto& [mode, box] : cases) {
        const int complexity = mode == RGN_XOR ? COMPLEXREGION : SIMPLEREGION;
        EXPECT_EQ(CombineRgn(result, first, second, mode), complexity);
        EXPECT_EQ(boxOf(GetRgnBox, result), box);
        SelectClipRgn(context, first);
        EXPECT_EQ(ExtSelectClipRgn(context, second, mode), complexity);
        EXPECT_EQ(boxOf(GetClipBox, context), box);
    }
    EXPECT_EQ(ExtSelectClipRgn(context, nullptr, RGN_AND), ERROR);
    EXPECT_EQ(SelectClipRgn(context, first), SIMPLEREGION);
    EXPECT_TRUE(DeleteObject(first) && DeleteObject(second) && DeleteObject(result)); // the clip is a copy

    SetViewportOrgEx(context, 100, 0, nullptr); // the rest is in logical units
    EXPECT_EQ(boxOf(GetClipBox, context), (Box{-100, 0, -90, 10}));
    EXPECT_EQ(OffsetClipRgn(context, 100, 2), SIMPLEREGION);
    EXPECT_EQ(IntersectClipRect(context, 0, 0, 100, 5), SIMPLEREGION);
    EXPECT_EQ(ExcludeClipRect(context, 4, 3, 6, 4), COMPLEXREGION);
    EXPECT_EQ(boxOf(GetClipBox, context), (Box{0, 2, 10, 5}));
    EXPECT_EQ(SelectClipRgn(context, nullptr), SIMPLEREGION);
    EXPECT_EQ(boxOf(GetClipBox, context), (Box{-100, 0, 1820, 1440}));
    ReleaseDC(nullptr, context);
}

// A quarter turn about the origin, whose rectangles stay some, and one of an eighth, whose boxes grow.
TEST(Regions, ClipOnTurnedPages)
{
    const HDC context = GetDC(nullptr);
    SetGraphicsMode(context, GM_ADVANCED);
    const XFORM quarter{0, 1, -1, 0, 100, 0};
    SetWorldTransform(context, &quarter);
    EXPECT_EQ(IntersectClipRect(context, 10, 20, 30, 60), SIMPLEREGION);
    EXPECT_EQ(boxOf(GetClipBox, context), (Box{10, 20, 30, 60}));
    ModifyWorldTransform(context, nullptr, MWT_IDENTITY);
    EXPECT_EQ(boxOf(GetClipBox, context), (Box{40, 10, 80, 30}));
    const XFORM eighth{1, 1, -1, 1, 0, 0};
    SetWorldTransform(context, &eighth);
    EXPECT_EQ(boxOf(GetClipBox, context), (Box{25, -35, 55, -5}));
    EXPECT_EQ(IntersectClipRect(context, 30, -30, 40, -20), COMPLEXREGION);
    ReleaseDC(nullptr, context);
}

} // namespace
