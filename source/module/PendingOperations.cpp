// Operations that are declared and do nothing yet: the player of metafile pages.
#include "metaFilePlayerEMF.h"

CMetaFilePlayerEMF::CMetaFilePlayerEMF(unsigned char* /*page*/, unsigned int /*length*/) : m_metafile(nullptr)
{
}

CMetaFilePlayerEMF::~CMetaFilePlayerEMF() = default;

int CMetaFilePlayerEMF::play(CSurface* /*surface*/, RECT* /*rect*/)
{
    return m_metafile != nullptr ? 1 : 0;
}

int CMetaFilePlayerEMF::metaFileFormat()
{
    return 1;
}

bool CMetaFilePlayerEMF::insertPageCount(unsigned char* /*page*/, int /*length*/, int /*pageNumber*/,
                                         int /*pageCount*/)
{
    return false;
}

void CMetaFilePlayerEMF::getImageSize(unsigned char* /*page*/, int /*length*/, unsigned int& width,
                                      unsigned int& height)
{
    width = 0;
    height = 0;
}

int CMetaFilePlayerEMF::searchPageForString(unsigned char* /*page*/, unsigned int /*length*/,
                                            const char* /*text*/, bool /*matchCase*/, bool /*wholeWord*/,
                                            unsigned int& /*position*/, unsigned int& /*textOffset*/,
                                            unsigned char*& /*foundPage*/, unsigned int& foundLength,
                                            int& /*x*/, int& /*y*/)
{
    foundLength = 0;
    return 0;
}
