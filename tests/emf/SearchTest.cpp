// Searching a metafile page to its end: which hits come, and what the marked page is.
#include "MetafileBuilder.h"
#include "metaFilePlayerEMF.h"
#include "svgpages/SearchedPage.h"
#include "sys/tovostr.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

using namespace std::string_literals;

namespace {

const std::string red = recordOf(EMR_SETTEXTCOLOR, bytesOf(DWORD{255}));

std::string colorRecord(DWORD color)
{
    return recordOf(EMR_SETTEXTCOLOR, bytesOf(color));
}

// Blanks as points.
std::string shown(const std::string& record)
{
    std::string text = charactersOf(record);
    std::replace(text.begin(), text.end(), ' ', '.');
    std::replace(text.begin(), text.end(), '\0', '0');
    return text;
}

// What the marked page has besides the page: "rest|hit " for each marked record. All else must be the page.
std::string marksOf(const std::string& page, const std::string& marked)
{
    const std::vector<std::string> records = recordsOf(marked);
    const std::vector<std::string> originals = recordsOf(page);
    EXPECT_EQ(numberAt(marked, 48), marked.size());
    EXPECT_EQ(numberAt(marked, 52), records.size());
    std::string marks;
    DWORD color = 0;
    std::size_t at = 1;
    for (std::size_t i = 1; i < originals.size() && at < records.size(); ++i) {
        color = numberAt(originals[i], 0) == EMR_SETTEXTCOLOR ? numberAt(originals[i], 8) : color;
        if (at + 3 < records.size() && records[at + 1] == red &&
            records[at + 2].size() == originals[i].size()) {
            marks += shown(records[at]) + '|' + shown(records[at + 2]) + ' ';
            EXPECT_EQ(records[at + 3], colorRecord(color));
            at += 4;
        } else {
            EXPECT_EQ(records[at++], originals[i]);
        }
    }
    EXPECT_EQ(at, records.size());
    return marks;
}

std::string pairOf(int x, int y)
{
    return std::string("(").append(std::to_string(x)).append(", ").append(std::to_string(y)).append(") ");
}

// Each hit as "(x, y) marks; ".
std::string hitsOf(const std::string& page, PageSearch search)
{
    std::string hits;
    for (std::string found = search.next(page); !found.empty(); found = search.next(page)) {
        hits += pairOf(search.x, search.y) + marksOf(page, found) + "; ";
    }
    return hits;
}

struct SearchCase {
    const char* name;
    std::vector<std::string> records;
    std::string text;
    std::string plainHits; // without regard to case
    std::string wordHits;
};

void PrintTo(const SearchCase& searchCase, std::ostream* out)
{
    *out << searchCase.name;
}

class MetafileSearchToTheEnd : public testing::TestWithParam<SearchCase> {};

TEST_P(MetafileSearchToTheEnd, GivesItsHits)
{
    const std::string page = metafileOf(GetParam().records);
    EXPECT_EQ(hitsOf(page, {GetParam().text}), GetParam().plainHits);
    EXPECT_EQ(hitsOf(page, {GetParam().text, false, true}), GetParam().wordHits);
}

std::string text(int x, int y, const std::string& characters)
{
    return textRecord(x, y, characters);
}

std::string times(int count, const std::string& piece)
{
    std::string all;
    for (int i = 0; i < count; ++i) {
        all += piece;
    }
    return all;
}

const std::string circle = "(100, 50) .|a .|b .|c ; ";

const SearchCase searches[] = {
    {"SeveralInOneField",
     {text(1, 2, "aa a")},
     "A",
     "(1, 2) .a.a|a... ; (1, 2) a..a|.a.. ; (1, 2) aa..|...a ; ",
     "(1, 2) aa..|...a ; "},
    {"OverlappingHits", {text(1, 2, "aaa")}, "aa", "(1, 2) ..a|aa. ; ", ""},
    {"RepeatsInTheText",
     {text(1, 2, "aabaab aabaaa")},
     "aabaaa",
     "(1, 2) aabaab.......|.......aabaaa ; ",
     "(1, 2) aabaab.......|.......aabaaa ; "},
    {"Adjoining", {text(0, 0, "a"), text(14, 0, "b")}, "ab", "(0, 0) .|a .|b ; ", ""},
    {"GapTooWide", {text(0, 0, "a"), text(15, 0, "b")}, "ab", "", ""},
    {"OtherTop", {text(0, 0, "a"), text(10, 4, "b")}, "ab", "", ""},
    {"BlankInTheText", {text(0, 0, "a"), text(10, 4, "b")}, "a  b", "(0, 0) .|a .|b ; ", "(0, 0) .|a .|b ; "},
    {"ReadingOrder",
     {text(0, 40, "b"), text(0, 0, "a"), text(0, -5, "b")},
     "a b",
     "(0, 0) .|b .|a ; ",
     "(0, 0) .|b .|a ; "},
    {"NotTheNextField", {text(0, 0, "a"), text(20, 0, "c"), text(40, 0, "b")}, "a b", "", ""},
    {"LeadingBlanks", {text(0, 0, "xa"), text(90, 0, "  by")}, "ab", "(0, 0) x.|.a ...y|..b. ; ", ""},
    {"TrailingBlank", {text(0, 0, "xab"), text(30, 0, "c")}, "ab ", "(0, 0) x..|.ab ; ", ""},
    {"BlankFields",
     {text(0, 0, "a"), text(20, 0, "  "), text(50, 0, "   "), text(84, 0, "b")},
     "ab",
     "(0, 0) .|a ..|.. ...|... .|b ; ",
     ""},
    {"BlankFieldEndsWords",
     {text(0, 0, "a"), text(20, 0, "  "), text(50, 0, "b")},
     "a b",
     "(0, 0) .|a ..|.. .|b ; ",
     ""},
    {"CircleOfBlanks",
     {text(90, 50, "a"), text(100, 50, " "), text(101, 46, " "), text(50, 51, " ")},
     "a b",
     "",
     ""},
    {"CircleOfLetters",
     {text(100, 50, "a"), text(101, 46, "b"), text(50, 51, "c")},
     "a b c a b",
     circle,
     circle},
    {"LaterStartsNotTried", {text(0, 0, "xaa"), text(30, 0, "ab")}, "aab", "", ""},
    {"LaterWordsNotTried", {text(0, 0, "a a"), text(90, 0, "a b")}, "a a b", "", ""},
    {"WordsThatFailInTheField",
     {text(0, 0, "a c a"), text(90, 0, "b")},
     "a b",
     "(0, 0) a.c..|....a .|b ; ",
     "(0, 0) a.c..|....a .|b ; "},
    {"Separators", {text(0, 0, "foo,bar foo/x")}, "foo bar", "", "(0, 0) ...,....foo/x|foo.bar...... ; "},
    {"OnlySeparators", {text(0, 0, "a,;b")}, ",;", "(0, 0) a..b|.,;. ; ", ""},
    {"WideWithColor",
     {colorRecord(7), textRecord(0, 0, "Gr\xFCn x", true), colorRecord(9)},
     "GR\xDCN",
     "(0, 0) .....x|Gr\xFCn.. ; ",
     "(0, 0) .....x|Gr\xFCn.. ; "},
    {"ZeroCharacter",
     {text(0, 0, "a\0b"s), textRecord(0, 40, "a\0b"s, true)},
     "a b",
     "(0, 0) ...|a0b ; (0, 40) ...|a0b ; ",
     "(0, 0) .0.|a.b ; (0, 40) .0.|a.b ; "},
    {"ThousandWords",
     {text(0, 0, times(999, "w ") + "a b")},
     "a b",
     "(0, 0) " + times(999, "w.") + "...|" + times(999, "..") + "a.b ; ",
     ""},
};

INSTANTIATE_TEST_SUITE_P(Pages, MetafileSearchToTheEnd, testing::ValuesIn(searches),
                         [](const auto& test) { return std::string(test.param.name); });

// The search, which asks an index, and findNextField, which looks at each field, must agree on what follows; also
// where keys wrap around or are 0.
TEST(MetafileReadingOrder, IsThatOfEachField)
{
    const int extremes[] = {-2147483647 - 1, 2147483647, -2147484, 2147484, 1000, 0, -1};
    std::mt19937 random;
    for (int round = 0; round < 200; ++round) {
        const auto coordinate = [&] {
            return round % 2 == 0 && random() % 3 == 0 ? extremes[random() % 7]
                                                       : static_cast<int>(random() % 12) - 6;
        };
        std::vector<std::string> records;
        for (DWORD i = 0; i < 20; ++i) {
            const int x = coordinate();
            const int y = coordinate();
            records.push_back(withNumber(
                withNumber(withNumber(text(0, 0, "a"), 36, static_cast<DWORD>(x)), 40, static_cast<DWORD>(y)),
                24, i));
        }
        std::string page = metafileOf(records);
        for (std::size_t i = 0; i < records.size(); ++i) {
            int x = static_cast<int>(numberAt(records[i], 36));
            int y = static_cast<int>(numberAt(records[i], 40));
            TovoTextString nextText;
            const unsigned int next =
                CMetaFilePlayerEMF::findNextField(reinterpret_cast<unsigned char*>(page.data()),
                                                  static_cast<unsigned int>(page.size()), x, y, nextText);
            const auto position = static_cast<unsigned int>(sizeof(ENHMETAHEADER) + i * records[i].size());
            PageSearch search{"a a", false, false, position};
            std::string found = search.next(page);
            const bool hit = !found.empty() && search.position == position;
            ASSERT_EQ(hit, next != 0) << "round " << round << " field " << i;
            const std::vector<std::string> marked = recordsOf(found);
            std::set<DWORD> fields;
            for (std::size_t at = 1; hit && at < marked.size(); ++at) {
                if (marked[at - 1] == red) {
                    fields.insert(numberAt(marked[at], 24));
                }
            }
            EXPECT_EQ(fields,
                      hit ? std::set({static_cast<DWORD>(i), numberAt(page, next + 24)}) : std::set<DWORD>());
        }
    }
}

// A field in the midst is damaged: what the walk still meets, and what the stamp behind a marker then goes to.
TEST(MetafileWalk, StaysInsideItsRecords)
{
    const struct {
        std::size_t offset;
        DWORD number;
        std::string hits; // the first, the second, the third field
        int stamped;      // its index, 3: none
    } cases[] = {
        {44, 9, "123", 1},
        {0, EMR_EOF, "1", 3},
        {4, 0, "1", 3},
        {4, 4, "1", 3},
        {4, 126, "1", 3},
        {4, 0x7FFFFFFC, "1", 3},
        {4, 0xFFFFFFFC, "1", 3},
        {44, 0, "13", 2},
        {44, 0xFFFFFFFF, "13", 2},
        {44, 53, "13", 2},
        {48, 0, "13", 2},
        {48, 75, "13", 2},
        {48, 0xFFFFFFF8, "13", 2},
        {48, 116, "13", 2},
        {72, 0xFFFFFFFC, "123", 1},
    };
    const std::string marker = recordOf(EMR_GDICOMMENT, bytesOf(DWORD{11}) + "TPC" + bytesOf(POINTL{0, 90}));
    for (const auto& [offset, number, hits, stamped] : cases) {
        const std::string broken = withNumber(text(2, 0, "x23456789"), offset, number);
        std::string page = metafileOf({text(1, 0, "x23456789"), marker, broken, text(3, 0, "x23456789")});
        page.shrink_to_fit();
        PageSearch search{"x"};
        std::string met;
        while (!search.next(page).empty()) {
            met += std::to_string(search.x);
        }
        EXPECT_EQ(met, hits) << offset << ' ' << number;
        const std::string before = page;
        const bool found = CMetaFilePlayer::insertPageCount(reinterpret_cast<unsigned char*>(page.data()),
                                                            static_cast<int>(page.size()), 7, 12);
        const std::size_t start = sizeof(ENHMETAHEADER) + (stamped > 0 ? marker.size() : 0);
        EXPECT_EQ(found, stamped < 3) << offset << ' ' << number;
        EXPECT_EQ(page.find("7 of 12"), stamped < 3
                                            ? start + static_cast<std::size_t>(stamped) * broken.size() + 76
                                            : std::string::npos);
    }
}

} // namespace
