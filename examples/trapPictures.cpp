// Four back ends beside one another; see trapPictures.h.
#include "trapPictures.h"

#include <string>

#include <gdidevice.h>

#include "metafilePage.h"
#include "painters.h"
#include "storedPage.h"
#include "surfaceEMF.h"
#include "surfaceHdc.h"
#include "traps.h"

namespace {

namespace fs = std::filesystem;

constexpr int DotsPerInch = 144; // one and a half to a unit
constexpr RECT Sheet = {0, 0, TrapWide, TrapHigh};
constexpr RECT Dots = {0, 0, TrapWide * 3 / 2, TrapHigh * 3 / 2};

HDC makeSheet()
{
    GdiDeviceOptions options;
    options.width = Dots.right;
    options.height = Dots.bottom;
    options.dpi = DotsPerInch;
    return gdiCreateDevice(&options);
}

bool save(HDC device, const fs::path& png)
{
    const bool saved = gdiSavePng(device, png.string().c_str());
    DeleteDC(device);
    return saved;
}

// What a player would set.
void setSizes(CSurface& surface)
{
    surface.m_width = TrapWide;
    surface.m_height = TrapHigh;
    surface.m_pageWidth = TrapMillimetresWide;
    surface.m_pageHeight = TrapMillimetresHigh;
    surface.m_outputWidth = Dots.right;
    surface.m_outputHeight = Dots.bottom;
}

void stamp(Page& page)
{
    pages::stamp(page, 3, 12);
}

struct Target {
    const Trap& trap;
    fs::path stem; // of all its files
    fs::path fontMap;
};

bool asViewed(const Target& target, const fs::path& png)
{
    RECT millimetres = {0, 0, TrapMillimetresWide, TrapMillimetresHigh};
    RECT logical = Sheet;
    CSurfaceSVG surface(&millimetres, &logical);
    target.trap.draw(surface);
    Page page = stored(surface);
    stamp(page);
    const fs::path file = target.stem.string() + ".svg";
    return pages::saveFile(file.string(), page) && paintSvg(file, png, DotsPerInch);
}

bool asPrinted(const Target& target, const fs::path& png)
{
    CSurfacePSPrinter surface(0, 0);
    setSizes(surface);
    target.trap.draw(surface);
    const fs::path file = target.stem.string() + ".ps";
    constexpr double PointsPerMillimetre = 2.83465;
    return pages::saveFile(file.string(), stored(surface)) &&
           paintPostScript(file, png, DotsPerInch, target.fontMap,
                           {static_cast<int>(TrapMillimetresWide * PointsPerMillimetre),
                            static_cast<int>(TrapMillimetresHigh * PointsPerMillimetre)});
}

bool asPixels(const Target& target, const fs::path& png)
{
    const HDC device = makeSheet();
    {
        CSurfaceHdc surface(device);
        setSizes(surface);
        surface.prepareSurface();
        target.trap.draw(surface);
    }
    return save(device, png);
}

bool asRecorded(const Target& target, const fs::path& png)
{
    Page page = recorded({TrapMillimetresWide, TrapMillimetresHigh}, {TrapWide, TrapHigh}, target.trap.draw);
    stamp(page);
    const HDC device = makeSheet();
    {
        CSurfaceHdc surface(device);
        playOn(surface, page, Dots);
    }
    return save(device, png);
}

struct BackEnd {
    const char* title;
    const char* ending;
    bool (*paint)(const Target& target, const fs::path& png);
};
constexpr BackEnd BackEnds[] = {
    {"SVG page in a viewer (librsvg)", "-page.png", asViewed},
    {"PostScript (Ghostscript)", "-print.png", asPrinted},
    {"Pixels (CSurfaceHdc)", "-pixels.png", asPixels},
    {"Metafile (CSurfaceEMF), played", "-metafile.png", asRecorded},
};

// A picture with its title above it, in the place of this number, two beside one another.
void place(CSurface& surface, int number, const BackEnd& backEnd, const fs::path& png)
{
    constexpr LONG Title = 30;
    constexpr LONG Gap = 8;
    const LONG left = Gap + number % 2 * (Dots.right + Gap);
    const LONG top = Title + number / 2 * (Dots.bottom + Title);
    pages::setFont(surface, "Arial", 9, {.bold = true});
    surface.setTextColor(pages::rgb(70, 80, 95));
    surface.drawTextAt(backEnd.title, pages::temporary(POINT{left, top - Title + 7}), 0);
    RECT box = {left, top, left + Dots.right, top + Dots.bottom};
    Page bytes = pages::loadFile(png.string()).value_or(Page());
    const auto id = static_cast<unsigned int>(number);
    constexpr int Png = 8;
    surface.includeImage(id, bytes.data(), static_cast<int>(bytes.size()), Dots.right, Dots.bottom, Png);
    surface.drawImage(&box, id, 1, 0, 0);
    surface.frameRect(&box, pages::rgb(200, 205, 212));
}

} // namespace

bool paintTrap(const Trap& trap, const fs::path& folder, const fs::path& fontMap)
{
    const fs::path stem = folder / (std::string(TrapPrefix) + trap.name);
    const Target target = {trap, stem, fontMap};
    GdiDeviceOptions options;
    options.width = 2 * Dots.right + 24;
    options.height = 2 * (Dots.bottom + 30) + 8;
    options.dpi = DotsPerInch;
    const HDC device = gdiCreateDevice(&options);
    {
        CSurfaceHdc together(device);
        int number = 0;
        for (const BackEnd& backEnd : BackEnds) {
            const fs::path png = stem.string() + backEnd.ending;
            fs::remove(png);
            backEnd.paint(target, png);
            place(together, number++, backEnd, png);
        }
    }
    return save(device, stem.string() + ".png");
}
