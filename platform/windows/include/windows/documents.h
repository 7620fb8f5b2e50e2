// Documents of the Windows interface: pages one after the other on a context that gdiCreateDocument made.
#pragma once

#include "windows/types.h"

constexpr int SP_ERROR = -1;

struct DOCINFOA {
    int cbSize;
    LPCSTR lpszDocName;  // the title, where the context was given none; may be null
    LPCSTR lpszOutput;   // a path that takes the place of the context's; may be null
    LPCSTR lpszDatatype; // has no meaning here
    DWORD fwType;        // has none
};

extern "C" {

// Each gives a number above 0, and SP_ERROR where it is not its turn, on a context of another kind, and when the page or
// the document is lost: without memory, or when its bytes can't be written. What is drawn before StartPage and after
// EndPage is not drawn, and most of these calls give FALSE. Pages keep the state of the context.
SURFACE_API int WINAPI StartDocA(HDC context, const DOCINFOA* info) __asm__("surface_StartDocA");
SURFACE_API int WINAPI StartPage(HDC context) __asm__("surface_StartPage");
SURFACE_API int WINAPI EndPage(HDC context) __asm__("surface_EndPage");
// Ends a page that is open. A document without a page is an error, and leaves nothing.
SURFACE_API int WINAPI EndDoc(HDC context) __asm__("surface_EndDoc");
// Leaves nothing of the document where it goes to a path. DeleteDC does the same.
SURFACE_API int WINAPI AbortDoc(HDC context) __asm__("surface_AbortDoc");

} // extern "C"
