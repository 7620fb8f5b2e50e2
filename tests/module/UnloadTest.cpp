// The module comes and goes with whoever needs it, and leaves nothing behind. This program is not linked with it.
#include <dlfcn.h>
#include <malloc.h>

#include <gtest/gtest.h>

#include <windows.h>

#include "moduleUse.h"

TEST(Unload, LeavesNothingBehindAHundredTimes)
{
    std::size_t settled = 0; // caches of the libraries that stay
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
        if (round == 20) {
            settled = mallinfo2().uordblks;
        }
    }
    EXPECT_EQ(dlopen(SURFACE_LIBRARY, RTLD_NOW | RTLD_NOLOAD), nullptr);
    // Strings and tables too: eighty more rounds cost no more than the loader's own bookkeeping.
    EXPECT_LT(mallinfo2().uordblks, settled + 80 * 16);
}
