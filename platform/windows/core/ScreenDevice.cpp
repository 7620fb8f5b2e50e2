#include "ScreenDevice.h"

namespace wingdi {

int ScreenDevice::capability(int index) const
{
    switch (index) {
    case TECHNOLOGY:
        return 1; // DT_RASDISPLAY
    case HORZSIZE:
        return WidthMillimeters;
    case VERTSIZE:
        return HeightMillimeters;
    case HORZRES:
        return Width;
    case VERTRES:
        return Height;
    case LOGPIXELSX:
    case LOGPIXELSY:
        return DotsPerInch;
    case BITSPIXEL:
        return 32;
    case PLANES:
        return 1;
    case RASTERCAPS:
        return RC_BITBLT | RC_STRETCHBLT;
    default:
        return 0;
    }
}

bool ScreenDevice::lineTo(DeviceContext& /*context*/, POINT /*from*/, POINT /*to*/)
{
    return true;
}

bool ScreenDevice::poly(DeviceContext& /*context*/, PolyShape /*shape*/, std::span<const POINT> /*points*/,
                        std::span<const DWORD> /*counts*/)
{
    return true;
}

bool ScreenDevice::box(DeviceContext& /*context*/, BoxShape /*shape*/, const RECT& /*rect*/, SIZE /*corner*/)
{
    return true;
}

bool ScreenDevice::arc(DeviceContext& /*context*/, ArcShape /*shape*/, const RECT& /*rect*/, POINT /*start*/,
                       POINT /*end*/)
{
    return true;
}

bool ScreenDevice::angleArc(DeviceContext& /*context*/, POINT /*center*/, DWORD /*radius*/,
                            FLOAT /*startAngle*/, FLOAT /*sweepAngle*/)
{
    return true;
}

bool ScreenDevice::path(DeviceContext& /*context*/, PathStep /*step*/)
{
    return true;
}

bool ScreenDevice::selectClipPath(DeviceContext& /*context*/, int /*mode*/)
{
    return true;
}

bool ScreenDevice::patternBlt(DeviceContext& /*context*/, std::span<const RECT> /*rects*/,
                              const BrushObject& /*brush*/, DWORD /*operation*/)
{
    return true;
}

bool ScreenDevice::fillRegion(DeviceContext& /*context*/, const Region& /*region*/,
                              const std::shared_ptr<BrushObject>& /*brush*/)
{
    return true;
}

bool ScreenDevice::floodFill(DeviceContext& /*context*/, POINT /*start*/, COLORREF /*color*/, UINT /*type*/)
{
    return true;
}

bool ScreenDevice::setPixel(DeviceContext& /*context*/, POINT /*point*/, COLORREF /*color*/)
{
    return true;
}

COLORREF ScreenDevice::pixel(DeviceContext& /*context*/, POINT /*point*/)
{
    return CLR_INVALID;
}

bool ScreenDevice::copy(DeviceContext& /*context*/, const RECT& /*target*/, DeviceContext& /*source*/,
                        const SourceArea& /*area*/, DWORD /*operation*/, bool /*stretch*/)
{
    return true;
}

bool ScreenDevice::copyDib(DeviceContext& /*context*/, const RECT& /*target*/, const BITMAPINFO* /*info*/,
                           const void* /*bits*/, UINT /*usage*/, const SourceArea& /*area*/,
                           DWORD /*operation*/)
{
    return true;
}

bool ScreenDevice::text(DeviceContext& /*context*/, const TextOutput& /*output*/)
{
    return true;
}

} // namespace wingdi
