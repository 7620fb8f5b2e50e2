// Raster operations as steps that descriptions of pages have: each of the sixteen of an operand and the page is a blend,
// with the page or the operand inverted before or after. Exact where colours are black or white.
#pragma once

#include <windows.h>

#include "RasterOperation.h"
#include "VectorPage.h"

namespace wingdi {

struct BlendRule {
    enum class Operand : unsigned char { None, Given, Inverted, Black, White };

    bool invertsBefore; // the page
    Operand operand;
    Blend blend;
    bool invertsAfter;
};

// Of a ternary operation of a pattern and the page; a source counts as black.
BlendRule blendWithPattern(BYTE ternary);
// Of a source and the page; a pattern counts as black.
BlendRule blendWithSource(BYTE ternary);

// The ink that covers what was there with itself: no more than an operand.
constexpr bool isPlain(const BlendRule& rule)
{
    return !rule.invertsBefore && !rule.invertsAfter && rule.blend == Blend::Normal;
}

} // namespace wingdi
