// Operands, styles, shapes, clip and transform, with the colour and the width that the text has set last.
#include "PostScriptPage.h"

#include <climits>

namespace {

POINT triangle[] = {{5, 7}, {10, -20}, {0, INT_MIN}};

void without(CSurfacePSPrinter& s, bool noPen, bool noBrush)
{
    s.setPen(0, noPen ? 5 : 0, 1);
    s.setBrush(0xFF, noBrush ? 1 : 0);
}

const PsCase Shapes[] = {
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
     "~ 0 0  moveto 10 -10  lineto stroke\n @r 3 setlinewidth 2 setlinecap  2 setlinejoin  1 -2  moveto 3 "
     "-2147483648  lineto stroke\n 0 setlinecap  0 setlinejoin  @l @l @0  @l 1 setlinejoin  @l 1 setlinecap  "
     "@l"},
    // A solid fill sets its colour each time, and the pen then sets its own back. A hatch leaves the colour that
    // counts as current alone.
    {[](auto& s) {
         RECT box{1, 2, 4, 6};
         s.drawRectangle(&box);
         s.drawSolidRectangle(&box, 0xFF);
         s.frameRect(&box, 0xFF00);
         s.drawFocusRect(&box);
         for (const bool noPen : {false, true}) {
             without(s, noPen, false);
             s.drawRectangle(&box);
         }
         for (const int style : {2, 3, 4, 5, 6, 7, 8, 1}) {
             s.setBrush(0, style);
             s.drawRectangle(&box);
         }
         s.drawRectangle(in({INT_MIN, INT_MAX, INT_MAX, INT_MIN}));
     },
     "1 -2 3 -4 ~ rectstroke\n1.000 0.000 0.000 1 -2 3 -4  solidrect\n0.000 1.000 0.000 1 -2 3 -4  "
     "framerect\n1 -2 3 -4  focusrect\n1 -2 3 -4  4 copy @r  rectfill @0~ rectstroke\n1 -2 3 -4  @r  "
     "rectfill\n@hHorizontal setcolor  rectfill\n@hVertical setcolor  rectfill\n@hFDiagonal setcolor  "
     "rectfill\n@hBDiagonal setcolor  rectfill\n@hCross setcolor  rectfill\n@hDiagCross setcolor  "
     "rectfill\n1 -2 3 -4  rectfill\n1 -2 3 -4 \n-2147483648 -2147483647 -1 -1 \n"},
    {[](auto& s) {
         s.setBrush(0xFF, 0);
         s.drawRoundedRectangle(in({10, 20, 110, 70}), 5, 9);
         without(s, true, true);
         s.drawRoundedRectangle(in({0, 0, 0, 0}), UINT_MAX, 0);
     },
     "15 -20  moveto 110 -20  110 -70  5 arcto 110 -70  10 -70  5 arcto 10 -70  10 -20  5 arcto 10 -20  110 "
     "-20  5 arcto  gsave @r  fill grestore~ stroke\n-1 0  moveto 0 0  0 0  -1 arcto 0 0  0 0  -1 arcto 0 0  "
     "0 0  -1 arcto 0 0  0 0  -1 arcto \n"},
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
     " newpath 5 -7  moveto 10 20  lineto 0 -2147483648  lineto ~ stroke\n newpath 5 -7  moveto 10 20  "
     "lineto 0 -2147483648  lineto closepath gsave @r  fill grestore~ stroke\n newpath 5 -7  moveto "
     "closepath~ stroke\n newpath 5 -7  moveto closepath @r  fill\n newpath 5 -7  moveto closepath newpath\n "
     "newpath 5 -7  moveto 10 20  lineto  newpath\n"},
    // The width of an ellipse is none that counts.
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
     "@r 4 setlinewidth 2 -4 2 4 0 360  ellipse stroke @g 2 -4 2 4 0 360  ellipse fill\n\n1 setlinewidth "
     "-2147483648 -5 0 -4 0 360  ellipse stroke \n~ @l"},
    {[](auto& s) {
         for (const POINT& start :
              {POINT{100, 50}, {50, 0}, {0, 50}, {50, 100}, {100, 0}, {0, 100}, {100, 100}, {50, 50}}) {
             s.drawArc(in({0, 0, 100, 100}), start.x, start.y, 50, 50);
         }
         RECT box{0, 0, 100, 60};
         s.setBrush(0xFF, 0);
         s.drawPie(&box, 100, 30, 50, 0);
         s.drawChord(&box, 50, 60, 0, 30);
         without(s, true, true);
         s.drawArc(&box, 1, 2, 3, 4);
         s.drawPie(&box, 1, 2, 3, 4);
     },
     "~50 -50 50 50 0 90  ellipse stroke\n~50 -50 50 50 90 90  ellipse stroke\n~50 -50 50 50 180 90  ellipse "
     "stroke\n~50 -50 50 50 270 90  ellipse stroke\n~50 -50 50 50 44 90  ellipse stroke\n~50 -50 50 50 224 "
     "90  ellipse stroke\n~50 -50 50 50 315 90  ellipse stroke\n~50 -50 50 50 90 90  ellipse stroke\n @r 50 "
     "-30 50 30 0 90  pie fill @0~50 -30 50 30 0 90  pie stroke\n @r 50 -30 50 30 270 180  chord fill  @0~50 "
     "-30 50 30 270 180  chord stroke \n\n"},
    // Paths have the foreground colour, and clips stay outside of transforms.
    {[](auto& s) {
         s.setBrush(0xFF, 0);
         s.drawPath(in({1, 2, 3, 4}), true);
         s.drawPath(in({1, 2, 3, 4}), false);
         s.setBrush(0xFF, 2);
         s.drawEraseRectangle(in({1, 2, 3, 4}), 0xFF00);
         EXPECT_EQ(0UL, s.getForeColor());
         s.setTransform(1, 0, 0, 1, 10, 20);
         s.setClippingRegion(in({1, 2, 3, 4}));
         s.clearTransform();
         s.setClippingRegion(in({1, 2, 3, 4}));
         s.setClippingRegion(nullptr);
         s.setTransform(-1.5F, 1e10F, -0.004F, 1e-9F, 0.006F, 1 / 0.0F);
     },
     "\n@0 @b stroke\n\n@0 @b~ stroke\n\n@g @b@p1.000 0.000 0.000 HatchHorizontal setcolor  stroke\ngsave "
     "[1.00 -0.00 -0.00 1.00 10.00 -20.00] concat\ngrestore\ngsave @b clip newpath\ngsave [1.00 -0.00 -0.00 "
     "1.00 10.00 -20.00] concat\ngrestore\ngrestore\ngsave @b clip newpath\ngrestore\ngsave [-1.50 "
     "-10000000000.00 0.00 0.00 0.01 0.00] concat\n"},
};

TEST(PostScriptShapes, LeaveTheirText)
{
    expectTexts(Shapes);
}

TEST(PostScriptShapes, PushTheirOperands)
{
    TovoTextString text;
    RECT box{1, 2, 4, 7};
    CSurfacePSPrinter::pushInteger(&text, INT_MIN);
    CSurfacePSPrinter::pushPoint(&text, 3, INT_MIN);
    CSurfacePSPrinter::pushRectangle(&text, &box);
    CSurfacePSPrinter::pushColor(&text, 0xFF3300FF);
    EXPECT_STREQ("-2147483648 3 -2147483648 1 -2 3 -5 1.000 0.000 0.200 ", text.text());
}

// The writer has a short way of its own for them.
TEST(PostScriptColours, AreRoundedAsFloatsAre)
{
    for (unsigned int channel = 0; channel < 256; ++channel) {
        char digits[12];
        TovoTextString text;
        CSurfacePSPrinter::appendRGB(text, channel << 16U);
        intlFloatToStringFixed(digits, 12, static_cast<float>(channel) / 255.0F, 3);
        EXPECT_EQ(std::string("0.000 0.000 ") + digits, text.text());
    }
}

} // namespace
