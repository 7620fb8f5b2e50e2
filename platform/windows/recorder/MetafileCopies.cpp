// The part of MetafileDevice that records raster operations: fills with a brush, copies of bitmaps. Their pixels are
// copied into the record at the call.
#include <algorithm>
#include <cstring>

#include "Bitmap.h"
#include "DeviceContext.h"
#include "MetafileDevice.h"
#include "PackedDib.h"

namespace wingdi {

namespace {

constexpr XFORM Identity{1, 0, 0, 1, 0, 0};

// A rectangle as records have it: its corner, and its sizes, below 0 where it mirrors.
struct Placement {
    POINTL origin;
    SIZEL size;
};

Placement placementOf(const RECT& rect) noexcept
{
    const auto length = [](LONG from, LONG to) {
        return static_cast<LONG>(std::clamp<std::int64_t>(std::int64_t{to} - from, INT32_MIN, INT32_MAX));
    };
    return {{rect.left, rect.top}, {length(rect.left, rect.right), length(rect.top, rect.bottom)}};
}

// The whole way from a source's logical units to the pixels of its bitmap.
XFORM transformOf(const DeviceContext& source) noexcept
{
    const Mapping mapping = source.mapping();
    return {static_cast<FLOAT>(mapping.xx), static_cast<FLOAT>(mapping.xy), static_cast<FLOAT>(mapping.yx),
            static_cast<FLOAT>(mapping.yy), static_cast<FLOAT>(mapping.dx), static_cast<FLOAT>(mapping.dy)};
}

EMRBITBLT blitTo(const RECT& target, const DrawnBounds& bounds, DWORD operation) noexcept
{
    const Placement place = placementOf(target);
    EMRBITBLT fields{};
    fields.rclBounds = bounds.box;
    fields.xDest = place.origin.x;
    fields.yDest = place.origin.y;
    fields.cxDest = place.size.cx;
    fields.cyDest = place.size.cy;
    fields.dwRop = operation;
    fields.xformSrc = Identity;
    return fields;
}

// Of a rectangle that may have sizes below 0, which begins with the pixel at its position: see StretchBlt.
DrawnBounds boundsOfStretched(const Mapping& mapping, const RECT& rect) noexcept
{
    DrawnBounds bounds = boundsOfArea(mapping, rect);
    if (bounds.empty() || !mapping.isAxisAligned()) {
        return bounds;
    }
    const LONG right = rect.right < rect.left && mapping.xx > 0 ? 1 : 0;
    const LONG down = rect.bottom < rect.top && mapping.yy > 0 ? 1 : 0;
    bounds.box = {bounds.box.left + right, bounds.box.top + down, bounds.box.right + right,
                  bounds.box.bottom + down};
    return bounds;
}

} // namespace

// Playback fills with the selected brush, so the one asked for goes in for these records and the former comes back.
bool MetafileDevice::patternBlt(DeviceContext& context, std::span<const RECT> rects, const BrushObject& brush,
                                DWORD operation)
{
    const DWORD former = m_objects.selected(ObjectKind::Brush);
    // A selected brush may be deleted already: then only its selection knows its entry.
    const DWORD entry = &brush == context.state.brush.get() ? former : entryOf(brush);
    if (entry == 0) {
        return false;
    }
    if (entry != former) {
        recordSelection(entry);
    }
    const Mapping mapping = context.mapping();
    for (const RECT& rect : rects) {
        const DrawnBounds bounds = boundsOfArea(mapping, rect);
        record(EMR_BITBLT, blitTo(rect, bounds, operation));
        markDrawn(context, bounds);
    }
    if (entry != former) {
        recordSelection(former);
    }
    if (brush.stockIndex() < 0 && brush.handle() == nullptr) {
        record(EMR_DELETEOBJECT, EMRSELECTOBJECT{{}, entry});
        m_objects.release(entry);
    }
    return !m_buffer.stopped();
}

bool MetafileDevice::copy(DeviceContext& context, const RECT& target, DeviceContext& source,
                          const SourceArea& area, DWORD operation, bool stretch)
{
    return recordCopy(context, target, source, area, operation, stretch ? EMR_STRETCHBLT : EMR_BITBLT);
}

bool MetafileDevice::alphaBlend(DeviceContext& context, const RECT& target, DeviceContext& source,
                                const SourceArea& area, const AlphaShare& share)
{
    const DWORD format = share.ofPixels ? AC_SRC_ALPHA : 0;
    return recordCopy(context, target, source, area, DWORD{share.whole} << 16 | format << 24, EMR_ALPHABLEND);
}

bool MetafileDevice::recordCopy(DeviceContext& context, const RECT& target, DeviceContext& source,
                                const SourceArea& area, DWORD operation, DWORD type)
{
    const bool stretch = type != EMR_BITBLT;
    if (!source.bitmap || !source.bitmap->bitmap) {
        return false;
    }
    const BitmapView view = source.bitmap->bitmap->view();
    const PackedDib dib(view);
    const DrawnBounds bounds =
        stretch ? boundsOfStretched(context.mapping(), target) : boundsOfArea(context.mapping(), target);
    EMRBITBLT fields = blitTo(target, bounds, operation);
    fields.xSrc = area.x;
    fields.ySrc = area.y;
    fields.xformSrc = transformOf(source);
    fields.crBkColorSrc = source.state.backColor;
    fields.iUsageSrc = DIB_RGB_COLORS;
    fields.offBmiSrc = stretch ? sizeof(EMRSTRETCHBLT) : sizeof(EMRBITBLT);
    fields.cbBmiSrc = static_cast<DWORD>(dib.headLength());
    fields.offBitsSrc = fields.offBmiSrc + fields.cbBmiSrc;
    fields.cbBitsSrc = static_cast<DWORD>(dib.bitsLength());
    const std::uint64_t length = dib.headLength() + dib.bitsLength();
    BYTE* const tail = stretch ? record(type, EMRSTRETCHBLT{fields, area.width, area.height}, length)
                               : record(type, fields, length);
    if (tail == nullptr) {
        return false;
    }
    dib.writeHead(tail);
    dib.writeBits(tail + dib.headLength());
    markDrawn(context, bounds);
    return true;
}

bool MetafileDevice::copyDib(DeviceContext& context, const RECT& target, const BITMAPINFO* info,
                             const void* bits, UINT usage, const SourceArea& area, DWORD operation)
{
    const DibSize size = info == nullptr || bits == nullptr ? DibSize{} : measurePicture(info, usage);
    if (size.head == 0 || size.bits == 0 || size.head + size.bits > LargestMetafile) {
        return false;
    }
    const Placement place = placementOf(target);
    const DrawnBounds bounds = boundsOfStretched(context.mapping(), target);
    // Records count, as the call does, from the row that comes first in a bitmap: the bottom one, if its height says so.
    BITMAPINFOHEADER header;
    std::memcpy(&header, info, sizeof(header));
    const std::int64_t height = header.biHeight;
    const std::int64_t y = height > 0 ? height - area.y - area.height : area.y;
    EMRSTRETCHDIBITS fields{};
    fields.rclBounds = bounds.box;
    fields.xDest = place.origin.x;
    fields.yDest = place.origin.y;
    fields.xSrc = area.x;
    fields.ySrc = static_cast<LONG>(std::clamp<std::int64_t>(y, INT32_MIN, INT32_MAX));
    fields.cxSrc = area.width;
    fields.cySrc = area.height;
    fields.offBmiSrc = sizeof(fields);
    fields.cbBmiSrc = static_cast<DWORD>(size.head);
    fields.offBitsSrc = static_cast<DWORD>(sizeof(fields) + paddedLength(size.head));
    fields.cbBitsSrc = static_cast<DWORD>(size.bits);
    fields.iUsageSrc = usage;
    fields.dwRop = operation;
    fields.cxDest = place.size.cx;
    fields.cyDest = place.size.cy;
    BYTE* const tail = record(EMR_STRETCHDIBITS, fields, paddedLength(size.head) + size.bits);
    if (tail == nullptr) {
        return false;
    }
    std::memcpy(tail, info, size.head);
    std::memcpy(tail + paddedLength(size.head), bits, size.bits);
    markDrawn(context, bounds);
    return true;
}

} // namespace wingdi
