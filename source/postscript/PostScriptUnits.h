// The unit that the interpreter starts with, in ours.
#pragma once

inline constexpr double PointsPerMillimetre = 2.83465;
