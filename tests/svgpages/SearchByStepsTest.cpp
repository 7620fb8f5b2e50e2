// The search beside a plain one that takes a record at a time, on small random pages with random cursors.
#include "SearchedPage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace {

struct Record {
    int x;
    int y;
    int width;
    std::size_t offset;
    std::string text;
};

struct Hit {
    const Record* record = nullptr;
    std::size_t textOffset = 0;
};

// The record that continues the one at `index`; the end of the list when there is none.
std::size_t next(const std::vector<Record>& records, std::size_t index, bool words)
{
    const Record& record = records[index];
    if (index + 1 == records.size()) {
        return index + 1;
    }
    const Record& follower = records[index + 1];
    if (record.y != follower.y) {
        return words ? index + 1 : records.size();
    }
    const int length = static_cast<int>(record.text.size());
    const int average = words && length != 0 ? record.width / length : 0;
    const bool unknown = record.width == 0 && length != 0;
    return unknown || follower.x >= record.x + record.width + average + 2 ? records.size() : index + 1;
}

Hit findPlain(const std::vector<Record>& records, std::size_t start, std::size_t textOffset,
              const std::string& search)
{
    for (std::size_t i = start; i < records.size(); ++i, textOffset = 0) {
        std::string buffer = records[i].text;
        const std::size_t own = buffer.size();
        for (std::size_t p = 0, at = i, added = 0;;) {
            const std::size_t match = buffer.find(search, p);
            if (match != std::string::npos && match < own && match >= textOffset) {
                return {&records[i], match};
            }
            if (match != std::string::npos && match < own) {
                p = match + 1;
                continue;
            }
            at = match == std::string::npos && added <= search.size() ? next(records, at, false)
                                                                      : records.size();
            if (at == records.size()) {
                break;
            }
            p = buffer.size() > search.size() ? buffer.size() - search.size() : 0;
            buffer += records[at].text;
            added += records[at].text.size();
        }
    }
    return {nullptr, start < records.size() ? 0 : textOffset};
}

std::vector<std::size_t> wordsOf(const std::string& text)
{
    std::vector<std::size_t> words;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != ' ' && (i == 0 || text[i - 1] == ' ')) {
            words.push_back(i);
        }
    }
    return words;
}

std::string wordAt(const std::string& text, std::size_t start)
{
    return text.substr(start, text.find(' ', start) - start);
}

Hit findWords(const std::vector<Record>& records, std::size_t start, std::size_t position,
              std::size_t textOffset, const std::string& search)
{
    const std::vector<std::size_t> wanted = wordsOf(search);
    for (std::size_t i = start; i < records.size(); ++i) {
        textOffset = records[i].offset == position ? textOffset : 0;
        std::string buffer = records[i].text;
        std::vector<std::size_t> words = wordsOf(buffer);
        std::size_t added = 0;
        bool givenUp = false;
        std::size_t at = i;
        for (std::size_t w = 0; w < words.size() && !givenUp; ++w) {
            std::size_t matched = 0;
            while (words[w] >= textOffset && matched < wanted.size()) {
                if (w + matched < words.size()) {
                    if (wordAt(buffer, words[w + matched]) != wordAt(search, wanted[matched])) {
                        break;
                    }
                    ++matched;
                    continue;
                }
                givenUp = added >= wanted.size();
                const std::size_t more =
                    givenUp || at == records.size() ? records.size() : next(records, at, true);
                if (more == records.size()) {
                    break;
                }
                at = more;
                const std::size_t before = words.size();
                buffer += " " + records[at].text;
                words = wordsOf(buffer);
                added += words.size() - before;
            }
            if (matched == wanted.size()) {
                return {&records[i], words[w]};
            }
        }
    }
    return {nullptr, textOffset};
}

class RandomPages {
public:
    std::size_t below(unsigned int limit) { return m_generator() % limit; }

    std::string text(unsigned int longest)
    {
        std::string text;
        for (std::size_t length = below(longest + 1); length > 0; --length) {
            text += "aab  "[below(5)];
        }
        return text;
    }

    // Records by line, in page order within it, and the page that holds them.
    std::vector<Record> records(std::string& page)
    {
        std::vector<Record> records;
        page = pageHead;
        for (std::size_t count = below(9); count > 0; --count) {
            const Record record{static_cast<int>(below(8)), static_cast<int>(below(2)),
                                static_cast<int>(below(5)), page.size(), text(4)};
            const std::size_t cut = below(static_cast<unsigned int>(record.text.size()) + 1);
            const std::string runs = "<tspan>" + record.text.substr(0, cut) + "</tspan>\n<tspan>" +
                                     record.text.substr(cut) + "</tspan>\n";
            page += element(record.x, record.y, below(2) != 0 ? runs : record.text, record.width);
            records.push_back(record);
        }
        std::stable_sort(records.begin(), records.end(),
                         [](const Record& a, const Record& b) { return a.y < b.y; });
        return records;
    }

private:
    std::mt19937 m_generator{20};
};

TEST(PageSearch, FindsWhatASearchRecordByRecordFinds)
{
    RandomPages random;
    int hits = 0;
    for (int round = 0; round < 20000; ++round) {
        std::string page;
        const std::vector<Record> records = random.records(page);
        PageSearch search{random.text(5), random.below(2) != 0, random.below(2) != 0};
        if (wordsOf(search.text).empty()) {
            continue;
        }
        // Sometimes a cursor in the middle, or one that leads to no record.
        std::size_t start = random.below(2) != 0 ? random.below(10) : 0;
        start = std::min(start, records.size());
        const std::size_t position = start < records.size() ? records[start].offset : 1;
        search.position = start != 0 ? static_cast<unsigned int>(position) : 0;
        search.textOffset = static_cast<unsigned int>(random.below(4));
        const Hit hit = search.wholeWord
                            ? findWords(records, start, search.position, search.textOffset, search.text)
                            : findPlain(records, start, search.textOffset, search.text);
        const std::size_t expected = hit.record != nullptr ? hit.record->offset : search.position;
        EXPECT_EQ(search.next(page).empty(), hit.record == nullptr) << page << search.text;
        EXPECT_EQ(search.position, expected) << page << search.text;
        EXPECT_EQ(search.textOffset, hit.textOffset + 1) << page << search.text;
        hits += hit.record != nullptr ? 1 : 0;
    }
    EXPECT_GT(hits, 5000);
}

} // namespace
