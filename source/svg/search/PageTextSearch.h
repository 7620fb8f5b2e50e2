// PageTextSearch: the search for text on a stored SVG page, made by CMetaFilePlayerSVG::searchPageForString for
// one call, and by SvgHits for many.
//
// The page's text elements become records in reading order (PageTextSearch.cpp), the records are searched for a
// plain text or for whole words (PageTextFinding.cpp), and the page is written anew with the found range marked
// by tovo:find attributes (PageTextMarking.cpp).
//
// Text may run on from one record into the next, so that a hit can spread over several. Records that run on into
// one another are joined into one text and searched together: the work of a search grows with the length of the
// page, however its text is cut into elements.
#pragma once

#include <string_view>

#include "sys/tovoarray.h"
#include "sys/tovostr.h"

// One piece of text of a text element: a <tspan>, or the lead run, which stands for the element itself.
class TextRun {
public:
    TextRun(int offset, TovoTextString text);
    virtual ~TextRun() = default;

    int m_offset;          // where its <tspan>, or for the lead run its <text>, begins in the page, in bytes
    TovoTextString m_text; // decoded
    int m_findStart = 0;   // the found part of m_text
    int m_findLength = 0;  // 0: nothing of it is found
};

// One text element.
class TextRecord {
public:
    TextRecord(int offset, int end);
    virtual ~TextRecord();
    TextRecord(const TextRecord&) = delete;
    TextRecord& operator=(const TextRecord&) = delete;

    // Decodes the text and adds it as a run. Throws KrnException without memory.
    void addRun(int offset, const char* text);

    TovoTextString m_text; // of all its runs
    int m_x = 0;
    int m_y = 0;
    int m_offset;              // where it begins in the page, in bytes
    int m_end;                 // where it ends
    Array<TextRun, 10> m_runs; // owned; the lead run first, empty when there are others
    int m_textLength = 0;      // the first one in the element; 0: unknown
};

class PageTextSearch {
public:
    PageTextSearch() = default;
    virtual ~PageTextSearch();
    PageTextSearch(const PageTextSearch&) = delete;
    PageTextSearch& operator=(const PageTextSearch&) = delete;

    // Finds the next occurrence of `search` from the cursor on. `position` is where a record begins in the
    // page, 0 for the first one in reading order; `textOffset` the smallest offset in that record's text that
    // counts. With a hit both lead after it, `marked` receives the marked page, and `x` and `y` the place of
    // the element it begins in. Without one `textOffset` still moves on by 1, unless nothing was searched for.
    void findText(std::string_view page, TovoTextString search, bool matchCase, bool wholeWord,
                  unsigned int& position, unsigned int& textOffset, TovoTextString& marked, int& x, int& y);

    // The same in two steps, for searches of one text and one kind that go on where the last one ended. Gives the record
    // that a hit begins in, null without one.
    void read(std::string_view page);
    const TextRecord* find(const TovoTextString& search, bool matchCase, bool wholeWord,
                           unsigned int& position, unsigned int& textOffset);

private:
    using WordPlaces = Vector<unsigned int, 10>; // where words begin in their text

    // A text cut into words.
    struct WordText {
        const char* word(unsigned int index) const { return text.text() + words[index]; }

        TovoTextString text;
        WordPlaces words;
    };
    // Records that run on into one another, joined.
    struct Chain {
        bool holds(unsigned int record) const { return record >= first && record < after; }

        unsigned int first = 0; // index of the first record
        unsigned int after = 0; // index after the last one
    };
    struct PlainChain : Chain {
        TovoTextString text;
        Vector<unsigned int, 10> starts; // of the records' texts in the chain's
    };
    // With a blank at each seam, cut into words.
    struct WordChain : Chain, WordText {
        struct Record {
            unsigned int start;    // of its text in the chain's
            unsigned int wordsEnd; // how many words the chain has up to its end
        };

        Vector<Record, 10> records;
    };

    void parsePage(TovoTextString* page);
    char* parseTextElement(char* element, char* pageStart);
    TextRecord* addRecord(int offset, int end);

    bool findSubstring(unsigned int& position, unsigned int& textOffset, bool matchCase,
                       const TovoTextString& search, unsigned int& recordIndex);
    bool findWords(unsigned int& position, unsigned int& textOffset, bool matchCase,
                   const TovoTextString& search, unsigned int& recordIndex);
    static unsigned int findPhrase(const WordChain& chain, unsigned int record, unsigned int textOffset,
                                   const WordText& phrase);
    static unsigned int firstWordFrom(const WordChain& chain, unsigned int begin, unsigned int start,
                                      unsigned int offset);
    static unsigned int wordsWithNextRecord(const WordChain& chain, unsigned int seenEnd);
    static unsigned int splitWords(TovoTextString* text, WordPlaces* words);
    unsigned int firstRecord(unsigned int position, unsigned int textOffset) const;
    void joinText(unsigned int recordIndex, bool matchCase);
    TextRecord* nextRecord(unsigned int recordIndex, bool words) const;
    unsigned int joinRecords(unsigned int recordIndex, bool words, bool matchCase,
                             TovoTextString& text) const;
    void joinWords(unsigned int recordIndex, bool matchCase);

    void markRange(unsigned int recordIndex, unsigned int start, unsigned int length);
    void writeMarkedPage(std::string_view page, TovoTextString& marked) const;
    static void writeRecord(std::string_view page, const TextRecord& record, TovoTextString& marked);

    Array<TextRecord, 25> m_records; // owned; by m_y, in page order where that is equal
    PlainChain m_plainChain;         // those looked at last
    WordChain m_wordChain;
    unsigned int m_lastRecord = 0; // in which the last hit begins
    unsigned int m_foundLength = 0;
};
