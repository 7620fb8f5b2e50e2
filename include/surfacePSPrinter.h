// CSurfacePSPrinter: turns a page into a PostScript document (language level 2).
//
// It draws nothing: each operation appends page text, and closeSurface puts a head and the procedures that the
// text calls in front of it. The caller takes the document with getData and sends it to a printer; nothing here
// reads it back. Its neighbour CSurfaceSVG writes the page that is stored and replayed, on this surface too.
//
// The page has no size of its own: a player sets the four size fields of CSurface before it draws, and a caller
// that draws directly does the same. They decide the scale and the size of fonts.
//
// Coordinates are written as they come, but y is written negated: the document puts its origin at the top left
// corner of the page and y grows upward there, so that glyphs and images stand upright. Sums, differences and
// negations of extreme coordinates wrap as 32-bit arithmetic does. Pen, brush and colours reach the text when
// something is drawn with them; font, clip and transform when they are set. Text is written as raw 8-bit bytes,
// and what a byte shows is up to the font. Documents made from pages of strangers are for interpreters that
// deny access to files: a face name, for one, is in them as it came.
#pragma once

#include <atomic>
#include <cstddef>

#include "surface.h"

// An image as page text: its samples in hexadecimal, bottom row first, a line feed after every 150th byte. A
// row is width triples of red, green and blue; of an image with transparency, width mask bytes are in front
// of them, where 1 means transparent. It is shared by a surface and the copies of that surface.
class SURFACE_API CPostScriptImage : public ModuleObject {
public:
    CPostScriptImage();
    CPostScriptImage(const CPostScriptImage& other);
    CPostScriptImage& operator=(const CPostScriptImage& other);
    virtual ~CPostScriptImage();

    // A new image belongs to whoever made it. Each further owner says so, and the last one to let go ends the
    // image. Owners may live on different threads.
    void addOwner();
    void removeOwner();

    int m_width; // pixels, as the caller stated them
    int m_height;
    TovoTextString m_data; // empty when the image could not be decoded
    int m_bitsPerPixel;    // of the decoded picture; 32: with transparency
    bool m_compressed;     // the samples are in the form of the RunLengthDecode filter (PLRM 3.13.3)

private:
    std::atomic<unsigned int> m_owners;
};

class SURFACE_API CSurfacePSPrinter : public CSurface {
public:
    // How far the page image is from the left and the bottom edge of the device's page, in millimetres.
    CSurfacePSPrinter(int originX, int originY);
    // Copies go on from the text of their original and share its images.
    CSurfacePSPrinter(const CSurfacePSPrinter& other);
    CSurfacePSPrinter& operator=(const CSurfacePSPrinter& other);
    ~CSurfacePSPrinter() override;

    using CSurface::drawString;
    using CSurface::setBrush;
    using CSurface::setFont;
    using CSurface::setPen;

    // The characters of the page, valid until the next call of anything else.
    void* getData();
    // Copies what fits of the page; a null buffer takes nothing.
    void getData(unsigned char* buffer, unsigned int& size) override;
    int getDataLength() override;
    // Composes the document; always 0. To be called once.
    int closeSurface() override;
    int getSurfaceType() override;
    // Neither clipped nor aligned nor turned: the text begins at left, and its base line lies the font's point
    // size, taken as logical units, below the top.
    void drawString(const char* text, RECT* rect, unsigned int flags) override;
    // The one form that knows rotation, underline, strike-through and widths; true.
    bool drawString(Array<CSurfaceTextChunk, 2>* chunks, RECT* rect, int flags) override;
    // Takes whatever can be decoded. The first image under an id stays; ids from 65536 on are refused, with a line in
    // the log for each. Type 100 is a tile, type 7 (JPEG) is kept without run-length form. Width and height have to be
    // the true ones: an image that is smaller than stated counts as undecodable. Tiles and picture brushes hold their
    // samples in one string, of which many interpreters take no more than 65535 bytes.
    void includeImage(unsigned int id, unsigned char* data, int size, int width, int height,
                      int picType) override;
    // Clipped to the rectangle. The offsets have no effect. Nothing for an id without an image.
    void drawImage(RECT* rect, unsigned int id, int mode, int x, int y) override;
    // To be called only while a transform is set.
    void clearTransform() override;
    // The rectangle is the clip whatever the options are; null: no clip. A length past the end counts as the
    // whole text, one below -1 as 0.
    void drawTextOnBaseLine(int x, int y, unsigned int options, RECT* rect, char* text, int length) override;
    void drawArc(RECT* rect, int x1, int y1, int x2, int y2) override;
    void drawChord(RECT* rect, int x1, int y1, int x2, int y2) override;
    void drawFocusRect(RECT* rect) override;
    // Drawn with a pen of style 5 too.
    void drawLine(int x1, int y1, int x2, int y2) override;
    void drawRectangle(RECT* rect) override;
    // The corners are circular, of the first radius. Without pen and brush the outline stays in the path, and the
    // next shape that begins no path of its own paints it. Where the radius is as long as a side, or the rectangle has
    // no width or height, interpreters stop at the page: the log says so once.
    void drawRoundedRectangle(RECT* rect, unsigned int radius, unsigned int secondRadius) override;
    void drawSolidRectangle(RECT* rect, unsigned long color) override;
    void drawText(const char* text, RECT* rect, unsigned int flags) override;
    // Flag 0x2 ends the text at the point, 0x1 centres it there.
    void drawTextAt(const char* text, POINT* point, unsigned int flags) override;
    // Hatch and picture brushes fill in their plain colour here.
    void ellipse(RECT* rect) override;
    // Nothing: a solid polygon is not drawn.
    void solidPolygon(POINT* points, unsigned int count, unsigned long color) override;
    void floodFill(int x, int y, unsigned long color, unsigned int type) override;
    void frameRect(RECT* rect, unsigned long color) override;
    int loadFonts(DskParam* param) override;
    void drawPie(RECT* rect, int x1, int y1, int x2, int y2) override;
    void polygon(POINT* points, unsigned int count) override;
    void polyline(POINT* points, unsigned int count) override;
    void printerNofMMarker(POINT point) override;
    void resetBrushOrg(POINT* point, int size) override;
    void restoreBrush() override;
    void restoreFont() override;
    void restorePen() override;
    // Replaces the clip; clips do not intersect. Null is for a caller that has set one: without, the document goes back
    // to the interpreter's own state, and with it loses the page's scale and its font.
    void setClippingRegion(RECT* rect) override;
    void setBackColor(unsigned long color) override;
    void setBackMode(int mode) override;
    void setFont(CSurfaceFont* font) override;
    void newTextStyle(CTextStyle* style) override;
    // Joins the transform that is set, if one is: the two are concatenated.
    void setTransform(float m11, float m12, float m21, float m22, float dx, float dy) override;
    void setViewportOrigin(int x, int y) override;

    void writeFont(char* faceName, float size, bool bold, bool italic, bool strikethru, bool underline);
    // Filled and outlined, or outlined only.
    void drawPolygon(POINT* points, unsigned int count, bool fill);
    void drawPolyline(POINT* points, unsigned int count);
    // Strokes a rectangle in the foreground colour, unless a hatch or picture brush (with `fill`) or a pen whose
    // colour the text has not set yet (without) puts its own over it.
    void drawPath(RECT* rect, bool fill);
    void drawEraseRectangle(RECT* rect, unsigned long color);
    // Nothing: a page has no bevelled edges.
    void drawEdge(RECT* rect, unsigned int edge, unsigned int flags);
    void setDrawMode(int mode);

    // The surface's own rectangle, which callers may keep a clip in; nothing is drawn with it.
    RECT* getClipRegion();
    void setClipRegion(RECT* rect);

    // The pieces of page text, for arguments that are not null. The push family writes operands, each with a
    // blank after it.
    static void pushInteger(TovoTextString* s, int number);
    static void pushPoint(TovoTextString* s, int x, int y);
    // Left, top, width and height; the height is negative for a rectangle that extends downward.
    static void pushRectangle(TovoTextString* s, RECT* rect);
    static void pushColor(TovoTextString* s, unsigned long color);
    static void appendRGB(TovoTextString& s, unsigned long color);
    static void appendRGBColor(TovoTextString& s, unsigned long color);
    void appendRGBColor(TovoTextString& s) const;
    static void appendPath(TovoTextString& s, RECT* rect);
    // A closed path; nothing without points.
    static void appendPath(TovoTextString& s, POINT* points, unsigned int count);
    void appendDrawStyle(TovoTextString& s);
    void appendFillStyle(TovoTextString& s);
    // Paints the current path with brush and pen. With neither of them it writes nothing: the path stays the current
    // one, and is painted by what comes next.
    void appendStrokeAndFill(TovoTextString& s);
    // Text is clipped where it is drawn; there is nothing to write here.
    void appendClipStyle(TovoTextString& s, RECT* rect);
    void appendTextStyle(TovoTextString& s, RECT* rect, int flags);
    bool haveStroke() const;
    bool haveFill() const;
    // The rectangle in the coordinates of the page text.
    static void convertPostScriptCoords(RECT* out, RECT* in);
    // The text escaped for a string literal, between the parentheses.
    static TovoTextString toPS(TovoTextString text);

private:
    class Detail; // helpers of the module

    // A pattern's definition that is still to go in front of m_body.
    struct PatternDef {
        int picture;
        unsigned int end; // in m_patternTexts
    };

    static void PSArc(RECT* rect, POINT start, POINT end, int& radiusX, int& radiusY, int& startAngle,
                      int& endAngle);

    unsigned int encodeImage(unsigned char* data, int size, int picType, bool compress, int width, int height,
                             bool, TovoTextString* out, int& bits);
    static unsigned int RLECompress(TovoBinaryString* in, TovoBinaryString* out);
    static void encodeRun(unsigned char** out, unsigned char* source, short count);
    static void encodeLiteral(unsigned char** out, unsigned char* source, short count);

    int m_originX; // millimetres
    int m_originY;
    unsigned int m_proceduresUsed; // that the page text calls, a bit for each family
    TovoTextString m_body;         // the page's text; after closeSurface the whole document
    Array<CPostScriptImage, 10> m_images;
    // Colour and line width that the text has set last. They follow the text and not the interpreter's state,
    // which a grestore takes back; they begin as that state does.
    unsigned long m_currentColor;
    int m_currentLineWidth;
    bool m_clipActive;                     // a gsave of setClippingRegion is open
    unsigned int m_stateDepth;             // how many gsave are open
    unsigned int m_depthsWithFont;         // bit n: a font was set n states deep, and the state is open
    unsigned int m_toldTraps;              // what the log has said of this page, by bits
    Vector<unsigned int, 10> m_toldImages; // ids whose refusal is in the log
    Vector<bool, 10> m_definedPatterns;    // by the number of the image
    Vector<int, 10> m_missingPictures;     // of patterns that were used without an image, in that order
    TovoTextString m_patternTexts;         // definitions that are still to go in front of m_body
    Vector<PatternDef, 10> m_patternDefs;  // one after the other
};
