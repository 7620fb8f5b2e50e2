// Strokes of any number of points.
#pragma once

#include <cairo.h>

#include "Outline.h"
#include "PenLook.h"

namespace wingdi {

// Strokes an outline, whose dashes are figures of their own already. Cairo takes the union of all that one stroke covers, in
// a time that grows with the square of its segments: many are stroked a few at a time.
void strokeOutline(cairo_t* cairo, const PenLook& pen, const Outline& outline);

} // namespace wingdi
