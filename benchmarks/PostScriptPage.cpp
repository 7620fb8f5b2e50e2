// The table page on CSurfacePSPrinter, from construction to the caller's bytes.
#include "PostScriptPage.h"

#include "PageWork.h"
#include "surfacePSPrinter.h"

CSurfacePSPrinter makePostScriptSurface(const RECT& millimetres, const RECT& bounds)
{
    CSurfacePSPrinter surface(0, 0);
    surface.m_pageWidth = millimetres.right;
    surface.m_pageHeight = millimetres.bottom;
    surface.m_width = bounds.right;
    surface.m_height = bounds.bottom;
    return surface;
}

void makePostScriptPage(int rows, std::string& page)
{
    CSurfacePSPrinter surface = makePostScriptSurface(PageMillimetres, tableBounds(rows));
    drawTable(surface, rows);
    takePage(surface, page);
}
