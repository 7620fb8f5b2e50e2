#include "surface.h"

#include <algorithm>
#include <iterator>

#include "color.h"
#include "moduleObjects.h"

using namespace drawing;

CSurface::CSurface()
    : m_width(0), m_height(0), m_pageWidth(0), m_pageHeight(0), m_outputWidth(0), m_outputHeight(0),
      m_drawMode(0), m_foreColor(0), m_backColor(0), m_clipRegion{}, m_viewportOriginX(0),
      m_viewportOriginY(0), m_transform{}, m_hasTransform(false)
{
}

CSurface::CSurface(const CSurface& other) = default;

CSurface& CSurface::operator=(const CSurface& other)
{
    if (this == &other) {
        return *this;
    }
    m_imageIds = other.m_imageIds; // first, because nothing after it can fail
    m_width = other.m_width;
    m_height = other.m_height;
    m_pageWidth = other.m_pageWidth;
    m_pageHeight = other.m_pageHeight;
    m_outputWidth = other.m_outputWidth;
    m_outputHeight = other.m_outputHeight;
    m_drawMode = other.m_drawMode;
    m_foreColor = other.m_foreColor;
    m_backColor = other.m_backColor;
    m_brush = other.m_brush;
    m_pen = other.m_pen;
    m_font = other.m_font;
    m_textStyle = other.m_textStyle;
    m_clipRegion = other.m_clipRegion;
    m_viewportOriginX = other.m_viewportOriginX;
    m_viewportOriginY = other.m_viewportOriginY;
    std::copy(std::begin(other.m_transform), std::end(other.m_transform), std::begin(m_transform));
    m_hasTransform = other.m_hasTransform;
    return *this;
}

CSurface::~CSurface() = default;

void CSurface::prepareSurface() {}

HDC CSurface::getEMFPlayerDestination()
{
    return nullptr;
}

HDC CSurface::getHDC()
{
    return nullptr;
}

bool CSurface::canDrawFormattedText()
{
    return false;
}

bool CSurface::drawString(Array<CSurfaceTextChunk, 2>* /*chunks*/, RECT* /*rect*/, int /*flags*/, float,
                          float)
{
    return false;
}

int CSurface::requiredPictureType(int picType)
{
    return picType;
}

void CSurface::clearTransform()
{
    m_hasTransform = false;
}

void CSurface::drawStringRotated(const char* /*text*/, RECT* /*rect*/, unsigned int /*flags*/,
                                 int /*charAngle*/, int /*textAngle*/)
{
}

void CSurface::setBackColor(unsigned long color)
{
    m_backColor = cutColor(color);
}

void CSurface::setBrush(CSurfaceBrush* brush)
{
    if (brush != nullptr) {
        m_brush = *brush;
    }
}

void CSurface::setFont(CSurfaceFont* font)
{
    if (font != nullptr) {
        m_font = *font;
    }
}

void CSurface::setPen(CSurfacePen* pen)
{
    if (pen != nullptr) {
        m_pen = *pen;
    }
}

void CSurface::setTextColor(unsigned long color)
{
    m_textStyle =
        CTextStyle(color, m_textStyle.getStyle(), m_textStyle.getCharAngle(), m_textStyle.getTextAngle());
    setForeColor(cutColor(color));
}

void CSurface::setTextRotation(int charAngle, int textAngle)
{
    m_textStyle.setRotation(charAngle, textAngle);
}

void CSurface::setTransform(float m11, float m12, float m21, float m22, float dx, float dy)
{
    const float elements[] = {m11, m12, m21, m22, dx, dy};
    for (int i = 0; i < 6; ++i) {
        m_transform[i] = elements[i];
    }
    m_hasTransform = true;
}

void CSurface::setForeColor(unsigned long color)
{
    m_foreColor = cutColor(color);
}

void CSurface::setViewportOrigin(int x, int y)
{
    m_viewportOriginX = x;
    m_viewportOriginY = y;
}

void CSurface::setBrush(unsigned long color, int style)
{
    CSurfaceBrush brush(color, style);
    setBrush(&brush);
}

void CSurface::setPen(unsigned long color, int style, int width)
{
    CSurfacePen pen(color, style, width);
    setPen(&pen);
}

void CSurface::setFont(char* faceName, float size, bool bold, bool italic, bool strikethru, bool underline)
{
    CSurfaceFont font(faceName, size, bold, italic, strikethru, underline);
    setFont(&font);
}

void CSurface::setTextStyle(CTextStyle* style)
{
    if (style != nullptr && *style != m_textStyle) {
        newTextStyle(style);
        m_textStyle = *style;
    }
}

unsigned int CSurface::addImageIndx(unsigned int id)
{
    m_imageIds.add(id);
    return m_imageIds.size();
}

unsigned int CSurface::getImageIndx(unsigned int id)
{
    return mapUserImageId(id);
}

unsigned int CSurface::mapUserImageId(unsigned int id)
{
    constexpr unsigned int NotFound = 0xFFFFFFFF;
    for (unsigned int i = 0; i < m_imageIds.size(); ++i) {
        if (m_imageIds[i] == id) {
            return i + 1;
        }
    }
    return NotFound;
}

void CSurface::AssertFailed(const char* expression, const char* file, int line)
{
    kosAssertFail("Tovo.exe Assertion failed", expression, "surface", file, line);
}
