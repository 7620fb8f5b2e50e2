// Walks the search of a stored page to its end.
//
// Used by the run (report.cpp) for the gallery's hits, and by a test.
#pragma once

#include <vector>

#include "storedPage.h"

// The places of the texts in which the hits are, hit by hit in reading order, in the page's logical units.
std::vector<POINT> findAll(Page& page, const char* text);
// A copy of a page of either format in which the first hit is red; empty when the text does not occur. Case does not count. That of
// a metafile can be played, that of an SVG page is for viewers.
Page firstHitShown(Page& page, const char* text);
