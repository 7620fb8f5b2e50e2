// Walks the search of a stored page to its end.
//
// Called by the run (report.cpp) for the gallery's hits.
#pragma once

#include "storedPage.h"

// The places of the texts in which the hits are, hit by hit in reading order, in the page's logical units.
std::vector<POINT> findAll(Page& page, const char* text);
