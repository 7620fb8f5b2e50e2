// CMetaFilePlayer: what is done with a stored page begins here.
//
// A stored page is the byte buffer that a surface gave with getData. createPlayer recognises the page's format
// from its bytes and makes the right player, CMetaFilePlayerSVG or CMetaFilePlayerEMF; the other static
// operations work on the bytes without playing them. The page stays the caller's throughout. Pages may come
// from strangers: whatever the bytes are, no operation reads beyond `length` or ends the process.
#pragma once

#include <cstddef>

#include <windows.h>

#include "sys/moduleObject.h"
#include "sys/surfaceExport.h"

class CSurface;

class SURFACE_API CMetaFilePlayer : public ModuleObject {
public:
    CMetaFilePlayer() = default;
    CMetaFilePlayer(const CMetaFilePlayer&) = delete;
    CMetaFilePlayer& operator=(const CMetaFilePlayer&) = delete;
    virtual ~CMetaFilePlayer();

    // Draws the page on the surface; `rect` is the rectangle of the destination, of which the right and
    // bottom count. 1: played; 0: not played, also without a surface or a rectangle. Played once.
    virtual int play(CSurface* surface, RECT* rect) = 0;
    // 1 enhanced metafile, 2 SVG page.
    virtual int metaFileFormat() = 0;

    // The player of the page, for the caller to delete; null for an unknown format or when there is no
    // memory for the object.
    static CMetaFilePlayer* createPlayer(unsigned char* page, unsigned int length);
    // 0 no known page, 1 enhanced metafile, 2 SVG page. A null page is 0, and so is a length of 0 or one
    // that is negative as a signed number.
    static int getMetaFileFormat(unsigned char* page, unsigned int length);
    // Stamps the page count into the page in place; the length stays. True when something was rewritten.
    static bool insertPageCount(unsigned char* page, int length, int pageNumber, int pageCount);
    // The page's size in logical units; 0 and 0 when it has none.
    static void getImageSize(unsigned char* page, int length, unsigned int& width, unsigned int& height);
    // Finds the next occurrence of a text and gives a marked copy of the page, to be freed with
    // freeFoundPage; `foundLength` 0 means that there is none. `position` and `textOffset` are the cursor:
    // both 0 to begin, handed back unchanged to go on. Whether there was a hit shows in `foundLength` alone: the
    // result is 0 with and without one and for a page of no known format, whose outputs stay as they were, and -100
    // where there was no memory for the marked copy of a metafile.
    static int searchPageForString(unsigned char* page, unsigned int length, const char* text, bool matchCase,
                                   bool wholeWord, unsigned int& position, unsigned int& textOffset,
                                   unsigned char*& foundPage, unsigned int& foundLength, int& x, int& y);
    static void freeFoundPage(unsigned char* page);
};
