#include "LoadedLibrary.h"

#include <windows.h>

#include <cstring>

namespace krnutil {

namespace {

// With its folder: what the library itself needs is then looked for beside it, too.
HMODULE openAt(const char* path) noexcept
{
    char whole[MAX_PATH];
    const DWORD length = GetFullPathNameA(path, sizeof(whole), whole, nullptr);
    return length != 0 && length < sizeof(whole)
               ? LoadLibraryExA(whole, nullptr, LOAD_WITH_ALTERED_SEARCH_PATH)
               : nullptr;
}

} // namespace

void* openLibrary(const char* path) noexcept
{
    const bool hasFolder = std::strpbrk(path, "\\/:") != nullptr;
    return hasFolder ? openAt(path) : LoadLibraryExA(path, nullptr, LOAD_LIBRARY_SEARCH_DEFAULT_DIRS);
}

void closeLibrary(void* library) noexcept
{
    FreeLibrary(static_cast<HMODULE>(library));
}

void (*findFunction(void* library, const char* name) noexcept)()
{
    return reinterpret_cast<void (*)()>(GetProcAddress(static_cast<HMODULE>(library), name));
}

} // namespace krnutil
