// The functions of FreeImage that are called, found in the library at run time.
//
// Found by ImageLibrary.cpp, called by FreeImageDesc.cpp alone. The types are those of krnutil.h; that FreeImage
// means the same by them is checked in ImageLibrary.cpp, the one place that includes FreeImage's own header.
#pragma once

#include "sys/krnutil.h"

#include "ImageReader.h"

// What a pixel of a bitmap is. Bitmaps of the first kind are what the Windows interface draws.
enum class PixelKind : int {
    Standard = 1,
    Uint16 = 2,
    Rgb16 = 9,
    Rgba16 = 10,
    RgbFloat = 11,
    RgbaFloat = 12
};

// For loadFromHandle: the header alone, where the format can do that.
constexpr int LoadNoPixels = 0x8000;

// Members are named as the functions are, without their "FreeImage_". Results of type BOOL are 0 for a failure,
// bitmaps and streams null.
struct ImageLibrary {
    FIMEMORY* (*openMemory)(BYTE* data, DWORD size);
    void (*closeMemory)(FIMEMORY* memory);
    BOOL (*acquireMemory)(FIMEMORY* memory, BYTE** data, DWORD* size);
    FREE_IMAGE_FORMAT (*getFileTypeFromMemory)(FIMEMORY* memory, int size);
    BOOL (*saveToMemory)(FREE_IMAGE_FORMAT format, FIBITMAP* bitmap, FIMEMORY* memory, int flags);

    FREE_IMAGE_FORMAT(*getFileTypeFromHandle)
    (krnutil::ImageReaderFunctions* functions, void* handle, int size);
    BOOL(*validateFromHandle)
    (FREE_IMAGE_FORMAT format, krnutil::ImageReaderFunctions* functions, void* handle);
    FIBITMAP* (*loadFromHandle)(FREE_IMAGE_FORMAT format, krnutil::ImageReaderFunctions* functions,
                                void* handle, int flags);
    BOOL (*fifSupportsNoPixels)(FREE_IMAGE_FORMAT format);
    BOOL (*fifSupportsExportBPP)(FREE_IMAGE_FORMAT format, int bits);
    int (*getFIFCount)();

    void (*unload)(FIBITMAP* bitmap);

    BITMAPINFO* (*getInfo)(FIBITMAP* bitmap);
    BYTE* (*getBits)(FIBITMAP* bitmap);
    PixelKind (*getImageType)(FIBITMAP* bitmap);

    FIBITMAP* (*convertTo8Bits)(FIBITMAP* bitmap);
    FIBITMAP* (*convertTo24Bits)(FIBITMAP* bitmap);
    FIBITMAP* (*convertTo32Bits)(FIBITMAP* bitmap);
    FIBITMAP* (*convertToStandardType)(FIBITMAP* bitmap, BOOL scaleLinear);
    FIBITMAP* (*toneMapping)(FIBITMAP* bitmap, int method, double first, double second);
};

// The library as it is set at the moment, loaded when that has not been tried yet; null when it is missing or
// lacks one of the functions. Once loaded it stays for as long as the process.
const ImageLibrary* currentImageLibrary();
