#include "PackedDib.h"

#include <algorithm>
#include <cstring>

namespace wingdi {

PackedDib::PackedDib(const BitmapView& view) noexcept
    : m_view(view),
      m_rowLength(
          (static_cast<std::uint64_t>(view.width) * static_cast<std::uint64_t>(view.bitsPerPixel) + 31) / 32 *
          4)
{
}

std::uint64_t PackedDib::headLength() const noexcept
{
    const std::uint64_t masks = hasMasks() ? 3 * sizeof(DWORD) : 0;
    return sizeof(BITMAPINFOHEADER) + masks + colorCount() * sizeof(RGBQUAD);
}

void PackedDib::writeHead(BYTE* target) const noexcept
{
    BITMAPINFOHEADER header{};
    header.biSize = sizeof(header);
    header.biWidth = m_view.width;
    header.biHeight = m_view.height;
    header.biPlanes = 1;
    header.biBitCount = static_cast<WORD>(m_view.bitsPerPixel);
    header.biCompression = hasMasks() ? BI_BITFIELDS : BI_RGB;
    header.biSizeImage = static_cast<DWORD>(bitsLength());
    std::memcpy(target, &header, sizeof(header));
    target += sizeof(header);
    if (hasMasks()) {
        const DWORD masks[] = {m_view.redMask, m_view.greenMask, m_view.blueMask};
        std::memcpy(target, masks, sizeof(masks));
        return;
    }
    // Colours that the bitmap does not have stay black, as in the bytes written on.
    const auto colors =
        static_cast<std::size_t>(std::min<std::uint64_t>(m_view.palette.size(), colorCount()));
    if (colors != 0) {
        std::memcpy(target, m_view.palette.data(), colors * sizeof(RGBQUAD));
    }
}

void PackedDib::writeBits(BYTE* target) const noexcept
{
    const std::size_t used =
        (static_cast<std::size_t>(m_view.width) * static_cast<std::size_t>(m_view.bitsPerPixel) + 7) / 8;
    for (int y = m_view.height - 1; y >= 0; --y, target += m_rowLength) {
        std::memcpy(target, m_view.row(y), used);
    }
}

bool PackedDib::hasMasks() const noexcept
{
    const auto differ = [this](DWORD red, DWORD green, DWORD blue) {
        return m_view.redMask != red || m_view.greenMask != green || m_view.blueMask != blue;
    };
    return (m_view.bitsPerPixel == 16 && differ(0x7C00, 0x03E0, 0x001F)) ||
           (m_view.bitsPerPixel == 32 && differ(0xFF0000, 0xFF00, 0xFF));
}

std::uint64_t PackedDib::colorCount() const noexcept
{
    return m_view.bitsPerPixel <= 8 ? std::uint64_t{1} << m_view.bitsPerPixel : 0;
}

} // namespace wingdi
