// Shapes and paths of the Windows interface. Coordinates are logical units. Shapes are drawn with the context's pen
// and brush, unless a brush is handed over. In GM_COMPATIBLE the right and bottom edges of a bounding rectangle
// don't belong to the shape, in GM_ADVANCED they do.
#pragma once

#include "windows/types.h"

extern "C" {

SURFACE_API BOOL WINAPI MoveToEx(HDC context, int x, int y, POINT* former) __asm__("surface_MoveToEx");
// The last point is not drawn.
SURFACE_API BOOL WINAPI LineTo(HDC context, int x, int y) __asm__("surface_LineTo");
// FALSE and nothing drawn for fewer than 2 points.
SURFACE_API BOOL WINAPI Polyline(HDC context, const POINT* points, int count) __asm__("surface_Polyline");
SURFACE_API BOOL WINAPI PolylineTo(HDC context, const POINT* points,
                                   DWORD count) __asm__("surface_PolylineTo");
SURFACE_API BOOL WINAPI PolyPolyline(HDC context, const POINT* points, const DWORD* counts,
                                     DWORD lines) __asm__("surface_PolyPolyline");
SURFACE_API BOOL WINAPI Polygon(HDC context, const POINT* points, int count) __asm__("surface_Polygon");
SURFACE_API BOOL WINAPI PolyPolygon(HDC context, const POINT* points, const INT* counts,
                                    int polygons) __asm__("surface_PolyPolygon");
SURFACE_API BOOL WINAPI PolyBezier(HDC context, const POINT* points,
                                   DWORD count) __asm__("surface_PolyBezier");
SURFACE_API BOOL WINAPI PolyBezierTo(HDC context, const POINT* points,
                                     DWORD count) __asm__("surface_PolyBezierTo");
SURFACE_API BOOL WINAPI Rectangle(HDC context, int left, int top, int right,
                                  int bottom) __asm__("surface_Rectangle");
SURFACE_API BOOL WINAPI RoundRect(HDC context, int left, int top, int right, int bottom, int cornerWidth,
                                  int cornerHeight) __asm__("surface_RoundRect");
SURFACE_API BOOL WINAPI Ellipse(HDC context, int left, int top, int right,
                                int bottom) __asm__("surface_Ellipse");
// From the radial through the first point to that through the second, counter-clockwise unless SetArcDirection
// says otherwise. Equal radials draw the whole ellipse.
SURFACE_API BOOL WINAPI Arc(HDC context, int left, int top, int right, int bottom, int x1, int y1, int x2,
                            int y2) __asm__("surface_Arc");
SURFACE_API BOOL WINAPI ArcTo(HDC context, int left, int top, int right, int bottom, int x1, int y1, int x2,
                              int y2) __asm__("surface_ArcTo");
SURFACE_API BOOL WINAPI Chord(HDC context, int left, int top, int right, int bottom, int x1, int y1, int x2,
                              int y2) __asm__("surface_Chord");
SURFACE_API BOOL WINAPI Pie(HDC context, int left, int top, int right, int bottom, int x1, int y1, int x2,
                            int y2) __asm__("surface_Pie");
// Angles in degrees, counter-clockwise from the x axis.
SURFACE_API BOOL WINAPI AngleArc(HDC context, int x, int y, DWORD radius, FLOAT startAngle,
                                 FLOAT sweepAngle) __asm__("surface_AngleArc");

// These take no pen, and right and bottom never belong to the rectangle. Results: 0 on failure.
SURFACE_API int WINAPI FillRect(HDC context, const RECT* rect, HBRUSH brush) __asm__("surface_FillRect");
// A frame one logical unit wide.
SURFACE_API int WINAPI FrameRect(HDC context, const RECT* rect, HBRUSH brush) __asm__("surface_FrameRect");
// Inverts a dotted frame: drawn twice it is gone.
SURFACE_API BOOL WINAPI DrawFocusRect(HDC context, const RECT* rect) __asm__("surface_DrawFocusRect");
// Lines one logical unit wide, in system colours: the outer and inner line of `edge` at the sides that `flags` name, and
// with BF_MIDDLE what is inside of them; BF_ADJUST takes the lines off the rectangle. BF_DIAGONAL draws one edge from
// corner to corner instead. It ends at the corner of the two sides named (BF_TOP or BF_RIGHT alone: top right; any other
// sides: bottom left); the inner line and the inside are to the right of the way there. Fails for a diagonal of
// a rectangle with more than 100,000 units along its shorter side.
SURFACE_API BOOL WINAPI DrawEdge(HDC context, RECT* rect, UINT edge, UINT flags) __asm__("surface_DrawEdge");
// The region is taken in logical units.
SURFACE_API BOOL WINAPI FillRgn(HDC context, HRGN region, HBRUSH brush) __asm__("surface_FillRgn");
SURFACE_API BOOL WINAPI ExtFloodFill(HDC context, int x, int y, COLORREF color,
                                     UINT type) __asm__("surface_ExtFloodFill");
SURFACE_API BOOL WINAPI PatBlt(HDC context, int x, int y, int width, int height,
                               DWORD operation) __asm__("surface_PatBlt");

// A path collects lines, curves and shapes between BeginPath and EndPath; drawing it uses it up.
SURFACE_API BOOL WINAPI BeginPath(HDC context) __asm__("surface_BeginPath");
SURFACE_API BOOL WINAPI EndPath(HDC context) __asm__("surface_EndPath");
SURFACE_API BOOL WINAPI CloseFigure(HDC context) __asm__("surface_CloseFigure");
SURFACE_API BOOL WINAPI AbortPath(HDC context) __asm__("surface_AbortPath");
SURFACE_API BOOL WINAPI FlattenPath(HDC context) __asm__("surface_FlattenPath");
SURFACE_API BOOL WINAPI WidenPath(HDC context) __asm__("surface_WidenPath");
SURFACE_API BOOL WINAPI FillPath(HDC context) __asm__("surface_FillPath");
SURFACE_API BOOL WINAPI StrokePath(HDC context) __asm__("surface_StrokePath");
SURFACE_API BOOL WINAPI StrokeAndFillPath(HDC context) __asm__("surface_StrokeAndFillPath");
SURFACE_API BOOL WINAPI SelectClipPath(HDC context, int mode) __asm__("surface_SelectClipPath");

} // extern "C"
