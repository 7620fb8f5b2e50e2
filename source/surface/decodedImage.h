// An encoded image in memory on its way to pixels: its format, and the bitmap that is unloaded in the end.
#pragma once

#include "sys/krnutil.h"

namespace drawing {

// By the data's own signature.
inline FREE_IMAGE_FORMAT formatOfData(FreeImageDesc& library, unsigned char* data, int size)
{
    FIMEMORY* const memory = library.imageOpenMemory(data, size);
    const FREE_IMAGE_FORMAT format = library.imageGetFileTypeFromMemory(memory, 0);
    library.imageCloseMemory(memory);
    return format;
}

// A decoded image, or null; unloaded with this.
class DecodedImage {
public:
    DecodedImage(FreeImageDesc& library, FIBITMAP* bitmap) : m_library(library), m_bitmap(bitmap) {}
    ~DecodedImage() { replace(nullptr); }
    DecodedImage(const DecodedImage&) = delete;
    DecodedImage& operator=(const DecodedImage&) = delete;

    FIBITMAP* get() const { return m_bitmap; }

    void replace(FIBITMAP* bitmap)
    {
        if (m_bitmap != nullptr) {
            m_library.imageUnload(m_bitmap);
        }
        m_bitmap = bitmap;
    }

private:
    FreeImageDesc& m_library;
    FIBITMAP* m_bitmap;
};

} // namespace drawing
