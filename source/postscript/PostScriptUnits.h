// Sizes of pages are in millimetres; an interpreter starts with points.
#pragma once

inline constexpr double PointsPerMillimetre = 2.83465;
