// SvgPage: text that stays text, with a place for each character.
#include <algorithm>
#include <string>

#include "Letters.h"
#include "LineOfText.h"
#include "RealizedFont.h"
#include "SvgPage.h"
#include "svgNotation.h"

namespace wingdi {

namespace {

std::string escaped(const std::string& text)
{
    std::string result;
    for (const char character : text) {
        switch (character) {
        case '&':
            result += "&amp;";
            break;
        case '<':
            result += "&lt;";
            break;
        case '>':
            result += "&gt;";
            break;
        case '"':
            result += "&quot;";
            break;
        default:
            result.push_back(character);
        }
    }
    return result;
}

// A name in a list of faces; quotes end it.
std::string quoted(std::string name)
{
    std::erase_if(name, [](char character) { return character == '\'' || character == '\\'; });
    return std::string("'").append(escaped(name)).append("'");
}

// The face that was asked for, the one that stands for it here, and what comes near.
std::string facesOf(const RealizedFont& font)
{
    const LOGFONTW& description = font.description();
    const WCHAR* const end = std::find(description.lfFaceName, std::end(description.lfFaceName), WCHAR{0});
    const std::string asked =
        utf8Of(description.lfFaceName, static_cast<std::size_t>(end - description.lfFaceName));
    const bool isFixed = (description.lfPitchAndFamily & 3) == FIXED_PITCH;
    const bool isRoman = (description.lfPitchAndFamily & 0xF0) == FF_ROMAN;
    std::string faces = asked.empty() ? "" : quoted(asked) + ",";
    if (const std::string found = font.family(); !found.empty() && found != asked) {
        faces += quoted(found) + ",";
    }
    return faces + (isFixed ? "monospace" : isRoman ? "serif" : "sans-serif");
}

bool isOnLine(const PlacedLetter& letter)
{
    return svgNumber(letter.y) == "0";
}

// Each word by itself, with a place for each of its characters: some viewers take the first place alone. Letters that are
// turned against their line are pieces of their own.
void appendPieces(std::string& bytes, const std::vector<PlacedLetter>& letters, double stretch)
{
    const bool isLine = std::ranges::all_of(letters, isOnLine);
    for (std::size_t i = 0, end = 0; i < letters.size(); i = end) {
        std::string text;
        std::string places;
        for (end = i; end < letters.size(); ++end) {
            const PlacedLetter& letter = letters[end];
            const bool beginsWord =
                end > i && letter.character && *letter.character != ' ' && letters[end - 1].character == U' ';
            if (end > i && letter.character && (beginsWord || !isLine)) {
                break;
            }
            if (letter.character) {
                appendUtf8(text, *letter.character);
                places.append(places.empty() ? "" : " ").append(svgNumber(letter.x / stretch));
            }
        }
        bytes.append("<tspan x=\"").append(places).append("\" y=\"").append(svgNumber(letters[i].y));
        bytes.append("\">").append(escaped(text)).append("</tspan>");
    }
}

} // namespace

void SvgPage::text(const TextOutput& output, COLORREF color)
{
    const RealizedFont& font = *output.font;
    const LineSpace space = spaceOf(output);
    const double stretch = font.emHeight() > 0 ? font.emWidth() / font.emHeight() : 1;
    const std::vector<PlacedLetter> letters = placedLetters(output);
    if (letters.empty() || !(stretch > 0)) {
        return;
    }
    const TextFrame& frame = output.frame;
    const Mapping toPage{frame.glyphRight.x * stretch,
                         frame.glyphRight.y * stretch,
                         frame.glyphDown.x,
                         frame.glyphDown.y,
                         space.x,
                         space.y};
    constexpr LONG Bold = 600;
    const LOGFONTW& description = font.description();
    m_bytes.append("<text transform=\"").append(svgMatrix(toPage)).append("\"");
    m_bytes += " font-family=\"" + facesOf(font) + "\" font-size=\"" + std::to_string(font.emHeight()) + "\"";
    m_bytes += description.lfWeight >= Bold ? " font-weight=\"bold\"" : "";
    m_bytes += description.lfItalic != 0 ? " font-style=\"italic\"" : "";
    m_bytes +=
        " fill=\"" + svgColor(color) +
        "\" xml:space=\"preserve\" style=\"white-space:pre;font-kerning:none;font-variant-ligatures:none\">";
    appendPieces(m_bytes, letters, stretch);
    m_bytes += "</text>\n";
}

} // namespace wingdi
