// CSurfaceSVG: construction, state, and the operations that write nothing.
#include "surfaceSVG.h"

#include <algorithm>
#include <cstring>

#include "color.h"
#include "rectangle.h"

using namespace drawing;

CSurfaceSVG::CSurfaceSVG()
    : m_clipCount(0), m_patternCount(0), m_symbolsUsed(0), m_nofmPending(false), m_currentClip(0),
      m_fontGroupOpen(false), m_textPathCount(0)
{
}

CSurfaceSVG::CSurfaceSVG(RECT* page, RECT* logical) : CSurfaceSVG()
{
    constexpr unsigned int BodyRoom = 8192; // characters; most pages of a report fit without regrowth
    m_body.reserve(BodyRoom);
    if (logical != nullptr) {
        m_width = widthOf(*logical);
        m_height = heightOf(*logical);
    }
    if (page != nullptr) {
        m_pageWidth = widthOf(*page);
        m_pageHeight = heightOf(*page);
    }
}

CSurfaceSVG::CSurfaceSVG(const CSurfaceSVG& other) = default;

// All that may fail comes first: a failure changes nothing.
CSurfaceSVG& CSurfaceSVG::operator=(const CSurfaceSVG& other)
{
    if (this == &other) {
        return *this;
    }
    CSurfaceSVG copy(other);
    CSurface::operator=(other);
    m_clipCount = copy.m_clipCount;
    m_patternCount = copy.m_patternCount;
    m_symbolsUsed = copy.m_symbolsUsed;
    m_nofmPending = copy.m_nofmPending;
    m_currentClip = copy.m_currentClip;
    m_fontGroupOpen = copy.m_fontGroupOpen;
    m_textPathCount = copy.m_textPathCount;
    m_body.swap(copy.m_body);
    m_imageDefs.swap(copy.m_imageDefs);
    m_clipDefs.swap(copy.m_clipDefs);
    m_patternDefs.swap(copy.m_patternDefs);
    m_textPathDefs.swap(copy.m_textPathDefs);
    m_imageSizes.swap(copy.m_imageSizes);
    m_imagesIncluded.swap(copy.m_imagesIncluded);
    m_toldImages.swap(copy.m_toldImages);
    return *this;
}

CSurfaceSVG::~CSurfaceSVG() = default;

void CSurfaceSVG::getData(unsigned char* buffer, unsigned int& size)
{
    size = buffer != nullptr ? std::min(size, m_body.length()) : 0;
    if (size > 0) {
        std::memcpy(buffer, m_body.text(), size);
    }
}

int CSurfaceSVG::getDataLength()
{
    return static_cast<int>(m_body.length());
}

int CSurfaceSVG::getSurfaceType()
{
    return 6;
}

int CSurfaceSVG::requiredPictureType(int /*picType*/)
{
    constexpr int Png = 8;
    return Png;
}

void CSurfaceSVG::setViewportOrigin(int x, int y)
{
    m_viewportOriginX = x;
    m_viewportOriginY = y;
}

void CSurfaceSVG::setForeColor(unsigned long color)
{
    m_foreColor = cutColor(color);
}

void CSurfaceSVG::printerNofMMarker(POINT /*point*/)
{
    m_nofmPending = true;
}

int CSurfaceSVG::loadFonts(DskParam* /*param*/)
{
    return 0;
}

// A page has no device to tell these to. setBackColor does not even keep its colour.

void CSurfaceSVG::newTextStyle(CTextStyle* /*style*/) {}

void CSurfaceSVG::restoreBrush() {}

void CSurfaceSVG::restoreFont() {}

void CSurfaceSVG::restorePen() {}

void CSurfaceSVG::setBackColor(unsigned long /*color*/) {}

void CSurfaceSVG::setBackMode(int /*mode*/) {}

void CSurfaceSVG::resetBrushOrg(POINT* /*point*/, int /*size*/) {}

void CSurfaceSVG::floodFill(int /*x*/, int /*y*/, unsigned long /*color*/, unsigned int /*type*/) {}
