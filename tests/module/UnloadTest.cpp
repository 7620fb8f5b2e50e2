// The module comes and goes with whoever needs it, and leaves nothing behind: what it counts is 0 each time, and a
// leak check at the end finds no block of the module that was lost with it. This program is not linked with it.
#include <dlfcn.h>

#include <gtest/gtest.h>

#include <windows.h>

#include "moduleUse.h"

TEST(Unload, LeavesNothingBehindAHundredTimes)
{
    for (int round = 1; round <= 100; ++round) {
        ASSERT_EQ(dlopen(SURFACE_LIBRARY, RTLD_NOW | RTLD_NOLOAD), nullptr);
        void* const client = dlopen(SURFACE_UNLOAD_CLIENT, RTLD_NOW | RTLD_LOCAL);
        ASSERT_NE(client, nullptr) << dlerror();
        auto* const useModule =
            reinterpret_cast<bool (*)(ModuleUse*, DLLVERSIONINFO*)>(dlsym(client, "useModule"));
        ASSERT_NE(useModule, nullptr);
        ModuleUse use{1, 1, 1};
        DLLVERSIONINFO version{sizeof(DLLVERSIONINFO), 0, 0, 0, 0};
        EXPECT_TRUE(useModule(&use, &version));
        EXPECT_EQ(use.moduleBlocks, 0U);
        EXPECT_EQ(use.containerBlocks, 0U);
        EXPECT_EQ(use.drawingObjects, 0U);
        EXPECT_EQ(version.dwMajorVersion, DWORD{SURFACE_TESTED_MAJOR});
        dlclose(client);
    }
    EXPECT_EQ(dlopen(SURFACE_LIBRARY, RTLD_NOW | RTLD_NOLOAD), nullptr);
}
