#include "FloodFill.h"

#include <algorithm>
#include <vector>

namespace wingdi {

namespace {

// Remembers which pixels of the canvas were reached, so that it does not matter what they look like meanwhile.
class Flood {
public:
    Flood(Canvas& canvas, DWORD color, bool untilBorder)
        : m_canvas(canvas), m_box(canvas.box()), m_color(color), m_untilBorder(untilBorder),
          m_width(m_box.right - m_box.left),
          m_reached(static_cast<std::size_t>(m_width) * static_cast<std::size_t>(m_box.bottom - m_box.top))
    {
    }

    bool isOpen(int x, int y)
    {
        return !m_reached[index(x, y)] && m_canvas.contains(x, y) &&
               ((m_canvas.view().pixel(x, y) & 0xFFFFFF) == m_color) != m_untilBorder;
    }

    // Goes from row to row: each stretch of a row that was reached leads to those above and below it.
    void fillFrom(POINT start, const Ink& ink)
    {
        m_pending.push_back(start);
        while (!m_pending.empty()) {
            const POINT point = m_pending.back();
            m_pending.pop_back();
            if (!isOpen(point.x, point.y)) {
                continue;
            }
            int left = point.x;
            while (left > m_box.left && isOpen(left - 1, point.y)) {
                --left;
            }
            int right = point.x + 1;
            while (right < m_box.right && isOpen(right, point.y)) {
                ++right;
            }
            std::fill(m_reached.begin() + at(left, point.y), m_reached.begin() + at(right - 1, point.y) + 1,
                      true);
            m_canvas.fillSpan(point.y, left, right, ink);
            lookAt(point.y - 1, left, right);
            lookAt(point.y + 1, left, right);
        }
    }

private:
    std::size_t index(int x, int y) const
    {
        return static_cast<std::size_t>(y - m_box.top) * static_cast<std::size_t>(m_width) +
               static_cast<std::size_t>(x - m_box.left);
    }
    std::ptrdiff_t at(int x, int y) const { return static_cast<std::ptrdiff_t>(index(x, y)); }

    // One point of each open stretch of the row.
    void lookAt(int y, int left, int right)
    {
        if (y < m_box.top || y >= m_box.bottom) {
            return;
        }
        bool inside = false;
        for (int x = left; x < right; ++x) {
            const bool open = isOpen(x, y);
            if (open && !inside) {
                m_pending.push_back({x, y});
            }
            inside = open;
        }
    }

    Canvas& m_canvas;
    RECT m_box;
    DWORD m_color;
    bool m_untilBorder;
    int m_width;
    std::vector<bool> m_reached;
    std::vector<POINT> m_pending;
};

} // namespace

bool flood(Canvas& canvas, POINT start, DWORD color, bool untilBorder, const std::optional<Ink>& ink)
{
    if (!canvas.contains(start.x, start.y)) {
        return false;
    }
    Flood area(canvas, color, untilBorder);
    if (!area.isOpen(start.x, start.y)) {
        return false;
    }
    if (ink) {
        area.fillFrom(start, *ink);
    }
    return true;
}

} // namespace wingdi
