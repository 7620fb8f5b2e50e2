#include "Letters.h"

#include <utility>

#include "LineOfText.h"
#include "RealizedFont.h"

namespace wingdi {

namespace {

constexpr char32_t NoCharacter = 0xFFFD;

bool isHighHalf(WCHAR unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}
bool isLowHalf(WCHAR unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}

// Others can't be in a text.
char32_t allowed(char32_t character)
{
    const bool isHalf = character >= 0xD800 && character < 0xE000;
    const bool isNone = (character >= 0xFDD0 && character < 0xFDF0) || (character & 0xFFFE) == 0xFFFE;
    const bool isControl = character < ' ' || (character >= 0x7F && character < 0xA0);
    return isHalf || isNone || isControl ? NoCharacter : character;
}

char32_t pairOf(WCHAR high, WCHAR low)
{
    return 0x10000 + ((char32_t{high} - 0xD800) << 10) + (low - 0xDC00U);
}

// Takes the characters of a text one unit after the other.
class Characters {
public:
    std::optional<char32_t> take(WCHAR unit, WCHAR next)
    {
        if (std::exchange(m_isSecondHalf, false)) {
            return std::nullopt;
        }
        m_isSecondHalf = isHighHalf(unit) && isLowHalf(next);
        return allowed(m_isSecondHalf ? pairOf(unit, next) : char32_t{unit});
    }

private:
    bool m_isSecondHalf = false;
};

} // namespace

std::vector<PlacedLetter> placedLetters(const TextOutput& output)
{
    const TextFrame& frame = output.frame;
    const LineSpace space = spaceOf(output);
    const Mapping back =
        Mapping{frame.glyphRight.x, frame.glyphRight.y, frame.glyphDown.x, frame.glyphDown.y, 0, 0}.inverse();
    const bool indices = (output.options & ETO_GLYPH_INDEX) != 0;
    const RealizedFont& font = *output.font;
    std::vector<PlacedLetter> letters;
    letters.reserve(output.text.size());
    Characters characters;
    double along = 0;
    for (std::size_t i = 0; i < output.text.size(); ++i) {
        const DevicePoint point = space.at(along, 0);
        const DevicePoint place = back.apply(point.x - space.x, point.y - space.y);
        const WCHAR unit = output.text[i];
        const WCHAR next = i + 1 < output.text.size() ? output.text[i + 1] : WCHAR{0};
        letters.push_back({indices ? unit : font.glyph(unit),
                           indices ? allowed(font.characterOf(unit)) : characters.take(unit, next), place.x,
                           place.y});
        along += i < output.deviceAdvances.size() ? output.deviceAdvances[i] : 0;
    }
    return letters;
}

void appendUtf8(std::string& text, char32_t character)
{
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

std::string utf8Of(const WCHAR* text, std::size_t length)
{
    std::string converted;
    Characters characters;
    for (std::size_t i = 0; i < length; ++i) {
        if (const auto character = characters.take(text[i], i + 1 < length ? text[i + 1] : WCHAR{0})) {
            appendUtf8(converted, *character);
        }
    }
    return converted;
}

} // namespace wingdi
