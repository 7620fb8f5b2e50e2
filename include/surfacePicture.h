// CSurfacePicture: an image as a GDI surface keeps it. The encoded bytes are held; every draw decodes them anew,
// so that no more than its encoded form is kept in memory.
//
// Made by CSurfaceGDI::includeImage and owned by the surface. One thread at a time.
#pragma once

#include <cstddef>

#include <windows.h>

#include "sys/moduleObject.h"
#include "sys/surfaceExport.h"

class SURFACE_API CSurfacePicture : public ModuleObject {
public:
    CSurfacePicture();
    CSurfacePicture(const CSurfacePicture&) = delete;
    CSurfacePicture& operator=(const CSurfacePicture&) = delete;
    virtual ~CSurfacePicture();

    // The answer of findTransparentColor when there is none.
    static constexpr COLORREF noColor = 0x80000000;

    // Draws on a device. Mode 0: unscaled, shifted by (x, y); 1: scaled to the rectangle; 2: tiled over the
    // rectangle with its origin at offset (x, y), which makes the stored size of a picture smaller than 8 by 8 in
    // either direction 8 by 8. A tile with a width or height below 1 draws nothing. Other modes
    // draw nothing, and so does a null rectangle.
    // Gives 0, or a number of sys/errorNumbers.h: ImageLibraryMissing, or NotConverted when the bytes are no image.
    int draw(HDC hdc, RECT* rect, int x, int y, int mode);

    // The colour, red in the low byte, of the first wholly transparent pixel in the order of storage; `noColor` when
    // the bitmap has none, or not 32 bits a pixel.
    static COLORREF findTransparentColor(const BITMAPINFO* info, const unsigned char* bits);

    // Draws a bitmap with one colour left out, by a mask and three raster steps. Source coordinates count from the
    // top. False, with a line in the log, when the device can't do it; part of the steps may have been drawn then.
    static bool drawTransparent(HDC hdc, HBITMAP bitmap, int x, int y, int width, int height, int xSrc,
                                int ySrc, int widthSrc, int heightSrc, COLORREF transparent);

    unsigned int m_length; // bytes in m_data
    int m_width;           // pixels, as the caller stated them
    int m_height;
    HDC m_hdc;             // the device at the time of the inclusion; not read again
    unsigned char* m_data; // the encoded bytes, owned
    int m_type;            // 7: JPEG; every other number: PNG
};
