// CMetaFilePlayerEMF: the player for pages stored as enhanced metafiles ([MS-EMF]).
//
// Made by CMetaFilePlayer::createPlayer. It can play only on a surface that has a device context to offer.
#pragma once

#include "metaFilePlayer.h"

class SURFACE_API CMetaFilePlayerEMF : public CMetaFilePlayer {
public:
    CMetaFilePlayerEMF(unsigned char* page, unsigned int length);
    ~CMetaFilePlayerEMF() override;

    int play(CSurface* surface, RECT* rect) override;
    int metaFileFormat() override;

    static bool insertPageCount(unsigned char* page, int length, int pageNumber, int pageCount);
    static void getImageSize(unsigned char* page, int length, unsigned int& width, unsigned int& height);
    static int searchPageForString(unsigned char* page, unsigned int length, const char* text, bool matchCase,
                                   bool wholeWord, unsigned int& position, unsigned int& textOffset,
                                   unsigned char*& foundPage, unsigned int& foundLength, int& x, int& y);

private:
    HENHMETAFILE m_metafile; // made from the page's bytes; null when they are no metafile
};
