#include "utf8Text.h"

#include <algorithm>
#include <optional>

#include "sys/krnos.h"

namespace pagetool {

namespace {

constexpr char32_t NoCharacter = 0xFFFD;

bool isFollower(char character)
{
    return (static_cast<unsigned char>(character) & 0xC0) == 0x80;
}

// The length of the sequence at the front; 0 for none ([RFC 3629] 4).
std::size_t sequenceLength(std::string_view text)
{
    const auto first = static_cast<unsigned char>(text[0]);
    if (first < 0x80) {
        return 1;
    }
    const std::size_t length = first >= 0xC2 && first < 0xE0 ? 2 : first < 0xE0 ? 0 : first < 0xF0 ? 3 : 4;
    if (length == 0 || first > 0xF4 || text.size() < length ||
        !std::all_of(text.begin() + 1, text.begin() + static_cast<std::ptrdiff_t>(length), isFollower)) {
        return 0;
    }
    const auto second = static_cast<unsigned char>(text[1]);
    const bool overlong = (first == 0xE0 && second < 0xA0) || (first == 0xF0 && second < 0x90);
    const bool surrogate = first == 0xED && second > 0x9F;
    const bool tooHigh = first == 0xF4 && second > 0x8F;
    return overlong || surrogate || tooHigh ? 0 : length;
}

bool isUtf8(std::string_view text)
{
    while (!text.empty()) {
        const std::size_t length = sequenceLength(text);
        if (length == 0) {
            return false;
        }
        text.remove_prefix(length);
    }
    return true;
}

char32_t ofCodePage(char character)
{
    const char text[2] = {character, '\0'};
    unsigned short wide[2] = {};
    intlCStringToUnicode(text, wide, 2);
    return wide[0];
}

// The byte that stands for the character of this sequence; nothing when none does.
std::optional<char> inCodePage(std::string_view sequence)
{
    for (int byte = 0; byte < 256; ++byte) {
        std::string there;
        appendUtf8(there, ofCodePage(static_cast<char>(byte)));
        if (there == sequence) {
            return static_cast<char>(byte);
        }
    }
    return std::nullopt;
}

} // namespace

void appendUtf8(std::string& text, char32_t character)
{
    if (character > 0x10FFFF || (character >= 0xD800 && character <= 0xDFFF)) {
        character = NoCharacter;
    }
    const auto append = [&text](char32_t bits) {
        text.push_back(static_cast<char>(bits));
    };
    const auto follow = [&](int shift) {
        append(0x80 | (character >> shift & 0x3F));
    };
    if (character < 0x80) {
        append(character);
    } else if (character < 0x800) {
        append(0xC0 | character >> 6);
        follow(0);
    } else if (character < 0x10000) {
        append(0xE0 | character >> 12);
        follow(6);
        follow(0);
    } else {
        append(0xF0 | character >> 18);
        follow(12);
        follow(6);
        follow(0);
    }
}

std::string utf8Of(std::u16string_view text)
{
    std::string converted;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char32_t unit = text[i];
        const bool pair = unit >= 0xD800 && unit < 0xDC00 && i + 1 < text.size() && text[i + 1] >= 0xDC00 &&
                          text[i + 1] < 0xE000;
        appendUtf8(converted, pair ? 0x10000 + ((unit - 0xD800) << 10) + (text[i + 1] - 0xDC00U) : unit);
        i += pair ? 1 : 0;
    }
    return converted;
}

std::string utf8Of(std::string_view text)
{
    if (isUtf8(text)) {
        return std::string(text);
    }
    std::string converted;
    for (const char character : text) {
        appendUtf8(converted, ofCodePage(character));
    }
    return converted;
}

std::string utf8Line(std::string_view text)
{
    std::string line = utf8Of(text);
    std::replace_if(
        line.begin(), line.end(),
        [](char character) { return static_cast<unsigned char>(character) < ' ' || character == '\x7F'; },
        ' ');
    return line;
}

std::vector<std::string> spellingsOf(const std::string& text)
{
    if (!isUtf8(text)) {
        return {text, utf8Of(text)};
    }
    std::string bytes;
    for (std::string_view rest = text; !rest.empty();) {
        const std::string_view sequence = rest.substr(0, sequenceLength(rest));
        const std::optional<char> byte = inCodePage(sequence);
        if (!byte) {
            return {text};
        }
        bytes.push_back(*byte);
        rest.remove_prefix(sequence.size());
    }
    return bytes == text ? std::vector{text} : std::vector{text, bytes};
}

std::string excerpt(std::string_view text, std::size_t start)
{
    constexpr std::size_t Around = 60; // bytes
    constexpr std::string_view More = "...";
    std::size_t begin = start > Around ? start - Around : 0;
    std::size_t end = std::min(text.size(), start + Around);
    while (begin > 0 && begin < start && isFollower(text[begin])) {
        ++begin;
    }
    while (end < text.size() && isFollower(text[end])) {
        ++end;
    }
    std::string line(begin > 0 ? More : "");
    line += utf8Line(text.substr(begin, end - begin));
    line += end < text.size() ? More : "";
    return line;
}

} // namespace pagetool
