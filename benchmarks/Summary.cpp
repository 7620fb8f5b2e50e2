// Collects medians while Google Benchmark runs, and prints the closing tables.
#include "Summary.h"

#include <iomanip>

#include "ImagePage.h"

namespace {

constexpr double noLimit = 0;
constexpr int nameWidth = 40;

// Two benchmarks side by side, at each number of rows.
struct Ratio {
    const char* name;
    const char* baseName;
    double limit;
};

constexpr Ratio ratios[] = {
    {surfaceName, floorName, 3.0},
    {cairoName, surfaceName, noLimit},
    {replayName, parseName, 1.0},
    {psSurfaceName, psFloorName, 3.0},
    {psCairoName, psSurfaceName, noLimit},
    {psTextSurfaceName, psTextFloorName, 3.0},
    {psTextCairoName, psTextSurfaceName, noLimit},
    {textSurfaceName, textFloorName, 3.0},
    {textCairoName, textSurfaceName, noLimit},
    {textReplayName, textParseName, 1.0},
    {stampName, copiesName, 3.0},
    {plainMissName, textParseName, 1.0},
    {plainHitName, textParseName, 1.0},
    {wordMissName, textParseName, 1.0},
    {wordHitName, textParseName, 1.0},
    {plainMissName, scanMissName, noLimit},
    {plainHitName, scanHitName, noLimit},
    {metafileStampName, metafileCopyName, noLimit},
    {metafileMissName, metafileCopyName, noLimit},
    {metafileHitName, metafileCopyName, noLimit},
    {metafileWordMissName, metafileCopyName, noLimit},
    {metafileWordHitName, metafileCopyName, noLimit},
};

constexpr Ratio imageRatios[] = {
    {pngName, pngCairoName, noLimit},       {bitmapName, bitmapCairoName, noLimit},
    {psPngName, psImageCairoName, noLimit}, {psBitmapName, psImageCairoName, noLimit},
    {psEncodeName, psDigitsName, 3.0},
};

// Of the small table alone.
constexpr Ratio sheetRatios[] = {
    {recordPeerName, recordName, noLimit},
    {pixelsName, pixelsCairoName, noLimit},
    {pixelsName, pixelsSmoothName, noLimit},
};

// Pages of one content, by their bytes.
struct Sizes {
    const char* name;
    const char* baseName;
    int argument;
};

constexpr Sizes sizes[] = {
    {surfaceName, cairoName, smallTable},
    {surfaceName, cairoName, largeTable},
    {psSurfaceName, psCairoName, smallTable},
    {psSurfaceName, psCairoName, largeTable},
    {textSurfaceName, textCairoName, smallTable},
    {textSurfaceName, textCairoName, largeTable},
    {psTextSurfaceName, psTextCairoName, smallTable},
    {psTextSurfaceName, psTextCairoName, largeTable},
    {recordName, recordPeerName, smallTable},
    {pngName, pngCairoName, imageSide},
    {bitmapName, bitmapCairoName, imageSide},
    {psPngName, psImageCairoName, imageSide},
};

// A large page beside a small one. The cost of a call must not grow with the page; that of a search may grow
// with the logarithm, since it sorts what it searches.
struct Growth {
    const char* name;
    double limit;
};

constexpr Growth growths[] = {
    {floorName, noLimit},  {surfaceName, 1.2},         {freshSurfaceName, 1.2},  {psFloorName, noLimit},
    {psSurfaceName, 1.2},  {replayName, 1.2},          {textFloorName, noLimit}, {textSurfaceName, 1.2},
    {textReplayName, 1.2}, {psTextFloorName, noLimit}, {psTextSurfaceName, 1.2}, {plainMissName, 2.0},
    {wordMissName, 2.0},   {recordName, 1.2},          {metafileMissName, 1.2},  {metafileWordMissName, 1.2},
};

std::string key(const std::string& name, int argument)
{
    return name + '/' + std::to_string(argument);
}

void printNumber(std::ostream& out, int width, int decimals, double value)
{
    out << std::setw(width);
    if (value > 0) {
        out << std::fixed << std::setprecision(decimals) << value;
    } else {
        out << '-';
    }
}

} // namespace

void Summary::ReportRuns(const std::vector<Run>& runs)
{
    std::vector<Run> shown;
    for (const Run& run : runs) {
        const bool counts = run.aggregate_name == "median" || run.repetitions == 1;
        if (run.error_occurred || counts) {
            shown.push_back(run);
        }
        const auto calls = run.counters.find(callsCounter);
        const auto bytes = run.counters.find("bytes_per_second");
        const auto page = run.counters.find(pageCounter);
        if (counts && calls != run.counters.end() && bytes != run.counters.end() &&
            page != run.counters.end()) {
            m_medians[{run.family_index, run.per_family_instance_index}] = {
                run.run_name.function_name + '/' + run.run_name.args, calls->second.value,
                bytes->second.value, page->second.value};
        }
    }
    ConsoleReporter::ReportRuns(shown);
}

void Summary::print(std::ostream& out) const
{
    printRates(out);
    printRatios(out);
}

Summary::Median Summary::medianOf(const std::string& key) const
{
    for (const auto& [order, median] : m_medians) {
        if (median.key == key) {
            return median;
        }
    }
    return {};
}

void Summary::printRates(std::ostream& out) const
{
    out << "\nMedians              million calls/s       MB/s     ns/call   page bytes\n";
    for (const auto& [order, median] : m_medians) {
        out << std::left << std::setw(20) << median.key << std::right;
        printNumber(out, 16, 3, median.calls / 1e6);
        printNumber(out, 11, 1, median.bytes / 1e6);
        printNumber(out, 12, 1, median.calls > 0 ? 1e9 / median.calls : 0);
        printNumber(out, 13, 0, median.page);
        out << '\n';
    }
}

void Summary::printRatios(std::ostream& out) const
{
    out << "\nTime per call                             ratio   limit\n";
    for (const Ratio& ratio : ratios) {
        for (const int rows : {smallTable, largeTable}) {
            printRatio(out, key(ratio.name, rows), key(ratio.baseName, rows), ratio.limit);
        }
    }
    for (const Ratio& ratio : imageRatios) {
        printRatio(out, key(ratio.name, imageSide), key(ratio.baseName, imageSide), ratio.limit);
    }
    for (const Ratio& ratio : sheetRatios) {
        printRatio(out, key(ratio.name, smallTable), key(ratio.baseName, smallTable), ratio.limit);
    }
    for (const Growth& growth : growths) {
        printRatio(out, key(growth.name, largeTable), key(growth.name, smallTable), growth.limit);
    }
    out << "\nBytes of the page                         ratio\n";
    for (const Sizes& pair : sizes) {
        printBytes(out, key(pair.name, pair.argument), key(pair.baseName, pair.argument));
    }
}

void Summary::printBytes(std::ostream& out, const std::string& key, const std::string& baseKey) const
{
    const double base = medianOf(baseKey).page;
    out << std::left << std::setw(nameWidth) << key + " : " + baseKey << std::right;
    printNumber(out, 7, 2, base > 0 ? medianOf(key).page / base : 0);
    out << '\n';
}

void Summary::printRatio(std::ostream& out, const std::string& key, const std::string& baseKey,
                         double limit) const
{
    const double calls = medianOf(key).calls;
    const double value = calls > 0 ? medianOf(baseKey).calls / calls : 0;
    out << std::left << std::setw(nameWidth) << key + " : " + baseKey << std::right;
    printNumber(out, 7, 2, value);
    if (limit > 0) {
        printNumber(out, 8, 1, limit);
        out << (value == 0 ? "   not measured" : value <= limit ? "   kept" : "   MISSED");
    }
    out << '\n';
}
