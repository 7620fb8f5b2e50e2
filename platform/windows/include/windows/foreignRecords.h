// Records of enhanced metafiles that others write and this layer only plays. As in records.h, a record that only
// begins with these fields says in its comment what follows them.
#pragma once

#include "windows/records.h"

// POLYDRAW and POLYDRAW16 begin like EMRPOLY; cptl points and then cptl bytes (PT_...) follow.
constexpr BYTE PT_CLOSEFIGURE = 1;
constexpr BYTE PT_LINETO = 2;
constexpr BYTE PT_BEZIERTO = 4;
constexpr BYTE PT_MOVETO = 6;

// [MS-EMF] 2.3.5.10; cbRgnData bytes of region data follow.
struct EMRFRAMERGN {
    EMR emr;
    RECTL rclBounds;
    DWORD cbRgnData;
    DWORD ihBrush;
    SIZEL szlStroke;
};
static_assert(sizeof(EMRFRAMERGN) == 40);

// INVERTRGN and PAINTRGN; cbRgnData bytes of region data follow.
struct EMRINVERTRGN {
    EMR emr;
    RECTL rclBounds;
    DWORD cbRgnData;
};
static_assert(sizeof(EMRINVERTRGN) == 28);

// [MS-EMF] 2.3.1.3: the mask is a bitmap of its own. The operation for its clear bits is in the top byte of dwRop.
struct EMRMASKBLT {
    EMRBITBLT blt;
    LONG xMask;
    LONG yMask;
    DWORD iUsageMask;
    DWORD offBmiMask;
    DWORD cbBmiMask;
    DWORD offBitsMask;
    DWORD cbBitsMask;
};
static_assert(sizeof(EMRMASKBLT) == 128);

// [MS-EMF] 2.3.1.4: the corners are those of the source's upper left, upper right and lower left ones.
struct EMRPLGBLT {
    EMR emr;
    RECTL rclBounds;
    POINTL aptlDest[3];
    LONG xSrc;
    LONG ySrc;
    LONG cxSrc;
    LONG cySrc;
    XFORM xformSrc;
    COLORREF crBkColorSrc;
    DWORD iUsageSrc;
    DWORD offBmiSrc;
    DWORD cbBmiSrc;
    DWORD offBitsSrc;
    DWORD cbBitsSrc;
    LONG xMask;
    LONG yMask;
    DWORD iUsageMask;
    DWORD offBmiMask;
    DWORD cbBmiMask;
    DWORD offBitsMask;
    DWORD cbBitsMask;
};
static_assert(sizeof(EMRPLGBLT) == 140);

// [MS-EMF] 2.3.5.12; nTriVert vertices follow, then nGradObj triples (pairs, for rectangles) of their numbers.
struct EMRGRADIENTFILL {
    EMR emr;
    RECTL rclBounds;
    DWORD nVer;
    DWORD nTri;
    DWORD ulMode;
};
static_assert(sizeof(EMRGRADIENTFILL) == 36);
constexpr DWORD GRADIENT_FILL_RECT_H = 0;
constexpr DWORD GRADIENT_FILL_RECT_V = 1;

// [MS-EMF] 2.2.26: a channel's upper byte is its value in a pixel.
struct TRIVERTEX {
    LONG x;
    LONG y;
    WORD Red;
    WORD Green;
    WORD Blue;
    WORD Alpha;
};
static_assert(sizeof(TRIVERTEX) == 16);

struct GRADIENT_RECT {
    ULONG UpperLeft;
    ULONG LowerRight;
};
static_assert(sizeof(GRADIENT_RECT) == 8);

// [MS-EMF] 2.3.5.37; a rectangle follows unless the options have ETO_NO_RECT, then the text: 16 bits a character, with
// ETO_SMALL_CHARS the low 8 of them.
struct EMRSMALLTEXTOUT {
    EMR emr;
    POINTL ptlReference;
    DWORD nChars;
    DWORD fuOptions;
    DWORD iGraphicsMode;
    FLOAT exScale;
    FLOAT eyScale;
};
static_assert(sizeof(EMRSMALLTEXTOUT) == 36);

// With its first text; more of them follow.
struct EMRPOLYTEXTOUTW {
    EMR emr;
    RECTL rclBounds;
    DWORD iGraphicsMode;
    FLOAT exScale;
    FLOAT eyScale;
    LONG cStrings;
    EMRTEXT aemrtext[1];
};
static_assert(offsetof(EMRPOLYTEXTOUTW, aemrtext) == 40);
using EMRPOLYTEXTOUTA = EMRPOLYTEXTOUTW;
