// A set of pixels, kept as rectangles.
#pragma once

#include <windows.h>

#include <memory>
#include <span>
#include <vector>

struct _cairo_region; // NOLINT(bugprone-reserved-identifier): cairo's own tag

class Region {
public:
    // Empty.
    Region();
    // Corners may be swapped.
    explicit Region(const RECT& rect);
    Region(const Region& other);
    Region(Region&& other) noexcept = default;
    Region& operator=(const Region& other);
    Region& operator=(Region&& other) noexcept = default;
    ~Region() = default;

    // The pixels whose centres lie inside, by ALTERNATE or WINDING; `counts` splits the points into polygons. The
    // part beyond +-2^26 is cut off, and so is a region of more than 1,000,000 rectangles: it becomes its box.
    static Region fromPolygons(std::span<const POINT> points, std::span<const INT> counts, int fillMode);

    // This region becomes the combination of itself and the other (RGN_AND, RGN_OR, RGN_XOR, RGN_DIFF, RGN_COPY).
    void combine(const Region& other, int mode);
    void translate(int x, int y);

    bool empty() const;
    bool contains(int x, int y) const;
    RECT box() const; // all zero when empty
    // In bands from the top, and from the left within a band.
    std::vector<RECT> rectangles() const;
    // NULLREGION, SIMPLEREGION or COMPLEXREGION.
    int complexity() const;

private:
    struct Release {
        void operator()(_cairo_region* region) const noexcept;
    };
    std::unique_ptr<_cairo_region, Release> m_region;
};
