// The walk through a resource tree to the version block (PE format, "The .rsrc Section"): three levels of directories,
// by type, name and language. Offsets count from the start of the tree; named entries come before those with
// ids, and are passed over.
#include "ModuleVersionDetail.h"

namespace {

constexpr std::uint32_t VersionType = 16;
constexpr std::uint32_t VersionName = 1;
constexpr std::uint32_t FirstLanguage = 1033;
constexpr std::uint32_t LastLanguage = 5129; // its block wins over that of the first
constexpr std::uint32_t DirectoryBit = 0x80000000;

constexpr std::uint16_t NoLength = 65535;
constexpr std::uint16_t SignatureUpperHalf = 0xFEEF; // of 0xFEEF04BD, which begins a VS_FIXEDFILEINFO

// The entries with ids of the directory at a place of the file.
struct IdEntries {
    std::uint64_t first;
    unsigned int count;
};

IdEntries idEntries(std::uint64_t directory, std::uint16_t named, std::uint16_t withIds)
{
    return {directory + 16 + std::uint64_t{named} * 8, withIds};
}

} // namespace

// A place of the file from an offset in the tree.
std::uint64_t CModuleVersion::Detail::resource(std::uint32_t offset) const
{
    return static_cast<std::uint64_t>(m_version.m_resources - m_version.m_view) + (offset & ~DirectoryBit);
}

// Directories may lead to one another again and again, and blocks may overlap: one budget holds for all of it.
bool CModuleVersion::Detail::takeStep()
{
    if (m_version.m_steps == m_version.m_size) {
        return false;
    }
    ++m_version.m_steps;
    return true;
}

bool CModuleVersion::Detail::readResources()
{
    if (m_version.m_resources == nullptr) {
        return false;
    }
    bool found = false;
    const std::uint64_t top = resource(0);
    const IdEntries entries = idEntries(top, word(top + 12), word(top + 14));
    for (unsigned int i = 0; i < entries.count; ++i) {
        const std::uint64_t entry = entries.first + std::uint64_t{i} * 8;
        if (!takeStep()) {
            return false;
        }
        const std::uint32_t id = dword(entry);
        if (id > VersionType || !holds(entry, 8)) {
            break;
        }
        if (id < VersionType) {
            continue;
        }
        const std::uint32_t target = dword(entry + 4);
        if ((target & DirectoryBit) == 0) {
            return false;
        }
        if (!readVersionNames(resource(target), found)) {
            break;
        }
    }
    return found;
}

// False when the walk has come to its end.
bool CModuleVersion::Detail::readVersionNames(std::uint64_t directory, bool& found)
{
    const IdEntries entries = idEntries(directory, word(directory + 12), word(directory + 14));
    for (unsigned int i = 0; i < entries.count; ++i) {
        const std::uint64_t entry = entries.first + std::uint64_t{i} * 8;
        const bool spent = !takeStep();
        if (!spent && dword(entry) != VersionName) {
            break;
        }
        const std::uint32_t target = dword(entry + 4);
        const Walk walk =
            !spent && (target & DirectoryBit) != 0 ? readLanguages(resource(target), found) : Walk::Fails;
        if (walk != Walk::GoesOn) {
            found = found && walk != Walk::Fails;
            return false;
        }
    }
    return true;
}

CModuleVersion::Detail::Walk CModuleVersion::Detail::readLanguages(std::uint64_t directory, bool& found)
{
    const IdEntries entries = idEntries(directory, word(directory + 12), word(directory + 14));
    for (unsigned int i = 0; i < entries.count; ++i) {
        const std::uint64_t entry = entries.first + std::uint64_t{i} * 8;
        if (!takeStep()) {
            return Walk::Fails;
        }
        const std::uint32_t language = dword(entry);
        if (!holds(entry, 8) || (!m_version.m_isElf && language > LastLanguage)) {
            break;
        }
        if (!m_version.m_isElf && language != FirstLanguage && language != LastLanguage) {
            continue;
        }
        const std::uint32_t target = dword(entry + 4);
        if ((target & DirectoryBit) != 0) {
            return Walk::Fails;
        }
        const std::uint32_t place = dword(resource(target));
        const std::uint64_t block = m_version.m_isElf
                                        ? resource(0) + place
                                        : std::uint64_t{place} - m_version.m_section.virtualAddress +
                                              m_version.m_section.pointerToRawData;
        const Walk walk = readBlock(block, found);
        if (walk == Walk::Fails || m_version.m_isElf || language == LastLanguage) {
            return walk == Walk::Fails ? walk : Walk::Ends;
        }
    }
    return Walk::GoesOn;
}

// VS_VERSIONINFO: its length and that of its value in bytes, a type, a key in 16-bit characters, and, aligned, the
// fixed part, known by its signature. It is looked for in as many units as the length counts bytes: what follows the
// block is looked at as well, up to the end of the file.
CModuleVersion::Detail::Walk CModuleVersion::Detail::readBlock(std::uint64_t block, bool& found)
{
    const std::uint16_t length = word(block);
    const std::uint16_t valueLength = word(block + 2);
    if (!holds(block, 4) || length == NoLength || valueLength == NoLength) {
        return Walk::Fails;
    }
    if (valueLength <= 3) {
        return Walk::GoesOn;
    }
    constexpr unsigned int Head = 3; // units
    for (unsigned int unit = 0; unit < length; ++unit) {
        const std::uint64_t place = block + std::uint64_t{Head + unit} * 2;
        if (!holds(place, 2) || !takeStep()) {
            return Walk::Fails;
        }
        if (word(place) != SignatureUpperHalf) {
            continue;
        }
        // The upper half comes first where the most significant byte does.
        const std::uint64_t signature = m_version.m_swapBytes ? place : place - 2;
        if (!holds(signature, 16)) {
            return Walk::Fails;
        }
        const std::uint32_t upper = dword(signature + 8);
        const std::uint32_t lower = dword(signature + 12);
        m_version.m_major = static_cast<int>(upper >> 16U);
        m_version.m_minor = static_cast<int>(upper & 0xFFFFU);
        m_version.m_build = static_cast<int>(lower >> 16U);
        m_version.m_revision = static_cast<int>(lower & 0xFFFFU);
        found = true;
        return Walk::GoesOn;
    }
    return Walk::Fails;
}
