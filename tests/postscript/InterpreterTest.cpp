// Documents run by a real interpreter: values that the procedures leave, and the words of the demo's pages.
#include "PostScriptPage.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <string_view>

#include <unistd.h>

#include "reportPages.h"
#include "storedPage.h"

namespace {

// What the interpreter writes about a document, which it has to take without an error.
std::string interpreted(const std::string& document, const std::string& device)
{
    const std::string file = testing::TempDir() + "postscript-" + std::to_string(getpid()) + ".ps";
    std::ofstream(file, std::ios::binary) << document;
    const std::string command = SURFACE_GHOSTSCRIPT " -q -dSAFER -dBATCH -dNOPAUSE -sOutputFile=- -sDEVICE=";
    std::FILE* const output = popen((command + device + " " + file + " 2>&1").c_str(), "r");
    std::string said;
    for (int character = 0; (character = std::fgetc(output)) != EOF;) {
        said += static_cast<char>(character);
    }
    EXPECT_EQ(0, pclose(output)) << said;
    std::remove(file.c_str());
    return said;
}

TEST(PostScriptProcedures, LeaveTheRightValues)
{
    const std::string box = " flattenpath pathbbox 4 {round cvi =} repeat";
    const std::string width = " (abc) stringwidth pop";
    const std::pair<std::string, std::string> cases[] = {
        {"10 -50 moveto 60 false false (abc) jshow currentpoint round cvi = round cvi =", "-50 70"},
        {"10 -50 moveto 0 true true (abc) jshow currentpoint pop" + width + " sub round cvi =", "10"},
        {"99 -50 moveto (abc) rightshow currentpoint pop round cvi =", "99"},
        {"99 -50 moveto (abc) middleshow currentpoint pop" + width + " 2 div sub round cvi =", "99"},
        {"newpath 50 -50 40 20 0 90 ellipse currentpoint round cvi = round cvi =", "-30 50"},
        {"newpath 50 -50 40 20 270 180 ellipse" + box, "-30 90 -70 10"},
        {"newpath 50 -50 40 20 0 90 pie 52 -48 infill = 80 -38 infill =" + box, "true true -30 90 -50 50"},
        {"newpath 50 -50 40 20 0 90 chord 52 -48 infill = 80 -38 infill =", "false true"},
        {"0 1 0 setrgbcolor 5 setlinewidth 1 0 0 1 2 3 4 framerect 1 2 3 4 focusrect 1 0 0 1 2 3 4 solidrect "
         "currentlinewidth cvi = currentrgbcolor cvi = cvi = cvi = currentdash pop length =",
         "5 0 1 0 0"},
        {"count =", "0"},
    };
    std::string probes;
    std::string words;
    for (const auto& [probe, said] : cases) {
        probes += probe + "\n";
        words += said + " ";
    }
    std::string document = documentOf([](CSurfacePSPrinter& s) {
        char face[] = "Helvetica";
        POINT point{};
        s.setFont(face, 10, false, false, false, false);
        s.drawTextAt("", &point, 1);
        s.drawTextAt("", &point, 2);
        s.drawPie(in({0, 0, 9, 9}), 0, 0, 0, 0);
        s.drawChord(in({0, 0, 9, 9}), 0, 0, 0, 0);
        s.drawFocusRect(in({0, 0, 9, 9}));
        s.frameRect(in({0, 0, 9, 9}), 0);
        s.drawSolidRectangle(in({0, 0, 9, 9}), 0);
    });
    std::string said = interpreted(document.insert(document.rfind("\nshowpage"), probes), "nullpage");
    std::ranges::replace(said, '\n', ' ');
    EXPECT_EQ(words, said);
}

// The words of a document outside of strings, comments and samples; names keep their slash.
std::set<std::string> namesIn(const std::string& document)
{
    const std::string letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    std::set<std::string> names;
    std::size_t end = 0;
    for (std::size_t i = 0; i = document.find_first_of(letters + "%(</", end), i != std::string::npos;) {
        if (document[i] == '%') {
            end = document.find('\n', i);
        } else if (document[i] == '(') {
            for (end = i + 1; document[end] != ')'; ++end) {
                end += document[end] == '\\' ? 1 : 0;
            }
        } else if (document[i] == '<') {
            end = document[i + 1] == '<' ? i + 2 : document.find('>', i);
        } else {
            end = document.find_first_not_of(letters + "0123456789-", i + 1);
            const std::string name = document.substr(i, end - i);
            names.insert(name);
            end = name.ends_with("image") && document[end] == '\n' ? document.find('>', end) : end;
        }
    }
    return names;
}

// PLRM, second edition, chapter 8: those of its operators that a page has a use for.
constexpr const char* levelTwoOperators =
    "abs add anchorsearch and arc arcto arcn ashow awidthshow begin bind charpath clip clippath closepath "
    "concat "
    "concatmatrix copy currentdash currentdict currentfile currentfont currentgray currentlinewidth "
    "currentmatrix "
    "currentpoint currentrgbcolor curveto cvi cvr cvs cvx def defaultmatrix definefont dict div dtransform "
    "dup end eoclip eofill eq "
    "exch exec execform exit exp false fill filter findfont floor flattenpath for forall ge get getinterval "
    "grestore gsave gt identmatrix idiv if ifelse image imagemask index initclip invertmatrix itransform "
    "known kshow le "
    "length lineto ln load log loop lt makefont makepattern matrix maxlength mod moveto mul ne neg newpath "
    "not or "
    "pathbbox pop put putinterval rcurveto readhexstring readstring rectclip rectfill rectstroke repeat "
    "restore rlineto rmoveto roll "
    "rotate round save scale scalefont search selectfont setcolor setcolorspace setdash setfont setgray "
    "setlinecap "
    "setlinejoin setlinewidth setmatrix setmiterlimit setpattern setrgbcolor setstrokeadjust show showpage "
    "sqrt "
    "string stringwidth stroke strokepath sub systemdict transform translate true truncate type userdict "
    "where widthshow "
    "xor xshow xyshow yshow";

// Names that are neither operators of level 2 nor defined by the document. Interpreters of today take more than
// level 2, so they can't tell.
std::string strangersIn(const std::string& document)
{
    std::istringstream operators(levelTwoOperators);
    const std::set<std::string> known{std::istream_iterator<std::string>(operators), {}};
    const std::set<std::string> names = namesIn(document);
    std::string strangers;
    for (const std::string& name : names) {
        const bool isKnown = name.front() == '/' || known.contains(name) || names.contains("/" + name);
        strangers += isKnown ? "" : name + " ";
    }
    return strangers;
}

// Letters and figures of what stands between each pair of marks, without tags and entities: a byte above 127 is
// another character to the font than to the page.
std::string textBetween(std::string_view from, std::string_view to, const std::string& text)
{
    std::string letters;
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos;) {
        char close = from.front() == '<' ? '>' : '\0';
        at += from.size();
        for (const std::size_t end = text.find(to, at); at < end; ++at) {
            const char c = text[at];
            close = close != '\0' ? (c == close ? '\0' : close) : c == '<' ? '>' : c == '&' ? ';' : '\0';
            if (close == '\0' && std::isalnum(static_cast<unsigned char>(c)) != 0) {
                letters += c;
            }
        }
    }
    return letters;
}

TEST(PostScriptReport, RunsAndHoldsTheWordsOfEachPage)
{
    for (const ReportPage& page : reportPages()) {
        CSurfaceSVG surface = emptyPage();
        drawReportPage(surface, page);
        Page svg = stored(surface);
        const std::string words = textBetween("<text ", "</text>", std::string(svg.begin(), svg.end()));
        EXPECT_GT(words.size(), 40U);
        for (const Page& bytes : {printed(svg), page.name == directPage ? printedDirectly(page) : Page()}) {
            if (bytes.empty()) {
                continue;
            }
            const std::string document(bytes.begin(), bytes.end());
            EXPECT_EQ("", strangersIn(document)) << page.name;
            const std::string said = interpreted(document, "txtwrite -dTextFormat=0");
            EXPECT_EQ(words, textBetween(" c=\"", "\"/>", said)) << page.name;
        }
    }
}

} // namespace
