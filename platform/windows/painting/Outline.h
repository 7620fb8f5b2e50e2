// The outline of a shape in device units, and how it is cut to what can be seen before cairo meets it.
#pragma once

#include <windows.h>

#include <span>
#include <vector>

#include "Mapping.h"

using cairo_t = struct _cairo; // NOLINT(bugprone-reserved-identifier): cairo's own tag

namespace wingdi {

class Outline {
public:
    enum class Step : unsigned char { Move, Line, Curve, Close };

    void moveTo(DevicePoint point) { add(Step::Move, {point}); }
    void lineTo(DevicePoint point) { add(Step::Line, {point}); }
    // A cubic Bézier curve.
    void curveTo(DevicePoint first, DevicePoint second, DevicePoint end)
    {
        add(Step::Curve, {first, second, end});
    }
    // A straight line back to where the figure began; the next step moves.
    void close();
    void append(const Outline& other);
    void move(double x, double y) noexcept;
    void clear();

    bool empty() const noexcept { return m_steps.empty(); }
    // How many points it has.
    std::size_t size() const noexcept { return m_points.size(); }
    // Whether a line can go on from the last point, and that point.
    bool isOpen() const noexcept { return !m_steps.empty() && m_steps.back() != Step::Close; }
    DevicePoint last() const noexcept { return m_points.back(); }

    // Around all points, rounded outwards and cut off at +-2^26; right and bottom excluded.
    RECT box() const noexcept;
    bool hasCurves() const noexcept;
    // Curves turned into lines that leave them by less than a thirtieth of a unit.
    Outline flattened() const;
    // The same with all points moved to the nearest ones of the grid, as thin lines pass them.
    Outline onGrid() const;
    // Every figure closed.
    Outline closed() const;

    // A run of straight lines.
    struct Figure {
        std::span<const DevicePoint> points;
        bool closed;
    };
    // Of a flattened outline.
    std::vector<Figure> figures() const;

    // What is seen of a filled shape within a rectangle, from points nearby only.
    Outline clippedArea(const RECT& rect) const;
    // What is seen of its lines within a rectangle. `dashes`: lengths on and off in turn, none for unbroken lines.
    Outline clippedLines(const RECT& rect, std::span<const double> dashes) const;

    // Calls visit(step, points): one point of Move and Line, three of Curve, none of Close.
    template <class Visit>
    void forEach(const Visit& visit) const
    {
        const DevicePoint* point = m_points.data();
        for (const Step step : m_steps) {
            visit(step, point);
            point += step == Step::Curve ? 3 : step == Step::Close ? 0 : 1;
        }
    }

    // Adds the shape to cairo's path, half a unit to the right and down: cairo asks the middles of pixels.
    void trace(cairo_t* cairo) const;

private:
    void add(Step step, std::initializer_list<DevicePoint> points);

    std::vector<Step> m_steps;
    std::vector<DevicePoint> m_points;
};

} // namespace wingdi
