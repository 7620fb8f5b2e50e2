// The search for a phrase of whole words.
#include "MetafileSearch.h"

namespace metafile {

namespace {

// How many words of the fields of one candidate are read, counted from the beginning of its first field.
constexpr unsigned int FieldWordLimit = 1000;

} // namespace

bool MetafileSearch::findWords(unsigned int field, unsigned int from, MatchEntries& entries)
{
    WordCursor word(m_fields.text(field));
    for (unsigned int count = 1; count <= FieldWordLimit && word.next(); ++count) {
        if (word.start() < from) {
            continue;
        }
        const Outcome outcome = wordsRunOn(field, word, count, nullptr);
        if (outcome == Outcome::Hit) {
            wordsRunOn(field, word, count, &entries);
        }
        if (outcome != Outcome::Failed) {
            return outcome == Outcome::Hit;
        }
    }
    return false;
}

// Whether the phrase is there: `word` is at its first word, which is number `count` of the field.
MetafileSearch::Outcome MetafileSearch::wordsRunOn(unsigned int field, WordCursor word, unsigned int count,
                                                   MatchEntries* entries)
{
    Outcome failure = Outcome::Failed;
    for (unsigned int i = 0; word.word() == m_words[i];) {
        if (entries != nullptr) {
            entries->add({m_fields[field].position, word.start(), word.end() - 1});
        }
        if (++i == m_words.size()) {
            return Outcome::Hit;
        }
        if (++count > FieldWordLimit) {
            return Outcome::FailedAfterField;
        }
        if (!word.next()) {
            failure = Outcome::FailedAfterField;
            field = m_fields.next(field);
            if (field == MetafileFields::None) {
                return failure;
            }
            word = WordCursor(m_fields.text(field));
            if (!word.next()) {
                return failure;
            }
        }
    }
    return failure;
}

} // namespace metafile
