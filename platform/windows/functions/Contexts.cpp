// How contexts come and go.
#include <utility>

#include "DeviceContext.h"
#include "HandleTable.h"
#include "RasterDevice.h"
#include "ScreenDevice.h"
#include "failWith.h"

using namespace wingdi;

namespace {

HDC addNew(ContextKind kind, std::unique_ptr<Device> device)
{
    return addContext(std::make_shared<DeviceContext>(kind, std::move(device)));
}

// True when the context is one that `ends` accepts, and was live.
template <class Accepts>
bool endContext(HDC handle, const Accepts& accepts)
{
    HandleTable& table = HandleTable::instance();
    const auto context = table.find<DeviceContext>(handle, ObjectKind::Context);
    if (!context || !accepts(context->contextKind()) || !table.remove(handle)) {
        return failWith(ERROR_INVALID_HANDLE, false);
    }
    return true;
}

} // namespace

HDC GetDC(HWND window)
{
    if (window != nullptr) {
        return failWith(ERROR_INVALID_HANDLE, nullptr);
    }
    return guarded<HDC>(nullptr,
                        [] { return addNew(ContextKind::Screen, std::make_unique<ScreenDevice>()); });
}

int ReleaseDC(HWND window, HDC context)
{
    return window == nullptr &&
                   endContext(context, [](ContextKind kind) { return kind == ContextKind::Screen; })
               ? 1
               : 0;
}

HDC CreateCompatibleDC(HDC context)
{
    const auto create = [](const Device& reference) {
        return addNew(ContextKind::Memory, makeRasterDevice(reference));
    };
    if (context == nullptr) {
        return guarded<HDC>(nullptr, [&] { return create(ScreenDevice()); });
    }
    return onContext<HDC>(context, "CreateCompatibleDC", nullptr,
                          [&](DeviceContext& found) { return create(found.device()); });
}

BOOL DeleteDC(HDC context)
{
    return endContext(context, [](ContextKind) { return true; }) ? TRUE : FALSE;
}

int GetDeviceCaps(HDC context, int index)
{
    return onContext(context, "GetDeviceCaps", 0,
                     [&](DeviceContext& found) { return found.device().capability(index); });
}
