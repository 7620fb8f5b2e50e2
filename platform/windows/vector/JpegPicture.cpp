#include "JpegPicture.h"

#include <turbojpeg.h>

#include <algorithm>
#include <bit>

namespace wingdi {

JpegPicture::JpegPicture(cairo_surface_t* surface, int quality)
{
    // The surface's pixels are words.
    constexpr TJPF Order = std::endian::native == std::endian::little ? TJPF_BGRX : TJPF_XRGB;
    constexpr int Best = 100;
    const tjhandle writer = tjInitCompress();
    if (writer == nullptr) {
        return;
    }
    cairo_surface_flush(surface);
    // Colours are not thinned: red text stays sharp.
    if (tjCompress2(writer, cairo_image_surface_get_data(surface), cairo_image_surface_get_width(surface),
                    cairo_image_surface_get_stride(surface), cairo_image_surface_get_height(surface), Order,
                    &m_bytes, &m_length, TJSAMP_444, std::clamp(quality, 1, Best), 0) != 0) {
        m_length = 0;
    }
    tjDestroy(writer);
}

JpegPicture::~JpegPicture()
{
    tjFree(m_bytes);
}

} // namespace wingdi
