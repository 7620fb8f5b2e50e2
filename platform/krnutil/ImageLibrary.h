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
    FIMEMORY*(WINAPI* openMemory)(BYTE* data, DWORD size);
    void(WINAPI* closeMemory)(FIMEMORY* memory);
    BOOL(WINAPI* acquireMemory)(FIMEMORY* memory, BYTE** data, DWORD* size);
    FREE_IMAGE_FORMAT(WINAPI* getFileTypeFromMemory)(FIMEMORY* memory, int size);
    BOOL(WINAPI* saveToMemory)(FREE_IMAGE_FORMAT format, FIBITMAP* bitmap, FIMEMORY* memory, int flags);

    FREE_IMAGE_FORMAT(WINAPI* getFileTypeFromHandle)
    (krnutil::ImageReaderFunctions* functions, void* handle, int size);
    BOOL(WINAPI* validateFromHandle)
    (FREE_IMAGE_FORMAT format, krnutil::ImageReaderFunctions* functions, void* handle);
    FIBITMAP*(WINAPI* loadFromHandle)(FREE_IMAGE_FORMAT format, krnutil::ImageReaderFunctions* functions,
                                      void* handle, int flags);
    BOOL(WINAPI* fifSupportsNoPixels)(FREE_IMAGE_FORMAT format);
    BOOL(WINAPI* fifSupportsExportBPP)(FREE_IMAGE_FORMAT format, int bits);
    int(WINAPI* getFIFCount)();

    void(WINAPI* unload)(FIBITMAP* bitmap);

    BITMAPINFO*(WINAPI* getInfo)(FIBITMAP* bitmap);
    BYTE*(WINAPI* getBits)(FIBITMAP* bitmap);
    PixelKind(WINAPI* getImageType)(FIBITMAP* bitmap);

    FIBITMAP*(WINAPI* convertTo8Bits)(FIBITMAP* bitmap);
    FIBITMAP*(WINAPI* convertTo24Bits)(FIBITMAP* bitmap);
    FIBITMAP*(WINAPI* convertTo32Bits)(FIBITMAP* bitmap);
    FIBITMAP*(WINAPI* convertToStandardType)(FIBITMAP* bitmap, BOOL scaleLinear);
    FIBITMAP*(WINAPI* toneMapping)(FIBITMAP* bitmap, int method, double first, double second);
};

// The library as it is set at the moment, loaded when that has not been tried yet; null when it is missing or
// lacks one of the functions. Once loaded it stays for as long as the process.
const ImageLibrary* currentImageLibrary();
