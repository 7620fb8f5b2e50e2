// Collects medians while Google Benchmark runs, and prints the closing tables.
#include "Summary.h"

#include <iomanip>

#include "ImagePage.h"

namespace {

constexpr double NoLimit = 0;
constexpr int NameWidth = 40;

// Two benchmarks side by side, at each number of rows.
struct Ratio {
    const char* name;
    const char* baseName;
    double limit;
};

constexpr Ratio Ratios[] = {
    {SurfaceName, FloorName, 3.0},
    {CairoName, SurfaceName, NoLimit},
    {ReplayName, ParseName, 1.0},
    {PsSurfaceName, PsFloorName, 3.0},
    {PsCairoName, PsSurfaceName, NoLimit},
    {PsTextSurfaceName, PsTextFloorName, 3.0},
    {PsTextCairoName, PsTextSurfaceName, NoLimit},
    {TextSurfaceName, TextFloorName, 3.0},
    {TextCairoName, TextSurfaceName, NoLimit},
    {TextReplayName, TextParseName, 1.0},
    {StampName, CopiesName, 3.0},
    {PlainMissName, TextParseName, 1.0},
    {PlainHitName, TextParseName, 1.0},
    {WordMissName, TextParseName, 1.0},
    {WordHitName, TextParseName, 1.0},
    {PlainMissName, ScanMissName, NoLimit},
    {PlainHitName, ScanHitName, NoLimit},
    {MetafileStampName, MetafileCopyName, NoLimit},
    {MetafileMissName, MetafileCopyName, NoLimit},
    {MetafileHitName, MetafileCopyName, NoLimit},
    {MetafileWordMissName, MetafileCopyName, NoLimit},
    {MetafileWordHitName, MetafileCopyName, NoLimit},
};

constexpr Ratio ImageRatios[] = {
    {PngName, PngCairoName, NoLimit},       {BitmapName, BitmapCairoName, NoLimit},
    {PsPngName, PsImageCairoName, NoLimit}, {PsBitmapName, PsImageCairoName, NoLimit},
    {PsEncodeName, PsDigitsName, 3.0},      {PdfImageName, PdfImageCairoName, 1.3},
};

// Of the small table alone.
constexpr Ratio SheetRatios[] = {
    {RecordPeerName, RecordName, NoLimit},   {PixelsName, PixelsCairoName, NoLimit},
    {PixelsName, PixelsSmoothName, NoLimit}, {PdfName, PdfCairoName, 1.3},
    {PdfTextName, PdfTextCairoName, 1.3},
};

// Pages of one content, by their bytes.
struct Sizes {
    const char* name;
    const char* baseName;
    int argument;
    double limit = NoLimit;
};

constexpr Sizes SizePairs[] = {
    {SurfaceName, CairoName, SmallTable},
    {SurfaceName, CairoName, LargeTable},
    {PsSurfaceName, PsCairoName, SmallTable},
    {PsSurfaceName, PsCairoName, LargeTable},
    {TextSurfaceName, TextCairoName, SmallTable},
    {TextSurfaceName, TextCairoName, LargeTable},
    {PsTextSurfaceName, PsTextCairoName, SmallTable},
    {PsTextSurfaceName, PsTextCairoName, LargeTable},
    {RecordName, RecordPeerName, SmallTable},
    {PngName, PngCairoName, ImageSide},
    {BitmapName, BitmapCairoName, ImageSide},
    {PsPngName, PsImageCairoName, ImageSide},
    {PdfName, PdfCairoName, SmallTable, 1.1},
    {PdfTextName, PdfTextCairoName, SmallTable, 1.1},
    {PdfImageName, PdfImageCairoName, ImageSide, 1.1},
    {PdfPagesName, PdfPagesCairoName, ManyPages, 1.1},
};

// A large page beside a small one. The cost of a call must not grow with the page; that of a search may grow
// with the logarithm, since it sorts what it searches.
struct Growth {
    const char* name;
    double limit;
};

constexpr Growth Growths[] = {
    {FloorName, NoLimit},  {SurfaceName, 1.2},         {FreshSurfaceName, 1.2},  {PsFloorName, NoLimit},
    {PsSurfaceName, 1.2},  {ReplayName, 1.2},          {TextFloorName, NoLimit}, {TextSurfaceName, 1.2},
    {TextReplayName, 1.2}, {PsTextFloorName, NoLimit}, {PsTextSurfaceName, 1.2}, {PlainMissName, 2.0},
    {WordMissName, 2.0},   {RecordName, 1.2},          {MetafileMissName, 1.2},  {MetafileWordMissName, 1.2},
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
        const auto calls = run.counters.find(CallsCounter);
        const auto bytes = run.counters.find("bytes_per_second");
        const auto page = run.counters.find(PageCounter);
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
    for (const Ratio& ratio : Ratios) {
        for (const int rows : {SmallTable, LargeTable}) {
            printRatio(out, key(ratio.name, rows), key(ratio.baseName, rows), ratio.limit);
        }
    }
    for (const Ratio& ratio : ImageRatios) {
        printRatio(out, key(ratio.name, ImageSide), key(ratio.baseName, ImageSide), ratio.limit);
    }
    for (const Ratio& ratio : SheetRatios) {
        printRatio(out, key(ratio.name, SmallTable), key(ratio.baseName, SmallTable), ratio.limit);
    }
    printRatio(out, key(PdfPagesName, ManyPages), key(PdfPagesCairoName, ManyPages), 1.3);
    for (const Growth& growth : Growths) {
        printRatio(out, key(growth.name, LargeTable), key(growth.name, SmallTable), growth.limit);
    }
    out << "\nBytes of the page                         ratio\n";
    for (const Sizes& pair : SizePairs) {
        printBytes(out, key(pair.name, pair.argument), key(pair.baseName, pair.argument), pair.limit);
    }
}

void Summary::printBytes(std::ostream& out, const std::string& key, const std::string& baseKey,
                         double limit) const
{
    const double base = medianOf(baseKey).page;
    printAgainstLimit(out, key, baseKey, base > 0 ? medianOf(key).page / base : 0, limit);
}

void Summary::printRatio(std::ostream& out, const std::string& key, const std::string& baseKey,
                         double limit) const
{
    const double calls = medianOf(key).calls;
    printAgainstLimit(out, key, baseKey, calls > 0 ? medianOf(baseKey).calls / calls : 0, limit);
}

void Summary::printAgainstLimit(std::ostream& out, const std::string& key, const std::string& baseKey,
                                double value, double limit)
{
    out << std::left << std::setw(NameWidth) << key + " : " + baseKey << std::right;
    printNumber(out, 7, 2, value);
    if (limit > 0) {
        printNumber(out, 8, 1, limit);
        out << (value == 0 ? "   not measured" : value <= limit ? "   kept" : "   MISSED");
    }
    out << '\n';
}
