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
constexpr FileKind AllKinds[] = {Pe, Elf32, Elf32Swapped, Elf64, Elf64Swapped};
constexpr std::span<const FileKind> Every(AllKinds);
constexpr std::span<const FileKind> PeOnly = Every.first(1);
constexpr std::span<const FileKind> Elves = Every.subspan(1);

const std::string TestFile =
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
    std::ofstream(TestFile, std::ios::binary) << bytes;
    std::string version = versionIn(TestFile.c_str());
    std::filesystem::remove(TestFile);
    return version;
}

constexpr const char* Nothing = "no 0.0.0.0";

struct LanguageCase {
    std::span<const FileKind> kinds;
    LanguageList languages;
    const char* version;
};

const LanguageCase LanguageCases[] = {
    {Every, {{1033, 4}}, "1.2.3.4"},
    {Every, {{5129, 5}}, "1.2.3.5"},
    {PeOnly, {{1033, 4}, {5129, 5}}, "1.2.3.5"},
    {PeOnly, {{1033, 9}, {5129, 5}}, "1.2.3.5"},
    {Elves, {{1033, 4}, {5129, 5}}, "1.2.3.4"},
    {PeOnly, {{1031, 3}, {1033, 4}, {2057, 5}}, "1.2.3.4"},
    {Elves, {{1031, 3}, {1033, 4}}, "1.2.3.3"},
    {PeOnly, {{1033, 4}, {5130, 6}, {5129, 5}}, "1.2.3.4"},
    {PeOnly, {{1031, 4}}, Nothing},
    {PeOnly, {{5130, 4}}, Nothing},
    {Every, {}, Nothing},
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

constexpr std::size_t PeSection = V::PeSections + 40;

constexpr ChangeCase ChangeCases[] = {
    {"no format", Every, 0, 0, 0, 1, 'Z', Nothing},
    {"section \"rsrc\"", PeOnly, 0, PeSection, 0, 8, 0x63727372, "1.2.3.4"},
    {"section \"rsrc2\"", PeOnly, 0, PeSection, 0, 8, 0x3263727372, Nothing},
    {"no PE signature", PeOnly, 0, V::PeHeader, 0, 4, 0x14550, Nothing},
    {"PE header far away", PeOnly, 0, 60, 0, 4, 0xFFFFFFF0, Nothing},
    {"PE data in front of its section", PeOnly, 0, V::Data, 0, 4, 16, Nothing},

    {"version of the head", Elves, 0, 6, 0, 1, 2, Nothing},
    {"executable", Elves, 0, 16, 0, 2, 2, "1.2.3.4"},
    {"object file", Elves, 0, 16, 0, 2, 1, Nothing},
    {"no section table", Elves, 0, 32, 8, 0, 0, Nothing},
    {"no section of names", Elves, 0, 50, 12, 2, 0, Nothing},
    {"symbols nowhere", Elves, 2, 16, 8, 0, 0, Nothing},
    {"more symbols than bytes", Elves, 2, 20, 12, 0, 0xFFFFFFF0, "1.2.3.4"},
    {"too few symbols", Elves, 2, 20, 12, 0, 40, Nothing},
    {"tree outside", Elves, 4, 16, 8, 0, 0xFFFFFFF0, Nothing},
    {"another symbol", Elves, 0, V::ElfNames + 46, 0, 1, 'x', Nothing},

    {"too few types", Every, 0, V::Types + 14, 0, 2, 1, Nothing},
    {"another name", Every, 0, V::Names + 24, 0, 4, 2, Nothing},
    {"language of a directory", Every, 0, V::Languages + 28, 0, 4, V::Directory | (V::Data - V::Types),
     Nothing},
    {"directory in itself", Every, 0, V::Names + 28, 0, 4, V::Directory, Nothing},
    {"data outside", Every, 0, V::Data, 0, 4, 0xFFFFFFFE, Nothing},
    {"length 65535", Every, 0, V::Blocks, 0, 2, 65535, Nothing},
    {"value length 65535", Every, 0, V::Blocks + 2, 0, 2, 65535, Nothing},
    {"value length 3", Every, 0, V::Blocks + 2, 0, 2, 3, Nothing},
    {"value length 4", Every, 0, V::Blocks + 2, 0, 2, 4, "1.2.3.4"},
    {"as many units as lead to the signature", Every, 0, V::Blocks, 0, 2, 19, "1.2.3.4"},
    {"two units less", Every, 0, V::Blocks, 0, 2, 17, Nothing},
    {"no signature", Every, 0, V::Blocks + 40, 0, 4, 0, Nothing},
};

} // namespace

TEST(ModuleVersion, IsThatOfTheFile)
{
    for (const LanguageCase& test : LanguageCases) {
        for (const FileKind kind : test.kinds) {
            EXPECT_EQ(versionOf(VersionFile(kind, test.languages).bytes()), test.version)
                << "case " << &test - LanguageCases << ", kind " << static_cast<int>(kind);
        }
    }
    VersionFile broken(Pe, {{1033, 4}, {5129, 5}});
    broken.put(V::Blocks + V::BlockSize, 2, {65535});
    EXPECT_EQ(versionOf(broken.bytes()), "no 1.2.3.4");
    for (const ChangeCase& test : ChangeCases) {
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
    EXPECT_EQ(versionIn("/nowhere/at/all"), Nothing);
}

// Three directories of many entries, each of which leads to the next one, or to a block that has no version.
TEST(ModuleVersion, TakesNoMoreStepsThanTheFileHasBytes)
{
    constexpr std::uint32_t Entries = 100;
    constexpr std::uint32_t DirectorySize = 16 + 8 * Entries;
    constexpr std::uint32_t SecondLevel = 2 * DirectorySize;
    const auto number = [](std::uint32_t value) {
        return std::string{static_cast<char>(value), static_cast<char>(value >> 8U),
                           static_cast<char>(value >> 16U), static_cast<char>(value >> 24U)};
    };
    std::string bytes = VersionFile(Pe).bytes().substr(0, V::Types);
    const std::pair<std::uint32_t, std::uint32_t> levels[] = {
        {16, V::Directory | DirectorySize}, {1, V::Directory | SecondLevel}, {1033, 3 * DirectorySize}};
    for (const auto& [id, target] : levels) {
        bytes += std::string(12, '\0') + number(Entries << 16U);
        for (std::uint32_t i = 0; i < Entries; ++i) {
            bytes += number(id) + number(target);
        }
    }
    bytes += number(0x2000 + 3 * DirectorySize + 16) + std::string(16, '\0');
    std::ofstream(TestFile, std::ios::binary) << bytes;
    CModuleVersion version;
    EXPECT_FALSE(version.readFile(TestFile.c_str()));
    EXPECT_EQ(bytes.size(), version.steps());
    EXPECT_FALSE(version.readFile("/nowhere/at/all"));
    std::filesystem::remove(TestFile);
    EXPECT_TRUE(version.readFile(SURFACE_LIBRARY));
    EXPECT_LT(version.steps(), 100U);
}

TEST(ModuleVersion, NeedsTheWholeWayToItsNumbers)
{
    for (const FileKind kind : AllKinds) {
        const VersionFile file(kind);
        for (std::size_t length = 0; length <= file.bytes().size(); ++length) {
            ASSERT_EQ(versionOf(file.bytes().substr(0, length)), length < file.end() ? Nothing : "1.2.3.4")
                << length << " bytes, kind " << static_cast<int>(kind);
        }
    }
}

TEST(ModuleVersion, OfTheModuleIsTheProjectsAlsoWhenStripped)
{
    EXPECT_EQ(versionIn(SURFACE_LIBRARY), SURFACE_TESTED_VERSION);
    EXPECT_EQ(versionIn(SURFACE_STRIPPED_LIBRARY), SURFACE_TESTED_VERSION);
    std::ostringstream contents;
    contents << std::ifstream(SURFACE_STRIPPED_LIBRARY, std::ios::binary).rdbuf();
    const std::string bytes = contents.str();
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
