// Walks the search of a stored page to its end; see pageSearch.h.
#include "pageSearch.h"

#include "metaFilePlayer.h"

std::vector<POINT> findAll(Page& page, const char* text)
{
    std::vector<POINT> places;
    unsigned int position = 0;
    unsigned int textOffset = 0;
    for (;;) {
        unsigned char* found = nullptr;
        unsigned int foundLength = 0;
        int x = 0;
        int y = 0;
        CMetaFilePlayer::searchPageForString(page.data(), static_cast<unsigned int>(page.size()), text, false,
                                             false, position, textOffset, found, foundLength, x, y);
        if (foundLength == 0) {
            return places;
        }
        CMetaFilePlayer::freeFoundPage(found);
        places.push_back({x, y});
    }
}
