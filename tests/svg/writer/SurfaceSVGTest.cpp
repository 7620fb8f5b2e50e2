// The document around the elements, its bytes for the caller, and what the surface answers beside drawing.
#include "support/SvgPage.h"

#include <climits>

namespace {

TEST_P(SvgPage, HoldsExactly)
{
    EXPECT_EQ(GetParam().page, drawnPage(GetParam().draw));
}

// Only the extents of the two rectangles count, and they wrap.
TEST(SurfaceSVG, EmptyPageHasNoDefinitions)
{
    CSurfaceSVG page(in({5, 7, 215, 304}), in({INT_MIN, -200, INT_MAX, 2770}));
    EXPECT_EQ(headOf("width='210mm' height='297mm' viewBox='0 0 -1 2970'") + "</svg>\n\n", closedPage(page));
    CSurfaceSVG sizeless(nullptr, nullptr);
    EXPECT_EQ(headOf("width='0mm' height='0mm' viewBox='0 0 0 0'") + "</svg>\n\n", closedPage(sizeless));
}

// The definitions of all kinds, in an order of their own. Each hatch fill is a new pattern of one of the six
// shared tiles; an unknown style names none.
TEST(SurfaceSVG, Definitions)
{
    const auto draw = [](CSurfaceSVG& s) {
        s.drawSolidRectangle(in({1, 2, -3, INT_MIN}), ~0xFFUL);
        s.drawFocusRect(in({1, 2, 4, 6}));
        s.frameRect(in({1, 2, 4, 6}), 0x80030201);
        s.setPen(0, 5, 1);
        for (const int style : {2, 3, 4, 5, 6, 7, 7, 8, INT_MIN}) {
            s.setBrush(0xFF030201, style);
            s.drawPath(in({1, 2, 3, 4}), true);
        }
        s.setClippingRegion(in({1, 2, 4, 6}));
    };
    std::string patterns, paths;
    int number = 0;
    for (const char* name : {"HatchHorizontal", "HatchVertical", "HatchFDiagonal", "HatchBDiagonal",
                             "HatchCross", "HatchDiagCross", "HatchDiagCross", "", ""}) {
        const std::string id = "pattern" + std::to_string(++number);
        patterns += "<pattern id='" + id + "' stroke='rgb(1,2,3)' xlink:href='#" + name + "'></pattern>\n";
        paths +=
            "<path  d='M1 2L3 2L3 4L1 4z' tovo:penStyle='5'  stroke='none'  fill='url(#" + id + ")'  />\n";
    }
    const auto symbol = [](const std::string& name, const std::string& attributes) {
        return "\t<symbol id='" + name + "'><rect x='0' y='0' width='100%' height='100%'" + attributes +
               "/></symbol>\n";
    };
    const auto tile = [](const std::string& name, const std::string& lines) {
        return "<pattern id='Hatch" + name +
               "' patternUnits='userSpaceOnUse' x='0' y='0' width='9' height='9' stroke-width='1'>\n" +
               lines + "\n</pattern>\n";
    };
    EXPECT_EQ(
        "<defs>\n<clipPath id='clip1'><path  d='M1 2L4 2L4 6L1 6z' /></clipPath>\n\n" + patterns + "\n" +
            symbol("FrameRect", " fill='none' stroke-width='1'") +
            symbol("FocusRect", " fill='none' stroke-width='1' stroke-dasharray='1,1'") +
            symbol("SolidRect", "") + tile("Horizontal", "\t<line x1='0' y1='4' x2='9' y2='4'/>") +
            tile("Vertical", "\t<line x1='4' y1='0' x2='4' y2='9'/>") +
            tile("FDiagonal", "\t<line x1='0' y1='0' x2='9' y2='9'/>") +
            tile("BDiagonal", "\t<line x1='9' y1='0' x2='0' y2='9'/>") +
            tile("Cross", "\t<line x1='0' y1='4' x2='9' y2='4'/>\t<line x1='4' y1='0' x2='4' y2='9'/>") +
            tile("DiagCross", "\t<line x1='0' y1='0' x2='9' y2='9'/>\t<line x1='9' y1='0' x2='0' y2='9'/>") +
            R"(</defs>

<use x='1' y='2' width='-4' height='2147483646' xlink:href='#SolidRect' fill='rgb(0,255,255)'/>
<use x='1' y='2' width='3' height='4' xlink:href='#FocusRect'/>
<use x='1' y='2' width='3' height='4' xlink:href='#FrameRect' stroke='rgb(1,2,3)'/>
)" + paths + "<g clip-path='url(#clip1)'>\n</g>\n",
        drawnPage(draw));
}

TEST(SurfaceSVG, GivesAsManyBytesAsThereIsRoomFor)
{
    CSurfaceSVG surface;
    const std::string page = closedPage(surface);
    std::string bytes(page.size(), '#');
    unsigned int size = static_cast<unsigned int>(page.size() - 1);
    surface.getData(reinterpret_cast<unsigned char*>(bytes.data()), size);
    EXPECT_EQ(page.substr(0, page.size() - 1) + '#', bytes);
    surface.getData(nullptr, size);
    EXPECT_EQ(0U, size);
}

// Copies go on from the groups and counters of their original and know nothing of what it does later.
TEST(SurfaceSVG, CopiesAreIndependent)
{
    const auto draw = [](CSurfaceSVG& s) {
        s.setBrush(0xFF, 2);
        s.drawPath(in({1, 2, 3, 4}), true);
        s.setClippingRegion(in({1, 2, 3, 4}));
    };
    const auto drawByCopies = [&](CSurfaceSVG& s) {
        draw(s);
        CSurfaceSVG copy(s);
        s.drawFocusRect(in({0, 0, 1, 1}));
        s = copy;
        draw(copy);
        draw(s);
    };
    EXPECT_EQ(drawnPage([&](CSurfaceSVG& s) { draw(s), draw(s); }), drawnPage(drawByCopies));
}

TEST(SurfaceSVG, StateAndNullArgumentsLeaveNothingOnThePage)
{
    const auto draw = [](CSurfaceSVG& s) {
        s.setTextColor(8);
        s.setViewportOrigin(9, 10);
        s.setBrush(0, 2);
        s.setFont(nullptr);
        s.drawSolidRectangle(nullptr, 1);
        s.drawRoundedRectangle(nullptr, 1, 2);
        s.ellipse(nullptr);
        s.drawArc(nullptr, 1, 2, 3, 4);
        s.drawEraseRectangle(nullptr, 1);
        s.drawPath(nullptr, 2, true);
        s.polyline(nullptr, 3);
        EXPECT_TRUE(s.m_backColor == 0 && s.getForeColor() == 8);
        EXPECT_TRUE(s.m_viewportOriginX == 9 && s.m_viewportOriginY == 10);
        EXPECT_TRUE(s.getSurfaceType() == 6 && s.requiredPictureType(7) == 8 && s.loadFonts(nullptr) == 0);
    };
    EXPECT_EQ("", drawnPage(draw));
}

} // namespace
