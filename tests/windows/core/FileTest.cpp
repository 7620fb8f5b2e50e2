// Files, their mappings, and the module's own file.
#include <windows.h>

#include <cstdio>
#include <cstring>
#include <string>

#include <gtest/gtest.h>

namespace {

HANDLE openFile(const std::string& path)
{
    return CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
}

TEST(Files, AreMappedOnceTheyAreSound)
{
    char path[MAX_PATH + 1] = {};
    const DWORD length = GetModuleFileNameA(nullptr, path, sizeof path);
    EXPECT_EQ(length, std::strlen(path));
    EXPECT_EQ(path[0], '/');
    const HANDLE file = openFile(path);
    LARGE_INTEGER size{};
    ASSERT_TRUE(GetFileSizeEx(file, &size));
    const HANDLE mapping = CreateFileMappingA(file, nullptr, PAGE_READONLY, 0, 0, nullptr);
    EXPECT_TRUE(CloseHandle(file)); // the mapping goes on without it
    const auto beyond = static_cast<std::size_t>(size.QuadPart) + 1;
    EXPECT_EQ(MapViewOfFile(mapping, FILE_MAP_READ, 0, 0, beyond), nullptr);
    const void* view = MapViewOfFile(mapping, FILE_MAP_READ, 0, 0, 0);
    EXPECT_TRUE(CloseHandle(mapping));
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(static_cast<const char*>(view)[1], 'E');
    EXPECT_TRUE(UnmapViewOfFile(view));
    EXPECT_FALSE(UnmapViewOfFile(view) || CloseHandle(mapping));
    EXPECT_EQ(CreateFileMappingA(file, nullptr, PAGE_READONLY, 0, 0, nullptr), nullptr);
}

TEST(Files, ThatCannotBeReadAreRefused)
{
    const std::string empty = testing::TempDir() + "surface_empty_file";
    std::fclose(std::fopen(empty.c_str(), "w"));
    const HANDLE file = openFile(empty);
    EXPECT_EQ(CreateFileMappingA(file, nullptr, PAGE_READONLY, 0, 0, nullptr), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_FILE_INVALID);
    EXPECT_TRUE(CloseHandle(file));
    std::remove(empty.c_str());
    EXPECT_EQ(openFile(empty), INVALID_HANDLE_VALUE);
}

TEST(Files, OfModulesAreNamedAsFarAsThereIsRoom)
{
    char whole[4096]{};
    const DWORD length = GetModuleFileNameA(nullptr, whole, sizeof(whole));
    ASSERT_EQ(length, std::strlen(whole));
    char part[8]{};
    EXPECT_EQ(GetModuleFileNameA(nullptr, part, sizeof(part)), sizeof(part));
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(std::string(part), std::string(whole).substr(0, 7));
    EXPECT_EQ(GetModuleFileNameA(nullptr, part, 0), 0U);
    EXPECT_EQ(GetModuleFileNameA(reinterpret_cast<HMODULE>(&whole), part, sizeof(part)), 0U);
}

} // namespace
