// The scanner: where the next element starts, what kind it is, where it ends.
//
// It finds by literal searches in the player's own copy of the page and ends each element by a zero byte over
// its closing `>`. From then on the element is a string of its own, and that byte keeps every search inside
// it. Nothing restores such a byte: a page is walked once.
#include "metaFilePlayerSVG.h"

#include "svg/PageCursor.h"
#include "svg/SvgRecord.h"
#include "svg/SvgWalkMemory.h"

namespace {

// What an element's text begins with. The first row that fits wins.
struct RecordStart {
    const char* text;
    SvgRecordType type;
};

constexpr RecordStart RecordStarts[] = {
    {"<text ", RecordText},      {"<path", RecordPath},           {"<svg", RecordSvg},
    {"<g ", RecordGroup},        {"</g", RecordGroupEnd},         {"<rect", RecordRect},
    {"<ellipse", RecordEllipse}, {"<line", RecordLine},           {"<!--", RecordComment},
    {"<use", RecordUse},         {"<clipPath", RecordClipPath},   {"<image", RecordImage},
    {"<pattern", RecordPattern}, {"<polygon", RecordPolygon},     {"<polyline", RecordPolyline},
    {"<symbol", RecordSymbol},   {"<tspan", RecordTSpan},         {"<textPath", RecordTextPath},
    {"<?xml", RecordProlog},     {"<!DOCTYPE svg", RecordProlog}, {"</svg", RecordProlog},
    {"<defs>", RecordDefs},
};

// Elements that end at a closing tag of their own kind, and the text that opens one inside another.
struct NestingText {
    SvgRecordType type;
    const char* closing;
    const char* opening;
};

constexpr NestingText NestingTexts[] = {
    {RecordText, "</text>", "<text "},
    {RecordTSpan, "</tspan>", "<tspan"},
    {RecordTextPath, "</textPath>", "<textPath"},
    {RecordPattern, "</pattern>", "<pattern"},
    {RecordSymbol, "</symbol>", "<symbol"},
    {RecordClipPath, "</clipPath>", "<clipPath"},
    {RecordSvg, "</svg>", "<svg"},
    {RecordDefs, "</defs>", "<defs"},
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

// Pairs closing tags with openings, in step: the first closing tag in front of which no further element of the
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

// The search above begins a closing tag's length behind the element's start, so it misses a tag that begins
// before that and takes a later one. The answers kept for <svg> elements leave this rare form to the search.
bool closesTooNear(const char* element, const NestingText& text)
{
    for (std::size_t i = 1; i < std::strlen(text.closing) && element[i] != '\0'; ++i) {
        if (beginsWith(element + i, text.closing)) {
            return true;
        }
    }
    return false;
}

} // namespace

bool CMetaFilePlayerSVG::getNextElement(char** cursor, int& type)
{
    type = RecordUnknown;
    if (*cursor >= m_pageText->text() + m_pageText->length()) {
        return false;
    }
    char* const element = std::strchr(*cursor, '<');
    if (element == nullptr) {
        return false;
    }
    *cursor = element;
    type = getRecordType(element);
    char* const closing = getEndOfElement(element, type);
    char* const end = closing != nullptr ? std::strchr(closing, '>') : nullptr;
    if (end == nullptr) {
        return false;
    }
    *end = '\0';
    m_memory->elementEnd = end;
    return true;
}

char* CMetaFilePlayerSVG::getEndOfElement(char* element, int type)
{
    const NestingText* const text = nestingTextOf(type);
    if (text == nullptr) {
        return std::strchr(element + 1, '>');
    }
    if (type == RecordSvg && !closesTooNear(element, *text)) {
        return m_memory->nesting.closingTag(element, m_memory->walkEnd);
    }
    return findClosingTag(element, *text);
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
    char* quote = findBehind(attribute, "=");
    if (quote == nullptr) {
        return -1;
    }
    while (isBlank(*quote)) {
        ++quote;
    }
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
    char* quote = findBehind(attribute, "=");
    if (quote == nullptr) {
        return -1;
    }
    while (isBlank(*quote)) {
        ++quote;
    }
    char* const start = stepOver(quote, 1);
    const char* const end = *quote != '\0' ? std::strchr(start, *quote) : nullptr;
    if (end == nullptr) {
        return -1;
    }
    value->assign(start, static_cast<unsigned int>(end - start));
    return 0;
}
