// Walks the search of a stored page to its end; see pageSearch.h.
#include "pageSearch.h"

std::vector<POINT> findAll(Page& page, const char* text)
{
    std::vector<POINT> places;
    pages::Hits hits(page, text);
    for (const PageHit& hit : hits) {
        places.push_back({hit.x, hit.y});
    }
    return places;
}

Page firstHitShown(Page& page, const char* text)
{
    pages::Hits hits(page, text);
    const auto first = hits.begin();
    return first == pages::Hits::end() ? Page() : pages::highlighted(page, hits.marked(*first).bytes());
}
