// The walk over the fields, and the search for a plain text.
#include "MetafileSearch.h"

#include <utility>

namespace metafile {

namespace {

// For each length of a beginning of the text, the longest shorter beginning that it ends with (Knuth, Morris and
// Pratt, "Fast pattern matching in strings").
void appendBorders(const TovoTextString& text, Vector<unsigned int, 10>& borders)
{
    borders.reSize(text.length() + 1);
    borders.add(0);
    borders.add(0);
    unsigned int border = 0;
    for (unsigned int i = 1; i < text.length(); ++i) {
        while (border != 0 && text.text()[border] != text.text()[i]) {
            border = borders[border];
        }
        border += text.text()[border] == text.text()[i] ? 1 : 0;
        borders.add(border);
    }
}

unsigned int commonLength(std::string_view a, std::string_view b)
{
    unsigned int length = 0;
    while (length < a.size() && length < b.size() && a[length] == b[length]) {
        ++length;
    }
    return length;
}

} // namespace

MetafileSearch::MetafileSearch(metafile::Page page, TovoTextString text, bool matchCase, bool wholeWord)
    : m_text(std::move(text)), m_wholeWord(wholeWord), m_fields(page, !matchCase)
{
    constexpr unsigned int WordLimit = 100;
    if (!matchCase) {
        m_text.toLower();
    }
    if (!wholeWord) {
        appendBorders(m_text, m_borders);
        return;
    }
    for (WordCursor word(sought(0)); m_words.size() < WordLimit && word.next();) {
        m_words.add(word.word());
    }
}

bool MetafileSearch::find(unsigned int& field, unsigned int position, unsigned int textOffset, POINTL& place,
                          MatchEntries& entries)
{
    for (; field < m_fields.size(); ++field) {
        place = m_fields[field].place;
        if (m_fields[field].position < position) {
            continue;
        }
        const unsigned int from = m_fields[field].position == position ? textOffset : 0;
        if (m_wholeWord ? findWords(field, from, entries) : findText(field, from, entries)) {
            return true;
        }
    }
    return false;
}

bool MetafileSearch::findText(unsigned int field, unsigned int from, MatchEntries& entries)
{
    const std::string_view text = m_fields.text(field);
    const unsigned int start = from < text.size() ? firstCandidate(text, from) : m_fields[field].textLength;
    return start < text.size() && runsOn(field, start, nullptr) && runsOn(field, start, &entries);
}

// Where the first candidate begins that the field itself doesn't end: the whole text is there, or the field
// ends with a beginning of it. The field's length when there is none.
unsigned int MetafileSearch::firstCandidate(std::string_view text, unsigned int from) const
{
    const std::string_view whole = sought(0);
    unsigned int matched = 0;
    for (unsigned int i = from; i < text.size(); ++i) {
        while (matched != 0 && whole[matched] != text[i]) {
            matched = m_borders[matched];
        }
        matched += whole[matched] == text[i] ? 1 : 0;
        if (matched == whole.size()) {
            return i + 1 - matched;
        }
    }
    return static_cast<unsigned int>(text.size()) - matched;
}

// Whether the text is there, in this field or on through those that follow. Adds the entries, where they are
// asked for, also without a hit; without them fields of blanks are passed over in one step.
bool MetafileSearch::runsOn(unsigned int field, unsigned int start, MatchEntries* entries)
{
    unsigned int consumed = 0; // of the text sought
    for (;;) {
        const MetafileField& current = m_fields[field];
        const unsigned int end = start + commonLength(m_fields.text(field).substr(start), sought(consumed));
        consumed += end - start;
        if (end == current.textLength) {
            consumed = behindBlanks(consumed);
        }
        const bool found = consumed == m_text.length();
        if (entries != nullptr) {
            entries->add({current.position, start, (found ? end : start + current.textLength) - 1});
        }
        if (found || end < current.textLength) {
            return found;
        }
        const MetafileFields::Step step = entries != nullptr
                                              ? MetafileFields::Step{field, m_fields.next(field)}
                                              : m_fields.stepOverBlanks(field);
        if (step.next == MetafileFields::None) {
            return false;
        }
        field = step.next;
        start = m_fields[field].blanks;
        const bool separated = start != 0 || m_text.text()[consumed - 1] == ' ';
        if (!separated && !adjoins(step.before, field)) {
            return false;
        }
    }
}

unsigned int MetafileSearch::behindBlanks(unsigned int consumed) const
{
    while (consumed < m_text.length() && m_text.text()[consumed] == ' ') {
        ++consumed;
    }
    return consumed;
}

// Whether a word can go on from one field into the next: nothing is between them.
bool MetafileSearch::adjoins(unsigned int field, unsigned int next) const
{
    constexpr int Gap = 5;
    const RECTL& bounds = m_fields[field].bounds;
    const RECTL& following = m_fields[next].bounds;
    return following.top == bounds.top && std::int64_t{bounds.right} + Gap >= following.left;
}

} // namespace metafile
