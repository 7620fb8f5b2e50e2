// Drawing on CSurfaceSVG, playing the page, drawing again: what comes back and what the format drops.
#include "PlayedPage.h"

#include "surfaceSVG.h"

namespace {

using Drawing = void (*)(CSurfaceSVG&);

std::string closed(CSurfaceSVG& surface)
{
    surface.closeSurface();
    std::string page(static_cast<std::size_t>(surface.getDataLength()), '\0');
    auto size = static_cast<unsigned int>(page.size());
    surface.getData(reinterpret_cast<unsigned char*>(page.data()), size);
    return page;
}

std::string drawn(Drawing draw)
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
    RECT none{0, 0, 0, 0};
    CSurfaceSVG surface(&none, &none);
    EXPECT_EQ(playOn(surface, page), 1);
    return closed(surface);
}

void drawShapes(CSurfaceSVG& s)
{
    POINT points[] = {{1, 2}, {-3, 4}, {5, -6}, {7, 8}};
    RECT rect{10, 20, 30, 60};
    char face[] = "Arial";
    s.setFont(face, 10.5F, true, false, true, false);
    for (const int style : {0, 1, 2, 3, 4, 6, 5, 0x100, 0x211, 0x1102, 0x2200}) {
        s.setPen(style == 5 ? 0 : 0x123456, style, style == 5 ? 1 : 3);
        s.drawLine(1, 2, -3, 4);
    }
    for (const int style : {0, 1, 2, 3, 4, 5, 6, 7}) {
        s.setBrush(style == 1 ? 0 : 0xABCDEF, style);
        s.drawRectangle(&rect);
        s.drawRoundedRectangle(&rect, 4, 5);
        s.ellipse(&rect);
        s.drawPie(&rect, 1, 2, 3, 4);
        s.drawChord(&rect, 5, 6, 7, 8);
        s.polygon(points, 4);
    }
    s.setFont(face, 8, false, true, false, true);
    s.setTransform(1, 0.5F, -0.25F, 1, 100, -0.75F);
    s.polyline(points, 4);
    s.solidPolygon(points, 2, 0xFF);
    s.clearTransform();
    s.frameRect(&rect, 0x00FF00);
    s.drawFocusRect(&rect);
    s.drawSolidRectangle(&rect, 0xFF0000);
}

// What the format changes on its first way through.
void drawLossy(CSurfaceSVG& s)
{
    POINT points[] = {{1, 2}, {3, 4}, {5, 6}};
    RECT odd{9, 8, 0, 1};
    char face[] = "O'Neil";
    s.setFont(face, 10.126F, false, false, false, false);
    s.setPen(0x123456, 5, 9);
    s.setBrush(0xABCDEF, 0);
    s.drawRoundedRectangle(&odd, 3, 3);
    s.ellipse(&odd);
    s.polygon(points, 3);
    s.setTransform(1.006F, 0, 0, 1, 0, 0);
    s.setTransform(2, 0, 0, 1e9F, 3.4e38F, 0);
    s.setBrush(0xABCDEF, 50);
    s.drawArc(&odd, 1, 2, 3, 4);
    s.drawChord(&odd, 1, 2, 3, 4);
    s.polyline(points, 1);
}

void drawClipped(CSurfaceSVG& s)
{
    RECT first{-10, 10, 50, 50};
    RECT second{20, 20, 500, 500};
    RECT outside{200, 0, 300, 10};
    char face[] = "Arial";
    s.setFont(face, 10, false, false, false, false);
    s.setClippingRegion(&first);
    s.drawLine(1, 2, 3, 4);
    s.setFont(face, 12, true, false, false, false);
    s.setTransform(1, 0, 0, 1, 5, 6);
    s.drawFocusRect(&first);
    s.clearTransform();
    s.setClippingRegion(&second);
    s.setBrush(0xFF, 7);
    s.ellipse(&first);
    s.setClippingRegion(nullptr);
    s.setClippingRegion(&outside);
    s.drawSolidRectangle(&second, 0xFF);
}

TEST(Replay, PageOfShapesKeepsItsBytes)
{
    const std::string page = drawn(drawShapes);
    EXPECT_EQ(replayed(page), page);
}

TEST(Replay, LossesHappenOnce)
{
    const std::string once = replayed(drawn(drawLossy));
    EXPECT_EQ(replayed(once), once);
}

TEST(Replay, ClippedPageKeepsItsCalls)
{
    const std::string page = drawn(drawClipped);
    std::vector<std::string> calls = playPage(page).calls;
    std::vector<std::string> replayedCalls = playPage(replayed(page)).calls;
    EXPECT_GT(std::erase(calls, frameClip), 0U);
    EXPECT_GT(std::erase(replayedCalls, frameClip), 0U); // each replay adds some
    EXPECT_EQ(replayedCalls, calls);
    EXPECT_EQ(calls.size(), 14U);
}

struct ReplayCase {
    const char* name;
    Drawing draw;
    std::vector<std::string> calls; // behind prepareSurface
};

const ReplayCase losses[] = {
    {"pen without a line",
     [](CSurfaceSVG& s) {
         s.setPen(0xABCDEF, 0x105, 9);
         s.drawLine(1, 2, 3, 4);
     },
     {"setPen rgb(0,0,0) style 261 width 1", "drawLine 1 2 3 4"}},
    {"corners of a rectangle without outline",
     [](CSurfaceSVG& s) {
         RECT rect{1, 2, 3, 4};
         s.setPen(0, 5, 1);
         s.setBrush(0xFF0000FF, 0);
         s.drawRoundedRectangle(&rect, 1, 1);
     },
     {"drawSolidRectangle (1, 2, 3, 4) rgb(255,0,0)"}},
    {"odd points",
     [](CSurfaceSVG& s) {
         POINT points[] = {{1, 2}, {3, 4}, {5, 6}};
         s.polygon(points, 3);
         s.polyline(points, 1);
     },
     {plainBrush, plainPen, "polygon [(1, 2) (3, 4) (5, 6) (1, 2)]", plainPen, "polyline [(1, 2) (1, 2)]"}},
    {"reversed ellipse of odd size",
     [](CSurfaceSVG& s) {
         RECT rect{11, 7, 0, 0};
         s.ellipse(&rect);
     },
     {plainBrush, plainPen, "ellipse (1, 1, 11, 7)"}},
    {"colour of a hollow brush, brush style of none, rounding by nothing",
     [](CSurfaceSVG& s) {
         RECT rect{1, 2, 3, 4};
         s.setBrush(0xABCDEF, 1);
         s.drawRectangle(&rect);
         s.setBrush(0x030201, 50);
         s.drawRoundedRectangle(&rect, 0, 0);
     },
     {plainBrush, plainPen, "drawRectangle (1, 2, 3, 4)", "setBrush rgb(1,2,3) style 2 picture 0", plainPen,
      "drawRectangle (1, 2, 3, 4)"}},
    {"shapes for viewers only",
     [](CSurfaceSVG& s) {
         RECT rect{1, 2, 3, 4};
         s.drawEraseRectangle(&rect, 0xFF);
         s.drawPath(&rect, true);
         s.setClippingRegion(nullptr);
     },
     {}},
    {"font name and numbers",
     [](CSurfaceSVG& s) {
         char face[] = "O'Neil";
         s.setFont(face, 10.126F, false, false, false, false);
         s.setTransform(1.006F, 0, 0, 1, 0, 0);
         s.setTransform(2, 0, 0, 1, 0, 0);
     },
     {"setFont \"ONeil\" 10.13", "setTransform 1.01 0 0 1 0 0", "clearTransform", "setTransform 2 0 0 1 0 0",
      "clearTransform"}},
    {"clips", // one ends before the next begins, in a rectangle of the whole page
     [](CSurfaceSVG& s) {
         RECT rect{-1, 2, 3, 4};
         s.setClippingRegion(&rect);
         s.setClippingRegion(&rect);
     },
     {"setClippingRegion (0, 2, 3, 4)", frameClip, "setClippingRegion (0, 2, 3, 4)", frameClip}},
};

TEST(Replay, DropsWhatTheFormatCannotSay)
{
    for (const ReplayCase& loss : losses) {
        std::vector<std::string> expected = loss.calls;
        expected.insert(expected.begin(), framePrepared);
        EXPECT_EQ(playPage(drawn(loss.draw)).calls, expected) << loss.name;
    }
}

} // namespace
