// Records of many points, each in two forms: coordinates of 32 bits and of 16.
#include <algorithm>
#include <concepts>
#include <numeric>

#include "RecordHandlers.h"

namespace wingdi {

namespace {

using Points = std::vector<POINT>;

// `Stored` is POINT or POINTS.
template <class Stored>
std::optional<Points> readPoints(const metafile::Record& record, std::uint64_t offset, std::uint64_t count)
{
    if constexpr (std::same_as<Stored, POINT>) {
        return record.values<POINT>(offset, count);
    } else {
        const auto stored = record.values<Stored>(offset, count);
        if (!stored) {
            return std::nullopt;
        }
        Points points(stored->size());
        std::ranges::transform(*stored, points.begin(), [](Stored point) { return POINT{point.x, point.y}; });
        return points;
    }
}

// One line, curve or polygon.
template <class Stored, class Count, BOOL (*function)(HDC, const POINT*, Count)>
bool playPoly(Playback& playback, const metafile::Record& record)
{
    const auto count = record.field<DWORD>(offsetof(EMRPOLY, cptl));
    const auto points = count ? readPoints<Stored>(record, sizeof(EMRPOLY), *count) : std::nullopt;
    if (!points) {
        return false;
    }
    function(playback.target(), points->data(), static_cast<Count>(points->size()));
    return true;
}

// Several of them.
template <class Stored, class Count, class Number, BOOL (*function)(HDC, const POINT*, const Count*, Number)>
bool playPolys(Playback& playback, const metafile::Record& record)
{
    const auto fields = record.field<EMRPOLYPOLY>(0);
    const auto counts = fields ? record.values<Count>(sizeof(EMRPOLYPOLY), fields->nPolys) : std::nullopt;
    if (!counts) {
        return false;
    }
    const std::uint64_t total =
        std::accumulate(counts->begin(), counts->end(), std::uint64_t{0},
                        [](std::uint64_t sum, Count count) { return sum + static_cast<DWORD>(count); });
    const auto points = readPoints<Stored>(
        record, sizeof(EMRPOLYPOLY) + std::uint64_t{fields->nPolys} * sizeof(Count), fields->cptl);
    if (!points || total > points->size()) {
        return false;
    }
    function(playback.target(), points->data(), counts->data(), static_cast<Number>(counts->size()));
    return true;
}

// Lines and curves of one PolyDraw, drawn step by step.
class PolyDrawing {
public:
    explicit PolyDrawing(Playback& playback) : m_playback(playback)
    {
        GetCurrentPositionEx(playback.target(), &m_start);
    }

    // The points of one step: one, or three of a curve.
    void step(std::span<const POINT> points, BYTE type)
    {
        const HDC target = m_playback.target();
        const POINT end = points.back();
        if ((type & PT_MOVETO) == PT_MOVETO) {
            MoveToEx(target, end.x, end.y, nullptr);
            m_start = end;
        } else if (points.size() == 3) {
            PolyBezierTo(target, points.data(), 3);
        } else {
            LineTo(target, end.x, end.y);
        }
        if ((type & PT_CLOSEFIGURE) == 0 || (type & PT_MOVETO) == PT_MOVETO) {
            return;
        }
        if (m_playback.pathIsOpen()) {
            CloseFigure(target);
        } else {
            LineTo(target, m_start.x, m_start.y);
        }
    }

private:
    Playback& m_playback;
    POINT m_start{};
};

template <class Stored>
bool playPolyDraw(Playback& playback, const metafile::Record& record)
{
    const auto count = record.field<DWORD>(offsetof(EMRPOLY, cptl));
    const auto points = count ? readPoints<Stored>(record, sizeof(EMRPOLY), *count) : std::nullopt;
    const auto types =
        points ? record.values<BYTE>(sizeof(EMRPOLY) + std::uint64_t{*count} * sizeof(Stored), *count)
               : std::nullopt;
    if (!types) {
        return false;
    }
    PolyDrawing drawing(playback);
    const std::span<const POINT> all = *points;
    for (std::size_t index = 0; index < all.size();) {
        const bool curve = ((*types)[index] & PT_MOVETO) == PT_BEZIERTO;
        const std::size_t length = curve ? 3 : 1;
        if (all.size() - index < length) {
            return false;
        }
        drawing.step(all.subspan(index, length), (*types)[index + length - 1]);
        index += length;
    }
    return true;
}

constexpr RecordEntry Entries[] = {
    {EMR_POLYLINE, playPoly<POINT, int, Polyline>},
    {EMR_POLYLINE16, playPoly<POINTS, int, Polyline>},
    {EMR_POLYGON, playPoly<POINT, int, Polygon>},
    {EMR_POLYGON16, playPoly<POINTS, int, Polygon>},
    {EMR_POLYLINETO, playPoly<POINT, DWORD, PolylineTo>},
    {EMR_POLYLINETO16, playPoly<POINTS, DWORD, PolylineTo>},
    {EMR_POLYBEZIER, playPoly<POINT, DWORD, PolyBezier>},
    {EMR_POLYBEZIER16, playPoly<POINTS, DWORD, PolyBezier>},
    {EMR_POLYBEZIERTO, playPoly<POINT, DWORD, PolyBezierTo>},
    {EMR_POLYBEZIERTO16, playPoly<POINTS, DWORD, PolyBezierTo>},
    {EMR_POLYPOLYLINE, playPolys<POINT, DWORD, DWORD, PolyPolyline>},
    {EMR_POLYPOLYLINE16, playPolys<POINTS, DWORD, DWORD, PolyPolyline>},
    {EMR_POLYPOLYGON, playPolys<POINT, INT, int, PolyPolygon>},
    {EMR_POLYPOLYGON16, playPolys<POINTS, INT, int, PolyPolygon>},
    {EMR_POLYDRAW, playPolyDraw<POINT>},
    {EMR_POLYDRAW16, playPolyDraw<POINTS>},
};

} // namespace

std::span<const RecordEntry> polyRecords() noexcept
{
    return Entries;
}

} // namespace wingdi
