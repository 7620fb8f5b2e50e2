// Command lines of the page tool: what they say, how they end, and what they leave.
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "reportPages.h"
#include "storedPage.h"
#include "support/HandMadeMetafile.h"
#include "surfaceEMF.h"

namespace {

struct ToolCase {
    const char* name;
    const char* commands;   // of a shell; `surfacepage` is the tool, and standard error comes with the output
    int exitCode;           // of the last one
    std::string_view parts; // of the output, in their order, with | between them
    friend void PrintTo(const ToolCase& shown, std::ostream* out) { *out << shown.name; }
};

// In a folder with three pages of the report, each in both formats, and with bad files.
class PageTool : public testing::TestWithParam<ToolCase> {
protected:
    PageTool() : m_folder(testing::TempDir() + "page-tool-" + std::to_string(getpid()))
    {
        std::filesystem::create_directory(m_folder);
        for (const ReportPage& page : reportPages()) {
            const std::string_view name = page.name;
            if (name == "words" || name == "sheet" || name == "pictures") {
                CSurfaceSVG svg = emptyPage();
                RECT frame{0, 0, 21000, 29700};
                CSurfaceEMF metafile(&frame);
                for (CSurface* surface : {static_cast<CSurface*>(&svg), static_cast<CSurface*>(&metafile)}) {
                    drawReportPage(*surface, page);
                }
                write(std::string(page.name) + ".svg", stored(svg));
                write(std::string(page.name) + ".emf", stored(metafile));
            }
        }
        std::filesystem::copy_file(m_folder / "words.emf", m_folder / "cut.emf");
        std::filesystem::resize_file(m_folder / "cut.emf", 4002);
        write("text.svg", toPage("text"));
        write("bare.svg", toPage("<?xml?><!DOCTYPE svg><svg></svg>"));
        write("records.emf", recordsOfAllKinds());
        write("letters.svg", lettersInAllEncodings());
        std::filesystem::create_symlink("nothing", m_folder / "link.png");
    }
    ~PageTool() override { std::filesystem::remove_all(m_folder); }

    // The output; `exitCode` -1: the shell did not run.
    std::string run(const std::string& commands, int& exitCode) const
    {
        const std::string line = "exec 2>&1; cd '" + m_folder.string() +
                                 "' || exit 9; surfacepage() { '" SURFACE_PAGE_TOOL "' \"$@\"; }; " +
                                 commands;
        std::string output;
        std::FILE* const pipe = popen(line.c_str(), "r");
        char buffer[4096];
        while (const std::size_t count = std::fread(buffer, 1, sizeof(buffer), pipe)) {
            output.append(buffer, count);
        }
        const int status = pclose(pipe);
        exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        return output;
    }

private:
    // Texts in all records that have some, from bottom to top, and two pictures, one of them outside of its record.
    static Page recordsOfAllKinds()
    {
        const std::map<std::string, Words> bitmaps = {{"one", {40, 1, -1, 0x180001, 0, 0, 0, 0, 0, 0, 0xFF}}};
        return HandMadeMetafile("POLYTEXTOUTA 0 0 -1 -1 1 0 0 2 1 40 4 120 0 0 0 -1 -1 0 1 50 4 900 0 0 0 -1 "
                                "-1 0 0x64636261;"
                                "POLYTEXTOUTW 0 0 -1 -1 1 0 0 1 1 39 2 80 0 0 0 -1 -1 0 0xDE00D83D;"
                                "POLYTEXTOUTW 0 0 -1 -1 1 0 0 9;"
                                "108 1 38 4 0x300 1 0 0 0xE4636280;"
                                "108 1 37 2 0x000 1 0 0 0 0 9 9 0xD83D20AC;"
                                "EXTTEXTOUTW 7 36 9 39 1 0 0 5 99 2 76 0 0 0 -1 -1 0 0x1000007;"
                                "EXTTEXTOUTA 7 35 9 39 1 0 0 5 99 4 76 0 0 0 -1 -1 0 0x64E46261;"
                                "EXTTEXTOUTW 7 34 9 39 1 0 0 5 99 9999 76 0 0 0 -1 -1 0 0x1000007;"
                                "STRETCHDIBITS 0 0 -1 -1 0 0 0 0 1 1 @one 0 0x00CC0020 1 1; "
                                "CREATEDIBPATTERNBRUSHPT 1 0 9999 40 0 0;"
                                "EXTCREATEFONTINDIRECTW 2;",
                                bitmaps)
            .bytes();
    }
    static Page lettersInAllEncodings()
    {
        CSurfaceSVG svg = emptyPage();
        const char* const texts[] = {"\xC3\xA4 \xE2\x82\xAC \xF0\x9F\x98\x80",
                                     "\xE4 \x80",
                                     "\xC3 \xA4",
                                     "\xED\xA0\x80",
                                     "\xC0\x80",
                                     "\xF4\x90\x80\x80",
                                     "\xE2\x82"};
        POINT place{10, 700};
        for (const char* const text : texts) {
            svg.drawTextAt(text, &place, 0);
            place.y -= 20;
        }
        char onLine[] = "on a line";
        svg.drawTextOnBaseLine(5, 800, 0, nullptr, onLine, 9);
        svg.setTransform(1, 0, 0, 1, 0, -900);
        RECT box{10, 900, 200, 950};
        svg.drawText("first", &box, 0);
        svg.clearTransform();
        return stored(svg);
    }
    static Page toPage(std::string_view text) { return {text.begin(), text.end()}; }
    void write(const std::string& name, const Page& page) const
    {
        std::ofstream(m_folder / name, std::ios::binary)
            .write(reinterpret_cast<const char*>(page.data()), static_cast<std::streamsize>(page.size()));
    }

    const std::filesystem::path m_folder;
};

TEST_P(PageTool, SaysAndLeaves)
{
    int exitCode = -1;
    const std::string output = run(GetParam().commands, exitCode);
    EXPECT_EQ(exitCode, GetParam().exitCode) << output;
    std::size_t place = 0;
    std::istringstream parts{std::string(GetParam().parts)};
    for (std::string part; std::getline(parts, part, '|');) {
        place = output.find(part, place);
        ASSERT_NE(place, std::string::npos) << "no " << part << " in\n" << output;
        place += part.size();
    }
}

const ToolCase Cases[] = {
    {"InfoOfSvg", "surfacepage info words.svg", 0,
     "words.svg\n|SVG page|210 x 297 mm, 794 x 1123 units|79 text|fonts       15|\"Arial\" 9 bold|text       "
     " 79|\"Use\"\n"},
    {"InfoOfMetafile", "surfacepage info -b words.emf", 0,
     "enhanced metafile|793 x 1122 pixels|1 HEADER|page counts 0\n  fonts"},
    {"InfoOfManyInOrder", "surfacepage info -b -j3 words.svg text.svg nowhere sheet.svg 2>&-", 2,
     "words.svg\n|page counts 0|sheet.svg\n|page counts 1"},
    {"BadFiles", "surfacepage info nowhere text.svg . cut.emf", 2,
     "nowhere: can't be read: No such file|text.svg: is neither an SVG page nor|.: can't be read: Is a "
     "directory|cut.emf: ends inside the record"},
    {"PlaysSvgToAll",
     "for e in svg ps emf png; do surfacepage play words.svg -o out.$e || exit; done; cmp words.svg out.svg "
     "&& "
     "surfacepage info -b out.emf && head -c 4 out.ps out.png",
     0, "out.emf\n|793 x 1122|%!PS|\x89PNG"},
    {"PlaysMetafileToTwo",
     "surfacepage play words.emf sheet.emf -j2 --dpi 48 -o 'half-{}.png' && od -An -tu1 -j16 -N8 "
     "half-words.png && "
     "surfacepage play words.emf -o again.EMF && surfacepage info -b again.EMF; surfacepage play words.emf "
     "sheet.svg -o '{}.ps'",
     2,
     "0   0   1 141   0   0   2  49|793 x 1122|words.emf: is an enhanced metafile, which does not play to "
     ".ps"},
    {"PlayLeavesNothingBehind",
     "surfacepage play bare.svg -o a.png; surfacepage play words.svg -o "
     "c.png --dpi 4800; "
     "surfacepage play words.svg -o link.png; surfacepage play words.svg -o no/d.png; ls -A",
     0,
     "bare.svg: has no usable size|39685 x 56126 pixels are too many|link.png: it "
     "is no regular file|"
     "can't write no/d.png: No such "
     "file|bare.svg\ncut.emf\nletters.svg\nlink.png\npictures.emf\npictures.svg\nrecords.emf\nsheet."
     "emf\nsheet.svg\ntext.svg\nwords."
     "emf\nwords.svg\n"},
    {"PlaysManyToOneDocument",
     "surfacepage play words.svg text.svg sheet.emf cut.emf -o r.pdf --title 'A \xC3\xA4' --author B; echo "
     "code $?; qpdf "
     "--check r.pdf | grep -c 'No syntax'; pdfinfo r.pdf | grep -E 'Title|Author|Pages|Page size'; pdffonts "
     "r.pdf | tail -n +3 "
     "| grep -vc 'yes yes yes'; pdftotext r.pdf - | grep -m 2 -E 'Heating 1180 MWh|The use for heating'; "
     "mutool show r.pdf "
     "outline; surfacepage play bare.svg -o none.pdf; ls none.pdf; surfacepage play words.svg -o "
     "words.svg/x.pdf; surfacepage "
     "play words.svg sheet.svg -o '{}.pdf' && surfacepage play words.svg --dpi 48 -o a.png && surfacepage "
     "play words.svg "
     "--pixels --dpi 48 -o b.png && od -An -tu1 -j16 -N8 a.png && cmp -s a.png b.png",
     1,
     "text.svg: is neither|cut.emf: ends inside the record|code 2\n1\nTitle:           A "
     "\xC3\xA4\n|Author:          B\n|Pages:           3\nPage size:       595.276 x 841.89 pts "
     "(A4)\n0\nHeating 1180 "
     "MWh\nThe use for heating|words|sheet|cut|bare.svg: has no usable size|none.pdf'|can't write|  0   0   "
     "1 141   0   0   2  "
     "49"},
    // Poppler takes letters one by one along lines that slant. On a device an ampersand underlines, and what UTF-8 writes as
    // two bytes is two letters.
    {"DocumentsKeepTheirWords",
     "export LC_ALL=C; surfacepage text words.svg | tr -s ' ' '\\n' | sort -u > w; surfacepage play "
     "words.svg -o w.pdf; "
     "pdftotext "
     "w.pdf - | tr -s ' \\f' '\\n' | sort -u > p; comm -23 w p | tr '\\n' ' '; echo; mutool draw -q -F text "
     "w.pdf "
     "| tr -s ' ' '\\n' | sort -u > m; comm -23 w m | tr '\\n' ' '",
     0,
     "& -30° 15° 30° 45° 90° April August CO₂ December February January July June March May November October "
     "September "
     "lineFitted read6Meters \n|\n& -30° 15° 30° 45° 90° CO₂ lineFitted read6Meters "},
    {"PlaysToSvgForViewers",
     "surfacepage play words.svg sheet.emf --plain -o 'plain-{}.svg' && xmllint --noout plain-*.svg && grep "
     "-c DOCTYPE "
     "plain-*.svg; grep -o '>Use<' plain-words.svg && surfacepage play plain-words.svg -o again.svg",
     2, "plain-sheet.svg:0\nplain-words.svg:0\n>Use<|plain-words.svg: is neither an SVG page"},
    {"StampsInPlace",
     "chmod 640 sheet.svg; surfacepage stamp sheet.svg sheet.emf 8 9; stat -c %a sheet.svg; surfacepage find "
     "sheet.svg '8 of 9' && "
     "surfacepage find sheet.emf '9 of 9' && surfacepage stamp words.svg 1 2",
     1, "640\n|hit 1 at (|hit 1 at (|words.svg: shows no page count"},
    {"Finds",
     "surfacepage find words.svg heating; surfacepage find --case --word words.svg Heating; "
     "surfacepage find words.emf words.svg sheet.svg heating",
     1,
     "hit 1 at (60, 120)|hit 6 at (62, 900)|hit 1 at (60, 120)|words.emf: hit 1 at (|words.svg: hit "
     "6|sheet.svg: no hit"},
    {"FindsInEitherEncoding",
     "printf \"<?xml?><!DOCTYPE svg><svg><text x='1' y='2'>caf\\303\\251 au lait</text><text x='1' "
     "y='9'>caf\\351"
     "</text></svg>\" > both.svg; surfacepage find both.svg caf\xC3\xA9; surfacepage find -c both.svg "
     "caf\xE9; "
     "surfacepage find --count words.svg heating",
     0, "hit 1 at (1, 2): caf\xC3\xA9 au lait\n|hit 2 at (1, 9): caf\xC3\xA9\n|2 hits\n6 hits\n"},
    {"MarksAHit",
     "surfacepage find words.svg heating -o m.svg --hit 3 && grep -c \"find='[0-9]*,[1-9]\" m.svg; "
     "surfacepage find words.svg heating -o n.svg --hit 7; ls n.svg; surfacepage find words.svg heating -o "
     "v.svg --show "
     "--hit 2 > no && xmllint --noout v.svg && grep -o '<tspan fill=.*MWh' v.svg",
     0,
     "hit 6|1\n|words.svg: has no hit 7 to mark|n.svg|<tspan fill='rgb(255,0,0)' "
     "text-decoration='underline'>Heating</tspan> 1180 "
     "MWh"},
    {"NoInputIsOverwritten",
     "ln -s words.svg soft.svg; ln words.svg hard.png; for o in words.svg ./soft.svg hard.png; do "
     "surfacepage play --force "
     "words.svg -o $o; surfacepage find --force words.svg heating -o $o; done; surfacepage play sheet.svg -o "
     "'w{}.svg' && surfacepage play --force words.svg -o wsheet.svg && cmp words.svg wsheet.svg && "
     "surfacepage "
     "play words.svg -o wsheet.svg; cmp words.svg hard.png",
     0,
     "can't write words.svg: it is one of the pages that are read|words.svg: it is one|soft.svg: it is "
     "one|soft.svg: it "
     "is one|hard.png: it is one|hard.png: it is one|wsheet.svg: a stored page is there, which --force"},
    {"StampsInOrder",
     "cp sheet.svg p-2.svg; cp sheet.emf p-10.svg; cp sheet.svg p-1.svg; surfacepage stamp -n p-*.svg 1 3; "
     "cmp sheet.svg "
     "p-1.svg && surfacepage stamp --sort p-*.svg 1 3 && surfacepage find p-10.svg '3 of 3'; for a in '0 3' "
     "'2 3' '1 3 "
     "./p-1.svg'; do surfacepage stamp p-*.svg $a; done",
     2,
     "p-10.svg comes before p-2.svg; --sort|p-1.svg: 1 of 3\np-10.svg: 2 of 3\np-2.svg: 3 of 3\np-1.svg: 1 "
     "of "
     "3\np-2.svg: 2 of 3\np-10.svg: 3 of 3\nhit 1 at|counted from 1|the last page would be 4 of 3"},
    {"StampsTheFileItself",
     "ln sheet.svg hard.svg; i=$(stat -c %i sheet.svg); surfacepage stamp sheet.svg 7 9 && test $i = $(stat "
     "-c %i "
     "sheet.svg) && surfacepage find hard.svg '7 of 9'; surfacepage stamp sheet.svg sheet.emf 1000000000 "
     "2000000000; "
     "surfacepage stamp sheet.svg hard.svg 1 2",
     2,
     "7 of 9|hit 1|sheet.svg: has too little room for \"1000000000 of 2000000000\"|sheet.emf: has too little "
     "room for "
     "\"1000000001|sheet.svg and hard.svg are one file"},
    {"CutPages",
     "head -c 120 words.emf >head.emf; surfacepage play head.emf -o no.png; ls no.png; head -c 9000 "
     "sheet.svg >torn.svg; sed 's:</svg>::' sheet.svg >end.svg; for c in info trace text 'find -- x' 'stamp "
     "-- 1 2'; do set -- $c; k=$1; shift; surfacepage $k torn.svg \"$@\" >n; echo $k $?; done; surfacepage "
     "info -b end.svg; surfacepage play cut.emf -o b.png; surfacepage trace cut.emf | tail -n 1; surfacepage "
     "play torn.svg cut.emf -o '{}.ps'; echo $?; surfacepage play torn.svg cut.emf -o '{}.emf'; surfacepage "
     "play cut.emf -o cut2.emf && ls; surfacepage info -b cut2.emf && file=$(ls b.png) && surfacepage play "
     "torn.svg -o torn.png",
     3,
     "head.emf: ends inside the record at byte 108, and nothing of it can be drawn|no.png'|info 2|trace "
     "2|text 2|find 2|so nothing was stamped\nstamp 2|end.svg: is cut short: 1 elements|cut.emf: ends inside "
     "the record at byte 3952: what there is was drawn|torn.svg: is cut short|is an enhanced "
     "metafile|2\n|can't write cut.emf: it is one|enhanced metafile|torn.svg: is cut short"},
    {"PicturesOfAnySize",
     "surfacepage play words.svg --width 400 -o w.png; surfacepage play words.emf --height 283 --crop "
     "10,20,30x40 -o c.png; surfacepage play words.svg --width 30 --height 20 --pixels -o s.png; for p in w "
     "c s; do od -An -tu1 -j16 -N8 $p.png; done; surfacepage play words.svg --quality 40 -o l.jpg && "
     "surfacepage play words.svg -o m.JPEG; test $(stat -c %s l.jpg) -lt $(stat -c %s m.JPEG); echo $?; "
     "surfacepage play words.svg --dpi 48 --crop 80,100,100x80 -o p.jpg && file p.jpg; surfacepage play "
     "words.svg --crop 900,1,1x1 -o n.png; ls n.png",
     2,
     "  0   0   1 144   0   0   2  54\n   0   0   0  30   0   0   0  40\n   0   0   0  30   0   0   0  "
     "20\n0\np.jpg: JPEG image data|, 100x80, |nothing in the part that --crop names|n.png'"},
    {"TakesPicturesOut",
     "surfacepage images pictures.svg records.emf -o 'x-{}'; head -c 4 x-pictures-1.png; od -An -tu1 -N15 "
     "x-records-1.bmp; surfacepage images pictures.svg pictures.emf; surfacepage images letters.svg",
     1,
     "pictures.svg: x-pictures-1.png: |x-pictures-2.jpg|records.emf: x-records-1.bmp: 58 bytes\n\x89PNG|  66 "
     " 77  58   0   0   0   0   0   0   0  54   0   0   0  40\n|would both be written to pictures;|no "
     "picture"},
    {"SpeaksJson",
     "n=$(printf '\\344.svg'); cp letters.svg $n; surfacepage text --json $n; surfacepage find --json "
     "letters.svg '\xE2\x82\xAC' | tail -n 1; surfacepage find --json -c words.svg letters.svg line; "
     "surfacepage info --json pictures.svg words.emf cut.emf",
     2,
     "{\"file\":\"\xC3\xA4.svg\",\"texts\":[|{\"x\":10,\"y\":660,\"text\":\"\xC3\x83 "
     "\xC2\xA4\"}|{\"file\":\"letters.svg\",\"hit\":|{\"file\":\"letters.svg\",\"hits\":1}|\"format\":\"SVG "
     "page\"|\"unit\":\"mm\",\"units\":[794,1123]|\"points\":|\"images\":[{\"id\":|\"type\":\"PNG\"|words."
     "emf|\"unit\":\"pixels\"|\"height\":-|\"damage\":\"ends inside the record"},
    {"Completes",
     "bash -c '. " SURFACE_COMPLETION
     "; for l in im \"play --wi\" \"find words.s\" \"play --format p\"; do COMP_WORDS=(" SURFACE_PAGE_TOOL
     " $l); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _surfacepage; echo ${COMPREPLY[*]}; done'",
     0, "images\n--width\nwords.svg\npdf png ps\n"},
    {"Texts",
     "surfacepage text sheet.svg sheet.emf | sort | uniq -c | sort -rn | head -n 3; surfacepage text "
     "words.svg",
     0, "Use\nThis year\nYear before\nTarget\n"},
    {"TextsOfAllRecords",
     "surfacepage text records.emf; surfacepage info records.emf; surfacepage trace records.emf", 0,
     "ab\xC3\xA4"
     "d\n \xC4\x80\n\xE2\x82\xAC\xEF\xBF\xBD\n\xE2\x82\xAC"
     "bc\xC3\xA4\n\xF0\x9F\x98\x80\nabcd\n|images      1\n    1 x 1 pixels of 24 bits|SMALLTEXTOUT (1, 38)"},
    {"TextsOfAllEncodings", "surfacepage text letters.svg", 0,
     "first\n\xC3\xA2\xE2\x80\x9A\n\xC3\xB4\xC2\x90\xE2\x82\xAC\xE2\x82\xAC\n\xC3\x80\xE2\x82\xAC\n\xC3\xAD"
     "\xC2"
     "\xA0\xE2\x82\xAC\n\xC3\x83 \xC2\xA4\n\xC3\xA4 \xE2\x82\xAC\n\xC3\xA4 \xE2\x82\xAC \xF0\x9F\x98\x80\non "
     "a "
     "line\n"},
    {"Traces", "surfacepage trace words.svg && surfacepage trace sheet.emf cut.emf", 2,
     "prepareSurface 794x1123 210x297 794x1123\ndrawSolidRectangle|setFont \"Arial\" 8|sheet.emf: 0 HEADER "
     "|EXTCREATEFONTINDIRECTW 1 \"Arial\" height -12 bold\n|GDICOMMENT \"TPC|EOF 0 16 20\n|cut.emf: 0 "
     "HEADER"},
    {"StreamsListsAndFolders",
     "surfacepage find - heating < words.svg | tail -n 1; surfacepage play words.svg sheet.emf -o - > "
     "all.pdf && pdfinfo "
     "all.pdf | grep Pages; surfacepage play --format png -o - - < words.svg | od -An -tc -N4; mkdir -p a/b "
     "&& cp "
     "words.svg a/b/p10.svg && cp words.emf a/p2.emf && cp words.svg a/b/p9.SVG; surfacepage find -rc a "
     "heating; ls "
     "a/b/*.svg | surfacepage text -q --files-from -; echo code $?; printf 'a/p2.emf\\0' | surfacepage find "
     "-c -0 "
     "--files-from - Words; surfacepage find -q words.svg nowhere; echo code $?; surfacepage stamp - 1 2; ls "
     "-d "
     "${TMPDIR:-/tmp}/surfacepage-*; true",
     0,
     "hit 6 at (62, 900)|Pages:           2\n| 211   P   N   G\n|a/b/p9.SVG: 6 hits\na/b/p10.svg: 6 "
     "hits\na/p2.emf: "
     "|code 0\n1 hit\n|code 1\n|standard input can't be stamped|No such file"},
    {"WrongArguments",
     "surfacepage play words.svg -o out.txt; surfacepage play words.svg sheet.svg -o out.png; surfacepage "
     "play words.svg "
     "-o o.ps --dpi 9; surfacepage stamp words.svg 3; surfacepage find words.svg ''; surfacepage stamp "
     "words.svg -- -1 3; surfacepage foo words.svg; surfacepage play words.svg -o a.png --dpi 150dpi; : > "
     "-x.svg; "
     "surfacepage info -x.svg",
     2,
     "none of the endings|words.svg and sheet.svg would both be written to out.png|--dpi is for .png and "
     ".jpg only|N "
     "is required|"
     "TEXT: is empty|-1 is no page number|foo is no command|150dpi is no number|-x.svg looks like an option: "
     "write --"},
    {"OutputIsLost", "surfacepage trace words.svg >/dev/full", 2,
     "standard output can't be written: No space"},
};
INSTANTIATE_TEST_SUITE_P(Commands, PageTool, testing::ValuesIn(Cases),
                         [](const auto& shown) { return shown.param.name; });

} // namespace
