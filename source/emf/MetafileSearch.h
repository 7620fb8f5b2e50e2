// MetafileSearch: finds a text, or a phrase of whole words, in the fields of a metafile page, also where it runs
// on from one field into the next in reading order. Made by CMetaFilePlayerEMF::searchPageForString for one call;
// what it finds goes to markMetafile.
#pragma once

#include <cstddef>
#include <string_view>

#include "MetafileFields.h"
#include "sys/tovoarray.h"
#include "sys/tovostr.h"
#include "wordSeparators.h"

namespace metafile {

using namespace drawing;

// Steps from word to word of a text that separators cut.
class WordCursor {
public:
    // In front of the first word.
    explicit WordCursor(std::string_view text) : m_text(text) {}

    // Moves to the next word; false, and no word, after the last one.
    bool next()
    {
        m_start = m_end;
        while (m_start < m_text.size() && isWordSeparator(m_text[m_start])) {
            ++m_start;
        }
        m_end = m_start;
        while (m_end < m_text.size() && !isWordSeparator(m_text[m_end])) {
            ++m_end;
        }
        return m_end > m_start;
    }

    std::string_view word() const { return m_text.substr(m_start, m_end - m_start); }
    unsigned int start() const { return static_cast<unsigned int>(m_start); }
    unsigned int end() const { return static_cast<unsigned int>(m_end); }

private:
    std::string_view m_text;
    std::size_t m_start = 0;
    std::size_t m_end = 0;
};

// Characters of one record that belong to a hit. The last index can lie beyond the record's text.
struct MatchEntry {
    unsigned int position; // of the record in the page, in bytes
    unsigned int first;
    unsigned int last;
};

using MatchEntries = Vector<MatchEntry, 10>;

class MetafileSearch {
public:
    // `text` is not empty; without `matchCase` it is made lower case here. Throws KrnException without memory.
    MetafileSearch(metafile::Page page, TovoTextString text, bool matchCase, bool wholeWord);

    // Whether there is anything to be found: a search for words needs one.
    bool hasTarget() const { return !m_wholeWord || m_words.size() != 0; }

    // Looks, from a field on, through those whose records begin at `position` or after it, in the first of those for a hit
    // that begins at `textOffset` or after it. `place` becomes that of the last field met, searched or not: of
    // the one that a hit begins in, and `field` too. Adds the entries of the hit, in its order.
    bool find(unsigned int& field, unsigned int position, unsigned int textOffset, POINTL& place,
              MatchEntries& entries);

private:
    // What became of a candidate. One that failed after its first field ends the search of that field.
    enum class Outcome { Hit, Failed, FailedAfterField };

    // The text from an offset on.
    std::string_view sought(unsigned int offset) const
    {
        return {m_text.text() + offset, m_text.length() - offset};
    }

    bool findText(unsigned int field, unsigned int from, MatchEntries& entries);
    bool runsOn(unsigned int field, unsigned int start, MatchEntries* entries);
    unsigned int firstCandidate(std::string_view text, unsigned int from) const;
    unsigned int behindBlanks(unsigned int consumed) const;
    bool adjoins(unsigned int field, unsigned int next) const;

    bool findWords(unsigned int field, unsigned int from, MatchEntries& entries);
    Outcome wordsRunOn(unsigned int field, WordCursor word, unsigned int count, MatchEntries* entries);

    TovoTextString m_text;
    bool m_wholeWord;
    MetafileFields m_fields;
    Vector<unsigned int, 10> m_borders;   // for a plain search, see firstCandidate
    Vector<std::string_view, 10> m_words; // of m_text, for a search of words
};

} // namespace metafile
