// What text leaves on the device beyond the cell of its advances.
#pragma once

#include "DrawnBounds.h"

namespace wingdi {

class DeviceContext;
struct TextOutput;

// True when line and letters run to the right and stand up.
bool isUpright(const TextOutput& text) noexcept;

// The pixels of the letters, of the lines under and through them, and of their background. Nothing for text without
// letters.
DrawnBounds boundsOfInk(const DeviceContext& context, const TextOutput& text);

} // namespace wingdi
