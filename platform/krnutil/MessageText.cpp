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
        const std::lock_guard lock(_mutex);
        _texts.insert_or_assign(number, std::move(entry));
    }

    // Cut to the buffer, whose size is at least 1. False when there is no such message.
    bool copy(int number, char* buffer, std::size_t size)
    {
        const std::lock_guard lock(_mutex);
        const auto found = _texts.find(number);
        if (found == _texts.end() || !found->second.has_value()) {
            return false;
        }
        const std::size_t length = std::min(found->second->size(), size - 1);
        std::memcpy(buffer, found->second->data(), length);
        buffer[length] = '\0';
        return true;
    }

private:
    static constexpr int pageCountWord = 15301;

    std::mutex _mutex;
    // Without a text: taken out by the host.
    std::map<int, std::optional<std::string>> _texts{{pageCountWord, "of"}};
};

MessageTable& messageTable()
{
    static MessageTable table;
    return table;
}

} // namespace

int krnGetMessageText(int number, char* buffer, int size)
{
    constexpr int noText = 1;
    if (buffer == nullptr || size <= 0) {
        return noText;
    }
    buffer[0] = '\0';
    return messageTable().copy(number, buffer, static_cast<std::size_t>(size)) ? 0 : noText;
}

void krnSetMessageText(int number, const char* text)
{
    try {
        messageTable().set(number, text);
    } catch (const std::bad_alloc&) {
        krnOutOfMemory();
    }
}
