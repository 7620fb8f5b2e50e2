// CSurfaceEMF: records a page as an enhanced metafile ([MS-EMF]) in memory.
//
// Life: construct, draw, closeSurface, getDataLength, getData, destroy. The bytes are a page that
// CMetaFilePlayer stores, plays, stamps and searches. A surface that is destroyed before closeSurface leaves its
// recording open. A stored SVG page plays on it once the caller has set the anisotropic map mode and its extents on
// getHDC().
#pragma once

#include "surfaceGDI.h"

class SURFACE_API CSurfaceEMF : public CSurfaceGDI {
public:
    // Without a device: draws nothing, and closing it gives -1.
    CSurfaceEMF();
    // `bounds` is the frame of the page in hundredths of a millimetre; null: the frame of what is drawn.
    explicit CSurfaceEMF(RECT* bounds);
    ~CSurfaceEMF() override;

    // Copies the closed page; `size` is the room and stays as it is. Less room than getDataLength copies nothing.
    void getData(unsigned char* buffer, unsigned int& size) override;
    // 0 before closeSurface.
    int getDataLength() override;
    // 0 once there is a page, also when called again; -1 when there is none.
    int closeSurface() override;
    int getSurfaceType() override;
    // The next text is the page count. `point` holds the left (x) and the right end (y) of the band for the text,
    // in device units.
    void printerNofMMarker(POINT point) override;

private:
    HFONT m_initialFont;     // of the fresh context
    HENHMETAFILE m_metafile; // null until closeSurface
};
