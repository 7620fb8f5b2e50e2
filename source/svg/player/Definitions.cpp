// The definitions section, and the elements and brushes that refer to it.
//
// The section is read once, when the walk reaches it: clips and patterns go into tables whose positions are
// their ids, from 1 on without a gap. A definition whose id is not the next free one is refused, and a clip
// that cannot be read takes its place as an empty one, so that later ids still fit.
#include "metaFilePlayerSVG.h"

#include "ElementKind.h"
#include "ElementWalk.h"
#include "PageCursor.h"
#include "SvgColor.h"
#include "SvgDialect.h"
#include "SvgPlayerDetail.h"
#include "WalkMemory.h"
#include "brushStyles.h"
#include "surface.h"
#include "wrappingInt.h"

using namespace drawing;
using namespace svg;

namespace {

template <typename Table>
bool isNextFree(const Table& table, int number)
{
    return number > 0 && static_cast<unsigned int>(number) == table.size() + 1;
}

// The brush style of the hatch that `name` begins with; an unknown name counts as the first hatch.
int hatchStyleOf(const char* name)
{
    for (int i = 0; i < SvgHatchCount; ++i) {
        if (beginsWith(name, SvgHatches[i].name)) {
            return FirstHatchBrush + i;
        }
    }
    return FirstHatchBrush;
}

// Rectangles that a page refers to by a symbol's name. Those with a colour take it from the attribute `key`.
struct SymbolUse {
    const char* name;
    const char* key;
    void (CSurface::*drawColored)(RECT* rect, unsigned long color);
    void (CSurface::*draw)(RECT* rect);
};

constexpr SymbolUse SymbolUses[] = {
    {FrameRectSymbol, "stroke=", &CSurface::frameRect, nullptr},
    {SolidRectSymbol, "fill=", &CSurface::drawSolidRectangle, nullptr},
    {FocusRectSymbol, nullptr, nullptr, &CSurface::drawFocusRect},
};

const SymbolUse* symbolUseOf(const char* name)
{
    for (const SymbolUse& use : SymbolUses) {
        if (std::strcmp(name, use.name) == 0) {
            return &use;
        }
    }
    return nullptr;
}

// Draws a symbol; -1 when it has no colour. `rest` is the text of the element at the symbol's name.
int drawSymbol(CSurface& surface, const SymbolUse& use, RECT rect, char* rest)
{
    if (use.key == nullptr) {
        (surface.*use.draw)(&rect);
        return 0;
    }
    const char* const color = findKey(findKey(rest, use.key), RgbWord);
    unsigned long value = 0;
    if (color == nullptr || !readColor(color, value)) {
        return -1;
    }
    (surface.*use.drawColored)(&rect, value);
    return 0;
}

} // namespace

int CMetaFilePlayerSVG::processDefsElement(char** element)
{
    Detail::ElementWalk walk = Detail::ElementWalk::inside(*this, *element + 1);
    int result = 0;
    while (result == 0 && walk.next()) {
        switch (walk.type()) {
        case RecordClipPath:
            result = Detail(*this).processClipDefinition(walk.element());
            break;
        case RecordPattern:
            result = Detail(*this).processPatternDefinition(walk.element());
            break;
        case RecordImage:
            result = Detail(*this).processImageDefinition(walk.element());
            break;
        case RecordSymbol: // for viewers
        case RecordPath:   // what rotated text refers to
            break;
        default:
            Detail::reportUnexpectedElement(__LINE__);
            break;
        }
    }
    return result;
}

int CMetaFilePlayerSVG::Detail::processClipDefinition(char* element)
{
    constexpr int IdOffset = 8; // past the "clip" of the element's own name
    char* const number = findAfter(stepOver(element, IdOffset), ClipId);
    const char* const path = findKey(number, "M");
    if (path == nullptr) {
        return -1;
    }
    const int id = integerAt(number);
    if (!isNextFree(m_player.m_clipRects, id)) {
        return 0;
    }
    RECT clip{};
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    int skipped = 0;
    if (intlSscanNumeric(path, "M%d %dL%d %dL%d %d", &left, &top, &skipped, &skipped, &right, &bottom) == 6) {
        clip = RECT{left, top, right, bottom};
    }
    m_player.m_clipRects.insertAt(clip, static_cast<unsigned int>(id));
    return 0;
}

int CMetaFilePlayerSVG::Detail::processPatternDefinition(char* element)
{
    char* const attribute = findKey(element, "id");
    TovoTextString id;
    if (attribute == nullptr || m_player.getAttributeValue(attribute, &id) < 0) {
        return 0;
    }
    const char* const digits = afterPrefix(id.text(), PatternId);
    if (digits == nullptr) {
        return 0; // the shared hatches end here: they are known by name
    }
    const int number = integerAt(digits, 0);
    if (isNextFree(m_player.m_patterns, number)) {
        m_player.m_patterns.insertAt(element, static_cast<unsigned int>(number));
        m_player.m_memory->patternBrushes.add(PatternBrush{});
    }
    return 0;
}

int CMetaFilePlayerSVG::processPattern(char* pattern, CSurfaceBrush* brush)
{
    unsigned long color = 0;
    int style = FirstHatchBrush;
    int picture = 0;
    const char* const stroke = findKey(findKey(pattern, StrokeKey), RgbWord);
    if (stroke != nullptr && !readColor(stroke, color)) {
        return -1;
    }
    if (char* const name = findAfter(findKey(pattern, HrefKey), "#")) {
        if (const char* const digits = afterPrefix(name, ImageId)) {
            picture = integerAt(digits);
        } else {
            style = hatchStyleOf(name);
        }
    }
    if (picture < 1) {
        brush->set(color, style);
    } else {
        brush->setPicture(picture);
    }
    return 0;
}

int CMetaFilePlayerSVG::Detail::usePattern(int number, CSurfaceBrush* brush)
{
    if (number < 1 || static_cast<unsigned int>(number) > m_player.m_patterns.size()) {
        return -1;
    }
    const unsigned int index = static_cast<unsigned int>(number) - 1;
    PatternBrush& known = m_player.m_memory->patternBrushes[index];
    if (!known.isRead) {
        CSurfaceBrush read;
        const bool isUsable = m_player.processPattern(m_player.m_patterns[index], &read) == 0;
        known = PatternBrush{true, isUsable, read.getColor(), read.getStyle(), read.getPicture()};
    }
    if (!known.isUsable) {
        return -1;
    }
    if (known.style == PictureBrush) {
        brush->setPicture(known.picture);
    } else {
        brush->set(known.color, known.style);
    }
    return 0;
}

int CMetaFilePlayerSVG::processUseElement(char** element)
{
    int x = 0;
    int y = 0;
    char* const cursor = readCoordinate(readCoordinate(*element, "x=", x), "y=", y);
    if (cursor == nullptr) {
        return -1;
    }
    char* const width = findKey(cursor, "width=");
    char* const height = findKey(cursor, "height=");
    const RECT rect{x, y, wrapAdd(x, width != nullptr ? integerAt(stepOver(width, 7)) : 0),
                    wrapAdd(y, height != nullptr ? integerAt(stepOver(height, 8)) : 0)};

    char* const href = findKey(cursor, "xlink:href");
    char* value = nullptr;
    const bool closed = href != nullptr && getAttributeValue(href, &value) == 0;
    if (value == nullptr) {
        return -1;
    }
    char* const rest = closed ? afterEnded(value) : endOf(value);
    const char* const name = afterPrefix(value, "#");
    if (name == nullptr) {
        return 0;
    }
    if (const SymbolUse* const use = symbolUseOf(name)) {
        return drawSymbol(*m_surface, *use, rect, rest);
    }
    return Detail(*this).processImageUse(*element, name, x, y);
}
