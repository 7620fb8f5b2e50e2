// KrnLog: one formatted line to the host's sink or to standard error.
//
// Called by every part of the module for problems that a caller cannot act on. It never throws and needs no
// memory beyond the stack for lines of usual length, since exhausted memory is one of the things it reports.
#include "sys/krnos.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "HostCallback.h"
#include "NeutralLocale.h"

using namespace krnos;

namespace {

using Sink = void(const char* line, void* context);

HostCallback<Sink>& logSink()
{
    static HostCallback<Sink> sink;
    return sink;
}

struct FreeBlock {
    void operator()(char* block) const noexcept { std::free(block); }
};

// "name: message" and a line end, in one buffer, so that standard error gets it in one write.
class LogLine {
public:
    explicit LogLine(const char* name) noexcept
    {
        if (name != nullptr && *name != '\0') {
            const int length = std::snprintf(m_short, sizeof(m_short) / 2, "%s: ", name);
            m_prefixLength = std::min(static_cast<std::size_t>(std::max(length, 0)), sizeof(m_short) / 2 - 1);
        }
    }

    // The message's length, also when there was no memory for the whole of it; -1 when there is none.
    [[gnu::format(printf, 2, 0)]] int format(const char* format, std::va_list arguments) noexcept
    {
        const NeutralLocale locale;
        std::va_list again;
        va_copy(again, arguments);
        const std::size_t room = sizeof(m_short) - m_prefixLength - 1;
        const int length = std::vsnprintf(m_short + m_prefixLength, room, format, arguments);
        if (length >= 0) {
            m_messageLength = std::min(static_cast<std::size_t>(length), room - 1);
            if (static_cast<std::size_t>(length) > m_messageLength) {
                formatLong(static_cast<std::size_t>(length), format, again);
            }
            std::replace_if(message(), message() + m_messageLength, isLineEnd, ' ');
        }
        va_end(again);
        return length;
    }

    char* message() noexcept { return m_text + m_prefixLength; }

    void writeToStandardError() noexcept
    {
        const std::size_t end = m_prefixLength + m_messageLength;
        m_text[end] = '\n';
        std::fwrite(m_text, 1, end + 1, stderr);
    }

private:
    static bool isLineEnd(char character) noexcept { return character == '\n' || character == '\r'; }

    [[gnu::format(printf, 3, 0)]] void formatLong(std::size_t length, const char* format,
                                                  std::va_list arguments) noexcept
    {
        m_long.reset(static_cast<char*>(std::malloc(m_prefixLength + length + 2)));
        if (m_long != nullptr) {
            std::memcpy(m_long.get(), m_short, m_prefixLength);
            m_text = m_long.get();
            m_messageLength = length;
            std::vsnprintf(message(), length + 1, format, arguments);
        }
    }

    char m_short[512];
    std::unique_ptr<char, FreeBlock> m_long;
    char* m_text = m_short;
    std::size_t m_prefixLength = 0;
    std::size_t m_messageLength = 0;
};

} // namespace

KrnLog::KrnLog(const char* name, const char*, bool, bool) noexcept : m_name(name) {}

int KrnLog::log(const char* format, ...)
{
    LogLine line(m_name);
    std::va_list arguments;
    va_start(arguments, format);
    const int length = line.format(format, arguments);
    va_end(arguments);
    if (length >= 0 && !logSink().call(line.message())) {
        line.writeToStandardError();
    }
    return length;
}

void krnSetLogSink(void (*sink)(const char* line, void* context), void* context)
{
    logSink().set(sink, context);
}
