// The demo: draws an energy report, stores its pages, stamps, replays, compares and searches them, and writes a
// gallery.
//
//   report [FOLDER]     writes into FOLDER, or into "out": stored pages, documents and index.html; all else below
//
// Each page of reportPages() is drawn on a CSurfaceSVG and stored. When all are there, the pages that show a
// page count get it stamped into their bytes. Each page is played on a second CSurfaceSVG and stored as well;
// both are then played on a surface that writes down its calls. What differs is shown and makes the run fail.
// The stored pages become one document, report.pdf, and smooth pictures.
// Each stored page is also played on a CSurfacePSPrinter, and one is drawn on such a surface itself; and on a
// CSurfaceHdc over a device that paints pixels. The report is drawn a second time on CSurfaceEMF: its metafiles are
// stamped, sized, searched and played as pixels too.
#include <array>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "comparison.h"
#include "devicePage.h"
#include "gallery.h"
#include "metaFilePlayer.h"
#include "metafilePage.h"
#include "pageSearch.h"
#include "painters.h"
#include "pictures.h"
#include "reportDocument.h"
#include "reportPages.h"
#include "storedPage.h"
#include "sys/krnos.h"
#include "trapPictures.h"
#include "traps.h"

namespace {

namespace fs = std::filesystem;

// The ways to make a page. One more way is a line in both lists and its bytes in makeEntry.
enum Column {
    Drawn,
    Replayed,
    Smooth,
    Plain,
    Printed,
    PrintedDirectly,
    Pixels,
    Recorded,
    HitOnMetafile,
    HitOnPage,
    ColumnCount
};
constexpr const char* PlainFolder = "plain/";
constexpr const char* SmoothEnding = "-smooth.png";
constexpr GalleryColumn Columns[] = {
    {"Drawn on CSurfaceSVG", "", ".svg", ".png"},
    {"Replayed on CSurfaceSVG", PictureFolder, "-replay.svg", "-replay.png"},
    {"Page of report.pdf, as a smooth picture", "", "", SmoothEnding, true},
    {"For viewers, as SVG", PlainFolder, ".svg", "-plain.png"},
    {"Replayed on CSurfacePSPrinter", "", ".ps", "-print.png"},
    {"Drawn on CSurfacePSPrinter", PictureFolder, "-direct.ps", "-direct.png"},
    {"Replayed on CSurfaceHdc", "", "", "-pixels.png", true},
    {"Drawn on CSurfaceEMF, played as pixels", "", ".emf", "-metafile.png"},
    {"The first hit on the metafile", PictureFolder, "-found.emf", "-found.png"},
    {"The first hit on the SVG page, for viewers", PictureFolder, "-hit.svg", "-hit.png"},
};
static_assert(std::size(Columns) == ColumnCount);

using PageByColumn = std::array<Page, ColumnCount>;

// Occurs in headings, table cells, captions and runs, and once in two runs that share it.
constexpr const char* WantedWord = "heating";

// The page of which a marked copy is shown.
constexpr std::string_view MarkedPage = "words";

const std::string FontMapName = std::string(PictureFolder).append("Fontmap");

constexpr double DotsPerInch = 120;
constexpr int DeviceDotsPerInch = 150;

// A page to be painted, as bytes and as the file that holds them.
struct Painting {
    Page& page;
    fs::path file;
    fs::path png;
    fs::path fontMap;
};

bool paintOnDevice(const Painting& painting)
{
    if (painting.png.string().ends_with(SmoothEnding)) {
        return paintSmoothly(painting.page, painting.png, DeviceDotsPerInch);
    }
    return paintPixels(painting.page, painting.png, DeviceDotsPerInch);
}

// By the extension of the page's file: what paints it, and where that comes from.
struct Painter {
    const char* extension;
    const char* program;
    const char* package;
    bool (*paint)(const Painting& painting);
};
constexpr Painter Painters[] = {
    {".svg", "rsvg-convert", "librsvg2-bin",
     [](const Painting& painting) {
         return paintSvg(painting.file, painting.png, DotsPerInch);
     }},
    {".ps", "Ghostscript", "ghostscript",
     [](const Painting& painting) {
         return paintPostScript(painting.file, painting.png, DotsPerInch, painting.fontMap);
     }},
    {".emf", "The device", "libfreeimage3", paintOnDevice},
    {".png", "The device", "libfreeimage3", paintOnDevice},
};

// Writes the page and has it painted. A page that is nothing but its picture is not written.
bool writePictures(const fs::path& folder, const ReportPage& page, const GalleryColumn& column, Page& bytes)
{
    const Painting painting = {bytes, folder / fileOf(page, column), folder / pictureOf(page, column),
                               folder / FontMapName};
    if (!column.isPicture && !pages::saveFile(painting.file.string(), bytes)) {
        std::printf("  cannot write %s\n", painting.file.c_str());
        return false;
    }
    for (const Painter& painter : Painters) {
        if (painting.file.extension() == painter.extension && !painter.paint(painting)) {
            std::printf("  %s made no %s; is %s installed?\n", painter.program, painting.png.c_str(),
                        painter.package);
            return false;
        }
    }
    return true;
}

Page drawPage(const ReportPage& page)
{
    CSurfaceSVG surface = emptyPage();
    drawReportPage(surface, page);
    return stored(surface);
}

// Stamps number and total into the pages that show them; false when one could not be stamped.
bool stampPages(std::vector<Page>& pages)
{
    bool good = true;
    const int total = static_cast<int>(pages.size());
    for (int number = 1; number <= total; ++number) {
        Page& page = pages[static_cast<std::size_t>(number - 1)];
        const ReportPage& drawing = reportPages()[static_cast<std::size_t>(number - 1)];
        const bool stamped = pages::stamp(page, number, total);
        if (stamped != drawing.counted) {
            std::printf("%-10s the page count was %s\n", drawing.name, stamped ? "stamped" : "not stamped");
            good = false;
        }
    }
    return good;
}

std::string counted(std::size_t number, const char* thing)
{
    return std::to_string(number).append(" ").append(thing).append(number == 1 ? "" : "s");
}

std::vector<std::string> factsOf(Column column, Page& page)
{
    if (column == Drawn || column == Replayed) {
        return {counted(callsOf(page).size(), "call")};
    }
    if (column != Recorded) {
        return {};
    }
    unsigned int width = 0;
    unsigned int height = 0;
    CMetaFilePlayer::getImageSize(page.data(), static_cast<int>(page.size()), width, height);
    return {std::to_string(width).append(" by ").append(std::to_string(height)).append(" dots"),
            counted(findAll(page, WantedWord).size(), "hit")};
}

GalleryEntry makeEntry(const ReportPage& page, PageByColumn& made)
{
    made[Replayed] = replayed(made[Drawn]);
    made[Printed] = printed(made[Drawn]);
    if (page.name == DirectPage) {
        made[PrintedDirectly] = printedDirectly(page);
    }
    made[Pixels] = made[Drawn];
    made[Smooth] = made[Drawn];
    made[Plain] = forViewers(made[Drawn]);
    if (page.name == MarkedPage) {
        made[HitOnMetafile] = firstHitShown(made[Recorded], WantedWord);
        made[HitOnPage] = firstHitShown(made[Drawn], WantedWord);
    }
    const Comparison comparison = compareReplay(made[Drawn], made[Replayed]);
    GalleryEntry entry = {&page, {}, comparison.agrees, comparison.verdict, findAll(made[Drawn], WantedWord)};
    for (std::size_t i = 0; i < ColumnCount; ++i) {
        if (!made[i].empty()) {
            const Column column = static_cast<Column>(i);
            entry.figures.push_back(
                {&Columns[i], Columns[i].isPicture ? 0 : made[i].size(), factsOf(column, made[i])});
        }
    }
    std::printf("%-10s %7zu bytes %10s %3zu hits   %s\n", page.name, made[Drawn].size(),
                entry.figures[Drawn].facts.front().c_str(), entry.hits.size(), entry.verdict.c_str());
    return entry;
}

bool makeReport(const fs::path& folder)
{
    fs::create_directories(folder / PictureFolder);
    fs::create_directories(folder / PlainFolder);
    if (!canEncodePictures()) {
        std::printf("FreeImage is not there: the page of pictures has places without pictures.\n");
    }
    if (!writeFontMap(folder / FontMapName)) {
        std::printf("fc-match named no font file: PostScript is painted in Ghostscript's own faces.\n");
    }
    std::vector<Page> pages;
    std::vector<Page> metafiles;
    for (const ReportPage& page : reportPages()) {
        pages.push_back(drawPage(page));
        metafiles.push_back(recorded(page));
    }
    bool good = stampPages(pages);
    good &= stampPages(metafiles);
    if (!writeReport(pages, folder / "report.pdf")) {
        std::printf("cannot write %s\n", (folder / "report.pdf").c_str());
        good = false;
    }
    std::vector<GalleryEntry> entries;
    for (std::size_t i = 0; i < pages.size(); ++i) {
        const ReportPage& page = reportPages()[i];
        PageByColumn made;
        made[Drawn] = std::move(pages[i]);
        made[Recorded] = std::move(metafiles[i]);
        entries.push_back(makeEntry(page, made));
        good &= entries.back().agrees;
        for (std::size_t column = 0; column < ColumnCount; ++column) {
            good &= made[column].empty() || writePictures(folder, page, Columns[column], made[column]);
        }
        std::fflush(stdout);
    }
    for (const Trap& trap : traps()) {
        good &= paintTrap(trap, folder, folder / FontMapName);
    }
    const fs::path index = folder / "index.html";
    if (!writeGallery(index, entries, WantedWord)) {
        std::printf("cannot write %s\n", index.c_str());
        return false;
    }
    std::printf("\nLook at %s\n", index.c_str());
    return good;
}

} // namespace

int main(int count, char** arguments)
{
    try {
        return makeReport(fs::absolute(count > 1 ? arguments[1] : "out")) ? 0 : 1;
    } catch (const KrnException& failure) {
        std::fprintf(stderr, "report: out of memory (%d)\n", failure.number());
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "report: %s\n", failure.what());
    }
    return 1;
}
