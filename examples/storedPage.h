// A page as bytes: how the demo draws one, stores it and plays it.
//
// Used by the run (report.cpp), by the comparison, and by tests that take the report's pages. Pages are A4 in the
// report's logical units.
#pragma once

#include <string_view>

#include "surfacePSPrinter.h"
#include "surfacePages.h"
#include "surfaceSVG.h"

struct ReportPage;

using Page = pages::Bytes;

RECT wholePage();
CSurfaceSVG emptyPage();

// The whole page: figures, title, words, and the place of the page count.
void drawReportPage(CSurface& surface, const ReportPage& page);

// Closes the surface.
Page stored(CSurface& surface);
// Over `target`, a rectangle of the destination whose right and bottom count.
bool playOn(CSurface& surface, Page& page, RECT target = wholePage());
// The page played on a new page of SVG; empty when it could not be played.
Page replayed(Page& page);
// The page played as a PostScript document; empty when it could not be played.
Page printed(Page& page);

// The page that the demo also draws on a sheet of PostScript, without storing it before.
inline constexpr std::string_view DirectPage = "shares";
Page printedDirectly(const ReportPage& page);
