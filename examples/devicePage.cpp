// Pages as pixels; see devicePage.h.
#include "devicePage.h"

#include <cmath>

#include <gdidevice.h>

#include "reportPages.h"
#include "surfaceHdc.h"

namespace {

SIZE paperOf(int dotsPerInch)
{
    constexpr double MillimetresPerInch = 25.4;
    const auto pixels = [dotsPerInch](int millimetres) {
        return static_cast<int>(std::lround(millimetres * dotsPerInch / MillimetresPerInch));
    };
    return {pixels(PageMillimetresWide), pixels(PageMillimetresHigh)};
}

} // namespace

HDC makeDevice(int dotsPerInch)
{
    const SIZE paper = paperOf(dotsPerInch);
    GdiDeviceOptions options;
    options.width = paper.cx;
    options.height = paper.cy;
    options.dpi = dotsPerInch;
    return gdiCreateDevice(&options);
}

bool playOnDevice(HDC device, Page& page, int dotsPerInch)
{
    const SIZE paper = paperOf(dotsPerInch);
    CSurfaceHdc surface(device);
    return playOn(surface, page, {0, 0, paper.cx, paper.cy});
}

bool paintPixels(Page& page, const std::filesystem::path& png, int dotsPerInch)
{
    const HDC device = makeDevice(dotsPerInch);
    const bool painted = device != nullptr && playOnDevice(device, page, dotsPerInch) &&
                         gdiSavePng(device, png.string().c_str());
    DeleteDC(device);
    return painted;
}
