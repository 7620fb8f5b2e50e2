// The search beside a plain one that takes a record at a time, on small random pages from random cursors.
#include "SearchedPage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <random>
#include <vector>

namespace {

struct Record {
    int x;
    int y;
    int width;
    std::size_t offset;
    std::string text;
};
using Records = std::vector<Record>;

// The record that continues the one at `index`.
std::optional<std::size_t> next(const Records& records, std::size_t index, bool words)
{
    const Record& record = records[index];
    if (index + 1 == records.size() || (record.y != records[index + 1].y && !words)) {
        return {};
    }
    const int length = static_cast<int>(record.text.size());
    const int average = words && length != 0 ? record.width / length : 0;
    const bool unknown = record.width == 0 && length != 0;
    const bool apart = records[index + 1].x >= record.x + record.width + average + 2;
    return record.y == records[index + 1].y && (unknown || apart) ? std::nullopt : std::optional(index + 1);
}

// Where the record has a hit from `textOffset` on.
std::optional<std::size_t> findPlain(const Records& records, std::size_t index, std::size_t textOffset,
                                     const std::string& search)
{
    std::string buffer = records[index].text;
    const std::size_t own = buffer.size();
    for (std::size_t from = 0, added = 0;;) {
        const std::size_t match = buffer.find(search, from);
        if (match < own && match >= textOffset) {
            return match;
        }
        if (match < own) {
            from = match + 1;
            continue;
        }
        const auto more = next(records, index, false);
        if (match != std::string::npos || !more || added > search.size()) {
            return {};
        }
        index = *more;
        from = buffer.size() - std::min(buffer.size(), search.size());
        buffer += records[index].text;
        added += records[index].text.size();
    }
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

std::optional<std::size_t> findWords(const Records& records, std::size_t index, std::size_t textOffset,
                                     const std::string& search)
{
    const std::vector<std::size_t> wanted = wordsOf(search);
    std::string buffer = records[index].text;
    std::vector<std::size_t> words = wordsOf(buffer);
    const std::size_t own = words.size();
    for (std::size_t first = 0; first < words.size(); ++first) {
        std::size_t matched = 0;
        while (words[first] >= textOffset && matched < wanted.size()) {
            if (first + matched < words.size()) {
                if (wordAt(buffer, words[first + matched]) != wordAt(search, wanted[matched])) {
                    break;
                }
                ++matched;
                continue;
            }
            if (words.size() - own >= wanted.size()) {
                return {};
            }
            const auto more = next(records, index, true);
            if (!more) {
                break;
            }
            index = *more;
            buffer += " " + records[index].text;
            words = wordsOf(buffer);
        }
        if (matched == wanted.size()) {
            return words[first];
        }
    }
    return {};
}

std::size_t below(std::size_t limit)
{
    static std::mt19937 generator(20);
    return generator() % limit;
}

std::string randomText(std::size_t longest)
{
    std::string text;
    for (std::size_t length = below(longest + 1); length > 0; --length) {
        text += "aab  "[below(5)];
    }
    return text;
}

// Records in reading order, and the page that holds them.
Records randomRecords(std::string& page)
{
    Records records;
    for (std::size_t count = below(25); count > 0; --count) {
        const auto smallNumber = [](std::size_t limit) {
            return static_cast<int>(below(limit));
        };
        const Record record{smallNumber(8), smallNumber(2), smallNumber(5), page.size(), randomText(4)};
        page += element(record.x, record.y, record.text, record.width);
        records.push_back(record);
    }
    std::stable_sort(records.begin(), records.end(),
                     [](const Record& a, const Record& b) { return a.y < b.y; });
    return records;
}

TEST(PageSearch, FindsWhatASearchRecordByRecordFinds)
{
    int hits = 0;
    for (int round = 0; round < 20000; ++round) {
        std::string page = pageHead;
        const Records records = randomRecords(page);
        PageSearch search{std::string("a").append(randomText(4)), true, below(2) != 0};
        // From the first record, one in the middle, or, past the last, from none.
        std::size_t index = below(2) * below(records.size() + 1);
        const std::size_t start = index == records.size() ? 1 : records[index].offset;
        std::size_t position = index != 0 ? start : 0;
        std::size_t textOffset = below(4);
        search.position = static_cast<unsigned int>(position);
        search.textOffset = static_cast<unsigned int>(textOffset);
        std::optional<std::size_t> hit;
        for (; !hit && index < records.size(); ++index) {
            textOffset = search.wholeWord && records[index].offset != position ? 0 : textOffset;
            hit = (search.wholeWord ? findWords : findPlain)(records, index, textOffset, search.text);
            position = hit ? records[index].offset : position;
            textOffset = hit ? *hit : search.wholeWord ? textOffset : 0;
        }
        EXPECT_EQ(search.next(page).empty(), !hit) << page << search.text;
        EXPECT_EQ(search.position, position) << page << search.text;
        EXPECT_EQ(search.textOffset, textOffset + 1) << page << search.text;
        hits += hit ? 1 : 0;
    }
    EXPECT_GT(hits, 4000);
}

} // namespace
