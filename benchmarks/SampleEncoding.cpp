#include "SampleEncoding.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <ctime>
#include <stdexcept>

#include "ImagePage.h"
#include "PostScriptPage.h"
#include "surfacePSPrinter.h"
#include "sys/krnutil.h"

namespace {

constexpr std::size_t BytesOnALine = 150;

constexpr auto DigitPairs = [] {
    constexpr char Digits[] = "0123456789abcdef";
    std::array<std::array<char, 2>, 256> pairs{};
    for (std::size_t byte = 0; byte < pairs.size(); ++byte) {
        pairs[byte] = {Digits[byte / 16], Digits[byte % 16]};
    }
    return pairs;
}();

double processorTime()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

template <class Work>
double timeOf(Work work)
{
    const double start = processorTime();
    work();
    return processorTime() - start;
}

} // namespace

double timeOfIncluding(std::string& image, int pictureType)
{
    constexpr RECT Bounds{0, 0, ImageSide, ImageSide};
    CSurfacePSPrinter surface = makePostScriptSurface(Bounds, Bounds);
    return timeOf([&] {
        surface.includeImage(1, reinterpret_cast<unsigned char*>(image.data()),
                             static_cast<int>(image.size()), ImageSide, ImageSide, pictureType);
    });
}

double timeOfDecoding(std::string& image)
{
    auto* const data = reinterpret_cast<unsigned char*>(image.data());
    const auto size = static_cast<int>(image.size());
    return timeOf([&] {
        FreeImageDesc library(false);
        FIMEMORY* const memory = library.imageOpenMemory(data, size);
        const FREE_IMAGE_FORMAT format = library.imageGetFileTypeFromMemory(memory, 0);
        library.imageCloseMemory(memory);
        FIBITMAP* const decoded = library.imageLoadFromMem(format, data, static_cast<unsigned int>(size));
        FIBITMAP* const pixels = library.imageConvertTo24Bits(decoded);
        library.imageUnload(decoded);
        if (pixels == nullptr) {
            throw std::runtime_error("the image was not decoded");
        }
        library.imageUnload(pixels);
    });
}

std::string_view samplesIn(std::string_view page)
{
    constexpr std::string_view Before = ">> image\n";
    const std::size_t begin = page.find(Before);
    if (begin == std::string_view::npos) {
        return {};
    }
    page.remove_prefix(begin + Before.size());
    return page.substr(0, page.rfind("\n>\n"));
}

std::string bytesOf(std::string_view digits)
{
    std::string bytes;
    bytes.reserve(digits.size() / 2);
    while (digits.size() > 1) {
        const std::size_t step = digits.front() == '\n' ? 1 : 2;
        if (step == 2) {
            unsigned char byte = 0;
            std::from_chars(digits.data(), digits.data() + 2, byte, 16);
            bytes += static_cast<char>(byte);
        }
        digits.remove_prefix(step);
    }
    return bytes;
}

void makeFloorSamples(std::string_view bytes, std::string& digits)
{
    digits.resize(2 * bytes.size() + bytes.size() / BytesOnALine);
    char* at = digits.data();
    while (!bytes.empty()) {
        const std::string_view line = bytes.substr(0, BytesOnALine);
        for (const char byte : line) {
            std::memcpy(at, DigitPairs[static_cast<unsigned char>(byte)].data(), 2);
            at += 2;
        }
        if (line.size() == BytesOnALine) {
            *at++ = '\n';
        }
        bytes.remove_prefix(line.size());
    }
}
