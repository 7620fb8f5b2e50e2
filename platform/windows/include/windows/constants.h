// The named numbers of the Windows drawing interface. Constants here, macros there; the names are the same.
#pragma once

#include "windows/types.h"

// Types of objects, for GetCurrentObject and GetObjectType.
constexpr UINT OBJ_PEN = 1;
constexpr UINT OBJ_BRUSH = 2;
constexpr UINT OBJ_DC = 3;
constexpr UINT OBJ_METADC = 4;
constexpr UINT OBJ_FONT = 6;
constexpr UINT OBJ_BITMAP = 7;
constexpr UINT OBJ_REGION = 8;
constexpr UINT OBJ_MEMDC = 10;
constexpr UINT OBJ_EXTPEN = 11;
constexpr UINT OBJ_ENHMETADC = 12;
constexpr UINT OBJ_ENHMETAFILE = 13;

// Stock objects.
constexpr int WHITE_BRUSH = 0;
constexpr int LTGRAY_BRUSH = 1;
constexpr int GRAY_BRUSH = 2;
constexpr int DKGRAY_BRUSH = 3;
constexpr int BLACK_BRUSH = 4;
constexpr int NULL_BRUSH = 5;
constexpr int HOLLOW_BRUSH = NULL_BRUSH;
constexpr int WHITE_PEN = 6;
constexpr int BLACK_PEN = 7;
constexpr int NULL_PEN = 8;
constexpr int OEM_FIXED_FONT = 10;
constexpr int ANSI_FIXED_FONT = 11;
constexpr int ANSI_VAR_FONT = 12;
constexpr int SYSTEM_FONT = 13;
constexpr int DEVICE_DEFAULT_FONT = 14;
constexpr int DEFAULT_PALETTE = 15;
constexpr int SYSTEM_FIXED_FONT = 16;
constexpr int DEFAULT_GUI_FONT = 17;
constexpr int DC_BRUSH = 18;
constexpr int DC_PEN = 19;
constexpr int STOCK_LAST = DC_PEN;

// Pens: style, cap and join in one word.
constexpr DWORD PS_SOLID = 0;
constexpr DWORD PS_DASH = 1;
constexpr DWORD PS_DOT = 2;
constexpr DWORD PS_DASHDOT = 3;
constexpr DWORD PS_DASHDOTDOT = 4;
constexpr DWORD PS_NULL = 5;
constexpr DWORD PS_INSIDEFRAME = 6;
constexpr DWORD PS_USERSTYLE = 7;
constexpr DWORD PS_ALTERNATE = 8;
constexpr DWORD PS_STYLE_MASK = 0x0000000F;
constexpr DWORD PS_ENDCAP_ROUND = 0x00000000;
constexpr DWORD PS_ENDCAP_SQUARE = 0x00000100;
constexpr DWORD PS_ENDCAP_FLAT = 0x00000200;
constexpr DWORD PS_ENDCAP_MASK = 0x00000F00;
constexpr DWORD PS_JOIN_ROUND = 0x00000000;
constexpr DWORD PS_JOIN_BEVEL = 0x00001000;
constexpr DWORD PS_JOIN_MITER = 0x00002000;
constexpr DWORD PS_JOIN_MASK = 0x0000F000;
constexpr DWORD PS_COSMETIC = 0x00000000;
constexpr DWORD PS_GEOMETRIC = 0x00010000;
constexpr DWORD PS_TYPE_MASK = 0x000F0000;

// Brushes.
constexpr UINT BS_SOLID = 0;
constexpr UINT BS_NULL = 1;
constexpr UINT BS_HOLLOW = BS_NULL;
constexpr UINT BS_HATCHED = 2;
constexpr UINT BS_PATTERN = 3;
constexpr UINT BS_DIBPATTERN = 5;
constexpr UINT BS_DIBPATTERNPT = 6;
constexpr int HS_HORIZONTAL = 0;
constexpr int HS_VERTICAL = 1;
constexpr int HS_FDIAGONAL = 2;
constexpr int HS_BDIAGONAL = 3;
constexpr int HS_CROSS = 4;
constexpr int HS_DIAGCROSS = 5;

// Fonts.
constexpr LONG FW_DONTCARE = 0;
constexpr LONG FW_NORMAL = 400;
constexpr LONG FW_BOLD = 700;
constexpr BYTE ANSI_CHARSET = 0;
constexpr BYTE DEFAULT_CHARSET = 1;
constexpr BYTE SYMBOL_CHARSET = 2;
constexpr BYTE PROOF_QUALITY = 2;
constexpr BYTE FIXED_PITCH = 1;
constexpr BYTE VARIABLE_PITCH = 2;
constexpr BYTE FF_ROMAN = 0x10;
constexpr BYTE FF_SWISS = 0x20;
constexpr BYTE FF_MODERN = 0x30;
constexpr DWORD RASTER_FONTTYPE = 1;
constexpr DWORD DEVICE_FONTTYPE = 2;
constexpr DWORD TRUETYPE_FONTTYPE = 4;
constexpr int LF_FACESIZE = 32;
constexpr int LF_FULLFACESIZE = 64;

// Device capabilities.
constexpr int TECHNOLOGY = 2;
constexpr int HORZSIZE = 4;
constexpr int VERTSIZE = 6;
constexpr int HORZRES = 8;
constexpr int VERTRES = 10;
constexpr int BITSPIXEL = 12;
constexpr int PLANES = 14;
constexpr int RASTERCAPS = 38;
constexpr int LOGPIXELSX = 88;
constexpr int LOGPIXELSY = 90;
constexpr UINT RC_BITBLT = 0x0001;
constexpr UINT RC_STRETCHBLT = 0x0800;

// State of a context.
constexpr int MM_TEXT = 1;
constexpr int MM_LOMETRIC = 2;
constexpr int MM_HIMETRIC = 3;
constexpr int MM_LOENGLISH = 4;
constexpr int MM_HIENGLISH = 5;
constexpr int MM_TWIPS = 6;
constexpr int MM_ISOTROPIC = 7;
constexpr int MM_ANISOTROPIC = 8;
constexpr int GM_COMPATIBLE = 1;
constexpr int GM_ADVANCED = 2;
constexpr DWORD MWT_IDENTITY = 1;
constexpr DWORD MWT_LEFTMULTIPLY = 2;
constexpr DWORD MWT_RIGHTMULTIPLY = 3;
constexpr DWORD MWT_SET = 4; // of a record only
constexpr int TRANSPARENT = 1;
constexpr int OPAQUE = 2;
constexpr int ALTERNATE = 1;
constexpr int WINDING = 2;
constexpr int BLACKONWHITE = 1;
constexpr int WHITEONBLACK = 2;
constexpr int COLORONCOLOR = 3;
constexpr int HALFTONE = 4;
constexpr int AD_COUNTERCLOCKWISE = 1;
constexpr int AD_CLOCKWISE = 2;
constexpr int R2_BLACK = 1;
constexpr int R2_NOTXORPEN = 10;
constexpr int R2_COPYPEN = 13;
constexpr int R2_WHITE = 16;
constexpr UINT TA_NOUPDATECP = 0;
constexpr UINT TA_UPDATECP = 1;
constexpr UINT TA_LEFT = 0;
constexpr UINT TA_RIGHT = 2;
constexpr UINT TA_CENTER = 6;
constexpr UINT TA_TOP = 0;
constexpr UINT TA_BOTTOM = 8;
constexpr UINT TA_BASELINE = 24;
constexpr UINT TA_RTLREADING = 256;
constexpr COLORREF CLR_INVALID = 0xFFFFFFFF;
constexpr UINT GDI_ERROR = 0xFFFFFFFF;

// Regions: kinds of result and ways of combining.
constexpr int ERROR = 0;
constexpr int NULLREGION = 1;
constexpr int SIMPLEREGION = 2;
constexpr int COMPLEXREGION = 3;
constexpr int RGN_AND = 1;
constexpr int RGN_OR = 2;
constexpr int RGN_XOR = 3;
constexpr int RGN_DIFF = 4;
constexpr int RGN_COPY = 5;
constexpr DWORD RDH_RECTANGLES = 1;

// Raster operations with a pattern, a source and a destination.
constexpr DWORD SRCCOPY = 0x00CC0020;
constexpr DWORD SRCPAINT = 0x00EE0086;
constexpr DWORD SRCAND = 0x008800C6;
constexpr DWORD SRCINVERT = 0x00660046;
constexpr DWORD PATCOPY = 0x00F00021;
constexpr DWORD PATINVERT = 0x005A0049;
constexpr DWORD DSTINVERT = 0x00550009;
constexpr DWORD BLACKNESS = 0x00000042;
constexpr DWORD WHITENESS = 0x00FF0062;

// Bitmaps.
constexpr DWORD BI_RGB = 0;
constexpr DWORD BI_RLE8 = 1;
constexpr DWORD BI_RLE4 = 2;
constexpr DWORD BI_BITFIELDS = 3;
constexpr DWORD BI_JPEG = 4; // of pictures that are copied, as BI_PNG
constexpr DWORD BI_PNG = 5;
constexpr UINT DIB_RGB_COLORS = 0;
constexpr UINT DIB_PAL_COLORS = 1;
constexpr UINT DIB_PAL_INDICES = 2; // of a record only

// Text output.
constexpr UINT ETO_OPAQUE = 0x0002;
constexpr UINT ETO_CLIPPED = 0x0004;
constexpr UINT ETO_GLYPH_INDEX = 0x0010;
constexpr UINT ETO_RTLREADING = 0x0080;
constexpr UINT ETO_NO_RECT = 0x0100;
constexpr UINT ETO_SMALL_CHARS = 0x0200;
constexpr UINT ETO_PDY = 0x2000;
constexpr UINT DT_LEFT = 0x0000;
constexpr UINT DT_TOP = 0x0000;
constexpr UINT DT_CENTER = 0x0001;
constexpr UINT DT_RIGHT = 0x0002;
constexpr UINT DT_VCENTER = 0x0004;
constexpr UINT DT_BOTTOM = 0x0008;
constexpr UINT DT_WORDBREAK = 0x0010;
constexpr UINT DT_SINGLELINE = 0x0020;
constexpr UINT DT_EXPANDTABS = 0x0040;
constexpr UINT DT_TABSTOP = 0x0080;
constexpr UINT DT_NOCLIP = 0x0100;
constexpr UINT DT_EXTERNALLEADING = 0x0200;
constexpr UINT DT_CALCRECT = 0x0400;
constexpr UINT DT_NOPREFIX = 0x0800;
constexpr UINT DT_PATH_ELLIPSIS = 0x4000;
constexpr UINT DT_END_ELLIPSIS = 0x8000;
constexpr UINT DT_MODIFYSTRING = 0x00010000;
constexpr UINT DT_WORD_ELLIPSIS = 0x00040000;
constexpr UINT DT_HIDEPREFIX = 0x00100000;
constexpr UINT DT_PREFIXONLY = 0x00200000;

// Edges, flood fills, system colours.
constexpr UINT BDR_RAISEDOUTER = 0x0001;
constexpr UINT BDR_SUNKENOUTER = 0x0002;
constexpr UINT BDR_RAISEDINNER = 0x0004;
constexpr UINT BDR_SUNKENINNER = 0x0008;
constexpr UINT BF_LEFT = 0x0001;
constexpr UINT BF_TOP = 0x0002;
constexpr UINT BF_RIGHT = 0x0004;
constexpr UINT BF_BOTTOM = 0x0008;
constexpr UINT BF_RECT = 0x000F;
constexpr UINT BF_DIAGONAL = 0x0010;
constexpr UINT BF_DIAGONAL_ENDTOPRIGHT = BF_DIAGONAL | BF_TOP | BF_RIGHT;
constexpr UINT BF_DIAGONAL_ENDTOPLEFT = BF_DIAGONAL | BF_TOP | BF_LEFT;
constexpr UINT BF_DIAGONAL_ENDBOTTOMLEFT = BF_DIAGONAL | BF_BOTTOM | BF_LEFT;
constexpr UINT BF_DIAGONAL_ENDBOTTOMRIGHT = BF_DIAGONAL | BF_BOTTOM | BF_RIGHT;
constexpr UINT BF_MIDDLE = 0x0800;
constexpr UINT BF_SOFT = 0x1000;
constexpr UINT BF_ADJUST = 0x2000;
constexpr UINT BF_FLAT = 0x4000;
constexpr UINT BF_MONO = 0x8000;
constexpr UINT FLOODFILLBORDER = 0;
constexpr UINT FLOODFILLSURFACE = 1;
constexpr DWORD GR_GDIOBJECTS = 0;

// Errors of GetLastError.
constexpr DWORD ERROR_SUCCESS = 0;
constexpr DWORD ERROR_FILE_NOT_FOUND = 2;
constexpr DWORD ERROR_ACCESS_DENIED = 5;
constexpr DWORD ERROR_INVALID_HANDLE = 6;
constexpr DWORD ERROR_NOT_ENOUGH_MEMORY = 8;
constexpr DWORD ERROR_GEN_FAILURE = 31;
constexpr DWORD ERROR_NOT_SUPPORTED = 50;
constexpr DWORD ERROR_INVALID_PARAMETER = 87;
constexpr DWORD ERROR_INSUFFICIENT_BUFFER = 122;
constexpr DWORD ERROR_FILE_INVALID = 1006; // an empty file can't be mapped
