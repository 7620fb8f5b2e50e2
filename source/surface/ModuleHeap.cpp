#include "moduleObjects.h"

#include <limits>

#include "sys/moduleObject.h"

using namespace drawing;

void* drawing::allocateFromModuleHeap(std::size_t size) noexcept
{
    if (size > std::numeric_limits<unsigned int>::max()) {
        return nullptr;
    }
    return moduleHeap.alloc(static_cast<unsigned int>(size), false);
}

void drawing::freeToModuleHeap(void* block) noexcept
{
    moduleHeap.free(block);
}

void* ModuleObject::operator new(std::size_t size) noexcept
{
    return allocateFromModuleHeap(size);
}

void ModuleObject::operator delete(void* block) noexcept
{
    freeToModuleHeap(block);
}
