// Small figures and helpers of the report's pages; see chartParts.h.
#include "chartParts.h"

#include <cmath>
#include <numbers>

#include "reportPages.h"

unsigned long tint(unsigned long colour, int percent)
{
    unsigned long mixed = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        const int part = static_cast<int>(colour >> shift & 0xFF);
        mixed |= static_cast<unsigned long>(part + (255 - part) * percent / 100) << shift;
    }
    return mixed;
}

std::vector<POINT> Plot::curve(const int* values, int count) const
{
    std::vector<POINT> points;
    points.reserve(static_cast<std::size_t>(count));
    for (int slot = 0; slot < count; ++slot) {
        points.push_back({x(slot), y(values[slot])});
    }
    return points;
}

POINT towards(POINT centre, double degrees)
{
    const double angle = degrees * std::numbers::pi / 180;
    return {centre.x + static_cast<LONG>(std::lround(1000 * std::cos(angle))),
            centre.y - static_cast<LONG>(std::lround(1000 * std::sin(angle)))};
}

RECT around(POINT centre, int radius)
{
    return {centre.x - radius, centre.y - radius, centre.x + radius, centre.y + radius};
}

void turnAbout(CSurface& surface, POINT centre, double degrees, double scale)
{
    const double angle = degrees * std::numbers::pi / 180;
    const float cosine = static_cast<float>(scale * std::cos(angle));
    const float sine = static_cast<float>(scale * std::sin(angle));
    surface.setTransform(cosine, sine, -sine, cosine, static_cast<float>(centre.x),
                         static_cast<float>(centre.y));
}

void drawFurniture(CSurface& surface, int page, int pages)
{
    // Layers that all reach the page's last corner: some viewers stretch every solid rectangle to there.
    constexpr struct {
        LONG top;
        unsigned long colour;
    } Layers[] = {{0, Ink}, {56, Accent}, {60, Mist}};
    for (const auto& layer : Layers) {
        RECT box = {0, layer.top, LogicalWidth, LogicalHeight};
        surface.drawSolidRectangle(&box, layer.colour);
    }
    RECT whole = {0, 0, LogicalWidth, LogicalHeight};
    surface.frameRect(&whole, Ink);

    // A closed bolt reads well both as an outline and as the black shape that viewers make of a polyline.
    drawDot(surface, {70, 28}, 20, Accent);
    POINT bolt[] = {{72, 14}, {61, 31}, {69, 31}, {67, 43}, {79, 25}, {71, 25}, {72, 14}};
    surface.setPen(0, SolidPen, 1);
    surface.polyline(bolt, static_cast<unsigned int>(std::size(bolt)));

    for (int mark = 1; mark <= pages; ++mark) {
        const int right = LogicalWidth - 48 - (pages - mark) * 14;
        fillBox(surface, {right - 8, 1086, right, 1094}, mark == page ? Accent : Rule);
    }
}

void fillBox(CSurface& surface, RECT box, unsigned long colour)
{
    surface.setPen(colour, SolidPen | MiterJoin, 1);
    surface.setBrush(colour, SolidBrush);
    surface.drawRectangle(&box);
}

void drawPanel(CSurface& surface, RECT box)
{
    surface.setPen(Rule, SolidPen, 1);
    surface.setBrush(White, SolidBrush);
    surface.drawRoundedRectangle(&box, 8, 8);
}

void drawAxes(CSurface& surface, const Plot& plot, int rows)
{
    const RECT& area = plot.area;
    surface.setPen(Rule, DotPen, 1);
    for (int row = 1; row <= rows; ++row) {
        const int y = plot.y(plot.top * row / rows);
        surface.drawLine(area.left, y, area.right, y);
    }
    surface.setPen(Ink, SolidPen | FlatCap, 1);
    surface.drawLine(area.left, area.top, area.left, area.bottom);
    surface.drawLine(area.left, area.bottom, area.right, area.bottom);
    for (int slot = 0; slot <= plot.slots; ++slot) {
        surface.drawLine(plot.x(slot), area.bottom, plot.x(slot), area.bottom + 4);
    }
}

void drawCurve(CSurface& surface, const std::vector<POINT>& points)
{
    for (std::size_t i = 1; i < points.size(); ++i) {
        surface.drawLine(points[i - 1].x, points[i - 1].y, points[i].x, points[i].y);
    }
}

void drawDot(CSurface& surface, POINT centre, int radius, unsigned long colour)
{
    RECT box = around(centre, radius);
    surface.setPen(White, SolidPen, 1);
    surface.setBrush(colour, SolidBrush);
    surface.ellipse(&box);
}

void drawSweep(CSurface& surface, POINT centre, int radius, double start, double sweep)
{
    // The surface draws counter-clockwise, so the clockwise end comes first.
    RECT box = around(centre, radius);
    const POINT from = towards(centre, start - sweep);
    const POINT to = towards(centre, start);
    surface.drawArc(&box, from.x, from.y, to.x, to.y);
}

void drawSector(CSurface& surface, POINT centre, int radius, double start, double sweep)
{
    RECT box = around(centre, radius);
    const POINT from = towards(centre, start - sweep);
    const POINT to = towards(centre, start);
    surface.drawPie(&box, from.x, from.y, to.x, to.y);
}
