// A PNG file (RFC 2083) of one IDAT chunk. Rows are written as their difference to the row above, so that what repeats
// along either axis becomes runs; those are the only matches of the compressed form (RFC 1950, RFC 1951).
#include "PngFile.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstdio>
#include <new>
#include <string>
#include <string_view>

namespace {

using namespace std::string_view_literals;

constexpr std::size_t BytesPerPixel = 3;
constexpr std::size_t BytesPerSourcePixel = 4;

constexpr std::array<std::uint32_t, 256> CrcTable = [] {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t i = 0; i < table.size(); ++i) {
        std::uint32_t value = i;
        for (int bit = 0; bit < 8; ++bit) {
            value = (value & 1U) != 0 ? 0xEDB88320U ^ value >> 1U : value >> 1U;
        }
        table[i] = value;
    }
    return table;
}();

void appendNumber(std::string& text, std::uint32_t value)
{
    for (unsigned int shift = 32; shift != 0; shift -= 8) {
        text += static_cast<char>(value >> (shift - 8));
    }
}

void appendChunk(std::string& file, std::string_view type, std::string_view data)
{
    appendNumber(file, static_cast<std::uint32_t>(data.size()));
    const std::size_t start = file.size();
    file.append(type).append(data);
    std::uint32_t crc = 0xFFFFFFFFU;
    for (const char c : std::string_view(file).substr(start)) {
        crc = CrcTable[(crc ^ static_cast<unsigned char>(c)) & 0xFFU] ^ crc >> 8U;
    }
    appendNumber(file, ~crc);
}

// One block with the fixed codes (RFC 1951, 3.2.6).
class Compressor {
public:
    Compressor()
    {
        put(1, 1); // the last block
        put(1, 2); // fixed codes
    }

    void literal(unsigned char value)
    {
        if (value < 144) {
            putCode(0x30U + value, 8);
        } else {
            putCode(0x190U + value - 144U, 9);
        }
    }

    // The `length` bytes, 3 to 258, that are one pixel back.
    void repeatPixels(unsigned int length)
    {
        const unsigned int steps = length - ShortestMatch;
        const unsigned int extraBits =
            steps < 8 || length == LongestMatch ? 0 : static_cast<unsigned int>(std::bit_width(steps)) - 3;
        const unsigned int symbol = length == LongestMatch ? 285 : 257 + 4 * extraBits + (steps >> extraBits);
        putSymbolAboveLiterals(symbol);
        put(steps & ((1U << extraBits) - 1), extraBits);
        putCode(BytesPerPixel - 1, 5);
    }

    std::string take()
    {
        putSymbolAboveLiterals(256);
        put(0, 7); // the last bits of a byte
        return std::move(m_bytes);
    }

    static constexpr unsigned int ShortestMatch = 3;
    static constexpr unsigned int LongestMatch = 258;

private:
    void putSymbolAboveLiterals(unsigned int symbol)
    {
        if (symbol < 280) {
            putCode(symbol - 256, 7);
        } else {
            putCode(0xC0U + symbol - 280, 8);
        }
    }

    // Codes go from their highest bit, all else from its lowest.
    void putCode(unsigned int code, unsigned int bits)
    {
        while (bits != 0) {
            put(code >> --bits & 1U, 1);
        }
    }

    void put(unsigned int value, unsigned int bits)
    {
        m_pending |= value << m_pendingBits;
        m_pendingBits += bits;
        for (; m_pendingBits >= 8; m_pendingBits -= 8) {
            m_bytes += static_cast<char>(m_pending);
            m_pending >>= 8U;
        }
    }

    std::string m_bytes;
    unsigned int m_pending = 0;
    unsigned int m_pendingBits = 0;
};

// The rows as PNG filters them, each after the number of its filter.
std::string filteredRows(const unsigned char* bits, std::size_t stride, std::size_t width, std::size_t height)
{
    constexpr char DifferenceToAbove = 2;
    std::string rows;
    rows.reserve((width * BytesPerPixel + 1) * height);
    for (std::size_t y = 0; y < height; ++y) {
        rows += DifferenceToAbove;
        const unsigned char* const row = bits + y * stride;
        for (std::size_t x = 0; x < width * BytesPerSourcePixel; x += BytesPerSourcePixel) {
            for (std::size_t channel = BytesPerPixel; channel != 0; --channel) {
                const std::size_t at = x + channel - 1;
                rows += static_cast<char>(row[at] - (y != 0 ? *(row + at - stride) : 0));
            }
        }
    }
    return rows;
}

std::string compressed(const std::string& data)
{
    Compressor compressor;
    std::uint32_t sum = 1;
    std::uint32_t sumOfSums = 0;
    for (const char c : data) {
        sum = (sum + static_cast<unsigned char>(c)) % 65521;
        sumOfSums = (sumOfSums + sum) % 65521;
    }
    for (std::size_t at = 0; at < data.size();) {
        std::size_t length = 0;
        const std::size_t most = std::min<std::size_t>(data.size() - at, Compressor::LongestMatch);
        while (at >= BytesPerPixel && length < most &&
               data[at + length] == data[at + length - BytesPerPixel]) {
            ++length;
        }
        if (length >= Compressor::ShortestMatch) {
            compressor.repeatPixels(static_cast<unsigned int>(length));
            at += length;
        } else {
            compressor.literal(static_cast<unsigned char>(data[at]));
            ++at;
        }
    }
    std::string stream = "\x78\x01" + compressor.take();
    appendNumber(stream, sumOfSums << 16U | sum);
    return stream;
}

std::string pngOf(const unsigned char* bits, std::size_t stride, int width, int height)
{
    std::string head;
    appendNumber(head, static_cast<std::uint32_t>(width));
    appendNumber(head, static_cast<std::uint32_t>(height));
    head.append("\x08\x02\0\0\0"sv); // 8 bits of red, green and blue
    std::string file("\x89PNG\r\n\x1A\n");
    appendChunk(file, "IHDR", head);
    appendChunk(file, "IDAT",
                compressed(filteredRows(bits, stride, static_cast<std::size_t>(width),
                                        static_cast<std::size_t>(height))));
    appendChunk(file, "IEND", {});
    return file;
}

} // namespace

bool device::writePng(const char* path, const unsigned char* bits, std::size_t stride, int width,
                      int height) noexcept
{
    try {
        const std::string bytes = pngOf(bits, stride, width, height);
        std::FILE* const file = std::fopen(path, "wb");
        if (file == nullptr) {
            return false;
        }
        const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
        if (std::fclose(file) == 0 && written) {
            return true;
        }
        std::remove(path);
    } catch (const std::bad_alloc&) {
    }
    return false;
}
