// CSurfaceHdc: draws on a device context of the caller, who keeps it alive and owns it afterwards. A stored page that
// is played on it is stretched onto the rectangle it is played in.
#pragma once

#include "surfaceGDI.h"

class SURFACE_API CSurfaceHdc : public CSurfaceGDI {
public:
    explicit CSurfaceHdc(HDC hdc);
    // The extents that setMapMode gives to MM_ANISOTROPIC: until the caller sets that mode they do nothing.
    // prepareSurface, with which a player begins, replaces them and sets the mode.
    CSurfaceHdc(HDC hdc, SIZE viewport, SIZE window);
    ~CSurfaceHdc() override;

    // Maps the page's logical units onto the output rectangle that the player has stored.
    void prepareSurface() override;
    int getSurfaceType() override;
};
