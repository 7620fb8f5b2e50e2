// Collects medians while Google Benchmark runs, and prints the closing tables.
#include "Summary.h"

#include <iomanip>

namespace {

struct Ratio {
    const char* name;
    const char* baseName;
    int rows;
    int baseRows;
    double limit; // 0: none
};

constexpr Ratio ratios[] = {
    {surfaceName, floorName, smallTable, smallTable, 3.0},
    {surfaceName, floorName, largeTable, largeTable, 3.0},
    {cairoName, surfaceName, smallTable, smallTable, 0},
    {cairoName, surfaceName, largeTable, largeTable, 0},
    {surfaceName, surfaceName, largeTable, smallTable, 1.2},
    {freshSurfaceName, freshSurfaceName, largeTable, smallTable, 1.2},
    {replayName, replayName, largeTable, smallTable, 1.2},
    {floorName, floorName, largeTable, smallTable, 0},
};

std::string key(const std::string& name, int rows)
{
    return name + '/' + std::to_string(rows);
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
        if (counts && calls != run.counters.end() && bytes != run.counters.end()) {
            m_medians[run.run_name.function_name + '/' + run.run_name.args] = {calls->second.value,
                                                                               bytes->second.value};
        }
    }
    ConsoleReporter::ReportRuns(shown);
}

void Summary::print(std::ostream& out) const
{
    printRates(out);
    printRatios(out);
}

Summary::Rates Summary::median(const std::string& name, int rows) const
{
    const auto found = m_medians.find(key(name, rows));
    return found != m_medians.end() ? found->second : Rates{};
}

double Summary::timePerCall(const std::string& name, int rows) const
{
    const double calls = median(name, rows).calls;
    return calls > 0 ? 1 / calls : 0;
}

void Summary::printRates(std::ostream& out) const
{
    out << "\nMedians           rows   million calls/s       MB/s    ns/call\n";
    for (const char* const name : {floorName, surfaceName, freshSurfaceName, cairoName, replayName}) {
        for (const int rows : {smallTable, largeTable}) {
            const Rates rates = median(name, rows);
            out << std::left << std::setw(14) << name << std::right << std::setw(8) << rows;
            printNumber(out, 18, 3, rates.calls / 1e6);
            printNumber(out, 11, 1, rates.bytes / 1e6);
            printNumber(out, 11, 1, timePerCall(name, rows) * 1e9);
            out << '\n';
        }
    }
}

void Summary::printRatios(std::ostream& out) const
{
    out << "\nTime per call                             ratio   limit\n";
    for (const Ratio& ratio : ratios) {
        const double time = timePerCall(ratio.name, ratio.rows);
        const double base = timePerCall(ratio.baseName, ratio.baseRows);
        const double value = base > 0 ? time / base : 0;
        out << std::left << std::setw(40)
            << key(ratio.name, ratio.rows) + " : " + key(ratio.baseName, ratio.baseRows) << std::right;
        printNumber(out, 7, 2, value);
        if (ratio.limit > 0) {
            printNumber(out, 8, 1, ratio.limit);
            out << (value == 0 ? "   not measured" : value <= ratio.limit ? "   kept" : "   MISSED");
        }
        out << '\n';
    }
}
