#include "VectorPictures.h"

#include <algorithm>

#include "BitmapRows.h"

namespace wingdi {

namespace {

constexpr std::uint32_t Opaque = 0xFF000000;
constexpr std::uint32_t Colors = 0x00FFFFFF;

// FNV-1a of 64 bits, from two beginnings.
void name(VectorPicture& picture)
{
    constexpr std::uint64_t Prime = 0x100000001B3;
    std::uint64_t hashes[2] = {0xCBF29CE484222325, 0x9E3779B97F4A7C15};
    const auto add = [&hashes](std::uint64_t value) {
        for (std::uint64_t& hash : hashes) {
            hash = (hash ^ value) * Prime;
            hash ^= hash >> 29;
        }
    };
    add(static_cast<std::uint64_t>(picture.width));
    add(static_cast<std::uint64_t>(picture.height));
    for (const std::uint32_t pixel : picture.pixels) {
        add(pixel);
    }
    constexpr char Digits[] = "0123456789abcdef";
    picture.id = "picture";
    for (const std::uint64_t hash : hashes) {
        for (int shift = 60; shift >= 0; shift -= 4) {
            picture.id.push_back(Digits[hash >> shift & 15]);
        }
    }
}

template <class Convert>
std::shared_ptr<VectorPicture> made(const BitmapView& view, const RECT& part, const ColorRule& colors,
                                    const Convert& convert)
{
    auto picture = std::make_shared<VectorPicture>();
    picture->width = part.right - part.left;
    picture->height = part.bottom - part.top;
    picture->pixels.resize(static_cast<std::size_t>(picture->width) *
                           static_cast<std::size_t>(picture->height));
    for (int y = 0; y < picture->height; ++y) {
        DWORD* const row = picture->pixels.data() + std::ptrdiff_t{y} * picture->width;
        readPixels(view, part.left, part.top + y, picture->width, row);
        colors.apply(row, picture->width);
        std::transform(row, row + picture->width, row, convert);
    }
    name(*picture);
    return picture;
}

} // namespace

std::shared_ptr<VectorPicture> pictureOf(const BitmapView& view, const RECT& part, const ColorRule& colors)
{
    return made(view, part, colors, [](DWORD pixel) { return pixel | Opaque; });
}

std::shared_ptr<VectorPicture> transparentPictureOf(const BitmapView& view, const RECT& part,
                                                    const ColorRule& colors, const AlphaShare& share)
{
    auto picture = made(view, part, colors, [&share](DWORD pixel) {
        constexpr DWORD Full = 255;
        const DWORD opacity = share.ofPixels ? pixel >> 24 : Full;
        const DWORD limited = (opacity * share.whole + Full / 2) / Full;
        DWORD result = limited << 24;
        for (int shift = 0; shift < 24; shift += 8) { // no colour is stronger than its pixel is there
            result |= std::min(((pixel >> shift & Full) * share.whole + Full / 2) / Full, limited) << shift;
        }
        return result;
    });
    picture->hasHoles = true;
    return picture;
}

bool isBlackAndWhite(const VectorPicture& picture)
{
    return std::ranges::all_of(picture.pixels, [](std::uint32_t pixel) {
        return (pixel & Colors) == 0 || (pixel & Colors) == Colors;
    });
}

std::shared_ptr<const VectorPicture> masked(const VectorPicture& picture, const VectorPicture& mask)
{
    auto result = std::make_shared<VectorPicture>(picture);
    result->jpeg.clear();
    for (std::size_t i = 0; i < result->pixels.size(); ++i) {
        if ((mask.pixels[i] & Colors) != 0) {
            result->pixels[i] = 0;
            result->hasHoles = true;
        }
    }
    name(*result);
    return result;
}

std::shared_ptr<const VectorPicture> inverted(const VectorPicture& picture)
{
    auto result = std::make_shared<VectorPicture>(picture);
    result->jpeg.clear();
    for (std::uint32_t& pixel : result->pixels) {
        pixel ^= Colors;
    }
    name(*result);
    return result;
}

} // namespace wingdi
