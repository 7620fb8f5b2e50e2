#include "quotedText.h"

std::string quotedText(std::string_view text)
{
    constexpr std::string_view Digits = "0123456789abcdef";
    std::string quoted("\"");
    for (const char character : text) {
        const unsigned int byte = static_cast<unsigned char>(character);
        if (byte >= 0x20 && byte < 0x7F && character != '"' && character != '\\') {
            quoted.push_back(character);
        } else {
            quoted.append("\\x").append(1, Digits[byte >> 4]).append(1, Digits[byte & 0xF]);
        }
    }
    return quoted.append("\"");
}
