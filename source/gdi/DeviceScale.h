// From the logical units of a map mode to the units of the device, as the text operations do it by hand.
#pragma once

#include <windows.h>

#include "wrappingInt.h"

namespace gdi {

using namespace drawing;

// The extents of a context's map mode and the scale that they make; 1 for a null context.
struct DeviceScale {
    explicit DeviceScale(HDC hdc) : viewport{1, 1}, window{1, 1}
    {
        GetViewportExtEx(hdc, &viewport);
        GetWindowExtEx(hdc, &window);
        x = static_cast<float>(viewport.cx) / static_cast<float>(window.cx);
        y = static_cast<float>(viewport.cy) / static_cast<float>(window.cy);
    }

    // Truncated.
    int length(int logical) const { return saturateToInt(static_cast<float>(logical) * x); }
    int height(int logical) const { return saturateToInt(static_cast<float>(logical) * y); }

    RECT rect(const RECT& logical) const
    {
        return {length(logical.left), height(logical.top), length(logical.right), height(logical.bottom)};
    }

    // Moves of the device's size; turns and stretches stay.
    XFORM transform(const XFORM& logical) const
    {
        XFORM scaled = logical;
        scaled.eDx *= x;
        scaled.eDy *= y;
        return scaled;
    }

    SIZE viewport;
    SIZE window;
    float x;
    float y;
};

} // namespace gdi
