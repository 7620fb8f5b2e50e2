#include "LongStroke.h"

#include <algorithm>
#include <vector>

namespace wingdi {

namespace {

constexpr std::size_t MostPointsAtOnce = 1024; // of a stroke
constexpr std::size_t PieceLength = 128;

// A long figure in pieces that share a segment, so that each joint is made once at least.
void strokeLong(cairo_t* cairo, const PenLook& pen, const Outline::Figure& figure)
{
    std::vector<DevicePoint> points(figure.points.begin(), figure.points.end());
    if (figure.closed) {
        points.insert(points.end(), {points[0], points[1]});
    }
    PenLook inner = pen; // where a piece ends and the figure goes on
    if ((pen.style & PS_JOIN_MASK) != PS_JOIN_ROUND || (pen.style & PS_ENDCAP_MASK) != PS_ENDCAP_ROUND) {
        inner.style = (pen.style & ~static_cast<DWORD>(PS_ENDCAP_MASK)) | PS_ENDCAP_FLAT;
    }
    for (std::size_t begin = 0, end = 0; end + 1 < points.size(); begin = end - 1) {
        end = std::min(begin + PieceLength, points.size() - 1);
        Outline piece;
        piece.moveTo(points[begin]);
        for (std::size_t i = begin + 1; i <= end; ++i) {
            piece.lineTo(points[i]);
        }
        piece.trace(cairo);
        const bool atAnEnd = !figure.closed && (begin == 0 || end + 1 == points.size());
        strokeTraced(cairo, atAnEnd ? pen : inner);
    }
}

} // namespace

void strokeOutline(cairo_t* cairo, const PenLook& pen, const Outline& outline)
{
    if (outline.size() <= MostPointsAtOnce) {
        outline.trace(cairo);
        strokeTraced(cairo, pen);
        return;
    }
    const Outline flat = outline.flattened();
    Outline batch;
    const auto flush = [&] {
        batch.trace(cairo);
        strokeTraced(cairo, pen);
        batch.clear();
    };
    for (const Outline::Figure& figure : flat.figures()) {
        if (figure.points.size() > PieceLength) {
            strokeLong(cairo, pen, figure);
            continue;
        }
        batch.moveTo(figure.points.front());
        for (const DevicePoint& point : figure.points.subspan(1)) {
            batch.lineTo(point);
        }
        if (figure.closed) {
            batch.close();
        }
        if (batch.size() >= PieceLength) {
            flush();
        }
    }
    flush();
}

} // namespace wingdi
