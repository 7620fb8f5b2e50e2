// The part of the Windows interface that the module calls, for systems without one: base types, handles, and
// the string and rectangle functions. Included as <windows.h>; on Windows the system's own takes its place.
//
// Names, layouts and results are those that the Windows documentation gives. Functions carry a private link
// name, so that a host with functions of the same names keeps its own.
#pragma once

#include <cstddef>
#include <cstdint>

#include "sys/surfaceExport.h"

// Macros, because headers of other libraries that bring these names along test for them that way.
#ifndef FALSE
#define FALSE 0
#endif
#ifndef TRUE
#define TRUE 1
#endif

// Calling conventions have no counterpart here; as words of declarations they can only be macros.
#define WINAPI
#define APIENTRY
#define CALLBACK

// Base types: fixed widths, so that layouts of records and files are those of Windows.
using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using UINT = std::uint32_t;
using ULONG = std::uint32_t;
using LONG = std::int32_t;
using INT = std::int32_t;
using BOOL = std::int32_t;
using FLOAT = float;
using CHAR = char;
using WCHAR = char16_t;
using LPSTR = char*;
using LPCSTR = const char*;
using ULONG_PTR = std::uintptr_t;
using LONG_PTR = std::intptr_t;
using LPARAM = LONG_PTR;
using WPARAM = ULONG_PTR;

// A colour: red in the low byte, green in the next, blue in the third.
using COLORREF = DWORD;

static_assert(sizeof(LONG) == 4 && sizeof(BOOL) == 4 && sizeof(FLOAT) == 4 && sizeof(WCHAR) == 2);
static_assert(sizeof(ULONG_PTR) == sizeof(void*) && sizeof(LPARAM) == sizeof(void*));

// Handles: pointers to nothing that exists, each of a type of its own. HGDIOBJ takes any of the drawing ones.
using HANDLE = void*;
using HGDIOBJ = void*;
// NOLINTBEGIN(bugprone-reserved-identifier): the tags are those that hosts declare ahead.
using HDC = struct HDC__*;
using HPEN = struct HPEN__*;
using HBRUSH = struct HBRUSH__*;
using HFONT = struct HFONT__*;
using HBITMAP = struct HBITMAP__*;
using HRGN = struct HRGN__*;
using HENHMETAFILE = struct HENHMETAFILE__*;
using HWND = struct HWND__*;
using HINSTANCE = struct HINSTANCE__*;
// NOLINTEND(bugprone-reserved-identifier)
using HMODULE = HINSTANCE;

struct POINT {
    LONG x;
    LONG y;
};
static_assert(sizeof(POINT) == 8);

struct SIZE {
    LONG cx;
    LONG cy;
};
static_assert(sizeof(SIZE) == 8);

// Left and top belong to the rectangle, right and bottom do not.
struct RECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};
static_assert(sizeof(RECT) == 16);

// The forms of the three that stand in files ([MS-WMF] 2.2.2.15, [MS-EMF] 2.2.22, [MS-WMF] 2.2.2.19).
struct POINTL {
    LONG x;
    LONG y;
};
using SIZEL = SIZE;
struct RECTL {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};
static_assert(sizeof(POINTL) == 8 && sizeof(SIZEL) == 8 && sizeof(RECTL) == 16);

// x' = x * eM11 + y * eM21 + eDx, y' = x * eM12 + y * eM22 + eDy ([MS-EMF] 2.2.28).
struct XFORM {
    FLOAT eM11;
    FLOAT eM12;
    FLOAT eM21;
    FLOAT eM22;
    FLOAT eDx;
    FLOAT eDy;
};
static_assert(sizeof(XFORM) == 24);

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

extern "C" {

// Strings of 8-bit characters. Letters and case are those of code page 1252. A null pointer is answered,
// never followed: length 0, null for a copy, and in comparisons null stands before every string.
SURFACE_API int WINAPI lstrlenA(LPCSTR text) __asm__("surface_lstrlenA");
SURFACE_API LPSTR WINAPI lstrcpyA(LPSTR target, LPCSTR text) __asm__("surface_lstrcpyA");
SURFACE_API LPSTR WINAPI lstrcatA(LPSTR target, LPCSTR text) __asm__("surface_lstrcatA");
// Compares bytes: 0 for equal strings, else -1 or 1. The order is not that of a language.
SURFACE_API int WINAPI lstrcmpA(LPCSTR first, LPCSTR second) __asm__("surface_lstrcmpA");
// Lower-cases a string in place. A "pointer" below 65536 is a single character, and the result is its lower
// case in the same form.
SURFACE_API LPSTR WINAPI CharLowerA(LPSTR text) __asm__("surface_CharLowerA");
SURFACE_API BOOL WINAPI IsCharAlphaA(CHAR character) __asm__("surface_IsCharAlphaA");
SURFACE_API BOOL WINAPI IsCharAlphaNumericA(CHAR character) __asm__("surface_IsCharAlphaNumericA");

// The overlap of two rectangles, which `target` may be one of. Without an overlap `target` is all zero and the
// result FALSE; with a null pointer the result is FALSE.
SURFACE_API BOOL WINAPI IntersectRect(RECT* target, const RECT* first,
                                      const RECT* second) __asm__("surface_IntersectRect");
SURFACE_API BOOL WINAPI SetRect(RECT* target, int left, int top, int right,
                                int bottom) __asm__("surface_SetRect");

} // extern "C"
