// The message table: the texts that the platform brings, and those that a host puts in their place.
//
// Called by whoever stamps a page count.
#include "sys/krnutil.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <mutex>
#include <new>
#include <optional>
#include <string>
#include <string_view>

#include "sys/krnos.h"

namespace {

class MessageTable {
public:
    void set(int number, const char* text)
    {
        std::optional<std::string> entry;
        if (text != nullptr) {
            entry = text;
        }
        const std::lock_guard lock(m_mutex);
        m_texts.insert_or_assign(number, std::move(entry));
    }

    // Cut to the buffer, whose size is at least 1. False when there is no such message.
    bool copy(int number, char* buffer, std::size_t size)
    {
        const std::lock_guard lock(m_mutex);
        const std::optional<std::string_view> text = textOf(number);
        if (!text.has_value()) {
            return false;
        }
        const std::size_t length = std::min(text->size(), size - 1);
        std::memcpy(buffer, text->data(), length);
        buffer[length] = '\0';
        return true;
    }

private:
    std::optional<std::string_view> textOf(int number) const
    {
        const auto found = m_texts.find(number);
        if (found != m_texts.end()) {
            return found->second;
        }
        constexpr int PageCountWord = 15301; // the one that the platform brings; it takes no memory
        return number == PageCountWord ? std::optional<std::string_view>("of") : std::nullopt;
    }

    std::mutex m_mutex;
    // Of the host. Without a text: taken out.
    std::map<int, std::optional<std::string>> m_texts;
};

MessageTable& messageTable()
{
    static MessageTable table;
    return table;
}

} // namespace

int krnGetMessageText(int number, char* buffer, int size) noexcept
{
    constexpr int NoText = 1;
    if (buffer == nullptr || size <= 0) {
        return NoText;
    }
    buffer[0] = '\0';
    return messageTable().copy(number, buffer, static_cast<std::size_t>(size)) ? 0 : NoText;
}

void krnSetMessageText(int number, const char* text)
{
    try {
        messageTable().set(number, text);
    } catch (const std::bad_alloc&) {
        krnOutOfMemory();
    }
}
