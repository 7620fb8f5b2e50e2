// The bytes of a metafile that is being recorded: one record after the other, in a buffer that grows.
#pragma once

#include <windows.h>

#include <cstdint>
#include <cstring>
#include <type_traits>
#include <vector>

namespace wingdi {

// The most bytes that a recorded metafile may take.
constexpr std::uint64_t LargestMetafile = std::uint64_t{1} << 30;

// A length rounded up to the multiple of four that records and their parts are padded to.
constexpr std::uint64_t paddedLength(std::uint64_t length) noexcept
{
    return (length + 3) & ~std::uint64_t{3};
}

class RecordBuffer {
public:
    // Appends a record of the fields given (their head is filled in here) and `tailLength` zero bytes, padded. Gives
    // the first byte of that tail, to be filled before the next call; null once recording has stopped, which a record
    // beyond the limit or one without memory brings about.
    template <class Record>
    BYTE* append(DWORD type, const Record& fields, std::uint64_t tailLength = 0) noexcept
    {
        static_assert(std::is_trivially_copyable_v<Record> && sizeof(Record) >= sizeof(EMR));
        if (tailLength > LargestMetafile) {
            stop();
            return nullptr;
        }
        const std::uint64_t size = sizeof(Record) + paddedLength(tailLength);
        BYTE* const start = extend(size);
        if (start == nullptr) {
            return nullptr;
        }
        const EMR head{type, static_cast<DWORD>(size)};
        std::memcpy(start, &fields, sizeof(Record));
        std::memcpy(start, &head, sizeof(head));
        return start + sizeof(Record);
    }

    // Nothing is recorded from now on, and what was is of no use.
    void stop() noexcept { m_stopped = true; }
    bool stopped() const noexcept { return m_stopped; }
    DWORD recordCount() const noexcept { return m_records; }
    std::vector<BYTE>& bytes() noexcept { return m_bytes; }

private:
    BYTE* extend(std::uint64_t length) noexcept;

    std::vector<BYTE> m_bytes;
    DWORD m_records = 0;
    bool m_stopped = false;
};

} // namespace wingdi
