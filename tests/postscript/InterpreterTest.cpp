// Documents run by a real interpreter: values that the procedures leave, and the pixels that come of a page.
#include "PostScriptPage.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <unistd.h>

namespace {

constexpr int side = 170; // logical units, and points, of the page

constexpr std::pair<const char*, const char*> colors[] = {{"black", "\0\0\0"},
                                                          {"white", "\xFF\xFF\xFF"},
                                                          {"red", "\xFF\0\0"},
                                                          {"green", "\0\xFF\0"},
                                                          {"blue", "\0\0\xFF"}};

// What the interpreter said about a document, and its picture.
struct Interpreted {
    std::string words;
    std::string pixels;

    std::string at(int x, int y) const
    {
        const std::size_t place = (static_cast<std::size_t>(y) * side + static_cast<std::size_t>(x)) * 3;
        const std::string color = pixels.substr(place, 3);
        for (const auto& [name, known] : colors) {
            if (color == std::string(known, 3)) {
                return name;
            }
        }
        return "another";
    }

    // The smallest rectangle around everything of a colour.
    RECT extentOf(const std::string& color) const
    {
        RECT box{side, side, 0, 0};
        for (int i = 0; i < side * side; ++i) {
            if (at(i % side, i / side) == color) {
                box = RECT{std::min(box.left, i % side), std::min(box.top, i / side),
                           std::max(box.right, i % side + 1), std::max(box.bottom, i / side + 1)};
            }
        }
        return box;
    }
};

std::string contentOf(const std::filesystem::path& file)
{
    std::ostringstream content;
    content << std::ifstream(file, std::ios::binary).rdbuf();
    return content.str();
}

// Draws a page, lets `probe` run behind its text, and expects that the interpreter comes to the end.
Interpreted interpreted(const PsDrawing& draw, const std::string& probe = "")
{
    CSurfacePSPrinter page = freshPage(side, side);
    page.m_pageWidth = page.m_pageHeight = 60; // 170.08 points
    draw(page);
    page.closeSurface();
    std::string document = textOf(page);
    document.insert(document.rfind("\nshowpage"), probe);
    const std::filesystem::path folder = testing::TempDir() + "postscript-" + std::to_string(getpid());
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "page.ps", std::ios::binary) << document;
    const std::string size = std::to_string(side);
    const std::string command = "cd " + folder.string() +
                                " && " SURFACE_GHOSTSCRIPT
                                " -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=ppmraw -r72 -g" +
                                size + "x" + size + " -sOutputFile=page.ppm page.ps >words 2>&1";
    EXPECT_EQ(0, std::system(command.c_str())) << contentOf(folder / "words");
    Interpreted result{contentOf(folder / "words"), contentOf(folder / "page.ppm")};
    const std::size_t pixels = std::size_t{side} * side * 3;
    result.pixels.erase(0, result.pixels.size() - std::min(pixels, result.pixels.size()));
    EXPECT_EQ(pixels, result.pixels.size());
    std::filesystem::remove_all(folder);
    return result;
}

void useFont(CSurfacePSPrinter& s, float size)
{
    char face[] = "Helvetica";
    s.setFont(face, size, false, false, false, false);
}

TEST(PostScriptProcedures, LeaveTheRightValues)
{
    const std::string box = " flattenpath pathbbox 4 {round cvi =} repeat";
    const std::string width = " (abc) stringwidth pop";
    const std::pair<std::string, std::string> cases[] = {
        {"10 -50 moveto 60 false false (abc) jshow currentpoint round cvi = round cvi =", "-50 70"},
        {"10 -50 moveto 0 true true (abc) jshow currentpoint pop" + width + " sub round cvi =", "10"},
        {"99 -50 moveto (abc) rightshow currentpoint pop round cvi =", "99"},
        {"99 -50 moveto (abc) middleshow currentpoint pop" + width + " 2 div sub round cvi =", "99"},
        {"newpath 50 -50 40 20 0 90 ellipse currentpoint round cvi = round cvi =", "-30 50"},
        {"newpath 50 -50 40 20 270 180 ellipse" + box, "-30 90 -70 10"},
        {"newpath 50 -50 40 20 0 90 pie 52 -48 infill = 80 -38 infill =" + box, "true true -30 90 -50 50"},
        {"newpath 50 -50 40 20 0 90 chord 52 -48 infill = 80 -38 infill =", "false true"},
        {"0 1 0 setrgbcolor 5 setlinewidth 1 0 0 1 2 3 4 framerect 1 2 3 4 focusrect 1 0 0 1 2 3 4 solidrect "
         "currentlinewidth cvi = currentrgbcolor cvi = cvi = cvi = currentdash pop length =",
         "5 0 1 0 0"},
        {"count =", "0"},
    };
    std::string probes;
    std::string words;
    for (const auto& [probe, said] : cases) {
        probes += probe + "\n";
        words += said + " ";
    }
    const auto draw = [](CSurfacePSPrinter& s) {
        POINT point{};
        useFont(s, 10);
        s.drawTextAt("", &point, 1);
        s.drawTextAt("", &point, 2);
        s.drawPie(in({0, 0, 9, 9}), 0, 0, 0, 0);
        s.drawChord(in({0, 0, 9, 9}), 0, 0, 0, 0);
        s.drawFocusRect(in({0, 0, 9, 9}));
        s.frameRect(in({0, 0, 9, 9}), 0);
        s.drawSolidRectangle(in({0, 0, 9, 9}), 0);
    };
    std::string said = interpreted(draw, probes).words;
    std::ranges::replace(said, '\n', ' ');
    EXPECT_EQ(words, said);
}

// `places` are "x,y" with blanks between them.
void expectColor(const Interpreted& page, const std::string& color, const std::string& places)
{
    std::istringstream list(places);
    int x = 0;
    int y = 0;
    for (char comma = 0; list >> x >> comma >> y;) {
        EXPECT_EQ(color, page.at(x, y)) << x << ", " << y;
    }
}

TEST(PostScriptPixels, OfShapes)
{
    const Interpreted page = interpreted([](CSurfacePSPrinter& s) {
        POINT points[] = {{100, 40}, {140, 40}, {120, 10}, {100, 50}, {140, 50}, {140, 80}};
        s.drawSolidRectangle(in({10, 10, 20, 20}), 0xFF);
        s.frameRect(in({30, 10, 50, 30}), 0xFF00);
        s.setPen(0xFF, 0, 4);
        s.setBrush(0xFF0000, 0);
        s.drawRectangle(in({60, 10, 80, 30}));
        s.polygon(points, 3);
        s.polyline(points + 3, 3);
        s.drawRoundedRectangle(in({10, 50, 50, 90}), 15, 0);
        s.ellipse(in({100, 90, 160, 130}));
        s.drawChord(in({100, 130, 160, 170}), 160, 150, 100, 150);
        s.setPen(0, 5, 1);
        s.setBrush(0, 1);
        s.drawRoundedRectangle(in({60, 50, 90, 90}), 5, 0);
        s.setPen(0xFF00, 0, 3);
        s.drawLine(60, 140, 90, 140);
        s.setPen(0, 5, 1);
        s.setBrush(0xFF, 2);
        s.drawRectangle(in({10, 100, 50, 140}));
        s.setClippingRegion(in({60, 100, 70, 110}));
        s.setTransform(1, 0, 0, 1, 0, 5);
        s.drawSolidRectangle(in({60, 100, 90, 130}), 0xFF0000);
        s.clearTransform();
    });
    expectColor(page, "red", "15,15 60,20 120,40 120,50 30,50 99,110 30,103 30,112");
    expectColor(page, "green", "40,10 75,140");
    expectColor(page, "blue", "70,20 120,30 30,70 130,110 101,110 130,140 65,107");
    // Outside, inside of frames, where nothing closes an open line, where no pen was, and beyond the clip.
    expectColor(page, "white", "22,15 40,20 120,65 11,51 130,160 75,50 30,100 30,108 65,102 65,112 75,107");
}

TEST(PostScriptPixels, OfImages)
{
    const Interpreted page = interpreted([](CSurfacePSPrinter& s) {
        // Red and green below blue and black; the second one is transparent where the first is red.
        const std::string opaque("\0\0\xFF\0\xFF\0\xFF\0\0\0\0\0", 12);
        const std::string holed("\0\0\xFF\0\0\xFF\0\xFF\xFF\0\0\xFF\0\0\0\xFF", 16);
        include(s, 1, bitmapOf(opaque, 24, 2), 2, 2);
        include(s, 2, bitmapOf(holed, 32, 2), 2, 2);
        include(s, 3, bitmapOf(opaque, 24, 2), 2, 2, 100);
        s.setPen(0, 5, 1);
        s.drawImage(in({10, 10, 50, 50}), 1, 1, 0, 0);
        s.drawImage(in({60, 10, 100, 50}), 1, 0, 0, 0);
        s.drawImage(in({110, 10, 150, 50}), 2, 1, 0, 0);
        include(s, 4, "no image", INT_MAX, -1, 100);
        for (const int picture : {1, 2, 3, 4, 70000}) {
            const LONG left = picture * 40 - 30;
            usePicture(s, picture);
            s.drawRectangle(in({left, 60, left + 30, 90}));
            s.drawImage(in({left, 100, left + 30, 130}), static_cast<unsigned int>(picture), 2, 7, 7);
        }
    });
    expectColor(page, "red", "20,40 60,11 10,71 50,71 90,71 10,111 50,111 90,111");
    expectColor(page, "green", "40,40 61,11 140,40 11,71 51,71 91,71 11,111 51,111 91,111");
    expectColor(page, "blue", "20,20 60,10 120,20 10,70 50,70 90,70 10,110 50,110 90,110");
    expectColor(page, "black", "40,20 140,20 11,70 51,70 91,70 11,110 51,110 91,110");
    expectColor(page, "white", "62,12 120,40 9,70 10,90 41,70 9,110 10,130 140,70 140,110");
}

// Three letters walk to the right, upward on their side, and stacked upward and downward.
TEST(PostScriptPixels, OfTurnedText)
{
    const struct {
        unsigned long color;
        std::string shown;
        int charAngle, textAngle;
        POINT baseLine;
        RECT extent;
    } cases[] = {
        {0, "black", 0, 0, {5, 40}, {7, 24, 47, 39}},
        {0xFF, "red", 90, 90, {60, 140}, {45, 97, 60, 137}},
        {0xFF00, "green", 0, 90, {100, 140}, {95, 84, 106, 139}},
        {0xFF0000, "blue", 0, 270, {140, 60}, {135, 44, 146, 99}},
    };
    const Interpreted page = interpreted([&](CSurfacePSPrinter& s) {
        useFont(s, 20);
        for (const auto& c : cases) {
            CSurfaceTextChunk chunk;
            TovoTextString text("HHH");
            Array<CSurfaceTextChunk, 2> chunks;
            chunk.create(&text, false, POINT{c.baseLine.x, c.baseLine.y - 20}, false, -1, false);
            chunks.add(&chunk);
            s.setTextColor(c.color);
            s.setTextRotation(c.charAngle, c.textAngle);
            s.drawString(&chunks, in({0, 0, side, side}), 0);
        }
    });
    constexpr double Tolerance = 2; // units: outlines differ a little between versions of a font
    for (const auto& c : cases) {
        const RECT extent = page.extentOf(c.shown);
        for (const auto edge : {&RECT::left, &RECT::top, &RECT::right, &RECT::bottom}) {
            EXPECT_NEAR(c.extent.*edge, extent.*edge, Tolerance) << c.shown;
        }
    }
}

} // namespace
