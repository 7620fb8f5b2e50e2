// The file that a module was loaded from.
#include <dlfcn.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string>

#include "DeviceContext.h"
#include "failWith.h"

using namespace wingdi;

namespace {

// Absolute, without links; empty when there is no such file.
std::string absolutePath(const char* path)
{
    struct Release {
        void operator()(char* text) const noexcept { std::free(text); }
    };
    const std::unique_ptr<char, Release> resolved(realpath(path, nullptr));
    return resolved ? std::string(resolved.get()) : std::string();
}

struct OwnModule {
    const void* base = nullptr;
    std::string path;
};

// Asked when the module is loaded: its name may be relative to the folder that is the current one then.
OwnModule findOwnModule() noexcept
{
    static const char Inside = 0;
    try {
        Dl_info info{};
        if (dladdr(&Inside, &info) != 0 && info.dli_fname != nullptr) {
            return {info.dli_fbase, absolutePath(info.dli_fname)};
        }
    } catch (const std::exception&) { // without memory there is no path
    }
    return {};
}

const OwnModule OwnModule = findOwnModule();

// A module handle is the address where the module begins, or any within it.
std::string pathOf(HMODULE module)
{
    if (module == nullptr) {
        return OwnModule.path;
    }
    Dl_info info{};
    if (dladdr(module, &info) == 0 || info.dli_fname == nullptr) {
        return {};
    }
    return info.dli_fbase == OwnModule.base ? OwnModule.path : absolutePath(info.dli_fname);
}

} // namespace

DWORD GetModuleFileNameA(HMODULE module, LPSTR buffer, DWORD size)
{
    return guarded(DWORD{0}, [&]() -> DWORD {
        const std::string path = pathOf(module);
        if (path.empty() || buffer == nullptr || size == 0) {
            return failWith(path.empty() ? ERROR_INVALID_HANDLE : ERROR_INSUFFICIENT_BUFFER, DWORD{0});
        }
        const std::size_t length = std::min(path.size(), std::size_t{size} - 1);
        path.copy(buffer, length);
        buffer[length] = '\0';
        if (length < path.size()) {
            return failWith(ERROR_INSUFFICIENT_BUFFER, size);
        }
        return static_cast<DWORD>(length);
    });
}

BOOL DisableThreadLibraryCalls(HMODULE /*module*/)
{
    return TRUE;
}
