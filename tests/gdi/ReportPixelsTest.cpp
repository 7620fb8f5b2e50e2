// Stored pages as pixels of a device of 300 dots per inch: a page of SVG is where its numbers say, and the marked page
// of a metafile shows the hit in red.
#include <gdidevice.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "devicePage.h"
#include "metafilePage.h"
#include "reportPages.h"

namespace {

constexpr COLORREF red = 0x0000FF;
constexpr COLORREF blue = 0xFF0000;
constexpr COLORREF white = 0xFFFFFF;

// An A4 page of 2480 by 3508 pixels, row by row without gaps.
std::vector<COLORREF> played(Page page)
{
    constexpr int dotsPerInch = 300;
    const HDC device = makeDevice(dotsPerInch);
    EXPECT_TRUE(playOnDevice(device, page, dotsPerInch));
    int rowBytes = 0;
    const unsigned char* const bits = gdiDeviceBits(device, &rowBytes);
    std::vector<COLORREF> pixels;
    for (const unsigned char* pixel = bits; pixel != bits + std::ptrdiff_t{3508} * rowBytes; pixel += 4) {
        pixels.push_back(static_cast<COLORREF>(pixel[2] | pixel[1] << 8 | pixel[0] << 16));
    }
    DeleteDC(device);
    return pixels;
}

TEST(ReportPixels, AreWhereThePageSays)
{
    CSurfaceSVG page = emptyPage();
    RECT box{100, 200, 300, 400};
    page.drawSolidRectangle(&box, red);
    page.setPen(blue, PS_ENDCAP_FLAT, 8);
    page.drawLine(100, 600, 500, 600);
    const std::vector<COLORREF> pixels = played(stored(page));
    const struct {
        int x, y; // in the page's units
        COLORREF color;
    } places[] = {{101, 201, red},   {299, 201, red},   {101, 398, red},   {299, 398, red},
                  {99, 300, white},  {301, 300, white}, {200, 199, white}, {200, 401, white},
                  {101, 597, blue},  {300, 600, blue},  {499, 602, blue},  {98, 600, white},
                  {502, 600, white}, {300, 595, white}, {300, 605, white}};
    for (const auto& [x, y, color] : places) {
        const int row = y * 3508 / logicalHeight;
        EXPECT_EQ(pixels.at(static_cast<std::size_t>(row * 2480 + x * 2480 / logicalWidth)), color)
            << x << ", " << y;
    }
}

TEST(ReportPixels, ShowTheHitInRed)
{
    Page page = recorded(reportPages().front());
    EXPECT_EQ(std::ranges::count(played(page), red), 0);
    EXPECT_GT(std::ranges::count(played(firstHitMarked(page, "heating")), red), 50);
}

} // namespace
