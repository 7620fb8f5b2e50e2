// The demo's pages painted twice, from SVG by librsvg and from PostScript by Ghostscript: where the pictures differ
// and why. A difference at another place, or another one at a known place, is news.
#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <gtest/gtest.h>
#include <unistd.h>

#include "painters.h"
#include "reportPages.h"
#include "storedPage.h"
#include "sys/krnutil.h"

namespace {

using Channels = std::array<double, 3>; // blue, green, red

constexpr const char* Polylines = "viewers fill polylines";
constexpr const char* Hatches = "viewers leave hatches out; PostScript has no dashes";
constexpr const char* Lines = "PostScript has no dashes, shows lines without a pen, but no solid polygons";
constexpr const char* Images = "librsvg leaves images out";
constexpr const char* Ellipses = "ellipses are filled plainly, a picture brush is black";

const struct {
    std::string_view page; // "": all
    RECT place;
    Channels difference; // the mean of PostScript less that of SVG
    const char* reason;
} KnownDifferences[] = {
    {"", {56, 8, 84, 48}, {-3, 11, 20}, Polylines},
    {"overview", {84, 548, 722, 1000}, {-3, -3, -3}, Hatches},
    {"overview", {100, 1008, 722, 1048}, {-7, -6, -6}, Hatches},
    {"shares", {416, 108, 728, 420}, {-6, -6, -5}, Hatches},
    {"curves", {84, 112, 720, 438}, {34, 13, 1}, Lines},
    {"curves", {64, 510, 371, 770}, {-5, -5, -6}, Lines},
    {"curves", {66, 840, 728, 1030}, {41, 41, 41}, Polylines},
    {"groups", {424, 105, 730, 402}, {-5, -5, -4}, "viewers show no focus rectangle"},
    {"sheet", {48, 84, 382, 556}, {-3, -3, -3}, Hatches},
    {"sheet", {48, 592, 382, 820}, {15, 5, -1}, Lines},
    {"sheet", {68, 940, 368, 1024}, {35, 35, 36}, Polylines},
    {"pictures", {64, 130, 731, 166}, {-84, -76, -96}, Images},
    {"pictures", {64, 166, 731, 202}, {-47, -40, -97}, Images},
    {"pictures", {68, 324, 320, 576}, {-50, -48, -72}, Images},
    {"pictures", {427, 324, 713, 574}, {-90, -87, -130}, Images},
    {"pictures", {104, 690, 410, 1020}, {-30, -30, -44}, Images},
    {"pictures", {448, 688, 572, 812}, {-184, -183, -182}, Ellipses},
    {"pictures", {448, 856, 572, 982}, {-55, -51, -81}, Images},
    {"pictures", {598, 688, 722, 982}, {-60, -57, -88}, Images},
};

struct Picture {
    LONG width, height;
    std::size_t row; // bytes
    Page dots;       // bottom row first
};

Picture pictureIn(const std::filesystem::path& file)
{
    std::ifstream in(file, std::ios::binary);
    Page bytes{std::istreambuf_iterator<char>(in), {}};
    FreeImageDesc library(false);
    const auto size = static_cast<unsigned int>(bytes.size());
    FIBITMAP* const loaded = library.imageLoadFromMem(FIF_PNG, bytes.data(), size);
    FIBITMAP* const bitmap = library.imageConvertTo24Bits(loaded);
    const BITMAPINFOHEADER& head = library.imageGetInfo(bitmap)->bmiHeader;
    const unsigned char* const dots = library.imageGetBits(bitmap);
    const std::size_t row = (static_cast<std::size_t>(head.biWidth) * 3 + 3) / 4 * 4;
    const Page rows(dots, dots + row * static_cast<std::size_t>(head.biHeight));
    Picture picture{head.biWidth, head.biHeight, row, rows};
    library.imageUnload(loaded);
    library.imageUnload(bitmap);
    return picture;
}

Channels meanOf(const Picture& picture, const RECT& box)
{
    Channels mean{};
    const double area = (box.right - box.left) * (box.bottom - box.top);
    for (LONG y = box.top; y < box.bottom; ++y) {
        const std::size_t row = picture.row * static_cast<std::size_t>(picture.height - 1 - y);
        const unsigned char* dot = &picture.dots[row + static_cast<std::size_t>(box.left) * 3];
        for (LONG x = box.left; x < box.right; ++x) {
            std::ranges::for_each(mean, [&](double& channel) { channel += *dot++ / area; });
        }
    }
    return mean;
}

// Expects the known differences on a page, and in the rest, tile by tile, none.
void compare(std::string_view page, const Picture& svg, const Picture& postScript)
{
    constexpr double Tolerance = 1.5; // of 255: rounded here, and painters smooth edges in their own ways
    constexpr double Limit = 40;      // edges that lie half a dot aside come near to it
    constexpr LONG Side = 16;
    const auto expect = [&](const RECT& box, const Channels& expected, double tolerance, const char* reason) {
        const Channels before = meanOf(svg, box);
        const Channels after = meanOf(postScript, box);
        for (std::size_t i = 0; i < expected.size(); ++i) {
            EXPECT_NEAR(expected[i], after[i] - before[i], tolerance)
                << page << " at " << box.left << ", " << box.top << ": " << reason;
        }
    };
    for (const auto& [name, place, difference, reason] : KnownDifferences) {
        if (name.empty() || name == page) {
            expect(place, difference, Tolerance, reason);
        }
    }
    for (RECT tile{0, 0, Side, Side}; tile.bottom <= postScript.height;
         tile.top += Side, tile.bottom += Side) {
        for (tile.left = 0; (tile.right = tile.left + Side) <= postScript.width; tile.left += Side) {
            RECT overlap{};
            if (std::ranges::none_of(KnownDifferences, [&](const auto& known) {
                    return (known.page.empty() || known.page == page) &&
                           IntersectRect(&overlap, &tile, &known.place) != 0;
                })) {
                expect(tile, {}, Limit, "no known difference");
            }
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
        compare(page.name, pictureIn(folder / "svg.png"), pictureIn(folder / "ps.png"));
    }
    std::filesystem::remove_all(folder);
}

} // namespace
