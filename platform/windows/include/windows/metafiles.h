// Enhanced metafiles of the Windows interface.
#pragma once

#include "windows/types.h"

extern "C" {

// A context that records. The reference device must be null (the screen), and so must file and description; the
// frame is in hundredths of a millimetre, null for the bounds of what is drawn.
SURFACE_API HDC WINAPI CreateEnhMetaFileA(HDC reference, LPCSTR file, const RECT* frame,
                                          LPCSTR description) __asm__("surface_CreateEnhMetaFileA");
// Ends the recording and the context; null on failure.
SURFACE_API HENHMETAFILE WINAPI CloseEnhMetaFile(HDC context) __asm__("surface_CloseEnhMetaFile");
// Gives the size in bytes; with a buffer of at least that size, copies the metafile. 0 on failure.
SURFACE_API UINT WINAPI GetEnhMetaFileBits(HENHMETAFILE metafile, UINT size,
                                           BYTE* buffer) __asm__("surface_GetEnhMetaFileBits");
// Copies the bytes, whose header is checked; null for bytes that begin no metafile.
SURFACE_API HENHMETAFILE WINAPI SetEnhMetaFileBits(UINT size,
                                                   const BYTE* bytes) __asm__("surface_SetEnhMetaFileBits");
SURFACE_API BOOL WINAPI DeleteEnhMetaFile(HENHMETAFILE metafile) __asm__("surface_DeleteEnhMetaFile");
// Draws the metafile with its frame on `rect` (logical units); the context's state is as before afterwards.
SURFACE_API BOOL WINAPI PlayEnhMetaFile(HDC context, HENHMETAFILE metafile,
                                        const RECT* rect) __asm__("surface_PlayEnhMetaFile");
SURFACE_API BOOL WINAPI GdiComment(HDC context, UINT size, const BYTE* data) __asm__("surface_GdiComment");

} // extern "C"
