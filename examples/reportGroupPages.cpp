// The report's pages of groups: transforms alone, then clips, and fonts, clips and transforms nested.
//
// Groups open in the order font, clip, transform and close in the opposite one, so that each end closes what
// it means to close. The pages of plain drawing are in reportPages.cpp.
#include "lettering.h"
#include "reportLayout.h"
#include "reportPages.h"

namespace {

// One rounded bar a month, each drawn upright and turned to its place on the dial.
void drawMonthDial(CSurface& surface, POINT centre)
{
    surface.setBrush(0, HollowBrush);
    surface.setPen(Rule, DotPen, 1);
    for (int radius = 60; radius <= 150; radius += 30) {
        RECT circle = around(centre, radius);
        surface.ellipse(&circle);
    }
    for (int month = 0; month < MonthCount; ++month) {
        turnAbout(surface, centre, 30.0 * month, 1);
        int inner = -36;
        for (const EnergyUse& use : EnergyUses) {
            const int outer = inner - use.month[month] / 4;
            fillBox(surface, {-8, outer, 8, inner}, use.colour);
            inner = outer;
        }
        RECT whole = {-12, inner - 4, 12, -32};
        surface.setPen(Ink, SolidPen, 1);
        surface.setBrush(0, HollowBrush);
        surface.drawRoundedRectangle(&whole, 5, 5);
        surface.clearTransform(); // on a device the next one would add to this one
    }
    drawDot(surface, centre, 24, Accent);
}

void drawDayCurves(CSurface& surface, const Plot& plot)
{
    drawAxes(surface, plot, 7);
    surface.setPen(Accent, SolidPen, 2);
    drawCurve(surface, plot.curve(SummerDay, HourCount));
    surface.setPen(EnergyUses[2].colour, SolidPen, 2);
    drawCurve(surface, plot.curve(WinterDay, HourCount));
    surface.setPen(Warning, DashDotPen, 1);
    surface.drawLine(plot.area.left, plot.y(ContractedLoad), plot.area.right, plot.y(ContractedLoad));
}

// The same curves twice: as a whole, and three times enlarged behind a clip that shows the framed detail.
void drawDetail(CSurface& surface)
{
    RECT detail = {430, 516, 530, 613};
    RECT window = {427, 108, 727, 399};
    const Plot& plot = DayDetail;
    drawPanel(surface, {48, 444, 746, 1064});
    drawDayCurves(surface, plot);
    surface.setPen(Ink, DashPen, 1);
    surface.setBrush(0, HollowBrush);
    surface.drawRectangle(&detail);

    drawPanel(surface, {407, 84, 746, 424});
    surface.setClippingRegion(&window);
    surface.setTransform(3, 0, 0, 3, static_cast<float>(window.left - 3 * detail.left),
                         static_cast<float>(window.top - 3 * detail.top));
    drawDayCurves(surface, plot);
    surface.clearTransform();
    surface.setClippingRegion(nullptr);
    surface.drawFocusRect(&window);
}

// A whole page in a tile: the clip keeps it there, the transform brings it to its size.
void drawMiniature(CSurface& surface, RECT tile, double scale, double degrees, void (*page)(CSurface&))
{
    surface.setClippingRegion(&tile);
    turnAbout(surface, {tile.left, tile.top}, degrees, scale);
    page(surface);
    surface.clearTransform();
    surface.setClippingRegion(nullptr);
    surface.setPen(Ink, SolidPen | MiterJoin, 1);
    surface.setBrush(0, HollowBrush);
    surface.drawRectangle(&tile);
}

} // namespace

void drawGroups(CSurface& surface)
{
    drawFurniture(surface, 4, static_cast<int>(reportPages().size()));
    drawPanel(surface, {48, 84, 387, 424});
    drawMonthDial(surface, MonthDial);
    drawDetail(surface);
}

void drawSheet(CSurface& surface)
{
    drawFurniture(surface, 5, static_cast<int>(reportPages().size()));
    // The pages come without their words: a face chosen inside of a clip and a transform would end both.
    chooseFace(surface, HeadingFace);
    drawMiniature(surface, {48, 84, 382, 556}, 0.42, 0, drawOverview);
    drawMiniature(surface, {412, 84, 746, 556}, 0.42, 0, drawShares);
    chooseFace(surface, {"Courier New", 8.5F, false, true});
    drawMiniature(surface, {48, 592, 382, 1064}, 0.42, 0, drawCurves);
    drawMiniature(surface, {412, 592, 746, 1064}, 0.8, -24, drawShares);
}
