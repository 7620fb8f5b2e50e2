#include "FileDib.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

namespace wingdi {

namespace {

bool isRunLength(DWORD compression) noexcept
{
    return compression == BI_RLE4 || compression == BI_RLE8;
}

bool isEncodedForm(DWORD compression) noexcept
{
    return compression == BI_JPEG || compression == BI_PNG;
}

BITMAPINFOHEADER headerOf(const std::vector<BYTE>& head)
{
    BITMAPINFOHEADER header;
    std::memcpy(&header, head.data(), sizeof(header));
    return header;
}

// The number of colours to be entered in a header that announces all that its pixels can name, but is followed by
// fewer; 0 when it is right.
DWORD colorsHeld(const BITMAPINFOHEADER& header, std::size_t length)
{
    if (header.biBitCount == 0 || header.biBitCount > 8 || header.biClrUsed != 0 || header.biSize > length) {
        return 0;
    }
    const std::size_t held = (length - header.biSize) / sizeof(RGBQUAD);
    return held < std::size_t{1} << header.biBitCount ? static_cast<DWORD>(held) : 0;
}

// A monochrome bitmap is said to have no colour table ([MS-WMF] 2.1.1.6): it gets the one of all others.
void addMonochromeColors(std::vector<BYTE>& head, BITMAPINFOHEADER& header)
{
    constexpr RGBQUAD Colors[] = {{0, 0, 0, 0}, {255, 255, 255, 0}};
    header.biClrUsed = 0;
    std::memcpy(head.data(), &header, sizeof(header));
    head.resize(header.biSize + sizeof(Colors));
    std::memcpy(head.data() + header.biSize, Colors, sizeof(Colors));
}

} // namespace

bool FileDib::stands(const metafile::Record& record, const DibPlace& place) noexcept
{
    return record.piece(place.headOffset, place.headLength) &&
           record.piece(place.bitsOffset, place.bitsLength);
}

std::optional<FileDib> FileDib::read(Playback& playback, const metafile::Record& record,
                                     const DibPlace& place, UINT usage, LONG rows, bool encoded)
{
    auto head = record.values<BYTE>(place.headOffset, place.headLength);
    const auto bits = record.piece(place.bitsOffset, place.bitsLength);
    if (!head || !bits || head->size() < sizeof(BITMAPINFOHEADER)) {
        return std::nullopt;
    }
    BITMAPINFOHEADER header = headerOf(*head);
    if (encoded && isEncodedForm(header.biCompression)) {
        return readEncoded(playback, *std::move(head), *bits);
    }
    if (rows > 0 && rows < std::abs(std::int64_t{header.biHeight}) && !isRunLength(header.biCompression)) {
        header.biHeight = header.biHeight < 0 ? -rows : rows;
        std::memcpy(head->data(), &header, sizeof(header));
    }
    if (usage == DIB_PAL_INDICES && header.biBitCount == 1 && header.biSize >= sizeof(header) &&
        header.biSize <= head->size()) {
        addMonochromeColors(*head, header);
        usage = DIB_RGB_COLORS;
    }
    if (const DWORD colors = colorsHeld(header, head->size())) {
        header.biClrUsed = colors;
        std::memcpy(head->data(), &header, sizeof(header));
    }
    FileDib dib;
    const auto described = readDibHead(*head, usage);
    if (!described) {
        return std::nullopt;
    }
    const std::size_t rowsLength = described->stride * static_cast<std::size_t>(described->height);
    if (isRunLength(header.biCompression)) {
        if (!playback.spendDecodedBytes(rowsLength)) {
            return std::nullopt;
        }
        auto expanded = expandRle(*described, *bits);
        if (!expanded || expanded->size() < rowsLength) {
            return std::nullopt;
        }
        dib.m_owned = *std::move(expanded);
        dib.m_bits = dib.m_owned;
        header.biCompression = BI_RGB;
        header.biSizeImage = 0;
        std::memcpy(head->data(), &header, sizeof(header));
    } else if (bits->size() < rowsLength) {
        return std::nullopt;
    } else if (std::bit_cast<std::uintptr_t>(bits->data()) % alignof(DWORD) != 0) {
        dib.m_owned.assign(bits->begin(), bits->end());
        dib.m_bits = dib.m_owned;
    } else {
        dib.m_bits = *bits;
    }
    dib.m_bits = dib.m_bits.first(rowsLength);
    head->resize(described->headBytes);
    dib.m_head = *std::move(head);
    return dib;
}

// What it takes when it is decoded is spent here, wherever it goes.
std::optional<FileDib> FileDib::readEncoded(Playback& playback, std::vector<BYTE> head,
                                            std::span<const BYTE> bits)
{
    BITMAPINFOHEADER header = headerOf(head);
    header.biSizeImage = static_cast<DWORD>(std::min<std::size_t>(bits.size(), UINT32_MAX));
    std::memcpy(head.data(), &header, sizeof(header));
    const auto described = readPictureHead(head, DIB_RGB_COLORS);
    if (!described || !playback.spendDecodedBytes(sizeof(DWORD) * static_cast<std::size_t>(described->width) *
                                                  static_cast<std::size_t>(described->height))) {
        return std::nullopt;
    }
    FileDib dib;
    dib.m_bits = bits;
    head.resize(described->headBytes);
    dib.m_head = std::move(head);
    return dib;
}

bool FileDib::isEncoded() const noexcept
{
    return isEncodedForm(info()->bmiHeader.biCompression);
}

std::vector<BYTE> FileDib::packed() const
{
    std::vector<BYTE> bytes = m_head;
    bytes.insert(bytes.end(), m_bits.begin(), m_bits.end());
    return bytes;
}

BitmapView FileDib::view() const
{
    return viewDib(m_head, m_bits, DIB_RGB_COLORS).value_or(BitmapView{});
}

bool FileDib::isMonochrome() const noexcept
{
    constexpr RGBQUAD Black{};
    const auto colorOf = [](const RGBQUAD& entry) {
        return entry.rgbRed << 16 | entry.rgbGreen << 8 | entry.rgbBlue;
    };
    const auto described = readDibHead(m_head, DIB_RGB_COLORS);
    return described && described->bitsPerPixel == 1 && described->palette.size() == 2 &&
           colorOf(described->palette[0]) == colorOf(Black) && colorOf(described->palette[1]) == 0xFFFFFF;
}

} // namespace wingdi
