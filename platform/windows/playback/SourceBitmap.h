// A bitmap of this layer with the pixels of one in a file, and the memory context that copies read it from.
#pragma once

#include <windows.h>

#include "FileDib.h"

namespace wingdi {

class SourceBitmap {
public:
    // A monochrome bitmap (whose colours are those of the contexts that use it), or a DIB section of the file's form.
    SourceBitmap(HDC target, const FileDib& dib, bool monochrome);
    SourceBitmap(const SourceBitmap&) = delete;
    SourceBitmap& operator=(const SourceBitmap&) = delete;
    ~SourceBitmap();

    // Null without memory.
    HBITMAP handle() const noexcept { return m_bitmap; }

private:
    HBITMAP m_bitmap = nullptr;
};

class SourceContext {
public:
    // Holds the bitmap; a transform that can't be undone counts as none.
    SourceContext(HDC target, const SourceBitmap& bitmap, const XFORM& transform, COLORREF background);
    SourceContext(const SourceContext&) = delete;
    SourceContext& operator=(const SourceContext&) = delete;
    ~SourceContext();

    HDC handle() const noexcept { return m_context; }

private:
    HDC m_context;
};

} // namespace wingdi
