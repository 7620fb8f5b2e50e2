// Widths and heights of a RECT. A reversed rectangle has negative ones; nothing is normalised here.
#pragma once

#include <windows.h>

#include "wrappingInt.h"

namespace drawing {

constexpr int widthOf(const RECT& rect)
{
    return wrapSubtract(rect.right, rect.left);
}

constexpr int heightOf(const RECT& rect)
{
    return wrapSubtract(rect.bottom, rect.top);
}

} // namespace drawing
