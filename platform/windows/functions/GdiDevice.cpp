// gdidevice.h: pages to draw on, and a look at what was drawn.
#include <cairo.h>

#include <cstring>
#include <memory>
#include <string_view>

#include "CairoPainter.h"
#include "DeviceContext.h"
#include "HandleTable.h"
#include "RasterDevice.h"
#include "failWith.h"
#include "gdidevice.h"

using namespace wingdi;

namespace {

// Looked up without being counted as a call.
std::shared_ptr<DeviceContext> findPage(HDC device)
{
    auto context = HandleTable::instance().find<DeviceContext>(device, ObjectKind::Context);
    return context && context->contextKind() == ContextKind::Page ? context : nullptr;
}

} // namespace

HDC gdiCreateDevice(const GdiDeviceOptions* options)
{
    return guarded<HDC>(nullptr, [&]() -> HDC {
        const GdiDeviceOptions wanted = options != nullptr ? *options : GdiDeviceOptions{};
        std::shared_ptr<Bitmap> bitmap = Bitmap::create(wanted.width, wanted.height, 32, false, false);
        if (!bitmap || wanted.dpi < 1) {
            return failWith(ERROR_INVALID_PARAMETER, nullptr);
        }
        const BitmapView view = bitmap->view();
        std::memset(bitmap->bits(), 0xFF, view.bits.size());
        auto context = std::make_shared<DeviceContext>(ContextKind::Page, makeRasterDevice(wanted));
        // In no table: nobody can select or delete it.
        context->bitmap = std::make_shared<BitmapObject>();
        context->bitmap->bitmap = std::move(bitmap);
        return addContext(std::move(context));
    });
}

const unsigned char* gdiDeviceBits(HDC device, int* strideBytes)
{
    const std::shared_ptr<DeviceContext> page = findPage(device);
    if (!page) {
        return nullptr;
    }
    const BitmapView view = page->bitmap->bitmap->view();
    if (strideBytes != nullptr) {
        *strideBytes = static_cast<int>(view.stride);
    }
    return view.bits.data();
}

int gdiDeviceCalls(HDC device, const char* function)
{
    const std::shared_ptr<DeviceContext> page = findPage(device);
    if (!page || function == nullptr) {
        return 0;
    }
    const auto found = page->calls.find(std::string_view(function));
    return found != page->calls.end() ? found->second : 0;
}

bool gdiSavePng(HDC device, const char* path)
{
    const std::shared_ptr<DeviceContext> page = findPage(device);
    if (!page || path == nullptr) {
        return false;
    }
    const BitmapView view = page->bitmap->bitmap->view();
    const std::unique_ptr<cairo_surface_t, CairoRelease> surface(
        cairo_image_surface_create_for_data(page->bitmap->bitmap->bits(), CAIRO_FORMAT_RGB24, view.width,
                                            view.height, static_cast<int>(view.stride)));
    return cairo_surface_write_to_png(surface.get(), path) == CAIRO_STATUS_SUCCESS;
}
