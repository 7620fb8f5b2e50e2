// Loaded and unloaded again and again, and the module with it: draws, plays and records a little each time.
#include <vector>

#include <gdidevice.h>

#include "metaFilePlayer.h"
#include "moduleUse.h"
#include "moduleVersion.h"
#include "surfaceEMF.h"
#include "surfaceHdc.h"
#include "surfaceSVG.h"

namespace {

std::vector<unsigned char> drawnOn(CSurface& surface)
{
    RECT box{20, 20, 120, 90};
    char face[] = "Arial";
    CSurfaceFont font(face, 12);
    surface.setFont(&font);
    surface.setPen(0x000000, 1, 3);
    surface.setBrush(0x0000FF, 6);
    surface.drawRoundedRectangle(&box, 12, 12);
    surface.drawString("Loaded", &box, DT_CENTER);
    surface.closeSurface();
    std::vector<unsigned char> page(static_cast<std::size_t>(surface.getDataLength()));
    auto size = static_cast<unsigned int>(page.size());
    surface.getData(page.data(), size);
    return page;
}

bool plays(std::vector<unsigned char> page, HDC device)
{
    RECT all{0, 0, 200, 200};
    CSurfaceHdc surface(device);
    CMetaFilePlayer* const player =
        CMetaFilePlayer::createPlayer(page.data(), static_cast<unsigned int>(page.size()));
    const bool played = player != nullptr && player->play(&surface, &all) == 1;
    delete player;
    return played;
}

bool drawsAndPlays()
{
    RECT millimetres{0, 0, 50, 50};
    RECT logical{0, 0, 200, 200};
    RECT frame{0, 0, 5000, 5000};
    CSurfaceSVG svg(&millimetres, &logical);
    CSurfaceEMF emf(&frame);
    const HDC device = gdiCreateDevice(nullptr);
    const bool page = plays(drawnOn(svg), device);
    const bool metafile = plays(drawnOn(emf), device);
    return DeleteDC(device) != FALSE && page && metafile;
}

} // namespace

// False when something could not be drawn or played. `use` is what is left of it all.
extern "C" bool useModule(ModuleUse* use, DLLVERSIONINFO* version)
{
    const bool worked = drawsAndPlays();
    surfaceModuleUse(use);
    return DllGetVersion(version) == 0 && worked;
}
