// The helpers for callers: a page from drawing to the hit that is shown.
#include "surfacePage.h"

#include <string>

#include <gtest/gtest.h>

#include "gdidevice.h"
#include "surfaceHdc.h"
#include "surfaceSVG.h"

namespace {

using namespace surfaces;

Bytes pageOf(const std::string& text)
{
    RECT millimetres{0, 0, 210, 297};
    RECT logical{0, 0, 794, 1123};
    CSurfaceSVG surface(&millimetres, &logical);
    setFont(surface, "Arial", 12, {.bold = true});
    drawText(surface, text, {10, 10, 200, 40});
    drawTextAt(surface, "Second line", {10, 50});
    return finishedPage(surface);
}

TEST(SurfacePage, GoesFromDrawingToItsHits)
{
    const Bytes page = pageOf("A < B & lamps, lamps");
    CSurfaceHdc nothing(nullptr);
    EXPECT_FALSE(play(Bytes{1, 2, 3}, nothing, {0, 0, 9, 9}));
    EXPECT_EQ(playerOf(page)->metaFileFormat(), 2);
    std::string shown;
    std::string starts;
    for (const PageHit& hit : HitRange(page, "lamps")) {
        starts += std::to_string(hit.start) + ' ';
        const Bytes marked = markedPage(page, "lamps", hit);
        const Bytes visible = shownHit(marked);
        shown = std::string(visible.begin(), visible.end());
    }
    EXPECT_EQ(starts, "8 15 ");
    EXPECT_NE(shown.find(">A &lt; B &amp; lamps, <tspan style='fill:rgb(208,0,0)'>lamps</tspan></tspan>"),
              std::string::npos)
        << shown;
    EXPECT_EQ(shownHit(page), page);
    EXPECT_TRUE(markedPage(page, "nowhere", {}).empty());
}

TEST(SurfacePage, ConvertsToCodePage1252)
{
    EXPECT_EQ(codePage1252Of("a\xC3\xA4\xE2\x82\xAC\xE2\x80\x9C"), "a\xE4\x80\x93");
    EXPECT_EQ(codePage1252Of("\xE2\x82\x82 \xF0\x9F\x98\x80 \xC3", '.'), ". .... .");
}

TEST(SurfacePage, MeasuresTextOnDevices)
{
    const GdiDeviceOptions options;
    const HDC device = gdiCreateDevice(&options);
    {
        CSurfaceHdc surface(device);
        setFont(surface, "Arial", 12);
        drawTextAt(surface, "x", {0, 0});
        const SIZE size = textSize(device, "wide");
        EXPECT_GT(size.cx, textSize(device, "w").cx);
        EXPECT_EQ(size.cy, textSize(device, "w").cy);
    }
    DeleteDC(device);
    EXPECT_EQ(textSize(nullptr, "w").cx, 0);
    EXPECT_EQ(rgb(1, 2, 3), 0x030201UL);
}

} // namespace
