#include "EncodedPicture.h"

#include <cstdlib>
#include <cstring>

#include "sys/krnutil.h"

namespace wingdi {

namespace {

class Decoded {
public:
    Decoded(FreeImageDesc& library, FIBITMAP* bitmap) noexcept : m_library(library), m_bitmap(bitmap) {}
    Decoded(const Decoded&) = delete;
    Decoded& operator=(const Decoded&) = delete;
    ~Decoded() { m_library.imageUnload(m_bitmap); }

    FIBITMAP* get() const noexcept { return m_bitmap; }

private:
    FreeImageDesc& m_library;
    FIBITMAP* m_bitmap;
};

std::shared_ptr<Bitmap> bitmapOf(const BITMAPINFOHEADER& info, const BYTE* bits, const DibHead& head)
{
    constexpr int ColorBytes = 3;
    if (info.biWidth != head.width || std::abs(info.biHeight) != head.height || bits == nullptr) {
        return nullptr;
    }
    std::shared_ptr<Bitmap> bitmap = Bitmap::create(head.width, head.height, 32, false, false);
    const std::ptrdiff_t stride = (std::ptrdiff_t{ColorBytes} * head.width + 3) / 4 * 4;
    for (int y = 0; bitmap && y < head.height; ++y) {
        const BYTE* from = bits + stride * (info.biHeight > 0 ? head.height - 1 - y : y);
        BYTE* to = bitmap->row(y);
        for (int x = 0; x < head.width; ++x, from += ColorBytes, to += sizeof(DWORD)) {
            std::memcpy(to, from, ColorBytes);
        }
    }
    return bitmap;
}

} // namespace

std::shared_ptr<Bitmap> decodePicture(const DibHead& head, std::span<const BYTE> data)
{
    FreeImageDesc library(false);
    std::vector<BYTE> copy(data.begin(), data.end()); // the library takes no constant data
    const Decoded decoded(library,
                          library.imageLoadFromMem(head.compression == BI_JPEG ? FIF_JPEG : FIF_PNG,
                                                   copy.data(), static_cast<unsigned int>(copy.size())));
    const Decoded colors(library, library.imageConvertTo24Bits(decoded.get()));
    const BITMAPINFO* const info = library.imageGetInfo(colors.get());
    return info == nullptr ? nullptr : bitmapOf(info->bmiHeader, library.imageGetBits(colors.get()), head);
}

bool isCommonJpeg(std::span<const BYTE> data, int width, int height) noexcept
{
    constexpr BYTE Mark = 0xFF;
    constexpr BYTE FirstFrame = 0xC0; // baseline, extended and progressive: C0 to C2
    constexpr BYTE LastFrame = 0xC2;
    constexpr BYTE Tables = 0xC4;
    constexpr BYTE OtherFrames = 0xCF;
    constexpr BYTE Scan = 0xDA;
    constexpr std::size_t FrameBytes = 10; // up to the number of components
    const auto number = [&data](std::size_t at) {
        return data[at] << 8 | data[at + 1];
    };
    if (data.size() < 2 || number(0) != 0xFFD8) {
        return false;
    }
    for (std::size_t at = 2; at + FrameBytes <= data.size() && data[at] == Mark;) {
        const BYTE kind = data[at + 1];
        if (kind >= FirstFrame && kind <= LastFrame) {
            const BYTE components = data[at + 9];
            return data[at + 4] == 8 && number(at + 5) == height && number(at + 7) == width &&
                   (components == 1 || components == 3);
        }
        if ((kind > LastFrame && kind <= OtherFrames && kind != Tables) || kind == Scan) {
            return false;
        }
        at += kind == Mark ? 1 : 2 + static_cast<std::size_t>(number(at + 2));
    }
    return false;
}

} // namespace wingdi
