// The attributes that shapes share: colour, pen, fill, clip and path; and the definitions they refer to.
//
// Blanks are as the page format has them: the pen style begins and ends with one, so two of them meet in
// front of the stroke.
#include "surfaceSVG.h"

#include "SvgDialect.h"
#include "SvgWriterDetail.h"
#include "brushStyles.h"
#include "pageText.h"
#include "penStyles.h"
#include "wrappingInt.h"

using namespace drawing;
using namespace svg;

namespace {

// Dashes by the pen's line style (the low bits of its style word), in pen widths; 0 ends a row. A row that
// begins with 0 has none.
constexpr int DashLengths[][6] = {
    {0}, {3, 1}, {1, 1}, {3, 1, 1, 1}, {3, 1, 1, 1, 1, 1},
};
constexpr int DashedStyles = static_cast<int>(sizeof(DashLengths) / sizeof(DashLengths[0]));

constexpr int InsideFrame = 6;

constexpr std::string_view Caps[] = {
    "stroke-linecap='round' ",
    "stroke-linecap='square' ",
    "stroke-linecap='butt' ",
};

constexpr std::string_view Joins[] = {
    "stroke-linejoin='round' ",
    "stroke-linejoin='bevel' ",
    "stroke-linejoin='miter' ",
};

// True when there is a dash text; caps and joins are written only without one.
bool appendDashes(TovoTextString& out, int lineStyle, int width)
{
    if (lineStyle == InsideFrame) {
        appendPieces(out, "stroke-dasharray='none' ");
        return true;
    }
    if (lineStyle >= DashedStyles || DashLengths[lineStyle][0] == 0) {
        return false;
    }
    appendPieces(out, "stroke-dasharray='");
    const char* separator = "";
    for (const int length : DashLengths[lineStyle]) {
        if (length == 0) {
            break;
        }
        appendPieces(out, std::string_view(separator), wrapMultiply(length, width));
        separator = ",";
    }
    appendPieces(out, "' ");
    return true;
}

} // namespace

void CSurfaceSVG::appendRGBColor(TovoTextString& out, unsigned long color)
{
    appendPieces(out, RgbColor{color});
}

void CSurfaceSVG::appendPenStyle(TovoTextString& out)
{
    const int style = m_pen.getStyle();
    const int lineStyle = style & PenLineMask;
    appendPieces(out, " ", PenStyleKey, style, "' ");
    if (lineStyle == PenWithoutLine) {
        appendPieces(out, " ", StrokeKey, "none' ");
        return;
    }
    appendPieces(out, " ", StrokeKey, RgbColor{m_pen.getColor()}, "' ", StrokeWidthKey, m_pen.getWidth(),
                 "' ");
    if (!appendDashes(out, lineStyle, m_pen.getWidth())) {
        appendPieces(out, textOfField(Caps, style, PenCapBit), textOfField(Joins, style, PenJoinBit));
    }
}

void CSurfaceSVG::appendFillStyle(TovoTextString& out)
{
    const int style = m_brush.getStyle();
    const bool withoutPicture =
        style == PictureBrush && Detail(*this).sizeOfImage(m_brush.getPicture()) == nullptr;
    if (style == SolidBrush) {
        appendPieces(out, " ", FillKey, RgbColor{m_brush.getColor()}, "' ");
    } else if (style == HollowBrush || withoutPicture) {
        appendPieces(out, " ", FillKey, "none' ");
    } else {
        makePatternDef();
        appendPieces(out, " ", FillKey, "url(", PatternReference, m_patternCount, ")' ");
    }
}

void CSurfaceSVG::appendClipStyle(TovoTextString& out, RECT* rect)
{
    if (rect->left == 0 && rect->top == 0 && rect->right == 0 && rect->bottom == 0) {
        return;
    }
    makeClipDef(rect);
    appendPieces(out, " ", ClipPathKey, "url(", ClipReference, m_clipCount, ")' ");
}

void CSurfaceSVG::appendPath(TovoTextString& out, RECT* rect)
{
    const int left = rect->left;
    const int top = rect->top;
    const int right = rect->right;
    const int bottom = rect->bottom;
    appendPieces(out, " d='M", left, " ", top, "L", right, " ", top, "L", right, " ", bottom, "L", left, " ",
                 bottom, "z'");
}

void CSurfaceSVG::appendPath(TovoTextString& out, POINT* points, unsigned int count)
{
    appendPieces(out, " d='M");
    for (unsigned int i = 0; i < count; ++i) {
        appendPieces(out, std::string_view(i > 0 ? "L" : ""), int{points[i].x}, " ", int{points[i].y});
    }
    appendPieces(out, "z'");
}

void CSurfaceSVG::makeClipDef(RECT* rect)
{
    ++m_clipCount;
    appendPieces(m_clipDefs, ClipPathTag, " id='", ClipId, m_clipCount, "'>", PathTag, " ");
    appendPath(m_clipDefs, rect);
    appendPieces(m_clipDefs, " />", ClipPathEndTag, "\n");
}

void CSurfaceSVG::makePatternDef()
{
    const int style = m_brush.getStyle();
    if (style == PictureBrush) {
        makePatternDef(m_brush.getPicture());
        return;
    }
    const int hatch = wrapSubtract(style, FirstHatchBrush);
    const bool known = hatch >= 0 && hatch < SvgHatchCount;
    ++m_patternCount;
    appendPieces(m_patternDefs, PatternTag, " id='", PatternId, m_patternCount, "' ", StrokeKey,
                 RgbColor{m_brush.getColor()}, "' ", HrefKey, "#",
                 std::string_view(known ? SvgHatches[hatch].name : ""), "'>", PatternEndTag, "\n");
    m_symbolsUsed |= Detail::HatchUsed;
}
