// A library that is loaded at run time, by the means of the system: LoadedLibraryPosix.cpp, LoadedLibraryWindows.cpp.
//
// Used by ImageLibrary.cpp.
#pragma once

namespace krnutil {

// Null when the library is not there or can't be loaded. A name without a folder is looked for where the system looks
// for libraries; on Windows that is beside the program and among the system's own, and never in the current folder.
// Opening the same library again gives the same handle; each is closed once.
void* openLibrary(const char* path) noexcept;
void closeLibrary(void* library) noexcept;

// Null when the library has no function of this name.
void (*findFunction(void* library, const char* name) noexcept)();

} // namespace krnutil
