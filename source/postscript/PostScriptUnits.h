// Sizes of pages are in millimetres; an interpreter starts with points.
#pragma once

namespace postscript {

inline constexpr double PointsPerMillimetre = 2.83465;

} // namespace postscript
