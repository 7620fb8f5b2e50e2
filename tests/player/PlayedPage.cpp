#include "PlayedPage.h"

#include "metaFilePlayerSVG.h"

#include <algorithm>
#include <memory>

CaughtReports::CaughtReports()
{
    krnSetLogSink(
        [](const char* line, void* reports) { static_cast<CaughtReports*>(reports)->log.emplace_back(line); },
        this);
    kosSetAssertHandler(
        [](const char* caption, const char* expression, const char* module, const char* file, int line,
           void* reports) {
            static_cast<CaughtReports*>(reports)->assertions.push_back(
                std::string(caption) + ": " + expression + ", " + module + ", " + file +
                (line > 0 ? "" : " without a line"));
        },
        this);
}

CaughtReports::~CaughtReports()
{
    krnSetLogSink(nullptr, nullptr);
    kosSetAssertHandler(nullptr, nullptr);
}

int playOn(CSurface& surface, const std::string& page)
{
    const auto bytes = std::make_unique<unsigned char[]>(page.size());
    std::copy(page.begin(), page.end(), bytes.get());
    CMetaFilePlayerSVG player(bytes.get(), static_cast<unsigned int>(page.size()));
    RECT rect{5, 6, 50, 60};
    return player.play(&surface, &rect);
}

PlayedPage playPage(const std::string& page)
{
    const CaughtReports reports;
    RecordingSurface surface;
    const int result = playOn(surface, page);
    return {result, surface.calls(), reports.log, reports.assertions};
}

std::string framed(const std::string& content)
{
    return "<svg width='210mm' height='297mm' viewBox='0 0 100 200'>\n" + content + "</svg>\n";
}

std::string mark(int number)
{
    return "<use x='" + std::to_string(number) + "' y='0' xlink:href='#FocusRect'/>\n";
}

std::string marked(int number)
{
    const std::string x = std::to_string(number);
    return "drawFocusRect (" + x + ", 0, " + x + ", 0)";
}

void PrintTo(const PageCase& pageCase, std::ostream* out)
{
    *out << pageCase.page;
}

std::string nameOf(const testing::TestParamInfo<PageCase>& info)
{
    return info.param.name;
}

namespace {

// Whatever the page holds, it counts as played and nothing is logged; an element that the walk does not take
// is reported and passed over.
void expectPlayed(const std::string& page, const PageCase& expected)
{
    const PlayedPage played = playPage(page);
    EXPECT_EQ(played.result, 1);
    EXPECT_EQ(played.calls, expected.calls);
    EXPECT_EQ(played.log, std::vector<std::string>());
    EXPECT_EQ(
        played.assertions,
        std::vector<std::string>(expected.assertions, "Assertion failed: false, surface, MetaFilePlayerSVG"));
}

} // namespace

TEST_P(WholePage, GivesTheseCalls)
{
    expectPlayed(GetParam().page, GetParam());
}

TEST_P(PageContent, GivesTheseCalls)
{
    PageCase expected = GetParam();
    expected.calls.insert(expected.calls.begin(), framePrepared);
    expectPlayed(framed(expected.page), expected);
}
