// Pictures on pixels: modes, transparency, and what is reported when a device can't do it.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/PixelPage.h"
#include "support/bitmapFile.h"
#include "surfaceHdc.h"
#include "sys/errorNumbers.h"
#include "sys/krnutil.h"

namespace {

// Pixels as letters, those of a page and one for transparent ones.
struct Paint {
    char letter;
    std::string bytes; // blue, green, red, alpha
};
const Paint Paints[] = {{'r', std::string("\0\0\xFF\xFF", 4)},    {'g', std::string("\0\xFF\0\xFF", 4)},
                        {'b', std::string("\xFF\0\0\xFF", 4)},    {'#', std::string("\0\0\0\xFF", 4)},
                        {'T', std::string("\xFF\xFF\0\0", 4)}, // transparent
                        {'.', std::string("\xFF\xFF\xFF\xFF", 4)}};

// Rows from the top, as a 32-bit bitmap file.
std::string imageOf(const std::vector<std::string>& rows)
{
    std::string pixels;
    for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
        for (const char letter : *row) {
            for (const Paint& paint : Paints) {
                pixels += paint.letter == letter ? paint.bytes : "";
            }
        }
    }
    return bitmapOf(pixels, 32, rows.size());
}

struct PictureCase {
    const char* name;
    std::vector<std::string> image;
    std::string page;
    RECT rect;
    POINT offset;
    int mode;
    GdiDeviceOptions device = {8, 6, 96};
    const char* log = "";
};

const std::vector<std::string> Quarters = {"rg", "b#"};
const std::vector<std::string> Holed = {"rTg", "b#T"};
const std::string Empty = "\n........";
const std::string Opaque = "\nrcg.....\nb#c....." + Empty + Empty + Empty + Empty;
const GdiDeviceOptions WithoutBlits{8, 6, 96, 0};
const GdiDeviceOptions Failing{8, 6, 96, RC_BITBLT | RC_STRETCHBLT, 1};

const PictureCase Cases[] = {
    {"scaled", Quarters, Empty + "\n.rrgg...\n.rrgg...\n.bb##...\n.bb##..." + Empty, {1, 1, 5, 5}, {}, 1},
    {"own size", Quarters, Empty + "\n.rg.....\n.b#....." + Empty + Empty + Empty, {1, 1, 7, 5}, {}, 0},
    {"top rows in a low rectangle",
     Quarters,
     Empty + "\n.rg....." + Empty + Empty + Empty + Empty,
     {1, 1, 7, 2},
     {},
     0},
    {"further down", Quarters, Empty + "\n.#......" + Empty + Empty + Empty + Empty, {1, 1, 7, 2}, {1, 1}, 0},
    {"tiled", Quarters, Empty + "\n.grgrg..\n.#b#b#..\n.grgrg.." + Empty + Empty, {1, 1, 6, 4}, {1, 0}, 2},
    {"no mode", Quarters, Empty + Empty + Empty + Empty + Empty + Empty, {1, 1, 6, 4}, {}, 3},
    {"holes, own size", Holed, Empty + "\n.r.g...." + Empty + Empty + Empty + Empty, {1, 1, 7, 2}, {}, 0},
    {"holes, scaled", Holed, "\nrr..gg..\nrr..gg..\nbb##....\nbb##...." + Empty + Empty, {0, 0, 6, 4}, {}, 1},
    {"no raster steps",
     Holed,
     Opaque,
     {0, 0, 3, 2},
     {},
     1,
     WithoutBlits,
     "Printer doesn't support 'Blt' operations required to print transparent image, printed "
     "non-transparently instead"},
    {"a step that fails",
     Holed,
     Opaque,
     {0, 0, 3, 2},
     {},
     1,
     Failing,
     "Printer error 31 (Device not functioning)  Unable to print transparent image, printed "
     "non-transparently instead"},
};

TEST(Pictures, AreDrawnInTheirModes)
{
    for (const PictureCase& c : Cases) {
        std::string log;
        krnSetLogSink([](const char* line, void* text) { *static_cast<std::string*>(text) += line; }, &log);
        const PixelPage page(c.device);
        if (*c.log != '\0' && gdiDeviceCalls(page.context(), "") < 0) { // the system's pages lack no ability
            krnSetLogSink(nullptr, nullptr);
            continue;
        }
        {
            CSurfaceHdc surface(page.context());
            std::string image = imageOf(c.image);
            auto* const bytes = reinterpret_cast<unsigned char*>(image.data());
            const int width = static_cast<int>(c.image[0].size());
            const int height = static_cast<int>(c.image.size());
            constexpr unsigned int Id = 0xFFFFFFFE; // any number is one
            surface.includeImage(Id, bytes, static_cast<int>(image.size()), width, height, 8);
            surface.includeImage(Id, bytes, 3, 99, 99, 8); // the first one stays
            RECT rect = c.rect;
            surface.drawImage(&rect, 8, c.mode, c.offset.x, c.offset.y);
            surface.drawImage(&rect, Id, c.mode, c.offset.x, c.offset.y);
            EXPECT_EQ(c.page, page.picture()) << c.name;
        }
        krnSetLogSink(nullptr, nullptr);
        EXPECT_EQ(c.log, log) << c.name;
    }
}

// A tile smaller than a hatch is made one, and is one from then on.
TEST(Pictures, SmallerThanAHatchBecomeOne)
{
    const PixelPage page;
    const HDC device = page.context();
    std::string image = imageOf({"rg"});
    CSurfacePicture picture;
    picture.m_width = 2;
    picture.m_height = 1;
    picture.m_length = static_cast<unsigned int>(image.size());
    picture.m_data = reinterpret_cast<unsigned char*>(image.data());
    RECT rect{0, 0, 4, 4};
    EXPECT_EQ(0, picture.draw(device, &rect, 0, 0, 2));
    EXPECT_EQ(0, picture.draw(device, nullptr, 0, 0, 1));
    EXPECT_EQ(8, picture.m_width);
    EXPECT_EQ(8, picture.m_height);
    picture.m_height = 0;
    EXPECT_EQ(0, picture.draw(device, &rect, 0, 0, 2));
    picture.m_length = 9;
    EXPECT_EQ(krnError::NotConverted, picture.draw(device, &rect, 0, 0, 1));
    krnSetImageLibrary("/nowhere");
    EXPECT_EQ(krnError::ImageLibraryMissing, picture.draw(device, &rect, 0, 0, 1));
    krnSetImageLibrary(nullptr);
    picture.m_data = nullptr; // belongs to the test
}

// A brush of a picture fills with it; one of no picture is hollow; one that can't be decoded changes nothing.
TEST(Pictures, FillAsBrushes)
{
    const PixelPage page(8, 6);
    {
        CSurfaceHdc surface(page.context());
        std::string image = imageOf(std::vector<std::string>(8, "rgb#rgb#"));
        surface.includeImage(1, reinterpret_cast<unsigned char*>(image.data()),
                             static_cast<int>(image.size()), 8, 8, 8);
        surface.includeImage(2, reinterpret_cast<unsigned char*>(image.data()), 9, 8, 8, 8);
        surface.setPen(0, PS_NULL, 1);
        RECT rect{0, 0, 9, 4};
        for (const int picture : {1, 2, 3}) {
            CSurfaceBrush brush;
            brush.setPicture(picture);
            surface.setBrush(&brush);
            surface.drawRectangle(&rect);
            rect = {0, 3, 9, 7};
        }
        const std::string row = "\nrgb#rgb#";
        EXPECT_EQ(row + row + row + row + row + row, page.picture());
    }
}

} // namespace
