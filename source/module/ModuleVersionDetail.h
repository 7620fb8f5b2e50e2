// The steps from a mapped file to its version, for the reader that it is made for. All reading goes through number().
#pragma once

#include "hidden.h"
#include "moduleVersion.h"

class SURFACE_HIDDEN CModuleVersion::Detail {
public:
    explicit Detail(CModuleVersion& version) : m_version(version) {}

    bool readView();

private:
    struct ElfLayout;
    struct ElfSection;
    enum class Walk { GoesOn, Ends, Fails };

    bool findPeResources();
    bool findElfResources();
    ElfSection elfSection(const ElfLayout& layout, std::uint64_t table, std::uint64_t index) const;
    bool elfTextIs(std::uint64_t offset, const char* text) const;
    bool elfSymbol(const ElfLayout& layout, std::uint64_t table, std::uint64_t sections,
                   const ElfSection& symbols, const ElfSection& names);

    bool readResources();
    bool readVersionNames(std::uint64_t directory, bool& found);
    Walk readLanguages(std::uint64_t directory, bool& found);
    Walk readBlock(std::uint64_t block, bool& found);

    bool takeStep();
    bool holds(std::uint64_t offset, std::uint64_t size) const;
    // Of the file's byte order; 0 outside the file, where no offset and no count leads further.
    std::uint64_t number(std::uint64_t offset, unsigned int bytes) const;
    std::uint16_t word(std::uint64_t offset) const { return static_cast<std::uint16_t>(number(offset, 2)); }
    std::uint32_t dword(std::uint64_t offset) const { return static_cast<std::uint32_t>(number(offset, 4)); }
    std::uint64_t resource(std::uint32_t offset) const;

    CModuleVersion& m_version;
};
