#include "TextFrame.h"
#include "DeviceContext.h"
#include "RealizedFont.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace wingdi {

namespace {

// Beyond these, results would be no numbers; what they scale is clamped later anyway.
constexpr double SmallestScale = 1e-6;
constexpr double LargestScale = 1e6;

// Quarter turns are exact.
TextVector directionOf(LONG tenths)
{
    constexpr LONG FullTurn = 3600;
    constexpr LONG QuarterTurn = 900;
    constexpr TextVector Quarters[] = {{1, 0}, {0, -1}, {-1, 0}, {0, 1}};
    const LONG angle = (tenths % FullTurn + FullTurn) % FullTurn;
    if (angle % QuarterTurn == 0) {
        return Quarters[angle / QuarterTurn];
    }
    const double radians = angle * 2 * std::numbers::pi / FullTurn;
    return {std::cos(radians), -std::sin(radians)};
}

struct Axis {
    TextVector direction; // of length 1
    double scale;
};

Axis axisOnDevice(const Mapping& mapping, TextVector logical)
{
    const double x = logical.x * mapping.xx + logical.y * mapping.yx;
    const double y = logical.x * mapping.xy + logical.y * mapping.yy;
    const double length = std::hypot(x, y);
    if (!(length >= SmallestScale && length <= LargestScale)) {
        return {logical, length > LargestScale ? LargestScale : SmallestScale};
    }
    return {{x / length, y / length}, length};
}

} // namespace

TextFrame frameOfText(const DeviceContext& context)
{
    const ContextState& state = context.state;
    const LONG escapement = state.font ? state.font->description.lfEscapement : 0;
    const LONG orientation =
        state.font && state.graphicsMode == GM_ADVANCED ? state.font->description.lfOrientation : escapement;
    const Mapping page = context.pageMapping();
    const Mapping mapping = context.mapping();

    TextFrame frame{};
    frame.signX = page.xx < 0 ? -1 : 1;
    frame.signY = page.yy < 0 ? -1 : 1;
    const auto axes = [&](TextVector heading) {
        const TextVector rightward{heading.x * frame.signX, heading.y * frame.signY};
        const TextVector downward{-heading.y * frame.signX, heading.x * frame.signY};
        return std::pair{axisOnDevice(mapping, rightward), axisOnDevice(mapping, downward)};
    };

    const TextVector direction = directionOf(escapement);
    const auto [lineRight, lineDown] = axes(direction);
    frame.along = lineRight.scale;
    frame.across = lineDown.scale;
    frame.right = frame.glyphRight = lineRight.direction;
    frame.down = frame.glyphDown = lineDown.direction;
    frame.logicalRight = {direction.x * frame.signX, direction.y * frame.signY};
    if (orientation != escapement) {
        const auto [letterRight, letterDown] = axes(directionOf(orientation));
        frame.glyphRight = letterRight.direction;
        frame.glyphDown = letterDown.direction;
    }
    return frame;
}

} // namespace wingdi
