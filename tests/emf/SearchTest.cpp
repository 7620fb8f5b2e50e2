// Searching a metafile page to its end: which hits come, and what the marked page is.
#include "MetafileBuilder.h"
#include "metaFilePlayerEMF.h"
#include "support/SearchedPage.h"
#include "sys/tovostr.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>

using namespace std::string_literals;

namespace {

const std::string Red = recordOf(EMR_SETTEXTCOLOR, bytesOf(DWORD{255}));

// What occurs twice in the marked page, "rest|hit " each. All else must be the page, with the right counts.
std::string marksOf(const std::string& page, const std::string& marked)
{
    const std::vector<std::string> records = recordsOf(marked);
    EXPECT_EQ(numberAt(marked, 48), marked.size());
    EXPECT_EQ(numberAt(marked, 52), records.size());
    std::string marks;
    std::string color = withNumber(Red, 8, 0);
    std::size_t at = 1;
    const std::vector<std::string> originals = recordsOf(page);
    for (std::size_t i = 1; i < originals.size() && at < records.size(); ++i, ++at) {
        color = numberAt(originals[i], 0) == EMR_SETTEXTCOLOR ? originals[i] : color;
        if (at + 3 < records.size() && records[at + 1] == Red) {
            marks += charactersOf(records[at]) + '|' + charactersOf(records[at + 2]) + ' ';
            EXPECT_EQ(records[at += 3], color);
        } else {
            EXPECT_EQ(records[at], originals[i]);
        }
    }
    return marks;
}

// Each hit as "x y marks; ".
std::string hitsOf(const std::string& page, PageSearch search)
{
    std::ostringstream hits;
    for (std::string found = search.next(page); !found.empty(); found = search.next(page)) {
        hits << search.x << ' ' << search.y << ' ' << marksOf(page, found) << "; ";
    }
    return hits.str();
}

// Fields as "x y text;", with W in front of wide ones and a colour of text before each.
std::string pageOf(const std::string& fields)
{
    std::vector<std::string> records;
    std::istringstream lines(fields);
    for (std::string line; std::getline(lines, line, ';');) {
        std::istringstream field(line.substr(line[0] == 'W' ? 1 : 0));
        int x = 0;
        int y = 0;
        field >> x >> y;
        records.push_back(withNumber(Red, 8, static_cast<DWORD>(records.size())));
        const std::string text = field.str().substr(static_cast<std::size_t>(field.tellg()) + 1);
        records.push_back(textRecord(x, y, text, line[0] == 'W'));
    }
    return metafileOf(records);
}

TEST(MetafileSearch, GivesItsHits)
{
    const std::string circle = "100 50 .|a .|b .|c ; ";
    const std::string early = "0 0 a.c..|....a .|b ; ";
    const std::string wide = "0 0 .....x|Gr\xFCn.. ; ";
    std::string many;
    for (int i = 0; i < 999; ++i) {
        many += "w,";
    }
    const struct {
        std::string fields, text, plainHits, wordHits; // without regard to case
    } cases[] = {
        {"1 2 aa a", "A", "1 2 .a.a|a... ; 1 2 a..a|.a.. ; 1 2 aa..|...a ; ", "1 2 aa..|...a ; "},
        {"1 2 aaa", "aa", "1 2 ..a|aa. ; ", ""},
        {"1 2 aabaabaaa", "aabaaa", "1 2 aab......|...aabaaa ; ", ""},
        {"0 0 a;14 0 b", "ab", "0 0 .|a .|b ; ", ""}, // the texts adjoin: 5 units between them
        {"0 0 a;15 0 b", "ab", "", ""},
        {"0 0 a;10 4 b", "ab", "", ""}, // one line, but not one top
        {"0 0 a;10 4 b", "a  b", "0 0 .|a .|b ; ", "0 0 .|a .|b ; "},
        {"0 40 b;0 0 a;0 -5 b", "a b", "0 0 .|b .|a ; ", "0 0 .|b .|a ; "}, // reading order
        {"0 0 xa;90 0   by", "ab", "0 0 x.|.a ...y|..b. ; ", ""},
        {"0 0 xab;30 0 c", "ab ", "0 0 x..|.ab ; ", ""},
        {"0 0 a;20 0   ;50 0    ;84 0 b", "ab", "0 0 .|a ..|.. ...|... .|b ; ", ""}, // blank fields
        {"0 0 a;20 0   ;50 0 b", "a b", "0 0 .|a ..|.. .|b ; ", ""},
        {"90 50 a;100 50  ;101 46  ;50 51  ", "a b", "", ""}, // each blank field follows another one
        {"100 50 a;101 46 b;50 51 c", "a b c a b", circle, circle},
        {"0 0 xaa;30 0 ab", "aab", "", ""}, // the candidate that left the field is its last
        {"0 0 a a;90 0 a b", "a a b", "", ""},
        {"0 0 a c a;90 0 b", "a b", early, early},
        {"0 0 foo,bar foo/x", "foo bar", "", "0 0 ...,....foo/x|foo.bar...... ; "},
        {"W0 0 Gr\xFCn x;9 9 y", "GR\xDCN", wide, wide},
        {"W0 0 a\0b"s, "a b", "0 0 ...|a\0b ; "s, "0 0 .\0.|a.b ; "s}, // a zero character is a blank
        {"0 0 " + many + "a b", "a b", "0 0 " + many + "...|" + std::string(many.size(), '.') + "a.b ; ", ""},
    };
    for (const auto& [fields, text, plainHits, wordHits] : cases) {
        EXPECT_EQ(hitsOf(pageOf(fields), {text}), plainHits) << fields;
        EXPECT_EQ(hitsOf(pageOf(fields), {text, false, true}), wordHits) << fields;
    }
}

// The search, which asks an index, and findNextField, which looks at each field, must agree on what follows; also
// where keys wrap around or are 0.
TEST(MetafileSearch, FollowsTheReadingOrder)
{
    const int extremes[] = {-2147483647 - 1, 2147483647, -2147484, 2147484, 1000, 0, -1};
    std::mt19937 random;
    for (int round = 0; round < 300; ++round) {
        const auto coordinate = [&] {
            const int little = static_cast<int>(random() % 12) - 6;
            return round % 2 == 0 && random() % 3 == 0 ? extremes[random() % 7] : little;
        };
        std::vector<std::string> records;
        std::vector<POINTL> places;
        for (char letter = 'a'; letter <= 'z'; ++letter) {
            places.push_back({coordinate(), coordinate()});
            records.push_back(textRecord(0, 0, {letter}).replace(36, 8, bytesOf(places.back())));
        }
        std::string page = metafileOf(records);
        for (char letter = 'a'; letter <= 'z'; ++letter) {
            int x = places[static_cast<std::size_t>(letter - 'a')].x;
            int y = places[static_cast<std::size_t>(letter - 'a')].y;
            TovoTextString next;
            if (CMetaFilePlayerEMF::findNextField(reinterpret_cast<unsigned char*>(page.data()),
                                                  static_cast<unsigned int>(page.size()), x, y, next) != 0) {
                PageSearch search{letter + std::string(" ") + next.text()};
                EXPECT_FALSE(search.next(page).empty()) << search.text << " in round " << round;
            }
        }
    }
}

// A field in the midst is damaged: what the walk still meets, and which field the stamp then goes to.
TEST(MetafileWalk, StaysInsideItsRecords)
{
    const struct {
        std::size_t offset;
        DWORD number;
        std::string hits;    // the first, the second, the third field
        std::size_t stamped; // its index; 0: none
    } cases[] = {
        {44, 9, "123", 1},
        {0, EMR_EOF, "1", 0},
        {4, 0, "1", 0},
        {4, 4, "1", 0},
        {4, 126, "1", 0},
        {4, 0x7FFFFFFC, "1", 0},
        {4, 0xFFFFFFFC, "1", 0},
        {44, 0, "13", 2},
        {44, 0xFFFFFFFF, "13", 2},
        {44, 53, "13", 2},
        {48, 0, "13", 2},
        {48, 75, "13", 2},
        {48, 0xFFFFFFF8, "13", 2},
        {48, 116, "13", 2},
        {72, 0xFFFFFFFC, "123", 1},
    };
    const std::string text = textRecord(1, 0, "x23456789");
    const std::string marker = markerRecord(0, 90);
    for (const auto& [offset, number, hits, stamped] : cases) {
        const std::string broken = withNumber(withNumber(text, 36, 2), offset, number);
        std::string page = metafileOf({text, marker, broken, withNumber(text, 36, 3)});
        page.shrink_to_fit();
        PageSearch search{"x"};
        std::string met;
        while (!search.next(page).empty()) {
            met += std::to_string(search.x);
        }
        EXPECT_EQ(met, hits) << offset << ' ' << number;
        EXPECT_EQ(CMetaFilePlayer::insertPageCount(reinterpret_cast<unsigned char*>(page.data()),
                                                   static_cast<int>(page.size()), 7, 12),
                  stamped != 0);
        EXPECT_EQ(page.find("7 of 12"),
                  stamped == 0 ? std::string::npos
                               : sizeof(ENHMETAHEADER) + stamped * text.size() + marker.size() + 76);
    }
}

} // namespace
