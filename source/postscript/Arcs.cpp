// Ellipses, arcs, pies and chords: six operands each for the procedures of prolog/.
#include "surfacePSPrinter.h"

#include "PostScriptChange.h"
#include "PostScriptDetail.h"
#include "PostScriptPieces.h"
#include "arcGeometry.h"

using namespace drawing;
using namespace postscript;

namespace {

constexpr TextRoom ArcRoom{100};

int degreesOf(double angle)
{
    return saturateToInt(angle * 180.0 / Pi);
}

} // namespace

// Centre and radii in logical units, angles in degrees.
struct CSurfacePSPrinter::Detail::ArcOperands {
    POINT centre;
    int radiusX, radiusY;
    int startAngle, endAngle;

    void append(TovoTextString& s, std::string_view procedure) const
    {
        appendPieces(s, PsPoint{centre.x, centre.y}, radiusX, " ", radiusY, " ", startAngle, " ", endAngle,
                     " ", procedure);
    }
};

void CSurfacePSPrinter::PSArc(RECT* rect, POINT start, POINT end, int& radiusX, int& radiusY, int& startAngle,
                              int& endAngle)
{
    radiusX = widthOf(*rect) / 2;
    radiusY = heightOf(*rect) / 2;
    const POINT centre = centreOf(*rect);
    startAngle = degreesOf(angleOf(centre, start));
    endAngle = degreesOf(angleOf(centre, end));
}

CSurfacePSPrinter::Detail::ArcOperands CSurfacePSPrinter::Detail::arcOperands(RECT* rect, int x1, int y1,
                                                                              int x2, int y2)
{
    ArcOperands arc{};
    arc.centre = centreOf(*rect);
    PSArc(rect, POINT{x1, y1}, POINT{x2, y2}, arc.radiusX, arc.radiusY, arc.startAngle, arc.endAngle);
    return arc;
}

void CSurfacePSPrinter::Detail::appendPlainColor(TovoTextString& s, unsigned long color)
{
    if (m_page.m_currentColor != color) {
        appendPieces(s, PsColor{color}, " setrgbcolor ");
        m_page.m_currentColor = color;
    }
}

void CSurfacePSPrinter::ellipse(RECT* rect)
{
    if (rect == nullptr) {
        return;
    }
    const Detail::ArcOperands whole{centreOf(*rect), widthOf(*rect) / 2, heightOf(*rect) / 2, 0, 360};
    Detail::Change change(*this);
    TovoTextString text(ArcRoom);
    if (haveStroke()) {
        Detail(*this).appendPlainColor(text, m_pen.getColor());
        appendPieces(text, m_pen.getWidth(), " setlinewidth ");
        whole.append(text, " ellipse stroke ");
    }
    if (haveFill()) {
        Detail(*this).appendPlainColor(text, m_brush.getColor());
        whole.append(text, " ellipse fill");
    }
    appendPieces(text, "\n");
    m_proceduresUsed |= Detail::EllipseUsed;
    m_body.append(text);
    change.keep();
}

void CSurfacePSPrinter::drawArc(RECT* rect, int x1, int y1, int x2, int y2)
{
    if (rect == nullptr) {
        return;
    }
    Detail::Change change(*this);
    m_proceduresUsed |= Detail::EllipseUsed;
    if (haveStroke()) {
        TovoTextString text(ArcRoom);
        appendDrawStyle(text);
        Detail::arcOperands(rect, x1, y1, x2, y2).append(text, " ellipse stroke\n");
        m_body.append(text);
    }
    change.keep();
}

void CSurfacePSPrinter::drawPie(RECT* rect, int x1, int y1, int x2, int y2)
{
    if (rect != nullptr) {
        Detail(*this).drawSector(Detail::arcOperands(rect, x1, y1, x2, y2), " pie fill", " pie stroke",
                                 Detail::PieUsed);
    }
}

void CSurfacePSPrinter::drawChord(RECT* rect, int x1, int y1, int x2, int y2)
{
    if (rect != nullptr) {
        Detail(*this).drawSector(Detail::arcOperands(rect, x1, y1, x2, y2), " chord fill ", " chord stroke ",
                                 Detail::ChordUsed);
    }
}

void CSurfacePSPrinter::Detail::drawSector(const ArcOperands& arc, std::string_view fill,
                                           std::string_view stroke, ProcedureBits procedure)
{
    Change change(m_page);
    TovoTextString text(ArcRoom);
    if (m_page.haveFill()) {
        m_page.appendFillStyle(text);
        arc.append(text, fill);
    }
    if (m_page.haveStroke()) {
        const unsigned int filled = text.length();
        m_page.appendDrawStyle(text);
        // A pen may have nothing to set, and the operands must not join the operator of the fill.
        const bool joined = filled > 0 && text.length() == filled && text.text()[filled - 1] != ' ';
        appendPieces(text, std::string_view(joined ? " " : ""));
        arc.append(text, stroke);
    }
    appendPieces(text, "\n");
    m_page.m_proceduresUsed |= procedure;
    m_page.m_body.append(text);
    change.keep();
}
