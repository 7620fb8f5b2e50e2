// Files with a version resource, built byte by byte: the least that a PE or an ELF file needs to carry one.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

enum class FileKind { pe, elf32, elf32Swapped, elf64, elf64Swapped };

// Ids of languages with the fourth number of the version, whose others are 1.2.3.
using Languages = std::vector<std::pair<std::uint32_t, std::uint16_t>>;

class VersionFile {
public:
    // Where the parts stand. Behind the head of a directory come one named entry and its ids: 3, 16 and 24 in the
    // first, 1 and 2 in the second, the languages in the third.
    static constexpr std::size_t peHeader = 64;
    static constexpr std::size_t peSections = peHeader + 24 + 8;
    static constexpr std::size_t elfSections = 128;
    static constexpr std::size_t elfNames = 448;
    static constexpr std::size_t elfSymbols = 512;
    static constexpr std::size_t types = 640;
    static constexpr std::size_t names = types + 48;
    static constexpr std::size_t languages = names + 40;
    static constexpr std::size_t data = languages + 48;
    static constexpr std::size_t blocks = data + 48;
    static constexpr std::size_t blockSize = 92;
    static constexpr std::uint64_t directory = 0x80000000; // in the target of an entry

    explicit VersionFile(FileKind kind, const Languages& in = {{1033, 4}})
        : m_swapped(kind == FileKind::elf32Swapped || kind == FileKind::elf64Swapped),
          m_wide(kind == FileKind::elf64 || kind == FileKind::elf64Swapped),
          m_bytes(blocks + in.size() * blockSize, '\0')
    {
        kind == FileKind::pe ? putPe() : putElf();
        // The named one has the number of the type, and no directory behind it.
        putNumbers({{types + 12, 1, 2},
                    {types + 14, 3, 2},
                    {types + 16, 16, 4},
                    {types + 24, 3, 4},
                    {types + 32, 16, 4},
                    {types + 36, directory | (names - types), 4},
                    {types + 40, 24, 4},
                    {names + 12, 1, 2},
                    {names + 14, 2, 2},
                    {names + 16, 16, 4},
                    {names + 24, 1, 4},
                    {names + 28, directory | (languages - types), 4},
                    {names + 32, 2, 4},
                    {languages + 12, 1, 2},
                    {languages + 14, in.size(), 2},
                    {languages + 16, 16, 4}});
        for (std::size_t i = 0; i < in.size(); ++i) {
            const std::size_t entry = languages + 24 + i * 8;
            const std::size_t place = data + i * 16;
            const std::size_t block = blocks + i * blockSize;
            putNumbers({{entry, in[i].first, 4},
                        {entry + 4, place - types, 4},
                        {place, block - types + (kind == FileKind::pe ? 0x2000 : 0), 4},
                        {block, blockSize, 2},
                        {block + 2, 52, 2},
                        {block + 40, 0xFEEF04BD, 4},
                        {block + 48, 0x00010002, 4},
                        {block + 52, 0x00030000U | in[i].second, 4}});
        }
    }

    const std::string& bytes() const { return m_bytes; }
    unsigned int addressWidth() const { return m_wide ? 8 : 4; }
    std::size_t elfSection(std::size_t index) const { return elfSections + index * (m_wide ? 64 : 40); }
    // The first byte behind all that a reader needs.
    std::size_t end() const { return m_bytes.size() - 36; }

    void put(std::size_t offset, std::uint64_t value, unsigned int width)
    {
        for (unsigned int i = 0; i < width; ++i) {
            m_bytes[offset + (m_swapped ? width - 1 - i : i)] = static_cast<char>(value >> (8 * i));
        }
    }

private:
    struct Number {
        std::size_t offset;
        std::uint64_t value;
        unsigned int width;
    };
    void putNumbers(std::initializer_list<Number> numbers)
    {
        for (const Number& number : numbers) {
            put(number.offset, number.value, number.width);
        }
    }
    void putText(std::size_t offset, std::string_view text) { m_bytes.replace(offset, text.size(), text); }

    void putPe()
    {
        putText(0, "MZ");
        putText(peSections, ".rsrcs");
        putText(peSections + 40, ".rsrc");
        putNumbers({{60, peHeader, 4},
                    {peHeader, 0x4550, 4},
                    {peHeader + 6, 2, 2},
                    {peHeader + 20, 8, 2},
                    {peSections + 52, 0x2000, 4},
                    {peSections + 60, types, 4}});
    }

    void putElf()
    {
        const unsigned int width = addressWidth();
        const std::size_t symbolSize = m_wide ? 24 : 16;
        putText(1, "ELF");
        putText(elfNames, {"\0.dynsym\0.dynstr\0.rodata", 25});
        putText(elfNames + 32, {"\0__rsrcs\0__rsrc", 16});
        putNumbers({{0, 0x7F, 1},
                    {4, m_wide ? 2U : 1U, 1},
                    {5, m_swapped ? 2U : 1U, 1},
                    {6, 1, 1},
                    {16, 3, 2},
                    {20, 1, 4},
                    {m_wide ? 40U : 32U, elfSections, width},
                    {m_wide ? 58U : 46U, m_wide ? 64U : 40U, 2},
                    {m_wide ? 60U : 48U, 5, 2},
                    {m_wide ? 62U : 50U, 1, 2}});
        // Name in the table of names, address, offset, size, size of an entry.
        const std::uint64_t sections[][5] = {{24, 0, elfNames, 32, 0},
                                             {1, 0, elfSymbols, 3 * symbolSize, symbolSize},
                                             {9, 0, elfNames + 32, 32, 0},
                                             {17, 0x9000, types - 32, 400, 0}};
        const std::size_t fields[][5] = {{0, 12, 16, 20, 36}, {0, 16, 24, 32, 56}};
        for (std::size_t i = 0; i < std::size(sections); ++i) {
            const std::size_t head = elfSection(i + 1);
            put(head + 4, 1, 4);
            for (std::size_t field = 0; field < std::size(fields[0]); ++field) {
                put(head + fields[m_wide ? 1 : 0][field], sections[i][field], field == 0 ? 4 : width);
            }
        }
        for (std::size_t i = 1; i <= 2; ++i) {
            const std::size_t symbol = elfSymbols + i * symbolSize;
            putNumbers({{symbol, i == 1 ? 1U : 9U, 4},
                        {symbol + (m_wide ? 6 : 14), 4, 2},
                        {symbol + (m_wide ? 8 : 4), 0x9000 + 32 * (i - 1), width}});
        }
    }

    bool m_swapped;
    bool m_wide;
    std::string m_bytes;
};
