// Operations that are declared and do nothing yet: text, images, and what works on the bytes of a page.
#include "metaFilePlayerEMF.h"
#include "metaFilePlayerSVG.h"
#include "surfaceSVG.h"

TovoTextString CSurface::toXML(TovoTextString text)
{
    return text;
}

TovoTextString CSurface::fromXML(TovoTextString text)
{
    return text;
}

void CSurfaceSVG::drawString(const char* /*text*/, RECT* /*rect*/, unsigned int /*flags*/) {}

bool CSurfaceSVG::drawString(Array<CSurfaceTextChunk, 2>* /*chunks*/, RECT* /*rect*/, int /*flags*/, float,
                             float)
{
    return false;
}

bool CSurfaceSVG::drawString(Array<CSurfaceTextChunk, 2>* /*chunks*/, RECT* /*rect*/, int /*flags*/)
{
    return false;
}

void CSurfaceSVG::drawText(const char* /*text*/, RECT* /*rect*/, unsigned int /*flags*/) {}

void CSurfaceSVG::drawTextAt(const char* /*text*/, POINT* /*point*/, unsigned int /*flags*/) {}

void CSurfaceSVG::drawTextOnBaseLine(int /*x*/, int /*y*/, unsigned int /*options*/, RECT* /*rect*/,
                                     char* /*text*/, int /*length*/)
{
}

void CSurfaceSVG::includeImage(unsigned int /*id*/, unsigned char* /*data*/, int /*size*/, int /*width*/,
                               int /*height*/, int /*picType*/)
{
}

void CSurfaceSVG::drawImage(RECT* /*rect*/, unsigned int /*id*/, int /*mode*/, int /*x*/, int /*y*/) {}

void CSurfaceSVG::makePatternDef(int /*image*/) {}

int CMetaFilePlayerSVG::processTextElement(char** /*element*/)
{
    return 0;
}

int CMetaFilePlayerSVG::processImageDefinition(char* /*element*/)
{
    return 0;
}

int CMetaFilePlayerSVG::processImageUse(char* /*element*/, const char* /*name*/, int /*x*/, int /*y*/)
{
    return 0;
}

bool CMetaFilePlayerSVG::insertPageCount(unsigned char* /*page*/, int /*length*/, int /*pageNumber*/,
                                         int /*pageCount*/)
{
    return false;
}

void CMetaFilePlayerSVG::getImageSize(unsigned char* /*page*/, int /*length*/, unsigned int& width,
                                      unsigned int& height)
{
    width = 0;
    height = 0;
}

int CMetaFilePlayerSVG::searchPageForString(unsigned char* /*page*/, unsigned int /*length*/,
                                            const char* /*text*/, bool /*matchCase*/, bool /*wholeWord*/,
                                            unsigned int& /*position*/, unsigned int& /*textOffset*/,
                                            unsigned char*& /*foundPage*/, unsigned int& foundLength,
                                            int& /*x*/, int& /*y*/)
{
    foundLength = 0;
    return 0;
}

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
