#include "RasterDevice.h"

#include <cairo.h>

#include <algorithm>
#include <cmath>

#include "DeviceContext.h"
#include "ManyEdges.h"
#include "PenLook.h"
#include "failWith.h"

namespace wingdi {

namespace {

// What the device knows of itself, in the order of m_capabilities.
constexpr int CapabilityIndexes[] = {TECHNOLOGY, HORZSIZE, VERTSIZE,   HORZRES,    VERTRES,
                                     BITSPIXEL,  PLANES,   RASTERCAPS, LOGPIXELSX, LOGPIXELSY};
constexpr int RasterDisplay = 1; // the answer to TECHNOLOGY

int millimeters(int pixels, int dpi)
{
    return static_cast<int>(std::lround(pixels * 25.4 / dpi));
}

} // namespace

std::unique_ptr<Device> makeRasterDevice(const GdiDeviceOptions& options)
{
    return std::make_unique<RasterDevice>(options);
}

std::unique_ptr<Device> makeRasterDevice(const Device& reference)
{
    return std::make_unique<RasterDevice>(reference);
}

RasterDevice::RasterDevice(const GdiDeviceOptions& options)
    : m_capabilities{RasterDisplay,
                     millimeters(options.width, options.dpi),
                     millimeters(options.height, options.dpi),
                     options.width,
                     options.height,
                     32,
                     1,
                     static_cast<int>(options.rasterCaps),
                     options.dpi,
                     options.dpi},
      m_failBlitsAfter(options.failBlitsAfter)
{
}

RasterDevice::RasterDevice(const Device& reference)
{
    std::transform(std::begin(CapabilityIndexes), std::end(CapabilityIndexes), m_capabilities.begin(),
                   [&reference](int index) { return reference.capability(index); });
}

int RasterDevice::capability(int index) const
{
    static_assert(std::size(CapabilityIndexes) == std::tuple_size_v<decltype(m_capabilities)>);
    const auto* found = std::find(std::begin(CapabilityIndexes), std::end(CapabilityIndexes), index);
    return found == std::end(CapabilityIndexes)
               ? 0
               : m_capabilities[static_cast<std::size_t>(found - std::begin(CapabilityIndexes))];
}

void RasterDevice::stateChanged(DeviceContext& /*context*/, StateField field)
{
    if (field == StateField::Position) {
        m_pathMoved = true;
    }
}

bool RasterDevice::draw(DeviceContext& context, const Outline& outline, bool filled)
{
    if (m_pathState == PathState::Open) {
        m_path.append(outline);
        m_pathMoved = false;
        return true;
    }
    Canvas canvas(context);
    if (canvas.empty() || outline.empty()) {
        return true;
    }
    const ContextState& state = context.state;
    const auto penInk = m_inks.ofPen(context, *state.pen);
    const PenLook pen = penInk ? lookOf(context, *state.pen) : PenLook{};
    if (filled) {
        if (const auto ink = m_inks.ofBrush(context, *state.brush, ternaryOfBinary(state.rop2))) {
            // Inside of a thin line the area reaches up to it.
            const bool snaps = penInk && pen.thin && outline.hasCurves();
            fill(canvas, snaps ? outline.onGrid() : outline, state.polyFillMode, *ink);
        }
    }
    if (penInk) {
        stroke(canvas, outline, pen, *penInk);
    }
    return true;
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

bool RasterDevice::mayStretch()
{
    if (m_failBlitsAfter >= 0 && m_stretches >= m_failBlitsAfter) {
        return failWith(ERROR_GEN_FAILURE, false);
    }
    return true;
}

} // namespace wingdi
