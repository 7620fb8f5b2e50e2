#include "PenLook.h"

#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "DeviceContext.h"
#include "PixelColor.h"

namespace wingdi {

namespace {

// The most dashes that a pen may have.
constexpr std::size_t MostDashes = 16;

constexpr double ShortestDash = 0.05; // pixels; cairo leaves out shorter ones

// Dashes of the styles in multiples of the width.
std::vector<double> dashesOf(DWORD style)
{
    switch (style) {
    case PS_DASH:
        return {3, 1};
    case PS_DOT:
        return {1, 1};
    case PS_DASHDOT:
        return {3, 1, 1, 1};
    case PS_DASHDOTDOT:
        return {3, 1, 1, 1, 1, 1};
    case PS_ALTERNATE:
        return {1, 1};
    default:
        return {};
    }
}

void setDashes(PenLook& look, const PenObject& pen, const Mapping& mapping)
{
    const DWORD style = pen.style & PS_STYLE_MASK;
    // Those of CreatePen have dashes only as thin lines.
    if (!pen.extended && !look.thin) {
        return;
    }
    if (style == PS_USERSTYLE) {
        const double scale = (mapping.scaleX() + mapping.scaleY()) / 2;
        const std::size_t count = std::min(pen.dashes.size(), MostDashes);
        for (std::size_t i = 0; i < count; ++i) {
            // A dash of no length still has its caps.
            look.dashes.push_back(
                std::clamp(pen.dashes[i] * scale, i % 2 == 0 ? ShortestDash : 0, WidestPen));
        }
    } else {
        look.dashes = dashesOf(style);
        // Caps of a pixel or less can't be told from the dash, but may close gaps of two.
        if (!look.dashes.empty() && look.width < 3) {
            look.style = (look.style & ~PS_ENDCAP_MASK) | PS_ENDCAP_FLAT;
        }
        // Others count as part of a dash, or they would fill the gaps. Of a dot nothing else is left.
        const bool capped = (look.style & PS_ENDCAP_MASK) != PS_ENDCAP_FLAT;
        double cut = 0;
        for (std::size_t i = 0; i < look.dashes.size(); ++i) {
            const double length = look.dashes[i] * look.width;
            if (i % 2 == 0) {
                cut = capped ? std::min(look.width, length - ShortestDash) : 0;
            }
            look.dashes[i] = length + (i % 2 == 0 ? -cut : cut);
        }
    }
    double period = 0;
    for (const double dash : look.dashes) {
        period += dash;
    }
    if (!(period >= 1)) {
        look.dashes.clear();
    }
}

cairo_line_cap_t capOf(DWORD style)
{
    switch (style & PS_ENDCAP_MASK) {
    case PS_ENDCAP_FLAT:
        return CAIRO_LINE_CAP_BUTT;
    case PS_ENDCAP_SQUARE:
        return CAIRO_LINE_CAP_SQUARE;
    default:
        return CAIRO_LINE_CAP_ROUND;
    }
}

cairo_line_join_t joinOf(DWORD style)
{
    switch (style & PS_JOIN_MASK) {
    case PS_JOIN_BEVEL:
        return CAIRO_LINE_JOIN_BEVEL;
    case PS_JOIN_MITER:
        return CAIRO_LINE_JOIN_MITER;
    default:
        return CAIRO_LINE_JOIN_ROUND;
    }
}

} // namespace

double PenLook::reach() const
{
    const bool pointed = (style & PS_JOIN_MASK) == PS_JOIN_MITER;
    return std::min(width * (pointed ? std::max(1.0, miterLimit) : 1.0), WidestPen) + 2;
}

PenLook lookOf(const DeviceContext& context, const PenObject& pen)
{
    PenLook look;
    look.style = pen.style;
    look.miterLimit = std::clamp(static_cast<double>(context.state.miterLimit), 1.0, 1000.0);
    const Mapping mapping = context.mapping();
    const bool cosmetic = pen.extended && (pen.style & PS_TYPE_MASK) != PS_GEOMETRIC;
    const double logical = cosmetic ? 0 : static_cast<double>(pen.width);
    const double across = logical * mapping.scaleX();
    const double down = logical * mapping.scaleY();
    look.thin = !(std::max(across, down) >= 1.5);
    if (!look.thin) {
        look.width = std::min(std::max(across, down), WidestPen);
        const double area = std::abs(mapping.xx * mapping.yy - mapping.xy * mapping.yx);
        const bool round = std::abs(across - down) <= 0.01 * look.width;
        // The nib of a pen that is flat one way is still a pixel wide.
        if (!round && look.width < WidestPen && area * logical * logical >= look.width) {
            look.nib = mapping;
            look.logicalWidth = logical;
        }
    }
    setDashes(look, pen, mapping);
    if (!pen.extended && !look.dashes.empty() && context.state.backMode == OPAQUE) {
        look.gapColor = pixelOf(context.state.backColor);
    }
    return look;
}

void strokeTraced(cairo_t* cairo, const PenLook& pen)
{
    cairo_set_line_cap(cairo, capOf(pen.style));
    cairo_set_line_join(cairo, joinOf(pen.style));
    cairo_set_miter_limit(cairo, pen.miterLimit);
    if (!pen.nib) {
        cairo_set_line_width(cairo, pen.width);
        cairo_stroke(cairo);
        return;
    }
    cairo_matrix_t before;
    cairo_get_matrix(cairo, &before);
    const cairo_matrix_t nib{pen.nib->xx, pen.nib->xy, pen.nib->yx, pen.nib->yy, 0, 0};
    cairo_transform(cairo, &nib);
    cairo_set_line_width(cairo, pen.logicalWidth);
    cairo_stroke(cairo);
    cairo_set_matrix(cairo, &before);
}

} // namespace wingdi
