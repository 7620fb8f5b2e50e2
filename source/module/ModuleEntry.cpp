// What the module is, what happens when it is loaded, and what it says of its version.
#include <windows.h>

#include "moduleVersion.h"
#include "versionNumbers.h"

namespace {

struct ModuleIdentity {
    const char* name;
    const char* version;
    HINSTANCE module; // null until the module is attached
};

ModuleIdentity identity{"surface", SURFACE_VERSION, nullptr};

// For tools that look for such strings in files.
[[gnu::used]] const char Identification[] =
    "@(#)TOVO Ansi on i686-msoft-win32, surface " SURFACE_VERSION " " SURFACE_BUILD_TIME;

constexpr DWORD LongestPath = MAX_PATH;

// False when the path is not known, or is longer than a path may be.
bool modulePath(char (&path)[LongestPath + 1])
{
    const DWORD length = GetModuleFileNameA(identity.module, path, sizeof(path));
    return length > 0 && length <= LongestPath && path[length] == '\0';
}

void fill(DLLVERSIONINFO& info, int major, int minor, int build, int revision)
{
    info.dwMajorVersion = static_cast<DWORD>(major);
    info.dwMinorVersion = static_cast<DWORD>(minor);
    info.dwBuildNumber = static_cast<DWORD>(build);
    info.dwPlatformID = static_cast<DWORD>(revision);
}

} // namespace

extern "C" BOOL APIENTRY DllMain(HINSTANCE module, DWORD reason, void* /*reserved*/)
{
    if (reason == DLL_PROCESS_ATTACH) {
        DisableThreadLibraryCalls(module);
        if (identity.module == nullptr) {
            identity.module = module;
        }
    }
    return 1;
}

#if !defined(_WIN32)
namespace {

// Loaders of other systems know no module entry and no handle: null is the handle of this module here.
struct AttachAtLoad {
    AttachAtLoad() { DllMain(nullptr, DLL_PROCESS_ATTACH, nullptr); }
};
const AttachAtLoad AttachAtLoad;

} // namespace
#endif

HRESULT CALLBACK DllGetVersion(DLLVERSIONINFO* info)
{
    if (info == nullptr || info->cbSize < sizeof(DLLVERSIONINFO)) {
        return -1;
    }
    char path[LongestPath + 1];
    if (modulePath(path)) {
        CModuleVersion version;
        version.readFile(path); // numbers stay 0 when there are none
        fill(*info, version.m_major, version.m_minor, version.m_build, version.m_revision);
    } else {
        fill(*info, SURFACE_VERSION_MAJOR, SURFACE_VERSION_MINOR, SURFACE_VERSION_BUILD,
             SURFACE_VERSION_REVISION);
    }
    return 0;
}
