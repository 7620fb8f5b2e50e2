#include "SvgHits.h"

#include "PageTextSearch.h"
#include "moduleObjects.h"

namespace svg {

namespace {

class SvgHits : public PageHitWalk {
public:
    SvgHits(std::string_view page, const char* text, bool matchCase, bool wholeWord)
        : m_text(text), m_matchCase(matchCase), m_wholeWord(wholeWord)
    {
        if (m_text.isEmpty()) {
            return;
        }
        m_search.read(page);
        if (!matchCase) {
            m_text.toLower();
        }
    }

    bool next(PageHit& hit) override
    {
        unsigned int position = m_position;
        unsigned int offset = m_offset;
        const TextRecord* const record =
            m_text.isEmpty() ? nullptr : m_search.find(m_text, m_matchCase, m_wholeWord, position, offset);
        if (record == nullptr) {
            return false;
        }
        hit.text = record->m_text.text();
        hit.textLength = record->m_text.length();
        hit.x = record->m_x;
        hit.y = record->m_y;
        hit.position = m_position;
        hit.textOffset = m_offset;
        hit.start = offset - 1;
        m_position = position;
        m_offset = offset;
        return true;
    }

private:
    PageTextSearch m_search;
    TovoTextString m_text;
    bool m_matchCase;
    bool m_wholeWord;
    unsigned int m_position = 0; // the cursor of the search
    unsigned int m_offset = 0;
};

} // namespace

PageHitWalk* makeSvgHits(std::string_view page, const char* text, bool matchCase, bool wholeWord)
{
    return drawing::makeInModuleHeap<SvgHits>(page, text, matchCase, wholeWord);
}

} // namespace svg
