// The size of an SVG page as a player passes it to a surface.
#pragma once

#include <string_view>

#include <windows.h>

namespace pagetool {

struct SvgPageSize {
    bool isUsable() const { return units.cx > 0 && units.cy > 0 && millimetres.cx > 0 && millimetres.cy > 0; }

    SIZE units{};       // the extent of the coordinates
    SIZE millimetres{}; // the paper
};

// Reads no more of the page than its head. Sizes that the page doesn't give are 0.
SvgPageSize svgPageSize(std::string_view page);

} // namespace pagetool
