// The short forms for callers in C++20.
#include "surfacePages.h"

#include <array>
#include <functional>
#include <string>

#include <gtest/gtest.h>

#include "devicePage.h"
#include "metafilePage.h"
#include "reportPages.h"
#include "storedPage.h"

namespace {

std::string asText(pages::View page)
{
    return {page.begin(), page.end()};
}

pages::Bytes drawn(const std::function<void(CSurfaceSVG&)>& draw)
{
    CSurfaceSVG surface = emptyPage();
    draw(surface);
    return pages::finished(surface);
}

TEST(SurfacePages, DrawStoreStampAndPlay)
{
    pages::Bytes page = drawn([](CSurfaceSVG& surface) {
        pages::setFont(surface, "Arial", 10, {.bold = true, .underline = true});
        surface.setTextColor(pages::rgb(1, 2, 0x1FF));
        pages::drawTextOnBaseLine(surface, 7, 8, "base");
        surface.printerNofMMarker({});
        surface.drawText("#         ", pages::temporary(RECT{10, 20, 90, 40}), 0);
    });
    EXPECT_TRUE(pages::stamp(page, 3, 12));
    CSurfaceSVG copy = emptyPage();
    ASSERT_TRUE(pages::play(page, copy, wholePage()));
    for (const std::string& text : {asText(page), asText(pages::finished(copy))}) {
        EXPECT_NE(text.find("font-weight='bold'"), std::string::npos) << text;
        EXPECT_NE(text.find("rgb(1,2,255)"), std::string::npos);
        EXPECT_NE(text.find("x='7' y='8'"), std::string::npos);
    }
    EXPECT_NE(asText(page).find(">3 of 12 "), std::string::npos);
    pages::Bytes none;
    EXPECT_FALSE(pages::stamp(none, 1, 2));
    EXPECT_EQ(nullptr, pages::player(none));
    EXPECT_FALSE(pages::play(none, copy, wholePage()));
    CSurfaceHdc nothing(nullptr);
    EXPECT_TRUE(pages::finished(nothing).empty());
}

// A run whose text is broken by what looks like markup, one over which the hit runs on, turned text, plain text.
TEST(SurfacePages, HighlightWhatTheSearchHasFound)
{
    const pages::Bytes page = drawn([](CSurfaceSVG& surface) {
        RECT box{10, 20, 90, 40};
        CSurfaceTextChunk runs[3];
        TovoTextString texts[] = {"a</tspan>\n<script>", "&b wo", "rd c"};
        Array<CSurfaceTextChunk, 2> order;
        for (int i = 0; i < 3; ++i) {
            runs[i].create(&texts[i], false, {10, 20}, i > 0, i == 1 ? 30 : -1, false);
            order.add(&runs[i]);
        }
        surface.drawString(&order, &box, 0);
        surface.setTextRotation(0, 90);
        surface.drawString(&order, &box, 0);
        surface.drawText("<&'word", &box, 0);
        surface.drawText("</text>", &box, 0);
    });
    const std::string hit = "<tspan fill='rgb(0,128,0)' text-decoration='underline'>";
    std::string expected[] = {asText(page), asText(page), asText(page)};
    const auto put = [&](int number, const char* after, const char* marked, std::size_t from) {
        const std::size_t place = expected[number].find(std::string(after) + marked, from);
        expected[number].insert(place + std::string(after).size() + std::string(marked).size(), "</tspan>");
        expected[number].insert(place + std::string(after).size(), hit);
        return place + 1;
    };
    const std::size_t first = put(0, ">&amp;b ", "wo", 0);
    put(0, ">", "rd", first);
    const std::size_t second = put(1, ">&amp;b ", "wo", first);
    put(1, ">", "rd", second);
    put(2, ">&lt;&amp;&apos;", "word", 0);
    int count = 0;
    pages::Hits hits(page, "WORD");
    for (const PageHit& found : hits) {
        ASSERT_LT(count, 3);
        EXPECT_EQ(expected[count++],
                  asText(pages::highlighted(page, hits.marked(found).bytes(), pages::rgb(0, 128, 0))));
    }
    EXPECT_EQ(3, count);
    pages::Hits exact(page, "WORD", {.sameCase = true});
    EXPECT_TRUE(exact.begin() == pages::Hits::end());
    const pages::Bytes another = drawn([](CSurfaceSVG& surface) { surface.drawLine(1, 2, 3, 4); });
    EXPECT_TRUE(pages::highlighted(another, page).empty());
}

// The page with the tags of the hits taken out of it.
std::string withoutHits(std::string shown, const std::string& tag)
{
    for (std::size_t at = shown.find(tag); at != std::string::npos; at = shown.find(tag)) {
        shown.erase(at, tag.size());
        shown.erase(shown.find("</tspan>", at), std::string("</tspan>").size());
    }
    return shown;
}

TEST(SurfacePages, HighlightNothingButTheHits)
{
    const std::string tag = "<tspan fill='rgb(255,0,0)' text-decoration='underline'>";
    int count = 0;
    for (const ReportPage& report : reportPages()) {
        const pages::Bytes page = drawn([&](CSurfaceSVG& surface) { drawReportPage(surface, report); });
        pages::Hits hits(page, "heating");
        for (const PageHit& found : hits) {
            const std::string shown = asText(pages::highlighted(page, hits.marked(found).bytes()));
            EXPECT_NE(shown.find(tag), std::string::npos) << report.name;
            EXPECT_EQ(asText(page), withoutHits(shown, tag)) << report.name;
            ++count;
        }
        const pages::Bytes metafile = recorded(report);
        pages::Hits red(metafile, "heating");
        for (const PageHit& found : red) {
            const pages::FoundPage marked = red.marked(found);
            EXPECT_EQ(asText(marked.bytes()), asText(pages::highlighted(metafile, marked.bytes())));
        }
    }
    EXPECT_GT(count, 10);
}

#if defined(_WIN32)
constexpr std::array RESOLUTIONS{96}; // that pages of pixels have there
#else
constexpr std::array RESOLUTIONS{96, 300};
#endif

// As wide as it is drawn, in the page's units.
TEST(SurfacePages, MeasureText)
{
    for (const int dpi : RESOLUTIONS) {
        const HDC device = makeDevice(dpi);
        const SIZE size = pages::textSize(device, pages::font("Arial", 20), "HHHH", 9600);
        EXPECT_EQ(0, pages::textSize(device, pages::font("Arial", 20), "", 96).cx);
        {
            CSurfaceHdc surface(device);
            pages::setFont(surface, "Arial", 20);
            RECT room{};
            DrawTextA(device, "HHHH", -1, &room, DT_CALCRECT);
            EXPECT_NEAR(room.right * 9600.0 / dpi, size.cx, 1);
            EXPECT_NEAR(room.bottom * 9600.0 / dpi, size.cy, 1);
        }
        DeleteDC(device);
    }
}

TEST(SurfacePages, ConvertBetweenUtf8AndTheCodePage)
{
    std::string all;
    for (int byte = 1; byte < 256; ++byte) {
        all.push_back(static_cast<char>(byte));
    }
    EXPECT_EQ(all, pages::codePageOf(pages::utf8Of(all)));
    EXPECT_EQ("a\xC3\xA4\xE2\x82\xAC", pages::utf8Of("a\xE4\x80"));
    // Beyond the code page; a byte alone; too long a form; four bytes; bytes that are none; a sequence cut off.
    EXPECT_EQ("?|?|??|?|????|??",
              pages::codePageOf("\xD0\x96|\xE4|\xC1\xA1|\xF0\x9F\x98\x80|\xFC\x80\x80\x80|\xE2\x82"));
}

} // namespace
