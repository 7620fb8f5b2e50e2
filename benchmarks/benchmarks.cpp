// Measures what it costs to write a page of shapes and one of text, to replay them, to search and to stamp the
// one of text, and to include an image. CSurfaceSVG is measured next to cairo's SVG surface and the floor of
// bare appends, CSurfacePSPrinter likewise beside cairo's PostScript surface of level 2, CMetaFilePlayer on a
// surface that does nothing beside an expat parse of the same bytes, the page operations beside memmem and
// memcpy as well; CSurfaceEMF beside libEMF, CSurfaceHdc on pixels beside cairo.
//
// Freed memory stays in the process, so that what a benchmark costs does not depend on what ran before it.
// Only surface_fresh gives all of it back between its pages: each of them is written to memory that the system
// has yet to supply, as the first page of a process is.
//
// Before anything is measured, Checks.h is gone through; when something there does not hold, the program says
// what and ends with 1. Google Benchmark's own options apply.
#include <algorithm>
#include <climits>
#include <cstdint>
#include <iostream>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <benchmark/benchmark.h>
#include <malloc.h>

#include "Checks.h"
#include "DevicePage.h"
#include "DocumentPage.h"
#include "ImagePage.h"
#include "MetafilePage.h"
#include "NullSurface.h"
#include "PageWork.h"
#include "PostScriptPage.h"
#include "SampleEncoding.h"
#include "Summary.h"
#include "TextPage.h"

namespace {

// Options that come before the caller's own. Repetitions of all benchmarks take turns, so that a slow moment
// of the machine hits each alike.
constexpr const char* DefaultOptions[] = {"--benchmark_repetitions=9", "--benchmark_min_time=0.1",
                                          "--benchmark_enable_random_interleaving=true"};

// Whether a page finds the memory of the one before it, or none.
enum class Memory { Kept, Fresh };

using PageMaker = void (*)(int rows, std::string& page);
using CallCount = int (*)(int rows);

int rowsOf(const benchmark::State& state)
{
    return static_cast<int>(state.range(0));
}

void count(benchmark::State& state, int callsOfPage, std::size_t pageBytes)
{
    const double calls = static_cast<double>(state.iterations()) * callsOfPage;
    state.counters[CallsCounter] = benchmark::Counter(calls, benchmark::Counter::kIsRate);
    state.counters["per_call"] =
        benchmark::Counter(calls, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
    state.counters[PageCounter] = static_cast<double>(pageBytes);
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(pageBytes));
}

void measurePage(benchmark::State& state, PageMaker makePage, CallCount calls, Memory memory)
{
    std::string page;
    for ([[maybe_unused]] const auto iteration : state) {
        if (memory == Memory::Fresh) {
            state.PauseTiming();
            malloc_trim(0);
            state.ResumeTiming();
        }
        makePage(rowsOf(state), page);
        benchmark::ClobberMemory();
    }
    count(state, calls(rowsOf(state)), page.size());
}

// Measures `work`, which is given a page and says whether it did what it should.
template <class Work>
void measureWork(benchmark::State& state, PageMaker makePage, CallCount calls, Work work)
{
    std::string page;
    makePage(rowsOf(state), page);
    for ([[maybe_unused]] const auto iteration : state) {
        if (!work(page)) {
            state.SkipWithError("the page was not worked on");
            break;
        }
        benchmark::ClobberMemory();
    }
    count(state, calls(rowsOf(state)), page.size());
}

bool replay(std::string& page)
{
    NullSurface surface;
    return playPage(page, surface, tableBounds(1));
}

bool parse(std::string& page)
{
    return parsePage(page).attributes > 0;
}

bool copyBothWays(std::string& page)
{
    static std::string copy;
    copy.resize(page.size());
    return copyMarkedPage(page, copy);
}

template <class Measure, class... Arguments>
void registerBenchmark(const char* name, Measure measure, Arguments... arguments)
{
    benchmark::RegisterBenchmark(name, measure, arguments...)
        ->Arg(SmallTable)
        ->Arg(LargeTable)
        ->Unit(benchmark::kMicrosecond);
}

template <class Work>
void registerWork(const char* name, PageMaker makePage, CallCount calls, Work work)
{
    registerBenchmark(name, measureWork<Work>, makePage, calls, work);
}

int shapeCalls(int rows)
{
    return rows * CallsPerRow;
}

void registerPages()
{
    registerBenchmark(FloorName, measurePage, makeFloorPage, shapeCalls, Memory::Kept);
    registerBenchmark(SurfaceName, measurePage, makeSurfacePage, shapeCalls, Memory::Kept);
    registerBenchmark(FreshSurfaceName, measurePage, makeSurfacePage, shapeCalls, Memory::Fresh);
    registerBenchmark(CairoName, measurePage, makeCairoPage, shapeCalls, Memory::Kept);
    registerWork(ReplayName, makeSurfacePage, shapeCalls, replay);
    registerWork(ParseName, makeSurfacePage, shapeCalls, parse);
    registerBenchmark(PsFloorName, measurePage, makeFloorPostScript, shapeCalls, Memory::Kept);
    registerBenchmark(PsSurfaceName, measurePage, makePostScriptPage, shapeCalls, Memory::Kept);
    registerBenchmark(PsCairoName, measurePage, makeCairoPostScript, shapeCalls, Memory::Kept);
    registerBenchmark(TextFloorName, measurePage, makeFloorText, textCalls, Memory::Kept);
    registerBenchmark(TextSurfaceName, measurePage, makeSurfaceText, textCalls, Memory::Kept);
    registerBenchmark(TextCairoName, measurePage, makeCairoText, textCalls, Memory::Kept);
    registerBenchmark(PsTextFloorName, measurePage, makeFloorPostScriptText, textCalls, Memory::Kept);
    registerBenchmark(PsTextSurfaceName, measurePage, makePostScriptText, textCalls, Memory::Kept);
    registerBenchmark(PsTextCairoName, measurePage, makeCairoPostScriptText, textCalls, Memory::Kept);
    registerWork(TextReplayName, makeSurfaceText, textCalls, replay);
    registerWork(TextParseName, makeSurfaceText, textCalls, parse);
}

void registerOperations()
{
    registerWork(StampName, makeMarkedText, textCalls, stampPage);
    registerWork(CopiesName, makeMarkedText, textCalls, copyBothWays);

    struct Sought {
        const char* name;
        Search search;
    };
    // By the letter with its case, by word without.
    constexpr Sought Searches[] = {{PlainMissName, {MissingWord, true, false}},
                                   {PlainHitName, {ClosingWord, true, false}},
                                   {WordMissName, {MissingWord, false, true}},
                                   {WordHitName, {ClosingWord, false, true}}};
    for (const Sought& sought : Searches) {
        const Search search = sought.search;
        registerWork(sought.name, makeSurfaceText, textCalls, [search](std::string& page) {
            return (findInPage(page, search).markedBytes > 0) == (search.text == ClosingWord);
        });
    }
    registerWork(ScanMissName, makeSurfaceText, textCalls,
                 [](std::string& page) { return !scanPage(page, MissingWord); });
    registerWork(ScanHitName, makeSurfaceText, textCalls,
                 [](std::string& page) { return scanPage(page, ClosingWord); });
}

int textRecords(int records)
{
    return records;
}

void registerMetafiles()
{
    registerBenchmark(RecordName, measurePage, recordSurfaceTable, shapeCalls, Memory::Kept);
    // Its objects grow in number with the page, and it looks through all of them for each.
    benchmark::RegisterBenchmark(RecordPeerName, measurePage, recordPeerTable, shapeCalls, Memory::Kept)
        ->Arg(SmallTable)
        ->Unit(benchmark::kMicrosecond);
    registerWork(MetafileCopyName, makeMetafilePage, textRecords, copyPage);
    registerWork(MetafileStampName, makeMetafilePage, textRecords, stampPage);
    struct Sought {
        const char* name;
        Search search;
    };
    constexpr Sought Searches[] = {{MetafileMissName, {MissingWord, true, false}},
                                   {MetafileHitName, {ClosingWord, true, false}},
                                   {MetafileWordMissName, {MissingWord, false, true}},
                                   {MetafileWordHitName, {ClosingWord, false, true}}};
    for (const Sought& sought : Searches) {
        const Search search = sought.search;
        registerWork(sought.name, makeMetafilePage, textRecords, [search](std::string& page) {
            return (findInPage(page, search).markedBytes > 0) == (search.text == ClosingWord);
        });
    }
}

template <class MakeSheet>
void registerSheet(const char* name, MakeSheet makeSheet)
{
    benchmark::RegisterBenchmark(name,
                                 [makeSheet](benchmark::State& state) {
                                     const std::unique_ptr<TableSheet> sheet = makeSheet();
                                     for ([[maybe_unused]] const auto iteration : state) {
                                         sheet->draw(rowsOf(state));
                                         benchmark::ClobberMemory();
                                     }
                                     constexpr std::size_t PixelBytes = 4;
                                     count(state, shapeCalls(rowsOf(state)),
                                           PixelBytes * SheetPixels.cx * SheetPixels.cy);
                                 })
        ->Arg(SmallTable)
        ->Unit(benchmark::kMicrosecond);
}

void registerSheets()
{
    registerSheet(PixelsName, makeDeviceSheet);
    registerSheet(PixelsCairoName, [] { return makeCairoSheet(false); });
    registerSheet(PixelsSmoothName, [] { return makeCairoSheet(true); });
}

// One page per call, which is given the bytes of the image; `make` is timed with nothing else.
template <class Make>
void registerImage(const char* name, Make make)
{
    benchmark::RegisterBenchmark(name,
                                 [make](benchmark::State& state) {
                                     std::string page;
                                     for ([[maybe_unused]] const auto iteration : state) {
                                         make(page);
                                         benchmark::ClobberMemory();
                                     }
                                     count(state, 1, page.size());
                                 })
        ->Arg(ImageSide)
        ->Unit(benchmark::kMicrosecond);
}

// `timeOf` gives the seconds of one round, which leads to the digits of `samples`.
template <class TimeOf>
void registerTimes(const char* name, std::string_view samples, TimeOf timeOf)
{
    benchmark::RegisterBenchmark(name,
                                 [samples, timeOf](benchmark::State& state) {
                                     for ([[maybe_unused]] const auto iteration : state) {
                                         state.SetIterationTime(timeOf());
                                     }
                                     count(state, 1, samples.size());
                                 })
        ->Arg(ImageSide)
        ->Unit(benchmark::kMicrosecond)
        ->UseManualTime();
}

// Decoding, encoding and the floor of encoding. A bitmap decodes fast, so that little is lost in the difference.
void registerSamples(std::string& bitmap)
{
    static std::string page;
    makePostScriptImage(bitmap, BitmapType, page);
    const std::string_view samples = samplesIn(page);
    static const std::string Bytes = bytesOf(samples);
    registerTimes(PsDecodeName, samples, [&bitmap] { return timeOfDecoding(bitmap); });
    registerTimes(PsEncodeName, samples, [&bitmap] {
        return std::max(timeOfIncluding(bitmap, BitmapType) - timeOfDecoding(bitmap), 0.0);
    });
    registerImage(PsDigitsName, [](std::string& digits) { makeFloorSamples(Bytes, digits); });
}

void registerImages()
{
    static const CairoSurface Plain = drawImage();
    static const CairoSurface Carrier = drawImage();
    static std::string png = pngOf(Plain.get());
    static std::string bitmap = bitmapOf(Plain.get());
    carryPng(Carrier.get(), png);
    registerImage(PngName, [](std::string& page) { makeSurfaceImage(png, PngType, page); });
    registerImage(PngCairoName,
                  [](std::string& page) { makeCairoImage(PageFormat::Svg, Carrier.get(), page); });
    registerImage(BitmapName, [](std::string& page) { makeSurfaceImage(bitmap, BitmapType, page); });
    registerImage(BitmapCairoName,
                  [](std::string& page) { makeCairoImage(PageFormat::Svg, Plain.get(), page); });
    registerImage(PsPngName, [](std::string& page) { makePostScriptImage(png, PngType, page); });
    registerImage(PsBitmapName, [](std::string& page) { makePostScriptImage(bitmap, BitmapType, page); });
    registerImage(PsImageCairoName,
                  [](std::string& page) { makeCairoImage(PageFormat::PostScript, Plain.get(), page); });
    registerSamples(bitmap);
}

int callsOfPages(int pages)
{
    return pages / 2 * (shapeCalls(RowsOfManyPages) + textCalls(RowsOfManyPages));
}

void registerDocuments()
{
    struct Writer {
        const char* name;
        PageMaker make;
        CallCount calls;
        int argument;
    };
    constexpr Writer Writers[] = {{PdfName, makeDocumentTable, shapeCalls, SmallTable},
                                  {PdfCairoName, makeCairoDocumentTable, shapeCalls, SmallTable},
                                  {PdfTextName, makeDocumentText, textCalls, SmallTable},
                                  {PdfTextCairoName, makeCairoDocumentText, textCalls, SmallTable},
                                  {PdfPagesName, makeDocument, callsOfPages, ManyPages},
                                  {PdfPagesCairoName, makeCairoDocument, callsOfPages, ManyPages}};
    for (const Writer& writer : Writers) {
        benchmark::RegisterBenchmark(writer.name, measurePage, writer.make, writer.calls, Memory::Kept)
            ->Arg(writer.argument)
            ->Unit(benchmark::kMicrosecond);
    }
    static const CairoSurface Plain = drawImage();
    static std::string bitmap = bitmapOf(Plain.get());
    registerImage(PdfImageName,
                  [](std::string& document) { makeDocumentImage(bitmap, BitmapType, document); });
    registerImage(PdfImageCairoName,
                  [](std::string& document) { makeCairoImage(PageFormat::Pdf, Plain.get(), document); });
}

void keepFreedMemory()
{
    constexpr int LargestMappingThreshold = 32 << 20; // the allocator accepts no higher one
    mallopt(M_MMAP_THRESHOLD, LargestMappingThreshold);
    mallopt(M_TRIM_THRESHOLD, INT_MAX);
}

} // namespace

int main(int argc, char** argv)
{
    std::vector<std::string> options(std::begin(DefaultOptions), std::end(DefaultOptions));
    std::vector<char*> arguments(argv, argv + argc);
    for (std::string& option : options) {
        arguments.insert(arguments.begin() + 1, option.data());
    }
    int argumentCount = static_cast<int>(arguments.size());
    arguments.push_back(nullptr);
    benchmark::Initialize(&argumentCount, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(argumentCount, arguments.data())) {
        return 1;
    }
    for (const int rows : {SmallTable, LargeTable}) {
        if (!pagesAgree(rows) || !documentsAgree(rows) || !operationsWork(rows) || !metafileWorks(rows)) {
            return 1;
        }
    }
    if (!imagesSurvive() || !samplesSurvive() || !sheetsAgree(SmallTable) || !documentsStream()) {
        return 1;
    }

    keepFreedMemory();
    registerPages();
    registerOperations();
    registerMetafiles();
    registerSheets();
    registerImages();
    registerDocuments();
    std::cout << "Measuring; the lines come together at the end, all of them after about a minute and a half."
              << std::endl;
    Summary summary;
    benchmark::RunSpecifiedBenchmarks(&summary);
    summary.print(std::cout);
    return 0;
}
