// The string and rectangle functions of the Windows interface that the module calls.
#pragma once

#include "windows/types.h"

extern "C" {

// Strings of 8-bit characters. Letters and case are those of code page 1252. A null pointer is answered,
// never followed: length 0, null for a copy, and in comparisons null comes before every string.
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
