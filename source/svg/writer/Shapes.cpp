// Shapes, one element each. An element is composed apart and joins the page in one step.
#include "surfaceSVG.h"

#include <cstdlib>

#include "SvgChange.h"
#include "SvgDialect.h"
#include "SvgWriterDetail.h"
#include "brushStyles.h"
#include "pageText.h"
#include "rectangle.h"
#include "undo.h"

using namespace drawing;
using namespace svg;

namespace {

constexpr TextRoom ElementRoom{400}; // characters; longer than all elements but long point lists

bool drawable(const POINT* points, unsigned int count)
{
    return points != nullptr || count == 0;
}

// Pairs "x,y ". An odd list is made even by its first point.
void appendPoints(TovoTextString& out, const POINT* points, unsigned int count)
{
    for (unsigned int i = 0; i < count; ++i) {
        appendPieces(out, int{points[i].x}, ",", int{points[i].y}, " ");
    }
    if (count % 2 != 0) {
        appendPieces(out, int{points[0].x}, ",", int{points[0].y}, " ");
    }
}

void appendUse(TovoTextString& out, const RECT& rect, std::string_view symbol)
{
    appendPieces(out, UseTag, " x='", int{rect.left}, "' y='", int{rect.top}, "' width='", widthOf(rect),
                 "' height='", heightOf(rect), "' ", HrefKey, "#", symbol, "'");
}

} // namespace

void CSurfaceSVG::drawSolidRectangle(RECT* rect, unsigned long color)
{
    if (rect == nullptr) {
        return;
    }
    TovoTextString element(ElementRoom);
    appendUse(element, *rect, SolidRectSymbol);
    appendPieces(element, " ", FillKey);
    appendRGBColor(element, color);
    appendPieces(element, "'/>\n");
    m_body.append(element);
    m_symbolsUsed |= Detail::SolidRectUsed;
}

void CSurfaceSVG::frameRect(RECT* rect, unsigned long color)
{
    if (rect == nullptr) {
        return;
    }
    TovoTextString element(ElementRoom);
    appendUse(element, *rect, FrameRectSymbol);
    appendPieces(element, " ", StrokeKey);
    appendRGBColor(element, color);
    appendPieces(element, "'/>\n");
    m_body.append(element);
    m_symbolsUsed |= Detail::FrameRectUsed;
}

void CSurfaceSVG::drawFocusRect(RECT* rect)
{
    if (rect == nullptr) {
        return;
    }
    TovoTextString element(ElementRoom);
    appendUse(element, *rect, FocusRectSymbol);
    appendPieces(element, "/>\n");
    m_body.append(element);
    m_symbolsUsed |= Detail::FocusRectUsed;
}

void CSurfaceSVG::drawLine(int x1, int y1, int x2, int y2)
{
    TovoTextString element(ElementRoom);
    appendPieces(element, LineTag, " x1='", x1, "' y1='", y1, "' x2='", x2, "' y2='", y2, "'");
    appendPenStyle(element);
    appendPieces(element, " />\n");
    m_body.append(element);
}

void CSurfaceSVG::drawRectangle(RECT* rect)
{
    drawRectangle(rect, 0, 0);
}

void CSurfaceSVG::drawRectangle(RECT* rect, int rx, int ry)
{
    if (rect == nullptr) {
        return;
    }
    Detail::Change change(*this);
    TovoTextString element(ElementRoom);
    appendPieces(element, RectTag, " x='", int{rect->left}, "' y='", int{rect->top}, "' width='",
                 widthOf(*rect), "' height='", heightOf(*rect), "'");
    if (rx > 0) {
        appendPieces(element, " rx='", rx, "'");
    }
    if (ry > 0) {
        appendPieces(element, " ry='", ry, "'");
    }
    appendFillStyle(element);
    appendPenStyle(element);
    appendPieces(element, " />\n");
    m_body.append(element);
    change.keep();
}

void CSurfaceSVG::drawRoundedRectangle(RECT* rect, unsigned int width, unsigned int height)
{
    drawRectangle(rect, wrapToInt(width), wrapToInt(height));
}

void CSurfaceSVG::ellipse(RECT* rect)
{
    drawEllipse(rect, false);
}

void CSurfaceSVG::drawEllipse(RECT* rect, bool /*filled*/)
{
    if (rect == nullptr) {
        return;
    }
    const int rx = widthOf(*rect) / 2;
    const int ry = heightOf(*rect) / 2;
    Detail::Change change(*this);
    TovoTextString element(ElementRoom);
    appendPieces(element, EllipseTag, " cx='", wrapAdd(rect->left, rx), "' cy='", wrapAdd(rect->top, ry),
                 "' rx='", std::abs(rx), "' ry='", std::abs(ry), "' ");
    appendFillStyle(element);
    appendPenStyle(element);
    appendPieces(element, " />\n");
    m_body.append(element);
    change.keep();
}

void CSurfaceSVG::polygon(POINT* points, unsigned int count)
{
    drawPolygon(points, count, true);
}

void CSurfaceSVG::drawPolygon(POINT* points, unsigned int count, bool filled)
{
    if (!drawable(points, count)) {
        return;
    }
    Detail::Change change(*this);
    TovoTextString element(ElementRoom);
    appendPieces(element, PolygonTag, " ", PointsKey);
    appendPoints(element, points, count);
    appendPieces(element, "'");
    appendPenStyle(element);
    if (filled) {
        appendFillStyle(element);
    }
    appendPieces(element, " />");
    m_body.append(element);
    change.keep();
}

void CSurfaceSVG::polyline(POINT* points, unsigned int count)
{
    drawPolyline(points, count);
}

void CSurfaceSVG::drawPolyline(POINT* points, unsigned int count)
{
    if (!drawable(points, count)) {
        return;
    }
    TovoTextString element(ElementRoom);
    appendPieces(element, PolylineTag, " ", PointsKey);
    appendPoints(element, points, count);
    appendPieces(element, "'");
    appendPenStyle(element);
    appendPieces(element, " />");
    m_body.append(element);
}

void CSurfaceSVG::drawPath(RECT* rect, bool filled)
{
    if (rect == nullptr) {
        return;
    }
    Detail::Change change(*this);
    TovoTextString element(ElementRoom);
    appendPieces(element, PathTag, " ");
    appendPath(element, rect);
    appendPenStyle(element);
    if (filled) {
        appendFillStyle(element);
    }
    appendPieces(element, " />\n");
    m_body.append(element);
    change.keep();
}

void CSurfaceSVG::drawPath(POINT* points, unsigned int count, bool filled)
{
    if (!drawable(points, count)) {
        return;
    }
    Detail::Change change(*this);
    TovoTextString element(ElementRoom);
    appendPieces(element, PathTag, " ");
    appendPath(element, points, count);
    appendPenStyle(element);
    if (filled) {
        appendFillStyle(element);
    }
    appendPieces(element, " />\n");
    m_body.append(element);
    change.keep();
}

void CSurfaceSVG::solidPolygon(POINT* points, unsigned int count, unsigned long color)
{
    const CSurfaceBrush kept = m_brush;
    CSurfaceBrush solid(color, SolidBrush);
    const auto putBack = [&] {
        m_brush = kept;
    };
    doOrUndo(
        [&] {
            setBrush(&solid);
            drawPolygon(points, count, true);
        },
        putBack);
    putBack();
}

void CSurfaceSVG::drawEraseRectangle(RECT* rect, unsigned long color)
{
    // setForeColor is a host's to override, so that nothing but it puts the colour back.
    const unsigned long kept = m_foreColor;
    const auto putBack = [&] {
        setForeColor(kept);
    };
    setForeColor(color);
    doOrUndo([&] { drawPath(rect, false); }, putBack);
    putBack();
}
