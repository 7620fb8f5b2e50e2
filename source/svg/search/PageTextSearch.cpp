// From the page's text elements to records in reading order.
#include "PageTextSearch.h"

#include <algorithm>
#include <utility>

#include "PageCursor.h"
#include "SvgDialect.h"
#include "moduleObjects.h"
#include "surface.h"

using namespace drawing;
using namespace svg;

namespace {

// Makes an element that `owner` is to own. Its place comes first, so that it is never without an owner.
template <typename T, unsigned int N, typename... Arguments>
T* addNew(Array<T, N>& owner, Arguments&&... arguments)
{
    owner.add(nullptr);
    T* const element = makeInModuleHeap<T>(std::forward<Arguments>(arguments)...);
    if (element == nullptr) {
        krnOutOfMemory();
    }
    owner[owner.size() - 1] = element;
    return element;
}

template <typename T, unsigned int N>
void destroyAll(const Array<T, N>& elements)
{
    for (unsigned int i = 0; i < elements.size(); ++i) {
        destroyInModuleHeap(elements[i]);
    }
}

} // namespace

TextRun::TextRun(int offset, TovoTextString text) : m_offset(offset), m_text(std::move(text)) {}

TextRecord::TextRecord(int offset, int end) : m_offset(offset), m_end(end) {}

TextRecord::~TextRecord()
{
    destroyAll(m_runs);
}

void TextRecord::addRun(int offset, const char* text)
{
    TovoTextString decoded = CSurface::fromXML(TovoTextString(text));
    m_text.append(decoded);
    addNew(m_runs, offset, std::move(decoded));
}

PageTextSearch::~PageTextSearch()
{
    destroyAll(m_records);
}

void PageTextSearch::findText(std::string_view page, TovoTextString search, bool matchCase, bool wholeWord,
                              unsigned int& position, unsigned int& textOffset, TovoTextString& marked,
                              int& x, int& y)
{
    if (search.isEmpty()) {
        return;
    }
    read(page);
    if (!matchCase) {
        search.toLower();
    }
    if (const TextRecord* const record = find(search, matchCase, wholeWord, position, textOffset)) {
        markRange(m_lastRecord, textOffset - 1, m_foundLength);
        writeMarkedPage(page, marked);
        x = record->m_x;
        y = record->m_y;
    }
}

void PageTextSearch::read(std::string_view page)
{
    TovoTextString copy(page.data(), static_cast<unsigned int>(page.size()));
    parsePage(&copy);
}

const TextRecord* PageTextSearch::find(const TovoTextString& search, bool matchCase, bool wholeWord,
                                       unsigned int& position, unsigned int& textOffset)
{
    unsigned int recordIndex = 0;
    if (wholeWord ? !findWords(position, textOffset, matchCase, search, recordIndex)
                  : !findSubstring(position, textOffset, matchCase, search, recordIndex)) {
        return nullptr;
    }
    m_lastRecord = recordIndex;
    return m_records[recordIndex];
}

// Quoted text between tags is passed over, so what looks like a tag there is none. A text element that cannot
// be used ends the reading.
void PageTextSearch::parsePage(TovoTextString* page)
{
    char* const pageStart = page->text();
    char* at = std::strpbrk(pageStart, "'\"<");
    while (at != nullptr) {
        if (beginsWith(at, TextTag)) {
            at = parseTextElement(at, pageStart);
        } else {
            char* const end = std::strchr(at + 1, *at == '<' ? '>' : *at);
            at = end != nullptr ? end + 1 : nullptr;
        }
        at = at != nullptr ? std::strpbrk(at, "'\"<") : nullptr;
    }
    if (m_records.size() > 0) {
        std::sort(&m_records[0], &m_records[0] + m_records.size(),
                  [](const TextRecord* a, const TextRecord* b) {
                      return a->m_y != b->m_y ? a->m_y < b->m_y : a->m_offset < b->m_offset;
                  });
    }
}

// Adds the record of the element and gives the place to go on at; null when there is none. Zero bytes cut the
// copy of the page, but every offset holds for the page itself.
char* PageTextSearch::parseTextElement(char* element, char* pageStart)
{
    constexpr char Closing[] = "/text>";
    char* const end = findTag(element, Closing);
    if (end == nullptr) {
        return nullptr;
    }
    *end = '\0';
    int x = 0;
    int y = 0;
    char* const cursor = readCoordinate(readCoordinate(element, "x=", x), "y=", y);
    char* const body = findAfter(cursor, ">");
    if (body == nullptr) {
        return nullptr;
    }
    const auto offsetOf = [pageStart](const char* place) {
        return static_cast<int>(place - pageStart);
    };
    TextRecord* const record = addRecord(offsetOf(element), offsetOf(end + std::strlen(Closing)));
    record->m_x = x;
    record->m_y = y;
    if (char* const textLength = findAfter(cursor, TextLengthKey)) {
        record->m_textLength = integerAt(textLength);
    }
    if (end > body && end[-1] == '<') {
        end[-1] = '\0';
    }
    char* span = findTag(body, SpanTag);
    record->addRun(offsetOf(element), span != nullptr ? "" : body);
    while (span != nullptr) {
        char* const text = findAfter(span, ">");
        char* const textEnd = findTag(text, SpanEnd);
        if (textEnd == nullptr) {
            break;
        }
        *textEnd = '\0';
        record->addRun(offsetOf(span), text);
        span = findTag(textEnd + 1, SpanTag);
    }
    return end + 1;
}

TextRecord* PageTextSearch::addRecord(int offset, int end)
{
    return addNew(m_records, offset, end);
}
