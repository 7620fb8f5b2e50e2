#include <algorithm>
#include <cctype>
#include <filesystem>
#include <memory>
#include <string_view>

#include "DocumentFile.h"
#include "OutputFile.h"
#include "PlayedPage.h"
#include "commands.h"
#include "gdidevice.h"
#include "surfaceEMF.h"
#include "surfaceHdc.h"
#include "surfacePSPrinter.h"
#include "surfaceSVG.h"

namespace pagetool {

namespace {

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
Outcome playToText(FileJob& job, PlayedPage& page, OutputFile& output, Surface surface)
{
    return page.play(surface, page.sheet().units.cx, page.sheet().units.cy) ? store(job, surface, output)
                                                                            : failOfPlayback(job);
}

Outcome playToPostScript(FileJob& job, PlayedPage& page, OutputFile& output, const PlayOptions&)
{
    return playToText(job, page, output, CSurfacePSPrinter(0, 0));
}

Outcome playToMetafile(FileJob& job, PlayedPage& page, OutputFile& output, const PlayOptions&)
{
    const Sheet& sheet = page.sheet();
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
    return page.play(surface, width, height) ? store(job, surface, output) : failOfPlayback(job);
}

struct EndDevice {
    void operator()(HDC device) const { DeleteDC(device); }
};

Outcome playToPixels(FileJob& job, PlayedPage& page, OutputFile& output, int dpi)
{
    constexpr double MillimetresPerInch = 25.4;
    const Sheet& sheet = page.sheet();
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
    if (!playOver(device.get(), page)) {
        return failOfPlayback(job);
    }
    const std::string& temporary = output.create();
    if (temporary.empty()) {
        return Outcome::Failed;
    }
    return gdiSavePng(device.get(), temporary.c_str()) ? output.commit()
                                                       : job.fail("the picture can't be written");
}

// As a document of its own; on systems without documents nothing, and false.
bool playAlone(FileJob& job, PlayedPage& page, OutputFile& output, GdiDocumentKind kind, int dpi,
               Outcome& outcome)
{
    constexpr double HundredthsPerMillimetre = 100;
    const Sheet& sheet = page.sheet();
    GdiDocumentOptions options;
    options.kind = kind;
    options.dpi = ownDotsPerInch(sheet);
    options.pictureDpi = dpi;
    options.pageWidth = static_cast<double>(sheet.width) / HundredthsPerMillimetre;
    options.pageHeight = static_cast<double>(sheet.height) / HundredthsPerMillimetre;
    const std::unique_ptr<std::remove_pointer_t<HDC>, EndDevice> device(gdiCreateDocument(&options));
    if (device == nullptr) {
        return false;
    }
    outcome = Outcome::Failed;
    const std::string& temporary = output.create();
    DOCINFOA info{};
    info.cbSize = sizeof(info);
    info.lpszOutput = temporary.c_str();
    if (temporary.empty()) {
        return true;
    }
    if (StartDocA(device.get(), &info) <= 0 || StartPage(device.get()) <= 0) {
        outcome = job.fail("the page can't be begun");
    } else if (!playOver(device.get(), page)) {
        outcome = failOfPlayback(job);
    } else if (EndPage(device.get()) <= 0 || EndDoc(device.get()) <= 0) {
        outcome = job.fail("the page can't be written");
    } else {
        outcome = output.commit();
    }
    return true;
}

// One page, where each file has an output of its own.
Outcome playToDocument(FileJob& job, PlayedPage& page, OutputFile& output, const PlayOptions& options)
{
    const std::string& temporary = output.create();
    if (temporary.empty()) {
        return Outcome::Failed;
    }
    DocumentFile document(temporary, options.texts, *options.overwriting);
    const Outcome outcome = document.add(job, page);
    if (outcome != Outcome::Done) {
        return outcome;
    }
    const std::string problem = document.finish();
    return problem.empty() ? output.commit() : job.fail(problem);
}

Outcome playToPicture(FileJob& job, PlayedPage& page, OutputFile& output, const PlayOptions& options)
{
    Outcome outcome = Outcome::Failed;
    return !options.pixels && playAlone(job, page, output, GdiDocumentKind::Picture, options.dpi, outcome)
               ? outcome
               : playToPixels(job, page, output, options.dpi);
}

// A stored page again, or the form for viewers, the only one that a metafile has.
Outcome playToSvg(FileJob& job, PlayedPage& page, OutputFile& output, const PlayOptions& options)
{
    if (!page.isMetafile() && !options.plain) {
        return playToText(job, page, output, CSurfaceSVG());
    }
    Outcome outcome = Outcome::Failed;
    return playAlone(job, page, output, GdiDocumentKind::Svg, 0, outcome)
               ? outcome
               : job.fail("SVG for viewers is not made on this system");
}

struct Format {
    std::string_view ending;
    bool takesMetafiles;
    Outcome (*play)(FileJob&, PlayedPage&, OutputFile&, const PlayOptions&);
};

constexpr std::string_view PictureEnding = ".png";
constexpr std::string_view DocumentEnding = ".pdf";
constexpr Format Formats[] = {
    {".svg", true, playToSvg},
    {".ps", false, playToPostScript},
    {".emf", true, playToMetafile},
    {PictureEnding, true, playToPicture},
    {DocumentEnding, true, playToDocument},
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

// Of a page that was drawn in part, and of which it was to be said.
Outcome reported(FileJob& job, const PlayedPage& page, Outcome outcome)
{
    if (outcome != Outcome::Done || page.missing().empty()) {
        return outcome;
    }
    job.complain(std::string(page.missing()).append(": what there is was drawn"));
    return Outcome::Partial;
}

} // namespace

bool isDocument(const std::string& output)
{
    const Format* const format = formatOf(output);
    return format != nullptr && format->ending == DocumentEnding;
}

std::string problemOfPlayOutput(const std::string& output, bool dpiGiven)
{
    const Format* const format = formatOf(output);
    if (format == nullptr) {
        return std::string(output).append(" has none of the endings .pdf, .png, .svg, .ps and .emf");
    }
    return dpiGiven && format->ending != PictureEnding
               ? std::string("--dpi is for .png only: ").append(output).append(" has no pixels")
               : std::string();
}

Outcome playCommand(FileJob& job, const PlayOptions& options)
{
    const std::string& name = options.outputs[job.number()];
    const Format* const format = formatOf(name);
    std::optional<PlayedPage> page = PlayedPage::read(job);
    if (!page || format == nullptr) {
        return Outcome::Failed;
    }
    if (page->isMetafile() && !format->takesMetafiles) {
        return job.fail(
            std::string("is an enhanced metafile, which does not play to ").append(format->ending));
    }
    if (options.document != nullptr) {
        return reported(job, *page, options.document->add(job, *page));
    }
    OutputFile output(job, name, *options.overwriting);
    return reported(job, *page, format->play(job, *page, output, options));
}

} // namespace pagetool
