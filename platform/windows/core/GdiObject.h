// What the handles of this layer stand for: drawing objects. They don't change once they are made, bitmaps and regions
// apart, so that contexts on several threads may share them; contexts and whoever draws hold them by shared pointers.
#pragma once

#include <windows.h>

#include <atomic>
#include <memory>
#include <vector>

#include "Bitmap.h"
#include "Region.h"

namespace wingdi {

enum class ObjectKind : unsigned char { Pen, Brush, Font, Bitmap, Region, Metafile, Context };

class GdiObject {
public:
    explicit GdiObject(ObjectKind kind) noexcept : m_kind(kind) {}
    GdiObject(const GdiObject&) = delete;
    GdiObject& operator=(const GdiObject&) = delete;
    // Gives the slot of its handle back.
    virtual ~GdiObject();

    ObjectKind kind() const noexcept { return m_kind; }
    // The handle that stands for the object, also after it died; set by the handle table.
    HGDIOBJ handle() const noexcept { return m_handle; }
    // -1, or the number of the stock object that this is.
    int stockIndex() const noexcept { return m_stockIndex; }

private:
    friend class HandleTable;
    ObjectKind m_kind;
    int m_stockIndex = -1;
    HGDIOBJ m_handle = nullptr;
};

class PenObject : public GdiObject {
public:
    PenObject() noexcept : GdiObject(ObjectKind::Pen) {}

    DWORD style = PS_SOLID;     // with cap, join and PS_GEOMETRIC
    DWORD width = 0;            // logical units; 0 is one device pixel
    COLORREF color = 0;         // top byte 0
    UINT brushStyle = BS_SOLID; // also BS_NULL, BS_HATCHED, BS_PATTERN or BS_DIBPATTERNPT
    DWORD hatch = 0;
    std::shared_ptr<const Bitmap> pattern; // as that of a brush
    bool extended = false;                 // made by ExtCreatePen
    std::vector<DWORD> dashes;             // PS_USERSTYLE: logical units
};

class BrushObject : public GdiObject {
public:
    BrushObject() noexcept : GdiObject(ObjectKind::Brush) {}

    UINT style = BS_SOLID; // BS_SOLID, BS_NULL, BS_HATCHED, BS_PATTERN or BS_DIBPATTERNPT
    COLORREF color = 0;    // top byte 0
    DWORD hatch = 0;
    // BS_PATTERN and BS_DIBPATTERNPT: the tile. A monochrome BS_PATTERN takes text and background colour.
    std::shared_ptr<const Bitmap> pattern;
};

class FontObject : public GdiObject {
public:
    FontObject() noexcept : GdiObject(ObjectKind::Font) {}

    LOGFONTW description{};
};

class DeviceContext;

class BitmapObject : public GdiObject {
public:
    BitmapObject() noexcept : GdiObject(ObjectKind::Bitmap) {}

    std::shared_ptr<Bitmap> bitmap;
    std::atomic<DeviceContext*> selectedInto = nullptr; // the one memory context that holds it
};

class RegionObject : public GdiObject {
public:
    RegionObject() noexcept : GdiObject(ObjectKind::Region) {}

    Region region;
};

class MetafileObject : public GdiObject {
public:
    MetafileObject() noexcept : GdiObject(ObjectKind::Metafile) {}

    std::vector<BYTE> bytes; // begins with a checked header
};

} // namespace wingdi
