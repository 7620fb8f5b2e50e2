// A run of text on its way to a device: here it gets its advances, its base line and its cell.
#pragma once

#include <windows.h>

#include <span>

#include "TextMeasure.h"

namespace wingdi {

struct OutputRun {
    POINT reference; // logical; the context's position takes its place under TA_UPDATECP
    UINT options;    // ETO_OPAQUE, ETO_CLIPPED, ETO_GLYPH_INDEX
    RECT rect;       // logical, for the first two options
    std::span<const WCHAR> text;
    const INT* advances; // logical, one for each character; null: those of the font
};

// Hands the run to the context's device. Moves the context's position under TA_UPDATECP.
bool outputRun(DeviceContext& context, TextMeasure& measure, const OutputRun& run);

} // namespace wingdi
