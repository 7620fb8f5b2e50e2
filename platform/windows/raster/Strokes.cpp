#include "Strokes.h"

#include <cairo.h>

#include <algorithm>
#include <cmath>

#include "LongStroke.h"

namespace wingdi {

namespace {

// What cairo's curves may be off by, as it comes.
constexpr double Tolerance = 0.1;
// Round ends and joins take more corners the larger they are; beyond some size nobody sees them any more.
double toleranceOf(const PenLook& pen)
{
    return std::clamp(pen.width / 8192, Tolerance, 16.0);
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
        strokeOutline(cairo, pen, half);
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
            strokeOutline(cairo, pen, outline);
        } else {
            strokeOutline(cairo, pen, outline.clippedLines(grown(window, reach), pen.dashes));
        }
        cairo_set_tolerance(cairo, Tolerance);
    });
}

} // namespace wingdi
