// From an encoded image to its samples as page text: decoding, transparency, run lengths.
#include "surfacePSPrinter.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>

#include "PostScriptSamples.h"
#include "decodedImage.h"
#include "sys/errorNumbers.h"

using namespace drawing;
using namespace postscript;

namespace {

constexpr unsigned char NotTheMask = 1; // joins each alpha, so that only 0 and 1 become the mask value

constexpr std::uint32_t ShortestRun = 3;
constexpr std::uint32_t LongestRecord = 128; // bytes that one run or literal stands for
constexpr unsigned char EndOfStream = 128;

// Bytes from one row of a bitmap to the next, rows being padded to four bytes.
std::uint64_t strideOf(std::uint64_t width, std::uint64_t bits)
{
    return (width * bits + 31) / 32 * 4;
}

// The pixels of a bitmap, read as rows of a stated width, whatever the bitmap's own is. Both numbers are above 0.
class PixelRows {
public:
    PixelRows(FreeImageDesc& library, FIBITMAP* bitmap, int width, int height)
        : m_bits(library.imageGetBits(bitmap)), m_header(library.imageGetInfo(bitmap)->bmiHeader),
          m_width(static_cast<unsigned int>(width)), m_height(static_cast<unsigned int>(height)),
          m_transparent(m_header.biBitCount == WithTransparency), m_pixelSize(m_transparent ? 4 : 3),
          m_stride(strideOf(m_width, m_header.biBitCount))
    {
    }

    bool areWithinBitmap() const
    {
        const std::uint64_t size =
            static_cast<std::uint64_t>(m_header.biHeight) *
            strideOf(static_cast<std::uint64_t>(m_header.biWidth), m_header.biBitCount);
        return (m_height - 1) * m_stride + m_width * m_pixelSize <= size;
    }

    // A mask byte takes the place of the alpha.
    unsigned int sizeOfStream() const { return lengthIn32Bits(m_width * m_height * m_pixelSize); }

    // Blue, green and red become red, green and blue; the mask of a row goes in front of it.
    void write(char* out) const
    {
        for (std::uint64_t y = 0; y < m_height; ++y) {
            const unsigned char* const row = m_bits + y * m_stride;
            const unsigned char* const end = row + m_width * m_pixelSize;
            for (const unsigned char* pixel = row; m_transparent && pixel < end; pixel += m_pixelSize) {
                *out++ = static_cast<char>(pixel[3] | NotTheMask);
            }
            for (const unsigned char* pixel = row; pixel < end; pixel += m_pixelSize) {
                *out++ = static_cast<char>(pixel[2]);
                *out++ = static_cast<char>(pixel[1]);
                *out++ = static_cast<char>(pixel[0]);
            }
        }
    }

private:
    const unsigned char* m_bits; // bottom row first
    const BITMAPINFOHEADER& m_header;
    std::uint64_t m_width, m_height;
    bool m_transparent;
    std::uint64_t m_pixelSize;
    std::uint64_t m_stride;
};

// The first of three equal bytes; `end` when there are none.
unsigned char* nextRun(unsigned char* start, unsigned char* end)
{
    const std::ptrdiff_t length = end - start;
    std::ptrdiff_t third = 2;
    while (third < length) {
        if (start[third] != start[third - 1]) {
            third += 2; // no three that hold both of these are equal
        } else if (start[third - 1] != start[third - 2]) {
            ++third;
        } else {
            return start + (third - 2);
        }
    }
    return end;
}

std::uint32_t lengthOfRun(const unsigned char* run, const unsigned char* end)
{
    std::uint32_t length = 1;
    while (length < LongestRecord && run + length < end && run[length] == *run) {
        ++length;
    }
    return length;
}

} // namespace

unsigned int CSurfacePSPrinter::encodeImage(unsigned char* data, int size, int /*picType*/, bool compress,
                                            int width, int height, bool, TovoTextString* out, int& bits)
{
    FreeImageDesc library(false);
    if (!library.isProcLoaded()) {
        return krnError::ImageLibraryMissing;
    }
    if (data == nullptr || size <= 0 || width <= 0 || height <= 0) {
        return krnError::NotConverted;
    }
    DecodedImage bitmap(library, library.imageLoadFromMem(formatOfData(library, data, size), data,
                                                          static_cast<unsigned int>(size)));
    if (bitmap.get() == nullptr) {
        return krnError::NotConverted;
    }
    bits = library.imageGetInfo(bitmap.get())->bmiHeader.biBitCount;
    if (bits != WithTransparency) {
        bitmap.replace(library.imageConvertTo24Bits(bitmap.get()));
        if (bitmap.get() == nullptr) {
            return krnError::NotConverted;
        }
    }
    const PixelRows pixels(library, bitmap.get(), width, height);
    if (!pixels.areWithinBitmap()) {
        return krnError::NotConverted;
    }
    try {
        TovoBinaryString stream;
        stream.setLength(pixels.sizeOfStream());
        pixels.write(stream.data());
        if (compress) {
            TovoBinaryString compressed;
            RLECompress(&stream, &compressed);
            stream = std::move(compressed);
        }
        TovoTextString text;
        appendHexadecimal(text, std::string_view(stream.data(), stream.length()));
        *out = std::move(text);
    } catch (const KrnException&) {
        return krnError::NoMemory;
    }
    return 0;
}

// Runs are of three bytes and more; shorter repeats cost less inside a literal.
unsigned int CSurfacePSPrinter::RLECompress(TovoBinaryString* in, TovoBinaryString* out)
{
    const std::uint32_t length = in->length();
    out->empty();
    if (length < ShortestRun) {
        return 0;
    }
    // One byte more for each full literal, and at most two for what comes last and the end.
    out->setLength(lengthIn32Bits(std::uint64_t{length} + length / LongestRecord + 2));
    unsigned char* const stream = reinterpret_cast<unsigned char*>(out->data());
    unsigned char* at = stream;
    unsigned char* start = reinterpret_cast<unsigned char*>(in->data());
    unsigned char* const end = start + length;
    while (start < end) {
        unsigned char* const run = nextRun(start, end);
        while (start < run) {
            const auto count = static_cast<short>(std::min<std::ptrdiff_t>(run - start, LongestRecord));
            encodeLiteral(&at, start, count);
            start += count;
        }
        if (run < end) {
            const auto count = static_cast<short>(lengthOfRun(run, end));
            encodeRun(&at, run, count);
            start += count;
        }
    }
    *at++ = EndOfStream;
    out->setLength(static_cast<unsigned int>(at - stream));
    return 0;
}

void CSurfacePSPrinter::encodeRun(unsigned char** out, unsigned char* source, short count)
{
    *(*out)++ = static_cast<unsigned char>(257 - count);
    *(*out)++ = *source;
}

void CSurfacePSPrinter::encodeLiteral(unsigned char** out, unsigned char* source, short count)
{
    *(*out)++ = static_cast<unsigned char>(count - 1);
    std::memcpy(*out, source, static_cast<std::size_t>(count));
    *out += count;
}
