#include "MetafileHits.h"

#include "MetafileFields.h"
#include "MetafileSearch.h"
#include "moduleObjects.h"

namespace metafile {

namespace {

class MetafileHits : public PageHitWalk {
public:
    MetafileHits(Page page, TovoTextString text, bool matchCase, bool wholeWord)
        : m_shown(page, false), m_search(page, std::move(text), matchCase, wholeWord)
    {
    }

    bool next(PageHit& hit) override
    {
        MatchEntries entries;
        POINTL place{};
        unsigned int field = m_field;
        if (!m_search.hasTarget() || !m_search.find(field, m_position, m_offset, place, entries)) {
            return false;
        }
        const std::string_view text = m_shown.text(field);
        hit.text = text.data();
        hit.textLength = static_cast<unsigned int>(text.size());
        hit.x = place.x;
        hit.y = place.y;
        hit.position = m_position;
        hit.textOffset = m_offset;
        hit.start = entries[0].first;
        m_field = field;
        m_position = entries[0].position;
        m_offset = entries[0].last + 1;
        return true;
    }

private:
    MetafileFields m_shown; // with upper and lower case
    MetafileSearch m_search;
    // The cursor of the search. What comes before the last hit in reading order has no hit any more: it lies before it in
    // the page as well, or was looked at for that one.
    unsigned int m_field = 0;
    unsigned int m_position = 0;
    unsigned int m_offset = 0;
};

} // namespace

PageHitWalk* makeMetafileHits(Page page, const char* text, bool matchCase, bool wholeWord)
{
    TovoTextString sought(text);
    return drawing::makeInModuleHeap<MetafileHits>(page, std::move(sought), matchCase, wholeWord);
}

} // namespace metafile
