// What a GDI surface is, and its plain state: colours and modes.
#include "surfaceGDI.h"

namespace {

constexpr unsigned long NoColorYet =
    0xFFFFFFFF; // is not what GetColor gives, so the first colour reaches the device
constexpr unsigned long SystemColorBit = 0x80000000;
constexpr unsigned long ColorBits = 0x00FFFFFF;
constexpr unsigned long SystemColors = 24;

} // namespace

CSurfaceGDI::CSurfaceGDI()
    : m_hdc(nullptr), m_backMode(-1), m_savedFont(nullptr), m_currentBrush(nullptr), m_currentPen(nullptr),
      m_currentFont(nullptr), m_viewportExtent{}, m_windowExtent{}, m_createdFont(nullptr),
      m_createdBrush(nullptr), m_createdBrushColor(0), m_createdBrushStyle(0), m_createdPenWidth(0),
      m_createdPenColor(0), m_createdPenStyle(0), m_savedTransform{1, 0, 0, 1, 0, 0}, m_createdPen(nullptr)
{
    m_foreColor = NoColorYet;
}

CSurfaceGDI::~CSurfaceGDI()
{
    for (unsigned int i = 0; i < m_pictures.size(); ++i) {
        delete m_pictures[i];
    }
    // Two members may hold one font; a handle that is dead already harms nothing, but it is not this one's twice.
    const HFONT savedFont = m_savedFont != m_currentFont ? m_savedFont : nullptr;
    const HFONT strandedFont = m_strandedFont != m_currentFont ? m_strandedFont : nullptr;
    const HGDIOBJ owned[] = {m_currentPen,  m_currentBrush,  m_currentFont, savedFont,
                             m_strandedPen, m_strandedBrush, strandedFont};
    for (const HGDIOBJ object : owned) {
        if (object != nullptr) {
            DeleteObject(object);
        }
    }
}

void CSurfaceGDI::getData(unsigned char* /*buffer*/, unsigned int& size)
{
    size = 0;
}

int CSurfaceGDI::getDataLength()
{
    return 0;
}

int CSurfaceGDI::closeSurface()
{
    return 0;
}

int CSurfaceGDI::getSurfaceType()
{
    return 2;
}

HDC CSurfaceGDI::getEMFPlayerDestination()
{
    return m_hdc;
}

HDC CSurfaceGDI::getHDC()
{
    return m_hdc;
}

void CSurfaceGDI::printerNofMMarker(POINT /*point*/)
{
    kosAssertFail("Assertion failed", "false", "surface", "include\\surfaceGDI", __LINE__);
}

unsigned long CSurfaceGDI::GetColor(unsigned long color) const
{
    const unsigned long plain = color & ColorBits;
    if ((color & SystemColorBit) != 0 && plain < SystemColors) {
        return GetSysColor(static_cast<int>(plain));
    }
    return plain;
}

void CSurfaceGDI::setForeColor(unsigned long color)
{
    const unsigned long mapped = GetColor(color);
    if (mapped != m_foreColor) {
        SetTextColor(m_hdc, static_cast<COLORREF>(mapped));
        m_foreColor = mapped;
    }
}

void CSurfaceGDI::setBackColor(unsigned long color)
{
    m_backColor = GetColor(color);
}

void CSurfaceGDI::setBackMode(int mode)
{
    if (mode != m_backMode) {
        SetBkMode(m_hdc, mode);
        m_backMode = mode;
    }
}

void CSurfaceGDI::drawEraseRectangle(RECT* /*rect*/, unsigned long color)
{
    const unsigned long former = m_foreColor != NoColorYet ? m_foreColor : GetTextColor(m_hdc);
    setForeColor(color);
    setForeColor(former);
}
