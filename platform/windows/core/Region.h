// A set of pixels, kept as rectangles.
#pragma once

#include <windows.h>

#include <memory>
#include <span>
#include <vector>

struct _cairo_region; // NOLINT(bugprone-reserved-identifier): cairo's own tag

namespace wingdi {

// Coordinates of regions are cut off at +-this, so that widths and moves stay in 32 bits.
constexpr LONG RegionLimit = 1 << 26;

// Copies share their rectangles, which never change: an operation makes new ones. Operations throw std::bad_alloc
// without memory. A region of more than 1,000,000 rectangles becomes its box.
class Region {
public:
    // Empty.
    Region() = default;
    // Corners may be swapped.
    explicit Region(const RECT& rect);
    // All of them together, in any order.
    explicit Region(std::span<const RECT> rects);

    // The pixels (x, y) whose point (x, y) lies inside, on a left or on a top edge, by ALTERNATE or WINDING; `counts`
    // splits the points into polygons. A shape that would take more than 2^24 steps to scan becomes its box: a step is
    // one edge on one row.
    static Region fromPolygons(std::span<const POINT> points, std::span<const INT> counts, int fillMode);

    // This region becomes the combination of itself and the other (RGN_AND, RGN_OR, RGN_XOR, RGN_DIFF, RGN_COPY).
    void combine(const Region& other, int mode);
    void translate(int x, int y);

    bool empty() const noexcept;
    bool contains(int x, int y) const noexcept;
    RECT box() const noexcept; // all zero when empty
    // In bands from the top, and from the left within a band.
    std::vector<RECT> rectangles() const;
    // NULLREGION, SIMPLEREGION or COMPLEXREGION.
    int complexity() const noexcept;

private:
    void adopt(_cairo_region* region);

    std::shared_ptr<_cairo_region> m_region; // null: empty
};

} // namespace wingdi
