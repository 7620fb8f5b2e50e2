// Base64 (RFC 4648, section 4): images on their way into a page and out of it.
//
// Called by the back end that writes pages and by the player that reads them. Texts come from strangers.
#include "sys/errorNumbers.h"
#include "sys/krnutil.h"

#include <array>
#include <climits>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace {

constexpr char Alphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

// What a character stands for: its six bits, or one of these, which have bits above them.
constexpr unsigned char Blank = 0x40;
constexpr unsigned char Padding = 0x41;
constexpr unsigned char Foreign = 0x80;
constexpr unsigned char NoSextet = 0xC0;

constexpr std::array<unsigned char, 256> Meanings = [] {
    std::array<unsigned char, 256> table{};
    table.fill(Foreign);
    for (unsigned char sextet = 0; sextet < 64; ++sextet) {
        table[static_cast<unsigned char>(Alphabet[sextet])] = sextet;
    }
    for (const char character : {' ', '\t', '\n', '\v', '\f', '\r'}) {
        table[static_cast<unsigned char>(character)] = Blank;
    }
    table['='] = Padding;
    return table;
}();

// Writes `count` characters, 2 to 4, of a group of three bytes and pads them to four.
char* putGroup(char* out, std::uint32_t group, int count) noexcept
{
    for (int position = 0; position < 4; ++position) {
        out[position] = position < count ? Alphabet[(group >> (18 - 6 * position)) & 63] : '=';
    }
    return out + 4;
}

void encode(const unsigned char* data, std::size_t size, char* out) noexcept
{
    const unsigned char* const wholeGroupsEnd = data + size / 3 * 3;
    while (data != wholeGroupsEnd) {
        const std::uint32_t group = std::uint32_t{data[0]} << 16 | std::uint32_t{data[1]} << 8 | data[2];
        out = putGroup(out, group, 4);
        data += 3;
    }
    if (size % 3 == 1) {
        out = putGroup(out, std::uint32_t{data[0]} << 16, 2);
    } else if (size % 3 == 2) {
        out = putGroup(out, std::uint32_t{data[0]} << 16 | std::uint32_t{data[1]} << 8, 3);
    }
    *out = '\0';
}

struct Decoder {
    const unsigned char* in;
    const unsigned char* end;
    unsigned char* out;

    // Groups of four characters with nothing in between, as most of any text is.
    void decodeWholeGroups() noexcept
    {
        while (end - in >= 4) {
            const std::uint32_t a = Meanings[in[0]];
            const std::uint32_t b = Meanings[in[1]];
            const std::uint32_t c = Meanings[in[2]];
            const std::uint32_t d = Meanings[in[3]];
            if (((a | b | c | d) & NoSextet) != 0) {
                return;
            }
            put(a << 18 | b << 12 | c << 6 | d, 3);
            in += 4;
        }
    }

    // False when the data ended in a way that it should not.
    bool decodeAll() noexcept
    {
        std::uint32_t group = 0;
        int filled = 0;
        unsigned char meaning = Blank;
        while (meaning <= Blank) {
            if (filled == 0) {
                decodeWholeGroups();
            }
            if (in == end) {
                break;
            }
            meaning = Meanings[*in++];
            if (meaning < Blank) {
                group = group << 6 | meaning;
                if (++filled == 4) {
                    put(group, 3);
                    group = 0;
                    filled = 0;
                }
            }
        }
        if (filled > 1) {
            put(group << 6 * (4 - filled), filled - 1);
        }
        return meaning != Foreign && filled != 1;
    }

private:
    void put(std::uint32_t group, int count) noexcept
    {
        for (int position = 0; position < count; ++position) {
            *out++ = static_cast<unsigned char>(group >> (16 - 8 * position));
        }
    }
};

} // namespace

int base64Encode(unsigned char* data, unsigned int size, char*& text, int& length, bool)
{
    text = nullptr;
    length = 0;
    const std::uint64_t needed = (std::uint64_t{size} + 2) / 3 * 4;
    if (needed > INT_MAX || (data == nullptr && size != 0)) {
        return krnError::NoMemory;
    }
    text = static_cast<char*>(std::malloc(static_cast<std::size_t>(needed) + 1));
    if (text == nullptr) {
        return krnError::NoMemory;
    }
    encode(data, size, text);
    length = static_cast<int>(needed);
    return 0;
}

int base64Decode(char* text, unsigned char*& data, int& size)
{
    data = nullptr;
    size = 0;
    const std::size_t length = text != nullptr ? std::strlen(text) : 0;
    if (length == 0) {
        return 0;
    }
    const std::uint64_t capacity = std::uint64_t{length} / 4 * 3 + 3;
    auto* const block = capacity <= INT_MAX
                            ? static_cast<unsigned char*>(std::malloc(static_cast<std::size_t>(capacity)))
                            : nullptr;
    if (block == nullptr) {
        return krnError::NoMemory;
    }
    const auto* const in = reinterpret_cast<const unsigned char*>(text);
    Decoder decoder{in, in + length, block};
    const bool wellFormed = decoder.decodeAll();
    if (decoder.out == block) {
        std::free(block);
    } else {
        data = block;
        size = static_cast<int>(decoder.out - block);
    }
    return wellFormed ? 0 : krnError::NotConverted;
}

void base64Free(char* text)
{
    std::free(text);
}

void base64Free(unsigned char* data)
{
    std::free(data);
}
