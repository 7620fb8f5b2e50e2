// CSurface: the one interface everything draws on.
//
// Called by the report and printing layer and by the metafile players; implemented by one back end per kind
// of page: CSurfaceSVG (a page of SVG text), CSurfacePSPrinter (a page of PostScript), CSurfaceGDI with its
// subclasses CSurfaceEMF (a metafile being recorded) and CSurfaceHdc (a device context of the caller).
//
// Coordinates count logical units, without fractions; y grows downward. Colours are 32-bit with red
// in the low byte. Angles are whole degrees, font sizes points. Drawing operations return nothing; trouble
// that no caller could mend is logged, and drawing continues. A null text, rectangle, point list or
// attribute draws nothing and changes nothing, unless an operation says otherwise. Exhausted memory throws
// KrnException, and nothing else is thrown: the page is then one with or without the call that failed, never with
// half of it. An object that is made with `new` is null when there is no memory for the object itself.
//
// Life of a surface: construct, set attributes and draw in any order, closeSurface, getDataLength and
// getData, destroy. One surface is one page, and belongs to one thread at a time.
#pragma once

#include <cstddef>

#include <windows.h>

#include "surfaceAttributes.h"
#include "surfaceTextChunk.h"
#include "sys/moduleObject.h"
#include "sys/surfaceExport.h"
#include "sys/tovoarray.h"
#include "sys/tovostr.h"

// The platform's parameter record through which loadFonts hands out its text.
struct DskParam;

class SURFACE_API CSurface : public ModuleObject {
public:
    CSurface();
    CSurface(const CSurface& other);
    CSurface& operator=(const CSurface& other);

    // Each operation says at its end what CSurface itself does: a default that back ends inherit, or "required".

    virtual ~CSurface();

    // Copies the finished page; `size` comes with the room of `data` and goes with the count of bytes copied. Required.
    virtual void getData(unsigned char* buffer, unsigned int& size) = 0;
    // Bytes of the finished page. Required.
    virtual int getDataLength() = 0;
    // Finishes the page; 0 on success. Nothing more is drawn after it. Where it fails for want of memory the surface is
    // as it was, and may be closed again. Required.
    virtual int closeSurface() = 0;
    // A player begins a page and has set the size fields below. Default: nothing.
    virtual void prepareSurface();
    // 1 CSurfaceEMF, 2 CSurfaceGDI, 3 CSurfaceHdc, 5 CSurfacePSPrinter, 6 CSurfaceSVG. Required.
    virtual int getSurfaceType() = 0;
    // The device context on which a metafile can be played, or null. Default: null.
    virtual HDC getEMFPlayerDestination();
    // The surface's device context, or null. Default: null.
    virtual HDC getHDC();
    // Default: false.
    virtual bool canDrawFormattedText();
    // One string in a rectangle; `flags` are those of the Windows DrawText. Required.
    virtual void drawString(const char* text, RECT* rect, unsigned int flags) = 0;
    // Formatted text without rotation; true when drawn. The two numbers at the end have no effect anywhere. Default:
    // false, as on all back ends but CSurfaceSVG.
    virtual bool drawString(Array<CSurfaceTextChunk, 2>* chunks, RECT* rect, int flags, float, float);
    // Formatted text, turned by the rotation of the text style; true when drawn. Required.
    virtual bool drawString(Array<CSurfaceTextChunk, 2>* chunks, RECT* rect, int flags) = 0;
    // The picture type the surface wants for an image that the caller holds as `picType`: 1 Windows bitmap,
    // 3 and 5 icon, 6 TIFF, 7 JPEG, 8 PNG, 9 GIF. Default: `picType`.
    virtual int requiredPictureType(int picType);
    // Hands over the bytes of an image, `id` its number from then on, with its width and height in pixels. `picType` is one of
    // those above, or 100 for a tile, which only CSurfacePSPrinter treats in its own way. For any other type the text
    // back ends look at the bytes themselves; on devices 7 is JPEG and all else PNG. Ids are small numbers counted from
    // 0, since the text back ends keep a table of them: from 65536 on these refuse an image, with one line in the log
    // for each id, while CSurfaceGDI takes every id. Of two images with one id, CSurfacePSPrinter and CSurfaceGDI keep
    // the first; CSurfaceSVG writes both and takes the size of the later one. Required.
    virtual void includeImage(unsigned int id, unsigned char* data, int size, int width, int height,
                              int picType) = 0;
    // Draws a held image; an id that was not included draws nothing. Mode 0: unscaled, shifted by (x, y); 1:
    // scaled to the rectangle; 2: tiled over the rectangle with its origin at offset (x, y). Other modes: nothing on
    // devices, mode 0 on CSurfacePSPrinter; CSurfaceSVG writes an image that its player scales, or draws at its own
    // size where the rectangle is empty. Required.
    virtual void drawImage(RECT* rect, unsigned int id, int mode, int x, int y) = 0;
    // Ends the transform. Default: forgets it.
    virtual void clearTransform();
    // Text that stands on a base line through (x, y). `options` are those of the Windows ExtTextOut, of which 4 makes
    // `rect` the clip; `length` -1 means the whole text, and no byte after `length` is read. Required.
    virtual void drawTextOnBaseLine(int x, int y, unsigned int options, RECT* rect, char* text,
                                    int length) = 0;
    // The piece of the ellipse in `rect` that runs counter-clockwise between the radials through (x1, y1) and (x2, y2),
    // seen from its centre. Required.
    virtual void drawArc(RECT* rect, int x1, int y1, int x2, int y2) = 0;
    // The piece of drawArc and its chord, filled. Required.
    virtual void drawChord(RECT* rect, int x1, int y1, int x2, int y2) = 0;
    // Required.
    virtual void drawFocusRect(RECT* rect) = 0;
    // A line with the pen. Required.
    virtual void drawLine(int x1, int y1, int x2, int y2) = 0;
    // Outlined with the pen, filled with the brush. Required.
    virtual void drawRectangle(RECT* rect) = 0;
    // As drawRectangle, the corners rounded by an ellipse of the given width and height. Required.
    virtual void drawRoundedRectangle(RECT* rect, unsigned int width, unsigned int height) = 0;
    // Filled with `color`; neither pen nor brush is touched. Required.
    virtual void drawSolidRectangle(RECT* rect, unsigned long color) = 0;
    // Text by the rules of the Windows DrawText. Required.
    virtual void drawText(const char* text, RECT* rect, unsigned int flags) = 0;
    // Text from a point, which is its left end at the top. Of `flags`, those of the Windows DrawText, 2 makes the
    // point its right end, else 1 its middle. Flags that place text in the height of a rectangle (4, 8) or draw nothing
    // (0x400) are not for a point: surfaces on devices pass them on, and the text is out of sight. Required.
    virtual void drawTextAt(const char* text, POINT* point, unsigned int flags) = 0;
    // As drawString, turned by angles that count for this call alone. Default: nothing; only CSurfaceGDI draws here.
    virtual void drawStringRotated(const char* text, RECT* rect, unsigned int flags, int charAngle,
                                   int textAngle);
    // The ellipse inscribed in `rect`, outlined and filled. Required.
    virtual void ellipse(RECT* rect) = 0;
    // A polygon filled with `color`. Required.
    virtual void solidPolygon(POINT* points, unsigned int count, unsigned long color) = 0;
    // Fills from (x, y): type 0 up to where `color` begins, type 1 as far as `color` goes (the types of the Windows
    // ExtFloodFill). Required; nothing on the text back ends.
    virtual void floodFill(int x, int y, unsigned long color, unsigned int type) = 0;
    // A frame one unit wide. Required.
    virtual void frameRect(RECT* rect, unsigned long color) = 0;
    // Reports the fonts of the device into `param`. On devices 0 is success; any other number is described at CSurfaceGDI. The text back
    // ends have no fonts to report: they give 0 and leave `param` alone. Required.
    virtual int loadFonts(DskParam* param) = 0;
    // The piece of drawArc and the two radii at its ends, filled. Required.
    virtual void drawPie(RECT* rect, int x1, int y1, int x2, int y2) = 0;
    // Closed, outlined and filled. Required.
    virtual void polygon(POINT* points, unsigned int count) = 0;
    // Open. Required.
    virtual void polyline(POINT* points, unsigned int count) = 0;
    // Marks the next text as a page count, which is stamped when the total is known; on CSurfaceSVG the next of drawString
    // and drawText in a rectangle, not of drawTextAt. For a page that can be stamped,
    // CSurfaceSVG or CSurfaceEMF: CSurfacePSPrinter does nothing, and a device context that is no metafile reports a
    // failed assertion. Required.
    virtual void printerNofMMarker(POINT point) = 0;
    // Where the patterns of brushes begin: at the point, or at the viewport's origin for null, modulo `size`, the width
    // and height of a pattern in device units; below 1: 8. Required; nothing on the text back ends.
    virtual void resetBrushOrg(POINT* point, int size) = 0;
    // Only restoreFont does something, and only on CSurfaceGDI, where the font of one change ago comes back. Brush and
    // pen stay on all back ends. Required.
    virtual void restoreBrush() = 0;
    virtual void restoreFont() = 0;
    virtual void restorePen() = 0;
    // From here on only what lies in `rect` shows; null lifts that. Required.
    virtual void setClippingRegion(RECT* rect) = 0;
    // Default: stores the colour.
    virtual void setBackColor(unsigned long color);
    // Required; nothing on the text back ends.
    virtual void setBackMode(int mode) = 0;
    // Default: copies the brush.
    virtual void setBrush(CSurfaceBrush* brush);
    // Default: copies the font.
    virtual void setFont(CSurfaceFont* font);
    // Default: copies the pen.
    virtual void setPen(CSurfacePen* pen);
    // Announces the text style that m_textStyle will have next. Required.
    virtual void newTextStyle(CTextStyle* style) = 0;
    // Default: stores the colour in the text style, then calls setForeColor.
    virtual void setTextColor(unsigned long color);
    // Default: stores the angles; newTextStyle is not called.
    virtual void setTextRotation(int charAngle, int textAngle);
    // What is drawn from here on is transformed; the elements come as in an XFORM of Windows. Default: stores it.
    virtual void setTransform(float m11, float m12, float m21, float m22, float dx, float dy);
    // Default: stores the colour.
    virtual void setForeColor(unsigned long color);
    // Default: stores both. No back end moves anything by them.
    virtual void setViewportOrigin(int x, int y);

    unsigned long getForeColor() const { return m_foreColor; }
    int getWidth() const { return m_width; }
    int getHeight() const { return m_height; }

    // These build the attribute and call the virtual operation of the same name.
    void setBrush(unsigned long color, int style);
    void setPen(unsigned long color, int style, int width);
    void setFont(char* faceName, float size, bool bold, bool italic, bool strikethru, bool underline);

    // Informs the back end by newTextStyle, then takes the style over. An equal style does nothing at all.
    void setTextStyle(CTextStyle* style);

    // A map from the caller's own image ids to small numbers. Nothing in the module calls these two.
    // Appends `id`, seen before or not, and gives its 1-based index.
    unsigned int addImageIndx(unsigned int id);
    // Where `id` comes first, counted from 1; 0xFFFFFFFF for an unknown one.
    unsigned int getImageIndx(unsigned int id);

    // Reports a failed assertion of a surface.
    void AssertFailed(const char* expression, const char* file, int line);

    // The five XML special characters as entities, and back. Every other byte passes untouched.
    static TovoTextString toXML(TovoTextString text);
    static TovoTextString fromXML(TovoTextString text);

    // The state all back ends share. A player writes the six sizes before prepareSurface.
    int m_width; // logical units: the extent of the coordinate space
    int m_height;
    int m_pageWidth; // millimetres
    int m_pageHeight;
    int m_outputWidth; // right and bottom of the rectangle a player draws in
    int m_outputHeight;
    int m_drawMode; // of the PostScript back end
    unsigned long m_foreColor;
    unsigned long m_backColor;
    CSurfaceBrush m_brush;
    CSurfacePen m_pen;
    CSurfaceFont m_font;
    CTextStyle m_textStyle;
    RECT m_clipRegion; // of the PostScript back end
    int m_viewportOriginX;
    int m_viewportOriginY;
    float m_transform[6]; // in the order of setTransform; means something only while m_hasTransform is set
    bool m_hasTransform;
    Vector<unsigned int, 10> m_imageIds;

private:
    unsigned int mapUserImageId(unsigned int id);
};
