// DrawTextA: lays lines out in a rectangle and hands them on, one run for each line and piece between tabs.
#include <windows.h>

#include <algorithm>
#include <cstring>

#include "DrawTextLayout.h"
#include "OutputRun.h"
#include "failWith.h"

using namespace wingdi;

namespace {

// Numbers of lines and sums of heights may leave 32 bits.
LONG saturated(std::int64_t value)
{
    return toDeviceUnit(static_cast<double>(value));
}

LONG lineHeightOf(const TextMeasure& measure, const DrawTextFormat& format)
{
    const TEXTMETRICA& metrics = measure.font()->metrics();
    const LONG leading = format.has(DT_EXTERNALLEADING) ? metrics.tmExternalLeading : 0;
    return measure.logicalHeight(std::int64_t{metrics.tmHeight} + leading);
}

// The lines of which a part shows in the rectangle at least.
DrawTextLimits limitsOf(const TextMeasure& measure, const DrawTextFormat& format, const RECT& rect)
{
    const TextFrame& frame = measure.frame();
    const double width = frame.signX * (static_cast<double>(rect.right) - rect.left) * frame.along;
    const std::int64_t lineHeight = lineHeightOf(measure, format);
    const std::int64_t height = frame.signY * (std::int64_t{rect.bottom} - rect.top);
    if (format.has(DT_CALCRECT | DT_NOCLIP) || lineHeight <= 0) {
        return {width, SIZE_MAX};
    }
    const std::int64_t lines = std::max<std::int64_t>(1, (height + lineHeight - 1) / lineHeight);
    return {width, static_cast<std::size_t>(lines)};
}

class TextDrawing {
public:
    TextDrawing(DeviceContext& context, TextMeasure& measure, DrawTextLayout& layout, DrawTextFormat format,
                const RECT& rect)
        : m_context(context), m_measure(measure), m_layout(layout), m_format(format), m_rect(rect),
          m_lineHeight(lineHeightOf(measure, format))
    {
    }

    std::int64_t height() const
    {
        const std::int64_t lines =
            m_format.has(DT_SINGLELINE) ? 1 : static_cast<std::int64_t>(m_layout.lines().size());
        return lines * m_lineHeight;
    }

    // How far the first line lies below the rectangle's top.
    std::int64_t topOffset() const
    {
        const std::int64_t room =
            m_measure.frame().signY * (std::int64_t{m_rect.bottom} - m_rect.top) - height();
        if (!m_format.has(DT_SINGLELINE)) {
            return 0;
        }
        return m_format.has(DT_BOTTOM) ? room : m_format.has(DT_VCENTER) ? room / 2 : 0;
    }

    RECT extent() const
    {
        const TextFrame& frame = m_measure.frame();
        const LONG width = m_measure.logicalWidth(m_layout.widestLine());
        return {m_rect.left, m_rect.top,
                saturated(std::int64_t{m_rect.left} + frame.signX * std::int64_t{width}),
                saturated(m_rect.top + frame.signY * height())};
    }

    void draw()
    {
        std::int64_t below = topOffset();
        for (const DrawTextLine& line : m_layout.lines()) {
            drawLine(line, saturated(m_rect.top + m_measure.frame().signY * below));
            below += m_lineHeight;
        }
    }

private:
    std::int64_t lineStart(const DrawTextLine& line) const
    {
        const std::int64_t room = m_measure.frame().signX * (std::int64_t{m_rect.right} - m_rect.left) -
                                  m_measure.logicalWidth(line.width);
        return m_format.has(DT_RIGHT) ? room : m_format.has(DT_CENTER) ? room / 2 : 0;
    }

    LONG logicalX(std::int64_t start, std::int64_t device) const
    {
        return saturated(m_rect.left + m_measure.frame().signX * (start + m_measure.logicalWidth(device)));
    }

    void drawLine(const DrawTextLine& line, LONG y)
    {
        const std::int64_t start = lineStart(line);
        std::size_t piece = line.first;
        std::int64_t x = 0;
        std::int64_t pieceX = 0;
        m_measure.beginLine();
        for (std::size_t index = line.first; index < line.last; ++index) {
            const WCHAR character = m_layout.text()[index];
            const std::int64_t next = m_layout.step(x, character);
            if (m_layout.isTab(character)) {
                drawPiece(piece, index, {logicalX(start, pieceX), y});
                piece = index + 1;
                pieceX = next;
            }
            if (character != u'\t' && m_layout.isUnderlined(index)) {
                underline(logicalX(start, x), logicalX(start, next), y);
            }
            x = next;
        }
        drawPiece(piece, line.last, {logicalX(start, pieceX), y});
    }

    void drawPiece(std::size_t first, std::size_t last, POINT point)
    {
        if (first < last && !m_format.has(DT_PREFIXONLY)) {
            const std::span<const WCHAR> text(m_layout.text());
            const UINT options = m_format.has(DT_NOCLIP) ? 0 : ETO_CLIPPED;
            outputRun(m_context, m_measure,
                      {point, options, m_rect, text.subspan(first, last - first), nullptr});
        }
    }

    // A filled strip. A font that is turned has none: strips lie along the axes.
    void underline(LONG left, LONG right, LONG lineTop)
    {
        const TextFrame& frame = m_measure.frame();
        if (frame.logicalRight.y != 0 || frame.logicalRight.x * frame.signX < 0) {
            return;
        }
        const RealizedFont& font = *m_measure.font();
        const LONG below =
            m_measure.logicalHeight(std::int64_t{font.metrics().tmAscent} + font.underlinePosition());
        const LONG thickness = std::max<LONG>(1, m_measure.logicalHeight(font.lineThickness()));
        const std::int64_t upper = lineTop + frame.signY * std::int64_t{below};
        const std::int64_t lower = upper + frame.signY * std::int64_t{thickness};
        const RECT ordered{std::min(left, right), saturated(std::min(upper, lower)), std::max(left, right),
                           saturated(std::max(upper, lower))};
        const RECT limits{std::min(m_rect.left, m_rect.right), std::min(m_rect.top, m_rect.bottom),
                          std::max(m_rect.left, m_rect.right), std::max(m_rect.top, m_rect.bottom)};
        RECT strip = ordered;
        if (!m_format.has(DT_NOCLIP) && IntersectRect(&strip, &ordered, &limits) == FALSE) {
            return;
        }
        BrushObject brush;
        brush.color = m_context.state.textColor & 0xFFFFFF;
        m_context.device().patternBlt(m_context, {&strip, 1}, brush, PATCOPY);
    }

    DeviceContext& m_context;
    TextMeasure& m_measure;
    DrawTextLayout& m_layout;
    DrawTextFormat m_format;
    RECT m_rect;
    LONG m_lineHeight;
};

int drawText(DeviceContext& context, const char* text, std::size_t length, RECT& rect, UINT flags)
{
    TextMeasure measure(context);
    if (!measure.font()) {
        return 0;
    }
    const DrawTextFormat format(flags);
    DrawTextLayout layout(measure, format, text, length, limitsOf(measure, format, rect));
    TextDrawing drawing(context, measure, layout, format, rect);
    if (format.has(DT_CALCRECT)) {
        rect = drawing.extent();
        return saturated(drawing.height());
    }
    drawing.draw();
    return saturated(drawing.topOffset() + drawing.height());
}

} // namespace

int WINAPI DrawTextA(HDC context, LPCSTR text, int length, RECT* rect, UINT flags)
{
    return onContext(context, "DrawTextA", 0, [&](DeviceContext& found) {
        if (rect == nullptr || length < -1 || (text == nullptr && length != 0)) {
            return failWith(ERROR_INVALID_PARAMETER, 0);
        }
        const std::size_t size = length < 0 ? std::strlen(text) : static_cast<std::size_t>(length);
        return drawText(found, text, size, *rect, flags);
    });
}
