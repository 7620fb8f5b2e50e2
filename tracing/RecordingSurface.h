// RecordingSurface: a surface that draws nothing and writes down, one line of text each, the virtual calls
// that it gets. The "any surface" of the player tests, of the fuzzers and of programs that compare or trace pages.
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

#include <charconv>
#include <functional>
#include <iterator>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

// The operations are a table with their bodies: each records, then does what CSurface does itself.
class RecordingSurface : public CSurface {
public:
    using CSurface::setBrush;
    using CSurface::setFont;
    using CSurface::setPen;

    using Chunks = Array<CSurfaceTextChunk, 2>;

    // Hears of each call as it comes, without a line feed.
    using Listener = std::function<void(const std::string& call)>;

    // Keeps its calls.
    RecordingSurface() = default;
    // Passes its calls to the listener and keeps none: for pages of any length.
    explicit RecordingSurface(Listener listener) : m_listener(std::move(listener)) {}

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
    HDC getEMFPlayerDestination() override { return record("getEMFPlayerDestination"), nullptr; }
    HDC getHDC() override { return record("getHDC"), nullptr; }
    bool canDrawFormattedText() override { return record("canDrawFormattedText"), false; }

    void drawString(const char* s, RECT* r, UINT flags) override { record("drawString", s, r, flags); }
    bool drawString(Chunks* chunks, RECT* r, int flags, float a, float b) override
    {
        return record("drawString", chunks, r, flags, a, b), CSurface::drawString(chunks, r, flags, a, b);
    }
    bool drawString(Chunks* c, RECT* r, int flags) override
    {
        return record("drawString", c, r, flags), true;
    }
    void drawText(const char* s, RECT* r, UINT flags) override { record("drawText", s, r, flags); }
    void drawTextAt(const char* s, POINT* p, UINT flags) override { record("drawTextAt", s, p, flags); }
    void drawTextOnBaseLine(int x, int y, UINT options, RECT* r, char* text, int length) override
    {
        record("drawTextOnBaseLine", x, y, options, r, Piece{text, length}, length);
    }
    void drawStringRotated(const char* s, RECT* r, UINT flags, int charAngle, int textAngle) override
    {
        record("drawStringRotated", s, r, flags, charAngle, textAngle);
        CSurface::drawStringRotated(s, r, flags, charAngle, textAngle);
    }
    void printerNofMMarker(POINT point) override { record("printerNofMMarker", &point); }
    int loadFonts(DskParam*) override { return record("loadFonts"), 0; }

    int requiredPictureType(int type) override { return record("requiredPictureType", type), type; }
    void includeImage(UINT id, unsigned char* data, int size, int width, int height, int type) override
    {
        record("includeImage", id, Bytes{data, size}, SIZE{width, height}, type);
    }
    void drawImage(RECT* r, UINT id, int mode, int x, int y) override
    {
        record("drawImage", r, id, mode, x, y);
    }

    void drawArc(RECT* r, int a, int b, int c, int d) override { record("drawArc", r, a, b, c, d); }
    void drawChord(RECT* r, int a, int b, int c, int d) override { record("drawChord", r, a, b, c, d); }
    void drawPie(RECT* r, int a, int b, int c, int d) override { record("drawPie", r, a, b, c, d); }
    void drawFocusRect(RECT* rect) override { record("drawFocusRect", rect); }
    void drawLine(int x1, int y1, int x2, int y2) override { record("drawLine", x1, y1, x2, y2); }
    void drawRectangle(RECT* rect) override { record("drawRectangle", rect); }
    void drawRoundedRectangle(RECT* r, UINT w, UINT h) override { record("drawRoundedRectangle", r, w, h); }
    void drawSolidRectangle(RECT* r, unsigned long c) override { record("drawSolidRectangle", r, c); }
    void ellipse(RECT* rect) override { record("ellipse", rect); }
    void frameRect(RECT* rect, unsigned long color) override { record("frameRect", rect, color); }
    void polygon(POINT* points, UINT count) override { record("polygon", Points{points, count}); }
    void polyline(POINT* points, UINT count) override { record("polyline", Points{points, count}); }
    void solidPolygon(POINT* p, UINT n, unsigned long c) override { record("solidPolygon", c, Points{p, n}); }
    void floodFill(int x, int y, unsigned long c, UINT type) override { record("floodFill", x, y, c, type); }

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
        record("setTextRotation", charAngle, textAngle), CSurface::setTextRotation(charAngle, textAngle);
    }
    void setTransform(float a, float b, float c, float d, float dx, float dy) override
    {
        record("setTransform", a, b, c, d, dx, dy), CSurface::setTransform(a, b, c, d, dx, dy);
    }
    void clearTransform() override { record("clearTransform"), CSurface::clearTransform(); }
    void setForeColor(unsigned long c) override { record("setForeColor", c), CSurface::setForeColor(c); }
    void setViewportOrigin(int x, int y) override
    {
        record("setViewportOrigin", x, y), CSurface::setViewportOrigin(x, y);
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
        if (m_listener) {
            m_listener(line);
        } else {
            m_calls.push_back(std::move(line));
        }
    }

    template <typename Number>
    requires std::is_arithmetic_v<Number>
    static std::string shown(Number number, auto... base)
    {
        char digits[64];
        return {digits, std::to_chars(digits, std::end(digits), number, base...).ptr};
    }
    template <typename Value>
    static std::string shown(const Value* value)
    {
        return value == nullptr ? "null" : shown(*value);
    }
    static std::string shown(const char* text) { return shown(Piece{text, -1}); }
    static std::string shown(unsigned long color);
    static std::string shown(const RECT& rect);
    static std::string shown(const POINT& point);
    static std::string shown(const SIZE& size);
    static std::string shown(const Points& points);
    static std::string shown(const Bytes& bytes);
    static std::string shown(const std::string& text);
    static std::string shown(const Piece& piece);
    static std::string shown(const CSurfaceTextChunk& chunk);
    static std::string shown(const Chunks& chunks);
    static std::string shown(const CSurfaceBrush& brush);
    static std::string shown(CSurfaceFont font);
    static std::string shown(const CSurfacePen& pen);
    static std::string shown(const CTextStyle& style);

    std::vector<std::string> m_calls;
    Listener m_listener; // empty: calls are kept
};
