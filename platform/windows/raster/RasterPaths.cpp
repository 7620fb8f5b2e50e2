// RasterDevice: shapes and paths, filled and stroked.
#include <cairo.h>

#include <algorithm>

#include "DeviceContext.h"
#include "ManyEdges.h"
#include "RasterDevice.h"
#include "ShapeOutlines.h"
#include "Strokes.h"

namespace wingdi {

void RasterDevice::drawShape(DeviceContext& context, const Outline& outline, bool isArea)
{
    Canvas canvas(context);
    if (canvas.empty()) {
        return;
    }
    const ContextState& state = context.state;
    const auto penInk = m_inks.ofPen(context, *state.pen);
    const PenLook pen = penInk ? lookOf(context, *state.pen) : PenLook{};
    if (isArea) {
        if (const auto ink = m_inks.ofBrush(context, *state.brush, ternaryOfBinary(state.rop2))) {
            // Inside of a thin line the area reaches up to it.
            const bool snaps = penInk && pen.thin && outline.hasCurves();
            fill(canvas, snaps ? outline.onGrid() : outline, state.polyFillMode, *ink);
        }
    }
    if (penInk) {
        stroke(canvas, outline, pen, *penInk);
    }
}

void RasterDevice::fill(Canvas& canvas, const Outline& outline, int fillMode, const Ink& ink)
{
    if (outline.size() > MostPointsForCairo) {
        fillByRows(canvas, outline, fillMode, ink);
        return;
    }
    const RECT box = outline.box();
    m_painter.paint(canvas, box, ink, [&](cairo_t* cairo, const RECT& window) {
        const RECT around = grown(window, Nearby);
        if (liesWithin(box, around)) {
            outline.trace(cairo);
        } else {
            outline.clippedArea(around).trace(cairo);
        }
        cairo_set_fill_rule(cairo, fillMode == WINDING ? CAIRO_FILL_RULE_WINDING : CAIRO_FILL_RULE_EVEN_ODD);
        cairo_fill(cairo);
    });
}

void RasterDevice::stroke(Canvas& canvas, const Outline& outline, const PenLook& pen, const Ink& ink)
{
    if (pen.thin) {
        strokeThin(canvas, outline, pen, ink);
    } else {
        strokeWide(m_painter, canvas, outline, pen, ink);
    }
}

bool RasterDevice::drawPlainBox(DeviceContext& context, const ShapeFrame& frame)
{
    const PenLook look = lookOf(context, *context.state.pen);
    const auto penInk = m_inks.ofPen(context, *context.state.pen);
    if (penInk && (!look.thin || !look.dashes.empty())) {
        return false;
    }
    Canvas canvas(context);
    const auto unit = [](double value) {
        constexpr double Farthest = 1 << 26;
        return static_cast<LONG>(std::clamp(value, -Farthest, Farthest));
    };
    const RECT box{unit(frame.left), unit(frame.top), unit(frame.right), unit(frame.bottom)};
    const LONG edge = penInk ? 1 : 0;
    const RECT inside{box.left + edge, box.top + edge, box.right, box.bottom};
    if (const auto ink = m_inks.ofBrush(context, *context.state.brush, ternaryOfBinary(context.state.rop2))) {
        canvas.fill(inside, *ink);
    }
    if (!penInk) {
        return true;
    }
    canvas.fill({box.left, box.top, box.right + 1, box.top + 1}, *penInk);
    if (box.bottom > box.top) {
        canvas.fill({box.left, box.bottom, box.right + 1, box.bottom + 1}, *penInk);
        canvas.fill({box.left, box.top + 1, box.left + 1, box.bottom}, *penInk);
        if (box.right > box.left) {
            canvas.fill({box.right, box.top + 1, box.right + 1, box.bottom}, *penInk);
        }
    }
    return true;
}

void RasterDevice::drawPath(DeviceContext& context, const DrawnPath& path)
{
    Canvas canvas(context);
    if (canvas.empty()) {
        return;
    }
    const ContextState& state = context.state;
    const PenLook look = lookOf(context, *state.pen);
    if (path.filled) {
        if (const auto ink = m_inks.ofBrush(context, *state.brush, ternaryOfBinary(state.rop2))) {
            if (path.widened) {
                stroke(canvas, path.outline, look, *ink);
            } else {
                fill(canvas, path.outline, state.polyFillMode, *ink);
            }
        }
    }
    if (path.stroked) {
        if (const auto ink = m_inks.ofPen(context, *state.pen)) {
            stroke(canvas, path.outline, look, *ink);
        }
    }
}

bool RasterDevice::selectClipPath(DeviceContext& context, int mode)
{
    if (!context.bitmap || !context.bitmap->bitmap) {
        return false;
    }
    const std::optional<Outline> path = takePath();
    if (!path) {
        return false;
    }
    const Bitmap& bitmap = *context.bitmap->bitmap;
    const RECT all{0, 0, bitmap.width(), bitmap.height()};
    const Region shape = visibleRegion(*path, all, context.state.polyFillMode);
    std::optional<Region>& clip = context.state.clip;
    if (!clip) {
        clip = Region(all);
    }
    clip->combine(shape, mode);
    return true;
}

} // namespace wingdi
