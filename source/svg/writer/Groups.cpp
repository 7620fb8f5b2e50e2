// Font, clip and transform groups.
//
// An end tag is anonymous and the writer keeps no stack, only whether a transform, a clip and a font group
// are open. In the usual order, font outermost and transform innermost, each operation closes what it means
// to close; otherwise the tags still balance, but a group can end sooner than its state says.
#include "surfaceSVG.h"

#include <algorithm>
#include <array>

#include "SvgChange.h"
#include "SvgDialect.h"
#include "pageText.h"
#include "undo.h"

using namespace drawing;
using namespace svg;

namespace {

// Rooms, terminator counted, that bound the text of extreme numbers.
constexpr int TransformRoom = 12;
constexpr int FontSizeRoom = 49;

FixedNumber transformNumber(float value)
{
    return FixedNumber{value, 2, TransformRoom};
}

// An apostrophe would end the attribute, so a face name loses its apostrophes.
void appendFaceName(TovoTextString& out, const char* faceName)
{
    std::string_view rest(faceName != nullptr ? faceName : "");
    while (!rest.empty()) {
        const std::size_t length = std::min(rest.find('\''), rest.size());
        appendPieces(out, rest.substr(0, length));
        rest.remove_prefix(std::min(length + 1, rest.size()));
    }
}

} // namespace

void CSurfaceSVG::writeEndGroup()
{
    appendPieces(m_body, GroupEnd, ">\n");
}

void CSurfaceSVG::setFont(CSurfaceFont* font)
{
    if (font == nullptr) {
        return;
    }
    const CSurfaceFont before = m_font;
    m_font = *font;
    doOrUndo(
        [&] {
            newFont(font->getFaceName(), font->getSize(), font->getBold(), font->getItalic(),
                    font->getStrikethru(), font->getUnderline());
        },
        [&] { m_font = before; });
}

void CSurfaceSVG::newFont(char* faceName, float size, bool bold, bool italic, bool strikethru, bool underline)
{
    writeFont(faceName, size, bold, italic, strikethru, underline);
}

void CSurfaceSVG::writeFont(char* faceName, float size, bool bold, bool italic, bool strikethru,
                            bool underline)
{
    Detail::Change change(*this);
    // A clip group is inside the font group and must not outlive it.
    const bool clipOpen = m_currentClip > 0;
    if (clipOpen) {
        writeEndGroup();
    }
    if (m_fontGroupOpen) {
        writeEndGroup();
    }
    TovoTextString element(TextRoom{200});
    appendPieces(element, GroupTag, FontFamilyKey);
    appendFaceName(element, faceName);
    appendPieces(element, "' ", FontSizeKey, FixedNumber{size, 2, FontSizeRoom}, "pt' ", FontStyleKey,
                 std::string_view(italic ? ItalicWord : "normal"), "' ", FontWeightKey,
                 std::string_view(bold ? BoldWord : "normal"), "'");
    if (underline || strikethru) {
        appendPieces(element, " ", TextDecorationKey, std::string_view(underline ? UnderlineWord : ""),
                     std::string_view(underline && strikethru ? " " : ""),
                     std::string_view(strikethru ? LineThroughWord : ""), "'");
    }
    appendPieces(element, ">\n");
    m_fontGroupOpen = true;
    m_body.append(element);
    if (clipOpen) {
        writeClippingRegion();
    }
    change.keep();
}

void CSurfaceSVG::setClippingRegion(RECT* rect)
{
    Detail::Change change(*this);
    if (m_currentClip > 0) {
        writeEndGroup();
    }
    m_currentClip = 0;
    if (rect != nullptr) {
        makeClipDef(rect);
        m_currentClip = m_clipCount;
        writeClippingRegion();
    }
    change.keep();
}

void CSurfaceSVG::writeClippingRegion()
{
    appendPieces(m_body, GroupTag, ClipPathKey, "url(", ClipReference, m_currentClip, ")'>\n");
}

void CSurfaceSVG::setTransform(float m11, float m12, float m21, float m22, float dx, float dy)
{
    Detail::Change change(*this);
    const std::array<float, 6> before = std::to_array(m_transform);
    if (m_hasTransform) {
        writeEndGroup();
    }
    CSurface::setTransform(m11, m12, m21, m22, dx, dy);
    doOrUndo([&] { writeTransform(); }, [&] { std::ranges::copy(before, m_transform); });
    change.keep();
}

void CSurfaceSVG::writeTransform()
{
    appendPieces(m_body, GroupTag, TransformWord, "='", MatrixWord, transformNumber(m_transform[0]), ",",
                 transformNumber(m_transform[1]), ",", transformNumber(m_transform[2]), ",",
                 transformNumber(m_transform[3]), ",", transformNumber(m_transform[4]), ",",
                 transformNumber(m_transform[5]), ")'>\n");
}

void CSurfaceSVG::clearTransform()
{
    if (m_hasTransform) {
        writeEndGroup();
    }
    m_hasTransform = false;
}
