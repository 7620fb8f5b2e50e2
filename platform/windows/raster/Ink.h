// What a pen, a brush or a background lays down: a colour or a tile, and how it meets what is there.
#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <vector>

#include "PixelColor.h"
#include "RasterOperation.h"

namespace wingdi {

class Bitmap;
class BrushObject;
class DeviceContext;
class PenObject;
struct ContextState;

// A hatch or a pattern, repeated without end from the brush origin on.
struct Tile {
    // Marks a pixel of a hatch between whose lines one sees through.
    static constexpr DWORD Gap = 0xFF000000;

    int width;
    int height;
    bool hasGaps;
    std::vector<DWORD> pixels; // 0x00RRGGBB, the top row first
};

struct Ink {
    BYTE operation = CopyPattern; // ternary, without a source
    DWORD color = 0;              // 0x00RRGGBB, when there is no tile
    std::shared_ptr<const Tile> tile{};
    POINT origin{0, 0}; // of the tile, device units

    // One colour that covers what is there.
    bool isPlain() const noexcept { return !tile && operation == CopyPattern; }
    // Changes the pixels from (x, y) on to the right.
    void lay(DWORD* pixels, int x, int y, int count) const;
    // The pattern there; gaps of a hatch are marked.
    void pattern(DWORD* pixels, int x, int y, int count) const;
};

// Makes inks, and keeps the latest pattern tile for the fills that follow.
class InkPot {
public:
    // Nothing for a brush or pen that doesn't paint.
    std::optional<Ink> ofBrush(const DeviceContext& context, const BrushObject& brush, BYTE operation);
    std::optional<Ink> ofPen(const DeviceContext& context, const PenObject& pen);

private:
    std::shared_ptr<const Tile> patternTile(const ContextState& state,
                                            const std::shared_ptr<const Bitmap>& pattern, UINT style);

    std::shared_ptr<const Bitmap> m_pattern;
    bool m_inkMono = false;
    DWORD m_textColor = 0;
    DWORD m_backColor = 0;
    std::shared_ptr<const Tile> m_tile;
};

} // namespace wingdi
