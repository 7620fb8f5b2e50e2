// Lines, rectangles and polygons. The text of each is composed apart and joins the page in one step.
#include "surfacePSPrinter.h"

#include "PostScriptChange.h"
#include "PostScriptDetail.h"
#include "PostScriptPieces.h"
#include "brushStyles.h"
#include "undo.h"

using namespace drawing;
using namespace postscript;

namespace {

constexpr TextRoom ShapeRoom{100};

bool hasLength(int side, int length)
{
    return side == length || side == wrapSubtract(0, length);
}

bool drawable(const POINT* points, unsigned int count)
{
    return points != nullptr && count > 0;
}

} // namespace

void CSurfacePSPrinter::drawLine(int x1, int y1, int x2, int y2)
{
    Detail::Change change(*this);
    TovoTextString text(ShapeRoom);
    appendDrawStyle(text);
    appendPieces(text, " ", PsPoint{x1, y1}, " moveto ", PsPoint{x2, y2}, " lineto stroke\n");
    m_body.append(text);
    change.keep();
}

void CSurfacePSPrinter::drawRectangle(RECT* rect)
{
    if (rect == nullptr) {
        return;
    }
    const bool stroke = haveStroke();
    const bool fill = haveFill();
    Detail::Change change(*this);
    TovoTextString text(ShapeRoom);
    appendPieces(text, PsRectangle{*rect}, std::string_view(stroke && fill ? " 4 copy" : ""));
    if (fill) {
        appendFillStyle(text);
        appendPieces(text, " rectfill");
    }
    if (stroke) {
        appendDrawStyle(text);
        appendPieces(text, " rectstroke");
    }
    appendPieces(text, "\n");
    m_body.append(text);
    change.keep();
}

void CSurfacePSPrinter::drawSolidRectangle(RECT* rect, unsigned long color)
{
    if (rect == nullptr) {
        return;
    }
    Detail::Change change(*this);
    TovoTextString text(ShapeRoom);
    appendPieces(text, PsColor{color}, " ", PsRectangle{*rect}, " solidrect\n");
    m_proceduresUsed |= Detail::SolidRectUsed;
    m_body.append(text);
    change.keep();
}

void CSurfacePSPrinter::frameRect(RECT* rect, unsigned long color)
{
    if (rect == nullptr) {
        return;
    }
    Detail::Change change(*this);
    TovoTextString text(ShapeRoom);
    appendPieces(text, PsColor{color}, " ", PsRectangle{*rect}, " framerect\n");
    m_proceduresUsed |= Detail::FrameRectUsed;
    m_body.append(text);
    change.keep();
}

void CSurfacePSPrinter::drawFocusRect(RECT* rect)
{
    if (rect == nullptr) {
        return;
    }
    Detail::Change change(*this);
    TovoTextString text(ShapeRoom);
    appendPieces(text, PsRectangle{*rect}, " focusrect\n");
    m_proceduresUsed |= Detail::FocusRectUsed;
    m_body.append(text);
    change.keep();
}

void CSurfacePSPrinter::drawRoundedRectangle(RECT* rect, unsigned int radius, unsigned int /*secondRadius*/)
{
    if (rect == nullptr) {
        return;
    }
    const int r = wrapToInt(radius);
    const PsPoint topLeft{rect->left, rect->top};
    const PsPoint topRight{rect->right, rect->top};
    const PsPoint bottomRight{rect->right, rect->bottom};
    const PsPoint bottomLeft{rect->left, rect->bottom};
    Detail::Change change(*this);
    TovoTextString text(ShapeRoom);
    appendPieces(text, PsPoint{wrapAdd(rect->left, r), rect->top}, " moveto ");
    appendPieces(text, topRight, " ", bottomRight, " ", r, " arcto ");
    appendPieces(text, bottomRight, " ", bottomLeft, " ", r, " arcto ");
    appendPieces(text, bottomLeft, " ", topLeft, " ", r, " arcto ");
    appendPieces(text, topLeft, " ", topRight, " ", r, " arcto ");
    appendStrokeAndFill(text);
    appendPieces(text, "\n");
    m_body.append(text);
    change.keep();
    const int width = widthOf(*rect);
    const int height = heightOf(*rect);
    if (width == 0 || height == 0 || hasLength(width, r) || hasLength(height, r)) {
        Detail(*this).tellOfTrap(Detail::Trap::RoundedCorners);
    }
}

void CSurfacePSPrinter::polygon(POINT* points, unsigned int count)
{
    drawPolygon(points, count, true);
}

void CSurfacePSPrinter::drawPolygon(POINT* points, unsigned int count, bool fill)
{
    if (!drawable(points, count)) {
        return;
    }
    Detail::Change change(*this);
    TovoTextString text(ShapeRoom);
    appendPieces(text, " newpath ");
    appendPath(text, points, count);
    if (fill && haveFill()) {
        appendStrokeAndFill(text);
    } else {
        Detail(*this).appendStroke(text);
    }
    appendPieces(text, "\n");
    m_body.append(text);
    change.keep();
}

void CSurfacePSPrinter::polyline(POINT* points, unsigned int count)
{
    drawPolyline(points, count);
}

void CSurfacePSPrinter::drawPolyline(POINT* points, unsigned int count)
{
    if (!drawable(points, count)) {
        return;
    }
    Detail::Change change(*this);
    TovoTextString text(ShapeRoom);
    appendPieces(text, " newpath ");
    Detail::appendOpenPath(text, points, count);
    Detail(*this).appendStroke(text);
    appendPieces(text, "\n");
    m_body.append(text);
    change.keep();
}

void CSurfacePSPrinter::drawPath(RECT* rect, bool fill)
{
    if (rect == nullptr) {
        return;
    }
    Detail::Change change(*this);
    TovoTextString text(ShapeRoom);
    appendClipStyle(text, rect);
    appendPieces(text, "\n");
    appendRGBColor(text);
    appendPieces(text, " newpath ");
    appendPath(text, rect);
    if (!fill) {
        appendDrawStyle(text);
    } else if (m_brush.getStyle() != SolidBrush) {
        appendFillStyle(text); // a solid brush is the foreground colour here
    }
    appendPieces(text, " stroke\n");
    m_body.append(text);
    change.keep();
}

void CSurfacePSPrinter::drawEraseRectangle(RECT* rect, unsigned long color)
{
    // setForeColor is a host's to override, so that nothing but it puts the colour back.
    const unsigned long kept = m_foreColor;
    const auto putBack = [&] {
        setForeColor(kept);
    };
    setForeColor(color);
    doOrUndo([&] { drawPath(rect, true); }, putBack);
    putBack();
}
