// Metafiles of the report's pages; see metafilePage.h.
#include "metafilePage.h"

#include "reportPages.h"
#include "surfaceEMF.h"

namespace {

// Millimetres as whole pixels, where `all` of them are `pixels`.
int pixelsOf(LONG millimetres, int pixels, int all)
{
    return all > 0 ? (static_cast<int>(millimetres) * pixels + all / 2) / all : static_cast<int>(millimetres);
}

// A surface that records takes its context as it is: the page's units are stretched onto the frame here.
void mapPage(HDC recording, SIZE millimetres, SIZE logical)
{
    SetMapMode(recording, MM_ANISOTROPIC);
    SetWindowExtEx(recording, logical.cx, logical.cy, nullptr);
    SetViewportExtEx(
        recording,
        pixelsOf(millimetres.cx, GetDeviceCaps(recording, HORZRES), GetDeviceCaps(recording, HORZSIZE)),
        pixelsOf(millimetres.cy, GetDeviceCaps(recording, VERTRES), GetDeviceCaps(recording, VERTSIZE)),
        nullptr);
}

} // namespace

Page recorded(SIZE millimetres, SIZE logical, const std::function<void(CSurface&)>& draw)
{
    constexpr int Hundredths = 100;
    RECT frame = {0, 0, millimetres.cx * Hundredths, millimetres.cy * Hundredths};
    CSurfaceEMF sheet(&frame);
    mapPage(sheet.getHDC(), millimetres, logical);
    draw(sheet);
    return stored(sheet);
}

Page recorded(const ReportPage& page)
{
    return recorded({PageMillimetresWide, PageMillimetresHigh}, {LogicalWidth, LogicalHeight},
                    [&page](CSurface& surface) { drawReportPage(surface, page); });
}
