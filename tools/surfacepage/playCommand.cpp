#include <algorithm>
#include <cctype>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <memory>
#include <string_view>

#include "OutputFile.h"
#include "PageFile.h"
#include "SvgPageSize.h"
#include "commands.h"
#include "gdidevice.h"
#include "metaFilePlayer.h"
#include "surfaceEMF.h"
#include "surfaceHdc.h"
#include "surfacePSPrinter.h"
#include "surfaceSVG.h"

namespace pagetool {

namespace {

// The paper of a page in hundredths of a millimetre, and the extent of an SVG page's coordinates.
struct Sheet {
    RECT frame() const { return {0, 0, static_cast<LONG>(width), static_cast<LONG>(height)}; }
    // Of a device with so many pixels on so many millimetres.
    static int pixels(std::int64_t length, double devicePixels, double deviceMillimetres)
    {
        constexpr double HundredthsPerMillimetre = 100;
        const double exact =
            static_cast<double>(length) * devicePixels / (deviceMillimetres * HundredthsPerMillimetre);
        return static_cast<int>(std::clamp(exact + 0.5, 1.0, 1e9));
    }

    std::int64_t width = 0;
    std::int64_t height = 0;
    SIZE units{}; // 0: a metafile
};

Sheet sheetOf(StoredPage& page)
{
    if (!page.isMetafile()) {
        constexpr std::int64_t HundredthsPerMillimetre = 100;
        const SvgPageSize size = svgPageSize(page.text());
        return size.isUsable() ? Sheet{size.millimetres.cx * HundredthsPerMillimetre,
                                       size.millimetres.cy * HundredthsPerMillimetre, size.units}
                               : Sheet{};
    }
    RECTL frame{};
    std::memcpy(&frame, page.data() + offsetof(ENHMETAHEADER, rclFrame), sizeof(frame));
    return {std::int64_t{frame.right} - frame.left, std::int64_t{frame.bottom} - frame.top, {}};
}

bool isUsable(const Sheet& sheet)
{
    constexpr std::int64_t Most = std::numeric_limits<LONG>::max();
    return sheet.width > 0 && sheet.height > 0 && sheet.width <= Most && sheet.height <= Most;
}

bool playOn(CSurface& surface, StoredPage& page, int width, int height)
{
    const std::unique_ptr<CMetaFilePlayer> player(CMetaFilePlayer::createPlayer(page.data(), page.size()));
    RECT target{0, 0, width, height};
    return player != nullptr && player->play(&surface, &target) == 1;
}

Outcome failOfPlayback(FileJob& job)
{
    return job.fail("can't be played: the page is damaged");
}

Outcome store(FileJob& job, CSurface& surface, OutputFile& output)
{
    if (surface.closeSurface() != 0 || surface.getDataLength() <= 0) {
        return job.fail("became no page: there is not enough memory");
    }
    std::vector<unsigned char> bytes(static_cast<std::size_t>(surface.getDataLength()));
    unsigned int size = static_cast<unsigned int>(bytes.size());
    surface.getData(bytes.data(), size);
    return output.write(bytes);
}

// A surface that takes its sizes from the page.
template <typename Surface>
Outcome playToText(FileJob& job, StoredPage& page, const Sheet& sheet, OutputFile& output, Surface surface)
{
    return playOn(surface, page, sheet.units.cx, sheet.units.cy) ? store(job, surface, output)
                                                                 : failOfPlayback(job);
}

Outcome playToSvg(FileJob& job, StoredPage& page, const Sheet& sheet, OutputFile& output, int)
{
    return playToText(job, page, sheet, output, CSurfaceSVG());
}

Outcome playToPostScript(FileJob& job, StoredPage& page, const Sheet& sheet, OutputFile& output, int)
{
    return playToText(job, page, sheet, output, CSurfacePSPrinter(0, 0));
}

Outcome playToMetafile(FileJob& job, StoredPage& page, const Sheet& sheet, OutputFile& output, int)
{
    RECT frame = sheet.frame();
    CSurfaceEMF surface(&frame);
    const HDC device = surface.getHDC();
    const int width =
        Sheet::pixels(sheet.width, GetDeviceCaps(device, HORZRES), GetDeviceCaps(device, HORZSIZE));
    const int height =
        Sheet::pixels(sheet.height, GetDeviceCaps(device, VERTRES), GetDeviceCaps(device, VERTSIZE));
    if (!page.isMetafile()) {
        SetMapMode(device, MM_ANISOTROPIC);
        SetWindowExtEx(device, sheet.units.cx, sheet.units.cy, nullptr);
        SetViewportExtEx(device, width, height, nullptr);
    }
    return playOn(surface, page, width, height) ? store(job, surface, output) : failOfPlayback(job);
}

struct EndDevice {
    void operator()(HDC device) const { DeleteDC(device); }
};

Outcome playToPicture(FileJob& job, StoredPage& page, const Sheet& sheet, OutputFile& output, int dpi)
{
    constexpr double MillimetresPerInch = 25.4;
    GdiDeviceOptions options;
    options.width = Sheet::pixels(sheet.width, dpi, MillimetresPerInch);
    options.height = Sheet::pixels(sheet.height, dpi, MillimetresPerInch);
    options.dpi = dpi;
    const std::unique_ptr<std::remove_pointer_t<HDC>, EndDevice> device(gdiCreateDevice(&options));
    if (device == nullptr && GetLastError() == ERROR_NOT_SUPPORTED) {
        return job.fail("pictures have the resolution of the screen here, and --dpi can't change it");
    }
    if (device == nullptr) {
        std::string problem = std::to_string(options.width).append(" x ");
        problem.append(std::to_string(options.height)).append(" pixels are too many for a picture");
        return job.fail(problem.append(": choose a lower --dpi"));
    }
    {
        CSurfaceHdc surface(device.get());
        if (!playOn(surface, page, options.width, options.height)) {
            return failOfPlayback(job);
        }
        surface.closeSurface();
    }
    const std::string& temporary = output.create();
    if (temporary.empty()) {
        return Outcome::Failed;
    }
    return gdiSavePng(device.get(), temporary.c_str()) ? output.commit()
                                                       : job.fail("the picture can't be written");
}

struct Format {
    std::string_view ending;
    bool takesMetafiles;
    Outcome (*play)(FileJob&, StoredPage&, const Sheet&, OutputFile&, int dpi);
};

constexpr std::string_view PictureEnding = ".png";
constexpr Format Formats[] = {
    {".svg", false, playToSvg},
    {".ps", false, playToPostScript},
    {".emf", true, playToMetafile},
    {PictureEnding, true, playToPicture},
};

// Null for an ending that is none of them.
const Format* formatOf(const std::string& output)
{
    std::string ending = std::filesystem::path(output).extension().string();
    std::transform(ending.begin(), ending.end(), ending.begin(), [](char character) {
        return static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
    });
    const auto* const format = std::find_if(std::begin(Formats), std::end(Formats),
                                            [&](const Format& known) { return known.ending == ending; });
    return format != std::end(Formats) ? format : nullptr;
}

} // namespace

std::string problemOfPlayOutput(const std::string& output, bool dpiGiven)
{
    const Format* const format = formatOf(output);
    if (format == nullptr) {
        return std::string(output).append(" has none of the endings .svg, .ps, .emf and .png");
    }
    return dpiGiven && format->ending != PictureEnding
               ? std::string("--dpi is for .png only: ").append(output).append(" has no pixels")
               : std::string();
}

Outcome playCommand(FileJob& job, const PlayOptions& options)
{
    const std::string& name = options.outputs[job.number()];
    const Format* const format = formatOf(name);
    std::optional<StoredPage> page = readPage(job);
    if (!page || format == nullptr) {
        return Outcome::Failed;
    }
    if (page->isMetafile() && !format->takesMetafiles) {
        return job.fail(std::string("is an enhanced metafile, which plays to .png and .emf only, not to ")
                            .append(format->ending));
    }
    const Sheet sheet = sheetOf(*page);
    if (!isUsable(sheet)) {
        return job.fail("has no usable size");
    }
    OutputFile output(job, name);
    return format->play(job, *page, sheet, output, options.dpi);
}

} // namespace pagetool
