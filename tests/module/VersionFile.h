// Files with a version resource, built byte by byte: the least that a PE or an ELF file needs to carry one.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

enum class FileKind { Pe, Elf32, Elf32Swapped, Elf64, Elf64Swapped };

// Ids of languages with the fourth number of the version, whose others are 1.2.3.
using LanguageList = std::vector<std::pair<std::uint32_t, std::uint16_t>>;

class VersionFile {
public:
    // Where the parts are. After the head of a directory come one named entry and its ids: 3, 16 and 24 in the
    // first, 1 and 2 in the second, the languages in the third.
    static constexpr std::size_t PeHeader = 64;
    static constexpr std::size_t PeSections = PeHeader + 24 + 8;
    static constexpr std::size_t ElfSections = 128;
    static constexpr std::size_t ElfNames = 448;
    static constexpr std::size_t ElfSymbols = 512;
    static constexpr std::size_t Types = 640;
    static constexpr std::size_t Names = Types + 48;
    static constexpr std::size_t Languages = Names + 40;
    static constexpr std::size_t Data = Languages + 48;
    static constexpr std::size_t Blocks = Data + 48;
    static constexpr std::size_t BlockSize = 92;
    static constexpr std::uint64_t Directory = 0x80000000; // in the target of an entry

    explicit VersionFile(FileKind kind, const LanguageList& in = {{1033, 4}})
        : m_swapped(kind == FileKind::Elf32Swapped || kind == FileKind::Elf64Swapped),
          m_wide(kind == FileKind::Elf64 || kind == FileKind::Elf64Swapped),
          m_bytes(Blocks + in.size() * BlockSize, '\0')
    {
        kind == FileKind::Pe ? putPe() : putElf();
        // The named one has the number of the type, and no directory after it.
        put(Types + 12, 2, {1, 3});
        put(Types + 16, 4, {16, 0, 3, 0, 16, Directory | (Names - Types), 24, 0});
        put(Names + 12, 2, {1, 2});
        put(Names + 16, 4, {16, 0, 1, Directory | (Languages - Types), 2, 0});
        put(Languages + 12, 2, {1, in.size()});
        put(Languages + 16, 4, {16, 0});
        for (std::size_t i = 0; i < in.size(); ++i) {
            const std::size_t block = Blocks + i * BlockSize;
            put(Languages + 24 + i * 8, 4, {in[i].first, Data - Types + i * 16});
            put(Data + i * 16, 4, {block - Types + (kind == FileKind::Pe ? 0x2000 : 0)});
            put(block, 2, {BlockSize, 52});
            put(block + 40, 4, {0xFEEF04BD, 0, 0x00010002, 0x00030000U | in[i].second});
        }
    }

    const std::string& bytes() const { return m_bytes; }
    unsigned int addressWidth() const { return m_wide ? 8 : 4; }
    std::size_t elfSection(std::size_t index) const { return ElfSections + index * (m_wide ? 64 : 40); }
    // The first byte after all that a reader needs.
    std::size_t end() const { return m_bytes.size() - 36; }

    // Numbers of one width, one after the other.
    void put(std::size_t offset, unsigned int width, std::initializer_list<std::uint64_t> values)
    {
        for (const std::uint64_t value : values) {
            for (unsigned int i = 0; i < width; ++i) {
                m_bytes[offset + (m_swapped ? width - 1 - i : i)] = static_cast<char>(value >> (8 * i));
            }
            offset += width;
        }
    }

private:
    void putText(std::size_t offset, std::string_view text) { m_bytes.replace(offset, text.size(), text); }

    void putPe()
    {
        putText(0, "MZ");
        putText(PeSections, ".rsrcs");
        putText(PeSections + 40, ".rsrc");
        put(60, 4, {PeHeader, 0x4550});
        put(PeHeader + 6, 2, {2});
        put(PeHeader + 20, 2, {8});
        put(PeSections + 52, 4, {0x2000, 0, Types});
    }

    void putElf()
    {
        const unsigned int width = addressWidth();
        const std::size_t symbolSize = m_wide ? 24 : 16;
        putText(1, "ELF");
        putText(ElfNames, {"\0.dynsym\0.dynstr\0.rodata\0", 25});
        putText(ElfNames + 32, {"\0__rsrcs\0__rsrc\0", 16});
        put(0, 1, {0x7F});
        put(4, 1, {m_wide ? 2U : 1U, m_swapped ? 2U : 1U, 1});
        put(16, 2, {3});
        put(20, 4, {1});
        put(m_wide ? 40 : 32, width, {ElfSections});
        put(m_wide ? 58 : 46, 2, {m_wide ? 64U : 40U, 5, 1});
        putSection(1, 24, {0, ElfNames, 32}, 0);
        putSection(2, 1, {0, ElfSymbols, 3 * symbolSize}, symbolSize);
        putSection(3, 9, {0, ElfNames + 32, 32}, 0);
        putSection(4, 17, {0x9000, Types - 32, 400}, 0);
        for (std::size_t i = 1; i <= 2; ++i) {
            const std::size_t symbol = ElfSymbols + i * symbolSize;
            put(symbol, 4, {i == 1 ? 1U : 9U});
            put(symbol + (m_wide ? 6 : 14), 2, {4});
            put(symbol + (m_wide ? 8 : 4), width, {0x9000 + 32 * (i - 1)});
        }
    }

    // Its name's place among the names; address, offset and size; the size of an entry.
    void putSection(std::size_t index, std::size_t name, std::initializer_list<std::uint64_t> place,
                    std::uint64_t entrySize)
    {
        put(elfSection(index), 4, {name, 1});
        put(elfSection(index) + (m_wide ? 16 : 12), addressWidth(), place);
        put(elfSection(index) + (m_wide ? 56 : 36), addressWidth(), {entrySize});
    }

    bool m_swapped;
    bool m_wide;
    std::string m_bytes;
};
