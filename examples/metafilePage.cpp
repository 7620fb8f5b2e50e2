// Metafiles of the report's pages; see metafilePage.h.
#include "metafilePage.h"

#include "reportPages.h"
#include "surfaceEMF.h"

namespace {

// Millimetres as whole pixels, where `all` of them are `pixels`.
int pixelsOf(int millimetres, int pixels, int all)
{
    return all > 0 ? (millimetres * pixels + all / 2) / all : millimetres;
}

// A surface that records takes its context as it is: the page's units are stretched onto the frame here.
void mapPage(HDC recording)
{
    SetMapMode(recording, MM_ANISOTROPIC);
    SetWindowExtEx(recording, LogicalWidth, LogicalHeight, nullptr);
    SetViewportExtEx(
        recording,
        pixelsOf(PageMillimetresWide, GetDeviceCaps(recording, HORZRES), GetDeviceCaps(recording, HORZSIZE)),
        pixelsOf(PageMillimetresHigh, GetDeviceCaps(recording, VERTRES), GetDeviceCaps(recording, VERTSIZE)),
        nullptr);
}

} // namespace

Page recorded(const ReportPage& page)
{
    constexpr int Hundredths = 100;
    RECT frame = {0, 0, PageMillimetresWide * Hundredths, PageMillimetresHigh * Hundredths};
    CSurfaceEMF sheet(&frame);
    mapPage(sheet.getHDC());
    drawReportPage(sheet, page);
    return stored(sheet);
}
