#include "PictureSize.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <string_view>

namespace pagetool {

namespace {

constexpr double HundredthsPerMillimetre = 100;
constexpr double MillimetresPerInch = 25.4;
constexpr double HundredthsPerInch = HundredthsPerMillimetre * MillimetresPerInch;

} // namespace

std::optional<PictureSize> pictureSizeOf(const Sheet& sheet, const PictureOptions& options)
{
    const auto wide = static_cast<double>(sheet.width);
    const auto high = static_cast<double>(sheet.height);
    PictureSize size;
    size.dotsPerInch = options.width > 0    ? options.width * HundredthsPerInch / wide
                       : options.height > 0 ? options.height * HundredthsPerInch / high
                                            : options.dpi;
    const auto pixels = [&](std::int64_t length) {
        return Sheet::pixels(length, size.dotsPerInch, MillimetresPerInch);
    };
    const bool isStretched = options.width > 0 && options.height > 0;
    size.pixels = {pixels(sheet.width), isStretched ? options.height : pixels(sheet.height)};
    size.shown = {0, 0, size.pixels.cx, size.pixels.cy};
    if (options.crop && IntersectRect(&size.shown, &size.shown, &*options.crop) == 0) {
        return std::nullopt;
    }
    const double wholeHeight =
        isStretched ? options.height * MillimetresPerInch / size.dotsPerInch : high / HundredthsPerMillimetre;
    size.millimetresWide =
        wide / HundredthsPerMillimetre * (size.shown.right - size.shown.left) / size.pixels.cx;
    size.millimetresHigh = wholeHeight * (size.shown.bottom - size.shown.top) / size.pixels.cy;
    return size;
}

std::optional<RECT> cropOf(const std::string& text)
{
    constexpr std::string_view Separators = ",,x";
    constexpr int Farthest = 1'000'000;
    std::array<int, 4> numbers{}; // x, y, width, height
    const char* at = text.data();
    const char* const end = at + text.size();
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        if (i > 0 && (at == end || *at++ != Separators[i - 1])) {
            return std::nullopt;
        }
        const auto [next, error] = std::from_chars(at, end, numbers[i]);
        if (error != std::errc() || numbers[i] < (i < 2 ? 0 : 1) || numbers[i] > Farthest) {
            return std::nullopt;
        }
        at = next;
    }
    const auto [x, y, width, height] = numbers;
    return at == end ? std::optional(RECT{x, y, x + width, y + height}) : std::nullopt;
}

} // namespace pagetool
