#include "ClipShapes.h"

#include <utility>

namespace wingdi {

void flattenClip(DeviceContext& context)
{
    ContextState& state = context.state;
    if (state.clipShapes.empty()) {
        return;
    }
    Region clip = state.clip ? *state.clip : Region(context.deviceArea());
    for (const ClipShape& shape : state.clipShapes) {
        clip.combine(visibleRegion(*shape.outline, context.deviceArea(), shape.fillMode), RGN_AND);
    }
    state.clip = std::move(clip);
    state.clipShapes.clear();
}

} // namespace wingdi
