// Outlines that a clip is confined to beside its region, for devices that can clip by them.
#pragma once

#include "DeviceContext.h"
#include "ShapeOutlines.h"

namespace wingdi {

// Makes them part of the region, for operations that only regions have.
void flattenClip(DeviceContext& context);

} // namespace wingdi
