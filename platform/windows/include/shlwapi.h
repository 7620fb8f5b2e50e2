// What the module needs of the Windows shell: the record that a library's DllGetVersion fills.
#pragma once

#include <windows.h>

// cbSize is set by the caller.
struct DLLVERSIONINFO {
    DWORD cbSize;
    DWORD dwMajorVersion;
    DWORD dwMinorVersion;
    DWORD dwBuildNumber;
    DWORD dwPlatformID;
};
static_assert(sizeof(DLLVERSIONINFO) == 20);
