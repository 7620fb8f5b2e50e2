// The reporter of the benchmarks: shows the median of each one's repetitions as it comes, and at the end the
// rates and the ratios that matter, beside their limits. One noisy run moves neither.
#pragma once

#include <map>
#include <ostream>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

// The benchmarks' names; each runs with the number of table rows as its argument.
inline constexpr const char* floorName = "floor";
inline constexpr const char* surfaceName = "surface";
inline constexpr const char* freshSurfaceName = "surface_fresh";
inline constexpr const char* cairoName = "cairo";
inline constexpr const char* replayName = "replay";

inline constexpr int smallTable = 50;
inline constexpr int largeTable = 5000;

// Counter of each benchmark: drawing calls per second.
inline constexpr const char* callsCounter = "calls";

class Summary : public benchmark::ConsoleReporter {
public:
    Summary() : ConsoleReporter(OO_Tabular) {}

    void ReportRuns(const std::vector<Run>& runs) override;

    // What a filter left out shows as dashes. A limit that is not kept is told, and changes nothing else.
    void print(std::ostream& out) const;

private:
    struct Rates {
        double calls = 0; // per second; 0: not measured
        double bytes = 0;
    };

    Rates median(const std::string& name, int rows) const;
    double timePerCall(const std::string& name, int rows) const;
    void printRates(std::ostream& out) const;
    void printRatios(std::ostream& out) const;

    std::map<std::string, Rates> m_medians; // by name and number of rows
};
