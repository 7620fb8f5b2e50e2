#include "CairoPainter.h"

#include <cairo.h>

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace wingdi {

namespace {

// Larger pictures are beyond cairo.
constexpr int LargestSide = 32767;

bool sameRect(const RECT& first, const RECT& second)
{
    return std::memcmp(&first, &second, sizeof(RECT)) == 0;
}

double part(DWORD pixel, int shift)
{
    return static_cast<double>(pixel >> shift & 0xFF) / 255;
}

// A colour over another one, by coverage from 0 to 255.
DWORD blended(DWORD under, DWORD over, unsigned int coverage)
{
    const auto channel = [&](int shift) {
        const unsigned int sum =
            (over >> shift & 0xFF) * coverage + (under >> shift & 0xFF) * (255 - coverage);
        return (sum + 127) / 255 << shift;
    };
    return channel(16) | channel(8) | channel(0);
}

// How many bytes from the first on are like it. Most masks are nothing or everything for long stretches.
int equalRun(const BYTE* bytes, int count)
{
    const BYTE first = bytes[0];
    const std::uint64_t wanted = first * std::uint64_t{0x0101010101010101};
    int end = 1;
    for (std::uint64_t next = 0; end + 8 <= count; end += 8) {
        std::memcpy(&next, bytes + end, sizeof next);
        if (next != wanted) {
            break;
        }
    }
    while (end < count && bytes[end] == first) {
        ++end;
    }
    return end;
}

void layCovered(DWORD* pixels, int x, int y, int count, const BYTE* coverage, const Ink& ink)
{
    for (int i = 0; i < count;) {
        const BYTE first = coverage[i];
        const int end = i + equalRun(coverage + i, count - i);
        if (first == 255) {
            ink.lay(pixels + i, x + i, y, end - i);
        } else if (first != 0) {
            for (int k = i; k < end; ++k) {
                DWORD covered = pixels[k];
                ink.lay(&covered, x + k, y, 1);
                pixels[k] = blended(pixels[k], covered, first);
            }
        }
        i = end;
    }
}

} // namespace

cairo_t* CairoPainter::beginDirect(Canvas& canvas, const Ink& ink)
{
    const BitmapView& view = canvas.view();
    if (!ink.isPlain() || !canvas.isDirect() || view.bottomUp || view.width > LargestSide ||
        view.height > LargestSide) {
        return nullptr;
    }
    const bool fresh = m_bitmap != canvas.bitmap() || !m_cairo;
    if (fresh) {
        m_cairo.reset();
        m_bitmap = canvas.bitmap();
        m_surface.reset(cairo_image_surface_create_for_data(m_bitmap->bits(), CAIRO_FORMAT_RGB24, view.width,
                                                            view.height, static_cast<int>(view.stride)));
        m_cairo.reset(cairo_create(m_surface.get()));
        cairo_set_antialias(m_cairo.get(), CAIRO_ANTIALIAS_NONE);
        m_clipBox = {0, 0, view.width, view.height};
        m_clip.clear();
    }
    if (fresh || m_color != ink.color) {
        m_color = ink.color;
        cairo_set_source_rgb(m_cairo.get(), part(m_color, 16), part(m_color, 8), part(m_color, 0));
    }
    applyClip(canvas);
    if (cairo_status(m_cairo.get()) != CAIRO_STATUS_SUCCESS) {
        m_cairo.reset();
        return nullptr;
    }
    return m_cairo.get();
}

void CairoPainter::applyClip(const Canvas& canvas)
{
    const std::vector<RECT>& clip = canvas.clip();
    if (sameRect(m_clipBox, canvas.box()) &&
        std::equal(clip.begin(), clip.end(), m_clip.begin(), m_clip.end(), sameRect)) {
        return;
    }
    m_clipBox = canvas.box();
    m_clip = clip;
    cairo_reset_clip(m_cairo.get());
    const auto add = [this](const RECT& rect) {
        cairo_rectangle(m_cairo.get(), rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top);
    };
    if (clip.empty()) {
        add(m_clipBox);
    }
    std::for_each(clip.begin(), clip.end(), add);
    cairo_clip(m_cairo.get());
}

void CairoPainter::endDirect()
{
    if (cairo_status(m_cairo.get()) != CAIRO_STATUS_SUCCESS) {
        m_cairo.reset();
    }
}

cairo_t* CairoPainter::beginMask(const RECT& window)
{
    const int width = window.right - window.left;
    const int height = window.bottom - window.top;
    if (!m_mask || cairo_image_surface_get_width(m_mask.get()) < width ||
        cairo_image_surface_get_height(m_mask.get()) < height) {
        m_maskCairo.reset();
        m_mask.reset(cairo_image_surface_create(CAIRO_FORMAT_A8, width, height));
    }
    if (!m_maskCairo || cairo_status(m_maskCairo.get()) != CAIRO_STATUS_SUCCESS) {
        m_maskCairo.reset(cairo_create(m_mask.get()));
        cairo_set_antialias(m_maskCairo.get(), CAIRO_ANTIALIAS_NONE);
    }
    cairo_t* cairo = m_maskCairo.get();
    if (cairo_status(cairo) != CAIRO_STATUS_SUCCESS) {
        m_maskCairo.reset();
        m_mask.reset();
        return nullptr;
    }
    unsigned char* rows = cairo_image_surface_get_data(m_mask.get());
    const std::ptrdiff_t stride = cairo_image_surface_get_stride(m_mask.get());
    for (int y = 0; y < height; ++y) {
        std::memset(rows + stride * y, 0, static_cast<std::size_t>(width));
    }
    cairo_surface_mark_dirty(m_mask.get());
    cairo_identity_matrix(cairo);
    cairo_translate(cairo, -window.left, -window.top);
    cairo_reset_clip(cairo);
    cairo_rectangle(cairo, window.left, window.top, width, height);
    cairo_clip(cairo);
    return cairo;
}

void CairoPainter::layMask(Canvas& canvas, const RECT& window, const Ink& ink)
{
    cairo_surface_flush(m_mask.get());
    const unsigned char* rows = cairo_image_surface_get_data(m_mask.get());
    const std::ptrdiff_t stride = cairo_image_surface_get_stride(m_mask.get());
    canvas.change(window, [&](DWORD* pixels, int x, int y, int count) {
        layCovered(pixels, x, y, count, rows + stride * (y - window.top) + (x - window.left), ink);
    });
}

} // namespace wingdi
