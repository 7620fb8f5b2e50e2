// The one lock of the module: it serialises the drawing of text on devices across all threads and surfaces.
#pragma once

#include "sys/krnos.h"

namespace drawing {

// Made when the module is loaded and destroyed when it is unloaded.
extern ThreadMutex__ drawTextLock;

} // namespace drawing
