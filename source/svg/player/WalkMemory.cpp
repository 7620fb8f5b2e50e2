#include "WalkMemory.h"

#include <algorithm>
#include <cstring>

#include "PageCursor.h"
#include "SvgDialect.h"
#include "sys/krnos.h"

using namespace svg;

namespace {

} // namespace

char* NumbersAhead::find(char* from, char* end, SearchedBytes& searched)
{
    // What was found stays the answer until a search begins after it. "Not there" does as well: it was said
    // of a text that all places up to its end are nested in.
    if (m_asked == nullptr || from < m_asked || from > m_found) {
        char* const found = std::strstr(from, m_key);
        m_asked = from;
        m_found = found != nullptr ? found : end;
        searched.add(from, m_found);
    }
    return std::strlen(m_key) <= static_cast<std::size_t>(end - from) && m_found <= end - std::strlen(m_key)
               ? m_found
               : nullptr;
}

void NumbersAhead::read(char* from, char* end, SearchedBytes& searched, int (&numbers)[Most])
{
    char* const place = find(from, end, searched);
    if (place == nullptr) {
        return;
    }
    if (place != m_read) {
        m_read = place;
        m_count =
            intlSscanNumeric(place, m_format, &m_numbers[0], &m_numbers[1], &m_numbers[2], &m_numbers[3]);
        // At most up to the next quote, blank runs and digits apart nothing is passed over.
        searched.add(place, place + std::strcspn(place + std::strlen(m_key) + 1, "'>"));
    }
    std::copy_n(m_numbers, m_count, numbers);
}

void SvgNesting::match(char* text, SearchedBytes& searched)
{
    m_openings.clear();
    m_unmatchedClosings.clear();
    unsigned int innermost = 0;
    char* last = text;
    for (char* tag = std::strchr(text, '<'); tag != nullptr; tag = std::strchr(tag + 1, '<')) {
        last = tag;
        if (beginsWith(tag, SvgTag)) {
            m_openings.add(Opening{tag, nullptr, innermost});
            innermost = m_openings.size();
        } else if (beginsWith(tag, SvgEndTag)) {
            if (innermost == 0) {
                m_unmatchedClosings.add(tag);
                continue;
            }
            Opening& closed = m_openings[innermost - 1];
            closed.closing = tag;
            innermost = closed.enclosing;
        }
    }
    searched.add(text, last + std::strlen(last));
}

const SvgNesting::Opening* SvgNesting::opening(const char* place) const
{
    unsigned int first = 0;
    unsigned int last = m_openings.size();
    while (first < last) {
        const unsigned int middle = first + (last - first) / 2;
        if (m_openings[middle].place < place) {
            first = middle + 1;
        } else {
            last = middle;
        }
    }
    const Opening* const found = m_openings.atGet(first);
    return found != nullptr && found->place == place ? found : nullptr;
}

// What closes the element around, or, where there is none, the first tag that closes nothing.
char* SvgNesting::closingOfEnclosing(const Opening& opening) const
{
    if (opening.enclosing != 0) {
        return m_openings[opening.enclosing - 1].closing;
    }
    unsigned int first = 0;
    unsigned int last = m_unmatchedClosings.size();
    while (first < last) {
        const unsigned int middle = first + (last - first) / 2;
        if (m_unmatchedClosings[middle] < opening.place) {
            first = middle + 1;
        } else {
            last = middle;
        }
    }
    return first < m_unmatchedClosings.size() ? m_unmatchedClosings[first] : nullptr;
}

// The plain search for the closing tag begins as many characters after the element's start as that tag has, so it
// misses one that begins before that: the element takes the tag of the element around it then.
char* SvgNesting::closingTag(char* element, char* end, SearchedBytes& searched)
{
    const Opening* found = opening(element);
    if (found == nullptr) {
        match(element, searched);
        found = opening(element);
    }
    if (found == nullptr) {
        return nullptr;
    }
    const std::ptrdiff_t closingLength = std::strlen(SvgEndTag);
    const bool tooNear = found->closing != nullptr && found->closing - element < closingLength &&
                         beginsWith(found->closing, SvgEndTag);
    char* const closing = tooNear ? closingOfEnclosing(*found) : found->closing;
    // A tag that has lost its > to the end of the text around is no closing tag any more.
    return closing != nullptr && end - closing >= closingLength ? closing : nullptr;
}
