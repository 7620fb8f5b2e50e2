// The file behind a version: mapped, told apart, unmapped. Offsets come from the file and are checked where they are
// used; all reading goes through number().
#include "moduleVersion.h"

#include <cstring>

#include "ModuleVersionDetail.h"
#include "moduleObjects.h"

using namespace drawing;

namespace {

constexpr std::uint64_t PeHeaderField = 60;
constexpr std::uint16_t DosSignature = 23117; // "MZ"
constexpr std::uint32_t PeSignature = 17744;  // "PE" and two zero bytes
constexpr unsigned char ElfSignature[] = {0x7F, 'E', 'L', 'F'};

bool isResourceSection(const PeSectionHeader& section)
{
    // With their terminators: the name has to end where they do.
    return std::memcmp(section.name, ".rsrc", 6) == 0 || std::memcmp(section.name, "rsrc", 5) == 0;
}

} // namespace

CModuleVersion::CModuleVersion()
    : m_revision(0), m_major(0), m_minor(0), m_build(0), m_resources(nullptr), m_section{}, m_view(nullptr),
      m_isElf(false), m_swapBytes(false), m_file(INVALID_HANDLE_VALUE), m_mapping(nullptr), m_size(0),
      m_steps(0)
{
}

CModuleVersion::~CModuleVersion() = default;

bool CModuleVersion::Detail::holds(std::uint64_t offset, std::uint64_t size) const
{
    return offset <= m_version.m_size && size <= m_version.m_size - offset;
}

std::uint64_t CModuleVersion::Detail::number(std::uint64_t offset, unsigned int bytes) const
{
    if (!holds(offset, bytes)) {
        return 0;
    }
    std::uint64_t value = 0;
    for (unsigned int i = 0; i < bytes; ++i) {
        value = value << 8U | m_version.m_view[offset + (m_version.m_swapBytes ? i : bytes - 1 - i)];
    }
    return value;
}

bool CModuleVersion::readFile(const char* path)
{
    m_file = CreateFileA(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL,
                         nullptr);
    if (m_file == INVALID_HANDLE_VALUE) {
        return false;
    }
    bool read = false;
    LARGE_INTEGER size{};
    m_mapping = CreateFileMappingA(m_file, nullptr, PAGE_READONLY, 0, 0, nullptr);
    if (m_mapping != nullptr && GetFileSizeEx(m_file, &size) != FALSE) {
        m_view = static_cast<const unsigned char*>(MapViewOfFile(m_mapping, FILE_MAP_READ, 0, 0, 0));
        if (m_view != nullptr) {
            m_size = static_cast<std::uint64_t>(size.QuadPart);
            read = Detail(*this).readView();
            UnmapViewOfFile(m_view);
            m_view = nullptr;
            m_resources = nullptr;
        }
    }
    if (m_mapping != nullptr) {
        CloseHandle(m_mapping);
        m_mapping = nullptr;
    }
    CloseHandle(m_file);
    m_file = INVALID_HANDLE_VALUE;
    return read;
}

bool CModuleVersion::Detail::readView()
{
    m_version.m_isElf = false;
    m_version.m_swapBytes = false;
    m_version.m_resources = nullptr;
    m_version.m_steps = 0;
    if (word(0) == DosSignature) {
        return findPeResources() && readResources();
    }
    if (holds(0, sizeof(ElfSignature)) &&
        std::memcmp(m_version.m_view, ElfSignature, sizeof(ElfSignature)) == 0) {
        m_version.m_isElf = true;
        return findElfResources() && readResources();
    }
    return false;
}

// PE format, "COFF File Header" and "Section Table".
bool CModuleVersion::Detail::findPeResources()
{
    const std::uint64_t header = dword(PeHeaderField);
    if (dword(header) != PeSignature) {
        return false;
    }
    const unsigned int sections = word(header + 6);
    const std::uint64_t table = header + 24 + word(header + 20);
    for (unsigned int i = 0; i < sections; ++i) {
        const std::uint64_t entry = table + std::uint64_t{i} * sizeof(PeSectionHeader);
        if (!holds(entry, sizeof(PeSectionHeader))) {
            return false;
        }
        PeSectionHeader section{};
        std::memcpy(section.name, m_version.m_view + entry, sizeof(section.name));
        if (!isResourceSection(section)) {
            continue;
        }
        section.virtualSize = dword(entry + 8);
        section.virtualAddress = dword(entry + 12);
        section.sizeOfRawData = dword(entry + 16);
        section.pointerToRawData = dword(entry + 20);
        m_version.m_section = section;
        if (!holds(section.pointerToRawData, 1)) {
            return false;
        }
        m_version.m_resources = m_version.m_view + section.pointerToRawData;
        return true;
    }
    return false;
}
