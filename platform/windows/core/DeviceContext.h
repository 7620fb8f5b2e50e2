// A device context: state in front of a device.
#pragma once

#include <windows.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Device.h"
#include "GdiObject.h"
#include "Mapping.h"

namespace wingdi {

class Outline;

// What a clip is confined to beside its region, on devices that can clip by outlines.
struct ClipShape {
    std::shared_ptr<const Outline> outline;
    int fillMode;
};

// What SaveDC keeps.
struct ContextState {
    std::shared_ptr<PenObject> pen;
    std::shared_ptr<BrushObject> brush;
    std::shared_ptr<FontObject> font;
    COLORREF textColor = 0;
    COLORREF backColor = 0xFFFFFF;
    int backMode = OPAQUE;
    UINT textAlign = TA_LEFT | TA_TOP | TA_NOUPDATECP;
    int characterExtra = 0; // logical units
    int breakExtra = 0;
    int breakCount = 0;
    int rop2 = R2_COPYPEN;
    int polyFillMode = ALTERNATE;
    int stretchMode = BLACKONWHITE;
    int arcDirection = AD_COUNTERCLOCKWISE;
    FLOAT miterLimit = 10;
    POINT brushOrigin{0, 0}; // device units
    POINT position{0, 0};    // logical units
    int mapMode = MM_TEXT;
    SIZE windowExtent{1, 1};
    SIZE viewportExtent{1, 1};
    POINT windowOrigin{0, 0};
    POINT viewportOrigin{0, 0};
    int graphicsMode = GM_COMPATIBLE;
    XFORM world{1, 0, 0, 1, 0, 0};
    std::optional<Region> clip;        // device units; nothing: no clip
    std::vector<ClipShape> clipShapes; // each of them confines it further
    std::vector<ClipShape> metaClipShapes;
    std::optional<Region> metaClip; // what a played metafile may not leave: the clip from before playback
};

enum class ContextKind : unsigned char { Screen, Memory, Page, Metafile, Document };

class DeviceContext : public GdiObject {
public:
    DeviceContext(ContextKind kind, std::unique_ptr<Device> device);
    ~DeviceContext() override;

    ContextKind contextKind() const noexcept { return m_contextKind; }
    Device& device() const noexcept { return *m_device; }

    ContextState state;
    std::vector<ContextState> saved;
    std::shared_ptr<BitmapObject> bitmap;          // of a memory context: what it holds
    std::map<std::string, int, std::less<>> calls; // of a page: how often each function reached it

    // Logical units to device units, by the present state. MM_ISOTROPIC extents are shrunk before they are used.
    Mapping mapping() const noexcept;
    // The same without the world transform.
    Mapping pageMapping() const noexcept;
    // MM_ISOTROPIC shrinks one of the viewport's extents, so that units are as long on both axes of the device.
    SIZE viewportExtent() const noexcept;
    // Clip and metaClip together; nothing: no clip.
    std::optional<Region> effectiveClip() const;
    // What can be drawn on at all, in device units: the bitmap of a memory context, else the whole device.
    RECT deviceArea() const noexcept;

private:
    ContextKind m_contextKind;
    std::unique_ptr<Device> m_device;
};

// Enters a new context and gives its handle, null without memory. It gets the default pen, brush and font, and a memory
// context its bitmap of one pixel.
HDC addContext(std::shared_ptr<DeviceContext> context) noexcept;

// Looks a context up for one call of a named function, counts the call where calls are counted, and runs the body
// with the context. Gives `failure` for a handle that is no context's, and when memory ran out; it never throws.
template <class Result, class Body>
Result onContext(HDC handle, const char* function, Result failure, const Body& body) noexcept;

// Runs the body and gives `failure` when memory ran out.
template <class Result, class Body>
Result guarded(Result failure, const Body& body) noexcept;

} // namespace wingdi

#include "DeviceContextCalls.h"
