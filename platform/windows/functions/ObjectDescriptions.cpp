// GetObjectA: what an object was made of.
#include <algorithm>
#include <cstddef>
#include <cstring>

#include "DeviceContext.h"
#include "FontDescriptions.h"
#include "HandleTable.h"
#include "failWith.h"

using namespace wingdi;

namespace {

// The bytes of a description, and how few of them a caller's buffer may take.
struct Description {
    std::vector<BYTE> bytes;
    std::size_t least = 0;
};

template <class Record>
Description describe(const Record& record, std::size_t least)
{
    Description result{std::vector<BYTE>(sizeof record), least};
    std::memcpy(result.bytes.data(), &record, sizeof record);
    return result;
}

Description describePen(const PenObject& pen)
{
    if (!pen.extended) {
        const auto width = static_cast<LONG>(pen.width);
        return describe(LOGPEN{pen.style, {width, 0}, pen.color}, sizeof(LOGPEN));
    }
    EXTLOGPEN record{};
    record.elpPenStyle = pen.style;
    record.elpWidth = pen.width;
    record.elpBrushStyle = pen.brushStyle;
    record.elpColor = pen.color;
    record.elpHatch = pen.hatch;
    record.elpNumEntries = static_cast<DWORD>(pen.dashes.size());
    const std::size_t start = offsetof(EXTLOGPEN, elpStyleEntry);
    const std::size_t dashBytes = pen.dashes.size() * sizeof(DWORD);
    Description result{std::vector<BYTE>(start + dashBytes), start + dashBytes};
    std::memcpy(result.bytes.data(), &record, start);
    std::copy_n(reinterpret_cast<const BYTE*>(pen.dashes.data()), dashBytes, result.bytes.data() + start);
    return result;
}

Description describeBitmap(const BitmapObject& object)
{
    Bitmap& bitmap = *object.bitmap;
    const BitmapView view = bitmap.view();
    BITMAP record{};
    record.bmWidth = view.width;
    record.bmHeight = view.height;
    // Rows of bitmaps that are no DIB sections are measured in units of 16 bits.
    record.bmWidthBytes = bitmap.isDibSection() ? static_cast<LONG>(view.stride)
                                                : (view.width * view.bitsPerPixel + 15) / 16 * 2;
    record.bmPlanes = 1;
    record.bmBitsPixel = static_cast<WORD>(view.bitsPerPixel);
    record.bmBits = bitmap.isDibSection() ? bitmap.bits() : nullptr;
    return describe(record, sizeof record);
}

Description describe(const GdiObject& object)
{
    switch (object.kind()) {
    case ObjectKind::Pen:
        return describePen(static_cast<const PenObject&>(object));
    case ObjectKind::Brush: {
        const auto& brush = static_cast<const BrushObject&>(object);
        return describe(LOGBRUSH{brush.style, brush.color, brush.hatch}, sizeof(LOGBRUSH));
    }
    case ObjectKind::Font:
        return describe(narrowDescription(static_cast<const FontObject&>(object).description), 1);
    case ObjectKind::Bitmap:
        return describeBitmap(static_cast<const BitmapObject&>(object));
    default:
        return {};
    }
}

} // namespace

int GetObjectA(HGDIOBJ object, int size, void* buffer)
{
    return guarded(0, [&] {
        const std::shared_ptr<GdiObject> found = HandleTable::instance().find(object);
        if (!found) {
            return failWith(ERROR_INVALID_HANDLE, 0);
        }
        const Description description = describe(*found);
        if (buffer == nullptr) {
            return static_cast<int>(description.bytes.size());
        }
        const auto room = static_cast<std::size_t>(std::max(size, 0));
        if (room < description.least) {
            return failWith(ERROR_INSUFFICIENT_BUFFER, 0);
        }
        const std::size_t written = std::min(room, description.bytes.size());
        std::copy_n(description.bytes.begin(), written, static_cast<BYTE*>(buffer));
        return static_cast<int>(written);
    });
}
