// What all drawing objects share: selection, deletion, types and counts.
#include <utility>

#include "DeviceContext.h"
#include "HandleTable.h"
#include "StockObjects.h"
#include "failWith.h"

using namespace wingdi;

namespace {

thread_local DWORD lastError = ERROR_SUCCESS;

// The handle that stands for the present process, as Windows gives it.
const HANDLE CurrentProcess = reinterpret_cast<HANDLE>(LONG_PTR{-1}); // NOLINT(performance-no-int-to-ptr)

template <class Object>
HGDIOBJ exchange(std::shared_ptr<Object>& held, const std::shared_ptr<GdiObject>& object)
{
    const HGDIOBJ former = held->handle();
    held = std::static_pointer_cast<Object>(object);
    return former;
}

// Null when the context takes no bitmap, or another context holds this one.
HGDIOBJ selectBitmap(DeviceContext& context, const std::shared_ptr<GdiObject>& object)
{
    if (context.contextKind() != ContextKind::Memory) {
        return nullptr;
    }
    auto bitmap = std::static_pointer_cast<BitmapObject>(object);
    const HGDIOBJ former = context.bitmap->handle();
    if (bitmap->stockIndex() >= 0) {
        bitmap = makeDefaultBitmap();
        if (!bitmap) {
            return nullptr;
        }
    }
    DeviceContext* holder = nullptr;
    if (!bitmap->selectedInto.compare_exchange_strong(holder, &context)) {
        return holder == &context ? former : nullptr;
    }
    context.bitmap->selectedInto = nullptr;
    context.bitmap = std::move(bitmap);
    return former;
}

HGDIOBJ select(DeviceContext& context, const std::shared_ptr<GdiObject>& object)
{
    switch (object->kind()) {
    case ObjectKind::Pen:
        return exchange(context.state.pen, object);
    case ObjectKind::Brush:
        return exchange(context.state.brush, object);
    case ObjectKind::Font:
        return exchange(context.state.font, object);
    case ObjectKind::Bitmap:
        return selectBitmap(context, object);
    default:
        return nullptr;
    }
}

DWORD contextType(const GdiObject& object)
{
    switch (static_cast<const DeviceContext&>(object).contextKind()) {
    case ContextKind::Memory:
        return OBJ_MEMDC;
    case ContextKind::Metafile:
        return OBJ_ENHMETADC;
    default:
        return OBJ_DC;
    }
}

} // namespace

HGDIOBJ SelectObject(HDC context, HGDIOBJ object)
{
    return onContext<HGDIOBJ>(context, "SelectObject", nullptr, [&](DeviceContext& found) -> HGDIOBJ {
        const std::shared_ptr<GdiObject> entering = HandleTable::instance().find(object);
        const HGDIOBJ former = entering ? select(found, entering) : nullptr;
        if (former == nullptr) {
            return failWith(ERROR_INVALID_HANDLE, nullptr);
        }
        found.device().objectSelected(found, entering);
        return former;
    });
}

HGDIOBJ GetCurrentObject(HDC context, UINT type)
{
    return onContext<HGDIOBJ>(context, "GetCurrentObject", nullptr, [&](DeviceContext& found) -> HGDIOBJ {
        switch (type) {
        case OBJ_PEN:
        case OBJ_EXTPEN:
            return found.state.pen->handle();
        case OBJ_BRUSH:
            return found.state.brush->handle();
        case OBJ_FONT:
            return found.state.font->handle();
        case OBJ_BITMAP:
            return found.bitmap ? found.bitmap->handle() : nullptr;
        default:
            return failWith(ERROR_INVALID_PARAMETER, nullptr);
        }
    });
}

BOOL DeleteObject(HGDIOBJ object)
{
    return guarded(FALSE, [&] {
        HandleTable& table = HandleTable::instance();
        const std::shared_ptr<GdiObject> found = table.find(object);
        if (found && found->stockIndex() >= 0) {
            return TRUE;
        }
        const bool held = found && found->kind() == ObjectKind::Bitmap &&
                          static_cast<const BitmapObject&>(*found).selectedInto != nullptr;
        if (!found || held || found->kind() == ObjectKind::Context || found->kind() == ObjectKind::Metafile ||
            !table.remove(object)) {
            return failWith(ERROR_INVALID_HANDLE, FALSE);
        }
        if (found->kind() == ObjectKind::Pen || found->kind() == ObjectKind::Brush ||
            found->kind() == ObjectKind::Font) {
            DeletionWatch::objectDeleted(object);
        }
        return TRUE;
    });
}

DWORD GetObjectType(HGDIOBJ object)
{
    const std::shared_ptr<GdiObject> found = HandleTable::instance().find(object);
    if (!found) {
        return failWith(ERROR_INVALID_HANDLE, DWORD{0});
    }
    switch (found->kind()) {
    case ObjectKind::Pen:
        return static_cast<const PenObject&>(*found).extended ? OBJ_EXTPEN : OBJ_PEN;
    case ObjectKind::Brush:
        return OBJ_BRUSH;
    case ObjectKind::Font:
        return OBJ_FONT;
    case ObjectKind::Bitmap:
        return OBJ_BITMAP;
    case ObjectKind::Region:
        return OBJ_REGION;
    case ObjectKind::Metafile:
        return OBJ_ENHMETAFILE;
    case ObjectKind::Context:
        return contextType(*found);
    }
    return 0;
}

BOOL UnrealizeObject(HGDIOBJ object)
{
    return HandleTable::instance().find(object) ? TRUE : FALSE;
}

DWORD GetGuiResources(HANDLE process, DWORD flags)
{
    if (process != CurrentProcess || flags != GR_GDIOBJECTS) {
        return failWith(ERROR_INVALID_PARAMETER, DWORD{0});
    }
    return HandleTable::instance().count();
}

HANDLE GetCurrentProcess()
{
    return CurrentProcess;
}

BOOL GdiFlush()
{
    return TRUE;
}

void SetLastError(DWORD error)
{
    lastError = error;
}

DWORD GetLastError()
{
    return lastError;
}
