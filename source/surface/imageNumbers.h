// What callers say of images by numbers: the modes of drawImage, the types of includeImage, the ids.
#pragma once

namespace drawing {

inline constexpr int NaturalMode = 0; // in the image's own size
inline constexpr int ScaledMode = 1;  // over the rectangle
inline constexpr int TiledMode = 2;

inline constexpr int JpegPicture = 7;
inline constexpr int TilePicture = 100;

inline constexpr int GreatestImageId = 65535; // a table by ids must not grow because a page says so

} // namespace drawing
