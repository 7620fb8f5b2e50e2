// Documents run by a real interpreter: values that the procedures leave, and the words of the demo's pages.
#include "PostScriptPage.h"

#include <cctype>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>

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
    std::string document = documentOf([](CSurfacePSPrinter& s) {
        char face[] = "Helvetica";
        POINT point{};
        s.setFont(face, 10, false, false, false, false);
        s.drawTextAt("", &point, 1);
        s.drawTextAt("", &point, 2);
        s.drawFocusRect(in({0, 0, 9, 9}));
        s.frameRect(in({0, 0, 9, 9}), 0);
        s.drawSolidRectangle(in({0, 0, 9, 9}), 0);
    });
    document.insert(
        document.rfind("\nshowpage"),
        "/at {currentpoint pop round cvi =} def 10 -50 moveto 60 false false (abc) jshow at "
        "10 -50 moveto 0 true true (abc) jshow (abc) stringwidth pop neg 0 rmoveto at "
        "99 -50 moveto (abc) rightshow at 99 -50 moveto (abc) middleshow (abc) stringwidth pop -2 div 0 "
        "rmoveto at "
        "0 1 0 setrgbcolor 5 setlinewidth 1 0 0 1 2 3 4 framerect 1 2 3 4 focusrect 1 0 0 1 2 3 4 solidrect "
        "currentlinewidth cvi = currentrgbcolor cvi = cvi = cvi = currentdash pop length = count =");
    EXPECT_EQ("70\n10\n99\n99\n5\n0\n1\n0\n0\n0\n", interpreted(document, "nullpage"));
}

// The words of a document outside of strings, comments and samples; names keep their slash.
std::set<std::string> namesIn(const std::string& document)
{
    std::string code;
    for (std::size_t i = 0; i < document.size(); ++i) {
        const char c = document[i];
        if (c == '%') {
            i = document.find('\n', i);
        } else if (c == '(') {
            while (document[++i] != ')') {
                i += document[i] == '\\' ? 1 : 0;
            }
        } else if (c == '<' && std::isxdigit(static_cast<unsigned char>(document[i + 1])) != 0) {
            i = document.find('>', i);
        } else if (document.compare(i, 6, "image\n") == 0) {
            code += "image ";
            i = document.find('>', i);
        } else {
            code += c == '/' ? " /" : std::string(1, std::strchr("{}[]<>", c) != nullptr ? ' ' : c);
        }
    }
    std::istringstream words(code);
    std::set<std::string> names{std::istream_iterator<std::string>(words), {}};
    std::erase_if(names,
                  [](const std::string& word) { return std::strchr("-0123456789.", word[0]) != nullptr; });
    return names;
}

// PLRM, second edition, chapter 8: those of its operators that a page has a use for.
constexpr const char* LevelTwoOperators =
    "abs add anchorsearch and arc arcto ashow begin bind clip clippath closepath concat concatmatrix copy "
    "currentfile currentfont currentmatrix cvi def dict div dtransform dup end eq exch exec exit exp false "
    "fill "
    "filter findfont floor for forall get getinterval grestore gsave gt idiv if ifelse image index "
    "invertmatrix "
    "length lineto ln log loop lt makepattern matrix maxlength moveto mul ne neg newpath not or pop put "
    "readstring "
    "rectfill rectstroke repeat rlineto rmoveto roll rotate scale scalefont search setcolor setcolorspace "
    "setdash "
    "setfont setlinecap setlinejoin setlinewidth setmatrix setpattern setrgbcolor show showpage string "
    "stringwidth "
    "stroke sub translate true type";

// Names that are neither operators of level 2 nor defined by the document. Interpreters of today take more than
// level 2, so they can't tell.
std::string strangersIn(const std::string& document)
{
    std::istringstream operators(LevelTwoOperators);
    const std::set<std::string> known{std::istream_iterator<std::string>(operators), {}};
    const std::set<std::string> names = namesIn(document);
    std::string strangers;
    for (const std::string& name : names) {
        const bool isKnown = name.front() == '/' || known.contains(name) || names.contains("/" + name);
        strangers += isKnown ? "" : name + " ";
    }
    return strangers;
}

// Letters and figures of what is between each pair of marks, without tags and entities: a byte above 127 is
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
        std::vector<Page> documents = {printed(svg)};
        if (page.name == DirectPage) {
            documents.push_back(printedDirectly(page));
        }
        for (const Page& bytes : documents) {
            const std::string document(bytes.begin(), bytes.end());
            EXPECT_EQ("", strangersIn(document)) << page.name;
            const std::string said = interpreted(document, "txtwrite -dTextFormat=0");
            EXPECT_EQ(words, textBetween(" c=\"", "\"/>", said)) << page.name;
        }
    }
}

} // namespace
