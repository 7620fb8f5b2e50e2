// Groups: state of the surface that stays in force for the elements after their start tag.
//
// There is no stack. A group's end tag does not know which start it belongs to: it ends a transform when one
// is in force, else a clip, else nothing.
#include "metaFilePlayerSVG.h"

#include "PageCursor.h"
#include "SvgDialect.h"
#include "SvgPlayerDetail.h"
#include "WalkMemory.h"
#include "surface.h"
#include "wrappingInt.h"

using namespace drawing;
using namespace svg;

namespace {

// A number has to begin with a digit, a point or a sign, after blanks.
bool beginsNumber(const char* text)
{
    text = skipBlanks(text);
    return *text != '\0' && std::strchr("0123456789.+-", *text) != nullptr;
}

} // namespace

int CMetaFilePlayerSVG::processGroupElement(char** element)
{
    if (findKey(*element, ClipPathKey) != nullptr) {
        return Detail(*this).processClipGroup(*element);
    }
    if (findKey(*element, TransformWord) != nullptr) {
        return Detail(*this).processTransformGroup(*element);
    }
    return Detail(*this).processFontGroup(*element);
}

int CMetaFilePlayerSVG::Detail::processClipGroup(char* element)
{
    char* const number = findAfter(findKey(element, ClipPathKey), ClipReference);
    RECT* const clip = number != nullptr ? clipOfNumber(integerAt(number)) : nullptr;
    if (clip == nullptr) {
        return -1;
    }
    m_player.intersectRect(clip, clip, &m_player.m_viewport->viewBox);
    m_player.m_surface->setClippingRegion(clip);
    m_player.m_groupClip = true;
    return 0;
}

int CMetaFilePlayerSVG::Detail::processTransformGroup(char* element)
{
    char* number = findAfter(findKey(element, TransformWord), MatrixWord);
    float numbers[6] = {};
    for (int i = 0; i < 6; ++i) {
        if (i > 0) {
            // The comma is sought from the number in front of it; the first number has at least four
            // characters.
            number = findAfter(i == 1 ? stepOver(number, 4) : number, ",");
        }
        if (number == nullptr || !beginsNumber(number)) {
            return -1;
        }
        numbers[i] = saturateToFloat(intlStringToDoubleFixed(number));
    }
    m_player.m_surface->setTransform(numbers[0], numbers[1], numbers[2], numbers[3], numbers[4], numbers[5]);
    return 0;
}

int CMetaFilePlayerSVG::Detail::processFontGroup(char* element)
{
    char* const faceName = findAfter(element, FontFamilyKey);
    if (faceName == nullptr) {
        return -1;
    }
    char* const size = findAfter(endValue(faceName), FontSizeKey);
    char* const style = findAfter(size, FontStyleKey);
    if (style == nullptr) {
        return -1;
    }
    char* const weight = findAfter(endValue(style), FontWeightKey);
    if (weight == nullptr) {
        return -1;
    }
    char* const decoration = findAfter(endValue(weight), TextDecorationKey);
    m_player.m_surface->setFont(faceName, saturateToFloat(intlStringToDoubleFixed(size)),
                                findKey(weight, BoldWord) != nullptr, findKey(style, ItalicWord) != nullptr,
                                findKey(decoration, LineThroughWord) != nullptr,
                                findKey(decoration, UnderlineWord) != nullptr);
    return 0;
}

int CMetaFilePlayerSVG::processGroupEnd(char* /*element*/)
{
    if (m_surface->m_hasTransform) {
        m_surface->clearTransform();
    } else if (m_groupClip) {
        m_surface->setClippingRegion(&m_viewport->viewBox);
        m_groupClip = false;
    }
    return 0;
}

RECT* CMetaFilePlayerSVG::Detail::clipOfNumber(int number) const
{
    return number > 0 ? m_player.m_clipRects.at(static_cast<unsigned int>(number)) : nullptr;
}

bool CMetaFilePlayerSVG::intersectRect(RECT* result, RECT* a, RECT* b)
{
    return IntersectRect(result, a, b) != FALSE;
}
