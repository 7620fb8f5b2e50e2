// Stored pages of the report as pixels of a device of 300 dots per inch: the page of SVG is where its numbers say, and
// the marked page of a metafile shows the hit in red.
#include <gdidevice.h>
#include <gtest/gtest.h>

#include "devicePage.h"
#include "metafilePage.h"
#include "reportPages.h"

namespace {

constexpr int dotsPerInch = 300;
constexpr COLORREF red = 0x0000FF;

class Sheet {
public:
    explicit Sheet(Page page) : m_device(makeDevice(dotsPerInch))
    {
        EXPECT_TRUE(playOnDevice(m_device, page, dotsPerInch));
    }
    Sheet(const Sheet&) = delete;
    Sheet& operator=(const Sheet&) = delete;
    ~Sheet() { DeleteDC(m_device); }

    // By the page's own units; 2480 by 3508 pixels.
    COLORREF at(double x, double y) const
    {
        SetMapMode(m_device, MM_TEXT);
        return GetPixel(m_device, static_cast<int>(x * 2480 / logicalWidth),
                        static_cast<int>(y * 3508 / logicalHeight));
    }
    int redPixels() const
    {
        int rowBytes = 0;
        const unsigned char* const bits = gdiDeviceBits(m_device, &rowBytes);
        int count = 0;
        for (int i = 0; i < 3508 * rowBytes; i += 4) {
            count += bits[i] == 0 && bits[i + 1] == 0 && bits[i + 2] == 255 ? 1 : 0;
        }
        return count;
    }

private:
    HDC m_device;
};

TEST(ReportPixels, AreWhereThePageSays)
{
    CSurfaceSVG page = emptyPage();
    RECT box{100, 200, 300, 400};
    page.drawSolidRectangle(&box, red);
    page.setPen(0xFF0000, 0x200, 8); // blue, flat ends
    page.drawLine(100, 600, 500, 600);
    const Sheet sheet(stored(page));
    const double inside[][2] = {{101, 201}, {299, 201}, {101, 399}, {299, 399}};
    const double outside[][2] = {{99, 300}, {301, 300}, {200, 199}, {200, 401},
                                 {98, 600}, {502, 600}, {300, 595}};
    for (const auto& [x, y] : inside) {
        EXPECT_EQ(sheet.at(x, y), red) << x << ", " << y;
    }
    for (const auto& [x, y] : outside) {
        EXPECT_EQ(sheet.at(x, y), COLORREF{0xFFFFFF}) << x << ", " << y;
    }
    for (const double y : {597.0, 600.0, 603.0}) {
        EXPECT_EQ(sheet.at(300, y), COLORREF{0xFF0000}) << y;
    }
}

TEST(ReportPixels, ShowTheHitInRed)
{
    Page page = recorded(reportPages()[5]);
    EXPECT_EQ(Sheet(page).redPixels(), 0);
    EXPECT_GT(Sheet(firstHitMarked(page, "heating")).redPixels(), 50);
}

} // namespace
