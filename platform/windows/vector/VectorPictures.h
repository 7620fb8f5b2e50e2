// Pictures for pages of vectors, made of bitmaps.
#pragma once

#include <windows.h>

#include <memory>

#include "Bitmap.h"
#include "ColorRule.h"
#include "Device.h"
#include "VectorPage.h"

namespace wingdi {

// The part of a bitmap within a rectangle that lies on it. Null without memory is none: it throws std::bad_alloc.
std::shared_ptr<VectorPicture> pictureOf(const BitmapView& view, const RECT& part, const ColorRule& colors);
// The same with the shares of AlphaBlend.
std::shared_ptr<VectorPicture> transparentPictureOf(const BitmapView& view, const RECT& part,
                                                    const ColorRule& colors, const AlphaShare& share);
bool isBlackAndWhite(const VectorPicture& picture);
// The pixels of a picture where a mask of the same size is black.
std::shared_ptr<const VectorPicture> masked(const VectorPicture& picture, const VectorPicture& mask);
// Every colour turned into its opposite.
std::shared_ptr<const VectorPicture> inverted(const VectorPicture& picture);

} // namespace wingdi
