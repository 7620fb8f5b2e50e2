// How a host, a tool or a test gets a device of this layer to draw on. No part of the Windows interface.
#pragma once

#include <windows.h>

struct GdiDeviceOptions {
    int width = 794; // pixels
    int height = 1123;
    int dpi = 96; // along both axes
    unsigned int rasterCaps = RC_BITBLT | RC_STRETCHBLT;
    int failBlitsAfter = -1; // a StretchBlt fails once so many have succeeded; -1: never
};

// A context of a white page; null options are the default ones. Null when the page would take more than 256 MiB,
// or for a size or resolution below 1. DeleteDC ends it.
SURFACE_API HDC gdiCreateDevice(const GdiDeviceOptions* options);

// The page's pixels, top row first, each blue, green, red and one byte unused; null for a context that
// gdiCreateDevice did not make. They live as long as the context.
SURFACE_API const unsigned char* gdiDeviceBits(HDC device, int* strideBytes);

// How often the function of this name reached the device; 0 for a name that never did.
SURFACE_API int gdiDeviceCalls(HDC device, const char* function);

// False when the context is no such device or the file can't be written.
SURFACE_API bool gdiSavePng(HDC device, const char* path);

// How many records of this type PlayEnhMetaFile has passed over in this process so far, because it has nothing to play
// them with or knows their bitmap's form not; 0 asks for the types that no documentation names.
SURFACE_API int gdiUnplayedRecords(DWORD type);
