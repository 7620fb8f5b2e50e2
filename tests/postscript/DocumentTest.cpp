// The document around the text, its bytes for the caller, and what the surface answers beside drawing.
#include "PostScriptPage.h"

#include <algorithm>
#include <climits>
#include <fstream>
#include <iterator>

namespace {

std::string headOf(const std::string& orientation, const std::string& setUp)
{
    return "%!PS-Adobe-3.0\n%%LanguageLevel: 2\n%%Creator: Tovo " SURFACE_TESTED_VERSION "\n%%Orientation: " +
           orientation + "\n" + setUp + " scale\n\n/jshow {/str exch def ";
}

TEST(PostScriptDocument, BeginsWithThePlaceAndTheScaleOfThePage)
{
    const struct {
        int originX, originY, width, height, pageWidth, pageHeight;
        std::string head;
    } cases[] = {
        {5, 5, 2100, 2970, 210, 297, headOf("Portrait", "14 14 translate\n0 841 translate\n0.283 0.283")},
        {10, 100, 100, 100, -1, 1, headOf("Portrait", "28 283 translate\n0 2 translate\n-0.028 0.028")},
        {-10, 0, 2, 1, INT_MAX, INT_MAX,
         headOf("Landscape", "-28 0 translate\n0 2147483647 translate\n3043682304.000 6087364608.000")},
        {INT_MIN, 0, 0, 0, 0, 1, headOf("Portrait", "-2147483648 0 translate\n0 2 translate\n1.000 1.000")},
    };
    for (const auto& [originX, originY, width, height, pageWidth, pageHeight, head] : cases) {
        CSurfacePSPrinter page(originX, originY);
        page.m_width = width;
        page.m_height = height;
        page.m_pageWidth = pageWidth;
        page.m_pageHeight = pageHeight;
        page.closeSurface();
        EXPECT_EQ(head, textOf(page).substr(0, head.size()));
    }
}

// What is between the head and the page text.
std::string proceduresFor(const PsDrawing& draw)
{
    std::string document = documentOf(draw);
    document.erase(document.size() - drawnText(draw).size() - std::string("\nshowpage\n\n").size());
    return document.substr(document.find("/jshow"));
}

TEST(PostScriptDocument, DefinesWhatThePageCalls)
{
    static RECT rect{0, 0, 1, 1};
    static POINT point{};
    const PsDrawing cases[] = {
        [](auto&) {},
        [](auto& s) { s.drawTextAt("", &point, 3); },
        [](auto& s) { s.drawTextAt("", &point, 1); },
        [](auto& s) { s.drawArc(&rect, 1, 2, 3, 4); },
        [](auto& s) { s.ellipse(&rect); },
        [](auto& s) { s.drawPie(&rect, 1, 2, 3, 4); },
        [](auto& s) { s.drawChord(&rect, 1, 2, 3, 4); },
        [](auto& s) {
            Array<CSurfaceTextChunk, 2> chunks;
            CSurfaceTextChunk chunk;
            chunks.add(&chunk);
            s.setTextRotation(0, 1);
            s.drawString(&chunks, &rect, 0);
            s.setBrush(0, 7);
            s.drawRectangle(&rect);
            s.drawFocusRect(&rect);
            s.drawSolidRectangle(&rect, 0);
            s.frameRect(&rect, 0);
            include(s, 1, bitmapOf("1234", 32), 1, 1);
            s.drawImage(&rect, 1, 0, 0, 0);
        },
    };
    std::ifstream file(SURFACE_GOLDEN "/procedures.ps", std::ios::binary);
    const std::string golden(std::istreambuf_iterator<char>(file), {});
    std::string procedures;
    for (const PsDrawing& draw : cases) {
        procedures.append(proceduresFor(draw)).append("% ----\n");
    }
    EXPECT_EQ(golden, procedures);
}

TEST(PostScriptDocument, ClosesTheClipButNotTheTransform)
{
    const std::string document = documentOf([](CSurfacePSPrinter& s) {
        s.setTransform(1, 0, 0, 1, 0, 0);
        s.setClippingRegion(in({0, 0, 1, 1}));
    });
    EXPECT_TRUE(document.ends_with("] concat\ngrestore\n\nshowpage\n\n"));
}

TEST(PostScriptDocument, GivesAsManyBytesAsThereIsRoomFor)
{
    CSurfacePSPrinter page = freshPage();
    page.drawFocusRect(in({0, 0, 1, 1}));
    const std::string text = textOf(page);
    for (const std::size_t room : {std::size_t{0}, text.size() - 1, text.size() + 1}) {
        std::string bytes(text.size() + 1, '#');
        auto size = static_cast<unsigned int>(room);
        page.getData(reinterpret_cast<unsigned char*>(bytes.data()), size);
        ASSERT_EQ(std::min(room, text.size()), size);
        EXPECT_EQ(text.substr(0, size) + std::string(bytes.size() - size, '#'), bytes);
        page.getData(nullptr, size);
        EXPECT_EQ(0U, size);
    }
}

TEST(PostScriptDocument, StateAndNullArgumentsLeaveNoText)
{
    EXPECT_EQ("", drawnText([](CSurfacePSPrinter& s) {
                  POINT point{};
                  RECT region{1, 2, 3, 4};
                  s.setBrush(1, 2);
                  s.setViewportOrigin(9, 10);
                  s.setClipRegion(&region);
                  s.setClipRegion(nullptr);
                  s.solidPolygon(&point, 1, 0);
                  s.setFont(nullptr);
                  s.drawText(nullptr, &region, 0);
                  s.drawTextAt("x", nullptr, 0);
                  s.drawTextOnBaseLine(1, 2, 0, &region, nullptr, 0);
                  EXPECT_FALSE(s.drawString(nullptr, &region, 0));
                  s.drawRectangle(nullptr);
                  s.drawFocusRect(nullptr);
                  s.ellipse(nullptr);
                  s.drawArc(nullptr, 1, 2, 3, 4);
                  s.drawPie(nullptr, 1, 2, 3, 4);
                  s.drawChord(nullptr, 1, 2, 3, 4);
                  s.drawRoundedRectangle(nullptr, 1, 2);
                  s.drawSolidRectangle(nullptr, 0);
                  s.frameRect(nullptr, 0);
                  s.drawEraseRectangle(nullptr, 1);
                  s.polygon(nullptr, 1);
                  s.polyline(nullptr, 1);
                  EXPECT_EQ(10, s.m_viewportOriginY);
                  EXPECT_EQ(4, s.getClipRegion()->bottom);
                  EXPECT_EQ(5, s.getSurfaceType());
                  CSurfacePSPrinter::convertPostScriptCoords(&region, in({1, INT_MIN, 3, 4}));
                  EXPECT_TRUE(region.right == 3 && region.top == INT_MIN && region.bottom == -4);
              }));
}

// Copies go on from the text and the cached state of their original, and share its images.
TEST(PostScriptDocument, CopiesAreIndependent)
{
    const auto draw = [](CSurfacePSPrinter& s) {
        s.setPen(0xFF, 0, 2);
        s.drawLine(0, 0, 1, 1);
        include(s, 1, bitmapOf("1234", 32), 1, 1);
        s.drawImage(in({0, 0, 1, 1}), 1, 0, 0, 0);
    };
    const auto drawByCopies = [&](CSurfacePSPrinter& s) {
        draw(s);
        CSurfacePSPrinter copy(s);
        s.setPen(0xFF00, 0, 9);
        s.drawLine(0, 0, 1, 1);
        s = copy;
        draw(copy);
        s = *&s;
        draw(s);
    };
    EXPECT_EQ(documentOf([&](auto& s) { draw(s), draw(s); }), documentOf(drawByCopies));
}

} // namespace

// What an interpreter stops at is written as it has to be, and reported once for each document and cause.
TEST(PostScriptDocument, TellsOfWhatStopsAnInterpreter)
{
    struct Case {
        const char* name;
        PsDrawing draw;
        const char* told; // in the log's line; null: nothing is
    };
    const auto runs = [](auto& s, bool underline, const char* characters = "A", int width = -1) {
        CSurfaceTextChunk chunk;
        TovoTextString text(characters);
        chunk.create(&text, false, POINT{1, 2}, false, width, underline);
        Array<CSurfaceTextChunk, 2> chunks;
        chunks.add(&chunk);
        RECT rect{0, 0, 9, 9};
        s.drawString(&chunks, &rect, 0);
    };
    static char face[] = "Arial";
    static RECT box{0, 0, 30, 20};
    static RECT line{0, 0, 30, 0};
    const auto font = [](auto& s, float size) {
        s.setFont(face, size, false, false, false, false);
    };
    const Case cases[] = {
        {"an ordinary page", [=](auto& s) { font(s, 9), runs(s, true), s.drawRoundedRectangle(&box, 5, 5); },
         nullptr},
        {"no page width", [](auto& s) { s.m_pageWidth = 0; }, "scale"},
        {"too many units", [](auto& s) { s.m_height = 2000000; }, "scale"},
        {"no units", [](auto& s) { s.m_width = s.m_height = 0; }, nullptr},
        {"a font of no size", [=](auto& s) { font(s, 0), font(s, 0.001F), font(s, 9); }, "size of a font"},
        {"a radius of a side",
         [](auto& s) { s.drawRoundedRectangle(&box, 20, 3), s.drawRoundedRectangle(&box, 30, 3); },
         "rounded"},
        {"no extent", [](auto& s) { s.drawRoundedRectangle(&line, 1, 1); }, "rounded"},
        {"a font that a clip took along",
         [=](auto& s) {
             s.setClippingRegion(&box), font(s, 9), runs(s, true);
             s.setClippingRegion(nullptr), runs(s, true), runs(s, true);
         },
         "underline"},
        {"a font from before the clip",
         [=](auto& s) {
             font(s, 9), s.setClippingRegion(&box), font(s, 8), s.setClippingRegion(nullptr), runs(s, true);
         },
         nullptr},
        {"a font that a transform took along",
         [=](auto& s) { s.setTransform(1, 0, 0, 1, 0, 0), font(s, 9), s.clearTransform(), runs(s, true); },
         "underline"},
        {"a font from before the end of no clip",
         [=](auto& s) { font(s, 9), s.setClippingRegion(nullptr), runs(s, true); }, "underline"},
        {"a font name that ends early",
         [](auto& s) {
             char parted[] = "A(b";
             s.setFont(parted, 9, false, false, false, false);
         },
         "name of a font"},
        {"a transform to a line", [](auto& s) { s.setTransform(0.5F, 1, 0.25F, 0.5F, 0, 0); }, "transform"},
        {"a width for nothing", [=](auto& s) { runs(s, false, "", 5); }, "empty run"},
        {"text without a line", [=](auto& s) { runs(s, false); }, nullptr},
    };
    for (const Case& test : cases) {
        std::vector<std::string> lines;
        krnSetLogSink([](const char* text,
                         void* log) { static_cast<std::vector<std::string>*>(log)->emplace_back(text); },
                      &lines);
        CSurfacePSPrinter page = freshPage();
        test.draw(page);
        page.closeSurface();
        krnSetLogSink(nullptr, nullptr);
        EXPECT_EQ(test.told != nullptr ? 1U : 0U, lines.size()) << test.name;
        EXPECT_TRUE(lines.empty() || lines[0].find(test.told) != std::string::npos) << test.name << lines[0];
    }
}
