#include "PostScriptSamples.h"

#include <array>
#include <cstring>

namespace postscript {

namespace {

constexpr std::size_t BytesOnALine = 150;
constexpr unsigned char EndOfStream = 128; // of run lengths

struct DigitPair {
    char digits[2];
};

constexpr std::array<DigitPair, 256> DigitPairs = [] {
    constexpr char Digits[] = "0123456789abcdef";
    std::array<DigitPair, 256> pairs{};
    for (std::size_t byte = 0; byte < pairs.size(); ++byte) {
        pairs[byte] = {{Digits[byte >> 4U], Digits[byte & 0xFU]}};
    }
    return pairs;
}();

unsigned char byteAt(std::string_view bytes, std::size_t index)
{
    return static_cast<unsigned char>(bytes[index]);
}

unsigned int valueOf(char digit)
{
    return static_cast<unsigned int>(digit <= '9' ? digit - '0' : digit - 'a' + 10);
}

} // namespace

void appendHexadecimal(TovoTextString& out, std::string_view bytes)
{
    const unsigned int length = lengthIn32Bits(std::uint64_t{bytes.size()} * 2 + bytes.size() / BytesOnALine);
    char* at = out.room(length);
    while (!bytes.empty()) {
        const std::string_view line = bytes.substr(0, BytesOnALine);
        for (const char value : line) {
            std::memcpy(at, DigitPairs[static_cast<unsigned char>(value)].digits, 2);
            at += 2;
        }
        if (line.size() == BytesOnALine) {
            *at++ = '\n';
        }
        bytes.remove_prefix(line.size());
    }
    out.grow(length);
}

void decodeHexadecimal(TovoBinaryString& out, std::string_view text)
{
    out.setLength(lengthIn32Bits(text.size() / 2));
    char* at = out.data();
    while (text.size() > 1) {
        const std::size_t step = text.front() == '\n' ? 1 : 2;
        if (step == 2) {
            *at++ = static_cast<char>(valueOf(text[0]) << 4U | valueOf(text[1]));
        }
        text.remove_prefix(step);
    }
    out.setLength(static_cast<unsigned int>(at - out.data()));
}

void decodeRunLengths(TovoBinaryString& out, std::string_view stream)
{
    out.empty();
    while (stream.size() > 1 && byteAt(stream, 0) != EndOfStream) {
        const unsigned char head = byteAt(stream, 0);
        if (head > EndOfStream) {
            const unsigned int before = out.length();
            const unsigned int count = 257U - head;
            out.setLength(lengthIn32Bits(std::uint64_t{before} + count));
            std::memset(out.data() + before, byteAt(stream, 1), count);
            stream.remove_prefix(2);
        } else {
            const std::string_view literal = stream.substr(1, head + 1U);
            out.append(literal.data(), static_cast<unsigned int>(literal.size()));
            stream.remove_prefix(1 + literal.size());
        }
    }
}

} // namespace postscript
