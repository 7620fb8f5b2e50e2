#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <regex>
#include <sstream>

#include <gtest/gtest.h>

#include "module/VersionFile.h"
#include "moduleVersion.h"

namespace {

using enum FileKind;
using V = VersionFile;
constexpr FileKind allKinds[] = {pe, elf32, elf32Swapped, elf64, elf64Swapped};
constexpr FileKind elfKinds[] = {elf32, elf32Swapped, elf64, elf64Swapped};

const std::string testFile =
    (std::filesystem::path(::testing::TempDir()) / ("version" + std::to_string(getpid()))).string();

// "1.2.3.4", with "no " in front when nothing was read.
std::string versionIn(const char* path)
{
    CModuleVersion version;
    const bool read = version.readFile(path);
    std::ostringstream text;
    text << (read ? "" : "no ") << version.m_major << '.' << version.m_minor << '.' << version.m_build << '.'
         << version.m_revision;
    return text.str();
}

std::string versionOf(const std::string& bytes)
{
    std::ofstream(testFile, std::ios::binary) << bytes;
    std::string version = versionIn(testFile.c_str());
    std::filesystem::remove(testFile);
    return version;
}

std::string contentsOf(const char* path)
{
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

struct FileCase {
    const char* what;
    std::vector<FileKind> kinds;
    Languages languages;
    std::function<void(VersionFile&)> change;
    const char* version;
};

const std::vector<FileKind> peOnly{pe};
const std::vector<FileKind> elves(std::begin(elfKinds), std::end(elfKinds));
const std::vector<FileKind> every(std::begin(allKinds), std::end(allKinds));
const auto asItIs = [](VersionFile&) {
};

// Writes one number into the file.
auto with(std::size_t offset, std::uint64_t value, unsigned int width)
{
    return [=](VersionFile& file) {
        file.put(offset, value, width);
    };
}

// The same where the classes of ELF files differ.
auto withEither(std::size_t narrow, std::size_t wide, std::uint64_t value, unsigned int width)
{
    return [=](VersionFile& file) {
        file.put(file.isWide() ? wide : narrow, value, width);
    };
}

auto withSection(std::size_t index, std::size_t narrow, std::size_t wide, std::uint64_t value)
{
    return [=](VersionFile& file) {
        file.put(file.section(index) + (file.isWide() ? wide : narrow), value,
                 narrow == wide  ? 4
                 : file.isWide() ? 8
                                 : 4);
    };
}

auto withText(std::size_t offset, std::string text)
{
    return [=](VersionFile& file) {
        file.putText(offset, text);
    };
}

constexpr std::size_t peSection = V::peSections + 40;
constexpr const char* nothing = "no 0.0.0.0";

const FileCase fileCases[] = {
    {"as it should be", every, {{1033, 4}}, asItIs, "1.2.3.4"},
    {"the other language", every, {{5129, 5}}, asItIs, "1.2.3.5"},
    {"both: the later one of a PE file", peOnly, {{1033, 4}, {5129, 5}}, asItIs, "1.2.3.5"},
    {"both, the later one lower", peOnly, {{1033, 9}, {5129, 5}}, asItIs, "1.2.3.5"},
    {"both: the first one of an ELF file", elves, {{1033, 4}, {5129, 5}}, asItIs, "1.2.3.4"},
    {"a third one is passed over", peOnly, {{1031, 3}, {1033, 4}, {2057, 5}}, asItIs, "1.2.3.4"},
    {"a third one of an ELF file counts", elves, {{1031, 3}, {1033, 4}}, asItIs, "1.2.3.3"},
    {"one behind the last", peOnly, {{5130, 4}}, asItIs, nothing},
    {"one behind the last ends", peOnly, {{1033, 4}, {5130, 6}, {5129, 5}}, asItIs, "1.2.3.4"},
    {"only another one", peOnly, {{1031, 4}}, asItIs, nothing},
    {"none", every, {}, asItIs, nothing},
    {"a broken block behind a good one",
     peOnly,
     {{1033, 4}, {5129, 5}},
     with(V::blocks + V::blockSize, 65535, 2),
     "no 1.2.3.4"},

    {"no format", every, {{1033, 4}}, withText(0, "ZM"), nothing},
    {"a section without the point",
     peOnly,
     {{1033, 4}},
     withText(peSection, std::string("rsrc\0", 5)),
     "1.2.3.4"},
    {"a section's name goes on", peOnly, {{1033, 4}}, withText(peSection, "rsrc2"), nothing},
    {"no PE signature", peOnly, {{1033, 4}}, with(V::peHeader, 0x14550, 4), nothing},
    {"PE header far away", peOnly, {{1033, 4}}, with(60, 0xFFFFFFF0, 4), nothing},
    {"too few PE sections", peOnly, {{1033, 4}}, with(V::peHeader + 6, 1, 2), nothing},
    {"PE section outside", peOnly, {{1033, 4}}, with(peSection + 20, 0xFFFFFFFF, 4), nothing},
    {"PE data in front of its section", peOnly, {{1033, 4}}, with(V::data, 16, 4), nothing},

    {"no class", elves, {{1033, 4}}, withText(4, std::string(1, '\0')), nothing},
    {"class 3", elves, {{1033, 4}}, withText(4, "\3"), nothing},
    {"head's version", elves, {{1033, 4}}, withText(6, "\2"), nothing},
    {"an executable", elves, {{1033, 4}}, with(16, 2, 2), "1.2.3.4"},
    {"an object file", elves, {{1033, 4}}, with(16, 1, 2), nothing},
    {"a core", elves, {{1033, 4}}, with(16, 4, 2), nothing},
    {"version 2", elves, {{1033, 4}}, with(20, 2, 4), nothing},
    {"no section table",
     elves,
     {{1033, 4}},
     withEither(32, 40, 0, 4),
     nothing}, // of a wide address the half that counts, or none
    {"other section heads", elves, {{1033, 4}}, withEither(46, 58, 56, 2), nothing},
    {"no section with names", elves, {{1033, 4}}, withEither(50, 62, 0, 2), nothing},
    {"names nowhere", elves, {{1033, 4}}, withSection(1, 16, 24, 0), nothing},
    {"unused symbols", elves, {{1033, 4}}, withSection(2, 4, 4, 0), nothing},
    {"symbols nowhere", elves, {{1033, 4}}, withSection(2, 16, 24, 0), nothing},
    {"symbols without size", elves, {{1033, 4}}, withSection(2, 36, 56, 0), nothing},
    {"more symbols than bytes", elves, {{1033, 4}}, withSection(2, 20, 32, 0xFFFFFFF0), "1.2.3.4"},
    {"too few symbols", elves, {{1033, 4}}, withSection(2, 20, 32, 40), nothing},
    {"symbols' names nowhere", elves, {{1033, 4}}, withSection(3, 16, 24, 0), nothing},
    {"another symbol only", elves, {{1033, 4}}, withText(V::elfNames + 32 + 9, "__rsrx"), nothing},
    {"tree outside", elves, {{1033, 4}}, withSection(4, 16, 24, 0xFFFFFFF0), nothing},

    {"type without directory", every, {{1033, 4}}, with(V::types + 36, V::names - V::types, 4), nothing},
    {"no version type", every, {{1033, 4}}, with(V::types + 32, 17, 4), nothing},
    {"too few types", every, {{1033, 4}}, with(V::types + 14, 1, 2), nothing},
    {"another name", every, {{1033, 4}}, with(V::names + 24, 2, 4), nothing},
    {"language with a directory",
     every,
     {{1033, 4}},
     with(V::languages + 28, 0x80000000 | (V::data - V::types), 4),
     nothing},
    {"directory in itself",
     every,
     {{1033, 4}},
     with(V::names + 28, 0x80000000 | (V::types - V::types), 4),
     nothing},
    {"data outside", every, {{1033, 4}}, with(V::data, 0xFFFFFFFE, 4), nothing},
    {"length 65535", every, {{1033, 4}}, with(V::blocks, 65535, 2), nothing},
    {"value length 65535", every, {{1033, 4}}, with(V::blocks + 2, 65535, 2), nothing},
    {"value length 3", every, {{1033, 4}}, with(V::blocks + 2, 3, 2), nothing},
    {"value length 4", every, {{1033, 4}}, with(V::blocks + 2, 4, 2), "1.2.3.4"},
    {"length up to the signature", every, {{1033, 4}}, with(V::blocks, 44, 2), "1.2.3.4"},
    {"length within the signature", every, {{1033, 4}}, with(V::blocks, 40, 2), nothing},
    {"no signature", every, {{1033, 4}}, with(V::blocks + 40, 0, 4), nothing},
};

} // namespace

TEST(ModuleVersion, IsThatOfTheFile)
{
    for (const FileCase& test : fileCases) {
        for (const FileKind kind : test.kinds) {
            VersionFile file(kind, test.languages);
            test.change(file);
            EXPECT_EQ(versionOf(file.bytes()), test.version)
                << test.what << ", kind " << static_cast<int>(kind);
        }
    }
    EXPECT_EQ(versionIn("/nowhere/at/all"), nothing);
    EXPECT_EQ(versionIn("/"), nothing);
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
    const std::string bytes = contentsOf(testFile.c_str());
    std::filesystem::remove(testFile);
    const std::string identity = "@(#)TOVO Ansi on i686-msoft-win32, surface " SURFACE_TESTED_VERSION " ";
    const std::size_t place = bytes.find(identity);
    ASSERT_NE(place, std::string::npos);
    EXPECT_TRUE(std::regex_match(bytes.substr(place + identity.size(), 20),
                                 std::regex("\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d\\0")));
}

TEST(ModuleVersion, FillsTheCallersRecord)
{
    struct {
        DLLVERSIONINFO info;
        DWORD behind;
    } record{{0, 7, 7, 7, 7}, 7};
    const auto text = [&record] {
        const DLLVERSIONINFO& info = record.info;
        std::ostringstream all;
        all << info.cbSize << ": " << info.dwMajorVersion << '.' << info.dwMinorVersion << '.'
            << info.dwBuildNumber << '.' << info.dwPlatformID << ' ' << record.behind;
        return all.str();
    };
    EXPECT_EQ(DllGetVersion(nullptr), -1);
    record.info.cbSize = 19;
    EXPECT_EQ(DllGetVersion(&record.info), -1);
    EXPECT_EQ(text(), "19: 7.7.7.7 7");
    for (const DWORD size : {20U, 24U}) {
        record.info = {size, 7, 7, 7, 7};
        EXPECT_EQ(DllGetVersion(&record.info), 0);
        EXPECT_EQ(text(), std::to_string(size) + ": " SURFACE_TESTED_VERSION " 7");
    }
}
