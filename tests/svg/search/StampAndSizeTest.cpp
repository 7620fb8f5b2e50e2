// The page count that is stamped into marked text, and the size of a page.
#include "support/PlayedPage.h"
#include "support/SearchedPage.h"

#include "sys/krnutil.h"

#include <tuple>
#include <vector>

using namespace std::string_literals;

namespace {

struct StampCase {
    const char* name;
    std::string before;
    std::string after;
    std::size_t assertions = 0;
    const char* word = "of";
};

std::string marked(const std::string& text)
{
    return "<text x='1' class='nofm' y='2'>" + text + "</text>\n";
}

class Stamp : public testing::TestWithParam<StampCase> {};

// Page 12 of 30, from a buffer of exactly the page's length.
TEST_P(Stamp, KeepsToItsField)
{
    constexpr int WordMessage = 15301;
    const CaughtReports reports;
    const std::string before = PageHead + GetParam().before;
    std::vector<unsigned char> page(before.begin(), before.end());
    krnSetMessageText(WordMessage, GetParam().word);
    EXPECT_EQ(CMetaFilePlayer::insertPageCount(page.data(), static_cast<int>(page.size()), 12, 30),
              GetParam().before != GetParam().after);
    krnSetMessageText(WordMessage, "of");
    EXPECT_EQ(std::string(page.begin(), page.end()), PageHead + GetParam().after);
    const std::string report =
        "Assertion failed: (int)intlStrlen(pageText) < ptr2-ptr, surface, MetaFilePlayerSVG";
    EXPECT_EQ(reports.assertions, std::vector(GetParam().assertions, report));
}

const std::string Run = "\n\t<tspan x='1'>p         </tspan>";
const std::string Path = "\n\t<textPath startOffset='-1'>\n\t" + Run + "\n\t</textPath>\n";
const std::string LongWord(200, 'w');

const StampCase Stamps[] = {
    {"NumberAlone", marked("        "), marked("12      ")},
    {"NumberAndCount", marked("page x of y"), marked("12 of 30f y")},
    {"OneCharacterToSpare", marked("p23456789"), marked("12 of 309")},
    {"NoneToSpare", marked("p2345678") + marked("  ") + marked(""),
     marked("p2345678") + marked("  ") + marked(""), 3},
    {"FirstRun", marked(Run + Run), marked("\n\t<tspan x='1'>12 of 30  </tspan>" + Run)},
    {"RotatedRun", marked(Path), marked(Path), 1},
    {"EveryFieldThatFits", marked("   ") + marked(" ") + marked("p2345678  "),
     marked("12 ") + marked(" ") + marked("12 of 30  "), 1},
    {"CutOff", marked("   ") + "<text class='nofm'>   ", marked("12 ") + "<text class='nofm'>   "},
    {"CutInTheRun", "<text class='nofm'><tspan>   ", "<text class='nofm'><tspan>   "},
    {"ZeroByte", marked("   ") + '\0' + marked("   "), marked("12 ") + '\0' + marked("   ")},
    {"LongWord", marked(std::string(210, '.')), marked("12 " + LongWord + " 30...."), 0, LongWord.c_str()},
    {"NoWord", marked("........."), marked("12 of 30."), 0, nullptr},
};

INSTANTIATE_TEST_SUITE_P(Fields, Stamp, testing::ValuesIn(Stamps),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(PageSize, IsThatOfTheViewBox)
{
    const std::tuple<const char*, unsigned int, unsigned int> cases[] = {
        {"viewBox='0 0 1 2'<svg width='3mm' viewBox='0 0 800 600'>", 800, 600},
        {"<svg >\n<svg viewBox='-5 6 70 80'", 70, 80},
        {"<svg viewBox='0 0 80", 80, 0},
        {"<svg viewBox='\xB2 0 0 80 90'", 0, 0}, // a digit, but of no number
        {"viewBox='0 0 80 90'", 0, 0},
    };
    for (const auto& [content, width, height] : cases) {
        const std::string text = std::string("<?xml ?><!DOCTYPE svg>") + content;
        std::vector<unsigned char> page(text.begin(), text.end());
        unsigned int size[] = {1, 1};
        CMetaFilePlayer::getImageSize(page.data(), static_cast<int>(page.size()), size[0], size[1]);
        EXPECT_TRUE(size[0] == width && size[1] == height) << content << size[0] << ' ' << size[1];
    }
}

} // namespace
