// The report's pages of plain drawing: overview, shares and load curves.
//
// Pages of clips and transforms are in reportGroupPages.cpp, the parts of both in chartParts.h.
#include "reportPages.h"

#include <algorithm>

#include "chartParts.h"
#include "reportLayout.h"

namespace {

constexpr ReportPage Pages[] = {
    {"overview", "The year at a glance",
     "Shares of four uses, the months in a table with bars in its cells, and each use against the year "
     "before (grey) and its target (red). The bars carry the six hatches over a light ground.",
     drawOverview, letterOverview, false},
    {"shares", "Shares, levels and gauges",
     "The year by use as pie and ring, gauges made of arcs, and storage "
     "tanks filled to a chord.",
     drawShares, letterShares, false},
    {"curves", "Load curves and pens",
     "A winter and a summer day against the contracted load; every line style, end cap and join; and the "
     "months of each use as a polyline.",
     drawCurves, letterCurves, false},
    {"groups", "Turned and enlarged",
     "Months and their names turned round a centre, and a detail of two curves enlarged behind a clip.",
     drawGroups, letterGroups, true},
    {"sheet", "Contact sheet",
     "Whole pages drawn once more, each nested in a font, a clip and a transform. The last one is turned and "
     "leaves its clip.",
     drawSheet, letterSheet, true},
    {"words", "Words and figures",
     "Text aligned by its flags, faces in several sizes, runs that are underlined, fitted or follow one "
     "another, and text turned by line and by glyph.",
     drawWords, nullptr, false},
    {"pictures", "Pictures",
     "One picture in every type that a surface takes, drawn by the program; at its own size, scaled and "
     "tiled, "
     "and as a brush. The page holds PNG for all of them but the JPEG.",
     drawPictures, nullptr, true},
};

void drawShareTile(CSurface& surface, int left, const EnergyUse& use)
{
    drawPanel(surface, {left, 84, left + 164, 176});
    fillBox(surface, {left + 12, 84, left + 152, 87}, use.colour);

    const POINT centre = {left + 40, 132};
    RECT ring = around(centre, 22);
    surface.setBrush(0, HollowBrush);
    surface.setPen(Rule, SolidPen, 8);
    surface.ellipse(&ring);
    surface.setPen(use.colour, SolidPen | FlatCap, 8);
    drawSweep(surface, centre, 22, 90, 360.0 * yearOf(use) / siteYear());

    const Plot spark = {{left + 78, 108, left + 150, 156},
                        MonthCount - 1,
                        *std::max_element(std::begin(use.month), std::end(use.month))};
    const std::vector<POINT> points = spark.curve(use.month, MonthCount);
    surface.setPen(Rule, SolidPen, 1);
    surface.drawLine(spark.area.left, spark.area.bottom, spark.area.right, spark.area.bottom);
    surface.setPen(use.colour, SolidPen, 2);
    drawCurve(surface, points);
    drawDot(surface, points.back(), 4, use.colour);
}

void drawMonthTable(CSurface& surface)
{
    constexpr const RECT& Frame = MonthTable.frame;
    constexpr int RowHeight = MonthTable.rowHeight;
    constexpr int FirstColumn = MonthTable.firstColumn;
    constexpr int ColumnWidth = MonthTable.columnWidth;
    RECT outline = Frame;
    surface.setPen(Rule, SolidPen, 1);
    surface.setBrush(White, SolidBrush);
    surface.drawRectangle(&outline);
    fillBox(surface, {Frame.left, Frame.top, Frame.right, Frame.top + RowHeight}, tint(Ink, 20));
    for (int month = 0; month < MonthCount; ++month) {
        const int top = Frame.top + RowHeight * (month + 1);
        const auto cell = [&](int column, int length, unsigned long colour) {
            const int left = Frame.left + FirstColumn + ColumnWidth * column + 7;
            fillBox(surface, {left, top + 7, left + 1 + length, top + 17}, colour);
        };
        drawDot(surface, {Frame.left + 49, top + 12}, 2 + siteIn(month) / 80, Accent);
        for (int use = 0; use < UseCount; ++use) {
            cell(use, EnergyUses[use].month[month] * 76 / 212, EnergyUses[use].colour);
        }
        cell(UseCount, siteIn(month) * 76 / 450, Ink);
    }
    surface.setPen(Rule, SolidPen | FlatCap, 1);
    for (int row = 1; row <= MonthCount; ++row) {
        const int y = Frame.top + RowHeight * row;
        surface.drawLine(Frame.left, y, Frame.right, y);
    }
    for (int column = 0; column <= UseCount; ++column) {
        const int x = Frame.left + FirstColumn + ColumnWidth * column;
        surface.drawLine(x, Frame.top, x, Frame.bottom);
    }
}

void drawUseBars(CSurface& surface)
{
    drawPanel(surface, {48, 528, 746, 1064});
    const Plot& plot = UseBars;
    drawAxes(surface, plot, 7);
    for (int i = 0; i < UseCount; ++i) {
        const EnergyUse& use = EnergyUses[i];
        const int left = plot.x(i);
        fillBox(surface, {left + 16, plot.y(use.yearBefore), left + 44, plot.area.bottom}, Rule);
        RECT bar = {left + 48, plot.y(yearOf(use)), left + 88, plot.area.bottom};
        fillBox(surface, bar, tint(use.colour, 55));
        surface.setPen(use.colour, SolidPen | MiterJoin, 2);
        surface.setBrush(use.colour, use.hatch);
        surface.drawRectangle(&bar);

        surface.setPen(Warning, DashPen, 2);
        surface.drawLine(left + 10, plot.y(use.target), left + 96, plot.y(use.target));

        RECT key = {left + 30, 1016, left + 74, 1044};
        surface.setPen(use.colour, SolidPen, 2);
        surface.drawRoundedRectangle(&key, 6, 6);
    }
}

void drawYearShares(CSurface& surface)
{
    drawPanel(surface, {48, 84, 746, 444});
    const POINT& pie = SharePie;
    const POINT& ring = ShareRing;
    double start = 90;
    for (const EnergyUse& use : EnergyUses) {
        const double sweep = 360.0 * yearOf(use) / siteYear();
        surface.setPen(White, SolidPen, 2);
        surface.setBrush(use.colour, SolidBrush);
        drawSector(surface, pie, 152, start, sweep);
        surface.setBrush(tint(use.colour, 45), SolidBrush);
        drawSector(surface, ring, 152, start, sweep);
        surface.setPen(use.colour, SolidPen, 1);
        surface.setBrush(use.colour, use.hatch);
        drawSector(surface, ring, 152, start, sweep);
        start -= sweep;
    }
    drawDot(surface, ring, 80, White);
    surface.setPen(Accent, SolidPen | FlatCap, 10);
    drawSweep(surface, ring, 58, 90, 252);
}

void drawGauge(CSurface& surface, POINT centre, int percent, unsigned long colour)
{
    surface.setPen(tint(Rule, 50), SolidPen | FlatCap, 14);
    drawSweep(surface, centre, 66, 225, 270);
    surface.setPen(colour, SolidPen | FlatCap, 14);
    drawSweep(surface, centre, 66, 225, 270.0 * percent / 100);
    const POINT tip = towards(centre, 225 - 270.0 * percent / 100);
    surface.setPen(Ink, SolidPen, 3);
    surface.drawLine(centre.x, centre.y, centre.x + (tip.x - centre.x) * 48 / 1000,
                     centre.y + (tip.y - centre.y) * 48 / 1000);
    drawDot(surface, centre, 6, Ink);
}

void drawTank(CSurface& surface, POINT centre, int degrees, unsigned long colour)
{
    RECT tank = around(centre, 72);
    surface.setPen(Rule, SolidPen, 6);
    surface.setBrush(Mist, SolidBrush);
    surface.ellipse(&tank);
    // The level is the chord between two directions as far left and right of straight down.
    const POINT from = towards(centre, 270.0 - degrees);
    const POINT to = towards(centre, 270.0 + degrees);
    RECT filled = around(centre, 66);
    surface.setPen(colour, SolidPen, 1);
    surface.setBrush(tint(colour, 30), SolidBrush);
    surface.drawChord(&filled, from.x, from.y, to.x, to.y);
}

void drawDayLoad(CSurface& surface)
{
    drawPanel(surface, {48, 84, 746, 470});
    const Plot& plot = DayLoad;
    // The ground line first: the area takes its outline from the pen that the last shape left.
    const unsigned long shade = tint(Accent, 70);
    surface.setPen(shade, SolidPen, 1);
    surface.drawLine(plot.area.left, plot.area.bottom, plot.area.right, plot.area.bottom);
    std::vector<POINT> area = plot.curve(SummerDay, HourCount);
    area.push_back({plot.area.right, plot.area.bottom});
    area.push_back({plot.area.left, plot.area.bottom});
    surface.solidPolygon(area.data(), static_cast<unsigned int>(area.size()), shade);

    drawAxes(surface, plot, 7);
    surface.setPen(Accent, SolidPen, 3);
    drawCurve(surface, plot.curve(SummerDay, HourCount));
    surface.setPen(EnergyUses[2].colour, SolidPen, 3);
    const std::vector<POINT> winter = plot.curve(WinterDay, HourCount);
    drawCurve(surface, winter);
    for (const POINT& hour : winter) {
        drawDot(surface, hour, 4, EnergyUses[2].colour);
    }
    surface.setPen(Warning, DashDotPen, 2);
    surface.drawLine(plot.area.left, plot.y(ContractedLoad), plot.area.right, plot.y(ContractedLoad));
}

void drawLineStyles(CSurface& surface)
{
    drawPanel(surface, {48, 490, 387, 790});
    constexpr int Widths[] = {1, 3, 6};
    for (int style = SolidPen; style <= 6; ++style) {
        const int y = 523 + style * 39;
        surface.setPen(Rule, SolidPen, 1);
        surface.drawLine(64, y + 12, 371, y + 12);
        for (int column = 0; column < 3; ++column) {
            const int left = 70 + column * 103;
            surface.setPen(Ink, style, Widths[column]);
            surface.drawLine(left, y, left + 88, y);
        }
    }
}

void drawCapsAndJoins(CSurface& surface)
{
    drawPanel(surface, {407, 490, 746, 790});
    constexpr int Caps[] = {SolidPen, SquareCap, FlatCap};
    constexpr int Joins[] = {SolidPen, BevelJoin, MiterJoin};
    surface.setBrush(0, HollowBrush);
    for (int i = 0; i < 3; ++i) {
        const int y = 528 + i * 36;
        surface.setPen(tint(Ink, 40), Caps[i], 18);
        surface.drawLine(452, y, 702, y);
        surface.setPen(White, SolidPen | FlatCap, 1);
        surface.drawLine(452, y, 702, y);

        const int left = 441 + i * 100;
        POINT corner[] = {{left, 750}, {left + 36, 662}, {left + 72, 750}};
        surface.setPen(EnergyUses[i].colour, Joins[i], 14);
        surface.polygon(corner, 3);
    }
}

void drawProfiles(CSurface& surface)
{
    drawPanel(surface, {48, 810, 746, 1064});
    for (int i = 0; i < UseCount; ++i) {
        const EnergyUse& use = EnergyUses[i];
        const Plot plot = {{72 + i * 111, 850, 167 + i * 111, 1024}, MonthCount - 1, 220};
        // From the ground line up and back to it: viewers, which fill a polyline, show the same silhouette.
        std::vector<POINT> profile = plot.curve(use.month, MonthCount);
        profile.insert(profile.begin(), {plot.area.left, plot.area.bottom});
        profile.push_back({plot.area.right, plot.area.bottom});
        surface.setPen(use.colour, SolidPen, 4);
        surface.polyline(profile.data(), static_cast<unsigned int>(profile.size()));
        surface.setPen(Rule, SolidPen, 1);
        surface.drawLine(plot.area.left, 1034, plot.area.right, 1034);
    }
}

} // namespace

std::span<const ReportPage> reportPages()
{
    return Pages;
}

void drawOverview(CSurface& surface)
{
    drawFurniture(surface, 1, static_cast<int>(std::size(Pages)));
    for (int tile = 0; tile < 4; ++tile) {
        drawShareTile(surface, 48 + tile * 178, EnergyUses[tile]);
    }
    drawMonthTable(surface);
    drawUseBars(surface);
}

void drawShares(CSurface& surface)
{
    drawFurniture(surface, 2, static_cast<int>(std::size(Pages)));
    drawYearShares(surface);
    drawPanel(surface, {48, 464, 746, 724});
    drawPanel(surface, {48, 744, 746, 1064});
    constexpr int Levels[] = {128, 101, 74, 43};
    for (int i = 0; i < 4; ++i) {
        drawGauge(surface, {instrumentX(i), 608}, GaugePercents[i], EnergyUses[i].colour);
        drawTank(surface, {instrumentX(i), 904}, Levels[i], EnergyUses[i].colour);
    }
}

void drawCurves(CSurface& surface)
{
    drawFurniture(surface, 3, static_cast<int>(std::size(Pages)));
    drawDayLoad(surface);
    drawLineStyles(surface);
    drawCapsAndJoins(surface);
    drawProfiles(surface);
}
