// What exists once for each loaded module: its own heap "SRF", its log, the lock of drawn text, its version.
//
// The classes of the interface have their operator new from ModuleObject, which allocates here; objects of other classes
// are made by makeInModuleHeap.
#pragma once

#include <cstddef>
#include <utility>

#include "sys/krnos.h"

namespace drawing {

// Made when the module is loaded and destroyed, in the reverse order, when it is unloaded.
extern KrnLog moduleLog;
extern XHeap moduleHeap;
// Serialises the drawing of text on devices across all threads and surfaces.
extern ThreadMutex__ drawTextLock;

// The four numbers with points between them, as documents carry them in their first comment.
const char* moduleVersionText();

// A block of the module's heap; null without memory, also for a size beyond the heap's 32 bits.
void* allocateFromModuleHeap(std::size_t size) noexcept;
void freeToModuleHeap(void* block) noexcept;

// Makes an object of a class that has no operator new of its own; null without memory.
template <typename T, typename... Arguments>
T* makeInModuleHeap(Arguments&&... arguments)
{
    void* block = allocateFromModuleHeap(sizeof(T));
    if (block == nullptr) {
        return nullptr;
    }
    try {
        return ::new (block) T(std::forward<Arguments>(arguments)...);
    } catch (...) {
        freeToModuleHeap(block);
        throw;
    }
}

// Ends an object that makeInModuleHeap made; null does nothing.
template <typename T>
void destroyInModuleHeap(T* object)
{
    if (object != nullptr) {
        object->~T();
        freeToModuleHeap(object);
    }
}

} // namespace drawing
