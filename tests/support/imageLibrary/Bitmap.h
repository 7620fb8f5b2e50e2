// A decoded bitmap of the stand-in, and the formats that it reads and writes.
#pragma once

#include <windows.h>

#include <FreeImage.h>

#include <cstddef>
#include <cstring>
#include <memory>
#include <vector>

using Bytes = std::vector<BYTE>;

// Header, colour table and pixels in one block, rows from the bottom and padded to four bytes. Its sides are above 0.
struct Bitmap : FIBITMAP {
    // Without `hasPixels` there is the header only.
    Bitmap(LONG width, LONG height, unsigned int bits, std::size_t colors, bool hasPixels)
        : FIBITMAP{}, stride((static_cast<std::size_t>(width) * bits + 31) / 32 * 4)
    {
        const std::size_t pixelBytes = hasPixels ? stride * static_cast<std::size_t>(height) : 0;
        block.resize(sizeof(BITMAPINFOHEADER) + colors * sizeof(RGBQUAD) + pixelBytes);
        header().biSize = sizeof(BITMAPINFOHEADER);
        header().biWidth = width;
        header().biHeight = height;
        header().biPlanes = 1;
        header().biBitCount = static_cast<WORD>(bits);
        header().biClrUsed = static_cast<DWORD>(colors);
    }

    BITMAPINFOHEADER& header() { return reinterpret_cast<BITMAPINFOHEADER&>(*block.data()); }
    RGBQUAD* colors() { return reinterpret_cast<RGBQUAD*>(block.data() + sizeof(BITMAPINFOHEADER)); }
    BYTE* row(std::size_t fromBottom)
    {
        return reinterpret_cast<BYTE*>(colors() + header().biClrUsed) + fromBottom * stride;
    }
    std::size_t width() { return static_cast<std::size_t>(header().biWidth); }
    std::size_t height() { return static_cast<std::size_t>(header().biHeight); }
    unsigned int bits() { return header().biBitCount; }

    void makeGreyTable()
    {
        const std::size_t count = header().biClrUsed;
        for (std::size_t i = 0; i < count; ++i) {
            const auto value = static_cast<BYTE>(i * 255 / (count - 1));
            colors()[i] = {value, value, value, 0};
        }
    }

    std::size_t stride;
    Bytes block;
};
using OwnedBitmap = std::unique_ptr<Bitmap>;

// Null for what is damaged or has a form that these do not know.
OwnedBitmap readBitmapFile(const Bytes& file, bool withPixels);
OwnedBitmap readPng(const Bytes& file, bool withPixels);
// Bitmaps of 8, 24 and 32 bits; empty for others.
Bytes writtenPng(Bitmap& bitmap);
