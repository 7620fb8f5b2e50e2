// The record of gradients. A gradient is painted as a small bitmap stretched over its box; what a triangle leaves of
// its box is clipped away.
#include <algorithm>
#include <array>
#include <iterator>
#include <utility>
#include <vector>

#include "PlayedRegion.h"
#include "RecordHandlers.h"

namespace wingdi {

namespace {

constexpr int Steps = 256;       // of a rectangle's gradient, as many as a channel has
constexpr int TriangleSide = 64; // pixels of the bitmap of a triangle

// Channels between 0 and 65535.
struct Shade {
    double red;
    double green;
    double blue;
};

Shade shadeOf(const TRIVERTEX& vertex) noexcept
{
    return {1.0 * vertex.Red, 1.0 * vertex.Green, 1.0 * vertex.Blue};
}

Shade operator*(const Shade& shade, double weight) noexcept
{
    return {shade.red * weight, shade.green * weight, shade.blue * weight};
}

Shade operator+(const Shade& first, const Shade& second) noexcept
{
    return {first.red + second.red, first.green + second.green, first.blue + second.blue};
}

DWORD pixelOf(const Shade& shade) noexcept
{
    const auto channel = [](double value) {
        return static_cast<DWORD>(std::clamp(value, 0.0, 65535.0)) >> 8;
    };
    return channel(shade.red) << 16 | channel(shade.green) << 8 | channel(shade.blue);
}

// `pixels`: top row first, as many as the sizes say.
void stretch(HDC target, const RECT& box, const std::vector<DWORD>& pixels, int width, int height)
{
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    const auto length = [](LONG from, LONG to) {
        return toDeviceUnit(static_cast<double>(to) - from);
    };
    StretchDIBits(target, box.left, box.top, length(box.left, box.right), length(box.top, box.bottom), 0, 0,
                  width, height, pixels.data(), &info, DIB_RGB_COLORS, SRCCOPY);
}

void fillRectangle(HDC target, TRIVERTEX first, TRIVERTEX last, bool horizontal)
{
    if (horizontal ? first.x > last.x : first.y > last.y) {
        std::swap(first, last);
    }
    std::vector<DWORD> pixels(Steps);
    for (int step = 0; step < Steps; ++step) {
        const double part = (step + 0.5) / Steps;
        pixels[static_cast<std::size_t>(step)] = pixelOf(shadeOf(first) * (1 - part) + shadeOf(last) * part);
    }
    const RECT box{std::min(first.x, last.x), std::min(first.y, last.y), std::max(first.x, last.x),
                   std::max(first.y, last.y)};
    stretch(target, box, pixels, horizontal ? Steps : 1, horizontal ? 1 : Steps);
}

using Triangle = std::array<TRIVERTEX, 3>;

// Twice the area of the triangle of two vertices and a point, above 0 on one side of their line.
double areaOf(const TRIVERTEX& first, const TRIVERTEX& second, double x, double y) noexcept
{
    return (static_cast<double>(second.x) - first.x) * (y - first.y) -
           (static_cast<double>(second.y) - first.y) * (x - first.x);
}

std::vector<DWORD> shadesOf(const Triangle& corners, const RECT& box, double area)
{
    std::vector<DWORD> pixels;
    pixels.reserve(std::size_t{TriangleSide} * TriangleSide);
    for (int row = 0; row < TriangleSide; ++row) {
        const double y = box.top + (row + 0.5) / TriangleSide * (static_cast<double>(box.bottom) - box.top);
        for (int column = 0; column < TriangleSide; ++column) {
            const double x =
                box.left + (column + 0.5) / TriangleSide * (static_cast<double>(box.right) - box.left);
            const double first = areaOf(corners[1], corners[2], x, y) / area;
            const double second = areaOf(corners[2], corners[0], x, y) / area;
            pixels.push_back(pixelOf(shadeOf(corners[0]) * first + shadeOf(corners[1]) * second +
                                     shadeOf(corners[2]) * (1 - first - second)));
        }
    }
    return pixels;
}

void fillTriangle(Playback& playback, const Triangle& corners)
{
    const double area = areaOf(corners[0], corners[1], corners[2].x, corners[2].y);
    if (area == 0) {
        return;
    }
    const auto [left, right] = std::minmax({corners[0].x, corners[1].x, corners[2].x});
    const auto [top, bottom] = std::minmax({corners[0].y, corners[1].y, corners[2].y});
    const RECT box{left, top, right, bottom};

    const HDC target = playback.target();
    POINT outline[3];
    std::ranges::transform(corners, outline, [](const TRIVERTEX& corner) {
        return POINT{corner.x, corner.y};
    });
    LPtoDP(target, outline, 3);
    const INT count = 3;
    const PlayedRegion shape(regionOfPolygons({std::begin(outline), std::end(outline)}, {&count, 1}));
    if (SaveDC(target) != 0) {
        ExtSelectClipRgn(target, shape.handle(), RGN_AND);
        stretch(target, box, shadesOf(corners, box, area), TriangleSide, TriangleSide);
        RestoreDC(target, -1);
    }
}

bool gradientFill(Playback& playback, const metafile::Record& record)
{
    const auto fields = record.field<EMRGRADIENTFILL>(0);
    const auto vertices = fields ? record.values<TRIVERTEX>(sizeof(*fields), fields->nVer) : std::nullopt;
    if (!vertices) {
        return false;
    }
    const std::size_t corners = fields->ulMode <= GRADIENT_FILL_RECT_V ? 2 : 3;
    const auto numbers =
        record.values<DWORD>(sizeof(*fields) + std::uint64_t{fields->nVer} * sizeof(TRIVERTEX),
                             std::uint64_t{fields->nTri} * corners);
    if (!numbers || std::ranges::any_of(*numbers, [&](DWORD number) { return number >= vertices->size(); })) {
        return false;
    }
    for (std::size_t index = 0; index < numbers->size(); index += corners) {
        const auto vertex = [&](std::size_t corner) {
            return (*vertices)[(*numbers)[index + corner]];
        };
        if (corners == 2) {
            fillRectangle(playback.target(), vertex(0), vertex(1), fields->ulMode == GRADIENT_FILL_RECT_H);
        } else {
            fillTriangle(playback, {vertex(0), vertex(1), vertex(2)});
        }
    }
    return true;
}

constexpr RecordEntry Entries[] = {{EMR_GRADIENTFILL, gradientFill}};

} // namespace

std::span<const RecordEntry> gradientRecords() noexcept
{
    return Entries;
}

} // namespace wingdi
