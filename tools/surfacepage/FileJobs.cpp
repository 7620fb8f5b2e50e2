#include "FileJobs.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <new>
#include <thread>
#include <utility>

#include "Console.h"
#include "sys/krnos.h"

namespace pagetool {

namespace {

// The log calls back on the thread that logs.
thread_local const std::string* fileAtWork = nullptr;
thread_local std::string violated; // the latest assertion

void complainOfLogLine(const char* line, void* console)
{
    static_cast<Console*>(console)->complain(
        fileAtWork != nullptr ? std::string_view(*fileAtWork) : std::string_view(), line);
}

void noteAssertion(const char* /*caption*/, const char* expression, const char* /*module*/,
                   const char* /*file*/, int /*line*/, void* /*context*/)
{
    violated = expression;
}

// In the order of their weight for a run.
constexpr Outcome ByWeight[] = {Outcome::Done, Outcome::Nothing, Outcome::Partial, Outcome::Failed};

std::size_t weightOf(Outcome outcome)
{
    return static_cast<std::size_t>(std::find(std::begin(ByWeight), std::end(ByWeight), outcome) -
                                    std::begin(ByWeight));
}

Outcome runJob(FileJob& job, const FileCommand& command)
{
    try {
        const Outcome outcome = command(job);
        if (const std::string assertion = FileJob::takeAssertion(); !assertion.empty()) {
            job.complain(std::string("contradicts itself: ").append(assertion).append(" does not hold"));
        }
        return outcome;
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
    m_console.print(m_number, text);
}

void FileJob::printLine(std::string_view line)
{
    std::string whole;
    if (m_files.size() > 1) {
        whole.append(file()).append(": ");
    }
    m_console.print(m_number, whole.append(line).append("\n"));
}

void FileJob::complain(std::string_view what)
{
    m_console.complain(file(), what);
}

Outcome FileJob::fail(std::string_view what)
{
    complain(what);
    return Outcome::Failed;
}

void FileJob::progress(std::string_view text)
{
    m_console.progress(std::string(file()).append(": ").append(text));
}

std::string FileJob::takeAssertion()
{
    return std::exchange(violated, {});
}

int runJobs(const std::vector<std::string>& files, unsigned int threads, const FileCommand& command,
            bool quiet)
{
    Console console(quiet);
    krnSetLogSink(complainOfLogLine, &console);
    kosSetAssertHandler(noteAssertion, nullptr);
    std::atomic<std::size_t> next = 0;
    std::atomic<std::size_t> finished = 0;
    std::atomic<std::size_t> worst = 0; // weight
    const auto work = [&] {
        for (std::size_t number = next++; number < files.size(); number = next++) {
            fileAtWork = &files[number];
            FileJob job(console, files, number);
            const std::size_t outcome = weightOf(runJob(job, command));
            fileAtWork = nullptr;
            console.finish(number);
            for (std::size_t seen = worst; seen < outcome && !worst.compare_exchange_weak(seen, outcome);) {
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
    kosSetAssertHandler(nullptr, nullptr);
    krnSetLogSink(nullptr, nullptr);
    return static_cast<int>(console.close() ? ByWeight[worst] : Outcome::Failed);
}

} // namespace pagetool
