// Where things land on the device: map mode, world transform, clip, brush origin.
#include "surfaceGDI.h"
#include "wrappingInt.h"

using namespace drawing;

void CSurfaceGDI::setMapMode(int mode)
{
    if (GetMapMode(m_hdc) == mode) {
        return;
    }
    SetMapMode(m_hdc, mode);
    if (mode == MM_ANISOTROPIC) {
        SetViewportExtEx(m_hdc, m_viewportExtent.cx, m_viewportExtent.cy, nullptr);
        SetWindowExtEx(m_hdc, m_windowExtent.cx, m_windowExtent.cy, nullptr);
    }
}

void CSurfaceGDI::setTransform(float m11, float m12, float m21, float m22, float dx, float dy)
{
    SetGraphicsMode(m_hdc, GM_ADVANCED);
    CSurface::setTransform(m11, m12, m21, m22, dx, dy);
    GetWorldTransform(m_hdc, &m_savedTransform);
    const XFORM transform{m11, m12, m21, m22, dx, dy};
    ModifyWorldTransform(m_hdc, &transform, MWT_LEFTMULTIPLY);
}

void CSurfaceGDI::clearTransform()
{
    m_hasTransform = false;
    SetGraphicsMode(m_hdc, GM_ADVANCED);
    SetWorldTransform(m_hdc, &m_savedTransform);
}

void CSurfaceGDI::setClippingRegion(RECT* rect)
{
    if (rect == nullptr) {
        SelectClipRgn(m_hdc, nullptr);
        return;
    }
    POINT corners[] = {{rect->left, rect->top}, {rect->right, rect->bottom}};
    LPtoDP(m_hdc, corners, 2);
    const RECT device{corners[0].x, corners[0].y, corners[1].x, corners[1].y};
    const HRGN region = CreateRectRgnIndirect(&device);
    SelectClipRgn(m_hdc, region);
    DeleteObject(region);
}

void CSurfaceGDI::resetBrushOrg(POINT* point, int size)
{
    constexpr int HatchSize = 8;
    const int step = size > 0 ? size : HatchSize;
    POINT origin{};
    if (point != nullptr) {
        origin = *point;
    } else {
        GetViewportOrgEx(m_hdc, &origin);
    }
    SetBrushOrgEx(m_hdc, origin.x % step, origin.y % step, nullptr);
}
