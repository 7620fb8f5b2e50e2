// Colours of the Windows interface and those of pixels.
#pragma once

#include <windows.h>

namespace wingdi {

// Colours of Windows have red in the low byte, pixels blue.
constexpr DWORD pixelOf(COLORREF color)
{
    return (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF);
}
constexpr COLORREF colorOf(DWORD pixel)
{
    return pixelOf(pixel);
}

} // namespace wingdi
