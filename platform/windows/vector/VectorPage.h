// A page that shapes, letters and pictures are put on as such, not as pixels. VectorDevice turns the calls of the Windows
// interface into these; CairoPage makes PDF and smooth pictures of them.
//
// All lengths and places are device units, y downward, with the page's upper left corner at (0, 0). Outlines keep the
// convention of the grid: the pixel (x, y) has its middle at the point (x, y), so that a page moves them by half a unit.
#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Device.h"
#include "Outline.h"
#include "PenLook.h"

namespace wingdi {

// How ink meets what is there. The three others are AND, OR and XOR where colours are black or white, and the nearest
// that descriptions of pages have elsewhere.
enum class Blend : unsigned char { Normal, Multiply, Screen, Difference };

// The same content has the same id, whatever handle brought it.
struct VectorPicture {
    int width = 0;
    int height = 0;
    bool hasHoles = false;             // pixels whose first byte is below 0xFF
    std::vector<std::uint32_t> pixels; // 0xFFRRGGBB, top row first; colours are multiplied by the first byte
    std::string id;                    // letters and digits
    std::vector<unsigned char> jpeg;   // the same picture, as it came; may be empty
};

// A colour, the lines of a hatch, or a picture repeated without end.
struct VectorPaint {
    COLORREF color = 0;           // of the ink, or of the hatch's lines
    std::optional<DWORD> hatch;   // HS_...
    std::optional<COLORREF> gaps; // of a hatch; nothing: one sees through
    std::shared_ptr<const VectorPicture> tile;
    double unit = 1; // device units of one pixel of a tile; that of a hatch has 8 by 8
    POINT origin{0, 0};
    Blend blend = Blend::Normal;
};

// What may be touched: the rectangles, right and bottom excluded, within each of the outlines.
struct VectorClip {
    struct Shape {
        std::shared_ptr<const Outline> outline;
        int fillMode;
    };
    std::optional<std::vector<RECT>> rectangles; // nothing: all of the page
    std::vector<Shape> shapes;
};

bool isSame(const VectorClip& first, const VectorClip& second);

class VectorPage {
public:
    virtual ~VectorPage() = default;

    // In force until the next call.
    virtual void setClip(const VectorClip& clip) = 0;
    virtual void fill(const Outline& area, int fillMode, const VectorPaint& paint) = 0;
    // A pen of a width, never a thin one.
    virtual void stroke(const Outline& lines, const PenLook& pen, const VectorPaint& paint) = 0;
    // `toPage` brings pixels, with (0, 0) the upper left corner of the first, to the page; it may mirror and turn.
    // `smooth`: pixels are blended where sizes differ, else they keep their edges.
    virtual void picture(const std::shared_ptr<const VectorPicture>& picture, const Mapping& toPage,
                         bool smooth, Blend blend) = 0;
    // The letters alone: backgrounds and lines of text come as areas.
    virtual void text(const TextOutput& output, COLORREF color) = 0;
    // The page is done. False when it could not be made.
    virtual bool finish() = 0;
};

} // namespace wingdi
