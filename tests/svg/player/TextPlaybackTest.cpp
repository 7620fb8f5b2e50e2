// Text on its way out of a page: which call an element becomes, and with what. Elements go in, calls come out.
#include "support/PlayedPage.h"

namespace {

std::string text(const std::string& attributes, const std::string& body)
{
    return "<text x='1' y='2' dy='1em'" + attributes + ">" + body + "</text>\n";
}

std::string coloured(const std::string& color)
{
    return "setTextColor rgb(" + color + "); setForeColor rgb(" + color + "); ";
}

const std::string Black = coloured("0,0,0");
const std::string Clips = "<defs><clipPath id='clip1'><path d='M3 4L5 4L5 6L3 6z' /></clipPath></defs>";
const std::string Box = " tovo:textRect='(0,0,10,10)'";
const std::string Blt = " class='BLT'";
const std::string Nofm = " class='nofm'";

const PageCase PlainText[] = {
    {"InAClip", Clips + text(" clip-path='url(#clip1)' ", ""), Black + "drawText \"\" (3, 4, 5, 6) 0"},
    {"RectangleGoesBeforeClip", Clips + text(" clip-path='url(#clip1)'" + Box, "A"),
     Black + "drawText \"A\" (0, 0, 10, 10) 0"},
    {"ClipWithoutEntry", Clips + text(" clip-path='url(#clip2)'", "A") + text(" clip-path='#clip-1'", "B"),
     Black + "drawTextAt \"A\" (1, 2) 0; " + Black + "drawTextAt \"B\" (1, 2) 0"},
    {"ColourAndFlags",
     text(" tovo:drawOptions='-1' fill='rgb(1,258,3)'", "A") +
         text(" style=' TovoFlags:7' fill='none' a='rgb(4,5,6)'", "B"),
     coloured("1,2,3") + "drawTextAt \"A\" (1, 2) 4294967295; " + coloured("4,5,6") +
         "drawTextAt \"B\" (1, 2) 7"},
    // The value of the class cuts off what is after it, and is read last for that.
    {"ClassBeforeTheStyle", text(Nofm + Box + " tovo:drawOptions='5' fill='rgb(1,2,3)'", "1   "),
     coloured("1,2,3") + "drawText \"1\" (0, 0, 10, 10) 5"},
    {"BaseLine", Clips + text(" clip-path='url(#clip1)' style=' TovoFlags:4'" + Blt, "C"),
     Black + "drawTextOnBaseLine 1 2 4 (3, 4, 5, 6) \"C\" -1"},
    {"WithoutPlace", "<text y='2'>A</text><text x='1'>B</text><text x='1' a='>' y='2'>C</text>" + mark(1),
     "drawFocusRect (1, 0, 1, 0)"},
};

const std::string NoPlace = "2147483647";
const PageCase Runs[] = {
    {"HeadOfARun",
     text(Box + " tovo:drawOptions='-1'",
          "\n\t<tspan x='3 4' y='5' dy='1.25em' textLength='6' text-decoration='underline' "
          "tovo:find='7,8'>a&gt;</tspan>\n\t<tspan textLength='-9'> b</tspan>\n<tspan x='1'>c</tspan>"),
     Black + "drawString [{\"a>\" (3, 5) length 6 find 7 8 newline underline} {\" b\" (" + NoPlace +
         ", 5) length -9 find 0 0 follows} {\"c\" (1, " + NoPlace +
         ") length -1 find 0 0}] (0, 0, 10, 10) -1"},
    // What a text path begins with does not end after it.
    {"DocumentInATextPath", text(Box, "<textPath><svg ></textPath><tspan x='3' y='5'>a</svg></tspan>"),
     Black + "drawString [{\"a</svg>\" (3, 5) length -1 find 0 0}] (0, 0, 10, 10) 0"},
    // A start tag and an end tag that are too near: the run and all after it are lost.
    {"BareEmptyRun", text("", "<tspan x='1' y='2'></tspan><tspan></tspan><tspan x='3' y='4'>b</tspan>"),
     Black + "drawString [{\"\" (1, 2) length -1 find 0 0}] (1, 2, 0, 0) 0"},
    {"OtherElementsAreSkipped",
     text("", "a<rect />b<textPath><line /><tspan>c</tspan></textPath>"
              "<tspan x='1' y='3'>d</tspan>"),
     Black + "drawString [{\"d\" (1, 3) length -1 find 0 0}] (1, 2, 0, 0) 0"},
    // Of a path only the first run counts, and its y is that of the path's line.
    {"PathsCountFromTheTop",
     text(" tovo:textRect='(0,50,9,9)' tovo:charAngle='-5' tovo:textAngle='400'",
          "<textPath a='1'>\n<tspan x='1' y='-3'>a</tspan><tspan x='1' y='1'>b</tspan></textPath>"
          "<tspan>c</tspan>"),
     Black + "setTextRotation -5 400; drawString [{\"a\" (1, 47) length -1 find 0 0} {\"c\" (" + NoPlace +
         ", 47) length -1 find 0 0 follows}] (0, 50, 9, 9) 0"},
    {"PageCount",
     text(Nofm + " tovo:charAngle='7'", "<tspan x='1' y='1'> 1 &amp;  </tspan><tspan>of</tspan>"),
     Black + "drawText \" 1 &\" (1, 2, 0, 0) 0"},
    {"PageCountWithoutARun", text(Nofm, "<tspan></tspan>") + text("", "<tspan>"),
     Black + Black + "drawString [] (1, 2, 0, 0) 0"},
};

INSTANTIATE_TEST_SUITE_P(PlainText, PageContent, testing::ValuesIn(PlainText), nameOf);
INSTANTIATE_TEST_SUITE_P(TextRuns, PageContent, testing::ValuesIn(Runs), nameOf);

} // namespace
