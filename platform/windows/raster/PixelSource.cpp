#include "PixelSource.h"

#include <algorithm>
#include <cmath>

#include "DeviceRect.h"
#include "PixelRows.h"

namespace wingdi {

namespace {

constexpr LONG Farthest = 1 << 26;

LONG bounded(LONG value)
{
    return std::clamp(value, -Farthest, Farthest);
}

double clampedFloor(double value)
{
    return std::clamp(std::floor(value), -double{Farthest}, double{Farthest});
}

RECT rectBetween(POINT first, POINT second)
{
    return {std::min(first.x, second.x), std::min(first.y, second.y), std::max(first.x, second.x),
            std::max(first.y, second.y)};
}

// The source positions of the target positions [begin, end) along one axis, cut to those within [low, high). Source
// positions run one way, so what is cut lies at the ends; begin and end follow.
std::vector<int> positionsAlong(const AxisCopy& copy, int low, int high, LONG& begin, LONG& end)
{
    const auto source = static_cast<double>(copy.source);
    const auto target = static_cast<double>(copy.target);
    const auto targetLength = static_cast<double>(copy.targetEnd - copy.target);
    const auto sourceLength = static_cast<double>(copy.sourceEnd - copy.source);
    const auto at = [&](LONG position) {
        return std::floor(source + (position + 0.5 - target) * sourceLength / targetLength);
    };
    const auto isInside = [&](LONG position) {
        return at(position) >= low && at(position) < high;
    };
    while (begin < end && !isInside(begin)) {
        ++begin;
    }
    while (end > begin && !isInside(end - 1)) {
        --end;
    }
    std::vector<int> positions;
    positions.reserve(static_cast<std::size_t>(end - begin));
    for (LONG position = begin; position < end; ++position) {
        positions.push_back(static_cast<int>(at(position)));
    }
    return positions;
}

bool holds(const RECT& rect, const DevicePoint& point)
{
    return point.x >= rect.left && point.x < rect.right && point.y >= rect.top && point.y < rect.bottom;
}

// One for each source pixel along the way (x, y), which crosses a target pixel. A rounding error makes no second one,
// and the limit is for areas that leave their bitmap far behind.
int samplesFor(double x, double y)
{
    constexpr double RoundingError = 1e-6;
    constexpr double Most = 64;
    return static_cast<int>(std::clamp(std::ceil(std::hypot(x, y) - RoundingError), 1.0, Most));
}

bool isRun(const std::vector<int>& positions)
{
    for (std::size_t i = 1; i < positions.size(); ++i) {
        if (positions[i] != positions[i - 1] + 1) {
            return false;
        }
    }
    return true;
}

} // namespace

PixelSource::PixelSource(const BitmapView& view, const CornerPair& area, const RECT& target,
                         const Mapping& toDevice, const RECT& visible, const CopyRules& rules)
    : m_view(view), m_rules(rules),
      m_inside(overlap(rectBetween(area.first, area.second), {0, 0, view.width, view.height})),
      m_turned(!toDevice.isAxisAligned())
{
    if (isEmpty(m_inside)) {
        return;
    }
    if (m_turned) {
        placeTurned(area, target, toDevice, visible);
        return;
    }
    CornerPair corners{toDevice.toDevice({target.left, target.top}),
                       toDevice.toDevice({target.right, target.bottom})};
    if (rules.startsOnPixel) {
        takeFirstPixel(corners, target.right < target.left, target.bottom < target.top);
    }
    placeStraight(area, corners, visible);
}

void PixelSource::placeStraight(const CornerPair& area, const CornerPair& target, const RECT& visible)
{
    m_box = overlap(rectBetween(target.first, target.second), visible);
    if (isEmpty(m_box)) {
        return;
    }
    const AxisCopy across{bounded(target.first.x), bounded(target.second.x), bounded(area.first.x),
                          bounded(area.second.x)};
    const AxisCopy down{bounded(target.first.y), bounded(target.second.y), bounded(area.first.y),
                        bounded(area.second.y)};
    m_columns = positionsAlong(across, m_inside.left, m_inside.right, m_box.left, m_box.right);
    m_rows = positionsAlong(down, m_inside.top, m_inside.bottom, m_box.top, m_box.bottom);
    const bool smaller = across.shrinks() || down.shrinks();
    if (smaller && m_rules.shrinking != Shrinking::Nearest &&
        ShrunkPixels::mayHold(m_columns.size(), m_rows.size())) {
        m_shrunk.emplace(
            m_view, m_rules.colors, m_rules.shrinking,
            ShrunkAxis(across, m_columns, m_box.left, m_inside.left, m_inside.right, m_rules.shrinking),
            ShrunkAxis(down, m_rows, m_box.top, m_inside.top, m_inside.bottom, m_rules.shrinking));
    }
    m_unscaled = isRun(m_columns);
}

void PixelSource::placeTurned(const CornerPair& area, const RECT& target, const Mapping& toDevice,
                              const RECT& visible)
{
    const auto stretch = [](double from, double to, double unit) {
        return to == from ? 0 : unit / (to - from);
    };
    const double alongX = stretch(bounded(area.first.x), bounded(area.second.x),
                                  static_cast<double>(target.right) - target.left);
    const double alongY = stretch(bounded(area.first.y), bounded(area.second.y),
                                  static_cast<double>(target.bottom) - target.top);
    const Mapping toTarget{alongX,
                           0,
                           0,
                           alongY,
                           target.left - bounded(area.first.x) * alongX,
                           target.top - bounded(area.first.y) * alongY};
    const Mapping whole = toTarget.then(toDevice);
    const double size = whole.xx * whole.yy - whole.xy * whole.yx;
    if (size == 0 || !std::isfinite(size)) {
        return;
    }
    m_toSource = whole.inverse();
    if (m_rules.shrinking != Shrinking::Nearest) {
        m_samplesAcross = samplesFor(m_toSource.xx, m_toSource.xy);
        m_samplesDown = samplesFor(m_toSource.yx, m_toSource.yy);
    }
    RECT around{INT32_MAX, INT32_MAX, INT32_MIN, INT32_MIN};
    for (const POINT corner :
         {POINT{m_inside.left, m_inside.top}, POINT{m_inside.right, m_inside.top},
          POINT{m_inside.left, m_inside.bottom}, POINT{m_inside.right, m_inside.bottom}}) {
        const DevicePoint point = whole.apply(corner.x, corner.y);
        const auto x = static_cast<LONG>(clampedFloor(point.x));
        const auto y = static_cast<LONG>(clampedFloor(point.y));
        around = {std::min(around.left, x), std::min(around.top, y), std::max(around.right, x + 1),
                  std::max(around.bottom, y + 1)};
    }
    m_box = overlap(around, visible);
}

PixelSource::Stretch PixelSource::read(int x, int y, int count)
{
    if (m_turned) {
        return readTurned(x, y, count);
    }
    if (m_shrunk) {
        return {m_shrunk->read(static_cast<std::size_t>(x - m_box.left),
                               static_cast<std::size_t>(y - m_box.top), static_cast<std::size_t>(count)),
                0, count};
    }
    if (m_unscaled) {
        const int column = m_columns[static_cast<std::size_t>(x - m_box.left)];
        const int row = m_rows[static_cast<std::size_t>(y - m_box.top)];
        if (m_rules.colors.kind == ColorRule::Kind::None && hasCommonOrder(m_view)) {
            return {reinterpret_cast<const DWORD*>(m_view.row(row)) + column, 0, count};
        }
        m_pixels.resize(static_cast<std::size_t>(count));
        readPixels(m_view, column, row, count, m_pixels.data());
        m_rules.colors.apply(m_pixels.data(), count);
    } else {
        readScaled(x, y, count);
    }
    return {m_pixels.data(), 0, count};
}

void PixelSource::readScaled(int x, int y, int count)
{
    const auto [low, high] = std::minmax(m_columns.front(), m_columns.back());
    const int row = m_rows[static_cast<std::size_t>(y - m_box.top)];
    if (row != m_sourceRowAt) {
        const int width = high - low + 1;
        m_sourceRow.resize(static_cast<std::size_t>(width));
        readPixels(m_view, low, row, width, m_sourceRow.data());
        m_rules.colors.apply(m_sourceRow.data(), width);
        m_sourceRowAt = row;
    }
    m_pixels.resize(static_cast<std::size_t>(count));
    const int* column = m_columns.data() + (x - m_box.left);
    for (int i = 0; i < count; ++i) {
        m_pixels[static_cast<std::size_t>(i)] = m_sourceRow[static_cast<std::size_t>(column[i] - low)];
    }
}

// What lies on the area is one stretch of each row.
PixelSource::Stretch PixelSource::readTurned(int x, int y, int count)
{
    m_pixels.resize(static_cast<std::size_t>(count));
    const bool mixes = m_samplesAcross > 1 || m_samplesDown > 1;
    int begin = count;
    int end = 0;
    for (int i = 0; i < count; ++i) {
        const DevicePoint point = m_toSource.apply(x + i + 0.5, y + 0.5);
        const bool inside = holds(m_inside, point);
        if (inside) {
            DWORD& pixel = m_pixels[static_cast<std::size_t>(i)];
            if (mixes) {
                pixel = mixTurned(x + i, y, point);
            } else {
                readPixels(m_view, static_cast<int>(point.x), static_cast<int>(point.y), 1, &pixel);
            }
            begin = std::min(begin, i);
            end = i + 1;
        } else if (end != 0) {
            break;
        }
    }
    if (begin >= end) {
        return {nullptr, 0, 0};
    }
    if (!mixes) {
        m_rules.colors.apply(m_pixels.data() + begin, end - begin);
    }
    return {m_pixels.data() + begin, begin, end - begin};
}

DWORD PixelSource::mixTurned(int x, int y, const DevicePoint& middle) const
{
    MixedPixel mixed(m_rules.colors, m_rules.shrinking);
    const auto add = [&](const DevicePoint& point) {
        DWORD pixel = 0;
        readPixels(m_view, static_cast<int>(point.x), static_cast<int>(point.y), 1, &pixel);
        mixed.add(pixel);
    };
    for (int down = 0; down < m_samplesDown; ++down) {
        for (int across = 0; across < m_samplesAcross; ++across) {
            const DevicePoint point =
                m_toSource.apply(x + (across + 0.5) / m_samplesAcross, y + (down + 0.5) / m_samplesDown);
            if (holds(m_inside, point)) {
                add(point);
            }
        }
    }
    if (mixed.empty()) {
        add(middle);
    }
    return mixed.result();
}

} // namespace wingdi
