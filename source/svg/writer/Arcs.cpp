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

// The elliptical arc command after its start point (SVG 1.0, 8.3.8). The axes are never turned.
struct ArcPath {
    int rx, ry;
    POINT start, end;
    int largeArc, sweep;
};

void appendArc(TovoTextString& out, const ArcPath& arc)
{
    appendPieces(out, int{arc.start.x}, " ", int{arc.start.y}, "A", arc.rx, " ", arc.ry, " 0 ", arc.largeArc,
                 " ", arc.sweep, " ", int{arc.end.x}, " ", int{arc.end.y});
}

} // namespace

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
    POINT start{x1, y1};
    POINT end{x2, y2};
    ArcPath arc{};
    SVGArc(rect, &start, &end, arc.rx, arc.ry, arc.start, arc.end, arc.largeArc, arc.sweep);
    TovoTextString element(ArcRoom);
    appendPieces(element, "<path d='M");
    appendArc(element, arc);
    appendPieces(element, "' ", FillKey, "none' ");
    appendPenStyle(element);
    appendArguments(element, ArcName, *rect, start, end);
    m_body.append(element);
}

void CSurfaceSVG::drawChord(RECT* rect, int x1, int y1, int x2, int y2)
{
    if (rect == nullptr) {
        return;
    }
    POINT start{x1, y1};
    POINT end{x2, y2};
    ArcPath arc{};
    SVGArc(rect, &start, &end, arc.rx, arc.ry, arc.start, arc.end, arc.largeArc, arc.sweep);
    Detail::Change change(*this);
    TovoTextString element(ArcRoom);
    appendPieces(element, "<path d='M");
    appendArc(element, arc);
    appendPieces(element, " z' ");
    appendPenStyle(element);
    appendFillStyle(element);
    appendArguments(element, ChordName, *rect, start, end);
    m_body.append(element);
    change.keep();
}

void CSurfaceSVG::drawPie(RECT* rect, int x1, int y1, int x2, int y2)
{
    if (rect == nullptr) {
        return;
    }
    POINT start{x1, y1};
    POINT end{x2, y2};
    ArcPath arc{};
    SVGArc(rect, &start, &end, arc.rx, arc.ry, arc.start, arc.end, arc.largeArc, arc.sweep);
    const POINT centre = centreOf(*rect);
    Detail::Change change(*this);
    TovoTextString element(ArcRoom);
    appendPieces(element, "<path d='M", int{centre.x}, " ", int{centre.y}, "L");
    appendArc(element, arc);
    appendPieces(element, " z' ");
    appendPenStyle(element);
    appendFillStyle(element);
    appendArguments(element, PieName, *rect, start, end);
    m_body.append(element);
    change.keep();
}
