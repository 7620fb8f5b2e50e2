// The scanner: where the next element starts, what kind it is, where it ends.
//
// It finds by literal searches in the player's own copy of the page and ends each element by a zero byte over
// its closing `>`. From then on the element is a string of its own, and that byte keeps every search inside
// it. Nothing restores such a byte: a page is walked once.
#include "metaFilePlayerSVG.h"

#include "ElementKind.h"
#include "PageCursor.h"
#include "SvgDialect.h"
#include "WalkMemory.h"

using namespace svg;

namespace {

// What an element's text begins with. The first row that fits wins.
struct RecordStart {
    const char* text;
    SvgRecordType type;
};

constexpr RecordStart RecordStarts[] = {
    {TextTag, RecordText},       {PathTag, RecordPath},         {SvgTag, RecordSvg},
    {GroupTag, RecordGroup},     {GroupEnd, RecordGroupEnd},    {RectTag, RecordRect},
    {EllipseTag, RecordEllipse}, {LineTag, RecordLine},         {CommentStart, RecordComment},
    {UseTag, RecordUse},         {ClipPathTag, RecordClipPath}, {ImageTag, RecordImage},
    {PatternTag, RecordPattern}, {PolygonTag, RecordPolygon},   {PolylineTag, RecordPolyline},
    {SymbolTag, RecordSymbol},   {SpanTag, RecordTSpan},        {TextPathTag, RecordTextPath},
    {PrologStart, RecordProlog}, {DoctypeStart, RecordProlog},  {SvgEnd, RecordProlog},
    {DefsTag, RecordDefs},
};

// Elements that end at a closing tag of their own kind, and the text that opens one inside another.
struct NestingText {
    SvgRecordType type;
    const char* closing;
    const char* opening;
};

constexpr NestingText NestingTexts[] = {
    {RecordText, TextEndTag, TextTag},
    {RecordTSpan, SpanEndTag, SpanTag},
    {RecordTextPath, TextPathEndTag, TextPathTag},
    {RecordPattern, PatternEndTag, PatternTag},
    {RecordSymbol, SymbolEndTag, SymbolTag},
    {RecordClipPath, ClipPathEndTag, ClipPathTag},
    {RecordSvg, SvgEndTag, SvgTag},
    {RecordDefs, DefsEndTag, DefsStart},
};

const NestingText* nestingTextOf(int type)
{
    for (const NestingText& row : NestingTexts) {
        if (row.type == type) {
            return &row;
        }
    }
    return nullptr;
}

// Pairs closing tags with openings, in step: the first closing tag before which no further element of the
// kind has opened is the element's own.
char* findClosingTag(char* element, const NestingText& text)
{
    const int closingLength = static_cast<int>(std::strlen(text.closing));
    const int openingLength = static_cast<int>(std::strlen(text.opening));
    char* closing = element;
    char* opening = element;
    while ((closing = findTag(stepOver(closing, closingLength), text.closing)) != nullptr) {
        opening = findTag(stepOver(opening, openingLength), text.opening);
        if (opening == nullptr || opening > closing) {
            return closing;
        }
    }
    return nullptr;
}

} // namespace

bool CMetaFilePlayerSVG::getNextElement(char** cursor, int& type)
{
    type = RecordUnknown;
    if (*cursor >= m_pageText->text() + m_pageText->length()) {
        return false;
    }
    char* const begin = *cursor;
    char* const element = std::strchr(begin, '<');
    if (element == nullptr) {
        return false;
    }
    m_memory->searched.add(begin, element);
    *cursor = element;
    type = getRecordType(element);
    char* const closing = getEndOfElement(element, type);
    char* const end = closing != nullptr ? std::strchr(closing, '>') : nullptr;
    if (end == nullptr) {
        return false;
    }
    m_memory->searched.add(closing, end);
    *end = '\0';
    m_memory->elementEnd = end;
    return true;
}

char* CMetaFilePlayerSVG::getEndOfElement(char* element, int type)
{
    if (type == RecordSvg) {
        return m_memory->nesting.closingTag(element, m_memory->walkEnd, m_memory->searched);
    }
    const NestingText* const text = nestingTextOf(type);
    char* const closing = text != nullptr ? findClosingTag(element, *text) : std::strchr(element + 1, '>');
    m_memory->searched.add(element, closing != nullptr ? closing : m_memory->walkEnd);
    return closing;
}

int CMetaFilePlayerSVG::getRecordType(char* element)
{
    for (const RecordStart& row : RecordStarts) {
        if (beginsWith(element, row.text)) {
            return row.type;
        }
    }
    return RecordUnknown;
}

int CMetaFilePlayerSVG::getAttributeValue(char* attribute, char** value)
{
    char* quote = findAfter(attribute, "=");
    if (quote == nullptr) {
        return -1;
    }
    quote = skipBlanks(quote);
    *value = stepOver(quote, 1);
    char* const end = *quote != '\0' ? std::strchr(*value, *quote) : nullptr;
    if (end == nullptr) {
        return -1;
    }
    *end = '\0';
    return 0;
}

int CMetaFilePlayerSVG::getAttributeValue(char* attribute, TovoTextString* value)
{
    char* quote = findAfter(attribute, "=");
    if (quote == nullptr) {
        return -1;
    }
    quote = skipBlanks(quote);
    char* const start = stepOver(quote, 1);
    const char* const end = *quote != '\0' ? std::strchr(start, *quote) : nullptr;
    if (end == nullptr) {
        return -1;
    }
    value->assign(start, static_cast<unsigned int>(end - start));
    return 0;
}
