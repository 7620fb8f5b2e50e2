// A page as bytes; see storedPage.h.
#include "storedPage.h"

#include <memory>

#include "metaFilePlayer.h"
#include "reportPages.h"
#include "support/RecordingSurface.h"

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

Page replayed(Page& page)
{
    CSurfaceSVG copy = emptyPage();
    return playOn(copy, page) ? stored(copy) : Page();
}

Calls callsOf(Page& page)
{
    RecordingSurface surface;
    return playOn(surface, page) ? surface.calls() : Calls();
}
