// How far the ink of a line lies from it.
#pragma once

#include <windows.h>

namespace wingdi {

class DeviceContext;

// How the lines of a shape meet: not at all, at right angles along the device's axes, or anyhow. Mitred joins reach
// furthest where an angle is sharp, as a curve's may be.
enum class Corners : unsigned char { None, Square, Any };

// Device units on all sides, for the context's pen, mapping and miter limit. 0 for a pen of a pixel, and for none.
LONG penReach(const DeviceContext& context, Corners corners) noexcept;

} // namespace wingdi
