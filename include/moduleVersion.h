// CModuleVersion: the version that a module's file reports: read from the version resource of a Windows PE file, or of an ELF file of
// 32 or 64 bits and either byte order that carries such a resource tree at the symbol "__rsrc".
#pragma once

#include <cstddef>
#include <cstdint>

#include <windows.h>

#include <shlwapi.h>

#include "sys/moduleObject.h"
#include "sys/surfaceExport.h"

// An entry of the section table of a PE file (PE format, "Section Table").
struct PeSectionHeader {
    char name[8]; // not terminated when it fills the field
    std::uint32_t virtualSize;
    std::uint32_t virtualAddress;
    std::uint32_t sizeOfRawData;
    std::uint32_t pointerToRawData;
    std::uint32_t pointerToRelocations;
    std::uint32_t pointerToLinenumbers;
    std::uint16_t numberOfRelocations;
    std::uint16_t numberOfLinenumbers;
    std::uint32_t characteristics;
};
static_assert(sizeof(PeSectionHeader) == 40);

class SURFACE_API CModuleVersion : public ModuleObject {
public:
    CModuleVersion();
    CModuleVersion(const CModuleVersion&) = delete;
    CModuleVersion& operator=(const CModuleVersion&) = delete;
    virtual ~CModuleVersion();

    // Reads the version of a file. False when there is none to read; the numbers stay as they were then. Of a file
    // that breaks off or leads out of itself nothing is read there. The walk through the resources takes at most as
    // many steps as the file has bytes, and gives false where a file would ask for more; no ordinary file comes near.
    bool readFile(const char* path);

    // How many steps that walk took in the last readFile: entries of directories and 16-bit units looked at.
    std::uint64_t steps() const { return m_steps; }

    int m_revision; // fourth number
    int m_major;
    int m_minor;
    int m_build; // third number

private:
    class Detail; // helpers of the module

    const unsigned char* m_resources; // the tree; null: none
    PeSectionHeader m_section;        // of a PE file: the one that holds the tree
    const unsigned char* m_view;      // the file as mapped
    bool m_isElf;
    bool m_swapBytes; // most significant byte first
    HANDLE m_file;
    HANDLE m_mapping;
    std::uint64_t m_size; // of the view, bytes
    std::uint64_t m_steps;
};

// Fills the four numbers of the module's version; the last one is in dwPlatformID. Gives 0, or -1 for a null record
// or one whose cbSize is below 20. A file that can't be read gives zeros. The module's one entry for callers of any
// compiler; on Windows it is found by GetProcAddress under its bare name, as the shell's DLLGETVERSIONPROC.
#if defined(_WIN32)
extern "C" HRESULT CALLBACK DllGetVersion(DLLVERSIONINFO* info);
#else
extern "C" SURFACE_API HRESULT CALLBACK DllGetVersion(DLLVERSIONINFO* info);
#endif
