#include <algorithm>
#include <cctype>
#include <cmath>
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

using Device = std::unique_ptr<std::remove_pointer_t<HDC>, EndDevice>;

Outcome failOfSize(FileJob& job, const PictureSize& size)
{
    const auto& [left, top, right, bottom] = size.shown;
    std::string problem = std::to_string(right - left).append(" x ").append(std::to_string(bottom - top));
    return job.fail(problem.append(" pixels are too many for a picture: choose a lower --dpi or --width"));
}

Outcome playToPixels(FileJob& job, PlayedPage& page, OutputFile& output, const PictureSize& size)
{
    GdiDeviceOptions options;
    options.width = size.shown.right - size.shown.left;
    options.height = size.shown.bottom - size.shown.top;
    options.dpi = std::max(1, static_cast<int>(std::lround(size.dotsPerInch)));
    const Device device(gdiCreateDevice(&options));
    if (device == nullptr && GetLastError() == ERROR_NOT_SUPPORTED) {
        return job.fail("pictures have the resolution of the screen here, and no other");
    }
    if (device == nullptr) {
        return failOfSize(job, size);
    }
    if (!playOver(device.get(), page, &size)) {
        return failOfPlayback(job);
    }
    const std::string& temporary = output.create();
    if (temporary.empty()) {
        return Outcome::Failed;
    }
    return gdiSavePng(device.get(), temporary.c_str()) ? output.commit()
                                                       : job.fail("the picture can't be written");
}

// On a document of its own; `part` is null for all of the page.
Outcome playAlone(FileJob& job, PlayedPage& page, OutputFile& output, HDC document, const PictureSize* part)
{
    const std::string& temporary = output.create();
    if (temporary.empty()) {
        return Outcome::Failed;
    }
    DOCINFOA info{};
    info.cbSize = sizeof(info);
    info.lpszOutput = temporary.c_str();
    if (StartDocA(document, &info) <= 0 || StartPage(document) <= 0) {
        return job.fail("the page can't be begun");
    }
    if (!playOver(document, page, part)) {
        return failOfPlayback(job);
    }
    return EndPage(document) > 0 && EndDoc(document) > 0 ? output.commit()
                                                         : job.fail("the page can't be written");
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

Device smoothPicture(const PlayedPage& page, const PictureSize& size, GdiDocumentKind kind, int quality)
{
    GdiDocumentOptions options;
    options.kind = kind;
    options.dpi = ownDotsPerInch(page.sheet());
    options.pictureDpi = size.dotsPerInch;
    options.pageWidth = size.millimetresWide;
    options.pageHeight = size.millimetresHigh;
    options.quality = quality;
    return Device(gdiCreateDocument(&options));
}

Outcome failOfCrop(FileJob& job)
{
    return job.fail("has nothing in the part that --crop names");
}

// On systems without smooth pictures, of pixels.
Outcome playToPicture(FileJob& job, PlayedPage& page, OutputFile& output, const PlayOptions& options)
{
    const std::optional<PictureSize> size = pictureSizeOf(page.sheet(), options.picture);
    if (!size) {
        return failOfCrop(job);
    }
    const Device document =
        options.pixels ? nullptr : smoothPicture(page, *size, GdiDocumentKind::Picture, 0);
    return document != nullptr ? playAlone(job, page, output, document.get(), &*size)
                               : playToPixels(job, page, output, *size);
}

Outcome playToJpeg(FileJob& job, PlayedPage& page, OutputFile& output, const PlayOptions& options)
{
    const std::optional<PictureSize> size = pictureSizeOf(page.sheet(), options.picture);
    if (!size) {
        return failOfCrop(job);
    }
    const Device document = smoothPicture(page, *size, GdiDocumentKind::Jpeg, options.picture.quality);
    if (document != nullptr) {
        return playAlone(job, page, output, document.get(), &*size);
    }
    return GetLastError() == ERROR_NOT_SUPPORTED ? job.fail("JPEG is not made on this system")
                                                 : failOfSize(job, *size);
}

// A stored page again, or the form for viewers, the only one that a metafile has.
Outcome playToSvg(FileJob& job, PlayedPage& page, OutputFile& output, const PlayOptions& options)
{
    if (!page.isMetafile() && !options.plain) {
        return playToText(job, page, output, CSurfaceSVG());
    }
    constexpr double HundredthsPerMillimetre = 100;
    GdiDocumentOptions document;
    document.kind = GdiDocumentKind::Svg;
    document.dpi = ownDotsPerInch(page.sheet());
    document.pageWidth = static_cast<double>(page.sheet().width) / HundredthsPerMillimetre;
    document.pageHeight = static_cast<double>(page.sheet().height) / HundredthsPerMillimetre;
    const Device device(gdiCreateDocument(&document));
    return device != nullptr ? playAlone(job, page, output, device.get(), nullptr)
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
    {".jpg", true, playToJpeg},
    {".jpeg", true, playToJpeg},
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

std::string problemOfPlayOutput(const std::string& output, const std::string& pictureOption)
{
    const Format* const format = formatOf(output);
    if (format == nullptr) {
        return std::string(output).append(" has none of the endings .pdf, .png, .jpg, .svg, .ps and .emf");
    }
    const bool isPicture = format->play == playToPicture || format->play == playToJpeg;
    return !pictureOption.empty() && !isPicture ? std::string(pictureOption)
                                                      .append(" is for .png and .jpg only: ")
                                                      .append(output)
                                                      .append(" has no pixels")
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
