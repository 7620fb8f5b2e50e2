#include "xmlText.h"

#include <algorithm>
#include <array>
#include <climits>
#include <string_view>

#include "surface.h"

using namespace drawing;

namespace {

struct Entity {
    char character;
    std::string_view text;
};

constexpr Entity Entities[] = {
    {'&', "&amp;"}, {'"', "&quot;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'\'', "&apos;"},
};

// For each byte, the place of its entity in the table, counted from 1.
constexpr std::array<unsigned char, 256> EntityNumbers = [] {
    std::array<unsigned char, 256> numbers{};
    unsigned char number = 0;
    for (const Entity& entity : Entities) {
        numbers[static_cast<unsigned char>(entity.character)] = ++number;
    }
    return numbers;
}();

unsigned int entityNumber(char character)
{
    return EntityNumbers[static_cast<unsigned char>(character)];
}

const Entity* entityAt(std::string_view text)
{
    for (const Entity& entity : Entities) {
        if (text.starts_with(entity.text)) {
            return &entity;
        }
    }
    return nullptr;
}

void appendView(TovoTextString& out, std::string_view text)
{
    out.append(text.data(), static_cast<unsigned int>(text.size()));
}

} // namespace

void drawing::appendEscaped(TovoTextString& out, const char* text, unsigned int length)
{
    const std::string_view whole(text, length);
    std::string_view rest = whole.substr(0, whole.find('\0'));
    const std::string_view behindZero = whole.substr(rest.size());
    for (std::size_t plain = 0; !rest.empty(); rest.remove_prefix(plain)) {
        const auto* const special = std::find_if(rest.begin(), rest.end(), entityNumber);
        plain = static_cast<std::size_t>(special - rest.begin());
        appendView(out, rest.substr(0, plain));
        if (plain < rest.size()) {
            appendView(out, Entities[entityNumber(*special) - 1].text);
            ++plain;
        }
    }
    appendView(out, behindZero);
}

TovoTextString CSurface::toXML(TovoTextString text)
{
    constexpr unsigned int RoomForEntities = 100;
    TovoTextString escaped;
    escaped.reserve(text.length() < UINT_MAX - RoomForEntities ? text.length() + RoomForEntities
                                                               : text.length());
    appendEscaped(escaped, text.text(), text.length());
    return escaped;
}

TovoTextString CSurface::fromXML(TovoTextString text)
{
    const std::string_view whole(text.text(), text.length());
    std::string_view rest = whole.substr(0, whole.find('\0'));
    const std::string_view behindZero = whole.substr(rest.size());
    if (rest.find('&') == std::string_view::npos) {
        return text;
    }
    TovoTextString plain{TextRoom{text.length()}};
    while (!rest.empty()) {
        const std::size_t ampersand = std::min(rest.find('&'), rest.size());
        appendView(plain, rest.substr(0, ampersand));
        rest.remove_prefix(ampersand);
        if (const Entity* const entity = entityAt(rest)) {
            plain.append(&entity->character, 1);
            rest.remove_prefix(entity->text.size());
        } else if (!rest.empty()) {
            plain.append("&", 1);
            rest.remove_prefix(1);
        }
    }
    appendView(plain, behindZero);
    return plain;
}
