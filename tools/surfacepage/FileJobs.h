// One command on many files: each file is a job, some of them at a time.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace pagetool {

class Console;

// What became of a file, by exit code. The worst is that of the run: a file that failed, then one drawn in part, then one
// with nothing.
enum class Outcome {
    Done = 0,
    Nothing = 1, // nothing found, nothing stamped
    Failed = 2,
    Partial = 3, // what there is of a damaged page was drawn
};

class FileJob {
public:
    FileJob(Console& console, const std::vector<std::string>& files, std::size_t number)
        : m_console(console), m_files(files), m_number(number)
    {
    }

    const std::string& file() const { return m_files[m_number]; }
    // From 0, in the order of the command line.
    std::size_t number() const { return m_number; }
    // Exactly this text.
    void print(std::string_view text);
    // A line, after the file's name when there are several files.
    void printLine(std::string_view line);
    // Reports what is wrong with the file.
    void complain(std::string_view what);
    Outcome fail(std::string_view what);
    // What the library asserted on this thread since the last call, and found violated; empty: nothing. What nobody takes is
    // complained of at the end of the job.
    static std::string takeAssertion();
    // How far the job is, for a terminal.
    void progress(std::string_view text);

private:
    Console& m_console;
    const std::vector<std::string>& m_files;
    std::size_t m_number;
};

using FileCommand = std::function<Outcome(FileJob& job)>;

// Runs the command on each file in `threads` threads and gives the exit code. What the library logs meanwhile is a
// complaint about the file that it works on. `quiet`: nothing goes to standard output.
int runJobs(const std::vector<std::string>& files, unsigned int threads, const FileCommand& command,
            bool quiet);

} // namespace pagetool
