// A page as bytes; see storedPage.h.
#include "storedPage.h"

#include "reportPages.h"

RECT wholePage()
{
    return {0, 0, LogicalWidth, LogicalHeight};
}

CSurfaceSVG emptyPage()
{
    RECT paper = {0, 0, PageMillimetresWide, PageMillimetresHigh};
    RECT logical = wholePage();
    return CSurfaceSVG(&paper, &logical);
}

void drawReportPage(CSurface& surface, const ReportPage& page)
{
    page.draw(surface);
    letterTitle(surface, page);
    if (page.letter != nullptr) {
        page.letter(surface);
    }
    if (page.counted) {
        letterPageCount(surface);
    }
}

Page stored(CSurface& surface)
{
    return pages::finished(surface);
}

bool playOn(CSurface& surface, Page& page, RECT target)
{
    return pages::play(page, surface, target);
}

Page replayed(Page& page)
{
    CSurfaceSVG copy = emptyPage();
    return playOn(copy, page) ? stored(copy) : Page();
}

Page printed(Page& page)
{
    CSurfacePSPrinter paper(0, 0);
    return playOn(paper, page) ? stored(paper) : Page();
}

Page printedDirectly(const ReportPage& page)
{
    // The size is what a player would set.
    CSurfacePSPrinter paper(0, 0);
    paper.m_width = LogicalWidth;
    paper.m_height = LogicalHeight;
    paper.m_pageWidth = PageMillimetresWide;
    paper.m_pageHeight = PageMillimetresHigh;
    drawReportPage(paper, page);
    return stored(paper);
}
