// FreeImageDesc: images decoded, converted and encoded by FreeImage, with the care that bytes from strangers ask
// for.
//
// Called by the surfaces that take images in. The functions of the library come from ImageLibrary.h.
#include "sys/krnutil.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "BitmapAlpha.h"
#include "ImageLibrary.h"
#include "ImageReader.h"
#include "ImageScreening.h"

using namespace krnutil;

namespace {

constexpr std::uint64_t MostPixelBytes = std::uint64_t{256} << 20;

// FreeImage is C++ behind a C interface: what its decoders do not catch, exhausted memory above all, comes
// through, and counts as a failure here.
template <typename Result, typename Call>
Result guarded(Result failure, Call call) noexcept
{
    try {
        return call();
    } catch (...) {
        return failure;
    }
}

// An empty stream to write to, closed at the end.
class MemoryStream {
public:
    explicit MemoryStream(const ImageLibrary& library)
        : m_library(library), m_memory(library.openMemory(nullptr, 0))
    {
    }
    ~MemoryStream() { m_library.closeMemory(m_memory); }

    MemoryStream(const MemoryStream&) = delete;
    MemoryStream& operator=(const MemoryStream&) = delete;

    FIMEMORY* get() const noexcept { return m_memory; }

private:
    const ImageLibrary& m_library;
    FIMEMORY* m_memory;
};

// A bitmap that is unloaded at the end, unless it was handed on.
class OwnedBitmap {
public:
    OwnedBitmap(const ImageLibrary& library, FIBITMAP* bitmap) noexcept : m_library(library), m_bitmap(bitmap)
    {
    }
    ~OwnedBitmap() { reset(nullptr); }

    OwnedBitmap(const OwnedBitmap&) = delete;
    OwnedBitmap& operator=(const OwnedBitmap&) = delete;

    FIBITMAP* get() const noexcept { return m_bitmap; }

    void reset(FIBITMAP* bitmap)
    {
        if (m_bitmap != nullptr) {
            m_library.unload(m_bitmap);
        }
        m_bitmap = bitmap;
    }

    FIBITMAP* release() noexcept
    {
        FIBITMAP* const bitmap = m_bitmap;
        m_bitmap = nullptr;
        return bitmap;
    }

private:
    const ImageLibrary& m_library;
    FIBITMAP* m_bitmap;
};

// How bitmaps that Windows has no form for become ones that it has; `fromBits` 0 stands for any. One bit per
// pixel is among them because so small a colour table leaves a gap before the pixels, and 16 bits because of
// the colour masks there.
struct Reduction {
    PixelKind kind;
    unsigned int fromBits;
    unsigned int toBits;
    FIBITMAP* (*convert)(const ImageLibrary& library, FIBITMAP* bitmap);
};

FIBITMAP* toneMapped(const ImageLibrary& library, FIBITMAP* bitmap)
{
    constexpr int AdaptiveLogarithmic = 0;
    return library.toneMapping(bitmap, AdaptiveLogarithmic, 0, 0);
}

FIBITMAP* to8Bits(const ImageLibrary& library, FIBITMAP* bitmap)
{
    return library.convertTo8Bits(bitmap);
}

FIBITMAP* to24Bits(const ImageLibrary& library, FIBITMAP* bitmap)
{
    return library.convertTo24Bits(bitmap);
}

FIBITMAP* to32Bits(const ImageLibrary& library, FIBITMAP* bitmap)
{
    return library.convertTo32Bits(bitmap);
}

constexpr Reduction Reductions[] = {
    {PixelKind::Standard, 1, 8, to8Bits},      {PixelKind::Standard, 16, 24, to24Bits},
    {PixelKind::Uint16, 0, 8, to8Bits},        {PixelKind::Rgb16, 0, 24, to24Bits},
    {PixelKind::Rgba16, 0, 32, to32Bits},      {PixelKind::RgbFloat, 0, 24, toneMapped},
    {PixelKind::RgbaFloat, 0, 24, toneMapped},
};

// All other kinds are numbers without a range of their own, shown from their darkest to their brightest.
constexpr Reduction Stretched = {PixelKind::Standard, 0, 8,
                                 [](const ImageLibrary& library, FIBITMAP* bitmap) {
                                     return library.convertToStandardType(bitmap, TRUE);
                                 }};

const BITMAPINFOHEADER& headerOf(const ImageLibrary& library, FIBITMAP* bitmap)
{
    return library.getInfo(bitmap)->bmiHeader;
}

// Null when the bitmap can stay as it is.
const Reduction* reductionFor(const ImageLibrary& library, FIBITMAP* bitmap)
{
    const PixelKind kind = library.getImageType(bitmap);
    const unsigned int bits = headerOf(library, bitmap).biBitCount;
    for (const Reduction& reduction : Reductions) {
        if (reduction.kind == kind && (reduction.fromBits == 0 || reduction.fromBits == bits)) {
            return &reduction;
        }
    }
    return kind == PixelKind::Standard ? nullptr : &Stretched;
}

bool fits(const ImageLibrary& library, FIBITMAP* bitmap, unsigned int bits)
{
    const BITMAPINFOHEADER& header = headerOf(library, bitmap);
    const auto width = static_cast<std::uint64_t>(std::int64_t{header.biWidth});
    const auto height = static_cast<std::uint64_t>(std::int64_t{header.biHeight});
    constexpr std::uint64_t Longest = INT32_MAX;
    return bits != 0 && width <= Longest && height <= Longest &&
           (width == 0 || height <= MostPixelBytes * 8 / bits / width);
}

// Whether there is room for the pixels as they are and as they become.
bool fitsReduced(const ImageLibrary& library, FIBITMAP* bitmap)
{
    const Reduction* const reduction = reductionFor(library, bitmap);
    return fits(library, bitmap, headerOf(library, bitmap).biBitCount) &&
           (reduction == nullptr || fits(library, bitmap, reduction->toBits));
}

bool isFormat(const ImageLibrary& library, FREE_IMAGE_FORMAT format)
{
    return format > FIF_UNKNOWN && format < library.getFIFCount();
}

FIBITMAP* load(const ImageLibrary& library, FREE_IMAGE_FORMAT format, ImageReader& reader, int flags)
{
    ImageReaderFunctions functions = ImageReader::functions();
    reader.rewind();
    return library.loadFromHandle(format, &functions, &reader, flags);
}

FREE_IMAGE_FORMAT actualFormat(const ImageLibrary& library, FREE_IMAGE_FORMAT stated, ImageReader& reader)
{
    ImageReaderFunctions functions = ImageReader::functions();
    if (isFormat(library, stated) && library.validateFromHandle(stated, &functions, &reader) != 0) {
        return stated;
    }
    reader.rewind();
    return library.getFileTypeFromHandle(&functions, &reader, 0);
}

// Before anything of the image's size is allocated.
bool isDecodable(const ImageLibrary& library, FREE_IMAGE_FORMAT format, ImageReader& reader)
{
    if (!isSoundDecoder(format) || !hasSoundHeader(format, reader.data(), reader.size())) {
        return false;
    }
    if (library.fifSupportsNoPixels(format) == 0) {
        return statedPixelBytes(format, reader.data(), reader.size()) <= MostPixelBytes;
    }
    const OwnedBitmap header(library, load(library, format, reader, LoadNoPixels));
    return header.get() != nullptr && fitsReduced(library, header.get());
}

// A Windows bitmap of 32 bits whose file says nothing of alpha stays at 32 bits, and is seen.
void makeVisible(const ImageLibrary& library, FREE_IMAGE_FORMAT format, const ImageReader& reader,
                 FIBITMAP* bitmap)
{
    const BITMAPINFOHEADER& header = headerOf(library, bitmap);
    if (format == FIF_BMP && header.biBitCount == 32 && library.getImageType(bitmap) == PixelKind::Standard &&
        !hasAlphaMask(reader.data(), reader.size())) {
        // The bitmap fits, so that its sides are small positive numbers.
        makeOpaqueIfUnused(library.getBits(bitmap), static_cast<std::size_t>(header.biWidth) *
                                                        static_cast<std::size_t>(header.biHeight));
    }
}

FIBITMAP* decoded(const ImageLibrary& library, FREE_IMAGE_FORMAT stated, const unsigned char* data,
                  unsigned int size)
{
    ImageReader reader(data, size);
    const FREE_IMAGE_FORMAT format = actualFormat(library, stated, reader);
    if (!isFormat(library, format) || !isDecodable(library, format, reader)) {
        return nullptr;
    }
    OwnedBitmap bitmap(library, load(library, format, reader, 0));
    if (bitmap.get() == nullptr || !fitsReduced(library, bitmap.get())) {
        return nullptr;
    }
    makeVisible(library, format, reader, bitmap.get());
    if (const Reduction* const reduction = reductionFor(library, bitmap.get()); reduction != nullptr) {
        bitmap.reset(reduction->convert(library, bitmap.get()));
    }
    return bitmap.release();
}

bool encoded(const ImageLibrary& library, FREE_IMAGE_FORMAT format, FIBITMAP* bitmap,
             fiio_mem_handle_s* handle)
{
    // Not all encoders look whether they can take the bitmap.
    if (library.fifSupportsExportBPP(format, headerOf(library, bitmap).biBitCount) == 0) {
        return false;
    }
    const MemoryStream stream(library);
    BYTE* bytes = nullptr;
    DWORD size = 0;
    if (stream.get() == nullptr || library.saveToMemory(format, bitmap, stream.get(), 0) == 0 ||
        library.acquireMemory(stream.get(), &bytes, &size) == 0 || size == 0) {
        return false;
    }
    void* const block = std::malloc(size);
    if (block == nullptr) {
        return false;
    }
    std::memcpy(block, bytes, size);
    handle->datalen = static_cast<long>(size);
    handle->data = block;
    return true;
}

} // namespace

FreeImageDesc::FreeImageDesc(bool) : m_library(currentImageLibrary()) {}

FreeImageDesc::~FreeImageDesc() = default;

bool FreeImageDesc::isProcLoaded() const
{
    return m_library != nullptr;
}

FIMEMORY* FreeImageDesc::imageOpenMemory(unsigned char* data, int size)
{
    if (m_library == nullptr || data == nullptr || size <= 0) {
        return nullptr;
    }
    return guarded<FIMEMORY*>(nullptr,
                              [=, this] { return m_library->openMemory(data, static_cast<DWORD>(size)); });
}

FREE_IMAGE_FORMAT FreeImageDesc::imageGetFileTypeFromMemory(FIMEMORY* memory, int size)
{
    if (m_library == nullptr || memory == nullptr) {
        return FIF_UNKNOWN;
    }
    return guarded(FIF_UNKNOWN, [=, this] { return m_library->getFileTypeFromMemory(memory, size); });
}

void FreeImageDesc::imageCloseMemory(FIMEMORY* memory)
{
    if (m_library != nullptr && memory != nullptr) {
        m_library->closeMemory(memory);
    }
}

FIBITMAP* FreeImageDesc::imageLoadFromMem(FREE_IMAGE_FORMAT format, unsigned char* data, unsigned int size)
{
    if (m_library == nullptr || data == nullptr || size == 0) {
        return nullptr;
    }
    return guarded<FIBITMAP*>(nullptr, [=, this] { return decoded(*m_library, format, data, size); });
}

BITMAPINFO* FreeImageDesc::imageGetInfo(FIBITMAP* bitmap)
{
    return m_library != nullptr && bitmap != nullptr ? m_library->getInfo(bitmap) : nullptr;
}

unsigned char* FreeImageDesc::imageGetBits(FIBITMAP* bitmap)
{
    return m_library != nullptr && bitmap != nullptr ? m_library->getBits(bitmap) : nullptr;
}

FIBITMAP* FreeImageDesc::imageConvertTo24Bits(FIBITMAP* bitmap)
{
    if (m_library == nullptr || bitmap == nullptr || !fits(*m_library, bitmap, 24)) {
        return nullptr;
    }
    return guarded<FIBITMAP*>(nullptr, [=, this] { return m_library->convertTo24Bits(bitmap); });
}

void FreeImageDesc::imageUnload(FIBITMAP* bitmap)
{
    if (m_library != nullptr && bitmap != nullptr) {
        m_library->unload(bitmap);
    }
}

bool FreeImageDesc::imageSaveToMem(FREE_IMAGE_FORMAT format, FIBITMAP* bitmap, fiio_mem_handle_s* handle)
{
    if (m_library == nullptr || bitmap == nullptr || handle == nullptr || !isFormat(*m_library, format)) {
        return false;
    }
    return guarded(false, [=, this] { return encoded(*m_library, format, bitmap, handle); });
}
