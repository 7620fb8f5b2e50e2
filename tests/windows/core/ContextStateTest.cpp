// The state of contexts: former values, refusals, and the way from logical to device units.
#include <windows.h>

#include <array>
#include <climits>

#include <gtest/gtest.h>

namespace {

using Place = std::array<LONG, 2>;

class ContextState : public testing::Test {
protected:
    ~ContextState() override { ReleaseDC(nullptr, m_context); }

    Place device(LONG x, LONG y) const
    {
        POINT point{x, y};
        EXPECT_TRUE(LPtoDP(m_context, &point, 1));
        return {point.x, point.y};
    }

    HDC m_context = GetDC(nullptr);
};

TEST_F(ContextState, ExtentsBelongToTheScalableModes)
{
    SIZE extent{};
    EXPECT_TRUE(SetWindowExtEx(m_context, 100, 100, &extent)); // MM_TEXT: no effect
    EXPECT_EQ(extent.cx, 1);
    EXPECT_TRUE(SetViewportOrgEx(m_context, 10, 20, nullptr));
    EXPECT_EQ(device(5, 6), (Place{15, 26}));

    SetMapMode(m_context, MM_ANISOTROPIC);
    EXPECT_EQ(device(5, 6), (Place{15, 26})); // extents of MM_TEXT, until some are set
    EXPECT_TRUE(SetWindowExtEx(m_context, 1000, 500, nullptr));
    EXPECT_TRUE(SetViewportExtEx(m_context, 100, -100, nullptr));
    EXPECT_FALSE(SetViewportExtEx(m_context, 0, 7, nullptr) ||
                 ScaleWindowExtEx(m_context, 1, 0, 1, 1, nullptr));
    EXPECT_EQ(device(50, 100), (Place{15, 0}));
    EXPECT_EQ(device(INT_MAX, INT_MIN), (Place{214748375, 429496750}));
    POINT back{15, 0};
    EXPECT_TRUE(DPtoLP(m_context, &back, 1));
    EXPECT_EQ(back.y, 100);
    EXPECT_TRUE(ScaleViewportExtEx(m_context, 2, 1, 1, 2, nullptr));
    EXPECT_EQ(device(50, 100), (Place{20, 10}));
    SetMapMode(m_context, MM_TEXT);
    EXPECT_EQ(device(5, 6), (Place{15, 26}));
}

TEST_F(ContextState, FixedModesMeasureTheDeviceUpward)
{
    // 254 mm and 127 mm are 960 and 480 pixels of 96 dots per inch.
    const std::array<LONG, 3> modes[] = {{MM_LOMETRIC, 2540, 1270}, {MM_HIMETRIC, 25400, 12700},
                                         {MM_LOENGLISH, 1000, 500}, {MM_HIENGLISH, 10000, 5000},
                                         {MM_TWIPS, 14400, 7200},   {MM_ISOTROPIC, 2540, 1270}};
    for (const auto& [mode, x, y] : modes) {
        SetMapMode(m_context, mode);
        EXPECT_EQ(device(x, y), (Place{960, -480})) << mode;
    }
    EXPECT_TRUE(SetWindowExtEx(m_context, 100, 100, nullptr));
    EXPECT_TRUE(SetViewportExtEx(m_context, 400, 200, nullptr));
    EXPECT_EQ(device(100, 100), (Place{200, 200}));
}

TEST_F(ContextState, WorldTransformsNeedTheAdvancedMode)
{
    const XFORM turn{0, 1, -1, 0, 10, 0};
    const XFORM scale{2, 0, 0, 2, 0, 0};
    const XFORM flat{1, 1, 1, 1, 0, 0};
    EXPECT_FALSE(SetWorldTransform(m_context, &turn));
    EXPECT_FALSE(ModifyWorldTransform(m_context, &turn, MWT_LEFTMULTIPLY));
    SetGraphicsMode(m_context, GM_ADVANCED);
    EXPECT_TRUE(SetWorldTransform(m_context, &turn));
    EXPECT_FALSE(SetWorldTransform(m_context, &flat));
    EXPECT_EQ(SetGraphicsMode(m_context, GM_COMPATIBLE), 0);
    EXPECT_EQ(device(3, 4), (Place{6, 3}));
    EXPECT_TRUE(ModifyWorldTransform(m_context, &scale, MWT_LEFTMULTIPLY)); // scaled first, then turned
    EXPECT_EQ(device(3, 4), (Place{2, 6}));
    EXPECT_TRUE(ModifyWorldTransform(m_context, &scale, MWT_RIGHTMULTIPLY));
    EXPECT_EQ(device(3, 4), (Place{4, 12}));
    EXPECT_TRUE(ModifyWorldTransform(m_context, nullptr, MWT_IDENTITY));
    EXPECT_EQ(SetGraphicsMode(m_context, GM_COMPATIBLE), GM_ADVANCED);
}

TEST_F(ContextState, RestoringGoesBackByDepthOrByDistance)
{
    for (int depth = 1; depth <= 3; ++depth) {
        MoveToEx(m_context, depth, 0, nullptr);
        EXPECT_EQ(SaveDC(m_context), depth);
    }
    EXPECT_FALSE(RestoreDC(m_context, 0) || RestoreDC(m_context, 4) || RestoreDC(m_context, -4));
    POINT point{};
    EXPECT_TRUE(RestoreDC(m_context, -2) && GetCurrentPositionEx(m_context, &point));
    EXPECT_EQ(point.x, 2);
    EXPECT_TRUE(RestoreDC(m_context, 1) && GetCurrentPositionEx(m_context, &point));
    EXPECT_EQ(point.x, 1);
    EXPECT_FALSE(RestoreDC(m_context, -1));
}

} // namespace
