// Fills areas with very many edges. Cairo keeps the edges of a row in a list that it sorts by insertion, so that its time
// grows with their square; here each edge costs the rows that it crosses, and no more.
#pragma once

#include <cstddef>

#include "Ink.h"
#include "Outline.h"
#include "PixelRows.h"

namespace wingdi {

constexpr std::size_t MostPointsForCairo = 4096;

// As cairo does without smoothing: the pixels whose middles lie inside.
void fillByRows(Canvas& canvas, const Outline& outline, int fillMode, const Ink& ink);

} // namespace wingdi
