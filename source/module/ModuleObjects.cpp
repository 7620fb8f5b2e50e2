// What the module makes once when it is loaded. Destruction at unload runs in the reverse order.
#include <windows.h>

#include "moduleObjects.h"
#include "moduleUse.h"
#include "versionNumbers.h"

using namespace drawing;

KrnLog drawing::moduleLog("surface", nullptr, true, true);
XHeap drawing::moduleHeap("SRF", 0, 65535, true, 768, 0);
ThreadMutex__ drawing::drawTextLock("DrawTextLock");

const char* drawing::moduleVersionText()
{
    return SURFACE_VERSION;
}

void surfaceModuleUse(ModuleUse* use)
{
    if (use != nullptr) {
        use->moduleBlocks = moduleHeap.blocksInUse();
        use->containerBlocks = kosDefaultHeap.blocksInUse();
        use->drawingObjects = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    }
}
