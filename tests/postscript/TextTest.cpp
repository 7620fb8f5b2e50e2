// Fonts, escaping and the forms of text, on a page where ten points are 35.28 units.
#include "PostScriptPage.h"

#include <climits>

#include "lettering.h"

namespace {

char arial[] = "Arial";
char times[] = "Times New Roman";

void black(CSurfacePSPrinter& s)
{
    s.m_font = CSurfaceFont(arial, 10);
    s.setTextColor(0);
}

const PsCase Texts[] = {
    {[](auto& s) {
         CSurfaceFont font(times, 10, true, true, true, true);
         s.setFont(&font);
         EXPECT_EQ(font, s.m_font);
         s.writeFont(arial, 10, false, false, true, true);
         s.writeFont(arial, -1, true, false, false, false);
         s.writeFont(nullptr, 1, false, true, false, false);
         s.m_pageHeight = 0;
         s.writeFont(arial, 10, false, false, false, false);
     },
     "/(Times New Roman-BoldItalic) findfont 35.28 scalefont setfont \n/Arial findfont 35.28 scalefont "
     "setfont \n/Arial-Bold findfont -3.53 scalefont setfont \n/-Italic findfont 3.53 scalefont setfont "
     "\n/Arial findfont 10.00 scalefont setfont \n"},
    // The point size is added as it is.
    {[](auto& s) {
         black(s);
         s.drawString("Hi", in({100, 200, 1, 2}), 0xFF);
         s.setTextColor(0xFF);
         s.drawText("&(\\)\x80\n", in({0, INT_MAX, 1, 2}), 0);
         POINT point{7, 8};
         for (const unsigned int flags : {4U, 1U, 2U, 3U}) {
             s.drawTextAt("x", &point, flags);
         }
         s.setTextColor(0);
         s.drawTextAt("x", &point, 0);
         char text[] = "(ab";
         s.drawTextOnBaseLine(7, 8, 0, in({1, 2, 3, 4}), text, -1);
         char cut[] = {'(', 'a'}; // nothing lies after it
         for (const int length : {0, 2, 4, -2}) {
             s.drawTextOnBaseLine(7, 8, 4, nullptr, length == 2 ? cut : text, length);
         }
     },
     "\n 100 -210  moveto\n(Hi) show\n @r\n 0 2147483639  moveto\n(&\\(\\\\\\)\x80\n) show\n 7 -18  moveto "
     "(x) show\n 7 -18  moveto (x) middleshow\n 7 -18  moveto (x) rightshow\n 7 -18  moveto (x) "
     "rightshow\n@0 7 -18  moveto (x) show\ngsave @b clip newpath\n@0 7 -8  moveto (\\(ab) "
     "show\ngrestore\n@0 7 -8  moveto () show\n@0 7 -8  moveto (\\(a) show\n@0 7 -8  moveto (\\(ab) show\n@0 "
     "7 -8  moveto () show\n"},
    // The first line is 35 units below the top and a line 42 high.
    {[](auto& s) {
         black(s);
         RECT box{1, 1000, 3, 4};
         Runs()
             .at(100, 200, "Hi", {.width = 350})
             .then("on")
             .at(9, INT_MAX, "new", {true, -5})
             .draw(s, box, 0x100);
         Runs().then("a").then("b", {.width = 0}).draw(s, box, 0);
         s.setTextColor(0xFF);
         Runs().draw(s, box, 0x100);
         s.m_font = CSurfaceFont(arial, 10, false, false, true, true);
         s.setTextRotation(0, 90);
         Runs().at(0, -35, "(").draw(s, box, 0x100);
         s.setTextRotation(-45, 0);
         Runs().at(0, -35, "").draw(s, box, 0x100);
     },
     "gsave\n\t100 -235  moveto 350  false false (Hi) jshow\n\t0  false false (on) jshow\n\t9 -1077  moveto "
     "0  false true (new) jshow\ngrestore\ngsave newpath 1 -1000  moveto 3 -1000  lineto 3 -4  lineto 1 -4  "
     "lineto closepath clip\n\t1 -35  moveto 0  false false (a) jshow\n\t0  false false (b) "
     "jshow\ngrestore\n@r\ngsave\ngrestore\ngsave\n\t0 0  moveto 0  true true (\\() 0  90  "
     "rotatedshow\ngrestore\ngsave\n\t0 0  moveto 0  true true () -45  0  rotatedshow\ngrestore\n"},
};

TEST(PostScriptText, LeavesItsText)
{
    expectTexts(Texts);
}

TEST(PostScriptText, IsEscapedUpToAZeroByte)
{
    TovoTextString escaped = CSurfacePSPrinter::toPS(TovoTextString("\\(a\0)", 5));
    EXPECT_EQ(std::string("\\\\\\(a\0)", 7), std::string(escaped.text(), escaped.length()));
    EXPECT_EQ(0U, CSurfacePSPrinter::toPS(TovoTextString()).length());
}

} // namespace
