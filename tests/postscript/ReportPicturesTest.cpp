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

// A picture of one dot a unit.
struct Picture {
    int width, height;
    Page pixels; // three bytes each, bottom row first, rows padded to four bytes

    Channels meanOf(const RECT& box) const
    {
        Channels sum{};
        for (LONG y = box.top; y < box.bottom; ++y) {
            const auto row = static_cast<std::size_t>((height - 1 - y) * ((width * 3 + 3) / 4 * 4));
            for (std::size_t at = 0; at < static_cast<std::size_t>(box.right - box.left) * 3; ++at) {
                sum[at % 3] += pixels[row + static_cast<std::size_t>(box.left) * 3 + at];
            }
        }
        for (double& channel : sum) {
            channel /= (box.right - box.left) * (box.bottom - box.top);
        }
        return sum;
    }
};

Picture pictureIn(const std::filesystem::path& file)
{
    std::ifstream in(file, std::ios::binary);
    Page bytes{std::istreambuf_iterator<char>(in), {}};
    FreeImageDesc library(false);
    FIBITMAP* const loaded =
        library.imageLoadFromMem(FIF_PNG, bytes.data(), static_cast<unsigned>(bytes.size()));
    FIBITMAP* const bitmap = library.imageConvertTo24Bits(loaded);
    const BITMAPINFOHEADER& head = library.imageGetInfo(bitmap)->bmiHeader;
    const unsigned char* const bits = library.imageGetBits(bitmap);
    Picture picture{head.biWidth, head.biHeight,
                    Page(bits, bits + (head.biWidth * 3 + 3) / 4 * 4 * head.biHeight)};
    library.imageUnload(loaded);
    library.imageUnload(bitmap);
    return picture;
}

constexpr const char* polyline = "a viewer fills polylines";
constexpr const char* hatch = "a viewer leaves hatches out; no dashes in PostScript";
constexpr const char* image = "librsvg leaves images out";

const struct {
    std::string_view page; // "": all
    RECT place;
    Channels difference; // PostScript less SVG
    const char* reason;
} knownDifferences[] = {
    {"", {56, 8, 84, 48}, {-3, 11, 20}, polyline},
    {"overview", {84, 548, 722, 1000}, {-3, -3, -3}, hatch},
    {"overview", {100, 1008, 722, 1048}, {-7, -6, -6}, hatch},
    {"shares", {416, 108, 728, 420}, {-6, -6, -5}, hatch},
    {"curves", {84, 112, 720, 438}, {34, 13, 1}, "no solid polygons and no dashes in PostScript"},
    {"curves", {64, 510, 371, 770}, {-5, -5, -6}, "no dashes in PostScript; lines without a pen show there"},
    {"curves", {66, 840, 728, 1030}, {41, 41, 41}, polyline},
    {"groups",
     {424, 105, 730, 402},
     {-5, -5, -4},
     "a viewer shows no focus rectangle; no dashes in PostScript"},
    {"sheet", {48, 84, 382, 556}, {-3, -3, -3}, hatch},
    {"sheet", {48, 592, 382, 820}, {15, 5, -1}, "no solid polygons and no dashes in PostScript"},
    {"sheet", {68, 940, 368, 1024}, {35, 35, 36}, polyline},
    {"pictures", {64, 130, 731, 166}, {-84, -76, -96}, image},
    {"pictures", {64, 166, 731, 202}, {-47, -40, -97}, image},
    {"pictures", {68, 324, 164, 420}, {-99, -94, -140}, image},
    {"pictures", {224, 324, 272, 420}, {-97, -94, -140}, image},
    {"pictures", {68, 480, 320, 576}, {-75, -72, -107}, image},
    {"pictures", {427, 324, 713, 574}, {-91, -89, -134}, image},
    {"pictures", {104, 690, 410, 1020}, {-31, -31, -46}, image},
    {"pictures",
     {448, 688, 572, 812},
     {-184, -183, -182},
     "ellipses have plain colour in PostScript, and a picture brush is black"},
    {"pictures", {598, 688, 722, 812}, {-91, -88, -131}, image},
    {"pictures", {448, 856, 572, 982}, {-56, -52, -84}, image},
    {"pictures", {598, 858, 722, 982}, {-53, -52, -84}, image},
};

bool isOn(const ReportPage& page, std::string_view name)
{
    return name.empty() || name == page.name;
}

// Of the page in SVG and in PostScript.
std::array<Picture, 2> picturesOf(const ReportPage& page, const std::filesystem::path& folder)
{
    CSurfaceSVG surface = emptyPage();
    page.draw(surface);
    Page svg = stored(surface);
    const Page document = printed(svg);
    constexpr double dotsPerInch = 96;
    std::ofstream(folder / "svg") << std::string(svg.begin(), svg.end());
    std::ofstream(folder / "ps") << std::string(document.begin(), document.end());
    EXPECT_TRUE(paintSvg(folder / "svg", folder / "svg.png", dotsPerInch));
    EXPECT_TRUE(paintPostScript(folder / "ps", folder / "ps.png", dotsPerInch, folder / "Fontmap"));
    return {pictureIn(folder / "svg.png"), pictureIn(folder / "ps.png")};
}

Channels differenceIn(const RECT& box, const std::array<Picture, 2>& pictures)
{
    Channels difference = pictures[1].meanOf(box);
    std::ranges::transform(difference, pictures[0].meanOf(box), difference.begin(), std::minus());
    return difference;
}

void expectKnownDifferences(const ReportPage& page, const std::array<Picture, 2>& pictures)
{
    constexpr double Tolerance = 1.5; // of 255: rounded here, and painters smooth edges in their own ways
    for (const auto& [name, place, expected, reason] : knownDifferences) {
        const Channels difference = differenceIn(place, pictures);
        for (std::size_t i = 0; isOn(page, name) && i < expected.size(); ++i) {
            EXPECT_NEAR(expected[i], difference[i], Tolerance)
                << page.name << " at " << place.left << ", " << place.top << ": " << reason;
        }
    }
}

// The rest of the page, tile by tile.
void expectNoOthers(const ReportPage& page, const std::array<Picture, 2>& pictures)
{
    constexpr LONG side = 16;
    constexpr double Limit = 40; // of 255: an edge that lies half a dot aside comes near to it
    for (RECT tile{0, 0, side, side}; tile.bottom <= pictures[1].height;
         tile.top += side, tile.bottom += side) {
        for (tile.left = 0; (tile.right = tile.left + side) <= pictures[1].width; tile.left += side) {
            const bool isKnown = std::ranges::any_of(knownDifferences, [&](const auto& known) {
                RECT overlap{};
                return isOn(page, known.page) && IntersectRect(&overlap, &tile, &known.place) != 0;
            });
            for (const double difference : differenceIn(tile, pictures)) {
                EXPECT_TRUE(isKnown || std::abs(difference) < Limit)
                    << page.name << " at " << tile.left << ", " << tile.top << ": " << difference;
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
        if (page.name != std::string_view("words")) { // those have other places in PostScript
            const std::array<Picture, 2> pictures = picturesOf(page, folder);
            expectKnownDifferences(page, pictures);
            expectNoOthers(page, pictures);
        }
    }
    std::filesystem::remove_all(folder);
}

} // namespace
