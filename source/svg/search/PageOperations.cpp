// What is done with a stored page without playing it: stamp the page count, give the size, search for text.
//
// Called by CMetaFilePlayer, which has recognised the format. The page stays the caller's, and only a stamp changes it.
#include "metaFilePlayerSVG.h"

#include <climits>
#include <cstring>
#include <string_view>

#include "PageCursor.h"
#include "PageTextSearch.h"
#include "SvgDialect.h"
#include "moduleObjects.h"
#include "pageCountText.h"
#include "pageText.h"

using namespace drawing;
using namespace svg;

namespace {

// The text that a mark of the page count lets be overwritten; both null when there is none.
struct PageCountField {
    char* start;
    char* end;
};

// The field of the first mark from `from` on: the text of the marked element or of its first run.
PageCountField nextPageCountField(char* from, const char* mark)
{
    char* start = findAfter(findKey(from, mark), ">");
    char* end = findTag(start, "<");
    if (end != nullptr && beginsWith(end, SpanTag)) {
        start = findAfter(end, ">");
        end = findTag(start, "<");
    }
    return end != nullptr ? PageCountField{start, end} : PageCountField{nullptr, nullptr};
}

std::string_view viewOf(const unsigned char* page, unsigned int length)
{
    return {reinterpret_cast<const char*>(page), length};
}

bool isDigit(char character)
{
    return IsCharAlphaNumericA(character) != FALSE && IsCharAlphaA(character) == FALSE;
}

} // namespace

bool CMetaFilePlayerSVG::insertPageCount(unsigned char* page, int length, int pageNumber, int pageCount)
{
    if (page == nullptr || length <= 0) {
        return false;
    }
    TovoTextString mark;
    appendPieces(mark, "class='", PageCountClass, "'");
    const PageCountText number(pageNumber);
    const PageCountText numberAndCount(pageNumber, pageCount);
    TovoTextString copy(page, static_cast<unsigned int>(length));
    bool changed = false;
    PageCountField field = nextPageCountField(copy.text(), mark.text());
    for (; field.start != nullptr; field = nextPageCountField(field.end, mark.text())) {
        const PageCountText& text = *field.start == ' ' ? number : numberAndCount;
        if (text.length() < static_cast<std::size_t>(field.end - field.start)) {
            std::memcpy(field.start, text.text(), text.length());
            changed = true;
        } else {
            kosAssertFail("Assertion failed", "(int)intlStrlen(pageText) < ptr2-ptr", "surface",
                          "MetaFilePlayerSVG", __LINE__);
        }
    }
    if (changed) {
        std::memcpy(page, copy.text(), static_cast<std::size_t>(length));
    }
    return changed;
}

void CMetaFilePlayerSVG::getImageSize(unsigned char* page, int length, unsigned int& width,
                                      unsigned int& height)
{
    width = 0;
    height = 0;
    if (page == nullptr || length <= 0) {
        return;
    }
    std::string_view rest = viewOf(page, static_cast<unsigned int>(length));
    for (const char* const mark : {SvgTag, "viewBox"}) {
        const std::size_t place = rest.find(mark);
        if (place == std::string_view::npos) {
            return;
        }
        rest.remove_prefix(place);
    }
    while (!rest.empty() && !isDigit(rest.front())) {
        rest.remove_prefix(1);
    }
    // The page has no zero byte after it, so the numbers are read from a copy.
    const std::size_t end = rest.find_first_not_of("0123456789+- \t\n\v\f\r");
    const TovoTextString numbers(rest.data(), static_cast<unsigned int>(rest.substr(0, end).size()));
    int box[4]{};
    intlSscanNumeric(numbers.text(), "%d %d %d %d", &box[0], &box[1], &box[2], &box[3]);
    width = static_cast<unsigned int>(box[2]);
    height = static_cast<unsigned int>(box[3]);
}

int CMetaFilePlayerSVG::searchPageForString(unsigned char* page, unsigned int length, const char* text,
                                            bool matchCase, bool wholeWord, unsigned int& position,
                                            unsigned int& textOffset, unsigned char*& foundPage,
                                            unsigned int& foundLength, int& x, int& y)
{
    foundLength = 0;
    if (page == nullptr || length > static_cast<unsigned int>(INT_MAX)) {
        return 0;
    }
    TovoTextString marked;
    PageTextSearch search;
    search.findText(viewOf(page, length), TovoTextString(text), matchCase, wholeWord, position, textOffset,
                    marked, x, y);
    if (!marked.isEmpty()) {
        void* const found = allocateFromModuleHeap(marked.length());
        if (found == nullptr) {
            krnOutOfMemory();
        }
        std::memcpy(found, marked.text(), marked.length());
        foundPage = static_cast<unsigned char*>(found);
        foundLength = marked.length();
    }
    return 0;
}
