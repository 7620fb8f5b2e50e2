// The demo: draws an energy report, stores its pages, stamps, replays, compares and searches them, and writes a
// gallery.
//
//   report [FOLDER]     writes into FOLDER, or into "out"
//
// Each page of reportPages() is drawn on a CSurfaceSVG and stored. When all are there, the pages that show a
// page count get it stamped into their bytes. Each page is played on a second CSurfaceSVG and stored as well;
// both are then played on a surface that writes down its calls. What differs is shown and makes the run fail.
// Each stored page is also played on a CSurfacePSPrinter, and one is drawn on such a surface itself.
#include <array>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "comparison.h"
#include "gallery.h"
#include "metaFilePlayer.h"
#include "pageSearch.h"
#include "painters.h"
#include "pictures.h"
#include "reportPages.h"
#include "storedPage.h"
#include "sys/krnos.h"

namespace {

namespace fs = std::filesystem;

// The ways to make a page. One more way is a line in both lists and its bytes in makeEntry.
enum Column { Drawn, Replayed, Printed, PrintedDirectly, ColumnCount };
constexpr GalleryColumn columns[] = {
    {"Drawn on CSurfaceSVG", "", ".svg"},
    {"Replayed on CSurfaceSVG", "-replay", ".svg"},
    {"Replayed on CSurfacePSPrinter", "-print", ".ps"},
    {"Drawn on CSurfacePSPrinter", "-direct", ".ps"},
};
static_assert(std::size(columns) == ColumnCount);

using PageByColumn = std::array<Page, ColumnCount>;

// Stands in headings, table cells, captions and runs, and once in two runs that share it.
constexpr const char* wantedWord = "heating";

constexpr const char* fontMapName = "Fontmap";

bool writeFile(const fs::path& file, const Page& page)
{
    std::ofstream out(file, std::ios::binary);
    out.write(reinterpret_cast<const char*>(page.data()), static_cast<std::streamsize>(page.size()));
    out.close();
    return out.good();
}

// Writes the page and has it painted.
bool writePictures(const fs::path& folder, const ReportPage& page, const GalleryColumn& column,
                   const Page& bytes)
{
    const fs::path file = folder / fileOf(page, column, column.extension);
    const fs::path png = folder / fileOf(page, column, ".png");
    if (!writeFile(file, bytes)) {
        std::printf("  cannot write %s\n", file.c_str());
        return false;
    }
    constexpr double dotsPerInch = 120;
    const bool isSvg = file.extension() == ".svg";
    const bool painted = isSvg ? paintSvg(file, png, dotsPerInch)
                               : paintPostScript(file, png, dotsPerInch, folder / fontMapName);
    if (!painted) {
        std::printf("  %s made no %s; is %s installed?\n", isSvg ? "rsvg-convert" : "Ghostscript",
                    png.c_str(), isSvg ? "librsvg2-bin" : "ghostscript");
    }
    return painted;
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
        const bool stamped =
            CMetaFilePlayer::insertPageCount(page.data(), static_cast<int>(page.size()), number, total);
        if (stamped != drawing.counted) {
            std::printf("%-10s the page count was %s\n", drawing.name, stamped ? "stamped" : "not stamped");
            good = false;
        }
    }
    return good;
}

GalleryEntry makeEntry(const ReportPage& page, PageByColumn& made)
{
    made[Replayed] = replayed(made[Drawn]);
    made[Printed] = printed(made[Drawn]);
    if (page.name == directPage) {
        made[PrintedDirectly] = printedDirectly(page);
    }
    const Comparison comparison = compareReplay(made[Drawn], made[Replayed]);
    GalleryEntry entry = {&page, {}, comparison.agrees, comparison.verdict, findAll(made[Drawn], wantedWord)};
    for (std::size_t column = 0; column < ColumnCount; ++column) {
        if (made[column].empty()) {
            continue;
        }
        const bool playable = column == Drawn || column == Replayed;
        entry.figures.push_back(
            {&columns[column], made[column].size(), playable ? callsOf(made[column]).size() : 0});
    }
    std::printf("%-10s %7zu bytes %5zu calls %3zu hits   %s\n", page.name, made[Drawn].size(),
                entry.figures[Drawn].calls, entry.hits.size(), entry.verdict.c_str());
    return entry;
}

bool makeReport(const fs::path& folder)
{
    fs::create_directories(folder);
    if (!canEncodePictures()) {
        std::printf("FreeImage is not there: the page of pictures has places without pictures.\n");
    }
    if (!writeFontMap(folder / fontMapName)) {
        std::printf("fc-match named no font file: PostScript is painted in Ghostscript's own faces.\n");
    }
    std::vector<Page> pages;
    for (const ReportPage& page : reportPages()) {
        pages.push_back(drawPage(page));
    }
    bool good = stampPages(pages);
    std::vector<GalleryEntry> entries;
    for (std::size_t i = 0; i < pages.size(); ++i) {
        const ReportPage& page = reportPages()[i];
        PageByColumn made = {std::move(pages[i])};
        entries.push_back(makeEntry(page, made));
        good &= entries.back().agrees;
        for (std::size_t column = 0; column < ColumnCount; ++column) {
            good &= made[column].empty() || writePictures(folder, page, columns[column], made[column]);
        }
        std::fflush(stdout);
    }
    const fs::path index = folder / "index.html";
    if (!writeGallery(index, entries, wantedWord)) {
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
