// DrawEdge: the two-line edges of classic windows and buttons.
#include <algorithm>
#include <array>
#include <cstdint>

#include "DeviceContext.h"
#include "StockObjects.h"
#include "failWith.h"

using namespace wingdi;

namespace {

// Numbers of the system colours that edges are made of.
enum EdgeColor : int {
    WindowColor = 5,
    WindowFrame = 6,
    ButtonFace = 15,
    ButtonShadow = 16,
    ButtonHighlight = 20,
    DarkShadow = 21,
    Light = 22,
    None = -1,
};

// One line of an edge: the colours of its left and top, and of its right and bottom.
struct LineColors {
    EdgeColor leftTop;
    EdgeColor rightBottom;
};

// By the two bits of a line: absent, raised, sunken, both (which contradict each other and draw nothing).
using LineTable = std::array<LineColors, 4>;
constexpr LineColors Absent{None, None};
constexpr LineTable OuterLines{Absent, {Light, DarkShadow}, {ButtonShadow, ButtonHighlight}, Absent};
constexpr LineTable InnerLines{Absent, {ButtonHighlight, ButtonShadow}, {DarkShadow, Light}, Absent};
constexpr LineTable SoftOuterLines{
    Absent, {ButtonHighlight, DarkShadow}, {DarkShadow, ButtonHighlight}, Absent};
constexpr LineTable SoftInnerLines{Absent, {Light, ButtonShadow}, {ButtonShadow, Light}, Absent};

constexpr LineTable flatLines(EdgeColor color)
{
    return {Absent, LineColors{color, color}, LineColors{color, color}, LineColors{color, color}};
}
constexpr LineTable FlatOuterLines = flatLines(ButtonShadow);
constexpr LineTable FlatInnerLines = flatLines(ButtonFace);
constexpr LineTable MonoOuterLines = flatLines(WindowFrame);
constexpr LineTable MonoInnerLines = flatLines(WindowColor);

struct EdgeStyle {
    const LineTable& outer;
    const LineTable& inner;
    EdgeColor middle;
};

EdgeStyle styleOf(UINT flags)
{
    if ((flags & BF_MONO) != 0) {
        return {MonoOuterLines, MonoInnerLines, WindowColor};
    }
    if ((flags & BF_FLAT) != 0) {
        return {FlatOuterLines, FlatInnerLines, ButtonFace};
    }
    if ((flags & BF_SOFT) != 0) {
        return {SoftOuterLines, SoftInnerLines, ButtonFace};
    }
    return {OuterLines, InnerLines, ButtonFace};
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
    if (colors.leftTop == None || rect.left >= rect.right || rect.top >= rect.bottom) {
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

// A diagonal edge. It ends at a corner and comes from the opposite one; the inside is to the right of that way. So
// edges that end at the top have the colours of left and top, the others those of right and bottom.
struct Diagonal {
    explicit Diagonal(UINT sides)
        : endsAtTop(sides == BF_TOP || sides == BF_RIGHT || sides == (BF_TOP | BF_RIGHT) ||
                    sides == (BF_TOP | BF_LEFT)),
          endsAtRight(sides == (BF_BOTTOM | BF_RIGHT) || (endsAtTop && sides != (BF_TOP | BF_LEFT)))
    {
    }

    EdgeColor colorOf(const LineColors& line) const { return endsAtTop ? line.leftTop : line.rightBottom; }

    bool endsAtTop;
    bool endsAtRight;
};

RECT transposed(const RECT& rect) noexcept
{
    return {rect.top, rect.left, rect.bottom, rect.right};
}

// The diagonal of a rectangle in steps: one for each unit of its shorter side.
class DiagonalSteps {
public:
    static constexpr std::int64_t Most = 100'000;

    DiagonalSteps(const RECT& rect, const Diagonal& diagonal)
        : m_flat(std::int64_t{rect.right} - rect.left > std::int64_t{rect.bottom} - rect.top),
          m_rect(m_flat ? transposed(rect) : rect), m_falls(diagonal.endsAtTop != diagonal.endsAtRight),
          m_inward(m_flat ? diagonal.endsAtRight : diagonal.endsAtTop)
    {
    }

    std::int64_t count() const noexcept { return std::int64_t{m_rect.right} - m_rect.left; }

    // What is from `begin` to `end` units inside of the diagonal; `end` 0: up to the sides.
    std::vector<RECT> strip(int begin, int end) const
    {
        std::vector<RECT> pieces;
        const std::int64_t length = std::int64_t{m_rect.bottom} - m_rect.top;
        for (std::int64_t step = 0; step < count(); ++step) {
            const std::int64_t x = m_falls ? m_rect.left + step : m_rect.right - 1 - step;
            std::int64_t left = m_inward ? x + begin : end == 0 ? m_rect.left : x - end + 1;
            std::int64_t right = !m_inward ? x - begin + 1 : end == 0 ? m_rect.right : x + end;
            left = std::max<std::int64_t>(left, m_rect.left);
            right = std::min<std::int64_t>(right, m_rect.right);
            if (left < right) {
                const RECT piece{
                    static_cast<LONG>(left), static_cast<LONG>(m_rect.top + step * length / count()),
                    static_cast<LONG>(right), static_cast<LONG>(m_rect.top + (step + 1) * length / count())};
                pieces.push_back(m_flat ? transposed(piece) : piece);
            }
        }
        return pieces;
    }

private:
    bool m_flat;
    RECT m_rect; // at least as high as it is wide: columns are rows where it was not
    bool m_falls;
    bool m_inward; // the inside has the larger x
};

// Gives the rectangle that BF_ADJUST leaves: without as many units at the sides named as there are lines.
bool drawDiagonal(DeviceContext& context, RECT& rect, UINT edge, UINT flags)
{
    if (rect.left >= rect.right || rect.top >= rect.bottom) {
        return true;
    }
    const Diagonal diagonal(flags & BF_RECT);
    const DiagonalSteps steps(rect, diagonal);
    if (steps.count() > DiagonalSteps::Most) {
        return failWith(ERROR_INVALID_PARAMETER, false);
    }
    const EdgeStyle style = styleOf(flags);
    int lines = 0;
    bool drawn = true;
    for (const LineColors& line : {style.outer[edge & 3], style.inner[(edge >> 2) & 3]}) {
        if (const EdgeColor color = diagonal.colorOf(line); color != None) {
            drawn = fill(context, steps.strip(lines, lines + 1), color) && drawn;
            ++lines;
        }
    }
    if ((flags & BF_MIDDLE) != 0) {
        drawn = fill(context, steps.strip(lines, 0), style.middle) && drawn;
    }
    for (; lines > 0 && rect.left < rect.right && rect.top < rect.bottom; --lines) {
        rect.left += (flags & BF_LEFT) != 0 ? 1 : 0;
        rect.top += (flags & BF_TOP) != 0 ? 1 : 0;
        rect.right -= (flags & BF_RIGHT) != 0 ? 1 : 0;
        rect.bottom -= (flags & BF_BOTTOM) != 0 ? 1 : 0;
    }
    return drawn;
}

bool drawSides(DeviceContext& context, RECT& inside, UINT edge, UINT flags)
{
    const EdgeStyle style = styleOf(flags);
    const bool drawn = drawLine(context, inside, style.outer[edge & 3], flags) &&
                       drawLine(context, inside, style.inner[(edge >> 2) & 3], flags);
    if ((flags & BF_MIDDLE) != 0 && inside.left < inside.right && inside.top < inside.bottom) {
        return fill(context, {&inside, 1}, style.middle) && drawn;
    }
    return drawn;
}

} // namespace

BOOL DrawEdge(HDC context, RECT* rect, UINT edge, UINT flags)
{
    return onContext(context, "DrawEdge", FALSE, [&](DeviceContext& found) {
        if (rect == nullptr) {
            return failWith(ERROR_INVALID_PARAMETER, FALSE);
        }
        RECT inside = *rect;
        const bool drawn = (flags & BF_DIAGONAL) != 0 ? drawDiagonal(found, inside, edge, flags)
                                                      : drawSides(found, inside, edge, flags);
        if ((flags & BF_ADJUST) != 0) {
            *rect = inside;
        }
        return drawn ? TRUE : FALSE;
    });
}
