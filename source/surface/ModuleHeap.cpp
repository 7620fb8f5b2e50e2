#include "moduleHeap.h"

#include <limits>

void* allocateFromModuleHeap(std::size_t size) noexcept
{
    if (size > std::numeric_limits<unsigned int>::max()) {
        return nullptr;
    }
    return moduleHeap.alloc(static_cast<unsigned int>(size), false);
}

void freeToModuleHeap(void* block) noexcept
{
    moduleHeap.free(block);
}
