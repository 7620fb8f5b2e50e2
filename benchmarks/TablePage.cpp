// The table page on CSurfaceSVG, from construction to the caller's bytes.
#include "TablePage.h"

#include "PageWork.h"
#include "surfaceSVG.h"

void makeSurfacePage(int rows, std::string& page)
{
    RECT millimetres = PageMillimetres;
    RECT bounds = tableBounds(rows);
    CSurfaceSVG surface(&millimetres, &bounds);
    drawTable(surface, rows);
    takePage(surface, page);
}
