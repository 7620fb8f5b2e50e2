// The demo's pages painted twice, from SVG by librsvg and from PostScript by Ghostscript: where the pictures differ.
// A difference at another place, or another one at a known place, is news.
#include <algorithm>
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

// Viewers fill polylines and ellipses plainly, and leave hatches, images, picture brushes and focus rectangles
// out; PostScript has no dashes and no solid polygons, and shows lines without a pen.
const struct {
    std::string_view page; // "": all
    RECT place;
    double difference; // the mean of all channels in PostScript less that in SVG
} knownDifferences[] = {
    {"", {56, 8, 84, 48}, 9.3},
    {"overview", {84, 548, 722, 1000}, -3},
    {"overview", {100, 1008, 722, 1048}, -6.3},
    {"shares", {416, 108, 728, 420}, -5.7},
    {"curves", {84, 112, 720, 438}, 16},
    {"curves", {64, 510, 371, 770}, -5.3},
    {"curves", {66, 840, 728, 1030}, 41},
    {"groups", {424, 105, 730, 402}, -4.7},
    {"sheet", {48, 84, 382, 556}, -3},
    {"sheet", {48, 592, 382, 820}, 6.3},
    {"sheet", {68, 940, 368, 1024}, 35.3},
    {"pictures", {64, 130, 731, 166}, -85.3},
    {"pictures", {64, 166, 731, 202}, -61.3},
    {"pictures", {68, 324, 320, 576}, -56.7},
    {"pictures", {427, 324, 713, 574}, -104.7},
    {"pictures", {104, 690, 410, 1020}, -36},
    {"pictures", {448, 688, 572, 812}, -183},
    {"pictures", {448, 856, 572, 982}, -64},
    {"pictures", {598, 688, 722, 982}, -70.3},
};

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

// Expects the known differences on a page, and in the rest, tile by tile, none.
void compare(std::string_view page, FIBITMAP* svg, FIBITMAP* postScript)
{
    constexpr LONG side = 16;
    const BITMAPINFOHEADER& head = library().imageGetInfo(postScript)->bmiHeader;
    const auto expect = [&](const RECT& box, double expected, double tolerance) {
        EXPECT_NEAR(expected, meanOf(postScript, box) - meanOf(svg, box), tolerance)
            << page << " at " << box.left << ", " << box.top;
    };
    std::vector<RECT> known;
    for (const auto& [name, place, difference] : knownDifferences) {
        if (name.empty() || name == page) {
            known.push_back(place);
            expect(place, difference, 1.5); // of 255: painters smooth edges in their own ways
        }
    }
    for (LONG tile = 0; tile < (head.biWidth / side) * (head.biHeight / side); ++tile) {
        const LONG x = tile % (head.biWidth / side) * side;
        const LONG y = tile / (head.biWidth / side) * side;
        const RECT box{x, y, x + side, y + side};
        RECT overlap{};
        if (std::ranges::none_of(
                known, [&](const RECT& place) { return IntersectRect(&overlap, &box, &place) != 0; })) {
            expect(box, 0, 40); // edges that lie half a dot aside come near to it
        }
    }
}

TEST(ReportPictures, OfSvgAndPostScriptDifferAsKnown)
{
    const std::filesystem::path folder = testing::TempDir() + "report-" + std::to_string(getpid());
    std::filesystem::create_directories(folder);
    EXPECT_TRUE(writeFontMap(folder / "Fontmap"));
    for (const ReportPage& page : reportPages()) {
        if (page.name == std::string_view("words")) {
            continue; // those have other places in PostScript
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
        compare(page.name, pictures[0], pictures[1]);
        library().imageUnload(pictures[0]);
        library().imageUnload(pictures[1]);
    }
    std::filesystem::remove_all(folder);
}

} // namespace
