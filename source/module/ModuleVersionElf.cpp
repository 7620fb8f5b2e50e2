// The way to the resource tree of an ELF file: its dynamic symbol "__rsrc" (System V ABI, "Object Files").
#include <cstring>

#include "ModuleVersionDetail.h"

// Where the fields of one class of file are, and how wide its addresses are.
struct CModuleVersion::Detail::ElfLayout {
    unsigned int width;
    // Of the file's head.
    std::uint64_t sectionTable;
    std::uint64_t sectionEntrySize;
    std::uint64_t sectionCount;
    std::uint64_t nameSection;
    // Of a section's head; name and type are at 0 and 4.
    unsigned int sectionSize;
    std::uint64_t address;
    std::uint64_t offset;
    std::uint64_t size;
    std::uint64_t entrySize;
    // Of a symbol; its name is at 0.
    unsigned int symbolSize;
    std::uint64_t symbolSection;
    std::uint64_t symbolValue;
};

struct CModuleVersion::Detail::ElfSection {
    std::uint32_t name;
    std::uint32_t type;
    std::uint64_t address;
    std::uint64_t offset;
    std::uint64_t size;
    std::uint64_t entrySize;
};

bool CModuleVersion::Detail::elfTextIs(std::uint64_t offset, const char* text) const
{
    const std::size_t size = std::strlen(text) + 1;
    return holds(offset, size) && std::memcmp(m_version.m_view + offset, text, size) == 0;
}

CModuleVersion::Detail::ElfSection
CModuleVersion::Detail::elfSection(const ElfLayout& layout, std::uint64_t table, std::uint64_t index) const
{
    const std::uint64_t head = table + index * layout.sectionSize;
    if (head < table || !holds(head, layout.sectionSize)) {
        return {};
    }
    return {dword(head),
            dword(head + 4),
            number(head + layout.address, layout.width),
            number(head + layout.offset, layout.width),
            number(head + layout.size, layout.width),
            number(head + layout.entrySize, layout.width)};
}

// Sets m_resources when the symbol is there; false for a table that can't be walked.
bool CModuleVersion::Detail::elfSymbol(const ElfLayout& layout, std::uint64_t table, std::uint64_t sections,
                                       const ElfSection& symbols, const ElfSection& names)
{
    if (symbols.offset == 0 || names.offset == 0 || symbols.entrySize == 0) {
        return false;
    }
    const std::uint64_t count = symbols.size / symbols.entrySize;
    for (std::uint64_t i = 0; i < count && holds(symbols.offset, (i + 1) * layout.symbolSize); ++i) {
        const std::uint64_t symbol = symbols.offset + i * layout.symbolSize;
        if (!holds(names.offset, dword(symbol)) || !elfTextIs(names.offset + dword(symbol), "__rsrc")) {
            continue;
        }
        const std::uint64_t index = word(symbol + layout.symbolSection);
        const ElfSection holder = index < sections ? elfSection(layout, table, index) : ElfSection{};
        const std::uint64_t place =
            number(symbol + layout.symbolValue, layout.width) - holder.address + holder.offset;
        if (holder.type != 0 && holds(place, 1)) {
            m_version.m_resources = m_version.m_view + place;
        }
        break;
    }
    return true;
}

bool CModuleVersion::Detail::findElfResources()
{
    static constexpr ElfLayout Layouts[] = {
        {4, 32, 46, 48, 50, 40, 12, 16, 20, 36, 16, 14, 4},
        {8, 40, 58, 60, 62, 64, 16, 24, 32, 56, 24, 6, 8},
    };
    constexpr unsigned int FirstClass = 1;
    const unsigned int fileClass = static_cast<unsigned int>(number(4, 1));
    if (fileClass < FirstClass || fileClass - FirstClass >= sizeof(Layouts) / sizeof(Layouts[0])) {
        return false;
    }
    const ElfLayout& layout = Layouts[fileClass - FirstClass];
    m_version.m_swapBytes = number(5, 1) == 2;
    const std::uint16_t type = word(16);
    if (number(6, 1) != 1 || (type != 2 && type != 3) || dword(20) != 1 ||
        word(layout.sectionEntrySize) != layout.sectionSize) {
        return false;
    }
    const std::uint64_t table = number(layout.sectionTable, layout.width);
    const std::uint64_t sections = word(layout.sectionCount);
    const std::uint64_t nameIndex = word(layout.nameSection);
    const std::uint64_t sectionNames = elfSection(layout, table, nameIndex).offset;
    if (table == 0 || nameIndex == 0 || sectionNames == 0) {
        return false;
    }
    ElfSection symbols{};
    ElfSection names{};
    for (std::uint64_t i = 0; i < sections; ++i) {
        const ElfSection section = elfSection(layout, table, i);
        const std::uint64_t name = sectionNames + section.name;
        if (section.type == 0 || name < sectionNames) {
            continue;
        }
        if (elfTextIs(name, ".dynsym")) {
            symbols = section;
        } else if (elfTextIs(name, ".dynstr")) {
            names = section;
        }
    }
    return elfSymbol(layout, table, sections, symbols, names);
}
