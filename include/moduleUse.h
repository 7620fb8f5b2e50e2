// ModuleUse: what the module still holds for its callers. A host asks before it unloads the module: whatever is not 0 then would
// live on in memory whose code is gone.
#pragma once

#include "sys/surfaceExport.h"

struct ModuleUse {
    unsigned int moduleBlocks;    // of the heap "SRF": surfaces, players, attributes, found pages
    unsigned int containerBlocks; // of kosDefaultHeap: the lists of Vector and Array
    unsigned int drawingObjects;  // contexts, their objects and metafiles
};

// Fills the record; null does nothing.
extern "C" SURFACE_API void surfaceModuleUse(ModuleUse* use);
