// Fills what is connected, over sides and not over corners, with a point.
#pragma once

#include <windows.h>

#include <optional>

#include "Ink.h"
#include "PixelRows.h"

namespace wingdi {

// `color` (0x00RRGGBB) is the one that bounds the area, or the one that the area has. False, and nothing filled, when
// the start can't be painted on or does not belong to such an area. Without an ink only the answer is given.
bool flood(Canvas& canvas, POINT start, DWORD color, bool untilBorder, const std::optional<Ink>& ink);

} // namespace wingdi
