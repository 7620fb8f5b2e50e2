#include "CairoPicture.h"

#include <cairo.h>

#include <cstring>
#include <span>

namespace wingdi {

namespace {

void freeData(void* data)
{
    delete[] static_cast<unsigned char*>(data);
}

void attach(cairo_surface_t* surface, const char* type, std::span<const unsigned char> bytes)
{
    auto copy = std::make_unique<unsigned char[]>(bytes.size());
    std::memcpy(copy.get(), bytes.data(), bytes.size());
    unsigned char* const data = copy.get();
    if (cairo_surface_set_mime_data(surface, type, data, bytes.size(), freeData, data) ==
        CAIRO_STATUS_SUCCESS) {
        static_cast<void>(copy.release());
    }
}

} // namespace

std::unique_ptr<cairo_surface_t, CairoRelease> surfaceOf(const VectorPicture& picture)
{
    const cairo_format_t format = picture.hasHoles ? CAIRO_FORMAT_ARGB32 : CAIRO_FORMAT_RGB24;
    std::unique_ptr<cairo_surface_t, CairoRelease> surface(
        cairo_image_surface_create(format, picture.width, picture.height));
    if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) {
        return nullptr;
    }
    cairo_surface_flush(surface.get());
    unsigned char* const bits = cairo_image_surface_get_data(surface.get());
    const std::ptrdiff_t stride = cairo_image_surface_get_stride(surface.get());
    const std::size_t length = static_cast<std::size_t>(picture.width) * sizeof(std::uint32_t);
    for (int y = 0; y < picture.height; ++y) {
        std::memcpy(bits + y * stride, picture.pixels.data() + std::ptrdiff_t{y} * picture.width, length);
    }
    cairo_surface_mark_dirty(surface.get());
    attach(surface.get(), CAIRO_MIME_TYPE_UNIQUE_ID,
           {reinterpret_cast<const unsigned char*>(picture.id.data()), picture.id.size()});
    if (!picture.jpeg.empty()) {
        attach(surface.get(), CAIRO_MIME_TYPE_JPEG, picture.jpeg);
    }
    return surface;
}

} // namespace wingdi
