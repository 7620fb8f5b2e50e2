#include <cstdio>

#include "moduleVersion.h"
#include "surfaceSVG.h"

int main()
{
    RECT millimetres{0, 0, 210, 297};
    RECT logical{0, 0, 794, 1123};
    CSurfaceSVG page(&millimetres, &logical);
    page.drawRectangle(&logical);
    DLLVERSIONINFO version{sizeof(DLLVERSIONINFO), 0, 0, 0, 0};
    const bool worked = page.closeSurface() == 0 && DllGetVersion(&version) == 0;
    std::printf("%u.%u\n", version.dwMajorVersion, version.dwMinorVersion);
    return worked && page.getDataLength() > 0 ? 0 : 1;
}
