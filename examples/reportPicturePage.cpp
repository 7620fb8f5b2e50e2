// The report's page of pictures: every picture type, the three ways to place an image, and picture brushes.
//
// Called through reportPages(). Without the image library the placements draw nothing, and the brushes
// count as hollow.
#include <iterator>

#include "lettering.h"
#include "pictures.h"
#include "reportLayout.h"
#include "reportPages.h"

namespace {

// Image ids: the kinds from 1 on, then the small tile. A brush names its picture by id on a page, and by its place in
// the order of inclusion on a device, so that both are the same here. Modes are those of drawImage.
constexpr unsigned int FirstId = 1;
constexpr unsigned int TileId = FirstId + static_cast<unsigned int>(std::size(PictureKinds));
constexpr int KindSide = 96; // pixels
constexpr int TileSide = 24;
enum Mode { OwnSize = 0, Scaled = 1, Tiled = 2 };

void include(CSurface& surface, unsigned int id, const PictureKind& kind, int side)
{
    std::vector<unsigned char> file = drawPicture(kind, side);
    if (!file.empty()) {
        surface.includeImage(id, file.data(), static_cast<int>(file.size()), side, side, kind.type);
    }
}

void frame(CSurface& surface, RECT box)
{
    surface.setPen(Ink, SolidPen | MiterJoin, 1);
    surface.setBrush(0, HollowBrush);
    surface.drawRectangle(&box);
}

// Stripes behind the pictures let alpha show.
void drawKinds(CSurface& surface)
{
    drawPanel(surface, {48, 84, 746, 264});
    for (int y = 126; y < 216; y += 12) {
        fillBox(surface, {60, y, 734, y + 5}, Rule);
    }
    for (std::size_t i = 0; i < std::size(PictureKinds); ++i) {
        const LONG left = 64 + static_cast<LONG>(i) * 85;
        RECT box = {left, 130, left + 72, 202};
        surface.drawImage(&box, FirstId + static_cast<unsigned int>(i), Scaled, 0, 0);
    }
}

void drawOwnSize(CSurface& surface)
{
    drawPanel(surface, {48, 284, 387, 624});
    constexpr struct {
        RECT box;
        POINT offset;
    } Cuts[] = {
        {{68, 324, 164, 420}, {0, 0}},
        {{224, 324, 272, 420}, {0, 0}},
        {{68, 480, 164, 576}, {36, 24}},
        {{224, 480, 320, 576}, {-30, -30}},
    };
    for (const auto& cut : Cuts) {
        RECT box = cut.box;
        surface.drawImage(&box, FirstId, OwnSize, cut.offset.x, cut.offset.y);
        frame(surface, box);
    }
}

void drawTiles(CSurface& surface)
{
    drawPanel(surface, {407, 284, 746, 624});
    for (const LONG offset : {0, 12}) {
        RECT box = {427 + offset * 13, 324, 427 + offset * 13 + 130, 574};
        surface.drawImage(&box, TileId, Tiled, offset, offset);
        frame(surface, box);
    }
}

void drawBrushes(CSurface& surface)
{
    drawPanel(surface, {48, 644, 746, 1064});
    const Plot plot = {{104, 690, 410, 1020}, UseCount, 1400};
    drawAxes(surface, plot, 7);
    CSurfaceBrush suns;
    suns.setPicture(TileId);
    for (int i = 0; i < UseCount; ++i) {
        RECT bar = {plot.x(i) + 8, plot.y(yearOf(EnergyUses[i])), plot.x(i + 1) - 8, plot.area.bottom};
        surface.setPen(EnergyUses[i].colour, SolidPen | MiterJoin, 2);
        surface.setBrush(&suns);
        surface.drawRectangle(&bar);
    }
    surface.setPen(Ink, SolidPen, 2);
    RECT disc = {450, 690, 570, 810};
    surface.ellipse(&disc);
    RECT card = {600, 690, 720, 810};
    surface.drawRoundedRectangle(&card, 24, 24);
    drawSector(surface, {510, 920}, 60, 60, 300);
    POINT roof[] = {{600, 980}, {600, 920}, {660, 860}, {720, 920}, {720, 980}, {660, 950}};
    surface.polygon(roof, static_cast<unsigned int>(std::size(roof)));
    chooseFace(surface, SmallFace);
    surface.setTextColor(Ink);
    labelValues(surface, plot, 7);
}

void letterPictures(CSurface& surface)
{
    chooseFace(surface, HeadingFace);
    drawCaptions(surface, Ink,
                 {{60, 96, "Every picture type, scaled to its frame"},
                  {60, 296, "At its own size, cut by the frame"},
                  {419, 296, "Tiled, without and with an offset"},
                  {60, 656, "Picture brushes: the year by use, in suns"}});
    chooseFace(surface, SmallFace);
    for (std::size_t i = 0; i < std::size(PictureKinds); ++i) {
        drawCaption(surface, {64 + static_cast<int>(i) * 85, 224, PictureKinds[i].title});
    }
    drawCaptions(surface, Ink,
                 {{68, 426, "whole"},
                  {224, 426, "narrow frame"},
                  {68, 582, "right and down"},
                  {224, 582, "left and up"},
                  {427, 582, "offset 0, 0"},
                  {583, 582, "offset 12, 12"}});
}

} // namespace

void drawPictures(CSurface& surface)
{
    drawFurniture(surface, 7, static_cast<int>(reportPages().size()));
    for (std::size_t i = 0; i < std::size(PictureKinds); ++i) {
        include(surface, FirstId + static_cast<unsigned int>(i), PictureKinds[i], KindSide);
    }
    include(surface, TileId, PictureKinds[0], TileSide);
    drawKinds(surface);
    drawOwnSize(surface);
    drawTiles(surface);
    drawBrushes(surface);
    letterPictures(surface);
}
