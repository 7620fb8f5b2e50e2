// The objects that exist without being made.
#pragma once

#include <memory>

#include "GdiObject.h"

namespace wingdi {

// An object by its number (WHITE_BRUSH, ...); null for a number that names none, or without memory.
std::shared_ptr<GdiObject> stockObject(int index);

// A bitmap of one monochrome pixel under the handle that all such bitmaps share: what a memory context holds as long
// as nothing else is selected into it. Each context has one of its own, so that contexts share no pixel.
std::shared_ptr<BitmapObject> makeDefaultBitmap();

// A brush that is in no table, for one fill.
std::shared_ptr<BrushObject> makeSolidBrush(COLORREF color);

} // namespace wingdi
