// How many pixels a page gets as a picture, and which of them are shown.
#pragma once

#include <optional>
#include <string>

#include <windows.h>

#include "PlayedPage.h"

namespace pagetool {

struct PictureOptions {
    int dpi = 96;
    int width = 0; // pixels of the whole page; 0: as the height or else `dpi` has it
    int height = 0;
    std::optional<RECT> crop; // pixels; nothing: all
    int quality = 90;         // of JPEG
};

struct PictureSize {
    SIZE pixels{}; // of the whole page
    RECT shown{};  // the part of it that becomes the picture, never empty
    double dotsPerInch = 0;
    double millimetresWide = 0; // of what is shown, at this resolution
    double millimetresHigh = 0;
};

// The part is cut to the page. Nothing when none of it is on the page.
std::optional<PictureSize> pictureSizeOf(const Sheet& sheet, const PictureOptions& options);

// "X,Y,WIDTHxHEIGHT". Nothing for other texts and for parts without a pixel.
std::optional<RECT> cropOf(const std::string& text);

} // namespace pagetool
