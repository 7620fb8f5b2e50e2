#include "LineOfText.h"

#include "DeviceContext.h"
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

} // namespace wingdi
