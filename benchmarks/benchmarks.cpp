// Measures what it costs to write a page of table rows and to replay it: CSurfaceSVG beside cairo's SVG
// surface and beside the floor of bare appends, and CMetaFilePlayer on a surface that does nothing.
//
// Freed memory stays in the process, so that what a benchmark costs does not depend on what ran before it.
// Only surface_fresh gives all of it back between its pages: each of them is written to memory that the system
// has yet to supply, as the first page of a process is.
//
// Before anything is measured, the pages are compared: the floor must be the surface's page byte for byte, and
// a replay on another CSurfaceSVG must give the page again. Otherwise the program says where they part and
// ends with 1. Google Benchmark's own options apply.
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

#include "NullSurface.h"
#include "Summary.h"
#include "TablePage.h"
#include "metaFilePlayer.h"
#include "surfaceSVG.h"

namespace {

// Options that stand before the caller's own. Repetitions of all benchmarks take turns, so that a slow moment
// of the machine hits each alike.
constexpr const char* defaultOptions[] = {"--benchmark_repetitions=9", "--benchmark_min_time=0.1",
                                          "--benchmark_enable_random_interleaving=true"};

// Whether a page finds the memory of the one before it, or none.
enum class Memory { kept, fresh };

using PageMaker = void (*)(int rows, std::string& page);

void count(benchmark::State& state, std::size_t pageBytes)
{
    const auto iterations = static_cast<double>(state.iterations());
    const double calls = iterations * callsPerRow * static_cast<double>(state.range(0));
    state.counters[callsCounter] = benchmark::Counter(calls, benchmark::Counter::kIsRate);
    state.counters["per_call"] =
        benchmark::Counter(calls, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(pageBytes));
}

void measurePage(benchmark::State& state, PageMaker makePage, Memory memory)
{
    const int rows = static_cast<int>(state.range(0));
    std::string page;
    for ([[maybe_unused]] const auto iteration : state) {
        if (memory == Memory::fresh) {
            state.PauseTiming();
            malloc_trim(0);
            state.ResumeTiming();
        }
        makePage(rows, page);
        benchmark::ClobberMemory();
    }
    count(state, page.size());
}

bool play(std::string& page, CSurface& surface, int rows)
{
    RECT destination = tableBounds(rows);
    const std::unique_ptr<CMetaFilePlayer> player(CMetaFilePlayer::createPlayer(
        reinterpret_cast<unsigned char*>(page.data()), static_cast<unsigned int>(page.size())));
    return player != nullptr && player->play(&surface, &destination) == 1;
}

void measureReplay(benchmark::State& state)
{
    const int rows = static_cast<int>(state.range(0));
    std::string page;
    makeSurfacePage(rows, page);
    NullSurface surface;
    for ([[maybe_unused]] const auto iteration : state) {
        if (!play(page, surface, rows)) {
            state.SkipWithError("the page was not played");
            break;
        }
    }
    count(state, page.size());
}

void keepFreedMemory()
{
    constexpr int largestMappingThreshold = 32 << 20; // the allocator accepts no higher one
    mallopt(M_MMAP_THRESHOLD, largestMappingThreshold);
    mallopt(M_TRIM_THRESHOLD, INT_MAX);
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

bool pagesAgree(int rows)
{
    std::string page;
    std::string floor;
    makeSurfacePage(rows, page);
    makeFloorPage(rows, floor);

    CSurfaceSVG surface;
    if (!play(page, surface, rows)) {
        std::cerr << "the surface's page was not played\n";
        return false;
    }
    surface.closeSurface();
    std::string replay(static_cast<std::size_t>(surface.getDataLength()), '\0');
    auto size = static_cast<unsigned int>(replay.size());
    surface.getData(reinterpret_cast<unsigned char*>(replay.data()), size);
    return same("the floor", page, floor) && same("the replay", page, replay);
}

template <class Measure, class... Arguments>
void registerBenchmark(const char* name, Measure measure, Arguments... arguments)
{
    benchmark::RegisterBenchmark(name, measure, arguments...)
        ->Arg(smallTable)
        ->Arg(largeTable)
        ->Unit(benchmark::kMicrosecond);
}

} // namespace

int main(int argc, char** argv)
{
    std::vector<std::string> options(std::begin(defaultOptions), std::end(defaultOptions));
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
    if (!pagesAgree(smallTable) || !pagesAgree(largeTable)) {
        return 1;
    }

    keepFreedMemory();
    registerBenchmark(floorName, measurePage, makeFloorPage, Memory::kept);
    registerBenchmark(surfaceName, measurePage, makeSurfacePage, Memory::kept);
    registerBenchmark(freshSurfaceName, measurePage, makeSurfacePage, Memory::fresh);
    registerBenchmark(cairoName, measurePage, makeCairoPage, Memory::kept);
    registerBenchmark(replayName, measureReplay);
    std::cout << "Measuring; the lines come together at the end, all of them after about half a minute."
              << std::endl;
    Summary summary;
    benchmark::RunSpecifiedBenchmarks(&summary);
    summary.print(std::cout);
    return 0;
}
