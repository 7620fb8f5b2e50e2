// What CSurfaceGDI does beside the operations that its header names, on the surface that it is made for.
//
// Made where it is called, and gone with the call.
#pragma once

#include "hidden.h"
#include "surfaceGDI.h"

namespace gdi {
struct DeviceScale;
}

class SURFACE_HIDDEN CSurfaceGDI::Detail {
public:
    explicit Detail(CSurfaceGDI& surface) : m_surface(surface) {}

    HBRUSH pictureBrush(int position) const;
    void drawJoined(Array<CSurfaceTextChunk, 2>& chunks, RECT device, const gdi::DeviceScale& scale,
                    unsigned int flags);
    void drawStyled(const char* text, RECT* rect, unsigned int flags);

private:
    RECT measured(const char* text, unsigned int length, unsigned int flags) const;
    int tightening(Array<CSurfaceTextChunk, 2>& chunks, float xScale, unsigned int flags) const;
    bool reduceFont(int height, int laidOut, int lines);

    CSurfaceGDI& m_surface;
};
