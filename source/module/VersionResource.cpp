// The module's version resource: a tree of the PE kind ("The .rsrc Section") at the exported symbol "__rsrc", where
// readers of this file find it as they find that of a PE file.
#include <cstddef>
#include <cstdint>

#include "sys/surfaceExport.h"
#include "versionNumbers.h"

namespace {

struct Directory {
    std::uint32_t characteristics;
    std::uint32_t timeStamp;
    std::uint16_t majorVersion;
    std::uint16_t minorVersion;
    std::uint16_t namedEntries;
    std::uint16_t idEntries;
    std::uint32_t id; // of the one entry
    std::uint32_t target;
};
static_assert(sizeof(Directory) == 24);

struct DataEntry {
    std::uint32_t place;
    std::uint32_t size;
    std::uint32_t codePage;
    std::uint32_t reserved;
};

// VS_VERSIONINFO with its VS_FIXEDFILEINFO.
struct VersionBlock {
    std::uint16_t length;
    std::uint16_t valueLength;
    std::uint16_t type;
    char16_t key[16];
    std::uint16_t padding;
    std::uint32_t signature;
    std::uint32_t structVersion;
    std::uint32_t fileVersionUpper;
    std::uint32_t fileVersionLower;
    std::uint32_t productVersionUpper;
    std::uint32_t productVersionLower;
    std::uint32_t flagsMask;
    std::uint32_t flags;
    std::uint32_t system;
    std::uint32_t fileType;
    std::uint32_t fileSubtype;
    std::uint32_t dateUpper;
    std::uint32_t dateLower;
};
static_assert(sizeof(VersionBlock) == 92);

struct ResourceTree {
    Directory types;
    Directory names;
    Directory languages;
    DataEntry data;
    VersionBlock block;
};

constexpr std::uint32_t DirectoryBit = 0x80000000;
constexpr std::uint32_t Upper = SURFACE_VERSION_MAJOR << 16U | SURFACE_VERSION_MINOR;
constexpr std::uint32_t Lower = SURFACE_VERSION_BUILD << 16U | SURFACE_VERSION_REVISION;

} // namespace

extern "C" {

// Exported, so that no linker drops it.
SURFACE_API extern const ResourceTree VersionResource __asm__("__rsrc");

const ResourceTree VersionResource{{0, 0, 0, 0, 0, 1, 16, DirectoryBit | offsetof(ResourceTree, names)},
                                   {0, 0, 0, 0, 0, 1, 1, DirectoryBit | offsetof(ResourceTree, languages)},
                                   {0, 0, 0, 0, 0, 1, 1033, offsetof(ResourceTree, data)},
                                   {offsetof(ResourceTree, block), sizeof(VersionBlock), 0, 0},
                                   {sizeof(VersionBlock), 52, 0, u"VS_VERSION_INFO", 0, 0xFEEF04BD,
                                    0x00010000, Upper, Lower, Upper, Lower, 0x3F, 0, 0x00000004, 0x00000002,
                                    0, 0, 0}};

} // extern "C"
