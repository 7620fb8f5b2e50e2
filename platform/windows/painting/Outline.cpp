#include "Outline.h"

#include <cairo.h>

#include <algorithm>
#include <cmath>

namespace wingdi {

namespace {

constexpr double Farthest = 1 << 26;
// Beyond this a shape counts as running off to infinity.
constexpr double Unreachable = 1e12;

double settled(double value)
{
    return std::isfinite(value) ? std::clamp(value, -Unreachable, Unreachable) : 0.0;
}

// How many lines stand for a curve: the distance from a chord falls with the square of their number.
int lineCount(DevicePoint a, DevicePoint b, DevicePoint c, DevicePoint d)
{
    const double bend = std::max(std::hypot(a.x - 2 * b.x + c.x, a.y - 2 * b.y + c.y),
                                 std::hypot(b.x - 2 * c.x + d.x, b.y - 2 * c.y + d.y));
    return static_cast<int>(std::clamp(std::ceil(std::sqrt(24.0 * bend)), 1.0, 2000.0));
}

DevicePoint onCurve(DevicePoint a, DevicePoint b, DevicePoint c, DevicePoint d, double t)
{
    const double u = 1 - t;
    const double ka = u * u * u;
    const double kb = 3 * u * u * t;
    const double kc = 3 * u * t * t;
    const double kd = t * t * t;
    return {ka * a.x + kb * b.x + kc * c.x + kd * d.x, ka * a.y + kb * b.y + kc * c.y + kd * d.y};
}

} // namespace

void Outline::add(Step step, std::initializer_list<DevicePoint> points)
{
    m_steps.push_back(step);
    for (const DevicePoint point : points) {
        m_points.push_back({settled(point.x), settled(point.y)});
    }
}

void Outline::close()
{
    if (isOpen()) {
        m_steps.push_back(Step::Close);
    }
}

void Outline::append(const Outline& other)
{
    m_steps.insert(m_steps.end(), other.m_steps.begin(), other.m_steps.end());
    m_points.insert(m_points.end(), other.m_points.begin(), other.m_points.end());
}

void Outline::move(double x, double y) noexcept
{
    for (DevicePoint& point : m_points) {
        point.x += x;
        point.y += y;
    }
}

void Outline::clear()
{
    m_steps.clear();
    m_points.clear();
}

RECT Outline::box() const noexcept
{
    if (m_points.empty()) {
        return {0, 0, 0, 0};
    }
    DevicePoint low = m_points.front();
    DevicePoint high = low;
    for (const DevicePoint point : m_points) {
        low = {std::min(low.x, point.x), std::min(low.y, point.y)};
        high = {std::max(high.x, point.x), std::max(high.y, point.y)};
    }
    const auto unit = [](double value) {
        return static_cast<LONG>(std::clamp(value, -Farthest, Farthest));
    };
    return {unit(std::floor(low.x)), unit(std::floor(low.y)), unit(std::floor(high.x)) + 1,
            unit(std::floor(high.y)) + 1};
}

Outline Outline::closed() const
{
    Outline result;
    result.m_points = m_points;
    for (const Step step : m_steps) {
        if (step == Step::Move) {
            result.close();
        }
        result.m_steps.push_back(step);
    }
    result.close();
    return result;
}

bool Outline::hasCurves() const noexcept
{
    return std::find(m_steps.begin(), m_steps.end(), Step::Curve) != m_steps.end();
}

Outline Outline::onGrid() const
{
    Outline snapped = flattened();
    for (DevicePoint& point : snapped.m_points) {
        point = {std::floor(point.x + 0.5), std::floor(point.y + 0.5)};
    }
    return snapped;
}

Outline Outline::flattened() const
{
    if (!hasCurves()) {
        return *this;
    }
    Outline flat;
    const DevicePoint* point = m_points.data();
    for (const Step step : m_steps) {
        if (step == Step::Curve) {
            const DevicePoint from = point[-1];
            const int lines = lineCount(from, point[0], point[1], point[2]);
            for (int i = 1; i < lines; ++i) {
                flat.lineTo(onCurve(from, point[0], point[1], point[2], static_cast<double>(i) / lines));
            }
            flat.lineTo(point[2]);
            point += 3;
        } else if (step == Step::Close) {
            flat.close();
        } else {
            flat.add(step, {*point++});
        }
    }
    return flat;
}

std::vector<Outline::Figure> Outline::figures() const
{
    std::vector<Figure> figures;
    const DevicePoint* begin = m_points.data();
    const DevicePoint* point = begin;
    const auto finish = [&](bool closed) {
        if (point != begin) {
            figures.push_back({{begin, point}, closed});
        }
        begin = point;
    };
    for (const Step step : m_steps) {
        if (step == Step::Close) {
            finish(true);
            continue;
        }
        if (step == Step::Move) {
            finish(false);
        }
        ++point;
    }
    finish(false);
    return figures;
}

void Outline::trace(cairo_t* cairo) const
{
    constexpr double Half = 0.5;
    forEach([cairo](Step step, const DevicePoint* point) {
        switch (step) {
        case Step::Move:
            cairo_move_to(cairo, point->x + Half, point->y + Half);
            break;
        case Step::Line:
            cairo_line_to(cairo, point->x + Half, point->y + Half);
            break;
        case Step::Curve:
            cairo_curve_to(cairo, point[0].x + Half, point[0].y + Half, point[1].x + Half, point[1].y + Half,
                           point[2].x + Half, point[2].y + Half);
            break;
        case Step::Close:
            cairo_close_path(cairo);
            break;
        }
    });
}

} // namespace wingdi
