// The page count that is stamped into marked text, and the size that a page tells.
#include "SearchedPage.h"
#include "player/PlayedPage.h"

#include "sys/krnutil.h"

using namespace std::string_literals;

namespace {

constexpr int wordMessage = 15301;

struct StampCase {
    const char* name;
    std::string before;
    std::string after;
    std::size_t assertions = 0;
};

std::string shown(const testing::TestParamInfo<StampCase>& info)
{
    return info.param.name;
}

std::string marked(const std::string& text, const std::string& mark = "class='nofm'")
{
    return "<text x='1' " + mark + " fill='rgb(0,0,0)'>" + text + "</text>\n";
}

// Stamps page 12 of 30 and tells whether anything was rewritten.
bool stamp(std::string& page)
{
    std::vector<unsigned char> bytes(page.begin(), page.end());
    const bool changed =
        CMetaFilePlayer::insertPageCount(bytes.data(), static_cast<int>(bytes.size()), 12, 30);
    page.assign(bytes.begin(), bytes.end());
    return changed;
}

class Stamp : public testing::TestWithParam<StampCase> {};

TEST_P(Stamp, KeepsToItsField)
{
    const CaughtReports reports;
    std::string page = pageHead + GetParam().before;
    EXPECT_EQ(stamp(page), GetParam().before != GetParam().after);
    EXPECT_EQ(page, pageHead + GetParam().after);
    EXPECT_EQ(reports.assertions,
              std::vector(GetParam().assertions, "Assertion failed: (int)intlStrlen(pageText) < ptr2-ptr, "
                                                 "surface, MetaFilePlayerSVG"s));
}

const std::string run = "\n\t<tspan x='1'>";
const std::string path = "\n\t<textPath startOffset='-1'>\n\t\t<tspan>p            </tspan>\n\t</textPath>\n";

const StampCase stamps[] = {
    {"NumberAlone", marked("        "), marked("12      ")},
    {"NumberAndCount", marked("page x of y"), marked("12 of 30f y")},
    {"OneCharacterToSpare", marked("p23456789"), marked("12 of 309")},
    {"NoneToSpare", marked("p2345678") + marked("  "), marked("p2345678") + marked("  "), 2},
    {"EmptyField", marked(""), marked(""), 1},
    {"FirstRun", marked(run + "p          </tspan>" + run + "p          </tspan>"),
     marked(run + "12 of 30   </tspan>" + run + "p          </tspan>")},
    {"RotatedRun", marked(path), marked(path), 1},
    {"EveryFieldThatFits", marked("   ") + marked(" ") + marked("p         "),
     marked("12 ") + marked(" ") + marked("12 of 30  "), 1},
    {"LastFieldCutOff", marked("   ") + "<text class='nofm'>   ", marked("12 ") + "<text class='nofm'>   "},
    {"CutInTheRun", "<text class='nofm'><tspan>   ", "<text class='nofm'><tspan>   "},
    {"ZeroByteEndsTheSearch", marked("   ") + '\0' + marked("   "), marked("12 ") + '\0' + marked("   ")},
    {"OtherQuotes", marked("   ", "class=\"nofm\""), marked("   ", "class=\"nofm\"")},
};

INSTANTIATE_TEST_SUITE_P(Fields, Stamp, testing::ValuesIn(stamps), shown);

TEST(StampWord, IsTheHosts)
{
    const std::string longWord(280, 'w');
    for (const char* const word : {"von", longWord.c_str(), static_cast<const char*>(nullptr)}) {
        krnSetMessageText(wordMessage, word);
        const std::string text = "12 "s + (word != nullptr ? word : "of") + " 30";
        std::string page = pageHead + marked("p" + std::string(text.size(), '.'));
        EXPECT_TRUE(stamp(page));
        EXPECT_EQ(page, pageHead + marked(text + "."));
    }
    krnSetMessageText(wordMessage, "of");
}

TEST(PageSize, IsThatOfTheViewBox)
{
    struct {
        std::string content;
        unsigned int width;
        unsigned int height;
    } const cases[] = {
        {"viewBox='0 0 1 2'<svg width='3mm' viewBox='0 0 800 600'>", 800, 600},
        {"<svg >\n<svg viewBox='-5 6 70 80'", 70, 80},
        {"<svg viewBox='0 0 80", 80, 0},
        {"<svg viewBox='0 0 80,90'", 80, 0},
        {"<svg viewBox='\xB2 0 0 80 90'", 0, 0}, // a digit, but of no number
        {"<svg viewBox='none'>", 0, 0},
        {"<svg ", 0, 0},
        {"viewBox='0 0 80 90'", 0, 0},
    };
    for (const auto& [content, width, height] : cases) {
        const std::string text = "<?xml ?><!DOCTYPE svg>" + content;
        std::vector<unsigned char> page(text.begin(), text.end());
        unsigned int size[] = {1, 1};
        CMetaFilePlayer::getImageSize(page.data(), static_cast<int>(page.size()), size[0], size[1]);
        EXPECT_TRUE(size[0] == width && size[1] == height) << content << size[0] << ' ' << size[1];
    }
}

} // namespace
