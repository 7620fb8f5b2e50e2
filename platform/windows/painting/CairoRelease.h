// Lets go of what cairo counts references of.
#pragma once

using cairo_t = struct _cairo;                 // NOLINT(bugprone-reserved-identifier): cairo's own tags
using cairo_surface_t = struct _cairo_surface; // NOLINT(bugprone-reserved-identifier)

namespace wingdi {

struct CairoRelease {
    void operator()(cairo_t* cairo) const noexcept;
    void operator()(cairo_surface_t* surface) const noexcept;
};

} // namespace wingdi
