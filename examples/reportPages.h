// The pages of the demo's energy report, as a table of drawings.
//
// Used by the run (report.cpp) and the gallery. A drawing sees a CSurface and nothing of its back end. Pages
// are A4 upright in logical units of 1/96 inch.
#pragma once

#include <span>

class CSurface;

inline constexpr int PageMillimetresWide = 210;
inline constexpr int PageMillimetresHigh = 297;
inline constexpr int LogicalWidth = 794;
inline constexpr int LogicalHeight = 1123;

struct ReportPage {
    const char* name; // of its files
    const char* title;
    const char* caption;
    void (*draw)(CSurface& surface);
    void (*letter)(CSurface& surface); // its words; null when `draw` draws them too
    bool counted;                      // shows its number and the number of all pages
};

std::span<const ReportPage> reportPages();

void drawOverview(CSurface& surface);
void drawShares(CSurface& surface);
void drawCurves(CSurface& surface);
void drawGroups(CSurface& surface);
void drawSheet(CSurface& surface);
void drawWords(CSurface& surface);
void drawPictures(CSurface& surface);

void letterTitle(CSurface& surface, const ReportPage& page);
// The text that the page count is stamped into later.
void letterPageCount(CSurface& surface);
void letterOverview(CSurface& surface);
void letterShares(CSurface& surface);
void letterCurves(CSurface& surface);
void letterGroups(CSurface& surface);
void letterSheet(CSurface& surface);
