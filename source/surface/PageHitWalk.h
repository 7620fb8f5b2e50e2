// A walk over the hits on a page of one format; made for PageHits.
#pragma once

#include "pageHits.h"

class PageHitWalk {
public:
    PageHitWalk() = default;
    virtual ~PageHitWalk() = default;
    PageHitWalk(const PageHitWalk&) = delete;
    PageHitWalk& operator=(const PageHitWalk&) = delete;

    // False, and `hit` as it was, after the last one.
    virtual bool next(PageHit& hit) = 0;
};
