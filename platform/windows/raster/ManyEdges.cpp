#include "ManyEdges.h"

#include <algorithm>
#include <cmath>

#include "DeviceRect.h"

namespace wingdi {

namespace {

// A side that crosses the rows from `top` to `bottom` - 1.
struct Edge {
    int top;
    int bottom;
    DevicePoint from;
    double width;
    double height;
    int winding;

    // Products first: between whole points the result is exact.
    double crossing(int row) const noexcept { return from.x + (row - from.y) * width / height; }
};

class RowFill {
public:
    RowFill(Canvas& canvas, const RECT& window, int fillMode, const Ink& ink)
        : m_canvas(canvas), m_window(window), m_evenOdd(fillMode != WINDING), m_ink(ink),
          m_changes(static_cast<std::size_t>(window.right - window.left) + 1)
    {
    }

    void add(DevicePoint from, DevicePoint to)
    {
        const int winding = from.y < to.y ? 1 : -1;
        if (winding < 0) {
            std::swap(from, to);
        }
        const double top = std::clamp<double>(std::ceil(from.y), m_window.top, m_window.bottom);
        const double bottom = std::clamp<double>(std::ceil(to.y), m_window.top, m_window.bottom);
        if (top < bottom) {
            m_edges.push_back({static_cast<int>(top), static_cast<int>(bottom), from, to.x - from.x,
                               to.y - from.y, winding});
        }
    }

    void run()
    {
        std::ranges::sort(m_edges, {}, &Edge::top);
        std::size_t next = 0;
        for (int row = m_window.top; row < m_window.bottom; ++row) {
            for (; next < m_edges.size() && m_edges[next].top <= row; ++next) {
                m_active.push_back(&m_edges[next]);
            }
            std::erase_if(m_active, [row](const Edge* edge) { return edge->bottom <= row; });
            if (!m_active.empty()) {
                fillRow(row);
            }
        }
    }

private:
    void fillRow(int row)
    {
        std::ranges::fill(m_changes, 0);
        for (const Edge* const edge : m_active) {
            const double first = std::ceil(edge->crossing(row));
            const double column = std::clamp<double>(first, m_window.left, m_window.right) - m_window.left;
            m_changes[static_cast<std::size_t>(column)] += edge->winding;
        }
        int winding = 0;
        int start = 0;
        bool inside = false;
        for (int column = 0; column <= m_window.right - m_window.left; ++column) {
            winding += m_changes[static_cast<std::size_t>(column)];
            const bool nowInside = m_evenOdd ? (winding & 1) != 0 : winding != 0;
            if (nowInside && !inside) {
                start = column;
            } else if (inside && !nowInside) {
                m_canvas.fillSpan(row, m_window.left + start, m_window.left + column, m_ink);
            }
            inside = nowInside;
        }
    }

    Canvas& m_canvas;
    RECT m_window;
    bool m_evenOdd;
    const Ink& m_ink;
    std::vector<int> m_changes; // of the winding, by column
    std::vector<Edge> m_edges;
    std::vector<const Edge*> m_active;
};

} // namespace

void fillByRows(Canvas& canvas, const Outline& outline, int fillMode, const Ink& ink)
{
    const RECT window = overlap(outline.box(), canvas.box());
    if (isEmpty(window)) {
        return;
    }
    RowFill fill(canvas, window, fillMode, ink);
    const Outline flat = outline.flattened();
    for (const Outline::Figure& figure : flat.figures()) {
        DevicePoint last = figure.points.back();
        for (const DevicePoint& point : figure.points) {
            fill.add(last, point);
            last = point;
        }
    }
    fill.run();
}

} // namespace wingdi
