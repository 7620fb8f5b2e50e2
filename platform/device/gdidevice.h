// How a host, a tool or a test gets a page of pixels to draw on. No part of the Windows interface.
//
// Where the project's own layer paints, a page has any resolution, and counts the calls that reach it. On Windows the
// system's drawing interface paints it, into a section of memory: such a page has the screen's resolution and abilities.
#pragma once

#include <cstddef>

#include <windows.h>

#include "sys/surfaceExport.h"

// What a page of pixels is to be.
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

enum class GdiDocumentKind : unsigned char {
    Pdf,
    Picture, // a PNG file of one page, with smoothed edges
    Svg,     // of one page, for browsers and other viewers; players of stored pages do not take it
    Jpeg,    // as Picture, in less room where there are photographs; sides of up to 65,500 pixels
};

// What a document is to be, and where it goes.
struct GdiDocumentOptions {
    GdiDocumentKind kind = GdiDocumentKind::Pdf;
    // Where the bytes go: to a file, which takes its place when the document ends and is whole, or else to the host, piece
    // by piece, on the thread that draws. It gives false when bytes are lost.
    const char* path = nullptr;
    bool (*write)(const unsigned char* bytes, std::size_t count, void* context) = nullptr;
    void* context = nullptr;
    double pageWidth = 210; // millimetres
    double pageHeight = 297;
    int dpi = 600;         // that programs see, along both axes, up to 9600
    double pictureDpi = 0; // pixels of a picture; 0: as many as programs see
    int quality = 90;      // of JPEG, from 1 to 100
    // UTF-8; null for none. Only PDF has them, and an outline. The date is that of SOURCE_DATE_EPOCH in the environment, or none, so that
    // the same calls make the same bytes.
    const char* title = nullptr;
    const char* author = nullptr;
    const char* subject = nullptr;
    const char* keywords = nullptr;
};

// A context for a document: StartDocA, then StartPage and EndPage for each page, then EndDoc. DeleteDC ends it. Thin pens,
// hatches and picture brushes count in pixels of 96 dpi. Nothing can be read back, and a flood fails. Raster operations that
// no description of a page has become the nearest blend. Null for sizes and resolutions out of range (a page has up to 5080
// millimetres, a picture up to 64 million pixels), and on Windows, with the error ERROR_NOT_SUPPORTED.
SURFACE_API HDC gdiCreateDocument(const GdiDocumentOptions* options);
// Of the pages that begin from now on: millimetres, and the resolution that programs see, 0 for the one they saw before. False
// for values out of range and for other contexts.
SURFACE_API bool gdiSetPageSize(HDC document, double width, double height, int dpi);
// An entry of the outline that leads to the page that is open; UTF-8. False where there is none, and for pictures.
SURFACE_API bool gdiAddOutline(HDC document, const char* title);
// How many operations of the document so far were painted as the nearest thing.
SURFACE_API int gdiApproximations(HDC document);

// How often the function of this name reached the device; 0 for a name that never did. Windows does not count: -1.
SURFACE_API int gdiDeviceCalls(HDC device, const char* function);

// False when the context is no such device or the file can't be written.
SURFACE_API bool gdiSavePng(HDC device, const char* path);

// How many records of this type PlayEnhMetaFile has passed over in this process so far, because it has nothing to play
// them with or knows their bitmap's form not; 0 asks for the types that no documentation names. Windows does not count: 0.
SURFACE_API int gdiUnplayedRecords(DWORD type);
