// The four small values that a caller sets on a surface: font, pen, brush and text style.
//
// Each CSurface has one of every kind in force; others are made only to be handed over.
// They know nothing of a device: back ends read their fields. All four are copied freely by value.
//
// Colours are 32-bit: red in bits 0 to 7, green in 8 to 15, blue in 16 to 23. `unsigned long` may have 64
// bits, so whatever is given is cut to 32. Objects made with `new` live in the module's own heap; `new` gives
// null when that heap has no memory.
#pragma once

#include <cstddef>

#include "sys/moduleObject.h"
#include "sys/surfaceExport.h"

// A font as the caller names it. In argument lists strikethru comes before underline; among the fields it
// follows it.
class SURFACE_API CSurfaceFont : public ModuleObject {
public:
    // `faceName` may be null (no name) and is cut at 31 characters; `size` is in points.
    CSurfaceFont(char* faceName = nullptr, float size = 0, bool bold = false, bool italic = false,
                 bool strikethru = false, bool underline = false);
    CSurfaceFont(const CSurfaceFont& other) = default;
    CSurfaceFont& operator=(const CSurfaceFont& other);
    virtual ~CSurfaceFont();

    // The name's own buffer: at most 31 characters and a zero byte.
    char* getFaceName() { return m_faceName; }
    float getSize() const { return m_size; }
    bool getBold() const { return m_bold; }
    bool getItalic() const { return m_italic; }
    bool getStrikethru() const { return m_strikethru; }
    bool getUnderline() const { return m_underline; }

    void set(char* faceName, float size, bool bold, bool italic, bool strikethru, bool underline);
    // Null gives the empty name; a longer name is cut at 31 characters here as well.
    void setFaceName(char* faceName);
    void setSize(float size) { m_size = size; }
    void setBold(bool bold) { m_bold = bold; }
    void setItalic(bool italic) { m_italic = italic; }
    void setStrikethru(bool strikethru) { m_strikethru = strikethru; }
    void setUnderline(bool underline) { m_underline = underline; }

    // Names are compared with their case, sizes without tolerance: a size that is no number equals nothing.
    bool operator==(const CSurfaceFont& other) const;
    bool operator!=(const CSurfaceFont& other) const { return !(*this == other); }

private:
    float m_size;
    bool m_bold;
    bool m_italic;
    bool m_underline;
    bool m_strikethru;
    char m_faceName[32];
};

// A pen: colour, Windows pen style word, width in logical units. The style word holds the line style in bits
// 0 to 3 (0 solid, 1 dash, 2 dot, 3 dash-dot, 4 dash-dot-dot, 5 none, 6 inside frame), the end cap in bits 8
// to 11 (0 round, 1 square, 2 flat) and the join in bits 12 to 15 (0 round, 1 bevel, 2 miter).
class SURFACE_API CSurfacePen : public ModuleObject {
public:
    CSurfacePen(unsigned long color = 0, int style = 0, int width = 1);
    CSurfacePen(const CSurfacePen& other) = default;
    CSurfacePen& operator=(const CSurfacePen& other) = default;
    virtual ~CSurfacePen();

    int getWidth() const { return m_width; }
    int getStyle() const { return m_style; }
    unsigned long getColor() const { return m_color; }
    void get(unsigned long& color, int& style, int& width) const;

    void set(unsigned long color, int style, int width);
    void setWidth(int width) { m_width = width; }
    void setStyle(int style) { m_style = style; }
    void setColor(unsigned long color);

    bool operator==(const CSurfacePen& other) const;
    bool operator!=(const CSurfacePen& other) const { return !(*this == other); }

private:
    unsigned long m_color;
    int m_style;
    int m_width;
};

// A brush. Styles: 0 solid, 1 hollow, 2 horizontal, 3 vertical, 4 forward diagonal, 5 backward diagonal,
// 6 cross and 7 diagonal cross hatch, 99 picture. The colour is that of the fill or of the hatch lines.
class SURFACE_API CSurfaceBrush : public ModuleObject {
public:
    CSurfaceBrush(unsigned long color = 0, int style = 1);
    CSurfaceBrush(const CSurfaceBrush& other) = default;
    CSurfaceBrush& operator=(const CSurfaceBrush& other) = default;
    virtual ~CSurfaceBrush();

    int getStyle() const { return m_style; }
    unsigned long getColor() const { return m_color; }
    int getPicture() const { return m_picture; }

    // Leaves the picture number as it is; a comparison sees it whatever the style.
    void set(unsigned long color, int style);
    void setStyle(int style) { m_style = style; }
    void setColor(unsigned long color);
    // Makes this a picture brush: the style becomes 99.
    void setPicture(int picture);

    bool operator==(const CSurfaceBrush& other) const;
    bool operator!=(const CSurfaceBrush& other) const { return !(*this == other); }

private:
    unsigned long m_color;
    int m_style;
    int m_picture;
};

// Colour and rotation of text. The style word is stored, copied and compared, and means nothing here. Angles
// are whole degrees: of each character, and of the line of text.
class SURFACE_API CTextStyle : public ModuleObject {
public:
    // Red, style 0, no rotation.
    CTextStyle();
    CTextStyle(unsigned long color, int style, int charAngle, int textAngle);
    CTextStyle(const CTextStyle& other) = default;
    CTextStyle& operator=(const CTextStyle& other) = default;
    virtual ~CTextStyle();

    int getStyle() const { return m_style; }
    unsigned long getColor() const { return m_color; }
    int getTextAngle() const { return m_textAngle; }
    int getCharAngle() const { return m_charAngle; }

    void setRotation(int charAngle, int textAngle);

    bool operator==(const CTextStyle& other) const;
    bool operator!=(const CTextStyle& other) const { return !(*this == other); }

private:
    unsigned long m_color;
    int m_style;
    int m_charAngle;
    int m_textAngle;
};
