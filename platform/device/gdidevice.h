// How a host, a tool or a test gets a page of pixels to draw on. No part of the Windows interface.
//
// Where the project's own layer paints, a page has any resolution, and counts the calls that reach it. On Windows the
// system's drawing interface paints it, into a section of memory: such a page has the screen's resolution and abilities.
#pragma once

#include <windows.h>

#include "sys/surfaceExport.h"

struct GdiDeviceOptions {
    int width = 794; // pixels
    int height = 1123;
    int dpi = 96; // along both axes; on Windows that of the screen and no other
    unsigned int rasterCaps = RC_BITBLT | RC_STRETCHBLT; // on Windows those of the screen
    int failBlitsAfter = -1; // a StretchBlt fails once so many have succeeded; -1: never; never on Windows
};

// A context of a white page; null options are the default ones. Null when the page would take more than 256 MiB, for a
// size or resolution below 1, and on Windows, with the error ERROR_NOT_SUPPORTED, for another resolution than the screen's.
// DeleteDC ends it. On Windows the page's bitmap stays selected for as long as the context lives, and its memory goes when
// the next page is made or the module is unloaded.
SURFACE_API HDC gdiCreateDevice(const GdiDeviceOptions* options);

// The page's pixels, top row first, each blue, green, red and one byte unused; null for a context that
// gdiCreateDevice did not make. They live as long as the context. All that was drawn before is in them.
SURFACE_API const unsigned char* gdiDeviceBits(HDC device, int* strideBytes);

// How often the function of this name reached the device; 0 for a name that never did. Windows does not count: -1.
SURFACE_API int gdiDeviceCalls(HDC device, const char* function);

// False when the context is no such device or the file can't be written.
SURFACE_API bool gdiSavePng(HDC device, const char* path);

// How many records of this type PlayEnhMetaFile has passed over in this process so far, because it has nothing to play
// them with or knows their bitmap's form not; 0 asks for the types that no documentation names. Windows does not count: 0.
SURFACE_API int gdiUnplayedRecords(DWORD type);
