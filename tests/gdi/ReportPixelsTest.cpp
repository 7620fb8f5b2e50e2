// Stored pages as pixels of a device of 300 dots per inch: a page of SVG is where its numbers say, and the marked page
// of a metafile shows the hit in red.
#include <gdidevice.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "devicePage.h"
#include "metafilePage.h"
#include "pageSearch.h"
#include "reportPages.h"

namespace {

constexpr COLORREF Red = 0x0000FF;
constexpr COLORREF Blue = 0xFF0000;
constexpr COLORREF White = 0xFFFFFF;

// An A4 page, of the one resolution that a page has where the system paints it.
#if defined(_WIN32)
constexpr int DotsPerInch = 96;
constexpr int PixelsWide = 794;
constexpr int PixelsHigh = 1123;
#else
constexpr int DotsPerInch = 300;
constexpr int PixelsWide = 2480;
constexpr int PixelsHigh = 3508;
#endif

// Row by row without gaps.
std::vector<COLORREF> played(Page page)
{
    const HDC device = makeDevice(DotsPerInch);
    EXPECT_TRUE(playOnDevice(device, page, DotsPerInch));
    int rowBytes = 0;
    const unsigned char* const bits = gdiDeviceBits(device, &rowBytes);
    std::vector<COLORREF> pixels;
    for (const unsigned char* pixel = bits; pixel != bits + std::ptrdiff_t{PixelsHigh} * rowBytes;
         pixel += 4) {
        pixels.push_back(static_cast<COLORREF>(pixel[2] | pixel[1] << 8 | pixel[0] << 16));
    }
    DeleteDC(device);
    return pixels;
}

TEST(ReportPixels, AreWhereThePageSays)
{
    CSurfaceSVG page = emptyPage();
    RECT box{100, 200, 300, 400};
    page.drawSolidRectangle(&box, Red);
    page.setPen(Blue, PS_ENDCAP_FLAT, 8);
    page.drawLine(100, 600, 500, 600);
    const std::vector<COLORREF> pixels = played(stored(page));
    const struct {
        int x, y; // in the page's units
        COLORREF color;
    } places[] = {{101, 201, Red},   {299, 201, Red},   {101, 398, Red},   {299, 398, Red},
                  {99, 300, White},  {301, 300, White}, {200, 199, White}, {200, 401, White},
                  {101, 597, Blue},  {300, 600, Blue},  {499, 602, Blue},  {98, 600, White},
                  {502, 600, White}, {300, 595, White}, {300, 605, White}};
    for (const auto& [x, y, color] : places) {
        const int row = y * PixelsHigh / LogicalHeight;
        EXPECT_EQ(pixels.at(static_cast<std::size_t>(row * PixelsWide + x * PixelsWide / LogicalWidth)),
                  color)
            << x << ", " << y;
    }
}

TEST(ReportPixels, ShowTheHitInRed)
{
    Page page = recorded(reportPages().front());
    EXPECT_EQ(std::ranges::count(played(page), Red), 0);
    EXPECT_GT(std::ranges::count(played(firstHitShown(page, "heating")), Red), 50);
}

} // namespace
