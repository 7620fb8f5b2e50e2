// Operands, styles, shapes, clip and transform, with the colour and the width that the text has set last.
#include "PostScriptPage.h"

#include <climits>

namespace {

POINT triangle[] = {{5, 7}, {10, -20}, {0, INT_MIN}};
const std::string trianglePath = "5 -7  moveto 10 20  lineto 0 -2147483648  lineto ";
const std::string pen = " 1 setlinecap  1 setlinejoin ";

void without(CSurfacePSPrinter& s, bool noPen, bool noBrush)
{
    s.setPen(0, noPen ? 5 : 0, 1);
    s.setBrush(0xFF, noBrush ? 1 : 0);
}

// Arcs in the square of 100 by 100.
void arcs(CSurfacePSPrinter& s, std::initializer_list<POINT> starts)
{
    for (const POINT& start : starts) {
        s.drawArc(in({0, 0, 100, 100}), start.x, start.y, 50, 50);
    }
}

std::string arc(const std::string& angle)
{
    return pen + "50 -50 50 50 " + angle + " 90  ellipse stroke\n";
}

const PsCase shapes[] = {
    {[](auto& s) {
         s.drawLine(0, 0, 10, 10);
         s.setPen(0xFF, 0x1101, 3);
         s.drawLine(1, 2, 3, INT_MIN);
         s.setPen(0xFF, 0x2205, 3);
         s.drawLine(0, 0, 0, 0);
         for (const int style : {5, 0x3300, 0x0300, 0x3000}) {
             s.setPen(0, style, 3);
             s.drawLine(0, 0, 0, 0);
         }
     },
     pen + " 0 0  moveto 10 -10  lineto stroke\n" +
         " 1.000 0.000 0.000 setrgbcolor 3 setlinewidth 2 setlinecap  2 setlinejoin  1 -2  moveto 3 "
         "-2147483648  lineto stroke\n 0 setlinecap  0 setlinejoin  0 0  moveto 0 0  lineto stroke\n"
         " 0 0  moveto 0 0  lineto stroke\n 0.000 0.000 0.000 setrgbcolor  0 0  moveto 0 0  lineto stroke\n"
         " 1 setlinejoin  0 0  moveto 0 0  lineto stroke\n 1 setlinecap  0 0  moveto 0 0  lineto stroke\n"},
    {[](auto& s) {
         s.drawRectangle(in({10, 20, 110, 70}));
         s.drawSolidRectangle(in({10, 20, 110, 70}), 0xFF);
         s.frameRect(in({10, 20, 110, 70}), 0xFF00);
         s.drawFocusRect(in({10, 20, 110, 70}));
         without(s, true, true);
         s.drawRectangle(in({INT_MIN, INT_MAX, INT_MAX, INT_MIN}));
     },
     "10 -20 100 -50 " + pen +
         " rectstroke\n1.000 0.000 0.000 10 -20 100 -50  solidrect\n"
         "0.000 1.000 0.000 10 -20 100 -50  framerect\n10 -20 100 -50  focusrect\n"
         "-2147483648 -2147483647 -1 -1 \n"},
    // A solid fill sets its colour each time, and the pen then sets its own back. A hatch leaves the colour that
    // counts as current alone.
    {[](auto& s) {
         without(s, false, false);
         s.drawRectangle(in({1, 2, 4, 6}));
         without(s, true, false);
         s.drawRectangle(in({1, 2, 4, 6}));
         for (const int style : {2, 3, 4, 5, 6, 7, 8, INT_MIN}) {
             s.setBrush(0, style);
             s.drawRectangle(in({1, 2, 4, 6}));
         }
     },
     "1 -2 3 -4  4 copy 1.000 0.000 0.000 setrgbcolor  rectfill 0.000 0.000 0.000 setrgbcolor" + pen +
         " rectstroke\n1 -2 3 -4  1.000 0.000 0.000 setrgbcolor  rectfill\n" +
         [] {
             std::string hatches;
             for (const char* name :
                  {"Horizontal", "Vertical", "FDiagonal", "BDiagonal", "Cross", "DiagCross"}) {
                 hatches += "1 -2 3 -4 \n[/Pattern /DeviceRGB] setcolorspace 0.000 0.000 0.000 Hatch" +
                            std::string(name) + " setcolor  rectfill\n";
             }
             return hatches + "1 -2 3 -4  rectfill\n1 -2 3 -4  rectfill\n";
         }()},
    {[](auto& s) {
         s.setBrush(0xFF, 0);
         s.drawRoundedRectangle(in({10, 20, 110, 70}), 5, 9);
         without(s, true, true);
         s.drawRoundedRectangle(in({0, 0, 0, 0}), UINT_MAX, 0);
     },
     "15 -20  moveto 110 -20  110 -70  5 arcto 110 -70  10 -70  5 arcto 10 -70  10 -20  5 arcto "
     "10 -20  110 -20  5 arcto  gsave 1.000 0.000 0.000 setrgbcolor  fill grestore" +
         pen +
         " stroke\n-1 0  moveto 0 0  0 0  -1 arcto 0 0  0 0  -1 arcto 0 0  0 0  -1 arcto 0 0  0 0  -1 arcto "
         " newpath\n"},
    // The colour of a fill inside its own state doesn't count outside.
    {[](auto& s) {
         s.polyline(triangle, 3);
         s.setBrush(0xFF, 0);
         s.polygon(triangle, 3);
         s.drawPolygon(triangle, 1, false);
         without(s, true, false);
         s.polygon(triangle, 1);
         without(s, true, true);
         s.polygon(triangle, 1);
         s.polyline(triangle, 2);
         s.polygon(triangle, 0);
     },
     " newpath " + trianglePath + pen + " stroke\n newpath " + trianglePath +
         "closepath gsave 1.000 0.000 0.000 setrgbcolor  fill grestore" + pen +
         " stroke\n"
         " newpath 5 -7  moveto closepath" +
         pen +
         " stroke\n"
         " newpath 5 -7  moveto closepath 1.000 0.000 0.000 setrgbcolor  fill\n"
         " newpath 5 -7  moveto closepath newpath\n newpath 5 -7  moveto 10 20  lineto  newpath\n"},
    {[](auto& s) {
         s.setPen(0xFF, 0, 4);
         s.setBrush(0xFF00, 7);
         s.ellipse(in({0, 0, 5, 9}));
         without(s, true, true);
         s.ellipse(in({0, 0, 5, 9}));
         s.setPen(0xFF00, 0, 1);
         s.ellipse(in({INT_MIN, 9, INT_MAX, 0}));
         s.drawLine(0, 0, 0, 0);
     },
     "1.000 0.000 0.000 setrgbcolor 4 setlinewidth 2 -4 2 4 0 360  ellipse stroke 0.000 1.000 0.000 "
     "setrgbcolor 2 -4 2 4 0 360  ellipse fill\n\n1 setlinewidth -2147483648 -5 0 -4 0 360  ellipse stroke "
     "\n" +
         pen + " 0 0  moveto 0 0  lineto stroke\n"},
    {[](auto& s) {
         arcs(s, {{100, 50}, {50, 0}, {0, 50}, {50, 100}, {100, 0}, {0, 100}, {100, 100}, {50, 50}});
     },
     arc("0") + arc("90") + arc("180") + arc("270") + arc("44") + arc("224") + arc("315") + arc("90")},
    {[](auto& s) {
         s.setBrush(0xFF, 0);
         s.drawPie(in({0, 0, 100, 60}), 100, 30, 50, 0);
         s.drawChord(in({0, 0, 100, 60}), 50, 60, 0, 30);
         without(s, true, true);
         s.drawArc(in({0, 0, 100, 60}), 1, 2, 3, 4);
         s.drawPie(in({0, 0, 100, 60}), 1, 2, 3, 4);
     },
     " 1.000 0.000 0.000 setrgbcolor 50 -30 50 30 0 90  pie fill 0.000 0.000 0.000 setrgbcolor" + pen +
         "50 -30 50 30 0 90  pie stroke\n"
         " 1.000 0.000 0.000 setrgbcolor 50 -30 50 30 270 180  chord fill  0.000 0.000 0.000 setrgbcolor" +
         pen + "50 -30 50 30 270 180  chord stroke \n\n"},
    {[](auto& s) {
         s.setBrush(0xFF, 0);
         s.drawPath(in({1, 2, 3, 4}), true);
         s.drawPath(in({1, 2, 3, 4}), false);
         s.setBrush(0xFF, 2);
         s.drawEraseRectangle(in({1, 2, 3, 4}), 0xFF00);
         EXPECT_EQ(0UL, s.getForeColor());
     },
     [] {
         const std::string path = " newpath 1 -2  moveto 3 -2  lineto 3 -4  lineto 1 -4  lineto closepath";
         return "\n0.000 0.000 0.000 setrgbcolor" + path + " stroke\n\n0.000 0.000 0.000 setrgbcolor" + path +
                pen + " stroke\n\n0.000 1.000 0.000 setrgbcolor" + path +
                "\n[/Pattern /DeviceRGB] setcolorspace 1.000 0.000 0.000 HatchHorizontal setcolor  stroke\n";
     }()},
    {[](auto& s) {
         s.setTransform(1, 0, 0, 1, 10, 20);
         s.setClippingRegion(in({1, 2, 3, 4}));
         s.clearTransform();
         s.setClippingRegion(in({1, 2, 3, 4}));
         s.setClippingRegion(nullptr);
         s.setTransform(-1.5F, 1e10F, -0.004F, 1e-9F, 0.006F, 1 / 0.0F);
     },
     [] {
         const std::string matrix = "gsave [1.00 -0.00 -0.00 1.00 10.00 -20.00] concat\n";
         const std::string clip =
             "gsave newpath 1 -2  moveto 3 -2  lineto 3 -4  lineto 1 -4  lineto closepath "
             "clip newpath\n";
         return matrix + "grestore\n" + clip + matrix + "grestore\ngrestore\n" + clip + "grestore\n" +
                "gsave [-1.50 -10000000000.00 0.00 0.00 0.01 0.00] concat\n";
     }()},
};

TEST(PostScriptShapes, LeaveTheirText)
{
    expectTexts(shapes);
}

// The writer has a short way of its own for them.
TEST(PostScriptColours, AreRoundedAsFloatsAre)
{
    for (unsigned int channel = 0; channel < 256; ++channel) {
        char buffer[12];
        TovoTextString text;
        CSurfacePSPrinter::appendRGB(text, channel << 16U);
        EXPECT_EQ("0.000 0.000 " + std::string(intlFloatToStringFixed(
                                       buffer, 12, static_cast<float>(channel) / 255.0F, 3)),
                  text.text());
    }
}

} // namespace
