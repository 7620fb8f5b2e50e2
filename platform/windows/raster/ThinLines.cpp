// Lines of one pixel: of the pixels that a line passes, the nearest to it in each step along its longer side
// (Bresenham). Only steps that can be seen are taken.
#include <algorithm>
#include <cmath>
#include <cstdint>

#include "Strokes.h"

namespace wingdi {

namespace {

constexpr int Farthest = 1 << 26;

// A walk along one line: step i is at `major + i * majorStep` on the longer axis.
struct Walk {
    std::int64_t major;
    std::int64_t minor;
    std::int64_t length; // of the longer side
    std::int64_t rise;   // of the shorter side
    int majorStep;
    int minorStep;

    std::int64_t majorAt(std::int64_t i) const { return major + majorStep * i; }
    // Halfway between two pixels the line keeps to the upper or left one, whichever way it runs.
    std::int64_t bias() const { return length - (minorStep > 0 ? 1 : 0); }
    // How far the line has come on the shorter axis.
    std::int64_t risen(std::int64_t i) const { return (2 * i * rise + bias()) / (2 * length); }
    // The first step after `i` at which it comes farther.
    std::int64_t nextRise(std::int64_t i) const
    {
        const std::int64_t wanted = 2 * length * (risen(i) + 1) - bias();
        return rise == 0 ? length : (wanted + 2 * rise - 1) / (2 * rise);
    }
    std::int64_t minorAt(std::int64_t i) const { return minor + minorStep * risen(i); }
};

struct Steps {
    std::int64_t begin;
    std::int64_t end;
};

// The steps at which a coordinate that begins at `from` and changes by `slope` a step lies within [low, high), and
// some to either side.
Steps stepsWithin(std::int64_t from, double slope, int low, int high, Steps steps)
{
    if (slope == 0) {
        return from >= low && from < high ? steps : Steps{0, 0};
    }
    const double first = (static_cast<double>(low) - 2 - static_cast<double>(from)) / slope;
    const double last = (static_cast<double>(high) + 2 - static_cast<double>(from)) / slope;
    const double begin = std::clamp(std::floor(std::min(first, last)), -1e10, 1e10);
    const double end = std::clamp(std::ceil(std::max(first, last)), -1e10, 1e10);
    return {std::max(steps.begin, static_cast<std::int64_t>(begin)),
            std::min(steps.end, static_cast<std::int64_t>(end))};
}

// Draws the lines of one figure, whose dashes go on from one to the next.
class ThinPen {
public:
    ThinPen(Canvas& canvas, const PenLook& look, const Ink& ink) : m_canvas(canvas), m_ink(ink)
    {
        for (const double dash : look.dashes) {
            m_dashes.push_back(std::max<std::int64_t>(1, std::llround(dash)));
            m_period += m_dashes.back();
        }
        if (look.gapColor) {
            m_gap = Ink{ink.operation, *look.gapColor, nullptr, {0, 0}};
        }
        if (m_dashes.size() % 2 != 0) {
            m_dashes.insert(m_dashes.end(), m_dashes.begin(), m_dashes.end());
            m_period *= 2;
        }
    }

    // All but the last point.
    void draw(POINT from, POINT to)
    {
        const std::int64_t dx = std::int64_t{to.x} - from.x;
        const std::int64_t dy = std::int64_t{to.y} - from.y;
        const int stepX = dx < 0 ? -1 : 1;
        const int stepY = dy < 0 ? -1 : 1;
        if (dx == 0 && dy == 0) {
            return;
        }
        if (std::abs(dx) >= std::abs(dy)) {
            draw({from.x, from.y, std::abs(dx), std::abs(dy), stepX, stepY}, true);
        } else {
            draw({from.y, from.x, std::abs(dy), std::abs(dx), stepY, stepX}, false);
        }
        m_position += std::max(std::abs(dx), std::abs(dy));
    }

private:
    static Steps visibleSteps(const Walk& walk, int lowMajor, int highMajor, int lowMinor, int highMinor)
    {
        const Steps all{0, walk.length};
        const Steps along = stepsWithin(walk.major, walk.majorStep, lowMajor, highMajor, all);
        const double slope =
            walk.minorStep * (static_cast<double>(walk.rise) / static_cast<double>(walk.length));
        return stepsWithin(walk.minor, slope, lowMinor, highMinor, along);
    }

    // By runs of pixels that lie beside or on top of one another.
    void draw(const Walk& walk, bool flat)
    {
        const RECT& box = m_canvas.box();
        const Steps steps = flat ? visibleSteps(walk, box.left, box.right, box.top, box.bottom)
                                 : visibleSteps(walk, box.top, box.bottom, box.left, box.right);
        for (std::int64_t i = steps.begin; i < steps.end;) {
            const auto minor = static_cast<int>(walk.minorAt(i));
            const std::int64_t end = std::min(steps.end, walk.nextRise(i));
            run(i, end, [&](std::int64_t first, std::int64_t last, const Ink& ink) {
                const auto a = static_cast<int>(walk.majorAt(first));
                const auto b = static_cast<int>(walk.majorAt(last - 1));
                const auto [low, high] = std::minmax(a, b);
                m_canvas.fill(flat ? RECT{low, minor, high + 1, minor + 1}
                                   : RECT{minor, low, minor + 1, high + 1},
                              ink);
            });
            i = end;
        }
    }

    // Splits steps by the dashes.
    template <class Lay>
    void run(std::int64_t begin, std::int64_t end, const Lay& lay)
    {
        if (m_dashes.empty()) {
            lay(begin, end, m_ink);
            return;
        }
        while (begin < end) {
            std::int64_t rest = (m_position + begin) % m_period;
            std::size_t dash = 0;
            while (rest >= m_dashes[dash]) {
                rest -= m_dashes[dash++];
            }
            const std::int64_t next = std::min(end, begin + m_dashes[dash] - rest);
            if (dash % 2 == 0) {
                lay(begin, next, m_ink);
            } else if (m_gap) {
                lay(begin, next, *m_gap);
            }
            begin = next;
        }
    }

    Canvas& m_canvas;
    const Ink& m_ink;
    std::optional<Ink> m_gap;
    std::vector<std::int64_t> m_dashes;
    std::int64_t m_period = 0;
    std::int64_t m_position = 0;
};

POINT gridPoint(DevicePoint point)
{
    const auto unit = [](double value) {
        return static_cast<LONG>(std::floor(std::clamp<double>(value, -Farthest, Farthest) + 0.5));
    };
    return {unit(point.x), unit(point.y)};
}

} // namespace

void strokeThin(Canvas& canvas, const Outline& outline, const PenLook& pen, const Ink& ink)
{
    Outline flat;
    if (outline.hasCurves()) {
        flat = outline.flattened();
    }
    for (const Outline::Figure& figure : (flat.empty() ? outline : flat).figures()) {
        ThinPen line(canvas, pen, ink);
        POINT last = gridPoint(figure.points.front());
        for (const DevicePoint point : figure.points.subspan(1)) {
            const POINT next = gridPoint(point);
            line.draw(last, next);
            last = next;
        }
        if (figure.closed) {
            line.draw(last, gridPoint(figure.points.front()));
        }
    }
}

} // namespace wingdi
