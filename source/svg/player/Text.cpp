// Text elements: each becomes the text call that made it.
//
// A plain text came from drawString, drawText or drawTextAt, one of class BLT from drawTextOnBaseLine, and one
// with runs from formatted text; each run of rotated text is in a text path. Layout stays with the surface:
// nothing is measured and no alignment is read.
#include "metaFilePlayerSVG.h"

#include <climits>
#include <string_view>

#include "ElementKind.h"
#include "ElementWalk.h"
#include "PageCursor.h"
#include "SvgColor.h"
#include "SvgDialect.h"
#include "SvgPlayerDetail.h"
#include "WalkMemory.h"
#include "moduleObjects.h"
#include "surface.h"
#include "textFlags.h"
#include "wrappingInt.h"

using namespace drawing;
using namespace svg;

namespace {

constexpr int NoPosition = INT_MAX;

// The runs of one element, deleted with it.
class ChunkList {
public:
    ChunkList() = default;
    ~ChunkList()
    {
        for (unsigned int i = 0; i < m_chunks.size(); ++i) {
            delete m_chunks[i];
        }
    }
    ChunkList(const ChunkList&) = delete;
    ChunkList& operator=(const ChunkList&) = delete;

    Array<CSurfaceTextChunk, 2>* chunks() { return &m_chunks; }
    CSurfaceTextChunk* first() { return m_chunks.atGet(0); }
    CSurfaceTextChunk* last() { return m_chunks.size() > 0 ? m_chunks[m_chunks.size() - 1] : nullptr; }

    // A new chunk at the end of the list. Throws KrnException without memory.
    CSurfaceTextChunk* add()
    {
        auto* const chunk = new CSurfaceTextChunk;
        if (chunk == nullptr) {
            krnOutOfMemory();
        }
        try {
            m_chunks.add(chunk);
        } catch (...) {
            delete chunk;
            throw;
        }
        return chunk;
    }

private:
    Array<CSurfaceTextChunk, 2> m_chunks;
};

void dropTrailingBlanks(TovoTextString& text)
{
    int blanks = 0;
    for (unsigned int i = text.length(); i > 0 && text.text()[i - 1] == ' '; --i) {
        ++blanks;
    }
    text.truncate(blanks);
}

void readNumberAfter(char* text, const char* key, int& number)
{
    if (char* const value = findAfter(text, key)) {
        number = integerAt(value);
    }
}

} // namespace

// What the head of a text element says.
struct CMetaFilePlayerSVG::Detail::TextElement {
    POINT position{};
    RECT ownRect{};
    RECT* rect = nullptr; // ownRect, or an entry of the clip table
    unsigned long color = 0;
    unsigned int options = 0;
    int charAngle = 0;
    int textAngle = 0;
    const char* className = nullptr;
};

int CMetaFilePlayerSVG::processTextElement(char** element)
{
    char* const body = endAt(*element, '>');
    int x = 0;
    int y = 0;
    char* const behindX = readCoordinate(*element, "x=", x);
    char* const cursor = readCoordinate(behindX, "y=", y);
    if (body == nullptr || cursor == nullptr) {
        return -1;
    }
    Detail::TextElement text;
    text.position = POINT{x, y};
    text.ownRect = RECT{x, y, 0, 0};
    text.rect = &text.ownRect;
    if (processTextRect(*element, &text.ownRect) < 0) {
        processClipPath(*element, &text.rect);
    }
    processTextStyleAttributes(cursor, &text.color, &text.options, &text.charAngle, &text.textAngle);
    // Read last: the zero byte after the value hides what is there.
    char* className = nullptr;
    if (char* const attribute = findKey(cursor, "class=")) {
        getAttributeValue(attribute, &className);
    }
    text.className = className;
    return findKey(body, SpanTag) != nullptr ? Detail(*this).drawRuns(text, body)
                                             : Detail(*this).drawPlainText(text, body);
}

int CMetaFilePlayerSVG::Detail::drawPlainText(TextElement& text, char* body)
{
    char* const end = findKey(body, TextEnd);
    if (end == nullptr) {
        return 0;
    }
    *end = '\0';
    TovoTextString content = CSurface::fromXML(TovoTextString(body, static_cast<unsigned int>(end - body)));
    m_player.m_surface->setTextColor(text.color);
    const std::string_view className(text.className != nullptr ? text.className : "");
    if (className == BaseLineClass) {
        m_player.m_surface->drawTextOnBaseLine(text.position.x, text.position.y, text.options,
                                               text.options != 0 ? text.rect : nullptr, content.text(),
                                               WholeText);
        return 0;
    }
    if (className == PageCountClass) {
        dropTrailingBlanks(content); // what is left of a longer placeholder
    }
    if (text.rect->right == 0 && text.rect->bottom == 0) {
        m_player.m_surface->drawTextAt(content.text(), &text.position, text.options);
    } else {
        m_player.m_surface->drawText(content.text(), text.rect, text.options);
    }
    return 0;
}

int CMetaFilePlayerSVG::Detail::drawRuns(TextElement& text, char* body)
{
    ChunkList runs;
    ElementWalk walk = ElementWalk::inside(m_player, body);
    while (walk.next()) {
        if (walk.type() == RecordTSpan) {
            const CSurfaceTextChunk* const previous = runs.last();
            CSurfaceTextChunk* const run = runs.add();
            m_player.processTSpanElement(walk.element(), run);
            if (run->m_followsPrevious && previous != nullptr) {
                run->m_position.y = previous->m_position.y;
            }
        } else if (walk.type() == RecordTextPath) {
            ElementWalk path = ElementWalk::inside(m_player, walk.element() + 1);
            if (path.next() && path.type() == RecordTSpan) {
                CSurfaceTextChunk* const run = runs.add();
                m_player.processTSpanElement(path.element(), run);
                run->m_position.y = wrapAdd(run->m_position.y, text.rect->top); // it counts from the path
            }
        }
    }
    m_player.m_surface->setTextColor(text.color);
    if (text.className != nullptr && std::strcmp(text.className, PageCountClass) == 0) {
        if (const CSurfaceTextChunk* const first = runs.first()) {
            TovoTextString content = first->m_text;
            dropTrailingBlanks(content);
            m_player.m_surface->drawText(content.text(), text.rect, text.options);
        }
        return 0;
    }
    const CTextStyle& style = m_player.m_surface->m_textStyle;
    if (text.charAngle != style.getCharAngle() || text.textAngle != style.getTextAngle()) {
        m_player.m_surface->setTextRotation(text.charAngle, text.textAngle);
    }
    m_player.m_surface->drawString(runs.chunks(), text.rect, wrapToInt(text.options));
    return 0;
}

int CMetaFilePlayerSVG::processTSpanElement(char* element, CSurfaceTextChunk* chunk)
{
    char* const content = endAt(element, '>');
    chunk->m_isNewLine = findKey(element, "dy='1.25em'") != nullptr;
    chunk->m_underline = findKey(element, "text-decoration='underline'") != nullptr;
    chunk->m_textLength = NoTextLength;
    readNumberAfter(element, TextLengthKey, chunk->m_textLength);
    int x = NoPosition;
    int y = NoPosition;
    readNumberAfter(element, "x='", x);
    readNumberAfter(element, "y='", y);
    chunk->m_position = POINT{x, y};
    chunk->m_followsPrevious = findKey(element, "x='") == nullptr;
    if (const char* const find = findAfter(element, FindKey)) {
        intlSscanNumeric(find, "'%d,%d'", &chunk->m_findPosition[0], &chunk->m_findPosition[1]);
    }
    if (const char* const end = findKey(content, SpanEnd)) {
        chunk->m_text = CSurface::fromXML(TovoTextString(content, static_cast<unsigned int>(end - content)));
    }
    return 0;
}

int CMetaFilePlayerSVG::processTextRect(char* element, RECT* rect)
{
    const char* const attribute = findKey(element, "tovo:textRect");
    if (attribute == nullptr) {
        return -1;
    }
    int numbers[4] = {rect->left, rect->top, rect->right, rect->bottom};
    intlSscanNumeric(attribute, "tovo:textRect='(%d,%d,%d,%d)", &numbers[0], &numbers[1], &numbers[2],
                     &numbers[3]);
    *rect = RECT{numbers[0], numbers[1], numbers[2], numbers[3]};
    return 0;
}

int CMetaFilePlayerSVG::processClipPath(char* element, RECT** rect)
{
    char* const number = findAfter(element, ClipReference);
    RECT* const clip = number != nullptr ? Detail(*this).clipOfNumber(integerAt(number)) : nullptr;
    if (clip != nullptr) {
        *rect = clip;
    }
    return 0;
}

int CMetaFilePlayerSVG::processTextStyleAttributes(char* text, unsigned long* color, unsigned int* options,
                                                   int* charAngle, int* textAngle)
{
    if (const char* const value = findKey(findAfter(text, FillKey), RgbWord)) {
        readColor(value, *color);
    }
    int flags = wrapToInt(*options);
    readNumberAfter(text, DrawOptionsKey, flags);
    readNumberAfter(text, TextFlagsKey, flags);
    *options = static_cast<unsigned int>(flags);
    readNumberAfter(text, CharAngleKey, *charAngle);
    readNumberAfter(text, TextAngleKey, *textAngle);
    return 0;
}
