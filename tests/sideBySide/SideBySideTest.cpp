// The same drawings, painted and recorded by this project's layer and by Wine: how far they agree, and that neither changes
// unseen. The folder wine/ holds what Wine 8 paints and records, own/ what the layer does. Under Wine the test shows that
// Wine still does, and that the layer's metafiles look there as Wine's own do; elsewhere the other way round.
//
// With SURFACE_WRITE_SIDE_BY_SIDE set the files of the system that runs are written anew instead.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "PictureFile.h"
#include "drawings.h"
#include "support/PixelPage.h"

namespace {

using Bytes = std::vector<unsigned char>;

#if defined(_WIN32)
constexpr bool UnderWine = true;
#else
constexpr bool UnderWine = false;
#endif
const std::string OwnFolder = std::string(SURFACE_SIDE_BY_SIDE) + (UnderWine ? "/wine/" : "/own/");
const std::string OtherFolder = std::string(SURFACE_SIDE_BY_SIDE) + (UnderWine ? "/own/" : "/wine/");

bool writes()
{
    return std::getenv("SURFACE_WRITE_SIDE_BY_SIDE") != nullptr;
}

std::string fileOf(const SideBySideDrawing& drawing, const char* ending)
{
    std::string name = drawing.name;
    std::replace(name.begin(), name.end(), ' ', '-');
    std::erase_if(name, [](char character) { return character == ',' || character == '\''; });
    return name + ending;
}

Picture pictureOf(const PixelPage& page)
{
    Picture picture{page.width(), page.height(), {}};
    GdiFlush();
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x) {
            picture.pixels.push_back(page.at(x, y));
        }
    }
    return picture;
}

Picture drawn(const SideBySideDrawing& drawing)
{
    const PixelPage page(DrawingWidth, DrawingHeight);
    drawing.draw(page.context());
    Picture picture = pictureOf(page);
    if (drawing.isText) { // smoothed in shades of its own by each
        std::replace_if(
            picture.pixels.begin(), picture.pixels.end(), [](COLORREF color) { return color != White; },
            Black);
    }
    return picture;
}

// On the screen, in a frame of the page's size.
Bytes recorded(const SideBySideDrawing& drawing)
{
    const HDC screen = GetDC(nullptr);
    const auto hundredths = [screen](int pixels, int size, int resolution) {
        return static_cast<LONG>(pixels * 100L * GetDeviceCaps(screen, size) /
                                 GetDeviceCaps(screen, resolution));
    };
    const RECT frame{0, 0, hundredths(DrawingWidth, HORZSIZE, HORZRES),
                     hundredths(DrawingHeight, VERTSIZE, VERTRES)};
    const HDC device = CreateEnhMetaFileA(nullptr, nullptr, &frame, nullptr);
    drawing.draw(device);
    const HENHMETAFILE metafile = CloseEnhMetaFile(device);
    ReleaseDC(nullptr, screen);
    Bytes bytes(GetEnhMetaFileBits(metafile, 0, nullptr));
    GetEnhMetaFileBits(metafile, static_cast<UINT>(bytes.size()), bytes.data());
    DeleteEnhMetaFile(metafile);
    return bytes;
}

Picture played(const Bytes& bytes)
{
    const PixelPage page(DrawingWidth, DrawingHeight);
    const HENHMETAFILE metafile = SetEnhMetaFileBits(static_cast<UINT>(bytes.size()), bytes.data());
    const RECT whole{0, 0, DrawingWidth, DrawingHeight};
    EXPECT_TRUE(PlayEnhMetaFile(page.context(), metafile, &whole));
    DeleteEnhMetaFile(metafile);
    return pictureOf(page);
}

Bytes readBytes(const std::string& file)
{
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

// In thousandths: the pixels that are alike among those that either picture has ink on; of text, of the boxes around
// them.
int agreement(const SideBySideDrawing& drawing, const Picture& first, const Picture& second)
{
    if (first.pixels.size() != second.pixels.size()) {
        return -1;
    }
    const auto boxOf = [](const Picture& picture) {
        RECT box{picture.width, picture.height, 0, 0};
        for (int y = 0; y < picture.height; ++y) {
            for (int x = 0; x < picture.width; ++x) {
                if (picture.at(x, y) != White) {
                    box = {std::min<LONG>(box.left, x), std::min<LONG>(box.top, y),
                           std::max<LONG>(box.right, x + 1), std::max<LONG>(box.bottom, y + 1)};
                }
            }
        }
        return box;
    };
    const RECT one = boxOf(first);
    const RECT other = boxOf(second);
    const auto isIn = [](const RECT& rect, int x, int y) {
        return x >= rect.left && x < rect.right && y >= rect.top && y < rect.bottom;
    };
    int ink = 0;
    int alike = 0;
    for (int y = 0; y < first.height; ++y) {
        for (int x = 0; x < first.width; ++x) {
            const bool inFirst = drawing.isText ? isIn(one, x, y) : first.at(x, y) != White;
            const bool inSecond = drawing.isText ? isIn(other, x, y) : second.at(x, y) != White;
            ink += inFirst || inSecond ? 1 : 0;
            alike += inFirst && inSecond && (drawing.isText || first.at(x, y) == second.at(x, y)) ? 1 : 0;
        }
    }
    return ink == 0 ? -1 : alike * 1000 / ink;
}

// Why two pictures differ, in thousandths that agree. None of it is in the documentation of the interface.
constexpr const char* Curve = "which pixels make a curve of one pixel, and the edge of a round area";
constexpr const char* WideLine = "the edges of wide lines and their ends, half a pixel to either side";
constexpr const char* Slope = "pixels whose middles lie on a slanted edge";
constexpr const char* ThinDashes = "the lengths of dashes of thin pens: here those of wide ones, in pixels";
constexpr const char* HatchRow = "the row that a hatch's horizontal lines take among its eight";
constexpr const char* Colors = "the colours of the system";
constexpr const char* DotPhase = "with which pixel the dots of a focus rectangle begin";
constexpr const char* LeftOut = "which rows and columns of a picture made smaller are left out";
constexpr const char* Screen = "Wine's screen has pixels that are not quite square";
constexpr const char* Letters = "letters are smoothed here, and reach a pixel farther";

struct Difference {
    std::string_view drawing;
    int drawn;
    const char* reason;
};
constexpr Difference Differences[] = {
    {"ellipse", 983, Curve},
    {"ellipse without a pen", 954, Curve},
    {"round rectangle", 993, Curve},
    {"arc", 655, Curve},
    {"arc clockwise", 581, Curve},
    {"chord", 838, Curve},
    {"pie", 900, Curve},
    {"angle arc", 448, Curve},
    {"wide polyline", 852, WideLine},
    {"polygon alternate", 998, Slope},
    {"polygon winding", 998, Slope},
    {"path of lines that leave the position", 998, Slope},
    {"curve", 477, Curve},
    {"pen widths", 983, WideLine},
    {"pen styles", 643, ThinDashes},
    {"pen styles over a background", 643, ThinDashes},
    {"flat ends, mitred", 883, WideLine},
    {"square ends, bevelled", 880, WideLine},
    {"round ends and joins", 909, WideLine},
    {"pen inside a frame", 996, WideLine},
    {"hatches, opaque", 926, HatchRow},
    {"hatches, transparent", 848, HatchRow},
    {"brush origin", 830, HatchRow},
    {"binary operations", 978, WideLine},
    {"clip", 996, Curve},
    {"clip by a path", 967, Curve},
    {"path", 980, WideLine},
    {"scaled page", 944, WideLine},
    {"page with y upward", 862, Curve},
    {"page of one unit to the pixel on both axes", 956, Screen},
    {"picture made smaller", 915, LeftOut},
    {"flood", 996, Curve},
    {"edges", 0, Colors},
    {"focus rectangle", 0, DotPhase},
    {"surface", 928, WideLine},
    {"text", 810, Letters},
    {"text by its base line, at the right", 810, Letters},
    {"text upward", 875, Letters},
    {"text on its background", 944, Letters},
    {"text with given steps", 898, Letters},
    {"text box", 918, Letters},
    {"surface's text", 860, Letters},
};

Difference differenceOf(const SideBySideDrawing& drawing)
{
    const auto* const found = std::ranges::find(Differences, drawing.name, &Difference::drawing);
    return found != std::end(Differences) ? *found : Difference{drawing.name, 1000, ""};
}

class SideBySide : public testing::TestWithParam<SideBySideDrawing> {};

TEST_P(SideBySide, Drawn)
{
    const SideBySideDrawing& drawing = GetParam();
    const Picture own = drawn(drawing);
    if (writes() && UnderWine) {
        std::ofstream out(OwnFolder + fileOf(drawing, ".txt"), std::ios::binary);
        writePicture(out, own);
    }
    std::ifstream in((UnderWine ? OwnFolder : OtherFolder) + fileOf(drawing, ".txt"), std::ios::binary);
    const Picture wine = readPicture(in);
    const int alike = agreement(drawing, own, wine);
    RecordProperty("agreement", alike);
    const Difference difference = differenceOf(drawing);
    EXPECT_EQ(alike, UnderWine ? 1000 : difference.drawn) << difference.reason;
}

TEST_P(SideBySide, Recorded)
{
    const SideBySideDrawing& drawing = GetParam();
    if (!drawing.isRecorded) {
        return;
    }
    const Bytes own = recorded(drawing);
    ASSERT_FALSE(own.empty());
    const std::string file = fileOf(drawing, ".emf");
    if (writes()) {
        std::ofstream(OwnFolder + file, std::ios::binary)
            .write(reinterpret_cast<const char*>(own.data()), static_cast<std::streamsize>(own.size()));
    }
    if (!UnderWine || !drawing.isText) { // Wine leaves bytes of a font's record as they happen to be
        EXPECT_EQ(own, readBytes(OwnFolder + file));
    }
    const int alike = agreement(drawing, played(own), played(readBytes(OtherFolder + file)));
    // Wine takes the black and white of the brush's table, and the layer the colours of text and background.
    constexpr int BrushOnWine = 529;
    const bool differs = UnderWine && std::string_view(drawing.name) == "picture brush of one bit";
    EXPECT_EQ(alike, differs ? BrushOnWine : 1000);
}

INSTANTIATE_TEST_SUITE_P(Drawings, SideBySide,
                         testing::ValuesIn(sideBySideDrawings().begin(), sideBySideDrawings().end()),
                         [](const auto& shown) {
                             std::string name = shown.param.name;
                             std::erase_if(name, [](char character) {
                                 return !std::isalnum(static_cast<unsigned char>(character));
                             });
                             return name;
                         });

} // namespace
