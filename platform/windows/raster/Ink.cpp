#include "Ink.h"

#include <algorithm>

#include "DeviceContext.h"
#include "PixelRows.h"

namespace wingdi {

namespace {

int wrapped(std::int64_t value, int size)
{
    const auto rest = static_cast<int>(value % size);
    return rest < 0 ? rest + size : rest;
}

// Whether a line of a hatch (HS_...) crosses a pixel of its 8 by 8 tile.
bool isOnHatch(DWORD hatch, int x, int y)
{
    const bool horizontal = y == 4;
    const bool vertical = x == 4;
    const bool falling = x == y;
    const bool rising = x + y == 7;
    switch (hatch) {
    case HS_HORIZONTAL:
        return horizontal;
    case HS_VERTICAL:
        return vertical;
    case HS_FDIAGONAL:
        return falling;
    case HS_BDIAGONAL:
        return rising;
    case HS_CROSS:
        return horizontal || vertical;
    default:
        return falling || rising;
    }
}

std::shared_ptr<const Tile> hatchTile(const ContextState& state, COLORREF color, DWORD hatch)
{
    const bool opaque = state.backMode == OPAQUE;
    auto tile = std::make_shared<Tile>(Tile{8, 8, !opaque, std::vector<DWORD>(64)});
    for (int i = 0; i < 64; ++i) {
        tile->pixels[static_cast<std::size_t>(i)] = isOnHatch(hatch, i % 8, i / 8) ? pixelOf(color)
                                                    : opaque                       ? pixelOf(state.backColor)
                                                                                   : Tile::Gap;
    }
    return tile;
}

} // namespace

void Ink::pattern(DWORD* pixels, int x, int y, int count) const
{
    if (!tile) {
        std::fill_n(pixels, count, color);
        return;
    }
    const int row = wrapped(std::int64_t{y} - origin.y, tile->height);
    const DWORD* line = tile->pixels.data() + static_cast<std::ptrdiff_t>(row) * tile->width;
    int column = wrapped(std::int64_t{x} - origin.x, tile->width);
    while (count > 0) {
        const int piece = std::min(count, tile->width - column);
        pixels = std::copy_n(line + column, piece, pixels);
        count -= piece;
        column = 0;
    }
}

void Ink::lay(DWORD* pixels, int x, int y, int count) const
{
    if (!tile) {
        combine(operation, pixels, color, nullptr, static_cast<std::size_t>(count));
        return;
    }
    constexpr int Batch = 256;
    DWORD row[Batch];
    for (int done = 0; done < count; done += Batch) {
        const int piece = std::min(Batch, count - done);
        pattern(row, x + done, y, piece);
        if (!tile->hasGaps) {
            combine(operation, pixels + done, row, nullptr, static_cast<std::size_t>(piece));
            continue;
        }
        for (int i = 0; i < piece; ++i) {
            if (row[i] != Tile::Gap) {
                combine(operation, pixels + done + i, row[i], nullptr, 1);
            }
        }
    }
}

std::optional<Ink> InkPot::ofBrush(const DeviceContext& context, const BrushObject& brush, BYTE operation)
{
    Ink ink{operation, pixelOf(brush.color), nullptr, context.state.brushOrigin};
    switch (brush.style) {
    case BS_SOLID:
        return ink;
    case BS_HATCHED:
        ink.tile = hatchTile(context.state, brush.color, brush.hatch);
        return ink;
    case BS_PATTERN:
    case BS_DIBPATTERNPT:
        ink.tile = brush.pattern ? patternTile(context.state, brush.pattern, brush.style) : nullptr;
        return ink.tile ? std::optional(ink) : std::nullopt;
    default:
        return std::nullopt;
    }
}

std::optional<Ink> InkPot::ofPen(const DeviceContext& context, const PenObject& pen)
{
    if ((pen.style & PS_STYLE_MASK) == PS_NULL || pen.brushStyle == BS_NULL) {
        return std::nullopt;
    }
    Ink ink{ternaryOfBinary(context.state.rop2), pixelOf(pen.color), nullptr, context.state.brushOrigin};
    if (pen.brushStyle == BS_HATCHED) {
        ink.tile = hatchTile(context.state, pen.color, pen.hatch);
    } else if (pen.pattern) {
        ink.tile = patternTile(context.state, pen.pattern, pen.brushStyle);
    }
    return ink;
}

std::shared_ptr<const Tile> InkPot::patternTile(const ContextState& state,
                                                const std::shared_ptr<const Bitmap>& pattern, UINT style)
{
    const bool inkMono = style == BS_PATTERN && pattern->isMonochrome();
    const DWORD textColor = pixelOf(state.textColor);
    const DWORD backColor = pixelOf(state.backColor);
    const bool known = m_tile && m_pattern == pattern && m_inkMono == inkMono &&
                       (!inkMono || (m_textColor == textColor && m_backColor == backColor));
    if (known) {
        return m_tile;
    }
    const BitmapView view = pattern->view();
    const auto area = static_cast<std::size_t>(view.width) * static_cast<std::size_t>(view.height);
    auto tile = std::make_shared<Tile>(Tile{view.width, view.height, false, std::vector<DWORD>(area)});
    for (int y = 0; y < view.height; ++y) {
        DWORD* row = tile->pixels.data() + static_cast<std::ptrdiff_t>(y) * view.width;
        readPixels(view, 0, y, view.width, row);
        if (inkMono) {
            std::replace_if(
                row, row + view.width, [](DWORD pixel) { return pixel != 0; }, Tile::Gap);
            std::replace(row, row + view.width, DWORD{0}, textColor);
            std::replace(row, row + view.width, Tile::Gap, backColor);
        }
    }
    m_pattern = pattern;
    m_inkMono = inkMono;
    m_textColor = textColor;
    m_backColor = backColor;
    m_tile = tile;
    return tile;
}

} // namespace wingdi
