// The search for text on a stored page.
#include "metaFilePlayerEMF.h"

#include "MetafileFields.h"
#include "MetafileSearch.h"
#include "markMetafile.h"

using namespace metafile;

unsigned int CMetaFilePlayerEMF::findNextField(unsigned char* page, unsigned int length, int& x, int& y,
                                               TovoTextString& text)
{
    const MetafileFields fields(metafile::pageOf(page, length), false);
    const unsigned int next = fields.lookForNext({x, y});
    if (next == MetafileFields::None) {
        return 0;
    }
    x = fields[next].place.x;
    y = fields[next].place.y;
    text.assign(fields.text(next).data(), fields[next].textLength);
    return fields[next].position;
}

int CMetaFilePlayerEMF::searchPageForString(unsigned char* page, unsigned int length, const char* text,
                                            bool matchCase, bool wholeWord, unsigned int& position,
                                            unsigned int& textOffset, unsigned char*& foundPage,
                                            unsigned int& foundLength, int& x, int& y)
{
    foundPage = nullptr;
    foundLength = 0;
    if (text == nullptr || *text == '\0') {
        return 0;
    }
    const metafile::Page bytes = metafile::pageOf(page, length);
    MetafileSearch search(bytes, TovoTextString(text), matchCase, wholeWord);
    POINTL place{x, y};
    MatchEntries entries;
    unsigned int field = 0;
    const bool found = search.hasTarget() && search.find(field, position, textOffset, place, entries);
    x = place.x;
    y = place.y;
    if (!found) {
        return 0;
    }
    foundPage = markMetafile(bytes, entries, foundLength);
    if (foundPage == nullptr) {
        return KrnException::outOfMemoryNumber;
    }
    position = entries[0].position;
    textOffset = entries[0].last + 1;
    return 0;
}
