// Finds width and height in the bytes of an image without decoding it.
#include "ImageSize.h"

#include <algorithm>
#include <string_view>

namespace {

// The bytes of the image, looked at within their bounds only.
class ImageBytes {
public:
    ImageBytes(const unsigned char* data, std::size_t size) noexcept : _data(data), _size(size) {}

    bool has(std::size_t offset, std::size_t count) const noexcept
    {
        return offset <= _size && count <= _size - offset;
    }

    // 0 where the bytes end before.
    std::uint64_t number(std::size_t offset, std::size_t count, bool bigEndian) const noexcept
    {
        std::uint64_t value = 0;
        for (std::size_t i = 0; i < count && has(offset, count); ++i) {
            value = value << 8 | _data[bigEndian ? offset + i : offset + count - 1 - i];
        }
        return value;
    }

    std::uint64_t byte(std::size_t offset) const noexcept { return number(offset, 1, true); }

    std::string_view text() const noexcept { return {reinterpret_cast<const char*>(_data), _size}; }

private:
    const unsigned char* _data;
    std::size_t _size;
};

// Where a format keeps its size: so many bytes behind the start of a marker, which stands at the very start or,
// where parts of a file come in any order, anywhere. Of several markers the largest size counts, so that a
// small one put in front hides nothing.
struct SizeField {
    int format;
    std::string_view marker;
    bool anywhere;
    std::size_t width;
    std::size_t height;
    std::size_t bytes;
    bool bigEndian;
};

// FreeImage's numbers of formats that have no name in krnutil.h.
constexpr int lbm = 5;
constexpr int mng = 6;
constexpr int dds = 24;
constexpr int sgi = 28;
constexpr int j2k = 30;
constexpr int jp2 = 31;

constexpr std::string_view codestream("\xFF\x4F\xFF\x51", 4);
constexpr std::string_view sgiMagic("\x01\xDA", 2);

constexpr SizeField sizeFields[] = {
    {lbm, "BMHD", true, 8, 10, 2, true},     {mng, "IHDR", true, 4, 8, 4, true},
    {mng, "JHDR", true, 4, 8, 4, true},      {dds, "DDS ", false, 16, 12, 4, false},
    {sgi, sgiMagic, false, 6, 8, 2, true},   {j2k, codestream, true, 8, 12, 4, true},
    {jp2, codestream, true, 8, 12, 4, true},
};

std::uint64_t largestStatedBy(const SizeField& field, const ImageBytes& image)
{
    constexpr std::uint64_t bytesPerPixel = 4;
    std::uint64_t largest = 0;
    const std::string_view text = image.text();
    for (std::size_t at = text.find(field.marker); at != std::string_view::npos;
         at = text.find(field.marker, at + 1)) {
        if (!field.anywhere && at != 0) {
            break;
        }
        const std::uint64_t width = image.number(at + field.width, field.bytes, field.bigEndian);
        const std::uint64_t height = image.number(at + field.height, field.bytes, field.bigEndian);
        const bool overflows = width != 0 && height > UINT64_MAX / bytesPerPixel / width;
        largest = std::max(largest, overflows ? UINT64_MAX : width * height * bytesPerPixel);
    }
    return largest;
}

// The entries of a colour table whose presence and size a packed byte tells, in bytes.
std::size_t gifColourTableBytes(std::uint64_t packed) noexcept
{
    return (packed & 0x80) != 0 ? std::size_t{6} << (packed & 7) : 0;
}

// The first picture of the file, which is the one that is decoded; it need not be of the screen's size. One
// byte per pixel (GIF89a, sections 18 to 26).
std::uint64_t gifPixelBytes(const ImageBytes& image)
{
    constexpr std::uint64_t extension = 0x21;
    constexpr std::uint64_t picture = 0x2C;
    std::size_t at = 13 + gifColourTableBytes(image.byte(10));
    while (image.byte(at) == extension) {
        at += 2;
        while (image.byte(at) != 0) {
            at += 1 + image.byte(at);
        }
        ++at;
    }
    const bool found = image.byte(at) == picture;
    return found ? image.number(at + 5, 2, false) * image.number(at + 7, 2, false) : 0;
}

} // namespace

std::uint64_t statedPixelBytes(FREE_IMAGE_FORMAT format, const unsigned char* data, std::size_t size)
{
    const ImageBytes image(data, size);
    if (format == FIF_GIF) {
        return gifPixelBytes(image);
    }
    std::uint64_t largest = 0;
    for (const SizeField& field : sizeFields) {
        if (field.format == format) {
            largest = std::max(largest, largestStatedBy(field, image));
        }
    }
    return largest;
}
