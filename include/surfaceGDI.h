// CSurfaceGDI: draws through a device context.
//
// It opens no device: CSurfaceEMF records into a metafile of its own, CSurfaceHdc draws on a context of the caller.
// Shapes are calls of the Windows drawing interface, one to one, whose results nobody looks at; a failure shows on
// the device, and here never.
//
// Objects. What the surface selects it owns, and what comes out of the device it takes for its own as well: a brush
// or pen that leaves is deleted at once, a font at the next change of font. So a context given to a surface must hold
// nothing but stock objects or objects that their owner gives up, and is not handed back as it came. A handle that
// somebody else has exchanged in the context is noticed at the next change and reported.
//
// A surface can't be copied: the copy would own the same handles.
#pragma once

#include "dskParam.h"
#include "surface.h"
#include "surfacePicture.h"

class SURFACE_API CSurfaceGDI : public CSurface {
public:
    // Without a device; a subclass brings it.
    CSurfaceGDI();
    CSurfaceGDI(const CSurfaceGDI&) = delete;
    CSurfaceGDI& operator=(const CSurfaceGDI&) = delete;
    // Deletes pictures, pen, brush and fonts, while they are still selected: they go when the context does.
    ~CSurfaceGDI() override;

    using CSurface::drawString;
    using CSurface::setBrush;
    using CSurface::setFont;
    using CSurface::setPen;

    // 0 bytes.
    void getData(unsigned char* buffer, unsigned int& size) override;
    int getDataLength() override;
    int closeSurface() override;
    int getSurfaceType() override;
    HDC getEMFPlayerDestination() override;
    HDC getHDC() override;

    // Text is drawn in device units whatever the map mode is, and leaves the background mode transparent. A last
    // ampersand that marks nothing is not drawn.
    void drawString(const char* text, RECT* rect, unsigned int flags) override;
    // Joins the runs into lines and draws them at once, with the font made smaller when the lines are too high for
    // the places recorded for them, and with the characters moved together when a run is too wide. True; false
    // without an array or a rectangle.
    bool drawString(Array<CSurfaceTextChunk, 2>* chunks, RECT* rect, int flags) override;
    // 1, whatever it is asked.
    int requiredPictureType(int picType) override;
    // Any id; the first image under one stays. Without data, or without memory for it, nothing is stored.
    void includeImage(unsigned int id, unsigned char* data, int size, int width, int height,
                      int picType) override;
    // Nothing for an id without an image, for a mode above 2, and for an image that can't be decoded.
    void drawImage(RECT* rect, unsigned int id, int mode, int x, int y) override;
    // Puts the world transform from before the latest setTransform back; the identity before the first one.
    void clearTransform() override;
    // In logical units. A length past the end counts as -1, one below -1 as 0.
    void drawTextOnBaseLine(int x, int y, unsigned int options, RECT* rect, char* text, int length) override;
    void drawArc(RECT* rect, int x1, int y1, int x2, int y2) override;
    void drawChord(RECT* rect, int x1, int y1, int x2, int y2) override;
    void drawFocusRect(RECT* rect) override;
    void drawLine(int x1, int y1, int x2, int y2) override;
    void drawRectangle(RECT* rect) override;
    void drawRoundedRectangle(RECT* rect, unsigned int width, unsigned int height) override;
    void drawSolidRectangle(RECT* rect, unsigned long color) override;
    // In the colour and rotation of the text style; m_foreColor does not follow. With DT_CENTER the text is centred
    // vertically as well, and rect->top moves down to where it begins. The height is measured beside the context,
    // which is not touched by it; where the map mode has no height, or without memory, nothing moves.
    void drawText(const char* text, RECT* rect, unsigned int flags) override;
    // DT_RIGHT: the point is the right end of the text; DT_CENTER: its middle.
    void drawTextAt(const char* text, POINT* point, unsigned int flags) override;
    void drawStringRotated(const char* text, RECT* rect, unsigned int flags, int charAngle,
                           int textAngle) override;
    void ellipse(RECT* rect) override;
    void solidPolygon(POINT* points, unsigned int count, unsigned long color) override;
    void floodFill(int x, int y, unsigned long color, unsigned int type) override;
    void frameRect(RECT* rect, unsigned long color) override;
    // One record of eight fields, each ended by ";", for each font of the device, in the device's order: face, style,
    // script, "R" raster, "D" device or "T" TrueType, weight, and "1" or "0" for italic, strike-out, underline.
    // Buffers get at most 65,535 bytes and a zero byte. In a record of another kind, or without a buffer, the
    // pointer becomes one to a text that lives as long as the surface. Gives 0, what the record's function gave, or
    // -1 for a null record or function.
    int loadFonts(DskParam* param) override;
    void drawPie(RECT* rect, int x1, int y1, int x2, int y2) override;
    void polygon(POINT* points, unsigned int count) override;
    void polyline(POINT* points, unsigned int count) override;
    // For CSurfaceEMF only; a call here is a fault of the caller, reported as a failed assertion.
    void printerNofMMarker(POINT point) override;
    // Brush patterns begin at the point (null: the viewport's origin), modulo `size`; below 1: 8.
    void resetBrushOrg(POINT* point, int size) override;
    // Nothing.
    void restoreBrush() override;
    // Puts the font of one change ago back; nothing when there is none.
    void restoreFont() override;
    // Nothing.
    void restorePen() override;
    // Null removes all clipping. The rectangle is converted for the mapping of this moment.
    void setClippingRegion(RECT* rect) override;
    // Stored, and not for the device.
    void setBackColor(unsigned long color) override;
    void setBackMode(int mode) override;
    // A picture brush that names no picture is hollow; without an image library or with a picture that can't be
    // decoded the device's brush stays.
    void setBrush(CSurfaceBrush* brush) override;
    void setFont(CSurfaceFont* font) override;
    void setPen(CSurfacePen* pen) override;
    // Angles that differ from those of the present style make a font at once.
    void newTextStyle(CTextStyle* style) override;
    // Multiplies on top of the world transform in force.
    void setTransform(float m11, float m12, float m21, float m22, float dx, float dy) override;
    // The device's text colour.
    void setForeColor(unsigned long color) override;

    // The colour that a number means: a system colour for a set top bit and an index below 24, else the low 24 bits.
    unsigned long GetColor(unsigned long color) const;
    // Brush and pen made from m_brush and m_pen, for callers that set those by the base class. Hatches are not
    // anchored, and there are no picture brushes.
    void createBrush();
    void createPen();
    void drawEdge(RECT* rect, unsigned int edge, unsigned int flags);
    // The numbers after the rectangle, the points or the count have no effect.
    void drawRectangle(RECT* rect, int, int);
    void drawPolygon(POINT* points, unsigned int count, bool);
    void drawPolyline(POINT* points, unsigned int count);
    // Paints nothing.
    void drawEraseRectangle(RECT* rect, unsigned long color);
    // Nothing when the context is in this mode already. MM_ANISOTROPIC comes with the extents below: a context that is
    // in it already keeps its own.
    void setMapMode(int mode);

protected:
    HDC m_hdc;
    int m_backMode;        // last one given to the device; -1: none yet
    HFONT m_savedFont;     // what came out of the device at the latest createFont
    HBRUSH m_currentBrush; // by setBrush; null before
    HPEN m_currentPen;     // by setPen
    HFONT m_currentFont;   // by setFont; null after restoreFont
    SIZE m_viewportExtent; // of MM_ANISOTROPIC
    SIZE m_windowExtent;   //
    HFONT m_createdFont;   // by the latest createFont
    HBRUSH m_createdBrush; // by createBrush, from the two after it
    COLORREF m_createdBrushColor;
    int m_createdBrushStyle;
    int m_createdPenWidth; // what m_createdPen was made from
    COLORREF m_createdPenColor;
    int m_createdPenStyle;
    XFORM m_savedTransform; // from before the latest setTransform
    HPEN m_createdPen;      // by createPen
    Vector<unsigned int, 10> m_pictureIds;
    Array<CSurfacePicture, 10> m_pictures; // parallel to m_pictureIds

private:
    class Detail; // helpers of the module

    void createFont(char* face, float points, bool bold, bool italic, bool strikethru, bool underline,
                    int orientation, int escapement);
    void createFont(CSurfaceFont& font, int orientation, int escapement);

    TovoTextString m_fontList; // handed out by loadFonts
    // What the device still holds of the surface since a successor could not be made.
    HPEN m_strandedPen = nullptr;
    HBRUSH m_strandedBrush = nullptr;
    HFONT m_strandedFont = nullptr;
};
