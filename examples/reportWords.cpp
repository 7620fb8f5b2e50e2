// The words on the report's pages of figures: titles, captions, table cells, axis labels, page counts.
//
// The figures are in reportPages.cpp and reportGroupPages.cpp; words are drawn after them, because a face
// chosen inside a clip or a transform would end it.
#include <string>

#include "lettering.h"
#include "reportLayout.h"
#include "reportPages.h"

namespace {

constexpr unsigned long soft = 0x7E6B5D;

void drawUseNames(CSurface& surface, int left, int step, int top)
{
    for (int i = 0; i < useCount; ++i) {
        surface.setTextColor(energyUses[i].colour);
        drawCaption(surface, {left + step * i, top, energyUses[i].name});
    }
}

std::string changeOf(const EnergyUse& use)
{
    const int percent = percentOf(yearOf(use) - use.yearBefore, use.yearBefore);
    std::string change = percent > 0 ? "+" : "";
    return change.append(std::to_string(percent)).append(" %");
}

void letterMonthTable(CSurface& surface)
{
    const auto& [frame, rowHeight, firstColumn, columnWidth] = monthTable;
    chooseFace(surface, headingFace);
    surface.setTextColor(white);
    for (int column = 0; column <= useCount; ++column) {
        const int left = frame.left + firstColumn + columnWidth * column;
        drawCell(surface, {left + 7, frame.top + 6, left + columnWidth - 2, frame.top + rowHeight},
                 column < useCount ? energyUses[column].name : "Site", LeftAligned);
    }
    chooseFace(surface, smallFace);
    surface.setTextColor(ink);
    for (int month = 0; month < monthCount; ++month) {
        const int top = frame.top + rowHeight * (month + 1);
        const std::string name(monthNames[month], 3);
        drawCell(surface, {frame.left + 8, top + 7, frame.left + 36, top + rowHeight}, name.c_str(),
                 LeftAligned);
    }
}

} // namespace

void letterTitle(CSurface& surface, const ReportPage& page)
{
    chooseFace(surface, titleFace);
    surface.setTextColor(white);
    RECT box = {100, 17, 560, 50};
    surface.drawString(page.title, &box, LeftAligned);
    chooseFace(surface, bodyFace);
    drawCaptions(surface, rule, {{620, 22, "Energy report, north site"}});
}

void letterPageCount(CSurface& surface)
{
    chooseFace(surface, smallFace);
    drawCaptions(surface, soft, {{48, 1085, "Page"}});
    RECT field = {72, 1085, 160, 1099};
    // The band's two ends in device units, as a metafile keeps them; its recording device is as fine as the page.
    surface.printerNofMMarker({field.left, field.right});
    surface.drawString("#               ", &field, LeftAligned | NotClipped);
}

void letterOverview(CSurface& surface)
{
    letterMonthTable(surface);
    surface.setTextColor(ink);
    for (int tile = 0; tile < 4; ++tile) {
        const std::string year = std::to_string(yearOf(energyUses[tile])) + " MWh";
        drawCaption(surface, {48 + tile * 178 + 12, 91, energyUses[tile].name});
        drawCaption(surface, {48 + tile * 178 + 78, 161, year.c_str()});
    }
    labelValues(surface, useBars, 7);
    for (int i = 0; i < useCount; ++i) {
        drawCaption(surface, {useBars.x(i) + 40, 1024, changeOf(energyUses[i]).c_str()});
    }
    drawUseNames(surface, useBars.x(0) + 30, useBars.x(1) - useBars.x(0), 1047);
    drawCaptions(surface, soft,
                 {{56, 534, "MWh"}, {84, 1001, "Year before in grey, this year in colour, target dashed"}});
}

void letterShares(CSurface& surface)
{
    chooseFace(surface, headingFace);
    drawCaptions(surface, ink,
                 {{60, 92, "The year by use"}, {60, 474, "Load of the plants"}, {60, 754, "Storage tanks"}});
    double middle = 90;
    for (const EnergyUse& use : energyUses) {
        const double sweep = 360.0 * yearOf(use) / siteYear();
        const POINT far = towards(shareRing, middle - sweep / 2);
        const std::string share = std::to_string(percentOf(yearOf(use), siteYear())) + " %";
        drawCaption(surface, {shareRing.x + (far.x - shareRing.x) * 117 / 1000 - 12,
                              shareRing.y + (far.y - shareRing.y) * 117 / 1000 - 6, share.c_str()});
        middle -= sweep;
    }
    drawCaptions(surface, ink, {{shareRing.x - 32, shareRing.y - 6, "70 % own"}});
    chooseFace(surface, bodyFace);
    drawUseNames(surface, 60, 116, 424);
    surface.setTextColor(ink);
    for (int i = 0; i < 4; ++i) {
        const std::string percent = std::to_string(gaugePercents[i]) + " %";
        drawCaption(surface, {instrumentX(i) - 13, 650, percent.c_str()});
    }
    constexpr const char* plants[] = {"Heating plant", "Hot water", "Chillers", "Air handling"};
    constexpr const char* tanks[] = {"Buffer, heating", "Buffer, hot water", "Cold water", "Rain water"};
    for (int i = 0; i < 4; ++i) {
        drawCaption(surface, {instrumentX(i) - 40, 694, plants[i]});
        drawCaption(surface, {instrumentX(i) - 42, 996, tanks[i]});
    }
}

void letterCurves(CSurface& surface)
{
    chooseFace(surface, smallFace);
    surface.setTextColor(soft);
    labelValues(surface, dayLoad, 7);
    labelSlots(surface, dayLoad, 4);
    drawCaptions(surface, soft, {{60, 92, "kW"}, {694, 455, "hour"}});
    drawCaptions(surface, warning, {{92, 144, "600 kW, contracted"}});
    drawCaptions(surface, accent, {{92, 168, "Summer day: cooling above all"}});
    drawCaptions(surface, energyUses[2].colour, {{92, 184, "Winter day: heating from six on"}});
    surface.setTextColor(soft);
    constexpr const char* styles[] = {"solid",        "dash", "dot",         "dash-dot",
                                      "dash-dot-dot", "none", "inside frame"};
    for (int style = 0; style < static_cast<int>(std::size(styles)); ++style) {
        drawCaption(surface, {70, 505 + style * 39, styles[style]});
    }
    drawCaptions(surface, soft, {{411, 523, "round"}, {411, 559, "square"}, {411, 595, "flat"}});
    drawCaptions(surface, soft, {{464, 766, "round"}, {564, 766, "bevel"}, {664, 766, "miter"}});
    drawUseNames(surface, 72, 111, 1040);
}

void letterGroups(CSurface& surface)
{
    chooseFace(surface, smallFace);
    surface.setTextColor(soft);
    labelValues(surface, dayDetail, 7);
    labelSlots(surface, dayDetail, 1);
    drawCaptions(surface, ink, {{417, 91, "The framed detail, three times enlarged"}, {56, 452, "kW"}});
    for (int month = 0; month < monthCount; ++month) {
        turnAbout(surface, monthDial, 30.0 * month, 1);
        const std::string name(monthNames[month], 3);
        drawCaption(surface, {-8, -165, name.c_str()});
        surface.clearTransform();
    }
}

void letterSheet(CSurface& surface)
{
    chooseFace(surface, {"Courier New", 8.5F, false, true});
    drawCaptions(surface, ink,
                 {{48, 562, "page 1, at 42 %"},
                  {412, 562, "page 2, at 42 %"},
                  {48, 1067, "page 3, at 42 %"},
                  {412, 1067, "page 2 again, turned"}});
}
