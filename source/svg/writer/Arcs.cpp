// Arcs, chords and pies.
//
// A caller gives an arc as a bounding rectangle and two points that only give directions from its centre; a
// path wants end points on the ellipse, radii and two flags. Both are written: the path for viewers, the
// caller's eight numbers in a tovo: attribute for the player, which does not read the path.
#include "surfaceSVG.h"

#include <cmath>

#include "SvgChange.h"
#include "SvgDialect.h"
#include "arcGeometry.h"
#include "pageText.h"
#include "rectangle.h"

using namespace drawing;
using namespace svg;

namespace {

constexpr TextRoom ArcRoom{500};

POINT pointOnEllipse(const POINT& centre, int rx, int ry, double angle)
{
    return POINT{saturateToInt(centre.x + rx * std::cos(angle)),
                 saturateToInt(centre.y + ry * std::sin(angle))};
}

void appendArguments(TovoTextString& out, std::string_view name, const RECT& rect, const POINT& start,
                     const POINT& end)
{
    appendPieces(out, TovoPrefix, name, "='", int{rect.left}, " ", int{rect.top}, " ", int{rect.right}, " ",
                 int{rect.bottom}, " ", int{start.x}, " ", int{start.y}, " ", int{end.x}, " ", int{end.y},
                 "' />\n");
}

} // namespace

// The elliptical arc command after its start point (SVG 1.0, 8.3.8). The axes are never turned.
struct CSurfaceSVG::Detail::ArcPath {
    ArcPath(CSurfaceSVG& page, RECT* rect, POINT from, POINT to)
    {
        page.SVGArc(rect, &from, &to, rx, ry, start, end, largeArc, sweep);
    }

    void append(TovoTextString& out) const
    {
        appendPieces(out, int{start.x}, " ", int{start.y}, "A", rx, " ", ry, " 0 ", largeArc, " ", sweep, " ",
                     int{end.x}, " ", int{end.y});
    }

    int rx, ry;
    POINT start, end;
    int largeArc, sweep;
};

void CSurfaceSVG::SVGArc(RECT* rect, POINT* start, POINT* end, int& rx, int& ry, POINT& startOut,
                         POINT& endOut, int& largeArc, int& sweep)
{
    rx = widthOf(*rect) / 2;
    ry = heightOf(*rect) / 2;
    const POINT centre = centreOf(*rect);
    // Clockwise on the screen, where y points down.
    const double startAngle = 2 * Pi - angleOf(centre, *start);
    double endAngle = 2 * Pi - angleOf(centre, *end);
    startOut = pointOnEllipse(centre, rx, ry, startAngle);
    endOut = pointOnEllipse(centre, rx, ry, endAngle);
    sweep = 0; // callers mean counter-clockwise
    if (endAngle > startAngle) {
        endAngle -= 2 * Pi;
    }
    largeArc = startAngle - endAngle > Pi ? 1 : 0;
}

void CSurfaceSVG::drawArc(RECT* rect, int x1, int y1, int x2, int y2)
{
    if (rect == nullptr) {
        return;
    }
    TovoTextString element(ArcRoom);
    appendPieces(element, PathTag, " d='M");
    Detail::ArcPath(*this, rect, POINT{x1, y1}, POINT{x2, y2}).append(element);
    appendPieces(element, "' ", FillKey, "none' ");
    appendPenStyle(element);
    appendArguments(element, ArcName, *rect, POINT{x1, y1}, POINT{x2, y2});
    m_body.append(element);
}

void CSurfaceSVG::drawChord(RECT* rect, int x1, int y1, int x2, int y2)
{
    if (rect != nullptr) {
        Detail(*this).drawSector(ChordName, rect, POINT{x1, y1}, POINT{x2, y2});
    }
}

void CSurfaceSVG::drawPie(RECT* rect, int x1, int y1, int x2, int y2)
{
    if (rect != nullptr) {
        Detail(*this).drawSector(PieName, rect, POINT{x1, y1}, POINT{x2, y2});
    }
}

void CSurfaceSVG::Detail::drawSector(std::string_view name, RECT* rect, POINT start, POINT end)
{
    Change change(m_page);
    TovoTextString element(ArcRoom);
    appendPieces(element, PathTag, " d='M");
    if (name == PieName) {
        const POINT centre = centreOf(*rect);
        appendPieces(element, int{centre.x}, " ", int{centre.y}, "L");
    }
    ArcPath(m_page, rect, start, end).append(element);
    appendPieces(element, " z' ");
    m_page.appendPenStyle(element);
    m_page.appendFillStyle(element);
    appendArguments(element, name, *rect, start, end);
    m_page.m_body.append(element);
    change.keep();
}
