// Making and filling bitmaps.
#include <algorithm>
#include <cstring>
#include <utility>

#include "DeviceContext.h"
#include "HandleTable.h"
#include "StockObjects.h"
#include "failWith.h"

using namespace wingdi;

namespace {

HBITMAP addBitmap(std::shared_ptr<Bitmap> bitmap)
{
    if (!bitmap) {
        return failWith(ERROR_NOT_ENOUGH_MEMORY, nullptr);
    }
    auto object = std::make_shared<BitmapObject>();
    object->bitmap = std::move(bitmap);
    return static_cast<HBITMAP>(HandleTable::instance().add(std::move(object)));
}

// A size of 0 asks for the bitmap of one monochrome pixel.
HBITMAP defaultBitmap()
{
    const std::shared_ptr<BitmapObject> bitmap = makeDefaultBitmap();
    return bitmap ? static_cast<HBITMAP>(bitmap->handle()) : nullptr;
}

// Which row of the bitmap the row of a device-independent bitmap becomes; both count in their own stored order.
struct RowRange {
    int first;
    int count;
};

int setRows(Bitmap& bitmap, const DibHead& head, const BitmapView& source, RowRange range)
{
    for (int index = 0; index < range.count; ++index) {
        const int scan = range.first + index;
        const int y = head.bottomUp ? head.height - 1 - scan : scan;
        if (y >= 0 && y < bitmap.height()) {
            bitmap.setRow(y, source, head.bottomUp ? range.count - 1 - index : index);
        }
    }
    return range.count;
}

} // namespace

HBITMAP CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel, const void* bits)
{
    return guarded<HBITMAP>(nullptr, [&]() -> HBITMAP {
        if (width < 0 || height < 0 || planes != 1 || (bitsPerPixel != 1 && bitsPerPixel != 32)) {
            return failWith(ERROR_INVALID_PARAMETER, nullptr);
        }
        if (width == 0 || height == 0) {
            return defaultBitmap();
        }
        std::shared_ptr<Bitmap> bitmap =
            Bitmap::create(width, height, static_cast<int>(bitsPerPixel), false, false);
        if (bitmap && bits != nullptr) {
            const std::size_t rowBytes = (static_cast<std::size_t>(width) * bitsPerPixel + 15) / 16 * 2;
            for (int y = 0; y < height; ++y) {
                std::memcpy(bitmap->row(y),
                            static_cast<const BYTE*>(bits) + rowBytes * static_cast<unsigned int>(y),
                            rowBytes);
            }
        }
        return addBitmap(std::move(bitmap));
    });
}

HBITMAP CreateCompatibleBitmap(HDC context, int width, int height)
{
    return onContext<HBITMAP>(
        context, "CreateCompatibleBitmap", nullptr, [&](DeviceContext& found) -> HBITMAP {
            if (width < 0 || height < 0) {
                return failWith(ERROR_INVALID_PARAMETER, nullptr);
            }
            if (width == 0 || height == 0) {
                return defaultBitmap();
            }
            const bool mono = found.bitmap && found.bitmap->bitmap->isMonochrome();
            return addBitmap(Bitmap::create(width, height, mono ? 1 : 32, false, false));
        });
}

HBITMAP CreateDIBSection(HDC context, const BITMAPINFO* info, UINT usage, void** bits, HANDLE section,
                         DWORD offset)
{
    const auto create = [&]() -> HBITMAP {
        const std::optional<DibHead> head = readDibHead(info, usage);
        const bool compressed = head && head->compression != BI_RGB && head->compression != BI_BITFIELDS;
        if (!head || compressed || section != nullptr || offset != 0) {
            return failWith(ERROR_INVALID_PARAMETER, nullptr);
        }
        const std::shared_ptr<Bitmap> bitmap = Bitmap::createDib(*head);
        const HBITMAP handle = addBitmap(bitmap);
        if (handle != nullptr && bits != nullptr) {
            *bits = bitmap->bits();
        }
        return handle;
    };
    if (bits != nullptr) {
        *bits = nullptr;
    }
    if (context == nullptr) {
        return guarded<HBITMAP>(nullptr, create);
    }
    return onContext<HBITMAP>(context, "CreateDIBSection", nullptr, [&](DeviceContext&) { return create(); });
}

int SetDIBits(HDC context, HBITMAP bitmap, UINT firstRow, UINT rowCount, const void* bits,
              const BITMAPINFO* info, UINT usage)
{
    const auto set = [&]() -> int {
        const auto object = HandleTable::instance().find<BitmapObject>(bitmap, ObjectKind::Bitmap);
        std::optional<DibHead> head = readDibHead(info, usage);
        if (!object || !head || bits == nullptr || firstRow >= static_cast<UINT>(head->height)) {
            return failWith(ERROR_INVALID_PARAMETER, 0);
        }
        const UINT most = static_cast<UINT>(head->height) - firstRow;
        const RowRange range{static_cast<int>(firstRow), static_cast<int>(std::min(rowCount, most))};
        if (head->compression == BI_RLE8 || head->compression == BI_RLE4) {
            const std::shared_ptr<Bitmap> expanded = Bitmap::createDib(*head, bits);
            // Codes describe a whole picture.
            return expanded ? setRows(*object->bitmap, *head, expanded->view(), {0, head->height}) : 0;
        }
        BitmapView rows{
            head->width,
            range.count,
            head->bitsPerPixel,
            head->bottomUp,
            static_cast<std::ptrdiff_t>(head->stride),
            {static_cast<const BYTE*>(bits), head->stride * static_cast<unsigned int>(range.count)},
            head->palette,
            head->masks[0],
            head->masks[1],
            head->masks[2]};
        return setRows(*object->bitmap, *head, rows, range);
    };
    if (context == nullptr) {
        return guarded(0, set);
    }
    return onContext(context, "SetDIBits", 0, [&](DeviceContext&) { return set(); });
}
