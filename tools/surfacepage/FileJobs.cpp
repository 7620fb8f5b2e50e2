#include "FileJobs.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <new>
#include <thread>

#include "Console.h"
#include "sys/krnos.h"

namespace pagetool {

namespace {

// The log calls back on the thread that logs.
thread_local const std::string* fileAtWork = nullptr;

void complainOfLogLine(const char* line, void* console)
{
    static_cast<Console*>(console)->complain(
        fileAtWork != nullptr ? std::string_view(*fileAtWork) : std::string_view(), line);
}

Outcome runJob(FileJob& job, const FileCommand& command)
{
    try {
        return command(job);
    } catch (const KrnException&) {
        return job.fail("there is not enough memory for it");
    } catch (const std::bad_alloc&) {
        return job.fail("there is not enough memory for it");
    } catch (const std::exception& failure) {
        return job.fail(failure.what());
    }
}

} // namespace

void FileJob::print(std::string_view text)
{
    _console.print(_number, text);
}

void FileJob::printLine(std::string_view line)
{
    std::string whole;
    if (_files.size() > 1) {
        whole.append(file()).append(": ");
    }
    _console.print(_number, whole.append(line).append("\n"));
}

void FileJob::complain(std::string_view what)
{
    _console.complain(file(), what);
}

Outcome FileJob::fail(std::string_view what)
{
    complain(what);
    return Outcome::Failed;
}

void FileJob::progress(std::string_view text)
{
    _console.progress(std::string(file()).append(": ").append(text));
}

int runJobs(const std::vector<std::string>& files, unsigned int threads, const FileCommand& command)
{
    Console console;
    krnSetLogSink(complainOfLogLine, &console);
    std::atomic<std::size_t> next = 0;
    std::atomic<std::size_t> finished = 0;
    std::atomic<int> worst = 0;
    const auto work = [&] {
        for (std::size_t number = next++; number < files.size(); number = next++) {
            fileAtWork = &files[number];
            FileJob job(console, files, number);
            const int outcome = static_cast<int>(runJob(job, command));
            fileAtWork = nullptr;
            console.finish(number);
            for (int seen = worst; seen < outcome && !worst.compare_exchange_weak(seen, outcome);) {
            }
            console.progress(std::to_string(++finished)
                                 .append(" of ")
                                 .append(std::to_string(files.size()))
                                 .append(" files"));
        }
    };
    {
        std::vector<std::jthread> others;
        for (std::size_t i = 1; i < std::min<std::size_t>(threads, files.size()); ++i) {
            others.emplace_back(work);
        }
        work();
    }
    krnSetLogSink(nullptr, nullptr);
    return console.close() ? worst.load() : static_cast<int>(Outcome::Failed);
}

} // namespace pagetool
