// A page as bytes: how the demo stores one and plays it.
//
// Used by the run (report.cpp) and by the comparison. Pages are A4 in the report's logical units.
#pragma once

#include <string>
#include <vector>

#include "surfaceSVG.h"

using Page = std::vector<unsigned char>;
using Calls = std::vector<std::string>;

RECT wholePage();
CSurfaceSVG emptyPage();
// Closes the surface.
Page stored(CSurface& surface);
bool playOn(CSurface& surface, Page& page);
// The page played on a new page of SVG; empty when it could not be played.
Page replayed(Page& page);
// The calls that a player makes of the page; none when it could not be played.
Calls callsOf(Page& page);
