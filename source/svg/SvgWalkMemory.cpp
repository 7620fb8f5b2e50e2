#include "svg/SvgWalkMemory.h"

#include <cstring>

#include "svg/PageCursor.h"

namespace {

constexpr char OpeningText[] = "<svg";
constexpr char ClosingText[] = "</svg>";

} // namespace

char* KeyAhead::find(char* from, char* end)
{
    // What was found stays the answer until a search begins behind it. "Not there" does as well: it was said
    // of a text that all places up to its end are nested in.
    if (m_asked == nullptr || from < m_asked || from > m_found) {
        char* const found = std::strstr(from, m_key);
        m_asked = from;
        m_found = found != nullptr ? found : end;
    }
    return std::strlen(m_key) <= static_cast<std::size_t>(end - from) && m_found <= end - std::strlen(m_key)
               ? m_found
               : nullptr;
}

void SvgNesting::match(char* text)
{
    m_openings.clear();
    unsigned int innermost = 0;
    for (char* tag = std::strchr(text, '<'); tag != nullptr; tag = std::strchr(tag + 1, '<')) {
        if (beginsWith(tag, OpeningText)) {
            m_openings.add(Opening{tag, nullptr, innermost});
            innermost = m_openings.size();
        } else if (innermost != 0 && beginsWith(tag, ClosingText)) {
            Opening& closed = m_openings[innermost - 1];
            closed.closing = tag;
            innermost = closed.enclosing;
        }
    }
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

char* SvgNesting::closingTag(char* element, char* end)
{
    const Opening* found = opening(element);
    if (found == nullptr) {
        match(element);
        found = opening(element);
    }
    if (found == nullptr || found->closing == nullptr) {
        return nullptr;
    }
    // A tag that has lost its > to the end of the text around is no closing tag any more.
    return end - found->closing >= static_cast<std::ptrdiff_t>(std::strlen(ClosingText)) ? found->closing
                                                                                         : nullptr;
}
