// PageHits: walks over the places where a text is on a stored page, without a copy of the page for each.
//
// They are the hits of CMetaFilePlayer::searchPageForString in their order. A walk reads the page once and takes time that
// grows with the page and with the hits; a marked copy of a hit is made when it is asked for.
#pragma once

#include "sys/moduleObject.h"
#include "sys/surfaceExport.h"

// A place where the text is.
struct PageHit {
    int x = 0; // of the text in which the hit begins, in logical units
    int y = 0;
    // Where searchPageForString, given as `position` and `textOffset`, finds this hit: for its marked copy.
    unsigned int position = 0;
    unsigned int textOffset = 0;
    // The text in which the hit begins, without markup and without a zero byte after it, in the bytes of the page (a
    // metafile's in code page 1252), and where in it the hit begins. A hit may go on in the texts after it. The bytes belong
    // to the walk.
    const char* text = nullptr;
    unsigned int textLength = 0;
    unsigned int start = 0;
};

class PageHitWalk;

class SURFACE_API PageHits : public ModuleObject {
public:
    // `text` is compared byte by byte, as it is in the page; null and the empty text are nowhere. The page, of any format,
    // stays the caller's, unchanged as long as this lives; a null page and one of no known format have no hits. Throws
    // KrnException when there is no memory.
    PageHits(const unsigned char* page, unsigned int length, const char* text, bool matchCase,
             bool wholeWord);
    virtual ~PageHits();
    PageHits(const PageHits&) = delete;
    PageHits& operator=(const PageHits&) = delete;

    // Moves to the next hit; false after the last one. Throws KrnException when there is no memory.
    bool next();
    // The hit that next() moved to.
    const PageHit& hit() const { return m_hit; }

private:
    PageHit m_hit;
    PageHitWalk* m_walk;
};
