// The document around the elements, its bytes for the caller, and what the surface answers beside drawing.
#include "SvgPage.h"

#include <climits>

namespace {

TEST(SurfaceSVG, DocumentOfAnEmptyPage)
{
    CSurfaceSVG page(in({5, 7, 215, 304}), in({100, -200, 2200, 2770}));
    EXPECT_EQ(headOf(210, 297, 2100, 2970) + "</svg>\n\n", closedPage(page));
    CSurfaceSVG sizeless(nullptr, nullptr);
    EXPECT_EQ(headOf(0, 0, 0, 0) + "</svg>\n\n", closedPage(sizeless));
    CSurfaceSVG endless(in({0, 0, INT_MIN, 1}), in({INT_MIN, 0, INT_MAX, 1}));
    EXPECT_EQ(headOf(INT_MIN, 1, -1, 1) + "</svg>\n\n", closedPage(endless));
}

// The definitions have an order of their own, whatever the order of the calls.
TEST(SurfaceSVG, DocumentWithAllDefinitions)
{
    CSurfaceSVG page(in({0, 0, 210, 297}), in({0, 0, 2100, 2970}));
    useFont(page, "Arial");
    page.drawSolidRectangle(in({1, 2, 4, 6}), 0xFF);
    page.drawFocusRect(in({1, 2, 4, 6}));
    page.frameRect(in({1, 2, 4, 6}), 0xFF00);
    page.setBrush(0xFF0000, 6);
    page.drawRectangle(in({1, 2, 4, 6}));
    page.setClippingRegion(in({1, 2, 4, 6}));
    page.setTransform(1, 0, 0, 1, 5, 6);
    page.drawLine(1, 2, 3, 4);
    EXPECT_EQ(headOf(210, 297, 2100, 2970) +
                  definitions(
                      "<clipPath id='clip1'><path  d='M1 2L4 2L4 6L1 6z' /></clipPath>\n\n"
                      "<pattern id='pattern1' stroke='rgb(0,0,255)' xlink:href='#HatchCross'></pattern>\n\n" +
                      frameSymbol + focusSymbol + solidSymbol + hatches) +
                  "<g font-family='Arial' font-size='10.00pt' font-style='normal' font-weight='normal'>\n"
                  "<use x='1' y='2' width='3' height='4' xlink:href='#SolidRect' fill='rgb(255,0,0)'/>\n"
                  "<use x='1' y='2' width='3' height='4' xlink:href='#FocusRect'/>\n"
                  "<use x='1' y='2' width='3' height='4' xlink:href='#FrameRect' stroke='rgb(0,255,0)'/>\n"
                  "<rect x='1' y='2' width='3' height='4' fill='url(#pattern1)' " +
                  freshPen +
                  " />\n"
                  "<g clip-path='url(#clip1)'>\n"
                  "<g transform='matrix(1.00,0.00,0.00,1.00,5.00,6.00)'>\n"
                  "<line x1='1' y1='2' x2='3' y2='4'" +
                  freshPen + " />\n</g>\n</g>\n</g>\n</svg>\n\n",
              closedPage(page));
}

TEST(SurfaceSVG, GivesAsManyBytesAsThereIsRoomFor)
{
    CSurfaceSVG surface(in({0, 0, 1, 1}), in({0, 0, 1, 1}));
    const std::string page = closedPage(surface);
    const unsigned int length = static_cast<unsigned int>(surface.getDataLength());
    for (const unsigned int room : {0U, 1U, length - 1, length, length + 1, UINT_MAX}) {
        std::string bytes(length + 2, '#');
        unsigned int size = room;
        surface.getData(reinterpret_cast<unsigned char*>(bytes.data()), size);
        ASSERT_EQ(std::min(room, length), size);
        EXPECT_EQ(page.substr(0, size) + std::string(length + 2 - size, '#'), bytes);
    }
    unsigned int size = length;
    surface.getData(nullptr, size);
    EXPECT_EQ(0U, size);
}

// Two copies go on from the same open groups and counters without a word to each other.
TEST(SurfaceSVG, CopiesAreIndependent)
{
    CSurfaceSVG original(in({0, 0, 210, 297}), in({0, 0, 2100, 2970}));
    original.setBrush(0xFF, 2);
    original.drawPath(in({1, 2, 3, 4}), true);
    original.setClippingRegion(in({1, 2, 3, 4}));
    CSurfaceSVG copy(original);
    CSurfaceSVG assigned;
    assigned = copy;
    original.drawFocusRect(in({0, 0, 1, 1}));
    original.setClippingRegion(in({5, 6, 7, 8}));
    original.drawPath(in({1, 2, 3, 4}), true);
    closedPage(original);
    const std::string expected =
        headOf(210, 297, 2100, 2970) +
        definitions(
            "<clipPath id='clip1'><path  d='M1 2L3 2L3 4L1 4z' /></clipPath>\n\n"
            "<pattern id='pattern1' stroke='rgb(255,0,0)' xlink:href='#HatchHorizontal'></pattern>\n\n" +
            hatches) +
        "<path  d='M1 2L3 2L3 4L1 4z'" + freshPen + " fill='url(#pattern1)'  />\n" +
        "<g clip-path='url(#clip1)'>\n</g>\n</svg>\n\n";
    EXPECT_EQ(expected, closedPage(copy));
    EXPECT_EQ(expected, closedPage(assigned));
}

TEST(SurfaceSVG, CallsThatLeaveNothingOnThePage)
{
    EXPECT_EQ("", drawnPage([](CSurfaceSVG& surface) {
                  surface.m_backColor = 5;
                  surface.setBackColor(6);
                  surface.setBackMode(1);
                  surface.setForeColor(7);
                  surface.setTextColor(8);
                  surface.setTextRotation(30, 40);
                  surface.setViewportOrigin(9, 10);
                  surface.resetBrushOrg(nullptr, 8);
                  surface.restoreBrush();
                  surface.restoreFont();
                  surface.restorePen();
                  surface.floodFill(1, 2, 3, 4);
                  surface.printerNofMMarker({1, 2});
                  surface.drawStringRotated("text", in({1, 2, 3, 4}), 0, 30, 40);
                  EXPECT_EQ(0, surface.loadFonts(nullptr));
                  EXPECT_EQ(6, surface.getSurfaceType());
                  EXPECT_EQ(8, surface.requiredPictureType(7));
                  EXPECT_EQ(5UL, surface.m_backColor);
                  EXPECT_EQ(8UL, surface.getForeColor());
                  EXPECT_EQ(9, surface.m_viewportOriginX);
                  EXPECT_EQ(10, surface.m_viewportOriginY);
              }));
}

TEST(SurfaceSVG, NullArgumentsDrawNothing)
{
    EXPECT_EQ("", drawnPage([](CSurfaceSVG& surface) {
                  RECT* const noRect = nullptr;
                  POINT* const noPoints = nullptr;
                  surface.drawSolidRectangle(noRect, 1);
                  surface.frameRect(noRect, 1);
                  surface.drawFocusRect(noRect);
                  surface.setBrush(0, 2);
                  surface.drawRectangle(noRect);
                  surface.drawRoundedRectangle(noRect, 1, 2);
                  surface.ellipse(noRect);
                  surface.drawArc(noRect, 1, 2, 3, 4);
                  surface.drawChord(noRect, 1, 2, 3, 4);
                  surface.drawPie(noRect, 1, 2, 3, 4);
                  surface.drawPath(noRect, true);
                  surface.drawEraseRectangle(noRect, 1);
                  surface.drawPath(noPoints, 2, true);
                  surface.polygon(noPoints, 2);
                  surface.polyline(noPoints, 3);
                  surface.solidPolygon(noPoints, 3, 1);
                  surface.setFont(nullptr);
              }));
}

} // namespace
