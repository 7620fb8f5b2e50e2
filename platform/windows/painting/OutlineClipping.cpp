// How outlines are cut: areas by one edge of the rectangle after another (Sutherland and Hodgman), lines by the part
// of them that lies between all edges (Liang and Barsky).
#include "Outline.h"

#include <algorithm>
#include <cmath>

namespace wingdi {

namespace {

// A half-plane x * nx + y * ny >= limit.
struct Edge {
    double nx;
    double ny;
    double limit;

    double distance(DevicePoint point) const { return point.x * nx + point.y * ny - limit; }
};

std::vector<Edge> edgesOf(const RECT& rect)
{
    return {{1, 0, static_cast<double>(rect.left)},
            {-1, 0, -static_cast<double>(rect.right)},
            {0, 1, static_cast<double>(rect.top)},
            {0, -1, -static_cast<double>(rect.bottom)}};
}

DevicePoint crossing(DevicePoint from, DevicePoint to, double fromDistance, double toDistance)
{
    const double part = fromDistance / (fromDistance - toDistance);
    return {from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part};
}

std::vector<DevicePoint> cutBy(const Edge& edge, const std::vector<DevicePoint>& points)
{
    std::vector<DevicePoint> kept;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const DevicePoint from = points[i == 0 ? points.size() - 1 : i - 1];
        const DevicePoint to = points[i];
        const double fromDistance = edge.distance(from);
        const double toDistance = edge.distance(to);
        if ((fromDistance < 0) != (toDistance < 0)) {
            kept.push_back(crossing(from, to, fromDistance, toDistance));
        }
        if (toDistance >= 0) {
            kept.push_back(to);
        }
    }
    return kept;
}

// The parts of a line, from 0 at its begin to 1 at its end, between which it lies inside; begin above end: nowhere.
struct Part {
    double begin = 0;
    double end = 1;
};

Part partInside(const std::vector<Edge>& edges, DevicePoint from, DevicePoint to)
{
    Part part;
    for (const Edge& edge : edges) {
        const double fromDistance = edge.distance(from);
        const double toDistance = edge.distance(to);
        if (fromDistance < 0 && toDistance < 0) {
            return {1, 0};
        }
        if (fromDistance < 0) {
            part.begin = std::max(part.begin, fromDistance / (fromDistance - toDistance));
        } else if (toDistance < 0) {
            part.end = std::min(part.end, fromDistance / (fromDistance - toDistance));
        }
    }
    return part;
}

// The place of a walk along a line in its dashes.
class DashWalk {
public:
    explicit DashWalk(std::span<const double> dashes) : m_dashes(dashes)
    {
        for (const double dash : dashes) {
            m_period += dash;
        }
        if (!dashes.empty()) {
            m_rest = dashes[0];
        }
    }

    bool isOn() const { return m_dashes.empty() || m_index % 2 == 0; }
    // How far it is to the next change.
    double rest() const { return m_dashes.empty() ? 1e300 : m_rest; }
    void advance(double length)
    {
        if (m_dashes.empty()) {
            return;
        }
        // An odd number of dashes changes sides with each period.
        length = std::fmod(length, 2 * m_period);
        while (length >= m_rest) {
            length -= m_rest;
            m_index = (m_index + 1) % (2 * m_dashes.size());
            m_rest = m_dashes[m_index % m_dashes.size()];
        }
        m_rest -= length;
    }

private:
    std::span<const double> m_dashes;
    double m_period = 0;
    std::size_t m_index = 0;
    double m_rest = 0;
};

// Adds the visible pieces of one line; `joined`: whether its first piece goes on from the last.
class LineCutter {
public:
    LineCutter(const RECT& rect, std::span<const double> dashes, Outline& out)
        : m_edges(edgesOf(rect)), m_walk(dashes), m_out(out)
    {
    }

    void cut(DevicePoint from, DevicePoint to)
    {
        const double length = std::hypot(to.x - from.x, to.y - from.y);
        const Part part = partInside(m_edges, from, to);
        if (part.begin > part.end) {
            m_walk.advance(length);
            m_joined = false;
            return;
        }
        m_joined = m_joined && part.begin == 0;
        double position = part.begin * length;
        const double end = part.end * length;
        m_walk.advance(position);
        do {
            const bool changes = m_walk.rest() <= end - position;
            const double next = changes ? position + m_walk.rest() : end;
            if (m_walk.isOn()) {
                if (!m_joined) {
                    m_out.moveTo(at(from, to, position, length));
                }
                m_out.lineTo(at(from, to, next, length));
            }
            m_joined = m_walk.isOn() && !changes;
            m_walk.advance(changes ? m_walk.rest() : end - position);
            position = next;
        } while (position < end);
        m_walk.advance(length - end);
        m_joined = m_joined && part.end == 1;
    }

private:
    static DevicePoint at(DevicePoint from, DevicePoint to, double position, double length)
    {
        const double part = length > 0 ? position / length : 0;
        return {from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part};
    }

    std::vector<Edge> m_edges;
    DashWalk m_walk;
    Outline& m_out;
    bool m_joined = false;
};

} // namespace

Outline Outline::clippedArea(const RECT& rect) const
{
    const Outline flat = flattened();
    Outline area;
    for (const Figure& figure : flat.figures()) {
        std::vector<DevicePoint> points(figure.points.begin(), figure.points.end());
        for (const Edge& edge : edgesOf(rect)) {
            points = cutBy(edge, points);
        }
        for (std::size_t i = 0; i < points.size(); ++i) {
            area.add(i == 0 ? Step::Move : Step::Line, {points[i]});
        }
        area.close();
    }
    return area;
}

Outline Outline::clippedLines(const RECT& rect, std::span<const double> dashes) const
{
    const Outline flat = flattened();
    Outline lines;
    for (const Figure& figure : flat.figures()) {
        LineCutter cutter(rect, dashes, lines);
        for (std::size_t i = 1; i < figure.points.size(); ++i) {
            cutter.cut(figure.points[i - 1], figure.points[i]);
        }
        if (figure.closed) {
            cutter.cut(figure.points.back(), figure.points.front());
        }
    }
    return lines;
}

} // namespace wingdi
