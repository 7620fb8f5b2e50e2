// Drawing objects of the Windows interface: pens, brushes, fonts, regions, and the handles that all of them share.
#pragma once

#include "windows/bitmaps.h"
#include "windows/types.h"

struct LOGBRUSH {
    UINT lbStyle;
    COLORREF lbColor;
    ULONG_PTR lbHatch; // the hatch, or the handle or address of a pattern
};
static_assert(sizeof(LOGBRUSH) == 8 + sizeof(void*));

// Font descriptions ([MS-EMF] 2.2.13). Height: above 0 that of the cell, below 0 that of the em, 0 the default.
// Angles in tenths of a degree, counter-clockwise. Faces of up to 31 characters.
struct LOGFONTA {
    LONG lfHeight;
    LONG lfWidth;
    LONG lfEscapement;
    LONG lfOrientation;
    LONG lfWeight;
    BYTE lfItalic;
    BYTE lfUnderline;
    BYTE lfStrikeOut;
    BYTE lfCharSet;
    BYTE lfOutPrecision;
    BYTE lfClipPrecision;
    BYTE lfQuality;
    BYTE lfPitchAndFamily;
    CHAR lfFaceName[32];
};
static_assert(sizeof(LOGFONTA) == 60);

struct LOGFONTW {
    LONG lfHeight;
    LONG lfWidth;
    LONG lfEscapement;
    LONG lfOrientation;
    LONG lfWeight;
    BYTE lfItalic;
    BYTE lfUnderline;
    BYTE lfStrikeOut;
    BYTE lfCharSet;
    BYTE lfOutPrecision;
    BYTE lfClipPrecision;
    BYTE lfQuality;
    BYTE lfPitchAndFamily;
    WCHAR lfFaceName[32];
};
static_assert(sizeof(LOGFONTW) == 92);

struct LOGPEN {
    UINT lopnStyle;
    POINT lopnWidth;
    COLORREF lopnColor;
};
static_assert(sizeof(LOGPEN) == 16);

// What GetObjectA gives of a pen of ExtCreatePen, with its first dash; more dashes follow.
struct EXTLOGPEN {
    DWORD elpPenStyle;
    DWORD elpWidth;
    UINT elpBrushStyle;
    COLORREF elpColor;
    ULONG_PTR elpHatch;
    DWORD elpNumEntries;
    DWORD elpStyleEntry[1];
};
static_assert(offsetof(EXTLOGPEN, elpStyleEntry) == 20 + sizeof(void*));

extern "C" {

// A null, stale, foreign or wrong-typed handle is refused everywhere: it is looked up, never followed.

// One of the objects that always exist; null for a number that names none.
SURFACE_API HGDIOBJ WINAPI GetStockObject(int index) __asm__("surface_GetStockObject");
// OBJ_PEN, OBJ_BRUSH, OBJ_FONT or OBJ_BITMAP; null for others.
SURFACE_API HGDIOBJ WINAPI GetCurrentObject(HDC context, UINT type) __asm__("surface_GetCurrentObject");
// Gives what came out, dead or alive; null and no change for an object that can't go in. A bitmap goes into one
// memory context at a time. Regions don't go through here.
SURFACE_API HGDIOBJ WINAPI SelectObject(HDC context, HGDIOBJ object) __asm__("surface_SelectObject");
// TRUE for a stock object, which stays. A pen, brush or font that is selected dies at once for everyone but the
// contexts that hold it: its storage goes when the last of them lets go.
SURFACE_API BOOL WINAPI DeleteObject(HGDIOBJ object) __asm__("surface_DeleteObject");
// Describes an object: LOGPEN or EXTLOGPEN, LOGBRUSH, LOGFONTA, BITMAP. Gives the bytes written, or with a null
// buffer those needed; 0, and the buffer untouched, for a dead handle or a buffer that is too small for a BITMAP.
SURFACE_API int WINAPI GetObjectA(HGDIOBJ object, int size, void* buffer) __asm__("surface_GetObjectA");
SURFACE_API DWORD WINAPI GetObjectType(HGDIOBJ object) __asm__("surface_GetObjectType");

SURFACE_API HPEN WINAPI CreatePen(int style, int width, COLORREF color) __asm__("surface_CreatePen");
// Width in logical units, 0 is one device pixel; `dashes` in logical units, for PS_USERSTYLE only.
SURFACE_API HPEN WINAPI ExtCreatePen(DWORD style, DWORD width, const LOGBRUSH* brush, DWORD dashCount,
                                     const DWORD* dashes) __asm__("surface_ExtCreatePen");
SURFACE_API HBRUSH WINAPI CreateBrushIndirect(const LOGBRUSH* brush) __asm__("surface_CreateBrushIndirect");
SURFACE_API HBRUSH WINAPI CreateSolidBrush(COLORREF color) __asm__("surface_CreateSolidBrush");
SURFACE_API HBRUSH WINAPI CreateHatchBrush(int hatch, COLORREF color) __asm__("surface_CreateHatchBrush");
// Copies the bitmap's pixels.
SURFACE_API HBRUSH WINAPI CreatePatternBrush(HBITMAP bitmap) __asm__("surface_CreatePatternBrush");
// `packed` is a BITMAPINFO with its colour table and pixels, whose length follows from the header; copied.
SURFACE_API HBRUSH WINAPI CreateDIBPatternBrushPt(const void* packed,
                                                  UINT usage) __asm__("surface_CreateDIBPatternBrushPt");
// Does nothing: brushes follow the brush origin without it. TRUE for a live object.
SURFACE_API BOOL WINAPI UnrealizeObject(HGDIOBJ object) __asm__("surface_UnrealizeObject");
SURFACE_API HFONT WINAPI CreateFontIndirectA(const LOGFONTA* font) __asm__("surface_CreateFontIndirectA");
SURFACE_API HFONT WINAPI CreateFontIndirectW(const LOGFONTW* font) __asm__("surface_CreateFontIndirectW");

// Regions hold device units once they are selected as a clip. Right and bottom don't belong to them.
SURFACE_API HRGN WINAPI CreateRectRgn(int left, int top, int right,
                                      int bottom) __asm__("surface_CreateRectRgn");
SURFACE_API HRGN WINAPI CreateRectRgnIndirect(const RECT* rect) __asm__("surface_CreateRectRgnIndirect");
SURFACE_API HRGN WINAPI CreatePolygonRgn(const POINT* points, int count,
                                         int fillMode) __asm__("surface_CreatePolygonRgn");
SURFACE_API int WINAPI CombineRgn(HRGN target, HRGN first, HRGN second,
                                  int mode) __asm__("surface_CombineRgn");
SURFACE_API int WINAPI GetRgnBox(HRGN region, RECT* box) __asm__("surface_GetRgnBox");

// A system colour; 0 for an index without one.
SURFACE_API DWORD WINAPI GetSysColor(int index) __asm__("surface_GetSysColor");
// The number of live drawing objects, contexts and metafiles of this process, stock ones apart.
SURFACE_API DWORD WINAPI GetGuiResources(HANDLE process, DWORD flags) __asm__("surface_GetGuiResources");
SURFACE_API HANDLE WINAPI GetCurrentProcess() __asm__("surface_GetCurrentProcess");
SURFACE_API BOOL WINAPI GdiFlush() __asm__("surface_GdiFlush");
// One number for each thread.
SURFACE_API void WINAPI SetLastError(DWORD error) __asm__("surface_SetLastError");
SURFACE_API DWORD WINAPI GetLastError() __asm__("surface_GetLastError");

} // extern "C"
