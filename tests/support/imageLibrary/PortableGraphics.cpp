// PNG files (RFC 2083) of 8 bits a sample, not interlaced.
#include "Bitmap.h"

#include <zlib.h>

#include <cstdlib>
#include <iterator>
#include <optional>
#include <string_view>

namespace {

using namespace std::string_view_literals;

constexpr std::string_view Signature = "\x89PNG\r\n\x1A\n"sv;

// Numbers of the head.
enum ColorType : BYTE { grey = 0, colors = 2, indexed = 3, greyWithAlpha = 4, colorsWithAlpha = 6 };

DWORD numberAt(const Bytes& file, std::size_t at)
{
    return static_cast<DWORD>(file[at] << 24U | file[at + 1] << 16U | file[at + 2] << 8U | file[at + 3]);
}

struct Contents {
    DWORD width = 0;
    DWORD height = 0;
    BYTE colorType = 0;
    Bytes table;
    Bytes data;
};

// Nothing without a head that is understood.
std::optional<Contents> contentsOf(const Bytes& file)
{
    Contents contents;
    std::size_t at = Signature.size();
    while (at + 12 <= file.size()) {
        const std::size_t length = numberAt(file, at);
        if (length > file.size() - at - 12) {
            break;
        }
        const std::string_view type(reinterpret_cast<const char*>(file.data()) + at + 4, 4);
        const BYTE* const data = file.data() + at + 8;
        if (type == "IHDR" && length == 13) {
            contents.width = numberAt(file, at + 8);
            contents.height = numberAt(file, at + 12);
            contents.colorType = data[9];
            if (data[8] != 8 || data[12] != 0) {
                return std::nullopt;
            }
        } else if (type == "PLTE") {
            contents.table.assign(data, data + length);
        } else if (type == "IDAT") {
            contents.data.insert(contents.data.end(), data, data + length);
        }
        at += length + 12;
    }
    constexpr DWORD LongestSide = 0x7FFF;
    const bool hasSides =
        contents.width - 1 < LongestSide && contents.height - 1 < LongestSide; // 0 is above both
    return hasSides ? std::optional(std::move(contents)) : std::nullopt;
}

std::size_t samplesOf(BYTE colorType)
{
    switch (colorType) {
    case grey:
    case indexed:
        return 1;
    case colors:
        return 3;
    case greyWithAlpha:
        return 2;
    case colorsWithAlpha:
        return 4;
    default:
        return 0;
    }
}

int paeth(int left, int above, int corner)
{
    const int estimate = left + above - corner;
    const int toLeft = std::abs(estimate - left);
    const int toAbove = std::abs(estimate - above);
    const int toCorner = std::abs(estimate - corner);
    return toLeft <= toAbove && toLeft <= toCorner ? left : toAbove <= toCorner ? above : corner;
}

// In place; each row begins with the number of its filter.
bool unfilter(Bytes& rows, std::size_t rowSize, std::size_t pixel)
{
    for (std::size_t start = 0; start < rows.size(); start += rowSize + 1) {
        BYTE* const row = rows.data() + start + 1;
        for (std::size_t i = 0; i < rowSize; ++i) {
            const int left = i >= pixel ? row[i - pixel] : 0;
            const int above = start != 0 ? *(row + i - rowSize - 1) : 0;
            const int corner = start != 0 && i >= pixel ? *(row + i - pixel - rowSize - 1) : 0;
            const int predictions[] = {0, left, above, (left + above) / 2, paeth(left, above, corner)};
            if (row[-1] >= std::size(predictions)) {
                return false;
            }
            row[i] = static_cast<BYTE>(row[i] + predictions[row[-1]]);
        }
    }
    return true;
}

void setTable(Bitmap& bitmap, const Contents& contents)
{
    if (contents.colorType == grey) {
        bitmap.makeGreyTable();
    }
    for (std::size_t i = 0; contents.colorType == indexed && i < contents.table.size() / 3 && i < 256; ++i) {
        const BYTE* const color = contents.table.data() + 3 * i;
        bitmap.colors()[i] = {color[2], color[1], color[0], 0};
    }
}

void setPixel(BYTE* target, const BYTE* source, BYTE colorType)
{
    switch (colorType) {
    case grey:
    case indexed:
        target[0] = source[0];
        break;
    case greyWithAlpha:
        std::memset(target, source[0], 3);
        target[3] = source[1];
        break;
    default:
        target[0] = source[2];
        target[1] = source[1];
        target[2] = source[0];
        if (colorType == colorsWithAlpha) {
            target[3] = source[3];
        }
    }
}

void appendNumber(Bytes& bytes, std::size_t value)
{
    for (unsigned int shift = 32; shift != 0; shift -= 8) {
        bytes.push_back(static_cast<BYTE>(value >> (shift - 8)));
    }
}

void appendChunk(Bytes& file, std::string_view type, const Bytes& data)
{
    appendNumber(file, data.size());
    const std::size_t start = file.size();
    file.insert(file.end(), type.begin(), type.end());
    file.insert(file.end(), data.begin(), data.end());
    appendNumber(file, crc32(0, file.data() + start, static_cast<uInt>(file.size() - start)));
}

} // namespace

OwnedBitmap readPng(const Bytes& file, bool withPixels)
{
    const std::optional<Contents> contents = contentsOf(file);
    const std::size_t samples = contents ? samplesOf(contents->colorType) : 0;
    if (samples == 0) {
        return nullptr;
    }
    const std::size_t bytes = samples == 2 ? 4 : samples;
    auto bitmap =
        std::make_unique<Bitmap>(static_cast<LONG>(contents->width), static_cast<LONG>(contents->height),
                                 static_cast<unsigned int>(8 * bytes), bytes == 1 ? 256 : 0, withPixels);
    setTable(*bitmap, *contents);
    if (!withPixels) {
        return bitmap;
    }
    const std::size_t rowSize = samples * contents->width;
    Bytes rows((rowSize + 1) * contents->height);
    auto size = static_cast<uLongf>(rows.size());
    if (uncompress(rows.data(), &size, contents->data.data(), static_cast<uLong>(contents->data.size())) !=
            Z_OK ||
        size != rows.size() || !unfilter(rows, rowSize, samples)) {
        return nullptr;
    }
    for (std::size_t y = 0; y < bitmap->height(); ++y) {
        const BYTE* const source = rows.data() + y * (rowSize + 1) + 1;
        BYTE* const target = bitmap->row(bitmap->height() - 1 - y);
        for (std::size_t x = 0; x < bitmap->width(); ++x) {
            setPixel(target + x * bytes, source + x * samples, contents->colorType);
        }
    }
    return bitmap;
}

Bytes writtenPng(Bitmap& bitmap)
{
    const std::size_t bytes = bitmap.bits() / 8;
    if (bitmap.bits() != 8 && bitmap.bits() != 24 && bitmap.bits() != 32) {
        return {};
    }
    const BYTE colorType = bytes == 1 ? indexed : bytes == 3 ? colors : colorsWithAlpha;
    Bytes rows;
    for (std::size_t y = bitmap.height(); y != 0; --y) {
        rows.push_back(0);
        for (std::size_t x = 0; x < bitmap.width(); ++x) {
            BYTE pixel[4]{};
            setPixel(pixel, bitmap.row(y - 1) + x * bytes, colorType);
            rows.insert(rows.end(), pixel, pixel + bytes);
        }
    }
    auto size = compressBound(static_cast<uLong>(rows.size()));
    Bytes data(size);
    compress(data.data(), &size, rows.data(), static_cast<uLong>(rows.size()));
    data.resize(size);

    Bytes head;
    appendNumber(head, bitmap.width());
    appendNumber(head, bitmap.height());
    head.insert(head.end(), {8, colorType, 0, 0, 0});
    Bytes table;
    for (std::size_t i = 0; i < bitmap.header().biClrUsed; ++i) {
        const RGBQUAD& color = bitmap.colors()[i];
        table.insert(table.end(), {color.rgbRed, color.rgbGreen, color.rgbBlue});
    }
    Bytes file(Signature.begin(), Signature.end());
    appendChunk(file, "IHDR", head);
    if (!table.empty()) {
        appendChunk(file, "PLTE", table);
    }
    appendChunk(file, "IDAT", data);
    appendChunk(file, "IEND", {});
    return file;
}
