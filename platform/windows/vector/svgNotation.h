// How numbers, colours, transforms and paths are written in SVG.
#pragma once

#include <windows.h>

#include <string>

#include "Mapping.h"
#include "Outline.h"
#include "VectorPage.h"

namespace wingdi {

// At most `decimals` of them; what is no number is 0.
std::string svgNumber(double value, int decimals = 2);
std::string svgColor(COLORREF color);
std::string svgMatrix(const Mapping& mapping);
// Moved by half a unit: points of outlines are middles of pixels.
std::string svgPath(const Outline& outline, const Mapping& toPath = {});
// " style=..." of a blend; empty for none.
std::string svgBlend(Blend blend);

} // namespace wingdi
