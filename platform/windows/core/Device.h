// What a device context draws on. The functions of <windows.h> look the context up, check their arguments and change
// its state; what is left to do on the device ends here. Two kinds exist: RasterDevice paints pixels,
// MetafileDevice writes records. The screen's ScreenDevice only answers and measures.
//
// Coordinates are logical unless said otherwise; the context has map mode, transform, clip and objects. Operations
// give false when they failed; those with a body here do nothing, gladly, on a device that has no use for them.
#pragma once

#include <windows.h>

#include <memory>
#include <span>

#include "Region.h"
#include "TextFrame.h"

namespace wingdi {

class BrushObject;
class DeviceContext;
class GdiObject;
class RealizedFont;
struct BitmapView;

enum class PolyShape : unsigned char {
    Polyline,
    PolylineTo, // the points after the current position, which is not among them
    Polygon,
    PolyBezier,
    PolyBezierTo, // likewise
    PolyPolyline,
    PolyPolygon,
};
enum class BoxShape : unsigned char { Rectangle, Ellipse, RoundRectangle };
enum class ArcShape : unsigned char { Arc, ArcTo, Chord, Pie };
enum class PathStep : unsigned char {
    Begin,
    End,
    CloseFigure,
    Abort,
    Flatten,
    Widen,
    Fill,
    Stroke,
    StrokeAndFill,
};

// State that a setter has just changed in the context.
enum class StateField : unsigned char {
    BackColor,
    TextColor,
    BackMode,
    TextAlign,
    TextJustification,
    Rop2,
    PolyFillMode,
    StretchMode,
    ArcDirection,
    MiterLimit,
    BrushOrigin,
    MapMode,
    WindowExtent,
    ViewportExtent,
    WindowOrigin,
    ViewportOrigin,
    WorldTransform, // by SetWorldTransform
    Position,       // by MoveToEx
};

// One line of text, or a piece of one, laid out.
struct TextOutput {
    POINT reference;                          // as given, for the alignment in force
    UINT options;                             // ETO_...; no ETO_PDY
    RECT rect;                                // when the options have ETO_OPAQUE or ETO_CLIPPED
    std::span<const WCHAR> text;              // glyph indices with ETO_GLYPH_INDEX
    std::span<const INT> advances;            // logical units, one for each character
    std::shared_ptr<const RealizedFont> font; // at the device's size
    // Device units: where the base line of the first character begins, the steps from one character to the next, and
    // the cell of the whole: its advances by the line height, inclusive, neither clipped nor the ink.
    double baselineX;
    double baselineY;
    std::span<const double> deviceAdvances;
    RECTL bounds;
    TextFrame frame;
};

// A rectangle of a source that a copy reads.
struct SourceArea {
    int x;
    int y;
    int width;
    int height;
};

// Of a source in a blend: AlphaBlend's.
struct AlphaShare {
    BYTE whole = 255;
    bool ofPixels = false; // the fourth byte of each, by which its colours are multiplied already
};

class Device {
public:
    virtual ~Device() = default;

    // The answer of GetDeviceCaps; 0 for an index that is not known.
    virtual int capability(int index) const = 0;

    // State. A recorder writes them down; a raster device reads the context when it draws.
    virtual void stateChanged(DeviceContext& /*context*/, StateField /*field*/) {}
    virtual void objectSelected(DeviceContext& /*context*/, const std::shared_ptr<GdiObject>& /*object*/) {}
    virtual void worldTransformModified(DeviceContext& /*context*/, const XFORM& /*transform*/,
                                        DWORD /*mode*/)
    {
    }
    virtual void extentScaled(DeviceContext& /*context*/, bool /*window*/, const int (&/*factors*/)[4]) {}
    // By SelectClipRgn and ExtSelectClipRgn; null: the clip was removed. Device units.
    virtual void clipSelected(DeviceContext& /*context*/, const Region* /*region*/, int /*mode*/) {}
    virtual void clipRectCombined(DeviceContext& /*context*/, const RECT& /*rect*/, int /*mode*/) {
    } // AND or DIFF
    virtual void clipOffset(DeviceContext& /*context*/, int /*x*/, int /*y*/) {}
    virtual void stateSaved(DeviceContext& /*context*/) {}
    virtual void stateRestored(DeviceContext& /*context*/, int /*levels*/) {} // levels below 0

    // The application deleted a pen, brush or font. Reaches devices with a DeletionWatch only, on the thread that
    // deletes: the device guards itself, and neither makes nor deletes objects or watches meanwhile.
    virtual void objectDeleted(HGDIOBJ /*object*/) {}

    // Shapes with the context's pen and brush.
    virtual bool lineTo(DeviceContext& context, POINT from, POINT to) = 0;
    virtual bool poly(DeviceContext& context, PolyShape shape, std::span<const POINT> points,
                      std::span<const DWORD> counts) = 0;
    virtual bool box(DeviceContext& context, BoxShape shape, const RECT& rect, SIZE corner) = 0;
    virtual bool arc(DeviceContext& context, ArcShape shape, const RECT& rect, POINT start, POINT end) = 0;
    virtual bool angleArc(DeviceContext& context, POINT center, DWORD radius, FLOAT startAngle,
                          FLOAT sweepAngle) = 0;
    // While a path is open, the shapes above go into it.
    virtual bool path(DeviceContext& context, PathStep step) = 0;
    virtual bool selectClipPath(DeviceContext& context, int mode) = 0;

    // Fills. The rectangles of `blt` exclude right and bottom; the operation has no source (PATCOPY, PATINVERT, ...).
    virtual bool patternBlt(DeviceContext& context, std::span<const RECT> rects, const BrushObject& brush,
                            DWORD operation) = 0;
    virtual bool fillRegion(DeviceContext& context, const Region& region,
                            const std::shared_ptr<BrushObject>& brush) = 0;
    virtual bool floodFill(DeviceContext& context, POINT start, COLORREF color, UINT type) = 0;
    virtual bool setPixel(DeviceContext& context, POINT point, COLORREF color) = 0;
    // CLR_INVALID outside, and on a device without pixels.
    virtual COLORREF pixel(DeviceContext& context, POINT point) = 0;

    // Copies. Target rectangles may have negative sizes, which mirror. `stretch`: StretchBlt, not BitBlt.
    virtual bool copy(DeviceContext& context, const RECT& target, DeviceContext& source,
                      const SourceArea& area, DWORD operation, bool stretch) = 0;
    // `area.y` counts from the top row of the view; `info` is the bitmap's head as the caller gave it.
    virtual bool copyDib(DeviceContext& context, const RECT& target, const BITMAPINFO* info, const void* bits,
                         UINT usage, const SourceArea& area, DWORD operation) = 0;

    // Lays the source over the target by its share, that of the whole and, when they have one, those of the pixels.
    virtual bool alphaBlend(DeviceContext& /*context*/, const RECT& /*target*/, DeviceContext& /*source*/,
                            const SourceArea& /*area*/, const AlphaShare& /*share*/)
    {
        return false;
    }

    virtual bool text(DeviceContext& context, const TextOutput& output) = 0;
    virtual bool comment(DeviceContext& /*context*/, std::span<const BYTE> /*data*/) { return true; }
};

// Lets a device know of the objects that the application deletes, as long as the watch lives. A member of the device,
// declared after all that objectDeleted() uses.
class DeletionWatch {
public:
    explicit DeletionWatch(Device& device);
    DeletionWatch(const DeletionWatch&) = delete;
    DeletionWatch& operator=(const DeletionWatch&) = delete;
    ~DeletionWatch();

    // Informs every watching device.
    static void objectDeleted(HGDIOBJ object);

private:
    Device& m_device;
};

} // namespace wingdi
