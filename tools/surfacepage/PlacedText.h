// A text of a page with its place.
#pragma once

#include <string>

#include <windows.h>

namespace pagetool {

struct PlacedText {
    POINTL place;     // logical units
    std::string text; // UTF-8
    // Where it begins on the page, in units that all texts of the page share.
    POINTL start = place;
};

} // namespace pagetool
