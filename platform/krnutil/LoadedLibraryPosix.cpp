#include "LoadedLibrary.h"

#include <dlfcn.h>

namespace krnutil {

void* openLibrary(const char* path) noexcept
{
    return dlopen(path, RTLD_NOW | RTLD_LOCAL);
}

void closeLibrary(void* library) noexcept
{
    dlclose(library);
}

void (*findFunction(void* library, const char* name) noexcept)()
{
    return reinterpret_cast<void (*)()>(dlsym(library, name));
}

} // namespace krnutil
