// The search on the pages of the demo, against a count of the words that are left without tags and line ends.
#include <cctype>
#include <string>

#include <gtest/gtest.h>

#include "reportPages.h"
#include "storedPage.h"
#include "support/SearchedPage.h"

namespace {

int countedIn(const std::string& page, const std::string& word)
{
    std::string words;
    bool inTag = false;
    for (const char c : page) {
        inTag = c == '<' || (inTag && c != '>');
        const bool isText = !inTag && c != '>' && c != '\n' && c != '\t';
        words += isText ? std::string(1, static_cast<char>(std::tolower(c))) : "";
    }
    int count = 0;
    for (std::size_t hit = 0; (hit = words.find(word, hit)) != std::string::npos; ++hit) {
        ++count;
    }
    return count;
}

TEST(ReportSearch, WalksAllHitsOfTheDemosPages)
{
    int all = 0;
    for (const ReportPage& report : reportPages()) {
        CSurfaceSVG surface = emptyPage();
        drawReportPage(surface, report);
        const Page bytes = stored(surface);
        const std::string page(bytes.begin(), bytes.end());
        PageSearch search{"heating"};
        int hits = 0;
        while (hits < 100 && !search.next(page).empty()) {
            ++hits;
        }
        EXPECT_EQ(hits, countedIn(page, "heating")) << report.name;
        all += hits;
    }
    EXPECT_GT(all, 10);
}

} // namespace
