// Searching a page to its end: which hits come, in what order, what they mark, and what the marked page is.
#include "support/PlayedPage.h"
#include "support/SearchedPage.h"

#include <sstream>

using namespace std::string_literals;

namespace {

// Each hit as "(x, y) offset: mark mark; "; marks of length 0 are left out.
std::string hitsOf(const std::string& page, PageSearch search)
{
    const std::string key = "tovo:find='";
    std::ostringstream hits;
    for (std::string found = search.next(page); !found.empty(); found = search.next(page)) {
        hits << '(' << search.x << ", " << search.y << ") " << search.textOffset - 1 << ':';
        for (std::size_t at = found.find(key); at != std::string::npos; at = found.find(key, at + 1)) {
            const std::size_t start = at + key.size();
            const std::string mark = found.substr(start, found.find('\'', start) - start);
            hits << (mark != "0,0" ? " " + mark : "");
        }
        hits << "; ";
    }
    return hits.str();
}

struct SearchCase {
    const char* name;
    std::string content, text;
    std::string plainHits; // without regard to case
    std::string wordHits;
};

std::string run(const std::string& text)
{
    return "\n\t<tspan x='1'>" + text + "</tspan>";
}

class SearchToTheEnd : public testing::TestWithParam<SearchCase> {};

TEST_P(SearchToTheEnd, GivesItsHits)
{
    const std::string page = PageHead + GetParam().content;
    EXPECT_EQ(hitsOf(page, {GetParam().text}), GetParam().plainHits);
    EXPECT_EQ(hitsOf(page, {GetParam().text, false, true}), GetParam().wordHits);
}

const std::string Once = "(1, 2) 0: 0,1; ";
const SearchCase Searches[] = {
    {"SeveralInOneElement", element(1, 2, "aa a"), "a", Once + "(1, 2) 1: 1,1; (1, 2) 3: 3,1; ",
     "(1, 2) 3: 3,1; "},
    {"ReadingOrder", element(1, 3, "a") + element(9, 2, "a") + element(1, 2, "a") + element(1, -1, "a"), "a",
     "(1, -1) 0: 0,1; (9, 2) 0: 0,1; (1, 2) 0: 0,1; (1, 3) 0: 0,1; ",
     "(1, -1) 0: 0,1; (9, 2) 0: 0,1; (1, 2) 0: 0,1; (1, 3) 0: 0,1; "},
    {"OverRuns", element(1, 2, run("xa") + run("") + run("b") + run("cy")), "abc", "(1, 2) 1: 1,1 0,1 0,1; ",
     ""},
    {"OverASeam", element(1, 2, "xa", 5) + element(7, 2, "") + element(8, 2, "bc"), "AB",
     "(1, 2) 1: 1,1 0,1; ", ""},
    // The blank of the seam counts: one character after the second word is marked as well.
    {"PhraseOverLines", element(1, 2, "x foo") + element(1, 3, "bar.") + element(1, 4, "y"), "foo bar.", "",
     "(1, 2) 2: 2,3 0,4 0,1; "},
    // Up to one character of the average width further on.
    {"PhraseOnALine", element(1, 2, "foo", 9) + element(14, 2, "bar"), "foo bar", "", "(1, 2) 0: 0,3 0,3; "},
    {"Separators", element(1, 2, "foo, bar foo/bar foobar foo  barn &quot;foo&quot;:bar;foo'BAR"), "foo bar",
     "", "(1, 2) 0: 0,8; (1, 2) 9: 9,7; (1, 2) 35: 35,8; (1, 2) 44: 44,7; "},
    {"OnlySeparators", element(1, 2, ", "), ",", Once, ""},
    {"UpperCase", element(1, 2, "\xC4rger A"), "\xE4RGER a", "(1, 2) 0: 0,7; ", "(1, 2) 0: 0,7; "},
    {"WidthsThatWrap", element(2147483647, 2, "a", 2147483647) + element(-2147483647 - 1, 2, "b"), "ab",
     "(2147483647, 2) 0: 0,1 0,1; ", ""},
    {"TextInQuotesIsNoElement", "'" + element(1, 2, "a'") + "' \"<text \" " + element(1, 3, "a"), "a", "",
     ""},
    {"BrokenElementEndsThePage", element(1, 2, "a") + "<text x='1'>a</text>" + element(1, 3, "a"), "a", Once,
     Once},
    {"UnterminatedElement", element(1, 2, "a") + "<text x='1' y='3'>a", "a", Once, Once},
    {"RunWithoutEnd", element(1, 2, run("a") + "<tspan>a"), "a", Once, Once},
};

INSTANTIATE_TEST_SUITE_P(Pages, SearchToTheEnd, testing::ValuesIn(Searches),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(PageSearch, EndsOnAPageThatBeginsWithText)
{
    const std::string page = element(1, 9, "a a") + PageHead + element(1, 2, "a");
    for (const bool wholeWord : {false, true}) {
        EXPECT_EQ(hitsOf(page, {"a", true, wholeWord}), Once + "(1, 9) 0: 0,1; (1, 9) 2: 2,1; ");
    }
}

TEST(PageSearch, MarksACopyOfThePage)
{
    const std::string head = "<text x='1' y='2' dy='1em'>";
    const std::string page =
        PageHead + element(5, 1, "A &amp; B") + "<line x1='1'/>\n" + head +
        "\n\t<textPath xlink:href='#textPath1'>\n\t\t<tspan x='1'>one</tspan>\n\t</textPath>\n"
        "\t<tspan x='9'>&lt;two&gt;</tspan>\n</text>\n</svg>\0tail"s;
    PageSearch search{"<two", true};
    EXPECT_EQ(
        search.next(page),
        PageHead + "<text x='5' y='1'><tspan tovo:find='0,0'>A & B</tspan></text>\n\n<line x1='1'/>\n" +
            head +
            "<tspan x='1'>one</tspan>\n<tspan x='9' tovo:find='0,4'><two></tspan>\n</text>\n\n</svg>\0tail"s);
    EXPECT_EQ(search.position, page.find(head));
    EXPECT_EQ(search.textOffset, 4U);
}

TEST(PageSearch, TheMarkReachesTheSurface)
{
    const std::string page = "<?xml ?><!DOCTYPE svg>" + framed(element(5, 6, "Hello world"));
    const std::string calls = playPage(PageSearch{"world"}.next(page)).calls;
    EXPECT_NE(calls.find("\"Hello world\" (2147483647, 2147483647) length -1 find 6 5"), std::string::npos);
}

TEST(PageSearch, WithoutHitOnlyTheOffsetMovesAndOnlyWhenSomethingWasSought)
{
    struct {
        std::string text;
        bool wholeWord;
        unsigned int textOffset;
    } const cases[] = {{"", false, 7}, {"", true, 7}, {" ,", true, 7}, {"z", false, 8}, {"z", true, 8}};
    for (const auto& [text, wholeWord, textOffset] : cases) {
        PageSearch search{text, true, wholeWord, 5, 7, 8, 9}; // no element begins at 5
        EXPECT_EQ(search.next(PageHead + element(1, 2, "z")), "");
        EXPECT_TRUE(search.position == 5 && search.textOffset == textOffset && search.x == 8 &&
                    search.y == 9);
    }
}

TEST(PageSearch, ThrowsWithoutMemory)
{
    int failures = 0;
    for (bool found = false; !found; ++failures) {
        kstr_setFailure(failures);
        try {
            found = !PageSearch{"b"}.next(PageHead + element(1, 2, run("a &amp; b") + run("c"))).empty();
        } catch (const KrnException& exception) {
            EXPECT_EQ(exception.number(), KrnException::outOfMemoryNumber);
        }
    }
    kstr_setFailure(-1);
    EXPECT_GT(failures, 5);
}

// Work that grows with the square of the page would keep this test from ending.
TEST(PageSearch, TakesLargePages)
{
    std::string empty, words, spans, unclosed;
    for (int i = 0; i < 1 << 16; ++i) {
        empty += element(1, 1, "");
        words += element(1, 1, "a", 1);
        spans += "<tspan></tspan ";
        unclosed += "<text x='1' y='1'>/text>";
    }
    const std::string page =
        PageHead + words + unclosed + empty + element(1, 2, "b " + spans) + element(1, 3, "b");
    for (const bool wholeWord : {false, true}) {
        PageSearch search{wholeWord ? "a a a b c" : "aaab", false, wholeWord};
        EXPECT_EQ(search.next(page), "");
        search = {"b", true, wholeWord};
        EXPECT_LT(search.next(page).size(), 4 * page.size());
        EXPECT_EQ(search.y, 3);
    }
}

} // namespace
