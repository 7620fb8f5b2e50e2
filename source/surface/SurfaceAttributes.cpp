#include "surfaceAttributes.h"

#include <cstring>

#include <windows.h>

#include "brushStyles.h"
#include "color.h"
#include "moduleObjects.h"

using namespace drawing;

CSurfaceFont::CSurfaceFont(char* faceName, float size, bool bold, bool italic, bool strikethru,
                           bool underline)
    : m_size(size), m_bold(bold), m_italic(italic), m_underline(underline),
      m_strikethru(strikethru), m_faceName{}
{
    setFaceName(faceName);
}

CSurfaceFont& CSurfaceFont::operator=(const CSurfaceFont& other)
{
    if (this != &other) {
        m_size = other.m_size;
        m_bold = other.m_bold;
        m_italic = other.m_italic;
        m_underline = other.m_underline;
        m_strikethru = other.m_strikethru;
        std::memcpy(m_faceName, other.m_faceName, std::strlen(other.m_faceName) + 1);
    }
    return *this;
}

CSurfaceFont::~CSurfaceFont() = default;

void CSurfaceFont::set(char* faceName, float size, bool bold, bool italic, bool strikethru, bool underline)
{
    setFaceName(faceName);
    m_size = size;
    m_bold = bold;
    m_italic = italic;
    m_strikethru = strikethru;
    m_underline = underline;
}

void CSurfaceFont::setFaceName(char* faceName)
{
    std::size_t length = 0;
    while (faceName != nullptr && length < sizeof(m_faceName) - 1 && faceName[length] != '\0') {
        ++length;
    }
    if (length > 0) {
        std::memmove(m_faceName, faceName, length); // the name may be this font's own
    }
    m_faceName[length] = '\0';
}

bool CSurfaceFont::operator==(const CSurfaceFont& other) const
{
    return lstrcmpA(m_faceName, other.m_faceName) == 0 && m_size == other.m_size && m_bold == other.m_bold &&
           m_italic == other.m_italic && m_strikethru == other.m_strikethru &&
           m_underline == other.m_underline;
}

CSurfacePen::CSurfacePen(unsigned long color, int style, int width)
    : m_color(cutColor(color)), m_style(style), m_width(width)
{
}

CSurfacePen::~CSurfacePen() = default;

void CSurfacePen::get(unsigned long& color, int& style, int& width) const
{
    color = m_color;
    style = m_style;
    width = m_width;
}

void CSurfacePen::set(unsigned long color, int style, int width)
{
    m_color = cutColor(color);
    m_style = style;
    m_width = width;
}

void CSurfacePen::setColor(unsigned long color)
{
    m_color = cutColor(color);
}

bool CSurfacePen::operator==(const CSurfacePen& other) const
{
    return m_color == other.m_color && m_style == other.m_style && m_width == other.m_width;
}

CSurfaceBrush::CSurfaceBrush(unsigned long color, int style)
    : m_color(cutColor(color)), m_style(style), m_picture(0)
{
}

CSurfaceBrush::~CSurfaceBrush() = default;

void CSurfaceBrush::set(unsigned long color, int style)
{
    m_color = cutColor(color);
    m_style = style;
}

void CSurfaceBrush::setColor(unsigned long color)
{
    m_color = cutColor(color);
}

void CSurfaceBrush::setPicture(int picture)
{
    m_picture = picture;
    m_style = PictureBrush;
}

bool CSurfaceBrush::operator==(const CSurfaceBrush& other) const
{
    return m_color == other.m_color && m_style == other.m_style && m_picture == other.m_picture;
}

CTextStyle::CTextStyle() : CTextStyle(0x000000FF, 0, 0, 0) {}

CTextStyle::CTextStyle(unsigned long color, int style, int charAngle, int textAngle)
    : m_color(cutColor(color)), m_style(style), m_charAngle(charAngle), m_textAngle(textAngle)
{
}

CTextStyle::~CTextStyle() = default;

void CTextStyle::setRotation(int charAngle, int textAngle)
{
    m_charAngle = charAngle;
    m_textAngle = textAngle;
}

bool CTextStyle::operator==(const CTextStyle& other) const
{
    return m_color == other.m_color && m_style == other.m_style && m_charAngle == other.m_charAngle &&
           m_textAngle == other.m_textAngle;
}
