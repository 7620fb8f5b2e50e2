// The drawings of the traps; see traps.h.
#include "traps.h"

#include <iterator>

#include "lettering.h"
#include "pictures.h"
#include "surfacePages.h"

namespace {

constexpr Face Plain = {"Arial", 10};
constexpr unsigned long Guide = pages::rgb(225, 170, 120);
constexpr unsigned long Blue = pages::rgb(30, 90, 200);
constexpr unsigned long Green = pages::rgb(30, 140, 70);
constexpr int HdcSurface = 3;
constexpr int SvgSurface = 6;

// A thin outline of the place that a call is given.
RECT* guide(CSurface& surface, RECT&& rect)
{
    surface.setPen(Guide, SolidPen, 1);
    surface.setBrush(0, HollowBrush);
    surface.drawRectangle(&rect);
    return &rect;
}

void startText(CSurface& surface, Face face = Plain)
{
    chooseFace(surface, face);
    surface.setTextColor(Ink);
}

void drawEncodings(CSurface& surface)
{
    startText(surface, {"Arial", 14});
    const std::string words = "Z\xC3\xBCrich 12 \xE2\x82\xAC";
    drawCaption(surface, {20, 20, ("UTF-8: " + words).c_str()});
    if (surface.getSurfaceType() != SvgSurface) { // whose page viewers would refuse as a whole

        drawCaption(surface, {20, 80, ("1252: " + pages::codePageOf(words)).c_str()});
    }
}

void drawTextColours(CSurface& surface)
{
    chooseFace(surface, Plain);
    surface.setTextColor(Blue);
    surface.setForeColor(Green);
    surface.drawText("drawText", guide(surface, {10, 10, 180, 35}), 0);
    surface.drawTextAt("drawTextAt", pages::temporary(POINT{200, 10}), 0);
    surface.setTextColor(Blue);
    surface.setForeColor(Green);
    pages::drawTextOnBaseLine(surface, 10, 75, "drawTextOnBaseLine");
    Runs().at(200, 60, "runs").draw(surface, {200, 60, 360, 85}, NotClipped);
    CTextStyle style(Blue, 0, 0, 0);
    surface.setTextColor(Green);
    surface.setTextStyle(&style);
    pages::drawTextOnBaseLine(surface, 10, 125, "after setTextStyle");
    Runs().at(200, 110, "runs after it").draw(surface, {200, 110, 360, 135}, NotClipped);
}

void drawAlignment(CSurface& surface)
{
    startText(surface);
    surface.drawText("right 2", guide(surface, {10, 10, 180, 50}), RightAligned);
    surface.drawText("centred 1", guide(surface, {200, 10, 370, 50}), Centred);
    constexpr unsigned int WordBreak = 0x10;
    surface.drawText("words that are to be broken into lines by flag 16", guide(surface, {10, 70, 180, 130}),
                     WordBreak);
    surface.drawText("a text that is wider than its rectangle is", guide(surface, {200, 70, 370, 100}), 0);
    guide(surface, {290, 105, 291, 145});
    startText(surface);
    surface.drawTextAt("middle", pages::temporary(POINT{290, 108}), Centred);
    surface.drawTextAt("right", pages::temporary(POINT{290, 126}), RightAligned);
}

void drawLines(CSurface& surface)
{
    startText(surface);
    surface.drawText("first line\nsecond & line", guide(surface, {10, 10, 180, 60}), 0);
    constexpr unsigned int NoPrefix = 0x800;
    surface.drawText("Smith && Sons, A&B", guide(surface, {200, 10, 370, 40}), 0);
    surface.drawText("Smith && Sons, A&B", guide(surface, {200, 45, 370, 75}), NoPrefix);
    surface.drawText("no font size changes", guide(surface, {10, 80, 180, 110}), 0);
    pages::drawTextOnBaseLine(surface, 10, 135, "base line, 10 points");
    surface.drawTextAt("at a point, 10 points", pages::temporary(POINT{200, 120}), 0);
}

void drawTurnedLines(CSurface& surface)
{
    startText(surface);
    const auto turned = [&surface](int charAngle, int textAngle, LONG x, LONG y, const char* text) {
        guide(surface, {x - 2, y - 2, x + 2, y + 2});
        surface.setTextRotation(charAngle, textAngle);
        Runs().at(x, y, text).draw(surface, {x, y, x + 90, y + 20}, NotClipped);
    };
    turned(90, 90, 20, 130, "90, 90");
    turned(0, 90, 80, 130, "0, 90");
    turned(30, 30, 120, 130, "30, 30");
    turned(-30, -30, 210, 20, "-30, -30");
    turned(30, 0, 290, 30, "30, 0");
    surface.drawText("drawText", guide(surface, {290, 100, 370, 120}), NotClipped);
    surface.setTextRotation(0, 0);
}

void drawRuns(CSurface& surface)
{
    startText(surface);
    Runs first;
    first.at(10, 10, "runs ").then("follow", {.underlined = true}).then(" one another");
    first.draw(surface, *guide(surface, {10, 10, 370, 34}), 0);
    Runs().at(60, 50, "begins at 60").draw(surface, *guide(surface, {10, 50, 370, 74}), 0);
    Runs fitted;
    fitted.at(10, 90, "made to fit 60", {.width = 60});
    fitted.at(10, 108, "made to fit 160", {.width = 160});
    fitted.draw(surface, *guide(surface, {10, 90, 170, 145}), NotClipped);
    Runs apart;
    apart.at(200, 90, "a line").at(200, 126, "another, 36 below");
    apart.draw(surface, *guide(surface, {200, 90, 370, 145}), NotClipped);
}

void drawFills(CSurface& surface)
{
    surface.drawSolidRectangle(pages::temporary(RECT{0, 0, TrapWide, 76}), pages::rgb(255, 240, 200));
    surface.setPen(Ink, SolidPen, 1);
    for (int style = 2; style < 8; ++style) {
        const LONG left = 10 + (style - 2) * 60;
        surface.setBrush(Blue, style);
        surface.drawRectangle(pages::temporary(RECT{left, 10, left + 50, 60}));
    }
    startText(surface);
    surface.drawText("after a text", pages::temporary(RECT{10, 84, 100, 104}), 0);
    surface.setPen(Ink, SolidPen, 1);
    surface.setBrush(Blue, 6);
    surface.drawSolidRectangle(pages::temporary(RECT{100, 84, 370, 145}), pages::rgb(255, 240, 200));
    surface.drawRectangle(pages::temporary(RECT{110, 90, 160, 140}));
    surface.ellipse(pages::temporary(RECT{180, 90, 230, 140}));
    surface.drawPie(pages::temporary(RECT{240, 90, 290, 140}), 290, 115, 265, 90);
    POINT corners[] = {{300, 140}, {330, 90}, {360, 140}, {330, 125}};
    surface.polygon(corners, 4);
}

void drawOutlines(CSurface& surface)
{
    for (int style = 0; style < 6; ++style) {
        surface.setPen(Ink, style | FlatCap, 2);
        surface.drawLine(10, 14 + 12 * style, 120, 14 + 12 * style);
    }
    surface.setPen(Ink, SolidPen, 2);
    surface.setBrush(0, HollowBrush);
    POINT open[] = {{140, 60}, {165, 15}, {190, 60}, {215, 15}};
    surface.polyline(open, 4);
    POINT three[] = {{235, 60}, {260, 15}, {285, 60}};
    surface.polyline(three, 3);
    POINT solid[] = {{300, 60}, {330, 15}, {360, 60}, {330, 45}};
    surface.solidPolygon(solid, 4, Green);
    surface.drawFocusRect(pages::temporary(RECT{10, 90, 90, 140}));
    surface.frameRect(pages::temporary(RECT{110, 90, 190, 140}), Blue);
    surface.drawRoundedRectangle(pages::temporary(RECT{210, 90, 280, 140}), 20, 20);
    surface.drawRoundedRectangle(pages::temporary(RECT{300, 90, 370, 140}), 30, 10);
}

void includeSuns(CSurface& surface)
{
    for (const unsigned int id : {1U, 2U}) {
        std::vector<unsigned char> sun = drawPicture(PictureKinds[0], 24);
        constexpr int Tile = 100;
        surface.includeImage(id, sun.data(), static_cast<int>(sun.size()), 24, 24,
                             id == 2 ? Tile : PictureKinds[0].type);
    }
}

void drawImages(CSurface& surface)
{
    includeSuns(surface);
    surface.drawSolidRectangle(pages::temporary(RECT{0, 0, TrapWide, 80}), pages::rgb(255, 240, 200));
    surface.drawImage(guide(surface, {10, 10, 90, 70}), 1, 1, 0, 0);
    surface.drawImage(guide(surface, {110, 10, 190, 70}), 1, 0, 0, 0);
    surface.drawImage(guide(surface, {210, 10, 226, 26}), 1, 0, 0, 0);
    surface.drawImage(guide(surface, {290, 10, 370, 70}), 1, 0, 10, 10);
    surface.drawImage(guide(surface, {10, 90, 130, 140}), 2, 2, 0, 0);
    surface.drawImage(guide(surface, {150, 90, 250, 140}), 2, 2, 10, 10);
    CSurfaceBrush suns;
    suns.setPicture(2); // the number on devices counts the pictures from 1
    surface.setBrush(&suns);
    surface.setPen(Ink, SolidPen, 1);
    surface.drawRectangle(pages::temporary(RECT{270, 90, 370, 140}));
}

void drawGroups(CSurface& surface)
{
    chooseFace(surface, Plain);
    surface.setTextColor(Ink);
    surface.setClippingRegion(guide(surface, {10, 10, 180, 60}));
    surface.drawText("set before, drawn within a clip", pages::temporary(RECT{15, 15, 300, 40}), NotClipped);
    chooseFace(surface, {"Times New Roman", 14});
    surface.drawText("face set within it", pages::temporary(RECT{15, 35, 300, 58}), NotClipped);
    surface.setClippingRegion(nullptr);
    surface.drawText("after the clip", pages::temporary(RECT{15, 70, 180, 100}), NotClipped);
    chooseFace(surface, Plain);
    surface.setTransform(1, 0, 0, 1, 200, 0);
    surface.setTransform(1, 0, 0, 1, 0, 40);
    surface.drawText("moved by 200, then by 40", pages::temporary(RECT{5, 5, 180, 30}), NotClipped);
    surface.drawRectangle(pages::temporary(RECT{0, 0, 150, 30}));
    surface.clearTransform();
    surface.drawText("after both", pages::temporary(RECT{15, 110, 180, 140}), NotClipped);
}

void drawPageCount(CSurface& surface)
{
    startText(surface);
    const auto count = [&surface](RECT&& place, const char* placeholder) {
        guide(surface, RECT(place));
        if (surface.getSurfaceType() != HdcSurface) { // where a mark is a fault of the caller
            surface.printerNofMMarker({place.left, place.right});
        }
        surface.drawText(placeholder, &place, 0);
    };
    count({10, 10, 180, 34}, "#               ");
    count({10, 50, 180, 74}, "                ");
    count({200, 10, 370, 34}, "Page # of #        ");
}

constexpr Trap Traps[] = {
    {"encoding", "Letters beyond ASCII",
     "Viewers read a page as UTF-8, devices and metafiles read code page 1252, PostScript the face's own "
     "table, which is near to ISO Latin 1: it has the letter and not the currency sign. A page with bytes of "
     "the code page is none for viewers, so that line is not drawn on it.",
     drawEncodings},
    {"text-colour", "Which colour a text has",
     "Text colour blue, then foreground green; below them text colour green, then a style in blue. SVG "
     "and PostScript take the style's colour; on devices text on a base line and runs have the colour that "
     "was "
     "set last by setForeColor or setTextColor.",
     drawTextColours},
    {"alignment", "Where a text is in its rectangle",
     "A page keeps the alignment for players, and viewers begin the text there, so that a clip can hide all "
     "of it. PostScript aligns at points only, and clips no plain text. Devices break lines, and centre in "
     "the "
     "height too.",
     drawAlignment},
    {"lines", "Line ends, ampersands, base lines",
     "Only devices break a text at its line ends and take an ampersand as a mark, unless flag 0x800 is set. "
     "Text on a base line is larger on a device of more dots than the page has units to the inch. PostScript "
     "begins plain text higher.",
     drawLines},
    {"rotation", "Turned text",
     "Numbers are the angle of each letter and that of the line, counter-clockwise. Runs turn everywhere; in "
     "librsvg, which paints no text on paths, those of turned lines are missing, and browsers show them. "
     "Plain "
     "text turns on devices only, by setTextStyle.",
     drawTurnedLines},
    {"runs", "Formatted text",
     "PostScript places each run and fits it either way, and frames a clipped text with an underlined run. "
     "Devices join the runs into lines of the face's own height from the rectangle's left edge, underline a "
     "run's first letter, and move all letters together by the largest need. Viewers show the line end "
     "between "
     "runs as blanks; librsvg fits nothing.",
     drawRuns},
    {"fills", "Hatches",
     "Viewers show hatches as empty. PostScript has wider ones, whose diagonals lean the other way, fills "
     "ellipses plainly, and goes on with the hatch where the colour of a pen or a text is the one it had "
     "before: "
     "the outlines, and the text. On a device the gaps are white until the first text, here at the top.",
     drawFills},
    {"outlines", "Pens and outlines",
     "Viewers fill open lines black, and give a polygon in one colour the pen's outline; librsvg gives "
     "frames "
     "the size of the page. PostScript has neither dashes nor polygons in one colour, and draws with a pen "
     "of "
     "style 5, the lowest line. Corners: 20, 20 and 30, 10 are radii on a page, a radius and nothing in "
     "PostScript, and width and height of an ellipse on devices.",
     drawOutlines},
    {"images", "Images and picture brushes",
     "Above: scaled, at its own size, cut, with an offset of 10, 10. Below: tiled, tiled with an offset, a "
     "picture brush. librsvg leaves images out; browsers show them, in their own proportions. PostScript has "
     "no "
     "offsets, and scrambles tiles of pictures with transparency. On devices an offset moves the picture "
     "left "
     "and up.",
     drawImages},
    {"groups", "Clips, transforms and fonts",
     "A second transform replaces the first on a page, and is added to it elsewhere; clearTransform then "
     "takes back one of the two. In PostScript a face and a colour set within a clip end with it. Set the "
     "font, then "
     "the clip, then the transform, and end them in the opposite order.",
     drawGroups},
    {"page-count", "N of M",
     "Stamped as page 3 of 12. A placeholder that begins with a blank becomes the number on an SVG page and "
     "the "
     "total on a metafile. What a longer placeholder leaves on a page stays. PostScript and devices have "
     "nothing to stamp.",
     drawPageCount},
};

} // namespace

std::span<const Trap> traps()
{
    return Traps;
}
