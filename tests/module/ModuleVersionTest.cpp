#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <span>
#include <sstream>

#include <unistd.h>

#include <gtest/gtest.h>

#include "module/VersionFile.h"
#include "moduleVersion.h"

namespace {

using enum FileKind;
using V = VersionFile;
constexpr FileKind allKinds[] = {pe, elf32, elf32Swapped, elf64, elf64Swapped};
constexpr std::span<const FileKind> every(allKinds);
constexpr std::span<const FileKind> peOnly = every.first(1);
constexpr std::span<const FileKind> elves = every.subspan(1);

const std::string testFile =
    (std::filesystem::path(::testing::TempDir()) / ("version" + std::to_string(getpid()))).string();

// "1.2.3.4", with "no " in front when nothing was read.
std::string versionIn(const char* path)
{
    CModuleVersion version;
    const bool read = version.readFile(path);
    char text[80];
    std::snprintf(text, sizeof(text), "%s%d.%d.%d.%d", read ? "" : "no ", version.m_major, version.m_minor,
                  version.m_build, version.m_revision);
    return text;
}

std::string versionOf(const std::string& bytes)
{
    std::ofstream(testFile, std::ios::binary) << bytes;
    std::string version = versionIn(testFile.c_str());
    std::filesystem::remove(testFile);
    return version;
}

constexpr const char* nothing = "no 0.0.0.0";

struct LanguageCase {
    std::span<const FileKind> kinds;
    Languages languages;
    const char* version;
};

const LanguageCase languageCases[] = {
    {every, {{1033, 4}}, "1.2.3.4"},
    {every, {{5129, 5}}, "1.2.3.5"},
    {peOnly, {{1033, 4}, {5129, 5}}, "1.2.3.5"},
    {peOnly, {{1033, 9}, {5129, 5}}, "1.2.3.5"},
    {elves, {{1033, 4}, {5129, 5}}, "1.2.3.4"},
    {peOnly, {{1031, 3}, {1033, 4}, {2057, 5}}, "1.2.3.4"},
    {elves, {{1031, 3}, {1033, 4}}, "1.2.3.3"},
    {peOnly, {{1033, 4}, {5130, 6}, {5129, 5}}, "1.2.3.4"},
    {peOnly, {{1031, 4}}, nothing},
    {peOnly, {{5130, 4}}, nothing},
    {every, {}, nothing},
};

// A number of a file that is as it should be is replaced.
struct ChangeCase {
    const char* what;
    std::span<const FileKind> kinds;
    std::size_t section; // of an ELF file, in whose head the number is; 0: in none
    std::size_t place;
    std::size_t further; // in a file of 64 bits
    unsigned int width;  // bytes; 0: those of an address
    std::uint64_t value;
    const char* version;
};

constexpr std::size_t peSection = V::peSections + 40;

constexpr ChangeCase changeCases[] = {
    {"no format", every, 0, 0, 0, 1, 'Z', nothing},
    {"section \"rsrc\"", peOnly, 0, peSection, 0, 8, 0x63727372, "1.2.3.4"},
    {"section \"rsrc2\"", peOnly, 0, peSection, 0, 8, 0x3263727372, nothing},
    {"no PE signature", peOnly, 0, V::peHeader, 0, 4, 0x14550, nothing},
    {"PE header far away", peOnly, 0, 60, 0, 4, 0xFFFFFFF0, nothing},
    {"PE data in front of its section", peOnly, 0, V::data, 0, 4, 16, nothing},

    {"version of the head", elves, 0, 6, 0, 1, 2, nothing},
    {"executable", elves, 0, 16, 0, 2, 2, "1.2.3.4"},
    {"object file", elves, 0, 16, 0, 2, 1, nothing},
    {"no section table", elves, 0, 32, 8, 0, 0, nothing},
    {"no section of names", elves, 0, 50, 12, 2, 0, nothing},
    {"symbols nowhere", elves, 2, 16, 8, 0, 0, nothing},
    {"more symbols than bytes", elves, 2, 20, 12, 0, 0xFFFFFFF0, "1.2.3.4"},
    {"too few symbols", elves, 2, 20, 12, 0, 40, nothing},
    {"tree outside", elves, 4, 16, 8, 0, 0xFFFFFFF0, nothing},
    {"another symbol", elves, 0, V::elfNames + 46, 0, 1, 'x', nothing},

    {"too few types", every, 0, V::types + 14, 0, 2, 1, nothing},
    {"another name", every, 0, V::names + 24, 0, 4, 2, nothing},
    {"language of a directory", every, 0, V::languages + 28, 0, 4, V::directory | (V::data - V::types),
     nothing},
    {"directory in itself", every, 0, V::names + 28, 0, 4, V::directory, nothing},
    {"data outside", every, 0, V::data, 0, 4, 0xFFFFFFFE, nothing},
    {"length 65535", every, 0, V::blocks, 0, 2, 65535, nothing},
    {"value length 65535", every, 0, V::blocks + 2, 0, 2, 65535, nothing},
    {"value length 3", every, 0, V::blocks + 2, 0, 2, 3, nothing},
    {"value length 4", every, 0, V::blocks + 2, 0, 2, 4, "1.2.3.4"},
    {"as many units as lead to the signature", every, 0, V::blocks, 0, 2, 19, "1.2.3.4"},
    {"two units less", every, 0, V::blocks, 0, 2, 17, nothing},
    {"no signature", every, 0, V::blocks + 40, 0, 4, 0, nothing},
};

} // namespace

TEST(ModuleVersion, IsThatOfTheFile)
{
    for (const LanguageCase& test : languageCases) {
        for (const FileKind kind : test.kinds) {
            EXPECT_EQ(versionOf(VersionFile(kind, test.languages).bytes()), test.version)
                << "case " << &test - languageCases << ", kind " << static_cast<int>(kind);
        }
    }
    VersionFile broken(pe, {{1033, 4}, {5129, 5}});
    broken.put(V::blocks + V::blockSize, 2, {65535});
    EXPECT_EQ(versionOf(broken.bytes()), "no 1.2.3.4");
    for (const ChangeCase& test : changeCases) {
        for (const FileKind kind : test.kinds) {
            VersionFile file(kind);
            const unsigned int width = file.addressWidth();
            const std::size_t section = test.section == 0 ? 0 : file.elfSection(test.section);
            file.put(section + test.place + (width == 8 ? test.further : 0),
                     test.width != 0 ? test.width : width, {test.value});
            EXPECT_EQ(versionOf(file.bytes()), test.version)
                << test.what << ", kind " << static_cast<int>(kind);
        }
    }
    EXPECT_EQ(versionIn("/nowhere/at/all"), nothing);
}

// Three directories of many entries, each of which leads to the next one, or to a block that has no version.
TEST(ModuleVersion, TakesNoMoreStepsThanTheFileHasBytes)
{
    constexpr std::uint32_t entries = 100;
    constexpr std::uint32_t directorySize = 16 + 8 * entries;
    constexpr std::uint32_t secondLevel = 2 * directorySize;
    const auto number = [](std::uint32_t value) {
        return std::string{static_cast<char>(value), static_cast<char>(value >> 8U),
                           static_cast<char>(value >> 16U), static_cast<char>(value >> 24U)};
    };
    std::string bytes = VersionFile(pe).bytes().substr(0, V::types);
    const std::pair<std::uint32_t, std::uint32_t> levels[] = {
        {16, V::directory | directorySize}, {1, V::directory | secondLevel}, {1033, 3 * directorySize}};
    for (const auto& [id, target] : levels) {
        bytes += std::string(12, '\0') + number(entries << 16U);
        for (std::uint32_t i = 0; i < entries; ++i) {
            bytes += number(id) + number(target);
        }
    }
    bytes += number(0x2000 + 3 * directorySize + 16) + std::string(16, '\0');
    std::ofstream(testFile, std::ios::binary) << bytes;
    CModuleVersion version;
    EXPECT_FALSE(version.readFile(testFile.c_str()));
    EXPECT_EQ(bytes.size(), version.steps());
    EXPECT_FALSE(version.readFile("/nowhere/at/all"));
    std::filesystem::remove(testFile);
    EXPECT_TRUE(version.readFile(SURFACE_LIBRARY));
    EXPECT_LT(version.steps(), 100U);
}

TEST(ModuleVersion, NeedsTheWholeWayToItsNumbers)
{
    for (const FileKind kind : allKinds) {
        const VersionFile file(kind);
        for (std::size_t length = 0; length <= file.bytes().size(); ++length) {
            ASSERT_EQ(versionOf(file.bytes().substr(0, length)), length < file.end() ? nothing : "1.2.3.4")
                << length << " bytes, kind " << static_cast<int>(kind);
        }
    }
}

TEST(ModuleVersion, OfTheModuleIsTheProjectsAlsoWhenStripped)
{
    EXPECT_EQ(versionIn(SURFACE_LIBRARY), SURFACE_TESTED_VERSION);
    const std::string strip = SURFACE_STRIP " -s -o " + testFile + " " SURFACE_LIBRARY;
    ASSERT_EQ(std::system(strip.c_str()), 0);
    EXPECT_EQ(versionIn(testFile.c_str()), SURFACE_TESTED_VERSION);
    std::ostringstream contents;
    contents << std::ifstream(testFile, std::ios::binary).rdbuf();
    const std::string bytes = contents.str();
    std::filesystem::remove(testFile);
    const std::string identity = "@(#)TOVO Ansi on i686-msoft-win32, surface " SURFACE_TESTED_VERSION " ";
    const std::size_t place = bytes.find(identity);
    ASSERT_NE(place, std::string::npos);
    std::string time = bytes.substr(place + identity.size(), 20);
    std::replace_if(
        time.begin(), time.end(), [](char c) { return c >= '0' && c <= '9'; }, 'd');
    EXPECT_EQ(time, std::string("dddd-dd-dd dd:dd:dd\0", 20));
}

TEST(ModuleVersion, FillsTheCallersRecord)
{
    DLLVERSIONINFO infos[2]{{19, 7, 7, 7, 7}, {7, 7, 7, 7, 7}};
    DLLVERSIONINFO& info = infos[0];
    EXPECT_EQ(DllGetVersion(nullptr), -1);
    EXPECT_EQ(DllGetVersion(&info), -1);
    EXPECT_EQ(std::memcmp(&info.dwMajorVersion, &infos[1].dwMajorVersion, 16), 0);
    for (const DWORD size : {20U, 24U}) {
        info = {size, 7, 7, 7, 7};
        EXPECT_EQ(DllGetVersion(&info), 0);
        std::ostringstream text;
        text << info.dwMajorVersion << '.' << info.dwMinorVersion << '.' << info.dwBuildNumber << '.'
             << info.dwPlatformID;
        EXPECT_EQ(text.str(), SURFACE_TESTED_VERSION);
        EXPECT_EQ(infos[1].cbSize, 7U);
    }
}
