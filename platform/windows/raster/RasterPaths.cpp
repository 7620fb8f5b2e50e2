// RasterDevice: paths, which collect what the shapes would draw.
#include <algorithm>

#include "DeviceContext.h"
#include "PenLook.h"
#include "RasterDevice.h"
#include "ShapeOutlines.h"

namespace wingdi {

bool RasterDevice::path(DeviceContext& context, PathStep step)
{
    switch (step) {
    case PathStep::Begin:
        m_path.clear();
        m_pathState = PathState::Open;
        m_pathMoved = true;
        m_pathWidened = false;
        return true;
    case PathStep::Abort:
        m_path.clear();
        m_pathState = PathState::None;
        return true;
    case PathStep::CloseFigure:
        m_path.close();
        return m_pathState == PathState::Open;
    case PathStep::End:
        if (m_pathState != PathState::Open) {
            return false;
        }
        m_pathState = PathState::Complete;
        return true;
    default:
        break;
    }
    if (m_pathState != PathState::Complete) {
        return false;
    }
    if (step == PathStep::Flatten || step == PathStep::Widen) {
        m_path = m_path.flattened();
        m_pathWidened = m_pathWidened || step == PathStep::Widen;
        return true;
    }
    drawPath(context, step);
    m_path.clear();
    m_pathState = PathState::None;
    return true;
}

void RasterDevice::drawPath(DeviceContext& context, PathStep step)
{
    Canvas canvas(context);
    if (canvas.empty() || m_path.empty()) {
        return;
    }
    const ContextState& state = context.state;
    const bool filled = step == PathStep::Fill || step == PathStep::StrokeAndFill;
    const bool stroked = step == PathStep::Stroke || step == PathStep::StrokeAndFill;
    const PenLook look = lookOf(context, *state.pen);
    if (step == PathStep::StrokeAndFill) {
        m_path = m_path.closed();
    }
    if (filled) {
        if (const auto ink = m_inks.ofBrush(context, *state.brush, ternaryOfBinary(state.rop2))) {
            // What a widened path surrounds is what its pen would have covered.
            if (m_pathWidened) {
                stroke(canvas, m_path, look, *ink);
            } else {
                fill(canvas, m_path, state.polyFillMode, *ink);
            }
        }
    }
    if (stroked) {
        if (const auto ink = m_inks.ofPen(context, *state.pen)) {
            stroke(canvas, m_path, look, *ink);
        }
    }
}

bool RasterDevice::selectClipPath(DeviceContext& context, int mode)
{
    if (m_pathState != PathState::Complete || !context.bitmap || !context.bitmap->bitmap) {
        return false;
    }
    const Bitmap& bitmap = *context.bitmap->bitmap;
    const RECT all{0, 0, bitmap.width(), bitmap.height()};
    const Region shape = visibleRegion(m_path, all, context.state.polyFillMode);
    std::optional<Region>& clip = context.state.clip;
    if (!clip) {
        clip = Region(all);
    }
    clip->combine(shape, mode);
    m_path.clear();
    m_pathState = PathState::None;
    return true;
}

} // namespace wingdi
