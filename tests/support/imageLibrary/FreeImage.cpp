// The functions of FreeImage that the library calls, as its header declares them. The module checks sizes before it has
// pixels decoded.
#include "Bitmap.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <string_view>
#include <utility>

namespace {

struct Stream : FIMEMORY {
    Stream(const BYTE* source, DWORD size) : FIMEMORY{}, bytes(source, source + size) {}
    Bytes bytes;
};

Bytes bytesOf(FreeImageIO& io, fi_handle handle)
{
    io.seek_proc(handle, 0, SEEK_END);
    Bytes bytes(static_cast<std::size_t>(io.tell_proc(handle)));
    io.seek_proc(handle, 0, SEEK_SET);
    io.read_proc(bytes.data(), 1, static_cast<unsigned int>(bytes.size()), handle);
    return bytes;
}

FREE_IMAGE_FORMAT formatOf(const Bytes& bytes)
{
    constexpr std::pair<std::string_view, FREE_IMAGE_FORMAT> Signatures[] = {
        {"BM", FIF_BMP}, {"\x89PNG\r\n\x1A\n", FIF_PNG}, {"\xFF\xD8\xFF", FIF_JPEG}, {"GIF8", FIF_GIF}};
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    const auto* const found = std::find_if(std::begin(Signatures), std::end(Signatures),
                                           [&](const auto& entry) { return text.starts_with(entry.first); });
    return found != std::end(Signatures) ? found->second : FIF_UNKNOWN;
}

RGBQUAD pixelAt(Bitmap& bitmap, std::size_t x, const BYTE* row)
{
    switch (bitmap.bits()) {
    case 1:
        return bitmap.colors()[row[x / 8] >> (7 - x % 8) & 1];
    case 4:
        return bitmap.colors()[row[x / 2] >> (x % 2 == 0 ? 4 : 0) & 15];
    case 8:
        return bitmap.colors()[row[x]];
    case 16: {
        const int value = row[2 * x] | row[2 * x + 1] << 8;
        const auto channel = [value](int shift) {
            return static_cast<BYTE>((value >> shift & 31) * 255 / 31);
        };
        return {channel(0), channel(5), channel(10), 255};
    }
    default: {
        const std::size_t bytes = bitmap.bits() / 8;
        return {row[bytes * x], row[bytes * x + 1], row[bytes * x + 2],
                bytes == 4 ? row[bytes * x + 3] : static_cast<BYTE>(255)};
    }
    }
}

// `bytes` of a pixel: 1 for greys, 3 or 4.
FIBITMAP* converted(FIBITMAP* source, std::size_t bytes)
{
    auto& from = *static_cast<Bitmap*>(source);
    auto to = std::make_unique<Bitmap>(from.header().biWidth, from.header().biHeight,
                                       static_cast<unsigned int>(8 * bytes), bytes == 1 ? 256 : 0, true);
    if (bytes == 1) {
        to->makeGreyTable();
    }
    for (std::size_t y = 0; y < from.height(); ++y) {
        for (std::size_t x = 0; x < from.width(); ++x) {
            const RGBQUAD color = pixelAt(from, x, from.row(y));
            BYTE* const pixel = to->row(y) + x * bytes;
            if (bytes == 1) {
                *pixel =
                    static_cast<BYTE>((color.rgbRed * 54 + color.rgbGreen * 183 + color.rgbBlue * 19) / 256);
            } else {
                std::memcpy(pixel, &color, bytes);
            }
        }
    }
    return to.release();
}

} // namespace

FIMEMORY* DLL_CALLCONV FreeImage_OpenMemory(BYTE* data, DWORD size)
{
    return new Stream(data, size);
}

void DLL_CALLCONV FreeImage_CloseMemory(FIMEMORY* stream)
{
    delete static_cast<Stream*>(stream);
}

BOOL DLL_CALLCONV FreeImage_AcquireMemory(FIMEMORY* stream, BYTE** data, DWORD* size)
{
    Bytes& bytes = static_cast<Stream*>(stream)->bytes;
    *data = bytes.data();
    *size = static_cast<DWORD>(bytes.size());
    return TRUE;
}

FREE_IMAGE_FORMAT DLL_CALLCONV FreeImage_GetFileTypeFromMemory(FIMEMORY* stream, int)
{
    return formatOf(static_cast<Stream*>(stream)->bytes);
}

BOOL DLL_CALLCONV FreeImage_SaveToMemory(FREE_IMAGE_FORMAT format, FIBITMAP* bitmap, FIMEMORY* stream, int)
{
    Bytes& bytes = static_cast<Stream*>(stream)->bytes;
    bytes = format == FIF_PNG ? writtenPng(*static_cast<Bitmap*>(bitmap)) : Bytes();
    return bytes.empty() ? FALSE : TRUE;
}

FREE_IMAGE_FORMAT DLL_CALLCONV FreeImage_GetFileTypeFromHandle(FreeImageIO* io, fi_handle handle, int)
{
    return formatOf(bytesOf(*io, handle));
}

BOOL DLL_CALLCONV FreeImage_ValidateFromHandle(FREE_IMAGE_FORMAT format, FreeImageIO* io, fi_handle handle)
{
    return formatOf(bytesOf(*io, handle)) == format ? TRUE : FALSE;
}

FIBITMAP* DLL_CALLCONV FreeImage_LoadFromHandle(FREE_IMAGE_FORMAT format, FreeImageIO* io, fi_handle handle,
                                                int flags)
{
    const bool withPixels = (flags & FIF_LOAD_NOPIXELS) == 0;
    const Bytes bytes = bytesOf(*io, handle);
    switch (format) {
    case FIF_BMP:
        return readBitmapFile(bytes, withPixels).release();
    case FIF_PNG:
        return readPng(bytes, withPixels).release();
    default:
        return nullptr;
    }
}

BOOL DLL_CALLCONV FreeImage_FIFSupportsNoPixels(FREE_IMAGE_FORMAT)
{
    return TRUE;
}

BOOL DLL_CALLCONV FreeImage_FIFSupportsExportBPP(FREE_IMAGE_FORMAT format, int bits)
{
    return format == FIF_PNG && (bits == 8 || bits == 24 || bits == 32) ? TRUE : FALSE;
}

int DLL_CALLCONV FreeImage_GetFIFCount()
{
    return FIF_JXR + 1;
}

void DLL_CALLCONV FreeImage_Unload(FIBITMAP* bitmap)
{
    delete static_cast<Bitmap*>(bitmap);
}

BITMAPINFO* DLL_CALLCONV FreeImage_GetInfo(FIBITMAP* bitmap)
{
    return reinterpret_cast<BITMAPINFO*>(&static_cast<Bitmap*>(bitmap)->header());
}

BYTE* DLL_CALLCONV FreeImage_GetBits(FIBITMAP* bitmap)
{
    return static_cast<Bitmap*>(bitmap)->row(0);
}

FREE_IMAGE_TYPE DLL_CALLCONV FreeImage_GetImageType(FIBITMAP*)
{
    return FIT_BITMAP;
}

FIBITMAP* DLL_CALLCONV FreeImage_ConvertTo8Bits(FIBITMAP* bitmap)
{
    return converted(bitmap, 1);
}

FIBITMAP* DLL_CALLCONV FreeImage_ConvertTo24Bits(FIBITMAP* bitmap)
{
    return converted(bitmap, 3);
}

FIBITMAP* DLL_CALLCONV FreeImage_ConvertTo32Bits(FIBITMAP* bitmap)
{
    return converted(bitmap, 4);
}

FIBITMAP* DLL_CALLCONV FreeImage_ConvertToStandardType(FIBITMAP*, BOOL)
{
    return nullptr;
}

FIBITMAP* DLL_CALLCONV FreeImage_ToneMapping(FIBITMAP*, FREE_IMAGE_TMO, double, double)
{
    return nullptr;
}
