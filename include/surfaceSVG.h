// CSurfaceSVG: writes a page as SVG 1.0.
//
// Nothing is painted: every operation adds an element to buffers of text. closeSurface makes a document of them,
// and getData hands it to the caller, who keeps it. CMetaFilePlayerSVG reads that text back with
// literal searches, so the exact form of each element, blanks included, is the page format. Viewers show the
// page too; attributes of the `tovo:` prefix keep what SVG cannot say.
//
// Coordinates are written as they come, as whole numbers in the logical space of the viewBox; sums and
// differences of extreme ones wrap as 32-bit arithmetic does. Font sizes are written in points. Brush, pen
// and text colour reach the page only as attributes of later elements; font, clip and transform are groups
// that stay open until the next one or closeSurface. In the usual order of nesting a font is outermost, a
// clip inside it, a transform innermost.
#pragma once

#include "surface.h"

class SURFACE_API CSurfaceSVG : public CSurface {
public:
    // A surface to be assigned to: sizes and counters are 0.
    CSurfaceSVG();
    // `page` is the physical page in millimetres, `logical` its extent in logical units; null counts as
    // empty. Only the widths and heights of the two are used.
    CSurfaceSVG(RECT* page, RECT* logical);
    CSurfaceSVG(const CSurfaceSVG& other);
    CSurfaceSVG& operator=(const CSurfaceSVG& other);
    ~CSurfaceSVG() override;

    using CSurface::setBrush;
    using CSurface::setFont;
    using CSurface::setPen;

    // Copies what fits of the page; a null buffer takes nothing.
    void getData(unsigned char* buffer, unsigned int& size) override;
    int getDataLength() override;
    // Composes the document; always 0. To be called once.
    int closeSurface() override;
    int getSurfaceType() override;
    void drawString(const char* text, RECT* rect, unsigned int flags) override;
    bool drawString(Array<CSurfaceTextChunk, 2>* chunks, RECT* rect, int flags, float, float) override;
    bool drawString(Array<CSurfaceTextChunk, 2>* chunks, RECT* rect, int flags) override;
    // Always 8, PNG; includeImage takes any type.
    int requiredPictureType(int picType) override;
    // PNG and JPEG stay as they are, all else becomes PNG; what can't be decoded leaves an image without data. An
    // image under an id that is there already is written as well, and its size counts from then on. Ids from 65536 on
    // are refused, with a line in the log for each.
    void includeImage(unsigned int id, unsigned char* data, int size, int width, int height,
                      int picType) override;
    // Nothing for an id without an image.
    void drawImage(RECT* rect, unsigned int id, int mode, int x, int y) override;
    void clearTransform() override;
    void drawTextOnBaseLine(int x, int y, unsigned int options, RECT* rect, char* text, int length) override;
    void drawArc(RECT* rect, int x1, int y1, int x2, int y2) override;
    void drawChord(RECT* rect, int x1, int y1, int x2, int y2) override;
    void drawFocusRect(RECT* rect) override;
    void drawLine(int x1, int y1, int x2, int y2) override;
    void drawRectangle(RECT* rect) override;
    // `width` and `height` become the corner radii as they are, not halved.
    void drawRoundedRectangle(RECT* rect, unsigned int width, unsigned int height) override;
    void drawSolidRectangle(RECT* rect, unsigned long color) override;
    void drawText(const char* text, RECT* rect, unsigned int flags) override;
    void drawTextAt(const char* text, POINT* point, unsigned int flags) override;
    void ellipse(RECT* rect) override;
    // Keeps the pen, whose outline the polygon gets too.
    void solidPolygon(POINT* points, unsigned int count, unsigned long color) override;
    void floodFill(int x, int y, unsigned long color, unsigned int type) override;
    void frameRect(RECT* rect, unsigned long color) override;
    int loadFonts(DskParam* param) override;
    void drawPie(RECT* rect, int x1, int y1, int x2, int y2) override;
    // An odd number of points is made even: the first one is written once more at the end.
    void polygon(POINT* points, unsigned int count) override;
    void polyline(POINT* points, unsigned int count) override;
    // The next drawString, in any of its forms, carries the mark; the point is not used.
    void printerNofMMarker(POINT point) override;
    void resetBrushOrg(POINT* point, int size) override;
    void restoreBrush() override;
    void restoreFont() override;
    void restorePen() override;
    void setClippingRegion(RECT* rect) override;
    void setBackColor(unsigned long color) override;
    void setBackMode(int mode) override;
    void setFont(CSurfaceFont* font) override;
    void newTextStyle(CTextStyle* style) override;
    void setTransform(float m11, float m12, float m21, float m22, float dx, float dy) override;
    void setForeColor(unsigned long color) override;
    void setViewportOrigin(int x, int y) override;

    // A rectangle with corner radii; a radius of 0 or less is left out.
    void drawRectangle(RECT* rect, int rx, int ry);
    // The flag has no effect.
    void drawEllipse(RECT* rect, bool filled);
    // Without `filled` there is no fill attribute at all: a viewer fills with its own default.
    void drawPolygon(POINT* points, unsigned int count, bool filled);
    void drawPolyline(POINT* points, unsigned int count);
    // Plain paths are for viewers: the player passes them over.
    void drawPath(RECT* rect, bool filled);
    void drawPath(POINT* points, unsigned int count, bool filled);
    void drawEraseRectangle(RECT* rect, unsigned long color);

private:
    class Detail; // helpers of the module

    void appendRGBColor(TovoTextString& out, unsigned long color);
    void appendPenStyle(TovoTextString& out);
    void appendFillStyle(TovoTextString& out);
    void appendClipStyle(TovoTextString& out, RECT* rect);
    void appendPath(TovoTextString& out, RECT* rect);
    void appendPath(TovoTextString& out, POINT* points, unsigned int count);
    void appendTextStyle(TovoTextString& out, RECT* rect, int flags);
    void appendTextStyle(TovoTextString& out, int flags);
    int glyphOrientation(int angle);
    void createTextPath(TovoTextString& out, int x, int y, int angle);

    void makeClipDef(RECT* rect);
    void makePatternDef();
    void makePatternDef(int image);
    int convertImage(unsigned char* data, int size, int picType, char*& text, int& textLength);

    void newFont(char* faceName, float size, bool bold, bool italic, bool strikethru, bool underline);
    void writeFont(char* faceName, float size, bool bold, bool italic, bool strikethru, bool underline);
    void writeClippingRegion();
    void writeTransform();
    void writeEndGroup();

    void SVGArc(RECT* rect, POINT* start, POINT* end, int& rx, int& ry, POINT& startOut, POINT& endOut,
                int& largeArc, int& sweep);

    TovoTextString m_body;      // elements as they were drawn; once closed, the document
    TovoTextString m_imageDefs; // one image element per included image
    int m_clipCount;            // number of the last clip definition
    int m_patternCount;         // number of the last pattern definition
    TovoTextString m_clipDefs;
    TovoTextString m_patternDefs;
    int m_symbolsUsed;              // shared definitions that the page needs, a bit for each
    Vector<POINT, 10> m_imageSizes; // width and height of each image, by its number
    bool m_nofmPending;             // the next drawString carries the page-count mark
    int m_currentClip;              // id of the open clip group; 0: none
    bool m_fontGroupOpen;
    TovoTextString m_textPathDefs; // paths that rotated text refers to
    int m_textPathCount;
    Vector<bool, 10> m_imagesIncluded;     // by number: whether m_imageSizes holds an image there or a gap
    Vector<unsigned int, 10> m_toldImages; // ids whose refusal is in the log
};
