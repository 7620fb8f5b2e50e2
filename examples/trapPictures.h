// The traps as pictures: each drawn on four back ends, painted, and put together on one sheet.
//
// Used by the run (report.cpp).
#pragma once

#include <filesystem>

struct Trap;

inline constexpr const char* TrapPrefix = "gallery/trap-";

// Draws on an SVG page, which librsvg paints as viewers do; a PostScript page, which Ghostscript paints; pixels; and a metafile, played
// as pixels. Stored pages are stamped as page 3 of 12. Writes FOLDER/gallery/trap-NAME.png; false when it could not be. A back end that
// made no picture is an empty frame.
bool paintTrap(const Trap& trap, const std::filesystem::path& folder, const std::filesystem::path& fontMap);
