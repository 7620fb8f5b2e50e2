// Pictures as cairo takes them.
#pragma once

#include <memory>

#include "CairoRelease.h"
#include "VectorPage.h"

namespace wingdi {

// Null without memory. Pixels without holes have the form that cairo reads them in.
std::unique_ptr<cairo_surface_t, CairoRelease> surfaceOf(const VectorPicture& picture);

} // namespace wingdi
