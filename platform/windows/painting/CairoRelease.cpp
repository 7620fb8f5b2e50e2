#include "CairoRelease.h"

#include <cairo.h>

namespace wingdi {

void CairoRelease::operator()(cairo_t* cairo) const noexcept
{
    cairo_destroy(cairo);
}

void CairoRelease::operator()(cairo_surface_t* surface) const noexcept
{
    cairo_surface_destroy(surface);
}

} // namespace wingdi
