// Plays any bytes as an SVG page: on a surface that writes down its calls, and on CSurfaceSVG, whose page must
// be one again.
#include "RecordingSurface.h"
#include "metaFilePlayerSVG.h"
#include "surfaceSVG.h"

#include <cstdint>
#include <cstdlib>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using Bytes = std::vector<unsigned char>; // never larger than the page, so that no overread stays unseen

void require(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

void play(Bytes page, CSurface& surface)
{
    page.shrink_to_fit();
    CMetaFilePlayerSVG player(page.data(), static_cast<unsigned int>(page.size()));
    RECT rect{0, 0, 100, 100};
    require(player.play(&surface, &rect) == 1);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    krnSetLogSink([](const char*, void*) {}, nullptr);
    kosSetAssertHandler([](const char*, const char*, const char*, const char*, int, void*) {}, nullptr);

    Bytes page(data, data + size);
    CMetaFilePlayer::getMetaFileFormat(page.data(), static_cast<unsigned int>(size));
    RecordingSurface calls;
    play(page, calls);

    RECT none{0, 0, 0, 0};
    CSurfaceSVG drawing(&none, &none);
    play(page, drawing);
    drawing.closeSurface();
    auto length = static_cast<unsigned int>(drawing.getDataLength());
    Bytes drawn(length);
    drawing.getData(drawn.data(), length);
    require(length == drawn.size() && CMetaFilePlayer::getMetaFileFormat(drawn.data(), length) == 2);
    play(drawn, calls);
    return 0;
}
