// The module comes and goes with whoever needs it, and leaves nothing behind: what it counts is 0 each time, and a
// leak check at the end finds no block of the module that was lost with it. This program is not linked with it.
#include <algorithm>

#include <gtest/gtest.h>

#include <windows.h>

#include <shlwapi.h>
#if !defined(_WIN32)
#include <dlfcn.h>
#endif

#include "moduleUse.h"

namespace {

#if defined(_WIN32)

bool isLoaded()
{
    return GetModuleHandleA(SURFACE_LIBRARY) != nullptr;
}

class Client {
public:
    Client() : _module(LoadLibraryA(SURFACE_UNLOAD_CLIENT)) {}
    ~Client() { FreeLibrary(_module); }
    void* find(const char* name) const { return reinterpret_cast<void*>(GetProcAddress(_module, name)); }

private:
    HMODULE _module;
};

// What the process holds: handles, and blocks of all heaps.
struct Holdings {
    DWORD handles = 0;
    DWORD blocks = 0;
};

Holdings holdings()
{
    Holdings held;
    GetProcessHandleCount(GetCurrentProcess(), &held.handles);
    HANDLE heaps[64];
    const DWORD count = GetProcessHeaps(64, heaps);
    for (DWORD i = 0; i < std::min<DWORD>(count, 64); ++i) {
        PROCESS_HEAP_ENTRY entry{};
        HeapLock(heaps[i]);
        while (HeapWalk(heaps[i], &entry) != FALSE) {
            held.blocks += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0 ? 1 : 0;
        }
        HeapUnlock(heaps[i]);
    }
    return held;
}

#else

// What is lost is left to a leak check.
struct Holdings {
    unsigned int handles = 0;
    unsigned int blocks = 0;
};

Holdings holdings()
{
    return {};
}

bool isLoaded()
{
    return dlopen(SURFACE_LIBRARY, RTLD_NOW | RTLD_NOLOAD) != nullptr;
}

class Client {
public:
    Client() : _module(dlopen(SURFACE_UNLOAD_CLIENT, RTLD_NOW | RTLD_LOCAL)) {}
    ~Client()
    {
        if (_module != nullptr) {
            dlclose(_module);
        }
    }
    void* find(const char* name) const { return _module != nullptr ? dlsym(_module, name) : nullptr; }

private:
    void* _module;
};

#endif

} // namespace

TEST(Unload, LeavesNothingBehindAHundredTimes)
{
    constexpr int Rounds = 100;
    constexpr int FirstRounds = 10; // by then the system has made what it keeps
    Holdings early;
    for (int round = 1; round <= Rounds; ++round) {
        if (round == FirstRounds) {
            early = holdings();
        }
        ASSERT_FALSE(isLoaded());
        const Client client;
        auto* const useModule =
            reinterpret_cast<bool (*)(ModuleUse*, DLLVERSIONINFO*)>(client.find("useModule"));
        ASSERT_NE(useModule, nullptr);
        ModuleUse use{1, 1, 1};
        DLLVERSIONINFO version{sizeof(DLLVERSIONINFO), 0, 0, 0, 0};
        EXPECT_TRUE(useModule(&use, &version));
        EXPECT_EQ(use.moduleBlocks, 0U);
        EXPECT_EQ(use.containerBlocks, 0U);
        EXPECT_EQ(use.drawingObjects, 0U);
        EXPECT_EQ(version.dwMajorVersion, DWORD{SURFACE_TESTED_MAJOR});
    }
    EXPECT_FALSE(isLoaded());
    // Less than one for each round.
    const Holdings late = holdings();
    EXPECT_LT(late.handles, early.handles + (Rounds - FirstRounds) / 2);
    EXPECT_LT(late.blocks, early.blocks + (Rounds - FirstRounds) / 2);
}
