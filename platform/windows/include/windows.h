// The part of the Windows interface that the module calls, for systems without one. Included as <windows.h>; on
// Windows the system's own takes its place.
//
// Names, layouts and results are those that the Windows documentation gives; where a function does less, its
// comment says so. Functions carry a private link name, so that a host with functions of the same names keeps its
// own. None of them throws or ends the process: a bad argument or exhausted memory gives the documented failure.
// All of them may be called from any thread; a device context belongs to one thread at a time.
#pragma once

// Types of these names cannot be declared twice, and macros of common words come out of X11's headers.
#if defined(FREEIMAGE_H)
#error "include surface's headers before FreeImage.h"
#include "the error above" // which ends the compilation here
#elif defined(X_PROTOCOL) || defined(XMD_H)
#error "include surface's headers before those of X11"
#include "the error above"
#endif

// By which FreeImage.h knows that these types are there, as on Windows.
#define _WINDOWS_ // NOLINT(bugprone-reserved-identifier): the name that Windows gives it

#include "windows/bitmaps.h"
#include "windows/constants.h"
#include "windows/contexts.h"
#include "windows/documents.h"
#include "windows/drawing.h"
#include "windows/files.h"
#include "windows/foreignRecords.h"
#include "windows/metafiles.h"
#include "windows/objects.h"
#include "windows/records.h"
#include "windows/strings.h"
#include "windows/text.h"
#include "windows/types.h"
