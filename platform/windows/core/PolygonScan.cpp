// Polygons turned into the rows of pixels that they cover.
#include <algorithm>
#include <cmath>
#include <cstdint>

#include "Region.h"

namespace wingdi {

namespace {

constexpr std::size_t MostRows = 1'000'000;
constexpr std::int64_t MostSteps = 1 << 24;

// A side of a polygon that crosses the rows from `top` to `bottom` - 1.
struct Edge {
    std::int64_t x;
    std::int64_t y; // the end from which crossings are reckoned
    std::int64_t width;
    std::int64_t height; // above 0
    std::int64_t top;
    std::int64_t bottom;
    int winding; // 1 downward, -1 upward

    // The first pixel of the row that is not left of the edge: x + (row - y) * width / height, rounded up.
    std::int64_t firstPixel(std::int64_t row) const noexcept
    {
        constexpr std::int64_t Exact = std::int64_t{1} << 31; // the product fits 64 bits
        const std::int64_t steps = row - y;
        if (std::abs(width) < Exact && height < Exact) {
            const std::int64_t numerator = steps * width;
            return x + numerator / height + (numerator > 0 && numerator % height != 0 ? 1 : 0);
        }
        const double offset = static_cast<double>(steps) * static_cast<double>(width);
        return x + static_cast<std::int64_t>(std::ceil(offset / static_cast<double>(height)));
    }
};

void appendEdge(std::vector<Edge>& edges, POINT from, POINT to)
{
    if (from.y == to.y) {
        return;
    }
    const int winding = from.y < to.y ? 1 : -1;
    if (winding < 0) {
        std::swap(from, to);
    }
    Edge edge{from.x,
              from.y,
              std::int64_t{to.x} - from.x,
              std::int64_t{to.y} - from.y,
              std::max(from.y, -RegionLimit),
              std::min(to.y, RegionLimit),
              winding};
    if (edge.top < edge.bottom) {
        edges.push_back(edge);
    }
}

struct Crossing {
    std::int64_t x;
    int winding;
};

// The stretches of one row that lie inside.
void appendRow(std::vector<RECT>& row, std::vector<Crossing>& crossings, LONG y, int fillMode)
{
    std::ranges::sort(crossings, {}, &Crossing::x);
    int winding = 0;
    bool inside = false;
    std::int64_t start = 0;
    for (const Crossing& crossing : crossings) {
        winding += crossing.winding;
        const bool nowInside = fillMode == WINDING ? winding != 0 : !inside;
        if (nowInside && !inside) {
            start = crossing.x;
        } else if (inside && !nowInside) {
            const std::int64_t left = std::clamp<std::int64_t>(start, -RegionLimit, RegionLimit);
            const std::int64_t right = std::clamp<std::int64_t>(crossing.x, -RegionLimit, RegionLimit);
            if (left < right) {
                row.push_back({static_cast<LONG>(left), y, static_cast<LONG>(right), y + 1});
            }
        }
        inside = nowInside;
    }
}

// Rows like the one above only make its rectangles longer.
bool extendsRow(std::span<RECT> above, std::span<const RECT> row) noexcept
{
    const auto alike = [](const RECT& upper, const RECT& lower) {
        return upper.left == lower.left && upper.right == lower.right && upper.bottom == lower.top;
    };
    if (!std::ranges::equal(above, row, alike)) {
        return false;
    }
    for (RECT& rect : above) {
        ++rect.bottom;
    }
    return true;
}

class PolygonScan {
public:
    PolygonScan(std::vector<Edge>& edges, int fillMode) : m_edges(edges), m_fillMode(fillMode)
    {
        std::ranges::sort(m_edges, {}, &Edge::top);
    }

    // False when the shape takes too many steps or rectangles.
    bool run()
    {
        std::int64_t row = m_edges.empty() ? 0 : m_edges.front().top;
        while (m_next < m_edges.size() || !m_active.empty()) {
            if (m_active.empty()) {
                row = std::max(row, m_edges[m_next].top);
            }
            for (; m_next < m_edges.size() && m_edges[m_next].top <= row; ++m_next) {
                m_active.push_back(&m_edges[m_next]);
            }
            std::erase_if(m_active, [row](const Edge* edge) { return edge->bottom <= row; });
            m_steps += static_cast<std::int64_t>(m_active.size()) + 1;
            if (m_steps > MostSteps || m_rects.size() > MostRows) {
                return false;
            }
            scan(row++);
        }
        return true;
    }

    const std::vector<RECT>& rectangles() const noexcept { return m_rects; }

private:
    void scan(std::int64_t row)
    {
        m_crossings.clear();
        for (const Edge* edge : m_active) {
            m_crossings.push_back({edge->firstPixel(row), edge->winding});
        }
        m_row.clear();
        appendRow(m_row, m_crossings, static_cast<LONG>(row), m_fillMode);
        if (m_row.empty() || !extendsRow(std::span(m_rects).subspan(m_rowAbove), m_row)) {
            m_rowAbove = m_rects.size();
            m_rects.insert(m_rects.end(), m_row.begin(), m_row.end());
        }
    }

    std::vector<Edge>& m_edges;
    int m_fillMode;
    std::size_t m_next = 0;
    std::vector<const Edge*> m_active;
    std::vector<Crossing> m_crossings;
    std::vector<RECT> m_row;
    std::vector<RECT> m_rects;
    std::size_t m_rowAbove = 0;
    std::int64_t m_steps = 0;
};

} // namespace

Region Region::fromPolygons(std::span<const POINT> points, std::span<const INT> counts, int fillMode)
{
    std::vector<Edge> edges;
    for (const INT count : counts) {
        const auto length = std::min(static_cast<std::size_t>(std::max(count, 0)), points.size());
        const std::span<const POINT> polygon = points.first(length);
        for (std::size_t index = 0; index < length; ++index) {
            appendEdge(edges, polygon[index], polygon[(index + 1) % length]);
        }
        points = points.subspan(length);
    }
    PolygonScan scan(edges, fillMode);
    if (scan.run()) {
        return Region(scan.rectangles());
    }
    RECT box{RegionLimit, RegionLimit, -RegionLimit, -RegionLimit};
    for (const Edge& edge : edges) {
        box.left = static_cast<LONG>(std::min({std::int64_t{box.left}, edge.x, edge.x + edge.width}));
        box.right = static_cast<LONG>(std::max({std::int64_t{box.right}, edge.x, edge.x + edge.width}));
        box.top = static_cast<LONG>(std::min(std::int64_t{box.top}, edge.top));
        box.bottom = static_cast<LONG>(std::max(std::int64_t{box.bottom}, edge.bottom));
    }
    return Region(box);
}

} // namespace wingdi
