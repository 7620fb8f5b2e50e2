#include "LineOfText.h"

#include <algorithm>
#include <cmath>

#include "DeviceContext.h"
#include "RealizedFont.h"
#include "ShapeOutlines.h"

namespace wingdi {

LineSpace spaceOf(const TextOutput& output)
{
    const TextFrame& frame = output.frame;
    return {output.baselineX, output.baselineY, frame.right.x, frame.right.y, frame.down.x, frame.down.y};
}

Outline barOf(const LineSpace& space, double left, double top, double right, double bottom)
{
    Outline bar;
    bar.moveTo(space.at(left, top));
    bar.lineTo(space.at(right, top));
    bar.lineTo(space.at(right, bottom));
    bar.lineTo(space.at(left, bottom));
    bar.close();
    return bar;
}

Region textClip(const DeviceContext& context, const RECT& rect)
{
    const Mapping mapping = context.mapping();
    if (mapping.isAxisAligned()) {
        return Region(deviceBox(mapping, rect));
    }
    return visibleRegion(rectangleOutline(wholeFrame(mapping, rect)), context.deviceArea(), WINDING);
}

double lengthOf(std::span<const double> advances)
{
    double length = 0;
    for (const double advance : advances) {
        length += advance;
    }
    return length;
}

double letterSize(const TextOutput& output)
{
    const TextFrame& frame = output.frame;
    const double stretch = std::max(std::hypot(frame.glyphRight.x, frame.glyphRight.y),
                                    std::hypot(frame.glyphDown.x, frame.glyphDown.y));
    const TEXTMETRICA& metrics = output.font->metrics();
    return stretch * std::max(metrics.tmHeight, metrics.tmAveCharWidth);
}

void fillOutlines(cairo_t* cairo, std::span<const cairo_glyph_t> glyphs)
{
    const cairo_antialias_t before = cairo_get_antialias(cairo);
    cairo_set_antialias(cairo, CAIRO_ANTIALIAS_GRAY);
    cairo_set_fill_rule(cairo, CAIRO_FILL_RULE_WINDING);
    for (const cairo_glyph_t& glyph : glyphs) {
        cairo_new_path(cairo);
        cairo_glyph_path(cairo, &glyph, 1);
        cairo_fill(cairo);
    }
    cairo_set_antialias(cairo, before);
}

} // namespace wingdi
