// The checks in front of the measurements: pages, page operations, images.
#include "Checks.h"

#include <algorithm>
#include <cstring>
#include <iostream>
#include <string>
#include <string_view>
#include <utility>

#include "ImagePage.h"
#include "PageWork.h"
#include "PostScriptPage.h"
#include "SampleEncoding.h"
#include "TextPage.h"
#include "surfaceSVG.h"
#include "sys/krnutil.h"

namespace {

bool require(bool holds, std::string_view what)
{
    if (!holds) {
        std::cerr << what << '\n';
    }
    return holds;
}

// Says where two pages part, if they do.
bool same(std::string_view what, std::string_view page, std::string_view other)
{
    if (page == other) {
        return true;
    }
    const auto parting = std::mismatch(page.begin(), page.end(), other.begin(), other.end()).first;
    const auto offset = static_cast<std::size_t>(parting - page.begin());
    const std::size_t from = offset - std::min<std::size_t>(offset, 60);
    std::cerr << what << " differs from the surface's page at byte " << offset
              << ":\n  page:  " << page.substr(from, 120) << "\n  other: " << other.substr(from, 120) << '\n';
    return false;
}

bool pageAgrees(std::string_view kind, std::string& page, std::string_view floor)
{
    CSurfaceSVG surface;
    if (!require(playPage(page, surface, tableBounds(1)), "the surface's page was not played")) {
        return false;
    }
    std::string replay;
    takePage(surface, replay);
    const std::string floorName = "the floor of the " + std::string(kind);
    const std::string replayName = "the replay of the " + std::string(kind);
    return same(floorName, page, floor) && same(replayName, page, replay);
}

bool finds(std::string& page, bool wholeWord)
{
    const Hit hit = findInPage(page, {ClosingWord, !wholeWord, wholeWord});
    const std::size_t element = page.rfind("<text ", page.rfind(ClosingWord));
    const Hit miss = findInPage(page, {MissingWord, !wholeWord, wholeWord});
    return require(hit.markedBytes > 0 && hit.element == element, "the closing word was not found") &&
           require(miss.markedBytes == 0, "a word was found that is not there");
}

std::string imageIn(const std::string& page)
{
    constexpr std::string_view Key = "base64,";
    const std::size_t at = page.find(Key);
    if (at == std::string::npos) {
        return {};
    }
    std::string text = page.substr(at + Key.size());
    text.resize(std::min(text.size(), text.find_first_of("'\"")));
    unsigned char* data = nullptr;
    int size = 0;
    base64Decode(text.data(), data, size);
    std::string image(reinterpret_cast<const char*>(data), static_cast<std::size_t>(size));
    base64Free(data);
    return image;
}

cairo_status_t takeBytes(void* rest, unsigned char* bytes, unsigned int count)
{
    auto& view = *static_cast<std::string_view*>(rest);
    if (view.size() < count) {
        return CAIRO_STATUS_READ_ERROR;
    }
    std::memcpy(bytes, view.data(), count);
    view.remove_prefix(count);
    return CAIRO_STATUS_SUCCESS;
}

} // namespace

bool documentsAgree(int rows)
{
    std::string page;
    std::string floor;
    makePostScriptPage(rows, page);
    makeFloorPostScript(rows, floor);
    if (!same("the floor of the table's document", page, floor)) {
        return false;
    }
    makePostScriptText(rows, page);
    makeFloorPostScriptText(rows, floor);
    return same("the floor of the text's document", page, floor);
}

bool pagesAgree(int rows)
{
    std::string page;
    std::string floor;
    makeSurfacePage(rows, page);
    makeFloorPage(rows, floor);
    if (!pageAgrees("table", page, floor)) {
        return false;
    }
    makeSurfaceText(rows, page);
    makeFloorText(rows, floor);
    return pageAgrees("text", page, floor) &&
           require(parsePage(page).texts == static_cast<std::size_t>(textCalls(rows)),
                   "the parser did not see each text of the page");
}

bool operationsWork(int rows)
{
    std::string page;
    makeMarkedText(rows, page);
    std::string expected = page;
    expected.replace(page.rfind(PageCountField), PageCountText.size(), PageCountText);
    const bool stamped = stampPage(page);
    return require(stamped, "the page was not stamped") && same("the stamped page", expected, page) &&
           finds(page, false) && finds(page, true);
}

bool imagesSurvive()
{
    const CairoSurface image = drawImage();
    std::string png = pngOf(image.get());
    std::string bitmap = bitmapOf(image.get());
    std::string page;
    makeSurfaceImage(bitmap, BitmapType, page);
    const std::string converted = imageIn(page);
    std::string_view rest = converted;
    const CairoSurface decoded(cairo_image_surface_create_from_png_stream(takeBytes, &rest));
    if (!require(cairo_surface_status(decoded.get()) == CAIRO_STATUS_SUCCESS &&
                     bitmapOf(decoded.get()) == bitmap,
                 "the bitmap did not keep its pixels")) {
        return false;
    }
    makeSurfaceImage(png, PngType, page);
    if (!require(imageIn(page) == png, "the PNG did not stay as it is")) {
        return false;
    }
    carryPng(image.get(), png);
    makeCairoImage(PageFormat::Svg, image.get(), page);
    return require(imageIn(page) == png, "cairo did not keep the PNG");
}

bool samplesSurvive()
{
    const CairoSurface image = drawImage();
    std::string bitmap = bitmapOf(image.get());
    std::string png = pngOf(image.get());
    std::string page;
    makePostScriptImage(bitmap, PlainSamplesType, page);
    std::string samples = bytesOf(samplesIn(page));
    for (std::size_t red = 0; red + 2 < samples.size(); red += 3) {
        std::swap(samples[red], samples[red + 2]);
    }
    std::string pageOfPng;
    makePostScriptImage(bitmap, BitmapType, page);
    makePostScriptImage(png, PngType, pageOfPng);
    std::string digits;
    makeFloorSamples(bytesOf(samplesIn(page)), digits);
    return require(!samples.empty() && bitmap.ends_with(samples), "the bitmap did not keep its samples") &&
           same("the document of the PNG", page, pageOfPng) &&
           same("the floor of the samples", samplesIn(page), digits);
}
