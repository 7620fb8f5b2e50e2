// The report's picture, drawn and encoded; see pictures.h.
#include "pictures.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>

#include "sys/krnutil.h"

namespace {

using Bytes = std::vector<unsigned char>;

struct Pixel {
    int red;
    int green;
    int blue;
    int alpha;
};

// How much of a pixel lies inside of an edge: its distance to there in pixels, cut to 0 to 1.
double coverage(double distance)
{
    return std::clamp(distance + 0.5, 0.0, 1.0);
}

int mixed(int under, int over, double share)
{
    return static_cast<int>(std::lround(under + (over - under) * share));
}

// A sky that darkens upward, its corners round and transparent, and a sun with twelve rays.
Pixel pixelAt(int column, int row, int side)
{
    const double half = side / 2.0;
    const double x = column + 0.5 - half;
    const double y = row + 0.5 - half;
    const double radius = side / 5.0;
    const double outsideX = std::max(std::abs(x) - half + radius, 0.0);
    const double outsideY = std::max(std::abs(y) - half + radius, 0.0);
    const double fromCentre = std::hypot(x, y);
    const double rays = 0.31 + 0.09 * std::cos(12 * std::atan2(y, x));
    const double sun = coverage(side * rays - fromCentre);
    const double core = coverage(side * 0.2 - fromCentre);
    const int sky = 90 + 110 * row / side;
    const int alpha = mixed(0, 255, coverage(radius - std::hypot(outsideX, outsideY)));
    if (alpha == 0) {
        return {255, 255, 255, 0}; // one colour, since a device takes one for transparent
    }
    return {mixed(mixed(40, 242, sun), 255, core), mixed(mixed(sky, 165, sun), 217, core),
            mixed(mixed(sky + 50, 47, sun), 102, core), alpha};
}

// Little-endian.
void append(Bytes& out, std::uint32_t value, int bytes)
{
    for (int i = 0; i < bytes; ++i) {
        out.push_back(static_cast<unsigned char>(value >> 8 * i & 0xFF));
    }
}

// The colours that a picture of 8 bits may have: six steps of each part.
constexpr int Steps = 6;
constexpr int StepWidth = 51;

// Turns over to the next step by place, in a pattern of four by four pixels (Bayer), so that steps don't show.
int stepOf(int part, int column, int row)
{
    constexpr int Thresholds[4][4] = {{0, 8, 2, 10}, {12, 4, 14, 6}, {3, 11, 1, 9}, {15, 7, 13, 5}};
    return (part + (2 * Thresholds[row % 4][column % 4] + 1) * StepWidth / 32) / StepWidth;
}

void appendPixel(Bytes& out, int column, int row, int side, int bits)
{
    const Pixel pixel = pixelAt(column, row, side);
    if (bits == 32) {
        for (const int part : {pixel.blue, pixel.green, pixel.red, pixel.alpha}) {
            out.push_back(static_cast<unsigned char>(part));
        }
        return;
    }
    const auto onPaper = [&](int part) {
        return mixed(255, part, pixel.alpha / 255.0);
    };
    if (bits == 24) {
        for (const int part : {pixel.blue, pixel.green, pixel.red}) {
            out.push_back(static_cast<unsigned char>(onPaper(part)));
        }
        return;
    }
    const auto step = [&](int part) {
        return stepOf(onPaper(part), column, row);
    };
    out.push_back(
        static_cast<unsigned char>((step(pixel.red) * Steps + step(pixel.green)) * Steps + step(pixel.blue)));
}

void appendPalette(Bytes& out)
{
    for (int index = 0; index < 256; ++index) {
        const int colour = std::min(index, Steps * Steps * Steps - 1);
        for (const int step : {colour % Steps, colour / Steps % Steps, colour / Steps / Steps}) {
            out.push_back(static_cast<unsigned char>(step * StepWidth));
        }
        out.push_back(0);
    }
}

// A Windows bitmap file: BITMAPFILEHEADER, BITMAPINFOHEADER, colour table, rows from the bottom up.
Bytes bitmapFile(int side, int bits)
{
    constexpr std::uint32_t FileHeaderSize = 14;
    const std::uint32_t start = FileHeaderSize + sizeof(BITMAPINFOHEADER) + (bits == 8 ? 256 * 4 : 0);
    const std::uint32_t rowSize = (static_cast<std::uint32_t>(side * bits) + 31) / 32 * 4;
    const std::uint32_t extent = static_cast<std::uint32_t>(side);
    Bytes file = {'B', 'M'};
    append(file, start + rowSize * extent, 4);
    append(file, 0, 4);
    append(file, start, 4);
    append(file, sizeof(BITMAPINFOHEADER), 4);
    append(file, extent, 4);
    append(file, extent, 4);
    append(file, 1, 2); // plane
    append(file, static_cast<std::uint32_t>(bits), 2);
    append(file, 0, 4); // not compressed
    append(file, rowSize * extent, 4);
    append(file, 3780, 4); // pixels a metre: 96 an inch
    append(file, 3780, 4);
    append(file, 0, 4); // the whole colour table, all of it important
    append(file, 0, 4);
    if (bits == 8) {
        appendPalette(file);
    }
    for (int row = side - 1; row >= 0; --row) {
        for (int column = 0; column < side; ++column) {
            appendPixel(file, column, row, side, bits);
        }
        file.resize(start + rowSize * static_cast<std::uint32_t>(side - row));
    }
    return file;
}

} // namespace

bool canEncodePictures()
{
    return FreeImageDesc(false).isProcLoaded();
}

std::vector<unsigned char> drawPicture(const PictureKind& kind, int side)
{
    FreeImageDesc library(false);
    if (!library.isProcLoaded()) {
        return {};
    }
    Bytes file = bitmapFile(side, kind.bits);
    if (kind.format == FIF_BMP) {
        return file;
    }
    FIBITMAP* const bitmap =
        library.imageLoadFromMem(FIF_BMP, file.data(), static_cast<unsigned int>(file.size()));
    fiio_mem_handle_s encoded{};
    file.clear();
    if (library.imageSaveToMem(static_cast<FREE_IMAGE_FORMAT>(kind.format), bitmap, &encoded)) {
        const auto* const first = static_cast<const unsigned char*>(encoded.data);
        file.assign(first, first + encoded.datalen);
        std::free(encoded.data);
    }
    library.imageUnload(bitmap);
    return file;
}
