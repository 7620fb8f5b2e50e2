// RecordingSurface: a surface that draws nothing and writes down, one line of text each, the virtual calls
// that it gets. The "any surface" of the player tests, of the fuzzers and of programs that compare pages.
//
// A line is the operation's name and its arguments in their order. Every value has one printed form:
//
//   rectangle, point, points   (1, 2, 3, 4)   (1, 2)   [(1, 2) (3, 4)]
//   colour                     rgb(1,2,3), in hexadecimal when it has bits above the 24 of those
//   pen, brush                 rgb(0,0,0) style 0 width 1      rgb(0,0,0) style 1 picture 0
//   font                       "Arial" 10 bold italic underline strikethru (the flags that are set)
//   text                       "in quotes", other than plain ASCII as \xNN
//   text chunk                 {"A" (1, 2) length -1 find 0 0 newline follows underline} (the flags set)
//   bytes of an image          1024:81c9dc5f, the length and the FNV-1a hash
//   null                       null; for points []
//
// prepareSurface prints the sizes that a player wrote into the surface: logical, page, output.
#pragma once

#include "surface.h"

#include <string>
#include <vector>

// The operations stand as a table with their bodies: each records, then calls what CSurface does itself.
class RecordingSurface : public CSurface {
public:
    using CSurface::setBrush;
    using CSurface::setFont;
    using CSurface::setPen;

    const std::vector<std::string>& calls() const { return m_calls; }
    // The calls, each with a line feed.
    std::string text() const;

    // It has no page of its own: nothing is copied.
    void getData(unsigned char*, unsigned int& size) override { record("getData", size), size = 0; }
    int getDataLength() override { return record("getDataLength"), 0; }
    int closeSurface() override { return record("closeSurface"), 0; }
    void prepareSurface() override
    {
        record("prepareSurface", SIZE{m_width, m_height}, SIZE{m_pageWidth, m_pageHeight},
               SIZE{m_outputWidth, m_outputHeight});
        CSurface::prepareSurface();
    }
    int getSurfaceType() override { return record("getSurfaceType"), 0; }
    HDC getEMFPlayerDestination() override
    {
        record("getEMFPlayerDestination");
        return CSurface::getEMFPlayerDestination();
    }
    HDC getHDC() override { return record("getHDC"), CSurface::getHDC(); }
    bool canDrawFormattedText() override
    {
        return record("canDrawFormattedText"), CSurface::canDrawFormattedText();
    }

    void drawString(const char* text, RECT* rect, unsigned int flags) override
    {
        record("drawString", text, rect, flags);
    }
    bool drawString(Array<CSurfaceTextChunk, 2>* chunks, RECT* rect, int flags, float a, float b) override
    {
        record("drawString", chunks, rect, flags, a, b);
        return CSurface::drawString(chunks, rect, flags, a, b);
    }
    bool drawString(Array<CSurfaceTextChunk, 2>* chunks, RECT* rect, int flags) override
    {
        return record("drawString", chunks, rect, flags), true;
    }
    void drawText(const char* text, RECT* rect, unsigned int flags) override
    {
        record("drawText", text, rect, flags);
    }
    void drawTextAt(const char* text, POINT* point, unsigned int flags) override
    {
        record("drawTextAt", text, point, flags);
    }
    void drawTextOnBaseLine(int x, int y, unsigned int options, RECT* rect, char* text, int length) override
    {
        record("drawTextOnBaseLine", x, y, options, rect, Piece{text, length}, length);
    }
    void drawStringRotated(const char* text, RECT* rect, unsigned int flags, int charAngle,
                           int textAngle) override
    {
        record("drawStringRotated", text, rect, flags, charAngle, textAngle);
        CSurface::drawStringRotated(text, rect, flags, charAngle, textAngle);
    }
    void printerNofMMarker(POINT point) override { record("printerNofMMarker", &point); }
    int loadFonts(DskParam*) override { return record("loadFonts"), 0; }

    int requiredPictureType(int picType) override
    {
        return record("requiredPictureType", picType), CSurface::requiredPictureType(picType);
    }
    void includeImage(unsigned int id, unsigned char* data, int size, int width, int height,
                      int picType) override
    {
        record("includeImage", id, Bytes{data, size}, SIZE{width, height}, picType);
    }
    void drawImage(RECT* rect, unsigned int id, int mode, int x, int y) override
    {
        record("drawImage", rect, id, mode, x, y);
    }

    void drawArc(RECT* rect, int x1, int y1, int x2, int y2) override
    {
        record("drawArc", rect, x1, y1, x2, y2);
    }
    void drawChord(RECT* rect, int x1, int y1, int x2, int y2) override
    {
        record("drawChord", rect, x1, y1, x2, y2);
    }
    void drawPie(RECT* rect, int x1, int y1, int x2, int y2) override
    {
        record("drawPie", rect, x1, y1, x2, y2);
    }
    void drawFocusRect(RECT* rect) override { record("drawFocusRect", rect); }
    void drawLine(int x1, int y1, int x2, int y2) override { record("drawLine", x1, y1, x2, y2); }
    void drawRectangle(RECT* rect) override { record("drawRectangle", rect); }
    void drawRoundedRectangle(RECT* rect, unsigned int width, unsigned int height) override
    {
        record("drawRoundedRectangle", rect, width, height);
    }
    void drawSolidRectangle(RECT* rect, unsigned long color) override
    {
        record("drawSolidRectangle", rect, color);
    }
    void ellipse(RECT* rect) override { record("ellipse", rect); }
    void frameRect(RECT* rect, unsigned long color) override { record("frameRect", rect, color); }
    void polygon(POINT* points, unsigned int count) override { record("polygon", Points{points, count}); }
    void polyline(POINT* points, unsigned int count) override { record("polyline", Points{points, count}); }
    void solidPolygon(POINT* points, unsigned int count, unsigned long color) override
    {
        record("solidPolygon", color, Points{points, count});
    }
    void floodFill(int x, int y, unsigned long color, unsigned int type) override
    {
        record("floodFill", x, y, color, type);
    }

    void resetBrushOrg(POINT* point, int size) override { record("resetBrushOrg", point, size); }
    void restoreBrush() override { record("restoreBrush"); }
    void restoreFont() override { record("restoreFont"); }
    void restorePen() override { record("restorePen"); }
    void setClippingRegion(RECT* rect) override { record("setClippingRegion", rect); }
    void setBackColor(unsigned long c) override { record("setBackColor", c), CSurface::setBackColor(c); }
    void setBackMode(int mode) override { record("setBackMode", mode); }
    void setBrush(CSurfaceBrush* brush) override { record("setBrush", brush), CSurface::setBrush(brush); }
    void setFont(CSurfaceFont* font) override { record("setFont", font), CSurface::setFont(font); }
    void setPen(CSurfacePen* pen) override { record("setPen", pen), CSurface::setPen(pen); }
    void newTextStyle(CTextStyle* style) override { record("newTextStyle", style); }
    // CSurface passes the colour on, so a setForeColor follows.
    void setTextColor(unsigned long c) override { record("setTextColor", c), CSurface::setTextColor(c); }
    void setTextRotation(int charAngle, int textAngle) override
    {
        record("setTextRotation", charAngle, textAngle);
        CSurface::setTextRotation(charAngle, textAngle);
    }
    void setTransform(float m11, float m12, float m21, float m22, float dx, float dy) override
    {
        record("setTransform", m11, m12, m21, m22, dx, dy);
        CSurface::setTransform(m11, m12, m21, m22, dx, dy);
    }
    void clearTransform() override { record("clearTransform"), CSurface::clearTransform(); }
    void setForeColor(unsigned long c) override { record("setForeColor", c), CSurface::setForeColor(c); }
    void setViewportOrigin(int x, int y) override
    {
        record("setViewportOrigin", x, y);
        CSurface::setViewportOrigin(x, y);
    }

private:
    struct Bytes {
        const unsigned char* data;
        int size;
    };
    struct Piece {
        const char* text;
        int length; // -1: to the terminator
    };
    struct Points {
        const POINT* first;
        unsigned int count;
    };

    template <typename... Values>
    void record(const char* operation, const Values&... values)
    {
        std::string line(operation);
        (line.append(" ").append(shown(values)), ...);
        m_calls.push_back(std::move(line));
    }

    template <typename Value>
    static std::string shown(const Value* value)
    {
        return value == nullptr ? "null" : shown(*value);
    }

    static std::string shown(int number);
    static std::string shown(unsigned int number);
    static std::string shown(float number);
    static std::string shown(unsigned long color);
    static std::string shown(const RECT& rect);
    static std::string shown(const POINT& point);
    static std::string shown(const SIZE& size);
    static std::string shown(const Points& points);
    static std::string shown(const Bytes& bytes);
    static std::string shown(const std::string& text);
    static std::string shown(const char* text);
    static std::string shown(const Piece& piece);
    static std::string shown(const CSurfaceTextChunk& chunk);
    static std::string shown(const Array<CSurfaceTextChunk, 2>& chunks);
    static std::string shown(const CSurfaceBrush& brush);
    static std::string shown(CSurfaceFont font);
    static std::string shown(const CSurfacePen& pen);
    static std::string shown(const CTextStyle& style);

    std::vector<std::string> m_calls;
};
