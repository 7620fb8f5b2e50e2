// Whether a replay is the page that was drawn.
//
// Called by the run (report.cpp) with a stored page and its replay. Two things may differ: the bytes, where a
// table in the source says why, and clips of the whole page among the calls.
#pragma once

#include <string>
#include <vector>

#include "storedPage.h"

using Calls = std::vector<std::string>;

// The calls that a player makes of the page; none when it could not be played.
Calls callsOf(Page& page);

struct Comparison {
    bool agrees;
    std::string verdict; // in words, plain text
};

// Prints the first calls that differ. Neither page may be empty.
Comparison compareReplay(Page& drawn, Page& replay);
