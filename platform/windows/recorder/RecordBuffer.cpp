#include "RecordBuffer.h"

#include <new>

namespace wingdi {

BYTE* RecordBuffer::extend(std::uint64_t length) noexcept
{
    const std::size_t start = m_bytes.size();
    if (m_stopped || length > LargestMetafile - start) {
        m_stopped = true;
        return nullptr;
    }
    try {
        m_bytes.resize(start + static_cast<std::size_t>(length));
    } catch (const std::bad_alloc&) {
        m_stopped = true;
        return nullptr;
    }
    ++m_records;
    return m_bytes.data() + start;
}

} // namespace wingdi
