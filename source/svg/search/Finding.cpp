// Finding a text or a phrase in the records of a page, also where it runs on from one record into the next.
//
// The text of a record and of those that continue it is what the search sees. Whether a record continues the one
// before depends on these two alone, so the records fall into chains, each is joined once, and what a record
// sees is the rest of its chain.
#include "PageTextSearch.h"

#include <algorithm>
#include <string_view>

#include <windows.h>

#include "wordSeparators.h"
#include "wrappingInt.h"

using namespace drawing;

bool PageTextSearch::findSubstring(unsigned int& position, unsigned int& textOffset, bool matchCase,
                                   const TovoTextString& search, unsigned int& recordIndex)
{
    int place = -1;
    unsigned int index = firstRecord(position, textOffset);
    unsigned int start = 0;
    while (place < 0 && index < m_records.size()) {
        if (!m_plainChain.holds(index)) {
            joinText(index, matchCase);
        }
        start = m_plainChain.starts[index - m_plainChain.first];
        // Past its own text the record has no hit, and the next one is searched from its beginning.
        const unsigned int from = start + std::min(textOffset, m_records[index]->m_text.length());
        place = m_plainChain.text.find(search.text(), static_cast<int>(from));
        textOffset = 0;
        index = place < 0 ? m_plainChain.after : index;
    }
    if (place >= 0) {
        textOffset = static_cast<unsigned int>(place) - start;
        for (; textOffset >= m_records[index]->m_text.length(); ++index) {
            textOffset -= m_records[index]->m_text.length();
        }
        position = static_cast<unsigned int>(m_records[index]->m_offset);
        recordIndex = index;
        m_foundLength = search.length();
    }
    ++textOffset;
    return place >= 0;
}

bool PageTextSearch::findWords(unsigned int& position, unsigned int& textOffset, bool matchCase,
                               const TovoTextString& search, unsigned int& recordIndex)
{
    WordText phrase{search, {}};
    if (splitWords(&phrase.text, &phrase.words) == 0) {
        return false;
    }
    const WordChain& chain = m_wordChain;
    bool found = false;
    for (unsigned int index = firstRecord(position, textOffset); !found && index < m_records.size();
         ++index) {
        if (!chain.holds(index)) {
            joinWords(index, matchCase);
        }
        const auto offset = static_cast<unsigned int>(m_records[index]->m_offset);
        if (offset != position) {
            textOffset = 0;
        }
        const unsigned int word = findPhrase(chain, index - chain.first, textOffset, phrase);
        if (word < chain.words.size()) {
            found = true;
            position = offset;
            textOffset = chain.words[word] - chain.records[index - chain.first].start;
            recordIndex = index;
            const unsigned int last = word + phrase.words.size() - 1;
            const std::string_view lastWord(chain.word(last));
            m_foundLength =
                chain.words[last] - chain.words[word] + static_cast<unsigned int>(lastWord.size());
        }
    }
    ++textOffset;
    return found;
}

// The first word of the phrase in what a record of the chain sees, from an offset in its text on; the chain's
// number of words when it is not there.
//
// At first the record sees its own words. A phrase that runs out of them brings in those of the next record, and
// these are compared as beginnings of the phrase as well; but once as many words came in as the phrase has, one
// that runs out again is given up and the record with it.
unsigned int PageTextSearch::findPhrase(const WordChain& chain, unsigned int record, unsigned int textOffset,
                                        const WordText& phrase)
{
    const unsigned int nowhere = chain.words.size();
    const unsigned int ownEnd = chain.records[record].wordsEnd;
    unsigned int seenEnd = ownEnd;
    const unsigned int own = record > 0 ? chain.records[record - 1].wordsEnd : 0;
    for (unsigned int first = firstWordFrom(chain, own, chain.records[record].start, textOffset);
         first < seenEnd; ++first) {
        unsigned int matched = 0;
        while (lstrcmpA(chain.word(first + matched), phrase.word(matched)) == 0) {
            if (++matched == phrase.words.size()) {
                return first;
            }
            if (first + matched < seenEnd) {
                continue;
            }
            if (seenEnd - ownEnd >= phrase.words.size()) {
                return nowhere;
            }
            if (seenEnd == nowhere) {
                break;
            }
            seenEnd = wordsWithNextRecord(chain, seenEnd);
        }
    }
    return nowhere;
}

// The first word of the chain from number `begin` on that is at least `offset` after `start`.
unsigned int PageTextSearch::firstWordFrom(const WordChain& chain, unsigned int begin, unsigned int start,
                                           unsigned int offset)
{
    if (begin >= chain.words.size()) {
        return begin;
    }
    const unsigned int* const words = &chain.words[0];
    return static_cast<unsigned int>(
        std::partition_point(words + begin, words + chain.words.size(),
                             [=](unsigned int place) { return place - start < offset; }) -
        words);
}

// How many words the chain has up to the end of the record with its word number `seenEnd`. Found by
// halving: any number of records without words may lie before that one.
unsigned int PageTextSearch::wordsWithNextRecord(const WordChain& chain, unsigned int seenEnd)
{
    const WordChain::Record* const records = &chain.records[0];
    return std::upper_bound(
               records, records + chain.records.size(), seenEnd,
               [](unsigned int words, const WordChain::Record& record) { return words < record.wordsEnd; })
        ->wordsEnd;
}

void PageTextSearch::joinText(unsigned int recordIndex, bool matchCase)
{
    PlainChain& chain = m_plainChain;
    chain.first = chain.after = 0; // while memory may end
    chain.starts.clear();
    const unsigned int after = joinRecords(recordIndex, false, matchCase, chain.text);
    for (unsigned int index = recordIndex, start = 0; index < after; ++index) {
        chain.starts.add(start);
        start += m_records[index]->m_text.length();
    }
    chain.first = recordIndex;
    chain.after = after;
}

void PageTextSearch::joinWords(unsigned int recordIndex, bool matchCase)
{
    WordChain& chain = m_wordChain;
    chain.first = recordIndex;
    chain.after = joinRecords(recordIndex, true, matchCase, chain.text);
    chain.words.clear();
    chain.records.clear();
    const unsigned int words = splitWords(&chain.text, &chain.words);
    unsigned int start = 0;
    unsigned int wordsEnd = 0;
    for (; recordIndex < chain.after; ++recordIndex) {
        const unsigned int end = start + m_records[recordIndex]->m_text.length();
        while (wordsEnd < words && chain.words[wordsEnd] < end) {
            ++wordsEnd;
        }
        chain.records.add(WordChain::Record{start, wordsEnd});
        start = end + 1;
    }
}

// Cuts a text into words in place, each ended by a zero byte over the separator after it, and adds where they
// begin. Gives how many were added. A text that is cut already gives the same words again.
unsigned int PageTextSearch::splitWords(TovoTextString* text, WordPlaces* words)
{
    char* const start = text->text();
    const unsigned int length = text->length();
    const unsigned int before = words->size();
    unsigned int at = 0;
    for (;;) {
        while (at < length && isWordSeparator(start[at])) {
            ++at;
        }
        if (at == length) {
            return words->size() - before;
        }
        words->add(at);
        while (at < length && !isWordSeparator(start[at])) {
            ++at;
        }
        start[at] = '\0';
    }
}

// Where the search goes on; the number of records when no record begins at `position`. 0 is the first record in
// reading order, but once `textOffset` has moved also the record of an element that the page itself begins with:
// else a hit there would come again and again.
unsigned int PageTextSearch::firstRecord(unsigned int position, unsigned int textOffset) const
{
    const auto isThere = [&](unsigned int record) {
        return record < m_records.size() &&
               static_cast<unsigned int>(m_records[record]->m_offset) == position;
    };
    if (position != 0 && isThere(m_lastRecord)) {
        return m_lastRecord;
    }
    unsigned int index = 0;
    while (index < m_records.size() && static_cast<unsigned int>(m_records[index]->m_offset) != position) {
        ++index;
    }
    const bool fromStart = position == 0 && (textOffset == 0 || index == m_records.size());
    return fromStart ? 0 : index;
}

// The record that continues a record's text; null when none does. On one line it must begin where the record
// ends, for words one average character further on at most, and that the width of the record is known; words,
// but no plain text, run on over the end of a line.
TextRecord* PageTextSearch::nextRecord(unsigned int recordIndex, bool words) const
{
    constexpr int Gap = 2;
    const TextRecord& record = *m_records[recordIndex];
    TextRecord* const next = m_records.atGet(recordIndex + 1);
    if (next == nullptr) {
        return nullptr;
    }
    if (next->m_y != record.m_y) {
        return words ? next : nullptr;
    }
    const int characters = static_cast<int>(record.m_text.length());
    int width = record.m_textLength;
    if (width == 0 && characters != 0) {
        return nullptr;
    }
    if (words && characters != 0) {
        width = wrapAdd(width, width / characters);
    }
    return wrapSubtract(next->m_x, wrapAdd(record.m_x, width)) < Gap ? next : nullptr;
}

// The text of a record and of all that continue it, in lower case unless case matters, with a blank at the seams
// when words are sought. Gives the index after the last of them.
unsigned int PageTextSearch::joinRecords(unsigned int recordIndex, bool words, bool matchCase,
                                         TovoTextString& text) const
{
    text = m_records[recordIndex]->m_text;
    while (nextRecord(recordIndex, words) != nullptr) {
        ++recordIndex;
        text.append(" ", words ? 1 : 0);
        text.append(m_records[recordIndex]->m_text);
    }
    if (!matchCase) {
        text.toLower();
    }
    return recordIndex + 1;
}
