#include "Strokes.h"

#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace wingdi {

namespace {

constexpr std::size_t MostPointsAtOnce = 1024; // of a stroke
constexpr std::size_t PieceLength = 128;

// What cairo's curves may be off by, as it comes.
constexpr double Tolerance = 0.1;
// Round ends and joins take more corners the larger they are; beyond some size nobody sees them any more.
double toleranceOf(const PenLook& pen)
{
    return std::clamp(pen.width / 8192, Tolerance, 16.0);
}

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

// Cairo takes the union of all that one stroke covers, in a time that grows with the square of its segments: many are
// stroked a few at a time.
void strokePath(cairo_t* cairo, const PenLook& pen, const Outline& outline)
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

// Every second one at a time: without smoothing, cairo fills gaps of one pixel within a stroke.
void strokeDashes(cairo_t* cairo, const PenLook& pen, const Outline& dashes)
{
    Outline halves[2];
    std::size_t index = 0;
    for (const Outline::Figure& figure : dashes.figures()) {
        Outline& half = halves[index++ % 2];
        half.moveTo(figure.points.front());
        for (const DevicePoint& point : figure.points.subspan(1)) {
            half.lineTo(point);
        }
    }
    for (const Outline& half : halves) {
        strokePath(cairo, pen, half);
    }
}

} // namespace

void strokeWide(CairoPainter& painter, Canvas& canvas, const Outline& outline, const PenLook& pen,
                const Ink& ink)
{
    const int reach = static_cast<int>(std::ceil(pen.reach()));
    const RECT box = outline.box();
    painter.paint(canvas, grown(box, reach), ink, [&](cairo_t* cairo, const RECT& window) {
        cairo_set_tolerance(cairo, toleranceOf(pen));
        if (!pen.dashes.empty()) {
            strokeDashes(cairo, pen, outline.clippedLines(grown(window, reach), pen.dashes));
        } else if (liesWithin(box, grown(window, Nearby))) {
            strokePath(cairo, pen, outline);
        } else {
            strokePath(cairo, pen, outline.clippedLines(grown(window, reach), pen.dashes));
        }
        cairo_set_tolerance(cairo, Tolerance);
    });
}

} // namespace wingdi
