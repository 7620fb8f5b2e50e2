// RasterDevice: text, the one thing that is smoothed.
#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "DeviceContext.h"
#include "LineOfText.h"
#include "RasterDevice.h"
#include "RealizedFont.h"

namespace wingdi {

namespace {

// Glyphs that may be seen, placed in the space that the letters' own directions span around the first one.
std::vector<cairo_glyph_t> placeGlyphs(const TextOutput& output, const LineSpace& space,
                                       const cairo_matrix_t& turn, const RECT& visible)
{
    cairo_matrix_t back = turn;
    if (cairo_matrix_invert(&back) != CAIRO_STATUS_SUCCESS) {
        return {};
    }
    const bool indices = (output.options & ETO_GLYPH_INDEX) != 0;
    const TEXTMETRICA& metrics = output.font->metrics();
    const RECT around = grown(visible, std::max(metrics.tmHeight, metrics.tmMaxCharWidth) + 1);
    std::vector<cairo_glyph_t> glyphs;
    glyphs.reserve(output.text.size());
    double along = 0;
    for (std::size_t i = 0; i < output.text.size(); ++i) {
        const DevicePoint point = space.at(along, 0);
        if (point.x >= around.left && point.x < around.right && point.y >= around.top &&
            point.y < around.bottom) {
            double x = point.x - space.x;
            double y = point.y - space.y;
            cairo_matrix_transform_distance(&back, &x, &y);
            const WCHAR character = output.text[i];
            glyphs.push_back({indices ? character : output.font->glyph(character), x, y});
        }
        along += i < output.deviceAdvances.size() ? output.deviceAdvances[i] : 0;
    }
    return glyphs;
}

} // namespace

void RasterDevice::drawGlyphs(Canvas& canvas, const TextOutput& output, const Ink& ink)
{
    const LineSpace space = spaceOf(output);
    const TextFrame& frame = output.frame;
    const cairo_matrix_t turn{
        frame.glyphRight.x, frame.glyphRight.y, frame.glyphDown.x, frame.glyphDown.y, 0, 0};
    const std::vector<cairo_glyph_t> glyphs = placeGlyphs(output, space, turn, canvas.box());
    cairo_scaled_font_t* font = output.font->scaledFont();
    if (glyphs.empty() || font == nullptr) {
        return;
    }
    // Letters may reach beyond their cells.
    const int reach = output.font->metrics().tmHeight + output.font->metrics().tmMaxCharWidth;
    const RECT cell{output.bounds.left, output.bounds.top, output.bounds.right, output.bounds.bottom};
    const RECT around = overlap(canvas.box(), grown(overlap(cell, grown(canvas.box(), reach)), reach));
    m_painter.paint(canvas, around, ink, [&](cairo_t* cairo, const RECT&) {
        cairo_matrix_t before;
        cairo_get_matrix(cairo, &before);
        cairo_translate(cairo, space.x, space.y);
        cairo_set_scaled_font(cairo, font);
        if (!space.isUpright() || turn.xx != 1 || turn.yy != 1) {
            cairo_transform(cairo, &turn);
        }
        if (letterSize(output) > LargestKeptLetter) {
            fillOutlines(cairo, glyphs);
        } else {
            cairo_show_glyphs(cairo, glyphs.data(), static_cast<int>(glyphs.size()));
        }
        cairo_set_matrix(cairo, &before);
    });
}

void RasterDevice::drawBar(Canvas& canvas, const TextOutput& output, double top, double bottom,
                           const Ink& ink)
{
    const LineSpace space = spaceOf(output);
    if (space.isUpright()) {
        const RECT bar{toDeviceUnit(space.x), toDeviceUnit(space.y + top),
                       toDeviceUnit(space.x + lengthOf(output.deviceAdvances)),
                       toDeviceUnit(space.y + bottom)};
        canvas.fill(bar, ink);
        return;
    }
    fill(canvas, barOf(space, 0, top, lengthOf(output.deviceAdvances), bottom), WINDING, ink);
}

bool RasterDevice::text(DeviceContext& context, const TextOutput& output)
{
    const Ink back{CopyPattern, pixelOf(context.state.backColor), nullptr, {0, 0}};
    if ((output.options & ETO_OPAQUE) != 0) {
        fillRects(context, {&output.rect, 1}, back);
    }
    const bool clipped = (output.options & ETO_CLIPPED) != 0;
    const Region within = clipped ? textClip(context, output.rect) : Region();
    Canvas canvas(context, clipped ? &within : nullptr);
    if (output.text.empty() || !output.font || canvas.empty()) {
        return true;
    }
    const TEXTMETRICA& metrics = output.font->metrics();
    if (context.state.backMode == OPAQUE) {
        drawBar(canvas, output, -metrics.tmAscent, metrics.tmDescent, back);
    }
    const Ink ink{CopyPattern, pixelOf(context.state.textColor), nullptr, {0, 0}};
    drawGlyphs(canvas, output, ink);
    const int thickness = output.font->lineThickness();
    if (metrics.tmUnderlined != 0) {
        const int top = output.font->underlinePosition();
        drawBar(canvas, output, top, top + thickness, ink);
    }
    if (metrics.tmStruckOut != 0) {
        const int top = output.font->strikeOutPosition();
        drawBar(canvas, output, top, top + thickness, ink);
    }
    return true;
}

} // namespace wingdi
