// Base types, handles, points and rectangles of the Windows interface, in the widths that they have there.
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
using HRESULT = std::int32_t;
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

// The forms of the three that are in files ([MS-WMF] 2.2.2.15, [MS-EMF] 2.2.22, [MS-WMF] 2.2.2.19).
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
