// What the tool says. Jobs run at the same time, but their outputs come out whole and in the order of the files.
#pragma once

#include <chrono>
#include <cstddef>
#include <map>
#include <mutex>
#include <string>
#include <string_view>

namespace pagetool {

class Console {
public:
    // Quiet: what is printed goes nowhere; complaints stay.
    explicit Console(bool quiet);

    // To standard output: at once for the job whose turn it is, else once its turn has come.
    void print(std::size_t job, std::string_view text);
    // The job says nothing more.
    void finish(std::size_t job);
    // "surfacepage: FILE: WHAT" to standard error at once, on one line whatever the bytes are.
    void complain(std::string_view file, std::string_view what);
    // Shows on a terminal, some times a second, how far a run is that takes longer than a moment.
    void progress(std::string_view text);
    // Takes the progress away. False when some output was lost, after saying so.
    bool close();

private:
    using Clock = std::chrono::steady_clock;

    struct Waiting {
        std::string text;
        bool finished = false;
    };

    void write(std::string_view text);
    void clearProgress();

    std::mutex m_mutex;
    std::map<std::size_t, Waiting> m_waiting; // jobs after the one whose turn it is
    std::size_t m_turn = 0;
    bool m_outputLost = false;
    const bool m_quiet;

    const bool m_onTerminal;
    bool m_progressShown = false;
    Clock::time_point m_nextProgress;
};

} // namespace pagetool
