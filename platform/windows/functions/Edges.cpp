// DrawEdge: the two-line edges of classic windows and buttons.
#include <array>

#include "DeviceContext.h"
#include "StockObjects.h"

namespace {

// Numbers of the system colours that edges are made of.
enum EdgeColor : int {
    windowColor = 5,
    windowFrame = 6,
    buttonFace = 15,
    buttonShadow = 16,
    buttonHighlight = 20,
    darkShadow = 21,
    light = 22,
    none = -1,
};

// One line of an edge: the colours of its left and top, and of its right and bottom.
struct LineColors {
    EdgeColor leftTop;
    EdgeColor rightBottom;
};

// By the two bits of a line: absent, raised, sunken, both (which contradict each other and draw nothing).
using LineTable = std::array<LineColors, 4>;
constexpr LineColors absent{none, none};
constexpr LineTable outerLines{absent, {light, darkShadow}, {buttonShadow, buttonHighlight}, absent};
constexpr LineTable innerLines{absent, {buttonHighlight, buttonShadow}, {darkShadow, light}, absent};
constexpr LineTable softOuterLines{
    absent, {buttonHighlight, darkShadow}, {darkShadow, buttonHighlight}, absent};
constexpr LineTable softInnerLines{absent, {light, buttonShadow}, {buttonShadow, light}, absent};

constexpr LineTable flatLines(EdgeColor color)
{
    return {absent, LineColors{color, color}, LineColors{color, color}, LineColors{color, color}};
}
constexpr LineTable flatOuterLines = flatLines(buttonShadow);
constexpr LineTable flatInnerLines = flatLines(buttonFace);
constexpr LineTable monoOuterLines = flatLines(windowFrame);
constexpr LineTable monoInnerLines = flatLines(windowColor);

struct EdgeStyle {
    const LineTable& outer;
    const LineTable& inner;
    EdgeColor middle;
};

EdgeStyle styleOf(UINT flags)
{
    if ((flags & BF_MONO) != 0) {
        return {monoOuterLines, monoInnerLines, windowColor};
    }
    if ((flags & BF_FLAT) != 0) {
        return {flatOuterLines, flatInnerLines, buttonFace};
    }
    if ((flags & BF_SOFT) != 0) {
        return {softOuterLines, softInnerLines, buttonFace};
    }
    return {outerLines, innerLines, buttonFace};
}

bool fill(DeviceContext& context, std::span<const RECT> rects, EdgeColor color)
{
    return rects.empty() ||
           context.device().patternBlt(context, rects, *makeSolidBrush(GetSysColor(color)), PATCOPY);
}

// Draws the wanted sides of a line just inside the rectangle and takes them off it. Right and bottom cover the
// corners that they share with left and top.
bool drawLine(DeviceContext& context, RECT& rect, const LineColors& colors, UINT sides)
{
    if (colors.leftTop == none || rect.left >= rect.right || rect.top >= rect.bottom) {
        return true;
    }
    const RECT strips[] = {{rect.left, rect.top, rect.right, rect.top + 1},
                           {rect.left, rect.top, rect.left + 1, rect.bottom},
                           {rect.left, rect.bottom - 1, rect.right, rect.bottom},
                           {rect.right - 1, rect.top, rect.right, rect.bottom}};
    std::vector<RECT> leftTop;
    std::vector<RECT> rightBottom;
    if ((sides & BF_TOP) != 0) {
        leftTop.push_back(strips[0]);
        ++rect.top;
    }
    if ((sides & BF_LEFT) != 0) {
        leftTop.push_back(strips[1]);
        ++rect.left;
    }
    if ((sides & BF_BOTTOM) != 0) {
        rightBottom.push_back(strips[2]);
        --rect.bottom;
    }
    if ((sides & BF_RIGHT) != 0) {
        rightBottom.push_back(strips[3]);
        --rect.right;
    }
    return fill(context, leftTop, colors.leftTop) && fill(context, rightBottom, colors.rightBottom);
}

} // namespace

BOOL DrawEdge(HDC context, RECT* rect, UINT edge, UINT flags)
{
    return onContext(context, "DrawEdge", FALSE, [&](DeviceContext& found) {
        if (rect == nullptr) {
            SetLastError(ERROR_INVALID_PARAMETER);
            return FALSE;
        }
        const EdgeStyle style = styleOf(flags);
        RECT inside = *rect;
        bool drawn = drawLine(found, inside, style.outer[edge & 3], flags) &&
                     drawLine(found, inside, style.inner[(edge >> 2) & 3], flags);
        if ((flags & BF_MIDDLE) != 0 && inside.left < inside.right && inside.top < inside.bottom) {
            drawn = fill(found, {&inside, 1}, style.middle) && drawn;
        }
        if ((flags & BF_ADJUST) != 0) {
            *rect = inside;
        }
        return drawn ? TRUE : FALSE;
    });
}
