// The demo's pages painted twice, from SVG by librsvg and from PostScript by Ghostscript, which differ no more and
// no less than is known.
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <numeric>

#include <gtest/gtest.h>
#include <unistd.h>

#include "painters.h"
#include "reportPages.h"
#include "storedPage.h"
#include "sys/krnutil.h"

namespace {

// Squares of a page that look different: viewers fill polylines and ellipses plainly, and leave hatches, images,
// picture brushes and focus rectangles out; PostScript has no dashes and no solid polygons, and shows lines
// without a pen. The words have other places in PostScript.
constexpr std::pair<std::string_view, int> knownDifferences[] = {
    {"overview", 0}, {"shares", 0}, {"curves", 118}, {"groups", 0}, {"sheet", 27}, {"pictures", 885}};

FreeImageDesc& library()
{
    static FreeImageDesc instance(false);
    return instance;
}

// The mean of the channels in a part of a picture, which counts rows from the bottom.
double meanOf(FIBITMAP* picture, const RECT& box)
{
    const BITMAPINFOHEADER& head = library().imageGetInfo(picture)->bmiHeader;
    const std::size_t row = (static_cast<std::size_t>(head.biWidth) * 3 + 3) / 4 * 4;
    double sum = 0;
    for (LONG y = head.biHeight - box.bottom; y < head.biHeight - box.top; ++y) {
        const unsigned char* const dots = library().imageGetBits(picture) + static_cast<std::size_t>(y) * row;
        sum = std::accumulate(dots + box.left * 3, dots + box.right * 3, sum);
    }
    return sum / ((box.right - box.left) * (box.bottom - box.top) * 3);
}

FIBITMAP* pictureIn(const std::filesystem::path& file)
{
    std::ifstream in(file, std::ios::binary);
    Page bytes{std::istreambuf_iterator<char>(in), {}};
    FIBITMAP* const loaded =
        library().imageLoadFromMem(FIF_PNG, bytes.data(), static_cast<unsigned int>(bytes.size()));
    FIBITMAP* const picture = library().imageConvertTo24Bits(loaded);
    library().imageUnload(loaded);
    return picture;
}

int differentSquares(FIBITMAP* svg, FIBITMAP* postScript)
{
    constexpr LONG side = 16;
    constexpr double limit = 40; // of 255; edges that lie half a dot aside come near to it
    const BITMAPINFOHEADER& head = library().imageGetInfo(postScript)->bmiHeader;
    int count = 0;
    for (LONG y = 0; y + side <= head.biHeight; y += side) {
        for (LONG x = 0; x + side <= head.biWidth; x += side) {
            const RECT box{x, y, x + side, y + side};
            count += std::abs(meanOf(postScript, box) - meanOf(svg, box)) > limit ? 1 : 0;
        }
    }
    return count;
}

TEST(ReportPictures, OfSvgAndPostScriptDifferAsKnown)
{
    const std::filesystem::path folder = testing::TempDir() + "report-" + std::to_string(getpid());
    std::filesystem::create_directories(folder);
    EXPECT_TRUE(writeFontMap(folder / "Fontmap"));
    for (const ReportPage& page : reportPages()) {
        const auto* const known =
            std::ranges::find(knownDifferences, page.name, &std::pair<std::string_view, int>::first);
        if (known == std::end(knownDifferences)) {
            continue;
        }
        CSurfaceSVG surface = emptyPage();
        page.draw(surface);
        Page svg = stored(surface);
        const Page document = printed(svg);
        std::ofstream(folder / "svg") << std::string(svg.begin(), svg.end());
        std::ofstream(folder / "ps") << std::string(document.begin(), document.end());
        ASSERT_TRUE(paintSvg(folder / "svg", folder / "svg.png", 96));
        ASSERT_TRUE(paintPostScript(folder / "ps", folder / "ps.png", 96, folder / "Fontmap"));
        FIBITMAP* const pictures[] = {pictureIn(folder / "svg.png"), pictureIn(folder / "ps.png")};
        // Painters smooth edges in their own ways.
        EXPECT_NEAR(known->second, differentSquares(pictures[0], pictures[1]), 4) << page.name;
        library().imageUnload(pictures[0]);
        library().imageUnload(pictures[1]);
    }
    std::filesystem::remove_all(folder);
}

} // namespace
