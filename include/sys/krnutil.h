// What the module needs of its utility layer: Base64, message texts, and images through the FreeImage library.
//
// Called by the back ends and players that handle images, and by whoever stamps page counts. Knows
// <windows.h> for the layout of a bitmap. FreeImage's own header stays out: it is found at run time, and a
// process without it loses its image conversions and nothing else. Every operation here may be called from
// any thread; one bitmap or memory stream belongs to one thread at a time.
#pragma once

#include <cstddef>

#include <windows.h>

#include "sys/surfaceExport.h"

// Base64 with the alphabet of RFC 4648, section 4, padded. `text` receives an allocated text without line
// breaks with a zero byte after it, `length` its characters without that byte; both go back by
// base64Free. The flag has no meaning here. Gives 0, or an error number when the text is longer than an int
// knows or there is no memory; `text` is null then and `length` 0.
SURFACE_API int base64Encode(unsigned char* data, unsigned int size, char*& text, int& length, bool flag);

// Decodes up to the first zero byte, passing over white space. Padding ends the data and may be missing.
// `data` receives an allocated block, `size` its bytes; null and 0 where the text holds none. Gives 0, or an
// error number: a foreign character ends the data as well, and what is before it is given; so is what
// is before a last character that makes no byte. Without memory nothing is given.
SURFACE_API int base64Decode(char* text, unsigned char*& data, int& size);

// Free what the two above allocated; null does nothing.
SURFACE_API void base64Free(char* text);
SURFACE_API void base64Free(unsigned char* data);

// Fetches a text of the message table into `buffer` of `size` bytes, cut where it does not fit and always
// terminated. Gives 0; anything else when there is no such message (the buffer is empty then) or no buffer.
// Message 15301 is the word between the two numbers of "1 of 3", "of" unless the host says otherwise; that text
// needs no memory. Never throws.
SURFACE_API int krnGetMessageText(int number, char* buffer, int size) noexcept;

// A host's text for a message, copied; null: there is no such message from now on. Throws KrnException when there is
// no memory for the copy; the message is then what it was.
SURFACE_API void krnSetMessageText(int number, const char* text);

// Where the image library is found, for hosts that bring their own and for tests that go without; null: under
// the name that the system knows it by. Tried by the next FreeImageDesc; those that exist keep what they have,
// and so do their bitmaps.
SURFACE_API void krnSetImageLibrary(const char* path);

// Image formats, by FreeImage's numbers; it has more of them, and all can come out of a look at the data.
enum FREE_IMAGE_FORMAT : int {
    FIF_UNKNOWN = -1,
    FIF_BMP = 0,
    FIF_ICO = 1,
    FIF_JPEG = 2,
    FIF_PNG = 13,
    FIF_TIFF = 18,
    FIF_GIF = 25
};

// A decoded bitmap and a stream over a block of memory, both FreeImage's.
struct FIBITMAP;
struct FIMEMORY;

// An encoded image in memory: the number of its bytes first, the block last.
struct fiio_mem_handle_s {
    long datalen;
    long filelen;
    long curpos;
    void* data;
};
static_assert(sizeof(fiio_mem_handle_s) == offsetof(fiio_mem_handle_s, data) + sizeof(void*));

struct ImageLibrary;

// FreeImage, loaded at the first use in the process. Make one wherever images are handled; that costs nothing.
// Null bitmaps and streams are answered with null, unknown or false. When the library is missing, everything
// is. Images come from strangers: what would take more than 256 MiB of pixels is refused as undecodable, and so
// are the rare formats whose decoders do not stand damaged data (JNG, MNG, IFF, RAS, PSD, XBM, XPM, PICT, JXR).
class SURFACE_API FreeImageDesc {
public:
    // The flag has no meaning here.
    explicit FreeImageDesc(bool flag);
    virtual ~FreeImageDesc();

    FreeImageDesc(const FreeImageDesc&) = delete;
    FreeImageDesc& operator=(const FreeImageDesc&) = delete;

    // Whether the library could be loaded.
    bool isProcLoaded() const;

    // A stream over the caller's bytes, which stay where they are; null without bytes.
    FIMEMORY* imageOpenMemory(unsigned char* data, int size);

    // The format by the data's first bytes; FIF_UNKNOWN when they are those of none. Size 0: the whole stream.
    FREE_IMAGE_FORMAT imageGetFileTypeFromMemory(FIMEMORY* memory, int size);

    void imageCloseMemory(FIMEMORY* memory);

    // Decodes an image. Bytes that are not of the stated format are decoded by their own signature. The result
    // is a standard bitmap of 4 or 8 bits with a colour table, or of 24 or 32 bits: more bits per channel and
    // floating point are reduced to 8 bits per channel, one bit per pixel and 16 bits per pixel widened. The fourth
    // bytes of a 32-bit Windows bitmap that has no alpha mask and 0 in all of them become 255, since such a picture
    // means to be seen; other formats keep a transparency of 0 throughout. Null on failure; else it goes back by
    // imageUnload.
    FIBITMAP* imageLoadFromMem(FREE_IMAGE_FORMAT format, unsigned char* data, unsigned int size);

    // The Windows header of the bitmap, after which colour table and pixels follow without a gap. It belongs
    // to the bitmap.
    BITMAPINFO* imageGetInfo(FIBITMAP* bitmap);

    // The pixels, bottom row first, rows padded to four bytes.
    unsigned char* imageGetBits(FIBITMAP* bitmap);

    // A new bitmap of 24 bits per pixel; the old one stays the caller's. Null on failure.
    FIBITMAP* imageConvertTo24Bits(FIBITMAP* bitmap);

    void imageUnload(FIBITMAP* bitmap);

    // Encodes the image. On success `handle` holds the bytes, which the caller frees with std::free, and their
    // number; otherwise it stays as it was.
    bool imageSaveToMem(FREE_IMAGE_FORMAT format, FIBITMAP* bitmap, fiio_mem_handle_s* handle);

private:
    const ImageLibrary* m_library;
};
