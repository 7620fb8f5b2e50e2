// The words on the report's pages of figures: titles, captions, table cells, axis labels, page counts.
//
// The figures are in reportPages.cpp and reportGroupPages.cpp; words are drawn after them, because a face
// chosen inside a clip or a transform would end it.
#include <string>

#include "lettering.h"
#include "reportLayout.h"
#include "reportPages.h"

namespace {

constexpr unsigned long Soft = 0x7E6B5D;

void drawUseNames(CSurface& surface, int left, int step, int top)
{
    for (int i = 0; i < UseCount; ++i) {
        surface.setTextColor(EnergyUses[i].colour);
        drawCaption(surface, {left + step * i, top, EnergyUses[i].name});
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
    const auto& [frame, rowHeight, firstColumn, columnWidth] = MonthTable;
    chooseFace(surface, HeadingFace);
    surface.setTextColor(White);
    for (int column = 0; column <= UseCount; ++column) {
        const int left = frame.left + firstColumn + columnWidth * column;
        drawCell(surface, {left + 7, frame.top + 6, left + columnWidth - 2, frame.top + rowHeight},
                 column < UseCount ? EnergyUses[column].name : "Site", LeftAligned);
    }
    chooseFace(surface, SmallFace);
    surface.setTextColor(Ink);
    for (int month = 0; month < MonthCount; ++month) {
        const int top = frame.top + rowHeight * (month + 1);
        const std::string name(MonthNames[month], 3);
        drawCell(surface, {frame.left + 8, top + 7, frame.left + 36, top + rowHeight}, name.c_str(),
                 LeftAligned);
    }
}

} // namespace

void letterTitle(CSurface& surface, const ReportPage& page)
{
    chooseFace(surface, TitleFace);
    surface.setTextColor(White);
    RECT box = {100, 17, 560, 50};
    surface.drawString(page.title, &box, LeftAligned);
    chooseFace(surface, BodyFace);
    drawCaptions(surface, Rule, {{620, 22, "Energy report, north site"}});
}

void letterPageCount(CSurface& surface)
{
    chooseFace(surface, SmallFace);
    drawCaptions(surface, Soft, {{48, 1085, "Page"}});
    RECT field = {72, 1085, 160, 1099};
    // The band's two ends in device units, as a metafile keeps them; its recording device is as fine as the page.
    surface.printerNofMMarker({field.left, field.right});
    surface.drawString("#               ", &field, LeftAligned | NotClipped);
}

void letterOverview(CSurface& surface)
{
    letterMonthTable(surface);
    surface.setTextColor(Ink);
    for (int tile = 0; tile < 4; ++tile) {
        const std::string year = std::to_string(yearOf(EnergyUses[tile])) + " MWh";
        drawCaption(surface, {48 + tile * 178 + 12, 91, EnergyUses[tile].name});
        drawCaption(surface, {48 + tile * 178 + 78, 161, year.c_str()});
    }
    labelValues(surface, UseBars, 7);
    for (int i = 0; i < UseCount; ++i) {
        drawCaption(surface, {UseBars.x(i) + 40, 1024, changeOf(EnergyUses[i]).c_str()});
    }
    drawUseNames(surface, UseBars.x(0) + 30, UseBars.x(1) - UseBars.x(0), 1047);
    drawCaptions(surface, Soft,
                 {{56, 534, "MWh"}, {84, 1001, "Year before in grey, this year in colour, target dashed"}});
}

void letterShares(CSurface& surface)
{
    chooseFace(surface, HeadingFace);
    drawCaptions(surface, Ink,
                 {{60, 92, "The year by use"}, {60, 474, "Load of the plants"}, {60, 754, "Storage tanks"}});
    double middle = 90;
    for (const EnergyUse& use : EnergyUses) {
        const double sweep = 360.0 * yearOf(use) / siteYear();
        const POINT edge = towards(ShareRing, middle - sweep / 2);
        const std::string share = std::to_string(percentOf(yearOf(use), siteYear())) + " %";
        drawCaption(surface, {ShareRing.x + (edge.x - ShareRing.x) * 117 / 1000 - 12,
                              ShareRing.y + (edge.y - ShareRing.y) * 117 / 1000 - 6, share.c_str()});
        middle -= sweep;
    }
    drawCaptions(surface, Ink, {{ShareRing.x - 32, ShareRing.y - 6, "70 % own"}});
    chooseFace(surface, BodyFace);
    drawUseNames(surface, 60, 116, 424);
    surface.setTextColor(Ink);
    for (int i = 0; i < 4; ++i) {
        const std::string percent = std::to_string(GaugePercents[i]) + " %";
        drawCaption(surface, {instrumentX(i) - 13, 650, percent.c_str()});
    }
    constexpr const char* Plants[] = {"Heating plant", "Hot water", "Chillers", "Air handling"};
    constexpr const char* Tanks[] = {"Buffer, heating", "Buffer, hot water", "Cold water", "Rain water"};
    for (int i = 0; i < 4; ++i) {
        drawCaption(surface, {instrumentX(i) - 40, 694, Plants[i]});
        drawCaption(surface, {instrumentX(i) - 42, 996, Tanks[i]});
    }
}

void letterCurves(CSurface& surface)
{
    chooseFace(surface, SmallFace);
    surface.setTextColor(Soft);
    labelValues(surface, DayLoad, 7);
    labelSlots(surface, DayLoad, 4);
    drawCaptions(surface, Soft, {{60, 92, "kW"}, {694, 455, "hour"}});
    drawCaptions(surface, Warning, {{92, 144, "600 kW, contracted"}});
    drawCaptions(surface, Accent, {{92, 168, "Summer day: cooling above all"}});
    drawCaptions(surface, EnergyUses[2].colour, {{92, 184, "Winter day: heating from six on"}});
    surface.setTextColor(Soft);
    constexpr const char* Styles[] = {"solid",        "dash", "dot",         "dash-dot",
                                      "dash-dot-dot", "none", "inside frame"};
    for (int style = 0; style < static_cast<int>(std::size(Styles)); ++style) {
        drawCaption(surface, {70, 505 + style * 39, Styles[style]});
    }
    drawCaptions(surface, Soft, {{411, 523, "round"}, {411, 559, "square"}, {411, 595, "flat"}});
    drawCaptions(surface, Soft, {{464, 766, "round"}, {564, 766, "bevel"}, {664, 766, "miter"}});
    drawUseNames(surface, 72, 111, 1040);
}

void letterGroups(CSurface& surface)
{
    chooseFace(surface, SmallFace);
    surface.setTextColor(Soft);
    labelValues(surface, DayDetail, 7);
    labelSlots(surface, DayDetail, 1);
    drawCaptions(surface, Ink, {{417, 91, "The framed detail, three times enlarged"}, {56, 452, "kW"}});
    for (int month = 0; month < MonthCount; ++month) {
        turnAbout(surface, MonthDial, 30.0 * month, 1);
        const std::string name(MonthNames[month], 3);
        drawCaption(surface, {-8, -165, name.c_str()});
        surface.clearTransform();
    }
}

void letterSheet(CSurface& surface)
{
    chooseFace(surface, {"Courier New", 8.5F, false, true});
    drawCaptions(surface, Ink,
                 {{48, 562, "page 1, at 42 %"},
                  {412, 562, "page 2, at 42 %"},
                  {48, 1067, "page 3, at 42 %"},
                  {412, 1067, "page 2 again, turned"}});
}
