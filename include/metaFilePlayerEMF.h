// CMetaFilePlayerEMF: plays enhanced metafiles ([MS-EMF]), and what is done with such a
// page without playing it.
//
// Made and called by CMetaFilePlayer. It can play only on a surface that has a device context to offer; the static
// operations work on the bytes, and only the stamp of a page count measures text on the screen's device.
#pragma once

#include "metaFilePlayer.h"

class TovoTextString;

class SURFACE_API CMetaFilePlayerEMF : public CMetaFilePlayer {
public:
    // Copies the page.
    CMetaFilePlayerEMF(unsigned char* page, unsigned int length);
    ~CMetaFilePlayerEMF() override;

    // Plays the metafile with its frame on `rect`, in logical units of the surface's device context. The surface's
    // attributes play no part.
    int play(CSurface* surface, RECT* rect) override;
    int metaFileFormat() override;

    // Writes the page count over the text after each marker of the page, in place: "7 of 12", or the total alone
    // where that text begins with a blank. A text that is too short stays, and the next one is tried. True when a
    // marker was followed by a text, even if none had room. Throws KrnException where there is no memory to measure
    // a text; of a page with up to 8 markers none has been written then.
    static bool insertPageCount(unsigned char* page, int length, int pageNumber, int pageCount);

    // The frame's width and height as the reference device counts pixels; 0 and 0 for a page that is too short or has a
    // size
    // that is none. Both stay as they are when the header doesn't give the size of the device.
    static void getImageSize(unsigned char* page, int length, unsigned int& width, unsigned int& height);

    // As CMetaFilePlayer::searchPageForString. 0, and -100 when there is no memory for the marked page; a hit
    // shows in `foundPage`. `position` is that of the record that the hit begins in, `textOffset` the index after
    // the last of its characters there; both stay without a hit. `x` and `y` are the reference point of the last
    // text met: with a hit, of the one it begins in. Throws KrnException without memory for anything else.
    static int searchPageForString(unsigned char* page, unsigned int length, const char* text, bool matchCase,
                                   bool wholeWord, unsigned int& position, unsigned int& textOffset,
                                   unsigned char*& foundPage, unsigned int& foundLength, int& x, int& y);

    // The text that follows the place (x, y) in reading order: its position, place and characters. 0, and nothing
    // changed, when there is none.
    static unsigned int findNextField(unsigned char* page, unsigned int length, int& x, int& y,
                                      TovoTextString& text);

private:
    HENHMETAFILE m_metafile; // made from the page's bytes; null when they are no metafile
};
