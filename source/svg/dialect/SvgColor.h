// Colours as a page has them: "rgb(r,g,b)" with decimal numbers.
#pragma once

#include "color.h"
#include "sys/krnos.h"

namespace svg {

using namespace drawing;

inline constexpr char RgbWord[] = "rgb";

// Reads the colour at `text`; false, and nothing changed, unless all three numbers are there. Each is cut to
// its low 8 bits.
inline bool readColor(const char* text, unsigned long& color)
{
    int red = 0;
    int green = 0;
    int blue = 0;
    if (intlSscanNumeric(text, "rgb(%d,%d,%d)", &red, &green, &blue) != 3) {
        return false;
    }
    color = colorOf(red, green, blue);
    return true;
}

} // namespace svg
