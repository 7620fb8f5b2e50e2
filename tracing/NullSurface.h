// A surface on which nothing happens: the skeleton of a back end, and what a replay on it costs is the cost of the player
// alone.
#pragma once

#include "surface.h"

class NullSurface : public CSurface {
public:
    using CSurface::setBrush;
    using CSurface::setFont;
    using CSurface::setPen;

    void getData(unsigned char*, unsigned int& size) override { size = 0; }
    int getDataLength() override { return 0; }
    int closeSurface() override { return 0; }
    int getSurfaceType() override { return 0; }
    void drawString(const char*, RECT*, unsigned int) override {}
    bool drawString(Array<CSurfaceTextChunk, 2>*, RECT*, int, float, float) override { return true; }
    bool drawString(Array<CSurfaceTextChunk, 2>*, RECT*, int) override { return true; }
    void includeImage(unsigned int, unsigned char*, int, int, int, int) override {}
    void drawImage(RECT*, unsigned int, int, int, int) override {}
    void drawTextOnBaseLine(int, int, unsigned int, RECT*, char*, int) override {}
    void drawArc(RECT*, int, int, int, int) override {}
    void drawChord(RECT*, int, int, int, int) override {}
    void drawFocusRect(RECT*) override {}
    void drawLine(int, int, int, int) override {}
    void drawRectangle(RECT*) override {}
    void drawRoundedRectangle(RECT*, unsigned int, unsigned int) override {}
    void drawSolidRectangle(RECT*, unsigned long) override {}
    void drawText(const char*, RECT*, unsigned int) override {}
    void drawTextAt(const char*, POINT*, unsigned int) override {}
    void ellipse(RECT*) override {}
    void solidPolygon(POINT*, unsigned int, unsigned long) override {}
    void floodFill(int, int, unsigned long, unsigned int) override {}
    void frameRect(RECT*, unsigned long) override {}
    int loadFonts(DskParam*) override { return 0; }
    void drawPie(RECT*, int, int, int, int) override {}
    void polygon(POINT*, unsigned int) override {}
    void polyline(POINT*, unsigned int) override {}
    void printerNofMMarker(POINT) override {}
    void resetBrushOrg(POINT*, int) override {}
    void restoreBrush() override {}
    void restoreFont() override {}
    void restorePen() override {}
    void setClippingRegion(RECT*) override {}
    void setBackMode(int) override {}
    void setBrush(CSurfaceBrush*) override {}
    void setFont(CSurfaceFont*) override {}
    void setPen(CSurfacePen*) override {}
    void newTextStyle(CTextStyle*) override {}
};
