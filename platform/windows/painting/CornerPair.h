// Where a copy reads: two corners of a source.
#pragma once

#include <windows.h>

#include <memory>
#include <optional>

#include "Bitmap.h"
#include "Device.h"
#include "Mapping.h"

namespace wingdi {

// Two corners, which may be swapped: that mirrors.
struct CornerPair {
    POINT first;
    POINT second;
};

// Moves the corners of a rectangle that was given with a size below 0: the pixel at its position is the first, and the
// others are to the left of it or above. An axis that the mapping turned round includes that pixel already.
void takeFirstPixel(CornerPair& corners, bool leftward, bool upward) noexcept;

// Of an area of a context, in its pixels.
CornerPair cornersOf(const SourceArea& area, const Mapping& toPixels);
// Of an area of a device-independent bitmap.
CornerPair cornersOfDib(const SourceArea& area, bool bottomUp);

// The rows of a device-independent bitmap; `expanded` holds those that were compressed. Nothing for unsound ones.
std::optional<BitmapView> viewOf(const DibHead& head, const BITMAPINFO* info, const void* bits, UINT usage,
                                 std::shared_ptr<Bitmap>& expanded);

} // namespace wingdi
