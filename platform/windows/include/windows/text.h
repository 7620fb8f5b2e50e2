// Text of the Windows interface: output, measures, the installed fonts.
#pragma once

#include "windows/objects.h"
#include "windows/types.h"

struct TEXTMETRICA {
    LONG tmHeight;
    LONG tmAscent;
    LONG tmDescent;
    LONG tmInternalLeading;
    LONG tmExternalLeading;
    LONG tmAveCharWidth;
    LONG tmMaxCharWidth;
    LONG tmWeight;
    LONG tmOverhang;
    LONG tmDigitizedAspectX;
    LONG tmDigitizedAspectY;
    BYTE tmFirstChar;
    BYTE tmLastChar;
    BYTE tmDefaultChar;
    BYTE tmBreakChar;
    BYTE tmItalic;
    BYTE tmUnderlined;
    BYTE tmStruckOut;
    BYTE tmPitchAndFamily;
    BYTE tmCharSet;
};
static_assert(sizeof(TEXTMETRICA) == 56);

struct ENUMLOGFONTEXA {
    LOGFONTA elfLogFont;
    BYTE elfFullName[64];
    BYTE elfStyle[32];
    BYTE elfScript[32];
};
static_assert(sizeof(ENUMLOGFONTEXA) == 188);

// The callback of EnumFontFamiliesExA. Its first argument begins an ENUMLOGFONTEXA; 0 ends the enumeration.
using FONTENUMPROCA = int(CALLBACK*)(const LOGFONTA* font, const TEXTMETRICA* metrics, DWORD type,
                                     LPARAM data);

extern "C" {

// Draws lines of text in a rectangle, in code page 1252; `length` -1 means up to the zero byte. With DT_CALCRECT
// nothing is drawn: right and bottom of the rectangle become left + width and top + height. Gives the height.
// Ellipses ("...") stand for what the rectangle has no room for; where not even they fit, they alone are drawn. They are
// measured like the rest of the text, so that DT_CALCRECT keeps a width that can be kept; it and DT_NOCLIP leave the
// height free.
// - DT_END_ELLIPSIS: at the end of the last line, if that is too wide or if text follows below the rectangle. A line
//   of which a part shows is drawn, and the last of these goes on up to its end without breaks between words.
// - DT_WORD_ELLIPSIS: at the end of every line that is too wide; with DT_WORDBREAK that is one of a single word.
// - DT_PATH_ELLIPSIS: within every line that is too wide, before the last backslash; without one in the middle.
// The caller's text stays as it is: DT_MODIFYSTRING does nothing. With DT_TABSTOP there are no ellipses at the end
// or in a path, because their flags are bits of the tab's width.
// DT_HIDEPREFIX leaves out the lines under characters after "&", DT_PREFIXONLY the characters; DT_NOPREFIX has none.
SURFACE_API int WINAPI DrawTextA(HDC context, LPCSTR text, int length, RECT* rect,
                                 UINT flags) __asm__("surface_DrawTextA");
// One line at a point. `advances` (may be null): one for each character, in logical units.
SURFACE_API BOOL WINAPI ExtTextOutA(HDC context, int x, int y, UINT options, const RECT* rect, LPCSTR text,
                                    UINT length, const INT* advances) __asm__("surface_ExtTextOutA");
SURFACE_API BOOL WINAPI ExtTextOutW(HDC context, int x, int y, UINT options, const RECT* rect,
                                    const WCHAR* text, UINT length,
                                    const INT* advances) __asm__("surface_ExtTextOutW");
// `fit` (may be null: no limit) is the number of characters whose extent is at most `maximum`, and so many partial
// extents are written; `size` is that of the whole text.
SURFACE_API BOOL WINAPI GetTextExtentExPointA(HDC context, LPCSTR text, int length, int maximum, INT* fit,
                                              INT* extents,
                                              SIZE* size) __asm__("surface_GetTextExtentExPointA");
SURFACE_API BOOL WINAPI GetTextExtentPoint32A(HDC context, LPCSTR text, int length,
                                              SIZE* size) __asm__("surface_GetTextExtentPoint32A");
SURFACE_API BOOL WINAPI GetTextMetricsA(HDC context, TEXTMETRICA* metrics) __asm__("surface_GetTextMetricsA");
// A null font means all fonts, once for each face and style, in the order of their names.
SURFACE_API int WINAPI EnumFontFamiliesExA(HDC context, LOGFONTA* font, FONTENUMPROCA callback, LPARAM data,
                                           DWORD flags) __asm__("surface_EnumFontFamiliesExA");

} // extern "C"
