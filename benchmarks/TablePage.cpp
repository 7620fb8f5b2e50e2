// The table page on CSurfaceSVG, from construction to the caller's bytes.
#include "TablePage.h"

#include "surfaceSVG.h"

void makeSurfacePage(int rows, std::string& page)
{
    RECT millimetres = pageMillimetres;
    RECT bounds = tableBounds(rows);
    CSurfaceSVG surface(&millimetres, &bounds);
    drawTable(surface, rows);
    surface.closeSurface();
    unsigned int size = static_cast<unsigned int>(surface.getDataLength());
    page.resize(size);
    surface.getData(reinterpret_cast<unsigned char*>(page.data()), size);
}
