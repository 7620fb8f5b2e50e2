// How a pen looks on the device, and the drawing of lines with it.
#pragma once

#include <windows.h>

#include <optional>
#include <vector>

#include "Outline.h"

namespace wingdi {

class DeviceContext;
class PenObject;

// A wider pen covers every page.
constexpr double WidestPen = 1 << 17; // device units

struct PenLook {
    // One device pixel, drawn by whole steps of the grid, the last point of an open figure left out.
    bool thin = true;
    double width = 1; // device units
    // Where the axes differ: the pen is a circle of logicalWidth under this mapping.
    std::optional<Mapping> nib;
    double logicalWidth = 1;
    std::vector<double> dashes; // device units on and off in turn; none: unbroken
    std::optional<DWORD> gapColor;
    DWORD style = 0;
    double miterLimit = 10;

    // How far from a line its ink may lie.
    double reach() const;
};

PenLook lookOf(const DeviceContext& context, const PenObject& pen);

// Strokes cairo's path, and leaves none behind. Dashes are left to the caller.
void strokeTraced(cairo_t* cairo, const PenLook& pen);

} // namespace wingdi
