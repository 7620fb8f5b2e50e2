// Images of SVG pages: definitions with their bytes, placements, tiles and picture brushes, out and back.
#include "support/PlayedPage.h"
#include "support/SvgPage.h"
#include "surfacePSPrinter.h"
#include "sys/krnutil.h"

namespace {

// Eleven bytes, the fewest that count as an image, as the page holds them and as a recorded call shows them.
const std::string Bytes = "12345678901";
const std::string Base64 = "MTIzNDU2Nzg5MDE=";
const std::string Shown = "11:3605f02f";
constexpr int Png = 8;
constexpr int Jpeg = 7;

void include(CSurfaceSVG& s, unsigned int id, int width, int height, int type = Png)
{
    std::string data = Bytes;
    s.includeImage(id, reinterpret_cast<unsigned char*>(data.data()), static_cast<int>(data.size()), width,
                   height, type);
}

void fillWithPicture(CSurfaceSVG& s, int picture)
{
    CSurfaceBrush brush(0xFF);
    brush.setPicture(picture);
    s.setBrush(&brush);
    s.setPen(0, 5, 0);
    s.drawRectangle(in({1, 2, 4, 6}));
}

std::string image(const std::string& id, const std::string& size, const std::string& type = "8",
                  const std::string& data = Base64)
{
    return "<image id='image" + id + "' " + size + " tovo:picType='" + type +
           "' preserveAspectRatio='defer' xlink:href='data:;base64,\n" + data + "'/>\n";
}

const std::string Size34 = "width='3' height='4'";

std::string defs(const std::string& images, const std::string& others = "")
{
    return "<defs>\n" + images + "\n" + others + "</defs>\n\n";
}

// In the rectangle (10, 20, 40, 70), from (5, -6).
std::string placement(const std::string& viewBox, const std::string& use)
{
    return "\n<svg x='10' y='20' width='30' height='50' viewBox='0 0 " + viewBox +
           "' preserveAspectRatio='xMinYMin meet'>\n\t<use x='5' y='-6' " + use + "'/>\n</svg>\n";
}

std::string tile(const std::string& image)
{
    return "<pattern id='pattern1' patternUnits='userSpaceOnUse' x='0' y='0' width='3' height='4'>"
           "<use xlink:href='#image" +
           image + "'/></pattern>\n";
}

std::string filled(const std::string& fill)
{
    return "<rect x='1' y='2' width='3' height='4' fill='" + fill +
           "'  tovo:penStyle='5'  stroke='none'  />\n";
}

const std::string Image1 = "xlink:href='#image1";
const std::string Tiled = "width='30' height='50' fill='url(#pattern1)' xlink:href='#TiledImage";
const std::string TiledSymbol = "\t<symbol id='TiledImage'><rect x='0' y='0' width='100%' height='100%' "
                                "stroke-width='0'/></symbol>\n";

void place(CSurfaceSVG& s, unsigned int id, int mode)
{
    s.drawImage(in({10, 20, 40, 70}), id, mode, 5, -6);
}

// A bitmap becomes a PNG under the type that was stated.
TEST(SvgImages, AreConverted)
{
    std::string bitmap("BM:\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\1\0\0\0\1\0\0\0\1\0\x18\0", 30);
    bitmap.resize(58);
    const std::string page = drawnPage([&](CSurfaceSVG& s) {
        s.includeImage(1, reinterpret_cast<unsigned char*>(bitmap.data()), 58, 3, 4, 1);
    });
    EXPECT_TRUE(page.starts_with("<defs>\n<image id='image1' " + Size34 + " tovo:picType='1' ") &&
                page.find("base64,\niVBORw0KGgo") != std::string::npos)
        << page;
}

const DrawnCase Written[] = {
    {"PngAndJpegKeepTheirBytes", [](auto& s) { include(s, 0, 3, 4), include(s, 65535, 3, 4, Jpeg); },
     defs(image("0", Size34) + image("65535", Size34, "7"))},
    {"JpegByItsSignature",
     [](auto& s) {
         unsigned char signature[] = {0xFF, 0xD8, 0xFF, 0xE0};
         s.includeImage(1, signature, 4, 3, 4, 0);
     },
     defs(image("1", Size34, "0", "/9j/4A=="))},
    {"WithoutTheImageLibrary",
     [](auto& s) {
         krnSetImageLibrary("no such library");
         for (const int type : {0, 1, Jpeg, Png}) {
             include(s, 1, 3, 4, type);
         }
         krnSetImageLibrary(nullptr);
     },
     defs(image("1", Size34, "0", "") + image("1", Size34, "1", "") + image("1", Size34, "7") +
          image("1", Size34))},
    {"UnreadableBytesAreLeftOut", [](auto& s) { include(s, 1, 3, 4, 1), include(s, 1, 3, 4, 1000); },
     defs(image("1", Size34, "1", "") + image("1", Size34, "1000", ""))},
    // The size of the later of two images with one id counts from then on.
    {"Modes",
     [](auto& s) {
         include(s, 1, 3, 4);
         for (const int mode : {0, 1, 2, 3}) {
             place(s, 1, mode);
         }
         include(s, 1, -7, 8);
         place(s, 1, 1);
     },
     defs(image("1", Size34) + image("1", "width='-7' height='8'"), tile("1") + "\n" + TiledSymbol) +
         placement("30 50", Image1) + placement("3 4", Image1) + placement("30 50", Tiled) +
         placement("", Image1) + placement("-7 8", Image1)},
    {"PictureBrush", [](auto& s) { include(s, 2, 3, 4), fillWithPicture(s, 2); },
     defs(image("2", Size34), tile("2") + "\n") + filled("url(#pattern1)")},
    {"NumbersWithoutImage",
     [](auto& s) {
         include(s, 5, 3, 4);
         include(s, 65536, 3, 4);
         for (const unsigned int id : {4U, 6U, 65536U, ~0U}) {
             place(s, id, 0);
             place(s, id, 2);
             fillWithPicture(s, static_cast<int>(id));
         }
     },
     defs(image("5", Size34)) + filled("none") + filled("none") + filled("none") + filled("none")},
};

std::string included(const std::string& id, const std::string& type = "8", const std::string& size = "3x4")
{
    return "includeImage " + id + " " + Shown + " " + size + " " + type + "; ";
}

std::string framedUse(const std::string& viewBox, const std::string& use)
{
    return "<svg x='10' y='20' width='30' height='50' viewBox='" + viewBox + "'><use x='5' y='-6' " + use +
           "/></svg>";
}

std::string section(const std::string& content)
{
    return "<defs>" + content + "</defs>";
}

const std::string Use1 = "xlink:href='#image1'";
const std::string UseTile = "fill='url(#pattern1)' xlink:href='#TiledImage'";

const PageCase Played[] = {
    {"BytesSizesAndTypes",
     section(image("1", "width='-3' height='4'", "-9") + image("7x", Size34, "100") + image("1", Size34)),
     included("1", "-9", "-3x4") + included("7", "100") + included("1")},
    {"ImagesThatAreSkipped",
     section(image("1", Size34, "8", "MTIzNDU2Nzg5MA==") + image("2", Size34, "8", "") + image("-1", Size34) +
             image("2", "") + image("3", Size34)),
     included("3")},
    {"WithoutTypeDataOrNumberTheSectionEnds",
     section("<image id='image1' width='3' height='4' base64,'/>" + image("2", Size34)) +
         section("<image id='image1' width='3' height='4' tovo:picType='8'/>" + image("2", Size34)) +
         section("<image id='1' width='3'/>" + image("2", Size34)) + mark(1),
     "drawFocusRect (1, 0, 1, 0)"},
    {"NaturalAndScaled",
     framedUse("0 0 30 50", Use1) + framedUse("0 0 30 51", Use1) + framedUse("0 0 29 50", Use1) +
         framedUse("0 0 ", "xlink:href='#image12x'"),
     "drawImage (10, 20, 40, 70) 1 0 5 -6; drawImage (10, 20, 40, 70) 1 1 5 -6; "
     "drawImage (10, 20, 40, 70) 1 1 5 -6; drawImage (10, 20, 40, 70) 12 1 5 -6"},
    {"Tiled", // not outside of a frame
     "<use x='1' y='2' " + Use1 + "/>" + framedUse("0 0 1 1", UseTile) + mark(1) + section(tile("9")) +
         "<use x='1' y='2' " + UseTile + "/>" + framedUse("0 0 1 1", UseTile) +
         framedUse("0 0 1 1", "xlink:href='#TiledImage'"),
     "drawFocusRect (1, 0, 1, 0); drawImage (10, 20, 40, 70) 9 2 5 -6"},
    // The colour of a picture and the picture of a hatch are those of a fresh brush.
    {"Fills",
     section("<pattern id='pattern1' stroke='rgb(1,2,3)'><use xlink:href='#image3'/></pattern>"
             "<pattern id='pattern2' stroke='rgb(1,2,3)' xlink:href='#image0'></pattern>") +
         "<ellipse cx='2' cy='3' rx='1' ry='1' fill='url(#pattern1)'/>"
         "<ellipse cx='2' cy='3' rx='1' ry='1' fill='url(#pattern2)'/>",
     "setBrush rgb(0,0,0) style 99 picture 3; " + PlainPen + "ellipse (1, 2, 3, 4); " +
         "setBrush rgb(1,2,3) style 2 picture 0; " + PlainPen + "ellipse (1, 2, 3, 4)"},
};

TEST_P(SvgPage, HoldsExactly)
{
    EXPECT_EQ(GetParam().page, drawnPage(GetParam().draw));
}

constexpr auto CaseName = [](const auto& info) {
    return std::string(info.param.name);
};
INSTANTIATE_TEST_SUITE_P(Images, SvgPage, testing::ValuesIn(Written), CaseName);
INSTANTIATE_TEST_SUITE_P(Images, PageContent, testing::ValuesIn(Played), CaseName);

// By the surfaces and by the player, with a line in the log for each id of a page.
TEST(Images, WithAnIdAboveTheirTableAreRefusedAndTold)
{
    const std::string high = image("65536", Size34);
    const PlayedPage page =
        playPage(framed(section(high + image("65535", Size34) + high + image("65537", Size34))));
    EXPECT_EQ(page.calls + "; ", Prepared + included("65535"));
    EXPECT_EQ(page.log,
              (std::vector<std::string>{"CMetaFilePlayerSVG::player - Image id 65536 is above 65535",
                                        "CMetaFilePlayerSVG::player - Image id 65537 is above 65535"}));
    const CaughtReports reports;
    EXPECT_EQ(drawnPage([](CSurfaceSVG& s) {
                  include(s, 65536, 3, 4);
                  include(s, 65536, 3, 4);
              }),
              "");
    CSurfacePSPrinter document(0, 0);
    std::string data = Bytes;
    for (int i = 0; i < 2; ++i) {
        document.includeImage(70000, reinterpret_cast<unsigned char*>(data.data()), 11, 3, 4, Png);
    }
    EXPECT_EQ(reports.log,
              (std::vector<std::string>{"CSurfaceSVG::includeImage Image id 65536 is above 65535",
                                        "CSurfacePSPrinter::includeImage Image id 70000 is above 65535"}));
}

} // namespace
