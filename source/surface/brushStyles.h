// The styles of a brush, as callers number them. Hatches follow each other from the first on.
#pragma once

namespace drawing {

inline constexpr int SolidBrush = 0;
inline constexpr int HollowBrush = 1;
inline constexpr int FirstHatchBrush = 2;
inline constexpr int PictureBrush = 99;

} // namespace drawing
