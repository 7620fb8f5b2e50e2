#include "Console.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace pagetool {

namespace {

constexpr std::chrono::milliseconds Moment(500);
constexpr std::chrono::milliseconds BetweenProgress(100);

// Names and texts of strangers: nothing that a terminal would obey.
std::string onOneLine(std::string_view text)
{
    constexpr std::string_view Digits = "0123456789abcdef";
    std::string line;
    for (const char character : text) {
        const unsigned int byte = static_cast<unsigned char>(character);
        if (byte < 0x20 || byte == 0x7F) {
            line.append("\\x").append(1, Digits[byte >> 4]).append(1, Digits[byte & 0xF]);
        } else {
            line.push_back(character);
        }
    }
    return line;
}

void writeError(const std::string& text)
{
    std::fwrite(text.data(), 1, text.size(), stderr);
    std::fflush(stderr);
}

} // namespace

Console::Console(bool quiet)
    : m_quiet(quiet), m_onTerminal(isatty(STDERR_FILENO) == 1), m_nextProgress(Clock::now() + Moment)
{
}

void Console::print(std::size_t job, std::string_view text)
{
    if (m_quiet) {
        return;
    }
    const std::lock_guard lock(m_mutex);
    if (job == m_turn) {
        write(text);
    } else {
        m_waiting[job].text.append(text);
    }
}

void Console::finish(std::size_t job)
{
    const std::lock_guard lock(m_mutex);
    m_waiting[job].finished = true;
    // The last one whose turn comes goes on by itself: what it has said so far is written, too.
    for (auto next = m_waiting.find(m_turn); next != m_waiting.end(); next = m_waiting.find(m_turn)) {
        write(next->second.text);
        next->second.text.clear();
        if (!next->second.finished) {
            return;
        }
        m_waiting.erase(next);
        ++m_turn;
    }
}

void Console::complain(std::string_view file, std::string_view what)
{
    const std::lock_guard lock(m_mutex);
    clearProgress();
    std::fflush(stdout);
    std::string line("surfacepage: ");
    if (!file.empty()) {
        line.append(onOneLine(file)).append(": ");
    }
    writeError(line.append(onOneLine(what)).append("\n"));
}

void Console::progress(std::string_view text)
{
    if (!m_onTerminal) {
        return;
    }
    const std::lock_guard lock(m_mutex);
    const Clock::time_point now = Clock::now();
    if (now < m_nextProgress) {
        return;
    }
    clearProgress();
    writeError(onOneLine(text));
    m_progressShown = true;
    m_nextProgress = now + BetweenProgress;
}

bool Console::close()
{
    const std::lock_guard lock(m_mutex);
    clearProgress();
    errno = 0;
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        m_outputLost = true;
    }
    if (m_outputLost) {
        writeError(std::string("surfacepage: standard output can't be written: ")
                       .append(std::strerror(errno))
                       .append("\n"));
    }
    return !m_outputLost;
}

void Console::write(std::string_view text)
{
    if (text.empty()) {
        return;
    }
    clearProgress();
    if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size()) {
        m_outputLost = true;
    }
}

void Console::clearProgress()
{
    if (m_progressShown) {
        writeError("\r\x1B[K");
        m_progressShown = false;
    }
}

} // namespace pagetool
