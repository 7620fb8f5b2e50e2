// A grey square as the bytes of an image file.
#pragma once

#include <cstdlib>
#include <string>
#include <vector>

#include "bitmapFile.h"
#include "sys/krnutil.h"

// Empty without the image library.
inline std::vector<unsigned char> encodedPicture(FREE_IMAGE_FORMAT format, std::size_t side, char grey = 0)
{
    FreeImageDesc library(false);
    std::string file = bitmapOf(std::string(3 * side * side, grey), 24, side);
    FIBITMAP* const bitmap = library.imageLoadFromMem(FIF_BMP, reinterpret_cast<unsigned char*>(file.data()),
                                                      static_cast<unsigned int>(file.size()));
    fiio_mem_handle_s encoded{};
    std::vector<unsigned char> bytes;
    if (library.imageSaveToMem(format, bitmap, &encoded)) {
        const auto* const data = static_cast<const unsigned char*>(encoded.data);
        bytes.assign(data, data + encoded.datalen);
    }
    std::free(encoded.data);
    library.imageUnload(bitmap);
    return bytes;
}

inline BITMAPINFO encodedHead(DWORD compression, LONG side, std::size_t length)
{
    BITMAPINFO info{};
    info.bmiHeader = {40, side, side, 1, 0, compression, static_cast<DWORD>(length), 0, 0, 0, 0};
    return info;
}
