// Files and modules of the Windows interface, as far as the version reader needs them.
#pragma once

#include "windows/types.h"

union LARGE_INTEGER {
    struct {
        DWORD LowPart;
        LONG HighPart;
    } u;
    std::int64_t QuadPart;
};
static_assert(sizeof(LARGE_INTEGER) == 8);

inline const HANDLE INVALID_HANDLE_VALUE = reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-1)); // NOLINT
constexpr DWORD GENERIC_READ = 0x80000000;
constexpr DWORD FILE_SHARE_READ = 1;
constexpr DWORD OPEN_EXISTING = 3;
constexpr DWORD FILE_ATTRIBUTE_NORMAL = 0x80;
constexpr DWORD PAGE_READONLY = 2;
constexpr DWORD FILE_MAP_READ = 4;
constexpr DWORD MAX_PATH = 260;
constexpr DWORD DLL_PROCESS_DETACH = 0;
constexpr DWORD DLL_PROCESS_ATTACH = 1;

extern "C" {

// The absolute path of the file that the module was loaded from; null means the module of this layer. Gives its
// length, 0 when it is not known, and `size` with the path cut when it does not fit.
SURFACE_API DWORD WINAPI GetModuleFileNameA(HMODULE module, LPSTR buffer,
                                            DWORD size) __asm__("surface_GetModuleFileNameA");
// Opens an existing file for reading; other ways are refused. INVALID_HANDLE_VALUE on failure.
SURFACE_API HANDLE WINAPI CreateFileA(LPCSTR path, DWORD access, DWORD share, void* security,
                                      DWORD disposition, DWORD attributes,
                                      HANDLE model) __asm__("surface_CreateFileA");
SURFACE_API BOOL WINAPI GetFileSizeEx(HANDLE file, LARGE_INTEGER* size) __asm__("surface_GetFileSizeEx");
// A read-only mapping of the whole file; null on failure, and for an empty file.
SURFACE_API HANDLE WINAPI CreateFileMappingA(HANDLE file, void* security, DWORD protection, DWORD sizeHigh,
                                             DWORD sizeLow,
                                             LPCSTR name) __asm__("surface_CreateFileMappingA");
SURFACE_API void* WINAPI MapViewOfFile(HANDLE mapping, DWORD access, DWORD offsetHigh, DWORD offsetLow,
                                       std::size_t size) __asm__("surface_MapViewOfFile");
SURFACE_API BOOL WINAPI UnmapViewOfFile(const void* view) __asm__("surface_UnmapViewOfFile");
SURFACE_API BOOL WINAPI CloseHandle(HANDLE handle) __asm__("surface_CloseHandle");
// Nothing to do here: TRUE.
SURFACE_API BOOL WINAPI
DisableThreadLibraryCalls(HMODULE module) __asm__("surface_DisableThreadLibraryCalls");

} // extern "C"
