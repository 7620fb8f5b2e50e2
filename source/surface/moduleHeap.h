// The module's own heap "SRF" and its log.
//
// This is a shared library in somebody else's process, so the global operator new is left alone: the classes
// of the module forward theirs to allocateFromModuleHeap, and objects of other classes are made there.
#pragma once

#include <cstddef>
#include <utility>

#include "sys/krnos.h"

// Made when the module is loaded and destroyed, in the reverse order, when it is unloaded.
extern KrnLog moduleLog;
extern XHeap moduleHeap;

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
