// Drawing on CSurfaceSVG, playing the page, drawing again: what comes back, and what the format drops.
#include "PlayedPage.h"

#include "surfaceSVG.h"

namespace {

char face[] = "Arial";
RECT box{10, 20, 30, 60};
POINT points[] = {{1, 2}, {-3, 4}, {5, -6}, {7, 8}};

std::string closed(CSurfaceSVG& surface)
{
    surface.closeSurface();
    std::string page(static_cast<std::size_t>(surface.getDataLength()), '\0');
    auto size = static_cast<unsigned int>(page.size());
    surface.getData(reinterpret_cast<unsigned char*>(page.data()), size);
    return page;
}

std::string drawn(void (*draw)(CSurfaceSVG&))
{
    RECT page{0, 0, 210, 297};
    RECT logical{0, 0, 100, 200};
    CSurfaceSVG surface(&page, &logical);
    draw(surface);
    return closed(surface);
}

// The page that a surface without sizes of its own makes of a page.
std::string replayed(const std::string& page)
{
    CSurfaceSVG surface(nullptr, nullptr);
    EXPECT_EQ(playOn(surface, page), 1);
    return closed(surface);
}

void drawShapes(CSurfaceSVG& s)
{
    s.setFont(face, 10.5F, true, false, true, false);
    for (const int style : {5, 0, 1, 2, 3, 4, 6, 0x100, 0x211, 0x1102, 0x2200}) {
        s.setPen(style == 5 ? 0 : 0x123456, style, style == 5 ? 1 : 3);
        s.drawLine(1, 2, -3, 4);
    }
    for (const int style : {0, 1, 2, 3, 4, 5, 6, 7}) {
        s.setBrush(style == 1 ? 0 : 0xABCDEF, style);
        s.drawRectangle(&box);
        s.drawRoundedRectangle(&box, 4, 5);
        s.ellipse(&box);
        s.drawPie(&box, 1, 2, 3, 4);
        s.drawChord(&box, 5, 6, 7, 8);
        s.polygon(points, 4);
    }
    s.setFont(face, 8, false, true, false, true);
    s.setTransform(1, 0.5F, -0.25F, 1, 100, -0.75F);
    s.polyline(points, 4);
    s.drawArc(&box, 1, 2, 3, 4);
    s.solidPolygon(points, 2, 0xFF);
    s.clearTransform();
    s.frameRect(&box, 0x00FF00);
    s.drawFocusRect(&box);
    s.drawSolidRectangle(&box, 0xFF0000);
}

TEST(Replay, PageOfShapesKeepsItsBytes)
{
    const std::string page = drawn(drawShapes);
    EXPECT_EQ(replayed(page), page);
}

// All that the format changes on the first way through a page.
void drawLosses(CSurfaceSVG& s)
{
    RECT odd{11, 7, 0, 0};
    char quoted[] = "O'Neil";
    s.drawEraseRectangle(&box, 0xFF);
    s.drawPath(&box, true);
    s.setClippingRegion(nullptr);
    s.setFont(quoted, 10.126F, false, false, false, false);
    s.setTransform(1.006F, 0, 0, 1, 0, 0);
    s.setTransform(2, 0, 0, 1, 0, 0);
    s.setBrush(0xABCDEF, 1);
    s.ellipse(&odd);
    s.setBrush(0x030201, 50);
    s.drawRoundedRectangle(&box, 0, 0);
    s.polygon(points, 3);
    s.drawArc(&box, 1, 2, 3, 4);
    s.polyline(points, 1);
    s.setPen(0xABCDEF, 0x105, 9);
    s.drawLine(1, 2, 3, 4);
    s.setBrush(0xFF0000FF, 0);
    s.drawRoundedRectangle(&box, 1, 1);
    s.polygon(points, 2);
}

TEST(Replay, LossesHappenOnce)
{
    const std::string hatch = "setBrush rgb(1,2,3) style 2 picture 0; " + plainPen;
    const std::string page = drawn(drawLosses);
    EXPECT_EQ(playPage(page).calls,
              prepared +
                  "setFont \"ONeil\" 10.13; setTransform 1.01 0 0 1 0 0; clearTransform; "
                  "setTransform 2 0 0 1 0 0; " +
                  plain + "ellipse (1, 1, 11, 7); " + hatch + "drawRectangle (10, 20, 30, 60); " + hatch +
                  "polygon [(1, 2) (-3, 4) (5, -6) (1, 2)]; " + plain + "drawArc (10, 20, 30, 60) 1 2 3 4; " +
                  plainPen +
                  "polyline [(1, 2) (1, 2)]; setPen rgb(0,0,0) style 261 width 1; drawLine 1 2 3 4; "
                  "drawSolidRectangle (10, 20, 30, 60) rgb(255,0,0); "
                  "solidPolygon rgb(255,0,0) [(1, 2) (-3, 4)]; clearTransform");
    const std::string once = replayed(page);
    EXPECT_EQ(replayed(once), once);
}

void drawClipped(CSurfaceSVG& s)
{
    RECT across{-10, 10, 50, 500};
    s.setFont(face, 10, false, false, false, false);
    s.setClippingRegion(&box);
    s.setFont(face, 12, true, false, false, false);
    s.setTransform(1, 0, 0, 1, 5, 6);
    s.drawFocusRect(&box);
    s.clearTransform();
    s.setClippingRegion(&across);
    s.drawLine(1, 2, 3, 4);
    s.setClippingRegion(nullptr);
    s.drawFocusRect(&box);
}

// Each end of a clip comes back as a clip of the whole page, and each replay adds some.
TEST(Replay, ClippedPageKeepsItsOtherCalls)
{
    const auto callsWithoutEnds = [](std::string calls) {
        const std::string end = unclipped + "; ";
        calls += "; ";
        for (std::size_t place = 0; (place = calls.find(end, place)) != std::string::npos;) {
            calls.erase(place, end.size());
        }
        return calls;
    };
    const std::string page = drawn(drawClipped);
    const std::string first = "setClippingRegion (10, 20, 30, 60); ";
    EXPECT_EQ(playPage(page).calls,
              prepared + "setFont \"Arial\" 10; " + first + unclipped + "; setFont \"Arial\" 12 bold; " +
                  first + "setTransform 1 0 0 1 5 6; drawFocusRect (10, 20, 30, 60); clearTransform; " +
                  unclipped + "; setClippingRegion (0, 10, 50, 200); " + plainPen + "drawLine 1 2 3 4; " +
                  unclipped + "; drawFocusRect (10, 20, 30, 60)");
    EXPECT_EQ(callsWithoutEnds(playPage(replayed(page)).calls), callsWithoutEnds(playPage(page).calls));
}

} // namespace
