// The records of an enhanced metafile ([MS-EMF] 2.3), as they stand in a file: little-endian, each a multiple of
// four bytes long, beginning with its type and its size. Recorder, player and page operations share these layouts.
// A record that only begins with these fields says in its comment what follows them.
#pragma once

#include "windows/bitmaps.h"
#include "windows/objects.h"
#include "windows/recordTypes.h"
#include "windows/types.h"

struct EMR {
    DWORD iType;
    DWORD nSize; // in bytes, this head included
};
static_assert(sizeof(EMR) == 8);

// [MS-EMF] 2.3.4.2 with both extensions. Older headers end at szlMillimeters (88) or before szlMicrometers (100).
struct ENHMETAHEADER {
    DWORD iType;
    DWORD nSize;
    RECTL rclBounds; // of what is drawn, device units, inclusive
    RECTL rclFrame;  // hundredths of a millimetre
    DWORD dSignature;
    DWORD nVersion;
    DWORD nBytes;
    DWORD nRecords;
    WORD nHandles; // entry 0 included, which is never used
    WORD sReserved;
    DWORD nDescription;
    DWORD offDescription;
    DWORD nPalEntries;
    SIZEL szlDevice;      // of the reference device, pixels
    SIZEL szlMillimeters; // the same in millimetres
    DWORD cbPixelFormat;
    DWORD offPixelFormat;
    DWORD bOpenGL;
    SIZEL szlMicrometers;
};
static_assert(sizeof(ENHMETAHEADER) == 108);
static_assert(offsetof(ENHMETAHEADER, dSignature) == 40 && offsetof(ENHMETAHEADER, nBytes) == 48);
static_assert(offsetof(ENHMETAHEADER, szlDevice) == 72 && offsetof(ENHMETAHEADER, szlMillimeters) == 80);

// [MS-EMF] 2.3.4.1. A palette may precede the last field; nSizeLast repeats nSize.
struct EMREOF {
    EMR emr;
    DWORD nPalEntries;
    DWORD offPalEntries;
    DWORD nSizeLast;
};
static_assert(sizeof(EMREOF) == 20);

// The records of one number or mode: map mode, background mode, text alignment, fill mode, raster operation,
// stretch mode, arc direction, layout, colour-management mode, mapper flags.
struct EMRSETMODE {
    EMR emr;
    DWORD iMode;
};
static_assert(sizeof(EMRSETMODE) == 12);

struct EMRSETTEXTCOLOR {
    EMR emr;
    COLORREF crColor;
};
static_assert(sizeof(EMRSETTEXTCOLOR) == 12);
using EMRSETBKCOLOR = EMRSETTEXTCOLOR;

// Window and viewport origin, brush origin, MOVETOEX, LINETO.
struct EMRPOINT {
    EMR emr;
    POINTL ptl;
};
static_assert(sizeof(EMRPOINT) == 16);

// Window and viewport extent.
struct EMREXTENT {
    EMR emr;
    SIZEL szlExtent;
};
static_assert(sizeof(EMREXTENT) == 16);

struct EMRSCALEEXTENT {
    EMR emr;
    LONG xNum;
    LONG xDenom;
    LONG yNum;
    LONG yDenom;
};
static_assert(sizeof(EMRSCALEEXTENT) == 24);

struct EMRSETMITERLIMIT {
    EMR emr;
    FLOAT eMiterLimit;
};
static_assert(sizeof(EMRSETMITERLIMIT) == 12);

struct EMRSETTEXTJUSTIFICATION {
    EMR emr;
    LONG nBreakExtra;
    LONG nBreakCount;
};
static_assert(sizeof(EMRSETTEXTJUSTIFICATION) == 16);

struct EMRRESTOREDC {
    EMR emr;
    LONG iRelative; // below 0
};
static_assert(sizeof(EMRRESTOREDC) == 12);

struct EMRSETWORLDTRANSFORM {
    EMR emr;
    XFORM xform;
};
static_assert(sizeof(EMRSETWORLDTRANSFORM) == 32);

struct EMRMODIFYWORLDTRANSFORM {
    EMR emr;
    XFORM xform;
    DWORD iMode;
};
static_assert(sizeof(EMRMODIFYWORLDTRANSFORM) == 36);

// SELECTOBJECT and DELETEOBJECT. A set top bit of the index means a stock object.
struct EMRSELECTOBJECT {
    EMR emr;
    DWORD ihObject;
};
static_assert(sizeof(EMRSELECTOBJECT) == 12);

struct EMRCREATEPEN {
    EMR emr;
    DWORD ihPen;
    DWORD style;
    POINTL width;
    COLORREF color;
};
static_assert(sizeof(EMRCREATEPEN) == 28);

// The file form of a logical brush ([MS-EMF] 2.2.12).
struct LOGBRUSH32 {
    UINT lbStyle;
    COLORREF lbColor;
    ULONG lbHatch;
};
static_assert(sizeof(LOGBRUSH32) == 12);

struct EMRCREATEBRUSHINDIRECT {
    EMR emr;
    DWORD ihBrush;
    LOGBRUSH32 lb;
};
static_assert(sizeof(EMRCREATEBRUSHINDIRECT) == 24);

// CREATEMONOBRUSH and CREATEDIBPATTERNBRUSHPT; the bitmap's head and bits follow at the given offsets.
struct EMRCREATEMONOBRUSH {
    EMR emr;
    DWORD ihBrush;
    DWORD iUsage;
    DWORD offBmi;
    DWORD cbBmi;
    DWORD offBits;
    DWORD cbBits;
};
static_assert(sizeof(EMRCREATEMONOBRUSH) == 32);
using EMRCREATEDIBPATTERNBRUSHPT = EMRCREATEMONOBRUSH;

// The file form of an extended pen ([MS-EMF] 2.2.20), with its first dash; more dashes follow.
struct EXTLOGPEN32 {
    DWORD elpPenStyle;
    DWORD elpWidth;
    UINT elpBrushStyle;
    COLORREF elpColor;
    DWORD elpHatch;
    DWORD elpNumEntries;
    DWORD elpStyleEntry[1];
};
static_assert(sizeof(EXTLOGPEN32) == 28);

struct EMREXTCREATEPEN {
    EMR emr;
    DWORD ihPen;
    DWORD offBmi;
    DWORD cbBmi;
    DWORD offBits;
    DWORD cbBits;
    EXTLOGPEN32 elp;
};
static_assert(sizeof(EMREXTCREATEPEN) == 56);

// [MS-EMF] 2.2.15.
struct EXTLOGFONTW {
    LOGFONTW elfLogFont;
    WCHAR elfFullName[64];
    WCHAR elfStyle[32];
    DWORD elfVersion;
    DWORD elfStyleSize;
    DWORD elfMatch;
    DWORD elfReserved;
    BYTE elfVendorId[4];
    DWORD elfCulture;
    BYTE elfPanose[10];
    WORD elfPadding;
};
static_assert(sizeof(EXTLOGFONTW) == 320);

struct EMREXTCREATEFONTINDIRECTW {
    EMR emr;
    DWORD ihFont;
    EXTLOGFONTW elfw;
};
static_assert(sizeof(EMREXTCREATEFONTINDIRECTW) == 332);

struct POINTS {
    std::int16_t x;
    std::int16_t y;
};
static_assert(sizeof(POINTS) == 4);

// POLYGON, POLYLINE, POLYBEZIER and their To forms; cptl points follow: POINTL, in the 16-bit records POINTS.
struct EMRPOLY {
    EMR emr;
    RECTL rclBounds;
    DWORD cptl;
};
static_assert(sizeof(EMRPOLY) == 28);

// POLYPOLYGON and POLYPOLYLINE; nPolys counts follow, then cptl points.
struct EMRPOLYPOLY {
    EMR emr;
    RECTL rclBounds;
    DWORD nPolys;
    DWORD cptl;
};
static_assert(sizeof(EMRPOLYPOLY) == 32);

// ELLIPSE, RECTANGLE, EXCLUDECLIPRECT, INTERSECTCLIPRECT. The box is inclusive in both directions.
struct EMRBOX {
    EMR emr;
    RECTL rclBox;
};
static_assert(sizeof(EMRBOX) == 24);

struct EMRROUNDRECT {
    EMR emr;
    RECTL rclBox;
    SIZEL szlCorner;
};
static_assert(sizeof(EMRROUNDRECT) == 32);

// ARC, ARCTO, CHORD and PIE.
struct EMRARC {
    EMR emr;
    RECTL rclBox;
    POINTL ptlStart;
    POINTL ptlEnd;
};
static_assert(sizeof(EMRARC) == 40);

struct EMRANGLEARC {
    EMR emr;
    POINTL ptlCenter;
    DWORD nRadius;
    FLOAT eStartAngle;
    FLOAT eSweepAngle;
};
static_assert(sizeof(EMRANGLEARC) == 28);

struct EMREXTFLOODFILL {
    EMR emr;
    POINTL ptlStart;
    COLORREF crColor;
    DWORD iMode;
};
static_assert(sizeof(EMREXTFLOODFILL) == 24);

struct EMRSETPIXELV {
    EMR emr;
    POINTL ptlPixel;
    COLORREF crColor;
};
static_assert(sizeof(EMRSETPIXELV) == 20);

// FILLPATH, STROKEPATH and STROKEANDFILLPATH.
struct EMRPATH {
    EMR emr;
    RECTL rclBounds;
};
static_assert(sizeof(EMRPATH) == 24);

// cbData bytes follow, padded to a multiple of four.
struct EMRGDICOMMENT {
    EMR emr;
    DWORD cbData;
};
static_assert(sizeof(EMRGDICOMMENT) == 12);

// The head of region data ([MS-EMF] 2.2.24); nCount rectangles follow.
struct RGNDATAHEADER {
    DWORD dwSize;
    DWORD iType;
    DWORD nCount;
    DWORD nRgnSize;
    RECT rcBound;
};
static_assert(sizeof(RGNDATAHEADER) == 32);

// cbRgnData bytes of region data follow.
struct EMRFILLRGN {
    EMR emr;
    RECTL rclBounds;
    DWORD cbRgnData;
    DWORD ihBrush;
};
static_assert(sizeof(EMRFILLRGN) == 32);

// cbRgnData bytes of region data follow; none, with RGN_COPY, means no clip.
struct EMREXTSELECTCLIPRGN {
    EMR emr;
    DWORD cbRgnData;
    DWORD iMode;
};
static_assert(sizeof(EMREXTSELECTCLIPRGN) == 16);

// A source bitmap may follow at the given offsets; without one offBmiSrc is 0.
struct EMRBITBLT {
    EMR emr;
    RECTL rclBounds;
    LONG xDest;
    LONG yDest;
    LONG cxDest;
    LONG cyDest;
    DWORD dwRop;
    LONG xSrc;
    LONG ySrc;
    XFORM xformSrc;
    COLORREF crBkColorSrc;
    DWORD iUsageSrc;
    DWORD offBmiSrc;
    DWORD cbBmiSrc;
    DWORD offBitsSrc;
    DWORD cbBitsSrc;
};
static_assert(sizeof(EMRBITBLT) == 100);

struct EMRSTRETCHBLT {
    EMRBITBLT blt;
    LONG cxSrc;
    LONG cySrc;
};
static_assert(sizeof(EMRSTRETCHBLT) == 108);

struct EMRSTRETCHDIBITS {
    EMR emr;
    RECTL rclBounds;
    LONG xDest;
    LONG yDest;
    LONG xSrc;
    LONG ySrc;
    LONG cxSrc;
    LONG cySrc;
    DWORD offBmiSrc;
    DWORD cbBmiSrc;
    DWORD offBitsSrc;
    DWORD cbBitsSrc;
    DWORD iUsageSrc;
    DWORD dwRop;
    LONG cxDest;
    LONG cyDest;
};
static_assert(sizeof(EMRSTRETCHDIBITS) == 80);

struct EMRSETDIBITSTODEVICE {
    EMR emr;
    RECTL rclBounds;
    LONG xDest;
    LONG yDest;
    LONG xSrc;
    LONG ySrc;
    LONG cxSrc;
    LONG cySrc;
    DWORD offBmiSrc;
    DWORD cbBmiSrc;
    DWORD offBitsSrc;
    DWORD cbBitsSrc;
    DWORD iUsageSrc;
    DWORD iStartScan;
    DWORD cScans;
};
static_assert(sizeof(EMRSETDIBITSTODEVICE) == 76);

// [MS-EMF] 2.2.5. Offsets count from the start of the record; offDx 0 means no advances.
struct EMRTEXT {
    POINTL ptlReference;
    DWORD nChars;
    DWORD offString;
    DWORD fOptions;
    RECTL rcl;
    DWORD offDx;
};
static_assert(sizeof(EMRTEXT) == 40);

// The text (8 bits a character in EXTTEXTOUTA, 16 in EXTTEXTOUTW, no terminator) and its advances follow.
struct EMREXTTEXTOUTW {
    EMR emr;
    RECTL rclBounds;
    DWORD iGraphicsMode;
    FLOAT exScale;
    FLOAT eyScale;
    EMRTEXT emrtext;
};
static_assert(sizeof(EMREXTTEXTOUTW) == 76 && offsetof(EMREXTTEXTOUTW, emrtext) == 36);
using EMREXTTEXTOUTA = EMREXTTEXTOUTW;
