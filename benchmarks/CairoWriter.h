// What the pages of the peer share: owners of cairo's objects, and a page written to memory by cairo's SVG surface,
// by its PDF surface or by its PostScript surface, held to language level 2.
#pragma once

#include <memory>
#include <stdexcept>
#include <string>

#include <cairo-pdf.h>
#include <cairo-ps.h>
#include <cairo-svg.h>
#include <cairo.h>
#include <windows.h>

template <auto destroy>
struct Release {
    template <class Resource>
    void operator()(Resource* resource) const
    {
        destroy(resource);
    }
};
using CairoSurface = std::unique_ptr<cairo_surface_t, Release<cairo_surface_destroy>>;
using CairoContext = std::unique_ptr<cairo_t, Release<cairo_destroy>>;
using CairoPattern = std::unique_ptr<cairo_pattern_t, Release<cairo_pattern_destroy>>;

inline cairo_status_t appendBytes(void* page, const unsigned char* bytes, unsigned int count)
{
    static_cast<std::string*>(page)->append(reinterpret_cast<const char*>(bytes), count);
    return CAIRO_STATUS_SUCCESS;
}

inline void setColor(cairo_t* cairo, unsigned long color)
{
    const auto part = [color](int shift) {
        return static_cast<double>(color >> shift & 0xFF) / 255.0;
    };
    cairo_set_source_rgb(cairo, part(0), part(8), part(16));
}

enum class PageFormat { Svg, PostScript, Pdf };

inline CairoSurface makeCairoSurface(PageFormat format, const RECT& bounds, std::string& page)
{
    if (format == PageFormat::Svg) {
        return CairoSurface(
            cairo_svg_surface_create_for_stream(appendBytes, &page, bounds.right, bounds.bottom));
    }
    if (format == PageFormat::Pdf) {
        return CairoSurface(
            cairo_pdf_surface_create_for_stream(appendBytes, &page, bounds.right, bounds.bottom));
    }
    CairoSurface surface(cairo_ps_surface_create_for_stream(appendBytes, &page, bounds.right, bounds.bottom));
    cairo_ps_surface_restrict_to_level(surface.get(), CAIRO_PS_LEVEL_2);
    return surface;
}

// Leaves in `page` what `draw` draws on the context that it is given.
template <class Draw>
void writeCairoPage(PageFormat format, const RECT& bounds, std::string& page, Draw draw)
{
    page.clear();
    const CairoSurface surface = makeCairoSurface(format, bounds, page);
    const CairoContext cairo(cairo_create(surface.get()));
    draw(cairo.get());
    cairo_surface_finish(surface.get());
    if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS ||
        cairo_status(cairo.get()) != CAIRO_STATUS_SUCCESS) {
        throw std::runtime_error("cairo did not write the page");
    }
}
