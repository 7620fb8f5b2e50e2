// Bitmaps of the Windows interface: their forms in memory and the functions that make and copy them.
#pragma once

#include "windows/types.h"

// Bitmaps without a device: header, colour table, pixels ([MS-WMF] 2.2.2.20, 2.2.2.3, 2.2.2.9).
struct RGBQUAD {
    BYTE rgbBlue;
    BYTE rgbGreen;
    BYTE rgbRed;
    BYTE rgbReserved;
};
static_assert(sizeof(RGBQUAD) == 4);

// A height above 0 means that the bottom row comes first.
struct BITMAPINFOHEADER {
    DWORD biSize;
    LONG biWidth;
    LONG biHeight;
    WORD biPlanes;
    WORD biBitCount;
    DWORD biCompression;
    DWORD biSizeImage;
    LONG biXPelsPerMeter;
    LONG biYPelsPerMeter;
    DWORD biClrUsed;
    DWORD biClrImportant;
};
static_assert(sizeof(BITMAPINFOHEADER) == 40);

struct BITMAPINFO {
    BITMAPINFOHEADER bmiHeader;
    RGBQUAD bmiColors[1];
};
static_assert(sizeof(BITMAPINFO) == 44);

// What GetObjectA gives of a bitmap. `bmBits` is set for DIB sections only.
struct BITMAP {
    LONG bmType;
    LONG bmWidth;
    LONG bmHeight;
    LONG bmWidthBytes;
    WORD bmPlanes;
    WORD bmBitsPixel;
    void* bmBits;
};
static_assert(sizeof(BITMAP) == (sizeof(void*) == 8 ? 32 : 24));

struct BLENDFUNCTION {
    BYTE BlendOp; // AC_SRC_OVER
    BYTE BlendFlags;
    BYTE SourceConstantAlpha;
    BYTE AlphaFormat; // 0 or AC_SRC_ALPHA
};
static_assert(sizeof(BLENDFUNCTION) == 4);
constexpr BYTE AC_SRC_OVER = 0;
constexpr BYTE AC_SRC_ALPHA = 1;

extern "C" {

// Sizes are checked in 64 bits, and 256 MiB is the most that one bitmap may take: null beyond that.

// `bits` (may be null): rows from the top, padded to 16 bits. One plane of 1 or 32 bits a pixel.
SURFACE_API HBITMAP WINAPI CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel,
                                        const void* bits) __asm__("surface_CreateBitmap");
// In the colour form of the context's device; monochrome for a memory context that holds a monochrome bitmap.
SURFACE_API HBITMAP WINAPI CreateCompatibleBitmap(HDC context, int width,
                                                  int height) __asm__("surface_CreateCompatibleBitmap");
// A bitmap whose pixels the caller may read and write at *bits. A section must be null, and offset 0.
SURFACE_API HBITMAP WINAPI CreateDIBSection(HDC context, const BITMAPINFO* info, UINT usage, void** bits,
                                            HANDLE section, DWORD offset) __asm__("surface_CreateDIBSection");
// Gives the number of rows set, 0 on failure.
SURFACE_API int WINAPI SetDIBits(HDC context, HBITMAP bitmap, UINT firstRow, UINT rowCount, const void* bits,
                                 const BITMAPINFO* info, UINT usage) __asm__("surface_SetDIBits");

// Copies with a ternary raster operation. The source's y counts from its top. Where the source rectangle leaves
// the source's bitmap, the destination stays. Widths and heights of StretchBlt and StretchDIBits that differ in sign
// mirror. One below 0 is read so: the pixel at the position given belongs to the rectangle and is its first, the others
// follow to the left or upwards (downwards among source rows that count from the bottom): a picture w wide is mirrored
// in place by StretchBlt(d, x + w - 1, y, -w, h, ...), or by a source of (w - 1, 0, -w, h). Where the mapping turns,
// and for BitBlt, the rectangle is that between the edges at x + width and x.
SURFACE_API BOOL WINAPI BitBlt(HDC target, int x, int y, int width, int height, HDC source, int sourceX,
                               int sourceY, DWORD operation) __asm__("surface_BitBlt");
SURFACE_API BOOL WINAPI StretchBlt(HDC target, int x, int y, int width, int height, HDC source, int sourceX,
                                   int sourceY, int sourceWidth, int sourceHeight,
                                   DWORD operation) __asm__("surface_StretchBlt");
// The source's y counts from the bottom row of a bottom-up bitmap. Gives the rows copied, 0 on failure.
SURFACE_API int WINAPI StretchDIBits(HDC target, int x, int y, int width, int height, int sourceX,
                                     int sourceY, int sourceWidth, int sourceHeight, const void* bits,
                                     const BITMAPINFO* info, UINT usage,
                                     DWORD operation) __asm__("surface_StretchDIBits");
// Lays the source over the target. AC_SRC_ALPHA: by the fourth byte of its pixels, of which it has 32 bits and by which
// their colours are multiplied already; and by the constant share of all. Sizes below 0 and a source rectangle that
// leaves its bitmap are errors (ERROR_INVALID_PARAMETER). On a printed page and in SVG the picture is transparent.
SURFACE_API BOOL WINAPI GdiAlphaBlend(HDC target, int x, int y, int width, int height, HDC source,
                                      int sourceX, int sourceY, int sourceWidth, int sourceHeight,
                                      BLENDFUNCTION function) __asm__("surface_GdiAlphaBlend");
SURFACE_API COLORREF WINAPI GetPixel(HDC context, int x, int y) __asm__("surface_GetPixel");
SURFACE_API BOOL WINAPI SetPixelV(HDC context, int x, int y, COLORREF color) __asm__("surface_SetPixelV");

} // extern "C"
