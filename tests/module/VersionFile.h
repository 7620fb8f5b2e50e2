// Files with a version resource, built byte by byte: the least that a PE or an ELF file needs to carry one.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

enum class FileKind { pe, elf32, elf32Swapped, elf64, elf64Swapped };

// Ids of languages with the fourth number of the version, whose others are 1.2.3.
using Languages = std::vector<std::pair<std::uint32_t, std::uint16_t>>;

class VersionFile {
public:
    // Where the parts stand. Behind the head of a directory come one named entry and its ids: 3, 16 and 24 in the first,
    // 1 and 2 in the second, the languages in the third.
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

    explicit VersionFile(FileKind kind, const Languages& in = {{1033, 4}})
        : m_swapped(kind == FileKind::elf32Swapped || kind == FileKind::elf64Swapped),
          m_wide(kind == FileKind::elf64 || kind == FileKind::elf64Swapped), m_pe(kind == FileKind::pe)
    {
        putText(0, m_pe ? "MZ"
                        : "\x7F"
                          "ELF");
        m_pe ? putPe() : putElf();
        putTree(in);
    }

    const std::string& bytes() const { return m_bytes; }
    bool isPe() const { return m_pe; }
    bool isWide() const { return m_wide; }
    // The head of an ELF section, and of a PE one.
    std::size_t section(std::size_t index) const
    {
        return m_pe ? peSections + index * 40 : elfSections + index * (m_wide ? 64 : 40);
    }
    // The first byte behind all that a reader needs.
    std::size_t end() const { return m_bytes.size() - 36; }

    void put(std::size_t offset, std::uint64_t value, unsigned int width)
    {
        m_bytes.resize(std::max(m_bytes.size(), offset + width));
        for (unsigned int i = 0; i < width; ++i) {
            m_bytes[offset + (m_swapped ? width - 1 - i : i)] = static_cast<char>(value >> (8 * i));
        }
    }
    void putText(std::size_t offset, const std::string& text)
    {
        m_bytes.resize(std::max(m_bytes.size(), offset + text.size()));
        m_bytes.replace(offset, text.size(), text);
    }

private:
    void putPe()
    {
        put(60, peHeader, 4);
        put(peHeader, 0x4550, 4);
        put(peHeader + 6, 2, 2);
        put(peHeader + 20, 8, 2);
        putText(section(0), ".rsrcs");
        putText(section(1), std::string(".rsrc\0\0", 8));
        put(section(1) + 12, 0x2000, 4);
        put(section(1) + 20, types, 4);
    }

    void putElf()
    {
        const unsigned int width = m_wide ? 8 : 4;
        putText(4, {static_cast<char>(m_wide ? 2 : 1), static_cast<char>(m_swapped ? 2 : 1), '\1'});
        put(16, 3, 2);
        put(20, 1, 4);
        put(m_wide ? 40 : 32, elfSections, width);
        put(m_wide ? 58 : 46, m_wide ? 64 : 40, 2);
        put(m_wide ? 60 : 48, 5, 2);
        put(m_wide ? 62 : 50, 1, 2);
        // Name in the table of names, address, offset, size, size of an entry.
        const std::uint64_t sections[][5] = {
            {1, 0, elfNames, 32, 0},
            {1, 0, elfSymbols, m_wide ? 72U : 48U, m_wide ? 24U : 16U},
            {9, 0, elfNames + 32, 32, 0},
            {17, 0x9000, types - 32, 400, 0},
        };
        for (std::size_t i = 0; i < std::size(sections); ++i) {
            const std::size_t head = section(i + 1);
            put(head, sections[i][0], 4);
            put(head + 4, 1, 4);
            const std::size_t fields[] = {m_wide ? 16U : 12U, m_wide ? 24U : 16U, m_wide ? 32U : 20U,
                                          m_wide ? 56U : 36U};
            for (std::size_t field = 0; field < std::size(fields); ++field) {
                put(head + fields[field], sections[i][field + 1], width);
            }
        }
        putText(section(1), std::string(4, '\0'));
        putText(elfNames, std::string("\0.dynsym\0.dynstr\0.rodata", 25));
        putText(elfNames + 32, std::string("\0__rsrcs\0__rsrc", 16));
        const std::size_t symbolSize = m_wide ? 24 : 16;
        for (std::size_t i = 1; i <= 2; ++i) {
            const std::size_t symbol = elfSymbols + i * symbolSize;
            put(symbol, i == 1 ? 1 : 9, 4);
            put(symbol + (m_wide ? 6 : 14), 4, 2);
            put(symbol + (m_wide ? 8 : 4), 0x9000 + 32 * (i - 1), width);
        }
    }

    void putDirectory(std::size_t place, const std::vector<std::pair<std::uint32_t, std::uint64_t>>& ids)
    {
        put(place + 12, 1, 2);
        put(place + 14, ids.size(), 2);
        put(place + 16, 16, 4); // the named one, with the number of the type and no directory behind it
        for (std::size_t i = 0; i < ids.size(); ++i) {
            put(place + 24 + i * 8, ids[i].first, 4);
            put(place + 28 + i * 8, ids[i].second, 4);
        }
    }

    void putTree(const Languages& in)
    {
        constexpr std::uint64_t isDirectory = 0x80000000;
        putDirectory(types, {{3, 0}, {16, isDirectory | (names - types)}, {24, 0}});
        putDirectory(names, {{1, isDirectory | (languages - types)}, {2, 0}});
        std::vector<std::pair<std::uint32_t, std::uint64_t>> entries;
        for (std::size_t i = 0; i < in.size(); ++i) {
            entries.emplace_back(in[i].first, data - types + i * 16);
            const std::size_t block = blocks + i * blockSize;
            put(data + i * 16, block - types + (m_pe ? 0x2000 : 0), 4);
            put(block, blockSize, 2);
            put(block + 2, 52, 2);
            put(block + 40, 0xFEEF04BD, 4);
            put(block + 48, 0x00010002, 4);
            put(block + 52, 0x00030000U | in[i].second, 4);
            put(block + 88, 0, 4);
        }
        putDirectory(languages, entries);
    }

    bool m_swapped;
    bool m_wide;
    bool m_pe;
    std::string m_bytes;
};
