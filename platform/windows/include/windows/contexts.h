// Device contexts of the Windows interface: how they come and go, and their state. Every setter gives the former
// value, or FALSE (0) with nothing changed.
#pragma once

#include "windows/types.h"

extern "C" {

// The screen, which nobody sees: 1920 by 1440 pixels of 96 dots per inch, for measuring and colours. A window
// must be null. Each call gives a context with default state; ReleaseDC ends it.
SURFACE_API HDC WINAPI GetDC(HWND window) __asm__("surface_GetDC");
SURFACE_API int WINAPI ReleaseDC(HWND window, HDC context) __asm__("surface_ReleaseDC");
// A memory context with a bitmap of one monochrome pixel. A metafile context stands for its reference device.
SURFACE_API HDC WINAPI CreateCompatibleDC(HDC context) __asm__("surface_CreateCompatibleDC");
SURFACE_API BOOL WINAPI DeleteDC(HDC context) __asm__("surface_DeleteDC");
SURFACE_API int WINAPI GetDeviceCaps(HDC context, int index) __asm__("surface_GetDeviceCaps");

SURFACE_API COLORREF WINAPI SetBkColor(HDC context, COLORREF color) __asm__("surface_SetBkColor");
SURFACE_API COLORREF WINAPI GetBkColor(HDC context) __asm__("surface_GetBkColor");
SURFACE_API COLORREF WINAPI SetTextColor(HDC context, COLORREF color) __asm__("surface_SetTextColor");
SURFACE_API COLORREF WINAPI GetTextColor(HDC context) __asm__("surface_GetTextColor");
SURFACE_API int WINAPI SetBkMode(HDC context, int mode) __asm__("surface_SetBkMode");
SURFACE_API int WINAPI GetBkMode(HDC context) __asm__("surface_GetBkMode");
SURFACE_API UINT WINAPI SetTextAlign(HDC context, UINT alignment) __asm__("surface_SetTextAlign");
SURFACE_API UINT WINAPI GetTextAlign(HDC context) __asm__("surface_GetTextAlign");
// Space added to every character, in logical units, below 0 to tighten.
SURFACE_API int WINAPI SetTextCharacterExtra(HDC context, int extra) __asm__("surface_SetTextCharacterExtra");
SURFACE_API int WINAPI GetTextCharacterExtra(HDC context) __asm__("surface_GetTextCharacterExtra");
SURFACE_API BOOL WINAPI SetTextJustification(HDC context, int extra,
                                             int count) __asm__("surface_SetTextJustification");
SURFACE_API int WINAPI SetROP2(HDC context, int operation) __asm__("surface_SetROP2");
SURFACE_API int WINAPI GetROP2(HDC context) __asm__("surface_GetROP2");
SURFACE_API int WINAPI SetPolyFillMode(HDC context, int mode) __asm__("surface_SetPolyFillMode");
SURFACE_API int WINAPI GetPolyFillMode(HDC context) __asm__("surface_GetPolyFillMode");
// How a copy (SRCCOPY) makes a picture smaller; other operations choose the nearest pixels.
// COLORONCOLOR chooses the nearest. BLACKONWHITE (the default) keeps the black of a one-bit picture, its pixels ANDed;
// WHITEONBLACK its white, ORed. Pictures of more bits are averaged by area in both modes, and all pictures are in
// HALFTONE: their bits ANDed, as they are elsewhere, would give colours that no pixel has.
SURFACE_API int WINAPI SetStretchBltMode(HDC context, int mode) __asm__("surface_SetStretchBltMode");
SURFACE_API int WINAPI GetStretchBltMode(HDC context) __asm__("surface_GetStretchBltMode");
SURFACE_API int WINAPI SetArcDirection(HDC context, int direction) __asm__("surface_SetArcDirection");
SURFACE_API int WINAPI GetArcDirection(HDC context) __asm__("surface_GetArcDirection");
SURFACE_API BOOL WINAPI SetMiterLimit(HDC context, FLOAT limit,
                                      FLOAT* former) __asm__("surface_SetMiterLimit");
// In device units; hatches and patterns begin there.
SURFACE_API BOOL WINAPI SetBrushOrgEx(HDC context, int x, int y,
                                      POINT* former) __asm__("surface_SetBrushOrgEx");
SURFACE_API BOOL WINAPI GetBrushOrgEx(HDC context, POINT* origin) __asm__("surface_GetBrushOrgEx");
SURFACE_API BOOL WINAPI GetCurrentPositionEx(HDC context,
                                             POINT* point) __asm__("surface_GetCurrentPositionEx");

// Logical units become device units by the world transform, then window and viewport. MM_TEXT has extents of
// 1, 1, and the fixed modes have their own: setting them there changes nothing and gives TRUE. An extent of 0 is
// refused.
SURFACE_API int WINAPI SetMapMode(HDC context, int mode) __asm__("surface_SetMapMode");
SURFACE_API int WINAPI GetMapMode(HDC context) __asm__("surface_GetMapMode");
SURFACE_API BOOL WINAPI SetWindowExtEx(HDC context, int x, int y,
                                       SIZE* former) __asm__("surface_SetWindowExtEx");
SURFACE_API BOOL WINAPI GetWindowExtEx(HDC context, SIZE* extent) __asm__("surface_GetWindowExtEx");
SURFACE_API BOOL WINAPI SetViewportExtEx(HDC context, int x, int y,
                                         SIZE* former) __asm__("surface_SetViewportExtEx");
SURFACE_API BOOL WINAPI GetViewportExtEx(HDC context, SIZE* extent) __asm__("surface_GetViewportExtEx");
SURFACE_API BOOL WINAPI SetWindowOrgEx(HDC context, int x, int y,
                                       POINT* former) __asm__("surface_SetWindowOrgEx");
SURFACE_API BOOL WINAPI GetWindowOrgEx(HDC context, POINT* origin) __asm__("surface_GetWindowOrgEx");
SURFACE_API BOOL WINAPI SetViewportOrgEx(HDC context, int x, int y,
                                         POINT* former) __asm__("surface_SetViewportOrgEx");
SURFACE_API BOOL WINAPI GetViewportOrgEx(HDC context, POINT* origin) __asm__("surface_GetViewportOrgEx");
SURFACE_API BOOL WINAPI ScaleWindowExtEx(HDC context, int xMultiplier, int xDivisor, int yMultiplier,
                                         int yDivisor, SIZE* former) __asm__("surface_ScaleWindowExtEx");
SURFACE_API BOOL WINAPI ScaleViewportExtEx(HDC context, int xMultiplier, int xDivisor, int yMultiplier,
                                           int yDivisor, SIZE* former) __asm__("surface_ScaleViewportExtEx");
// GM_COMPATIBLE is refused while a world transform is in force, and world transforms are refused in it.
SURFACE_API int WINAPI SetGraphicsMode(HDC context, int mode) __asm__("surface_SetGraphicsMode");
SURFACE_API int WINAPI GetGraphicsMode(HDC context) __asm__("surface_GetGraphicsMode");
SURFACE_API BOOL WINAPI GetWorldTransform(HDC context, XFORM* transform) __asm__("surface_GetWorldTransform");
SURFACE_API BOOL WINAPI SetWorldTransform(HDC context,
                                          const XFORM* transform) __asm__("surface_SetWorldTransform");
SURFACE_API BOOL WINAPI ModifyWorldTransform(HDC context, const XFORM* transform,
                                             DWORD mode) __asm__("surface_ModifyWorldTransform");
SURFACE_API BOOL WINAPI LPtoDP(HDC context, POINT* points, int count) __asm__("surface_LPtoDP");
SURFACE_API BOOL WINAPI DPtoLP(HDC context, POINT* points, int count) __asm__("surface_DPtoLP");

// The region is copied and taken in device units; null removes the clip (in a metafile that plays: gives back the
// clip from before).
SURFACE_API int WINAPI SelectClipRgn(HDC context, HRGN region) __asm__("surface_SelectClipRgn");
SURFACE_API int WINAPI ExtSelectClipRgn(HDC context, HRGN region,
                                        int mode) __asm__("surface_ExtSelectClipRgn");
// In logical units.
SURFACE_API int WINAPI IntersectClipRect(HDC context, int left, int top, int right,
                                         int bottom) __asm__("surface_IntersectClipRect");
SURFACE_API int WINAPI ExcludeClipRect(HDC context, int left, int top, int right,
                                       int bottom) __asm__("surface_ExcludeClipRect");
SURFACE_API int WINAPI OffsetClipRgn(HDC context, int x, int y) __asm__("surface_OffsetClipRgn");
SURFACE_API int WINAPI GetClipBox(HDC context, RECT* box) __asm__("surface_GetClipBox");

// Gives the depth of the saved state, 0 on failure. A negative level counts back from now.
SURFACE_API int WINAPI SaveDC(HDC context) __asm__("surface_SaveDC");
SURFACE_API BOOL WINAPI RestoreDC(HDC context, int level) __asm__("surface_RestoreDC");

} // extern "C"
