// Uses the library as a host does, and catches what is thrown in it.
#include <cstdio>

#include "moduleVersion.h"
#include "surfaceSVG.h"
#include "sys/krnos.h"

namespace {

bool catchesWhatTheLibraryThrows()
{
    try {
        krnOutOfMemory();
    } catch (const KrnException& exception) {
        return exception.number() == KrnException::outOfMemoryNumber;
    }
}

} // namespace

int main()
{
    RECT millimetres{0, 0, 210, 297};
    RECT logical{0, 0, 794, 1123};
    CSurfaceSVG page(&millimetres, &logical);
    page.drawRectangle(&logical);
    DLLVERSIONINFO version{sizeof(DLLVERSIONINFO), 0, 0, 0, 0};
    const bool worked =
        page.closeSurface() == 0 && DllGetVersion(&version) == 0 && catchesWhatTheLibraryThrows();
    std::printf("%u.%u\n", static_cast<unsigned int>(version.dwMajorVersion),
                static_cast<unsigned int>(version.dwMinorVersion));
    return worked && page.getDataLength() > 0 ? 0 : 1;
}
