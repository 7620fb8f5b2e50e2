#include "CodePageText.h"

#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <array>

#include "sys/krnos.h"

namespace wingdi {

namespace {

using CodePage = std::array<WCHAR, 256>;

// Taken from the platform's own conversion, so that there is one code page.
const CodePage Windows1252 = [] {
    CodePage page{};
    for (std::size_t byte = 1; byte < page.size(); ++byte) {
        const char source[] = {static_cast<char>(byte), 0};
        unsigned short target[2] = {};
        intlCStringToUnicode(source, target, 2);
        page[byte] = static_cast<WCHAR>(target[0]);
    }
    return page;
}();

void appendUtf8(std::string& text, unsigned int character)
{
    FcChar8 bytes[FC_UTF8_MAX_LEN];
    const int count = FcUcs4ToUtf8(character, bytes);
    text.append(bytes, bytes + count);
}

} // namespace

WCHAR wideCharacter(char character) noexcept
{
    return Windows1252[static_cast<unsigned char>(character)];
}

std::vector<WCHAR> wideText(const char* text, std::size_t length)
{
    std::vector<WCHAR> result(length);
    std::transform(text, text + length, result.begin(), wideCharacter);
    return result;
}

std::string codePageText(const std::string& utf8)
{
    std::string result;
    const auto* bytes = reinterpret_cast<const FcChar8*>(utf8.data());
    auto left = static_cast<int>(utf8.size());
    while (left > 0) {
        FcChar32 character = 0;
        const int used = FcUtf8ToUcs4(bytes, &character, left);
        if (used <= 0) {
            break;
        }
        const unsigned short source[] = {
            static_cast<unsigned short>(character <= 0xFFFF ? character : 0xFFFD), 0};
        char target[2] = {};
        intlUnicodeToCString(source, target, 2);
        result.push_back(target[0]);
        bytes += used;
        left -= used;
    }
    return result;
}

std::string utf8Text(const std::u16string& text)
{
    std::string result;
    for (const char16_t character : text) {
        // Halves of a pair don't occur in the names of faces, which is what this is for.
        appendUtf8(result, character >= 0xD800 && character <= 0xDFFF ? 0xFFFD : character);
    }
    return result;
}

} // namespace wingdi
