// The search on the pages of the demo, against a count that knows nothing of records: tags cut away, words
// counted.
#include <algorithm>
#include <cctype>
#include <string>

#include <gtest/gtest.h>

#include "../../examples/reportPages.h"
#include "SearchedPage.h"
#include "surfaceSVG.h"

namespace {

std::string storedPage(const ReportPage& report)
{
    RECT paper{0, 0, pageMillimetresWide, pageMillimetresHigh};
    RECT logical{0, 0, logicalWidth, logicalHeight};
    CSurfaceSVG surface(&paper, &logical);
    report.draw(surface);
    if (report.letter != nullptr) {
        report.letter(surface);
    }
    surface.closeSurface();
    auto size = static_cast<unsigned int>(surface.getDataLength());
    std::string page(size, '\0');
    surface.getData(reinterpret_cast<unsigned char*>(page.data()), size);
    return page;
}

// The piece between two texts from `at` on, which moves behind it; false when there is none.
bool nextPiece(const std::string& text, std::size_t& at, const char* from, const char* to, std::string& piece)
{
    const std::size_t start = text.find(from, at);
    const std::size_t end = start != std::string::npos ? text.find(to, start) : std::string::npos;
    if (end == std::string::npos) {
        return false;
    }
    piece = text.substr(start, end - start);
    at = end;
    return true;
}

int countedIn(const std::string& page, const std::string& word)
{
    int count = 0;
    std::string element;
    for (std::size_t at = 0; nextPiece(page, at, "<text ", "</text>", element);) {
        std::string words;
        std::string run;
        std::size_t inside = 0;
        while (nextPiece(element, inside, "<tspan", "</tspan>", run)) {
            words += run.substr(run.find('>') + 1);
        }
        if (words.empty()) {
            words = element.substr(element.find('>') + 1);
        }
        std::transform(words.begin(), words.end(), words.begin(),
                       [](unsigned char character) { return static_cast<char>(std::tolower(character)); });
        for (std::size_t hit = 0; (hit = words.find(word, hit)) != std::string::npos; ++hit) {
            ++count;
        }
    }
    return count;
}

TEST(ReportSearch, WalksAllHitsOfTheDemosPages)
{
    int all = 0;
    for (const ReportPage& report : reportPages()) {
        const std::string page = storedPage(report);
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
