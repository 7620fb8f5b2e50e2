// The demo: draws an energy report, stores its pages, replays them, compares, and writes a gallery.
//
//   report [FOLDER]     writes into FOLDER, or into "out"
//
// Each page of reportPages() is drawn on a CSurfaceSVG and stored; the stored page is played on a second
// CSurfaceSVG and stored as well. Both are then played on a surface that writes down its calls. What differs is
// shown and makes the run fail.
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "gallery.h"
#include "metaFilePlayer.h"
#include "reportPages.h"
#include "support/RecordingSurface.h"
#include "surfaceSVG.h"
#include "sys/krnos.h"

namespace {

using Page = std::vector<unsigned char>;
using Calls = std::vector<std::string>;
namespace fs = std::filesystem;

// The ways to make a page. One more way is a line in both lists and its bytes in makePage.
enum Column { Drawn, Replayed, ColumnCount };
constexpr GalleryColumn columns[] = {
    {"Drawn on CSurfaceSVG", ""},
    {"Replayed on CSurfaceSVG", "-replay"},
};
static_assert(std::size(columns) == ColumnCount);

using PageByColumn = std::array<Page, ColumnCount>;

RECT wholePage()
{
    return {0, 0, logicalWidth, logicalHeight};
}

CSurfaceSVG emptyPage()
{
    RECT paper = {0, 0, pageMillimetresWide, pageMillimetresHigh};
    RECT logical = wholePage();
    return CSurfaceSVG(&paper, &logical);
}

Page stored(CSurface& surface)
{
    surface.closeSurface();
    Page page(static_cast<std::size_t>(surface.getDataLength()));
    unsigned int size = static_cast<unsigned int>(page.size());
    surface.getData(page.data(), size);
    page.resize(size);
    return page;
}

bool playOn(CSurface& surface, Page& page)
{
    RECT target = wholePage();
    const std::unique_ptr<CMetaFilePlayer> player(
        CMetaFilePlayer::createPlayer(page.data(), static_cast<unsigned int>(page.size())));
    return player != nullptr && player->play(&surface, &target) == 1;
}

// The calls that a player makes of the page; none when it could not be played.
Calls callsOf(Page& page)
{
    RecordingSurface surface;
    return playOn(surface, page) ? surface.calls() : Calls();
}

// A player ends a clip by one of the whole page, which a replay then keeps: such calls change nothing.
Calls withoutWholePageClips(Calls calls)
{
    RecordingSurface surface;
    RECT whole = wholePage();
    surface.setClippingRegion(&whole);
    std::erase(calls, surface.calls().back());
    return calls;
}

bool hasClips(const Page& page)
{
    const std::string_view text(reinterpret_cast<const char*>(page.data()), page.size());
    return text.find("<g clip-path='") != std::string_view::npos;
}

void showDifference(const Calls& drawn, const Calls& replayed)
{
    constexpr int shownAtMost = 3;
    int shown = 0;
    for (std::size_t i = 0; i < std::max(drawn.size(), replayed.size()) && shown < shownAtMost; ++i) {
        const std::string_view first = i < drawn.size() ? std::string_view(drawn[i]) : "(no more calls)";
        const std::string_view second =
            i < replayed.size() ? std::string_view(replayed[i]) : "(no more calls)";
        if (first != second) {
            ++shown;
            std::printf("  call %zu\n    drawn     %.*s\n    replayed  %.*s\n", i + 1,
                        static_cast<int>(first.size()), first.data(), static_cast<int>(second.size()),
                        second.data());
        }
    }
}

bool writeFile(const fs::path& file, const Page& page)
{
    std::ofstream out(file, std::ios::binary);
    out.write(reinterpret_cast<const char*>(page.data()), static_cast<std::streamsize>(page.size()));
    out.close();
    return out.good();
}

// Has librsvg's rsvg-convert paint the page; false when it can't be run or fails.
bool paint(const fs::path& svg, const fs::path& png)
{
    std::string arguments[] = {"rsvg-convert", "--dpi-x=120", "--dpi-y=120", "--background-color=white",
                               "--output",     png.string(),  svg.string()};
    std::vector<char*> list;
    for (std::string& argument : arguments) {
        list.push_back(argument.data());
    }
    list.push_back(nullptr);
    pid_t child = 0;
    int status = 0;
    return posix_spawnp(&child, list.front(), nullptr, nullptr, list.data(), environ) == 0 &&
           waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

bool writePictures(const fs::path& folder, const ReportPage& page, const GalleryColumn& column,
                   const Page& bytes)
{
    const fs::path svg = folder / fileOf(page, column, ".svg");
    const fs::path png = folder / fileOf(page, column, ".png");
    if (!writeFile(svg, bytes)) {
        std::printf("  cannot write %s\n", svg.c_str());
        return false;
    }
    if (!paint(svg, png)) {
        std::printf("  rsvg-convert made no %s; is librsvg2-bin installed?\n", png.c_str());
        return false;
    }
    return true;
}

// Draws, stores and replays one page.
PageByColumn makePage(const ReportPage& page)
{
    PageByColumn made;
    CSurfaceSVG original = emptyPage();
    page.draw(original);
    made[Drawn] = stored(original);
    CSurfaceSVG copy = emptyPage();
    if (playOn(copy, made[Drawn])) {
        made[Replayed] = stored(copy);
    }
    return made;
}

// The calls of the drawn and of the replayed page must agree, and without clips the bytes as well.
GalleryEntry compare(const ReportPage& page, PageByColumn& made)
{
    GalleryEntry entry = {&page, {}, false, {}};
    for (std::size_t column = 0; column < ColumnCount; ++column) {
        entry.figures.push_back({&columns[column], made[column].size(), callsOf(made[column]).size()});
    }
    const Calls drawn = withoutWholePageClips(callsOf(made[Drawn]));
    const Calls replayed = withoutWholePageClips(callsOf(made[Replayed]));
    const bool sameCalls = !drawn.empty() && drawn == replayed;
    const bool sameBytes = made[Drawn] == made[Replayed];
    const bool clips = hasClips(made[Drawn]);
    entry.agrees = sameCalls && (sameBytes || clips);
    entry.verdict = !sameCalls  ? "The replay differs."
                    : sameBytes ? "The replay is the same page, byte for byte."
                    : clips     ? "The calls agree; clips of the whole page are left out."
                                : "The calls agree, the bytes differ.";
    std::printf("%-10s %7zu bytes %5zu calls   %s\n", page.name, made[Drawn].size(),
                entry.figures[Drawn].calls, entry.verdict.c_str());
    if (!sameCalls) {
        showDifference(drawn, replayed);
    }
    return entry;
}

bool makeReport(const fs::path& folder)
{
    fs::create_directories(folder);
    bool good = true;
    std::vector<GalleryEntry> entries;
    for (const ReportPage& page : reportPages()) {
        PageByColumn made = makePage(page);
        entries.push_back(compare(page, made));
        good &= entries.back().agrees;
        for (std::size_t column = 0; column < ColumnCount; ++column) {
            good &= writePictures(folder, page, columns[column], made[column]);
        }
        std::fflush(stdout);
    }
    const fs::path index = folder / "index.html";
    if (!writeGallery(index, entries)) {
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
