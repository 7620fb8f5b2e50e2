#include "surfaceHdc.h"

CSurfaceHdc::CSurfaceHdc(HDC hdc)
{
    m_hdc = hdc;
}

CSurfaceHdc::CSurfaceHdc(HDC hdc, SIZE viewport, SIZE window)
{
    m_hdc = hdc;
    m_viewportExtent = viewport;
    m_windowExtent = window;
}

CSurfaceHdc::~CSurfaceHdc() = default;

void CSurfaceHdc::prepareSurface()
{
    m_viewportExtent = {m_outputWidth, m_outputHeight};
    m_windowExtent = {m_width, m_height};
    SetMapMode(m_hdc, MM_ANISOTROPIC);
    SetWindowExtEx(m_hdc, m_windowExtent.cx, m_windowExtent.cy, nullptr);
    SetViewportExtEx(m_hdc, m_viewportExtent.cx, m_viewportExtent.cy, nullptr);
}

int CSurfaceHdc::getSurfaceType()
{
    return 3;
}
