// One report as a page of either format: where the page operations answer differently.
#include "MetafileBuilder.h"
#include "support/PlayedPage.h"
#include "support/SearchedPage.h"
#include "surfaceEMF.h"
#include "surfaceSVG.h"

namespace {

// A title, and a placeholder for the page count.
std::string reportOn(CSurface& surface, const char* placeholder)
{
    char face[] = "DejaVu Sans";
    surface.setFont(face, 10, false, false, false, false);
    RECT title{10, 10, 400, 40};
    surface.drawText("abab", &title, DT_LEFT);
    RECT count{10, 60, 400, 90};
    surface.printerNofMMarker({10, 400});
    surface.drawText(placeholder, &count, DT_LEFT);
    surface.closeSurface();
    auto size = static_cast<unsigned int>(surface.getDataLength());
    std::string page(size, '\0');
    surface.getData(reinterpret_cast<unsigned char*>(page.data()), size);
    return page;
}

struct Pages {
    std::string metafile;
    std::string svg;
};

Pages pagesWith(const char* placeholder)
{
    RECT frame{0, 0, 21000, 29700}; // hundredths of a millimetre
    RECT paper{0, 0, 210, 297};
    RECT units{0, 0, 500, 700};
    CSurfaceEMF metafile(&frame);
    CSurfaceSVG svg(&paper, &units);
    return {reportOn(metafile, placeholder), reportOn(svg, placeholder)};
}

// Whether the page count, page 2 of 9, went into the page, and the text is on it now.
bool stampGives(std::string page, const char* text)
{
    const bool changed = CMetaFilePlayer::insertPageCount(reinterpret_cast<unsigned char*>(page.data()),
                                                          static_cast<int>(page.size()), 2, 9);
    return changed && !PageSearch{text}.next(page).empty();
}

TEST(BothFormats, StampByTheirOwnRules)
{
    const CaughtReports reports;
    EXPECT_TRUE(stampGives(pagesWith("p of 99").metafile, "2 of 9"));
    EXPECT_TRUE(stampGives(pagesWith("p of 99").svg, "2 of 9"));
    EXPECT_TRUE(stampGives(pagesWith("p of 9").metafile, "2 of 9"));
    EXPECT_FALSE(stampGives(pagesWith("p of 9").svg, "2 of 9")); // must be longer than what goes in
    EXPECT_TRUE(stampGives(pagesWith("      ").metafile, "9"));  // the total
    EXPECT_TRUE(stampGives(pagesWith("      ").svg, "2"));       // the number
}

TEST(BothFormats, TellSizesAndResumeByTheirOwnRules)
{
    const auto [metafile, svg] = pagesWith("p of 99");
    // A frame of 210 x 297 mm in pixels of the screen.
    const HDC screen = GetDC(nullptr);
    const auto pixels = [screen](unsigned int millimetres, int pixelCaps, int sizeCaps) {
        return millimetres * static_cast<unsigned int>(GetDeviceCaps(screen, pixelCaps)) /
               static_cast<unsigned int>(GetDeviceCaps(screen, sizeCaps));
    };
    const unsigned int width = pixels(210, HORZRES, HORZSIZE);
    const unsigned int height = pixels(297, VERTRES, VERTSIZE);
    ReleaseDC(nullptr, screen);
    const std::pair<std::string, std::vector<unsigned int>> pages[] = {{metafile, {width, height, 2}},
                                                                       {svg, {500, 700, 1}}};
    for (auto [page, answers] : pages) {
        PageSearch search{"ab"};
        EXPECT_FALSE(search.next(page).empty());
        std::vector<unsigned int> given{0, 0, search.textOffset};
        CMetaFilePlayer::getImageSize(reinterpret_cast<unsigned char*>(page.data()),
                                      static_cast<int>(page.size()), given[0], given[1]);
        EXPECT_EQ(given, answers);
    }
}

// "a" is 10 units wide; the bounds of a metafile's text leave the last one out.
TEST(BothFormats, JoinTextsOverTheirOwnGap)
{
    for (int gap = 0; gap < 8; ++gap) {
        const std::string metafile = metafileOf({textRecord(0, 0, "a"), textRecord(9 + gap, 0, "b")});
        const std::string svg = PageHead + element(0, 20, "a", 10) + element(10 + gap, 20, "b", 10);
        EXPECT_EQ(!PageSearch{"ab"}.next(metafile).empty(), gap <= 5) << gap;
        EXPECT_EQ(!PageSearch{"ab"}.next(svg).empty(), gap < 2) << gap;
    }
}

} // namespace
