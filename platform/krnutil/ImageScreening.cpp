// Finds sizes in the bytes of an image without decoding it.
#include "ImageScreening.h"

#include <algorithm>
#include <bit>
#include <iterator>
#include <string_view>

namespace krnutil {

namespace {

// The bytes of the image, looked at within their bounds only.
class ImageBytes {
public:
    ImageBytes(const unsigned char* data, std::size_t size) noexcept : m_data(data), m_size(size) {}

    bool has(std::size_t offset, std::size_t count) const noexcept
    {
        return offset <= m_size && count <= m_size - offset;
    }

    // 0 where the bytes end before.
    std::uint64_t number(std::size_t offset, std::size_t count, bool bigEndian) const noexcept
    {
        std::uint64_t value = 0;
        for (std::size_t i = 0; i < count && has(offset, count); ++i) {
            value = value << 8 | m_data[bigEndian ? offset + i : offset + count - 1 - i];
        }
        return value;
    }

    std::uint64_t byte(std::size_t offset) const noexcept { return number(offset, 1, true); }

    std::string_view text() const noexcept { return {reinterpret_cast<const char*>(m_data), m_size}; }

private:
    const unsigned char* m_data;
    std::size_t m_size;
};

// Where a format keeps its size: so many bytes after the start of a marker, which is at the very start or,
// where parts of a file come in any order, anywhere. Of several markers the largest size counts, so that a
// small one put in front hides nothing.
struct SizeField {
    std::string_view marker;
    std::size_t width;
    std::size_t height;
    std::size_t bytes;
    int format;
    bool anywhere;
    bool bigEndian;
};

// FreeImage's numbers of formats that have no name in krnutil.h.
constexpr int Jng = 3;
constexpr int Lbm = 5;
constexpr int Mng = 6;
constexpr int Ras = 16;
constexpr int Psd = 20;
constexpr int Xbm = 22;
constexpr int Xpm = 23;
constexpr int Dds = 24;
constexpr int Sgi = 28;
constexpr int J2k = 30;
constexpr int Jp2 = 31;
constexpr int Pict = 33;
constexpr int Jxr = 36;

constexpr int UnsoundDecoders[] = {Jng, Lbm, Mng, Ras, Psd, Xbm, Xpm, Pict, Jxr};

constexpr std::string_view Codestream("\xFF\x4F\xFF\x51", 4);
constexpr std::string_view SgiMagic("\x01\xDA", 2);

constexpr SizeField SizeFields[] = {
    {"DDS ", 16, 12, 4, Dds, false, false},
    {SgiMagic, 6, 8, 2, Sgi, false, true},
    {Codestream, 8, 12, 4, J2k, true, true},
    {Codestream, 8, 12, 4, Jp2, true, true},
};

std::uint64_t largestStatedBy(const SizeField& field, const ImageBytes& image)
{
    constexpr std::uint64_t BytesPerPixel = 4;
    std::uint64_t largest = 0;
    const std::string_view text = image.text();
    for (std::size_t at = text.find(field.marker); at != std::string_view::npos;
         at = text.find(field.marker, at + 1)) {
        if (!field.anywhere && at != 0) {
            break;
        }
        const std::uint64_t width = image.number(at + field.width, field.bytes, field.bigEndian);
        const std::uint64_t height = image.number(at + field.height, field.bytes, field.bigEndian);
        const bool overflows = width != 0 && height > UINT64_MAX / BytesPerPixel / width;
        largest = std::max(largest, overflows ? UINT64_MAX : width * height * BytesPerPixel);
    }
    return largest;
}

// The entries of a colour table whose presence and size are in a packed byte, in bytes.
std::size_t gifColourTableBytes(std::uint64_t packed) noexcept
{
    return (packed & 0x80) != 0 ? std::size_t{6} << (packed & 7) : 0;
}

// The first picture of the file, which is the one that is decoded; it need not be of the screen's size. One
// byte per pixel (GIF89a, sections 18 to 26).
std::uint64_t gifPixelBytes(const ImageBytes& image)
{
    constexpr std::uint64_t Extension = 0x21;
    constexpr std::uint64_t Picture = 0x2C;
    std::size_t at = 13 + gifColourTableBytes(image.byte(10));
    while (image.byte(at) == Extension) {
        at += 2;
        while (image.byte(at) != 0) {
            at += 1 + static_cast<std::size_t>(image.byte(at));
        }
        ++at;
    }
    const bool found = image.byte(at) == Picture;
    return found ? image.number(at + 5, 2, false) * image.number(at + 7, 2, false) : 0;
}

// The directory entry of the first picture leads to it: a PNG or a bitmap header. Its height counts both masks.
bool hasSoundIcon(const ImageBytes& image)
{
    constexpr std::uint64_t PngSignature = 0x89504E47;
    constexpr std::uint64_t LargestSide = 0x7FFF;
    const auto picture = static_cast<std::size_t>(image.number(18, 4, false));
    if (image.number(picture, 4, true) == PngSignature) {
        return true;
    }
    const std::uint64_t width = image.number(picture + 4, 4, false);
    const std::uint64_t height = image.number(picture + 8, 4, false) / 2;
    const std::uint64_t bits = image.number(picture + 14, 2, false);
    const bool hasSides = width - 1 < LargestSide && height - 1 < LargestSide;
    return hasSides && (bits == 1 || bits == 4 || bits == 8 || bits == 16 || bits == 24 || bits == 32);
}

// A value of the tag in the first directory (TIFF 6.0, section 2): the first one where it has several, `absent`
// where there is none, `doubtful` where it occurs twice or its values differ.
constexpr std::uint64_t Doubtful = UINT64_MAX;

std::uint64_t tiffValue(const ImageBytes& image, bool bigEndian, std::uint64_t tag, std::uint64_t absent)
{
    constexpr std::uint64_t MostValues = 8;
    const auto directory = static_cast<std::size_t>(image.number(4, 4, bigEndian));
    const std::uint64_t entries = image.number(directory, 2, bigEndian);
    std::uint64_t value = absent;
    bool found = false;
    for (std::size_t entry = directory + 2; entry < directory + 2 + entries * 12; entry += 12) {
        if (image.number(entry, 2, bigEndian) != tag) {
            continue;
        }
        const std::uint64_t count = image.number(entry + 4, 4, bigEndian);
        if (found || count == 0 || count > MostValues || image.number(entry + 2, 2, bigEndian) != 3) {
            return Doubtful;
        }
        found = true;
        const auto values =
            count <= 2 ? entry + 8 : static_cast<std::size_t>(image.number(entry + 8, 4, bigEndian));
        value = image.number(values, 2, bigEndian);
        for (std::size_t i = 1; i < count; ++i) {
            if (image.number(values + 2 * i, 2, bigEndian) != value) {
                return Doubtful;
            }
        }
    }
    return value;
}

bool hasSoundSamples(const ImageBytes& image)
{
    constexpr std::uint64_t BitsPerSample = 258;
    constexpr std::uint64_t SamplesPerPixel = 277;
    const bool bigEndian = image.byte(0) == 'M';
    const std::uint64_t bits = tiffValue(image, bigEndian, BitsPerSample, 1);
    // Where it is missing at 8 bits, FreeImage reads past the end of a strip.
    const std::uint64_t samples = tiffValue(image, bigEndian, SamplesPerPixel, bits == 8 ? Doubtful : 1);
    if (image.number(2, 2, bigEndian) != 42 || bits > 64 || !std::has_single_bit(bits)) {
        return false;
    }
    return samples == 1 || (samples >= 2 && samples <= 4 && bits >= 8 && bits <= 32);
}

} // namespace

std::uint64_t statedPixelBytes(FREE_IMAGE_FORMAT format, const unsigned char* data, std::size_t size)
{
    const ImageBytes image(data, size);
    if (format == FIF_GIF) {
        return gifPixelBytes(image);
    }
    std::uint64_t largest = 0;
    for (const SizeField& field : SizeFields) {
        if (field.format == format) {
            largest = std::max(largest, largestStatedBy(field, image));
        }
    }
    return largest;
}

bool isSoundDecoder(FREE_IMAGE_FORMAT format)
{
    return std::find(std::begin(UnsoundDecoders), std::end(UnsoundDecoders), format) ==
           std::end(UnsoundDecoders);
}

bool hasSoundHeader(FREE_IMAGE_FORMAT format, const unsigned char* data, std::size_t size)
{
    const ImageBytes image(data, size);
    return format == FIF_ICO ? hasSoundIcon(image) : format != FIF_TIFF || hasSoundSamples(image);
}

} // namespace krnutil
