// Files with a version resource, built byte by byte: the least that a PE or an ELF file needs to carry one.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

enum class FileKind { pe, elf32, elf32Swapped, elf64, elf64Swapped };

// Ids of languages with the fourth number of the version, whose others are 1.2.3.
using Languages = std::vector<std::pair<std::uint32_t, std::uint16_t>>;

class VersionFile {
public:
    // Where the parts are. After the head of a directory come one named entry and its ids: 3, 16 and 24 in the
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
        // The named one has the number of the type, and no directory after it.
        put(types + 12, 2, {1, 3});
        put(types + 16, 4, {16, 0, 3, 0, 16, directory | (names - types), 24, 0});
        put(names + 12, 2, {1, 2});
        put(names + 16, 4, {16, 0, 1, directory | (languages - types), 2, 0});
        put(languages + 12, 2, {1, in.size()});
        put(languages + 16, 4, {16, 0});
        for (std::size_t i = 0; i < in.size(); ++i) {
            const std::size_t block = blocks + i * blockSize;
            put(languages + 24 + i * 8, 4, {in[i].first, data - types + i * 16});
            put(data + i * 16, 4, {block - types + (kind == FileKind::pe ? 0x2000 : 0)});
            put(block, 2, {blockSize, 52});
            put(block + 40, 4, {0xFEEF04BD, 0, 0x00010002, 0x00030000U | in[i].second});
        }
    }

    const std::string& bytes() const { return m_bytes; }
    unsigned int addressWidth() const { return m_wide ? 8 : 4; }
    std::size_t elfSection(std::size_t index) const { return elfSections + index * (m_wide ? 64 : 40); }
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
        putText(peSections, ".rsrcs");
        putText(peSections + 40, ".rsrc");
        put(60, 4, {peHeader, 0x4550});
        put(peHeader + 6, 2, {2});
        put(peHeader + 20, 2, {8});
        put(peSections + 52, 4, {0x2000, 0, types});
    }

    void putElf()
    {
        const unsigned int width = addressWidth();
        const std::size_t symbolSize = m_wide ? 24 : 16;
        putText(1, "ELF");
        putText(elfNames, {"\0.dynsym\0.dynstr\0.rodata\0", 25});
        putText(elfNames + 32, {"\0__rsrcs\0__rsrc\0", 16});
        put(0, 1, {0x7F});
        put(4, 1, {m_wide ? 2U : 1U, m_swapped ? 2U : 1U, 1});
        put(16, 2, {3});
        put(20, 4, {1});
        put(m_wide ? 40 : 32, width, {elfSections});
        put(m_wide ? 58 : 46, 2, {m_wide ? 64U : 40U, 5, 1});
        putSection(1, 24, {0, elfNames, 32}, 0);
        putSection(2, 1, {0, elfSymbols, 3 * symbolSize}, symbolSize);
        putSection(3, 9, {0, elfNames + 32, 32}, 0);
        putSection(4, 17, {0x9000, types - 32, 400}, 0);
        for (std::size_t i = 1; i <= 2; ++i) {
            const std::size_t symbol = elfSymbols + i * symbolSize;
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
