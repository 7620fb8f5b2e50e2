// The gallery's HTML; see gallery.h. Its texts are the program's own, so nothing in them needs escaping.
#include "gallery.h"

#include <fstream>
#include <ostream>

#include "reportPages.h"
#include "trapPictures.h"
#include "traps.h"

namespace {

constexpr const char* Head = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>surface: an energy report, drawn, replayed, printed and recorded</title>
<style>
:root { color-scheme: light dark; --text: #23334a; --soft: #5d6b7e; --ground: #f2f5f8; --card: #fff;
        --line: #d5dce4; --good: #1d7a4b; --bad: #b3261e; }
@media (prefers-color-scheme: dark) {
  :root { --text: #e3e9f0; --soft: #9dabbc; --ground: #14191f; --card: #1d242c; --line: #35404c;
          --good: #6fd3a0; --bad: #ff9a90; }
}
body { margin: 0 auto; max-width: 84rem; padding: 2rem 1.25rem 4rem; background: var(--ground);
       color: var(--text); font: 1rem/1.55 system-ui, sans-serif; }
h1 { margin: 0; font-size: 1.7rem; }
h2 { margin: 0; font-size: 1.2rem; }
p { margin: .3rem 0 0; max-width: 62rem; color: var(--soft); }
section { margin-top: 1.75rem; padding: 1.25rem; background: var(--card); border: 1px solid var(--line);
          border-radius: .6rem; }
.columns { display: grid; grid-template-columns: repeat(auto-fit, minmax(20rem, 1fr)); gap: 1.25rem;
           margin-top: 1rem; }
.hits { grid-template-columns: repeat(auto-fit, minmax(17rem, 1fr)); }
figure { margin: 0; }
/* The pages have no ground of their own: they are printed on paper. */
figure img { display: block; width: 100%; aspect-ratio: 210 / 297; background: #fff;
             border: 1px solid var(--line); }
figcaption { display: flex; flex-wrap: wrap; gap: .1rem .9rem; margin-top: .5rem; color: var(--soft);
             font-size: .9rem; }
figcaption b { color: var(--text); }
.trap { width: 100%; max-width: 72rem; margin-top: 1rem; background: #fff; }
.found { position: relative; }
/* The search gives the place where a text with the word begins: the frame is open to its right. */
.found i { position: absolute; width: 11%; height: 1.9%; margin: -.3% 0 0 -.5%;
           border: 2px solid #d32f2f; border-right: 0; border-radius: 3px 0 0 3px;
           background: linear-gradient(90deg, #fff3a0, #fff); mix-blend-mode: multiply; }
.verdict { font-weight: 600; color: var(--good); }
.verdict.differs { color: var(--bad); }
a { color: inherit; }
</style>
</head>
<body>
<h1>An energy report, drawn, replayed, printed and recorded</h1>
<p>Each page was drawn through <code>CSurface</code>, stored as bytes, and played from those bytes on a second
surface. Both pages were then played once more on a surface that only writes down its calls, and the two lists
were compared. The page counts at the foot were stamped into the stored bytes when the number of pages was
known.</p>
<p><a href="report.pdf">report.pdf</a> holds all pages, played on a device that makes a document of them; the third picture is
the same as that device paints it. The next one is the page for viewers: SVG that shows what the pixels do, and that no
player takes. Then comes the stored page played on a surface that writes PostScript, painted by
Ghostscript; one page was drawn on that surface itself as well. Then comes the stored page played on a device of 150 dots per inch. The last
column is the report drawn a second time, on a surface that records an enhanced metafile; the metafile was stamped,
asked its size in dots of its reference device, searched for the word below, and played on such a device. Of one such
page the copy that marks the first hit is shown too.</p>
)";

constexpr const char* Foot = R"(</body>
</html>
)";

void writeFigure(std::ostream& out, const GalleryEntry& entry, const GalleryFigure& figure)
{
    const GalleryColumn& column = *figure.column;
    const std::string file = fileOf(*entry.page, column);
    const std::string png = pictureOf(*entry.page, column);
    const std::string& shown = file.ends_with(".svg") ? file : png;
    out << "<figure>\n<a href=\"" << shown << "\"><img src=\"" << shown << "\" alt=\"" << entry.page->title
        << ": " << column.title << "\"></a>\n<figcaption><b>" << column.title << "</b>";
    if (figure.bytes != 0) {
        out << "<span>" << figure.bytes << " bytes</span>";
    }
    for (const std::string& fact : figure.facts) {
        out << "<span>" << fact << "</span>";
    }
    if (!column.isPicture) {
        out << "<a href=\"" << file << "\">" << file.substr(file.rfind('.') + 1) << "</a>";
    }
    out << "<a href=\"" << png << "\">png</a></figcaption>\n</figure>\n";
}

void writePage(std::ostream& out, const GalleryEntry& entry)
{
    out << "<section>\n<h2>" << entry.page->title << "</h2>\n<p>" << entry.page->caption
        << "</p>\n<p class=\"verdict" << (entry.agrees ? "" : " differs") << "\">" << entry.verdict
        << "</p>\n<div class=\"columns\">\n";
    for (const GalleryFigure& figure : entry.figures) {
        writeFigure(out, entry, figure);
    }
    out << "</div>\n</section>\n";
}

double percent(LONG part, int whole)
{
    return 100.0 * part / whole;
}

// The pages with hits once more, a frame over each place.
void writeHits(std::ostream& out, const std::vector<GalleryEntry>& entries, const char* wantedWord)
{
    std::size_t total = 0;
    for (const GalleryEntry& entry : entries) {
        total += entry.hits.size();
    }
    out << "<section>\n<h2>Where \xE2\x80\x9C" << wantedWord << "\xE2\x80\x9D is</h2>\n<p>" << total
        << " hits on stored pages, in capital and small letters, also where two runs share the word. The "
           "search "
           "gives back where the text with the word begins, and each frame begins there; a text turned by "
           "its "
           "line begins at the point that it is turned about.</p>\n<div class=\"columns hits\">\n";
    for (const GalleryEntry& entry : entries) {
        if (entry.hits.empty()) {
            continue;
        }
        const std::string svg = fileOf(*entry.page, *entry.figures.front().column);
        out << "<figure>\n<div class=\"found\"><img src=\"" << svg << "\" alt=\"" << entry.page->title
            << ", hits framed\">";
        for (const POINT& place : entry.hits) {
            out << "\n<i style=\"left:" << percent(place.x, LogicalWidth)
                << "%;top:" << percent(place.y, LogicalHeight) << "%\"></i>";
        }
        out << "</div>\n<figcaption><b>" << entry.page->title << "</b><span>" << entry.hits.size()
            << (entry.hits.size() == 1 ? " hit" : " hits") << "</span></figcaption>\n</figure>\n";
    }
    out << "</div>\n</section>\n";
}

// What back ends do otherwise, each beside its picture.
void writeTraps(std::ostream& out)
{
    out << "<section>\n<h2>What back ends do otherwise</h2>\n<p>The same calls on four back ends, one small "
           "sheet "
           "each. None of what is said of viewers is so in PDF, in pictures, or in the SVG for viewers. The "
           "page "
           "format stays: pages are made to be played, and a player gives back what was drawn. The project's "
           "page "
           "docs/drawing.md says more.</p>\n</section>\n";
    for (const Trap& trap : traps()) {
        const std::string png = std::string(TrapPrefix) + trap.name + ".png";
        out << "<section>\n<h2>" << trap.title << "</h2>\n<p>" << trap.caption << "</p>\n<a href=\"" << png
            << "\"><img class=\"trap\" src=\"" << png << "\" alt=\"" << trap.title
            << " on four back ends\"></a>\n</section>\n";
    }
}

} // namespace

std::string fileOf(const ReportPage& page, const GalleryColumn& column)
{
    return column.isPicture ? pictureOf(page, column)
                            : std::string(column.folder) + page.name + column.ending;
}

std::string pictureOf(const ReportPage& page, const GalleryColumn& column)
{
    return std::string(PictureFolder) + page.name + column.pictureEnding;
}

bool writeGallery(const std::filesystem::path& file, const std::vector<GalleryEntry>& entries,
                  const char* wantedWord)
{
    std::ofstream out(file);
    out << Head;
    for (const GalleryEntry& entry : entries) {
        writePage(out, entry);
    }
    writeHits(out, entries, wantedWord);
    writeTraps(out);
    out << Foot;
    out.close();
    return out.good();
}
