// Walks over hits beside the search that makes a marked copy for each.
#include "pageHits.h"

#include <string>

#include <gtest/gtest.h>

#include "metaFilePlayer.h"
#include "metafilePage.h"
#include "reportPages.h"
#include "storedPage.h"
#include "support/SearchedPage.h"

namespace {

// What the two say of each hit: where to look, where it is.
struct HitList {
    std::string places;
    int count = 0;
};

void add(HitList& list, unsigned int position, unsigned int offset, int x, int y)
{
    list.places += std::to_string(position) + ':' + std::to_string(offset) + '@' + std::to_string(x) + ',' +
                   std::to_string(y) + ' ';
    ++list.count;
}

HitList walked(const Page& page, const char* text, bool matchCase, bool wholeWord)
{
    HitList list;
    PageHits hits(page.data(), static_cast<unsigned int>(page.size()), text, matchCase, wholeWord);
    while (hits.next()) {
        const PageHit& hit = hits.hit();
        add(list, hit.position, hit.textOffset, hit.x, hit.y);
        EXPECT_LT(hit.start, hit.textLength);
    }
    EXPECT_FALSE(hits.next());
    return list;
}

HitList searched(Page page, const char* text, bool matchCase, bool wholeWord)
{
    HitList list;
    for (unsigned int position = 0, offset = 0;;) {
        const unsigned int from[] = {position, offset};
        unsigned char* found = nullptr;
        unsigned int length = 0;
        int x = 0;
        int y = 0;
        CMetaFilePlayer::searchPageForString(page.data(), static_cast<unsigned int>(page.size()), text,
                                             matchCase, wholeWord, position, offset, found, length, x, y);
        CMetaFilePlayer::freeFoundPage(found);
        if (length == 0) {
            return list;
        }
        add(list, from[0], from[1], x, y);
    }
}

TEST(PageHits, AreThoseOfTheSearch)
{
    int all = 0;
    const auto compare = [&all](const Page& page, const char* name) {
        for (const char* text :
             {"e", "heating", "MWh", "Year before", "before in", "1", " ", "7 MWh 11", "nowhere"}) {
            for (const int way : {0, 1, 2, 3}) {
                const HitList list = walked(page, text, way % 2 != 0, way > 1);
                EXPECT_EQ(list.places, searched(page, text, way % 2 != 0, way > 1).places)
                    << name << ' ' << text << way;
                all += list.count;
            }
        }
    };
    for (const ReportPage& report : reportPages()) {
        CSurfaceSVG surface = emptyPage();
        drawReportPage(surface, report);
        compare(stored(surface), report.name);
        compare(recorded(report), report.name);
    }
    EXPECT_GT(all, 1000);
}

// Texts that run on into one another, words behind many others, hits of one text.
TEST(PageHits, GoOnInJoinedTexts)
{
    std::string texts;
    for (int i = 0; i < 40; ++i) {
        texts += "<text x='" + std::to_string(10 * i) + "' y='5' textLength='10'>ab a" +
                 (i % 3 == 0 ? " abab" : "") + "</text>";
    }
    const std::string svg = "<?xml version='1.0'?><!DOCTYPE svg><svg viewBox='0 0 9 9'>" + texts + "</svg>";
    const Page page(svg.begin(), svg.end());
    for (const char* text : {"ab", "aab", "a", "ab a ab", "abab a", "bab"}) {
        for (const bool wholeWord : {false, true}) {
            EXPECT_EQ(walked(page, text, true, wholeWord).places,
                      searched(page, text, true, wholeWord).places)
                << text << wholeWord;
        }
    }
    EXPECT_FALSE(PageHits(nullptr, 9, "a", false, false).next());
    EXPECT_FALSE(PageHits(page.data(), static_cast<unsigned int>(page.size()), nullptr, false, false).next());
}

} // namespace
