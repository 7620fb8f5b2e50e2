// CSurfacePSPrinter: construction, copies, state, and the operations that write nothing.
#include "surfacePSPrinter.h"

#include <algorithm>
#include <cstring>

#include "PostScriptDetail.h"
#include "rectangle.h"

using namespace drawing;

namespace {

void addOwnerToEach(const Array<CPostScriptImage, 10>& images)
{
    for (unsigned int i = 0; i < images.size(); ++i) {
        if (images[i] != nullptr) {
            images[i]->addOwner();
        }
    }
}

void removeOwnerFromEach(const Array<CPostScriptImage, 10>& images)
{
    for (unsigned int i = 0; i < images.size(); ++i) {
        if (images[i] != nullptr) {
            images[i]->removeOwner();
        }
    }
}

} // namespace

CSurfacePSPrinter::CSurfacePSPrinter(int originX, int originY)
    : m_originX(originX), m_originY(originY), m_proceduresUsed(0), m_currentColor(0), m_currentLineWidth(1),
      m_clipActive(false), m_stateDepth(0), m_depthsWithFont(0), m_toldTraps(0)
{
    constexpr unsigned int BodyRoom = 8192; // characters; most pages of a report fit without regrowth
    m_body.reserve(BodyRoom);
}

CSurfacePSPrinter::CSurfacePSPrinter(const CSurfacePSPrinter& other)
    : CSurface(other), m_originX(other.m_originX), m_originY(other.m_originY),
      m_proceduresUsed(other.m_proceduresUsed), m_body(other.m_body), m_images(other.m_images),
      m_currentColor(other.m_currentColor), m_currentLineWidth(other.m_currentLineWidth),
      m_clipActive(other.m_clipActive), m_stateDepth(other.m_stateDepth),
      m_depthsWithFont(other.m_depthsWithFont), m_toldTraps(other.m_toldTraps),
      m_toldImages(other.m_toldImages), m_definedPatterns(other.m_definedPatterns),
      m_missingPictures(other.m_missingPictures), m_patternTexts(other.m_patternTexts),
      m_patternDefs(other.m_patternDefs)
{
    addOwnerToEach(m_images);
}

// All that may fail comes first: a failure changes nothing.
CSurfacePSPrinter& CSurfacePSPrinter::operator=(const CSurfacePSPrinter& other)
{
    if (this == &other) {
        return *this;
    }
    CSurfacePSPrinter copy(other);
    CSurface::operator=(other);
    m_originX = copy.m_originX;
    m_originY = copy.m_originY;
    m_proceduresUsed = copy.m_proceduresUsed;
    m_currentColor = copy.m_currentColor;
    m_currentLineWidth = copy.m_currentLineWidth;
    m_clipActive = copy.m_clipActive;
    m_stateDepth = copy.m_stateDepth;
    m_depthsWithFont = copy.m_depthsWithFont;
    m_toldTraps = copy.m_toldTraps;
    m_toldImages.swap(copy.m_toldImages);
    m_body.swap(copy.m_body);
    m_images.swap(copy.m_images);
    m_definedPatterns.swap(copy.m_definedPatterns);
    m_missingPictures.swap(copy.m_missingPictures);
    m_patternTexts.swap(copy.m_patternTexts);
    m_patternDefs.swap(copy.m_patternDefs);
    return *this;
}

CSurfacePSPrinter::~CSurfacePSPrinter()
{
    removeOwnerFromEach(m_images);
}

void* CSurfacePSPrinter::getData()
{
    Detail(*this).settlePatternDefs();
    return m_body.text();
}

void CSurfacePSPrinter::getData(unsigned char* buffer, unsigned int& size)
{
    size = buffer != nullptr ? std::min(size, static_cast<unsigned int>(getDataLength())) : 0;
    if (size > 0) {
        std::memcpy(buffer, m_body.text(), size);
    }
}

int CSurfacePSPrinter::getDataLength()
{
    Detail(*this).settlePatternDefs();
    return static_cast<int>(m_body.length());
}

int CSurfacePSPrinter::getSurfaceType()
{
    return 5;
}

void CSurfacePSPrinter::setDrawMode(int mode)
{
    m_drawMode = mode;
}

RECT* CSurfacePSPrinter::getClipRegion()
{
    return &m_clipRegion;
}

void CSurfacePSPrinter::setClipRegion(RECT* rect)
{
    if (rect != nullptr) {
        m_clipRegion = *rect;
    }
}

void CSurfacePSPrinter::convertPostScriptCoords(RECT* out, RECT* in)
{
    *out = RECT{in->left, wrapSubtract(0, in->top), in->right, wrapSubtract(0, in->bottom)};
}

void CSurfacePSPrinter::setViewportOrigin(int x, int y)
{
    m_viewportOriginX = x;
    m_viewportOriginY = y;
}

int CSurfacePSPrinter::loadFonts(DskParam* /*param*/)
{
    return 0;
}

// A page has no device to tell these to, and no place for a later page count. setBackColor does not even keep
// its colour.

void CSurfacePSPrinter::newTextStyle(CTextStyle* /*style*/) {}

void CSurfacePSPrinter::restoreBrush() {}

void CSurfacePSPrinter::restoreFont() {}

void CSurfacePSPrinter::restorePen() {}

void CSurfacePSPrinter::setBackColor(unsigned long /*color*/) {}

void CSurfacePSPrinter::setBackMode(int /*mode*/) {}

void CSurfacePSPrinter::resetBrushOrg(POINT* /*point*/, int /*size*/) {}

void CSurfacePSPrinter::printerNofMMarker(POINT /*point*/) {}

void CSurfacePSPrinter::solidPolygon(POINT* /*points*/, unsigned int /*count*/, unsigned long /*color*/) {}

void CSurfacePSPrinter::floodFill(int /*x*/, int /*y*/, unsigned long /*color*/, unsigned int /*type*/) {}

void CSurfacePSPrinter::drawEdge(RECT* /*rect*/, unsigned int /*edge*/, unsigned int /*flags*/) {}
