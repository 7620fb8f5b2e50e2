// Operands, colours and paths, and the state of pen and brush.
//
// Blanks are as documents have them: operands end in one and most operators begin with one, so two often meet.
#include "surfacePSPrinter.h"

#include "PostScriptChange.h"
#include "PostScriptDetail.h"
#include "PostScriptPieces.h"
#include "brushStyles.h"
#include "penStyles.h"

using namespace drawing;
using namespace postscript;

namespace {

constexpr std::string_view Caps[] = {" 1 setlinecap ", " 2 setlinecap ", " 0 setlinecap "};
constexpr std::string_view Joins[] = {" 1 setlinejoin ", " 2 setlinejoin ", " 0 setlinejoin "};

// In the order of the brush styles from FirstHatchBrush on; prolog/hatch.ps defines them.
constexpr std::string_view Hatches[] = {" HatchHorizontal", " HatchVertical", " HatchFDiagonal",
                                        " HatchBDiagonal",  " HatchCross",    " HatchDiagCross"};
constexpr int HatchCount = static_cast<int>(sizeof(Hatches) / sizeof(Hatches[0]));
static_assert(HatchCount == 6, "one hatch for each of the brush styles 2 to 7");

} // namespace

void CSurfacePSPrinter::pushInteger(TovoTextString* s, int number)
{
    appendPieces(*s, number, " ");
}

void CSurfacePSPrinter::pushPoint(TovoTextString* s, int x, int y)
{
    appendPieces(*s, PsPoint{x, y});
}

void CSurfacePSPrinter::pushRectangle(TovoTextString* s, RECT* rect)
{
    appendPieces(*s, PsRectangle{*rect});
}

void CSurfacePSPrinter::pushColor(TovoTextString* s, unsigned long color)
{
    appendPieces(*s, PsColor{color}, " ");
}

void CSurfacePSPrinter::appendRGB(TovoTextString& s, unsigned long color)
{
    appendPieces(s, PsColor{color});
}

void CSurfacePSPrinter::appendRGBColor(TovoTextString& s, unsigned long color)
{
    appendPieces(s, PsColor{color}, " setrgbcolor");
}

void CSurfacePSPrinter::appendRGBColor(TovoTextString& s) const
{
    appendRGBColor(s, m_foreColor);
}

void CSurfacePSPrinter::appendPath(TovoTextString& s, RECT* rect)
{
    appendPieces(s, PsPoint{rect->left, rect->top}, " moveto ", PsPoint{rect->right, rect->top}, " lineto ",
                 PsPoint{rect->right, rect->bottom}, " lineto ", PsPoint{rect->left, rect->bottom},
                 " lineto closepath");
}

void CSurfacePSPrinter::Detail::appendOpenPath(TovoTextString& s, const POINT* points, unsigned int count)
{
    for (unsigned int i = 0; i < count; ++i) {
        appendPieces(s, PsPoint{points[i].x, points[i].y},
                     std::string_view(i == 0 ? " moveto " : " lineto "));
    }
}

void CSurfacePSPrinter::appendPath(TovoTextString& s, POINT* points, unsigned int count)
{
    if (count > 0) {
        Detail::appendOpenPath(s, points, count);
        appendPieces(s, "closepath");
    }
}

bool CSurfacePSPrinter::haveStroke() const
{
    return m_pen.getStyle() != PenWithoutLine;
}

bool CSurfacePSPrinter::haveFill() const
{
    return m_brush.getStyle() != HollowBrush;
}

void CSurfacePSPrinter::appendDrawStyle(TovoTextString& s)
{
    if (!haveStroke()) {
        return;
    }
    TextChange change(s);
    const unsigned int before = s.length();
    if (m_currentColor != m_pen.getColor()) {
        appendPieces(s, " ", PsColor{m_pen.getColor()}, " setrgbcolor");
    }
    if (m_currentLineWidth != m_pen.getWidth()) {
        appendPieces(s, " ", m_pen.getWidth(), " setlinewidth");
    }
    const std::string_view cap = textOfField(Caps, m_pen.getStyle(), PenCapBit);
    const std::string_view join = textOfField(Joins, m_pen.getStyle(), PenJoinBit);
    // Numbers follow, which must stay tokens of their own.
    const bool needsEnd = cap.empty() && join.empty() && s.length() != before;
    appendPieces(s, cap, join, std::string_view(needsEnd ? " " : ""));
    change.keep();
    m_currentColor = m_pen.getColor();
    m_currentLineWidth = m_pen.getWidth();
}

void CSurfacePSPrinter::appendFillStyle(TovoTextString& s)
{
    TextChange change(s);
    const int style = m_brush.getStyle();
    const int hatch = wrapSubtract(style, FirstHatchBrush);
    if (style == SolidBrush) {
        appendPieces(s, " ", PsColor{m_brush.getColor()}, " setrgbcolor ");
        m_currentColor = m_brush.getColor();
    } else if (style == PictureBrush) {
        appendPieces(s, "\n[/Pattern /DeviceRGB] setcolorspace Pattern", m_brush.getPicture(),
                     " setpattern ");
        Detail(*this).usePattern(m_brush.getPicture());
    } else if (hatch >= 0 && hatch < HatchCount) {
        appendPieces(s, "\n[/Pattern /DeviceRGB] setcolorspace ", PsColor{m_brush.getColor()}, Hatches[hatch],
                     " setcolor ");
        m_proceduresUsed |= Detail::HatchUsed;
    }
    change.keep();
}

// A path that no pen paints is dropped: it would be painted with the next one.
void CSurfacePSPrinter::Detail::appendStroke(TovoTextString& s)
{
    m_page.appendDrawStyle(s);
    appendPieces(s, std::string_view(m_page.haveStroke() ? " stroke" : " newpath"));
}

void CSurfacePSPrinter::appendStrokeAndFill(TovoTextString& s)
{
    Detail::Change change(*this);
    TextChange textChange(s);
    if (!haveFill()) {
        if (haveStroke()) {
            Detail(*this).appendStroke(s);
        }
    } else if (!haveStroke()) {
        appendFillStyle(s);
        appendPieces(s, " fill");
    } else {
        // A fill uses the path up, and the outline needs it once more.
        const unsigned long colorOutside = m_currentColor;
        appendPieces(s, " gsave");
        appendFillStyle(s);
        appendPieces(s, " fill grestore");
        m_currentColor = colorOutside;
        Detail(*this).appendStroke(s);
    }
    change.keep();
    textChange.keep();
}

void CSurfacePSPrinter::appendClipStyle(TovoTextString& /*s*/, RECT* /*rect*/) {}
