// One command on many files: each file is a job, some of them at a time.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace pagetool {

class Console;

// What became of a file, by exit code; the highest is that of the run.
enum class Outcome {
    Done = 0,
    Nothing = 1, // nothing found, nothing stamped
    Failed = 2,
};

class FileJob {
public:
    FileJob(Console& console, const std::vector<std::string>& files, std::size_t number)
        : _console(console), _files(files), _number(number)
    {
    }

    const std::string& file() const { return _files[_number]; }
    // From 0, in the order of the command line.
    std::size_t number() const { return _number; }
    // Exactly this text.
    void print(std::string_view text);
    // A line, after the file's name when there are several files.
    void printLine(std::string_view line);
    // Reports what is wrong with the file.
    void complain(std::string_view what);
    Outcome fail(std::string_view what);
    // How far the job is, for a terminal.
    void progress(std::string_view text);

private:
    Console& _console;
    const std::vector<std::string>& _files;
    std::size_t _number;
};

using FileCommand = std::function<Outcome(FileJob& job)>;

// Runs the command on each file in `threads` threads and gives the exit code. What the library logs meanwhile is a
// complaint about the file that it works on.
int runJobs(const std::vector<std::string>& files, unsigned int threads, const FileCommand& command);

} // namespace pagetool
