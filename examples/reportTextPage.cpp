// The report's page of text: alignment in a table, faces, runs, and text turned by line and by glyph.
//
// Called through reportPages(). After the turned text comes one without rotation: a player sets rotations for
// formatted text only, and the plain text of the page's foot would take over the last one.
#include <string>

#include "lettering.h"
#include "reportLayout.h"
#include "reportPages.h"

namespace {

struct Column {
    const char* title;
    RECT box; // of the heading; the rows are below
    int flags;
};

// A viewer begins a text where a player's surface centres or ends it, so the boxes leave room on both sides.
constexpr Column Columns[] = {
    {"Use", {60, 96, 180, 112}, LeftAligned},
    {"This year", {190, 96, 250, 112}, RightAligned | NotClipped},
    {"Year before", {310, 96, 370, 112}, RightAligned | NotClipped},
    {"Target", {430, 96, 550, 112}, Centred},
    {"Change", {560, 96, 740, 112}, Centred | NotClipped},
};
constexpr int RowHeight = 21;

std::string cellOf(const EnergyUse& use, std::size_t column)
{
    switch (column) {
    case 0:
        return use.name;
    case 1:
        return std::to_string(yearOf(use));
    case 2:
        return std::to_string(use.yearBefore);
    case 3:
        return std::to_string(use.target);
    default:
        return std::to_string(yearOf(use) - use.yearBefore) + " MWh";
    }
}

void drawUseTable(CSurface& surface)
{
    drawPanel(surface, {48, 84, 746, 252});
    surface.setPen(Rule, SolidPen, 1);
    for (int row = 1; row <= UseCount; ++row) {
        surface.drawLine(54, 94 + RowHeight * row, 740, 94 + RowHeight * row);
    }
    surface.setPen(Accent, DotPen, 1);
    for (const LONG anchor : {250, 370, 490, 650}) {
        surface.drawLine(anchor, 92, anchor, 246);
    }
    chooseFace(surface, HeadingFace);
    surface.setTextColor(Ink);
    for (const Column& column : Columns) {
        drawCell(surface, column.box, column.title, column.flags);
    }
    chooseFace(surface, BodyFace);
    for (int row = 0; row < UseCount; ++row) {
        for (std::size_t i = 0; i < std::size(Columns); ++i) {
            RECT box = Columns[i].box;
            box.top += RowHeight * (row + 1) + 3;
            box.bottom += RowHeight * (row + 1) + 3;
            drawCell(surface, box, cellOf(EnergyUses[row], i).c_str(), Columns[i].flags);
        }
    }
}

void drawFaces(CSurface& surface)
{
    drawPanel(surface, {48, 272, 387, 562});
    constexpr struct {
        Face face;
        const char* sample;
    } Samples[] = {
        {{"Arial", 18, true}, "Heating 1180 MWh"},
        {{"Arial", 12}, "Arial, 12 points"},
        {{"Times New Roman", 14, false, true}, "Times New Roman, italic"},
        {{"Times New Roman", 11, true, true}, "Bold italic, 11 points"},
        {{"Courier New", 10}, "Courier New: CO\xE2\x82\x82 in t/a"},
        {{"Arial", 10, false, false, false, true}, "Underlined as a face"},
        {{"Arial", 10, false, false, true}, "Struck out: 1296 MWh"},
        {{"Arial", 6.5F}, "Small print, 6.5 points: A & B < C > \"D\" 'E'"},
    };
    surface.setTextColor(Ink);
    int top = 286;
    for (const auto& sample : Samples) {
        chooseFace(surface, sample.face);
        drawCaption(surface, {64, top, sample.sample});
        top += static_cast<int>(sample.face.size) + 22;
    }
}

void drawRuns(CSurface& surface)
{
    drawPanel(surface, {407, 272, 746, 562});
    chooseFace(surface, HeadingFace);
    drawCaptions(surface, Ink, {{423, 286, "Findings"}});
    chooseFace(surface, {"Times New Roman", 11});
    Runs finding;
    finding.at(423, 312, "The use for ").then("heating", {.underlined = true}).then(" fell by 9 %.");
    finding.draw(surface, {423, 312, 730, 334}, LeftAligned);
    Runs shared;
    shared.at(423, 336, "Pre", {.width = 20}).at(443, 336, "heat", {.underlined = true, .width = 24});
    shared.at(467, 336, "ing of the air is new.").draw(surface, {423, 336, 730, 358}, LeftAligned);

    chooseFace(surface, BodyFace);
    Runs fitted;
    int top = 386;
    for (const int width : {100, 160, 220, 290}) {
        surface.setPen(Rule, SolidPen | FlatCap, 1);
        surface.drawLine(423, top + 16, 423 + width, top + 16);
        fitted.at(423, top, "Fitted to its line", {.width = width});
        top += 26;
    }
    fitted.draw(surface, {423, 386, 730, 490}, LeftAligned | NotClipped);

    chooseFace(surface, {"Courier New", 8});
    Runs meters;
    meters.at(423, 506, "Meters read").at(560, 506, "6", {.underlined = true});
    meters.at(423, 524, "Meters estimated").at(560, 524, "0", {.underlined = true});
    meters.drawUpright(surface, {423, 506, 730, 546}, LeftAligned);
}

void drawMonthChart(CSurface& surface)
{
    const Plot plot = {{104, 634, 396, 980}, MonthCount, 450};
    drawAxes(surface, plot, 3);
    for (int month = 0; month < MonthCount; ++month) {
        const LONG left = plot.x(month) + 4;
        const LONG right = plot.x(month + 1) - 4;
        const int others = plot.y(siteIn(month) - EnergyUses[0].month[month]);
        fillBox(surface, {left, others, right, plot.area.bottom}, Rule);
        fillBox(surface, {left, plot.y(siteIn(month)), right, others}, EnergyUses[0].colour);
    }
    chooseFace(surface, SmallFace);
    surface.setTextColor(Ink);
    labelValues(surface, plot, 3);
    surface.setTextRotation(90, 90);
    Runs().at(62, 900, "MWh a month, heating on top").draw(surface, {62, 900, 80, 634}, NotClipped);
    surface.setTextRotation(-45, -45);
    for (int month = 0; month < MonthCount; ++month) {
        const LONG x = plot.x(month) + 12;
        Runs().at(x, 986, MonthNames[month]).draw(surface, {x, 986, x + 60, 1000}, NotClipped);
    }
}

void drawTurnedText(CSurface& surface)
{
    chooseFace(surface, {"Arial", 11, true});
    for (int i = 0; i < UseCount; ++i) {
        // The style brings colour and rotation at once.
        const int angle = i * 36;
        CTextStyle turned(EnergyUses[i].colour, 0, angle, angle);
        surface.setTextStyle(&turned);
        Runs().at(585 + 30, 780, EnergyUses[i].name).draw(surface, {585, 780, 740, 800}, NotClipped);
    }
    chooseFace(surface, {"Arial", 12});
    surface.setTextColor(Ink);
    int top = 850;
    for (const int angle : {15, 30, 45, -30}) {
        surface.setTextRotation(angle, 0);
        const std::string text = "Each glyph by " + std::to_string(angle) + "\xC2\xB0";
        Runs().at(450, top, text.c_str()).draw(surface, {450, top, 640, top + 20}, NotClipped);
        top += 44;
    }
    surface.setTextRotation(0, 90);
    Runs().at(690, 1000, "The line by 90\xC2\xB0").draw(surface, {690, 1000, 710, 860}, NotClipped);
    surface.setTextRotation(0, 0);
}

} // namespace

void drawWords(CSurface& surface)
{
    drawFurniture(surface, 6, static_cast<int>(reportPages().size()));
    drawUseTable(surface);
    drawFaces(surface);
    drawRuns(surface);
    drawPanel(surface, {48, 582, 746, 1064});
    drawMonthChart(surface);
    drawTurnedText(surface);
    chooseFace(surface, BodyFace);
    Runs()
        .at(60, 596, "Text on its way: ")
        .then("turned by line, by glyph, and back", {.underlined = true})
        .draw(surface, {60, 596, 740, 616}, NotClipped);
}
