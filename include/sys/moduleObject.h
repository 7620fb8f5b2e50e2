// ModuleObject: what all classes have in common whose objects live on the module's own heap "SRF".
//
// The module is a shared library in somebody else's process, so the global operator new is left alone.
#pragma once

#include <cstddef>

#include "sys/surfaceExport.h"

class SURFACE_API ModuleObject {
public:
    // Null without memory, and then no constructor runs.
    static void* operator new(std::size_t size) noexcept;
    static void operator delete(void* block) noexcept;
};
