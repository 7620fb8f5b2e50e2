// One report as a page of either format: where the page operations answer differently.
#include "MetafileBuilder.h"
#include "player/PlayedPage.h"
#include "surfaceEMF.h"
#include "surfaceSVG.h"
#include "svgpages/SearchedPage.h"

namespace {

// Page 2 of 9: a title, and two placeholders for its count.
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
    explicit Pages(const char* placeholder)
    {
        RECT frame{0, 0, 21000, 29700};
        CSurfaceEMF metafileSurface(&frame);
        metafile = reportOn(metafileSurface, placeholder);
        RECT millimetres{0, 0, 210, 297};
        RECT units{0, 0, 500, 700};
        CSurfaceSVG svgSurface(&millimetres, &units);
        svg = reportOn(svgSurface, placeholder);
    }

    std::string metafile;
    std::string svg;
};

bool stampPage(std::string& page)
{
    return CMetaFilePlayer::insertPageCount(reinterpret_cast<unsigned char*>(page.data()),
                                            static_cast<int>(page.size()), 2, 9);
}

bool found(const std::string& page, const char* text)
{
    return !PageSearch{text, true}.next(page).empty();
}

TEST(BothFormats, StampWithinTheirOwnRules)
{
    const CaughtReports reports;
    const struct {
        const char* placeholder;
        const char* onMetafile;
        const char* onSvg;
        bool svgChanges;
    } cases[] = {
        {"p of 99", "2 of 9", "2 of 9", true},
        {"p of 9", "2 of 9", "p of 9", false}, // a field of just this length is too short on one
        {"        ", "9", "2", true},          // the total here, the number there
    };
    for (const auto& [placeholder, onMetafile, onSvg, svgChanges] : cases) {
        Pages pages(placeholder);
        EXPECT_TRUE(stampPage(pages.metafile));
        EXPECT_EQ(stampPage(pages.svg), svgChanges);
        EXPECT_TRUE(found(pages.metafile, onMetafile)) << placeholder;
        EXPECT_TRUE(found(pages.svg, onSvg)) << placeholder;
    }
}

TEST(BothFormats, TellSizeAndResumeInTheirOwnUnits)
{
    const Pages pages("p of 99");
    const struct {
        std::string page;
        unsigned int size[2];
        unsigned int resume; // once the first of two hits in one text is found
    } cases[] = {{pages.metafile, {793, 1122}, 2}, {pages.svg, {500, 700}, 1}};
    for (auto [page, size, resume] : cases) {
        unsigned int width = 0;
        unsigned int height = 0;
        CMetaFilePlayer::getImageSize(reinterpret_cast<unsigned char*>(page.data()),
                                      static_cast<int>(page.size()), width, height);
        EXPECT_TRUE(width == size[0] && height == size[1]) << width << ' ' << height;
        PageSearch search{"ab"};
        EXPECT_FALSE(search.next(page).empty());
        EXPECT_EQ(search.textOffset, resume);
        EXPECT_FALSE(search.next(page).empty());
        EXPECT_TRUE(search.next(page).empty());
    }
}

// A gap of so many units between two texts, "a" of width 10 and "b".
TEST(BothFormats, JoinTextsOverTheirOwnGap)
{
    for (int gap = 0; gap < 8; ++gap) {
        const std::string metafile = metafileOf({textRecord(0, 0, "a"), textRecord(9 + gap, 0, "b")});
        const std::string svg = pageHead + element(0, 20, "a", 10) + element(10 + gap, 20, "b", 10);
        EXPECT_EQ(!PageSearch{"ab"}.next(metafile).empty(), gap <= 5) << gap;
        EXPECT_EQ(!PageSearch{"ab"}.next(svg).empty(), gap < 2) << gap;
    }
}

} // namespace
