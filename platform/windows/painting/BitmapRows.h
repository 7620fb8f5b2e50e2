// The rows of bitmaps of all forms as pixels 0x00RRGGBB.
#pragma once

#include "Bitmap.h"

namespace wingdi {

// Blue, green, red and a byte without meaning.
inline bool hasCommonOrder(const BitmapView& view) noexcept
{
    return view.bitsPerPixel == 32 && view.redMask == 0xFF0000 && view.greenMask == 0xFF00 &&
           view.blueMask == 0xFF;
}

// Reads pixels from (x, y) on to the right; all of them lie within the view.
void readPixels(const BitmapView& view, int x, int y, int count, DWORD* pixels);

} // namespace wingdi
