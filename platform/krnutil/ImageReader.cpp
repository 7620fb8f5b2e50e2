// The reader behind a decoder.
#include "ImageReader.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace krnutil {

unsigned int ImageReader::read(void* buffer, unsigned int size, unsigned int count) noexcept
{
    const std::size_t wanted = std::size_t{size} * count;
    const auto left = static_cast<std::size_t>(std::max(m_size - m_position, 0L));
    const std::size_t given = std::min(wanted, left);
    if (given != 0) {
        std::memcpy(buffer, m_data + m_position, given);
        m_position += static_cast<long>(given);
    }
    if (given != wanted) {
        std::memset(static_cast<char*>(buffer) + given, 0, wanted - given);
    }
    return size != 0 ? static_cast<unsigned int>(given / size) : 0;
}

int ImageReader::seek(long offset, int origin) noexcept
{
    const long base = origin == SEEK_CUR ? m_position : origin == SEEK_END ? m_size : 0;
    long target = 0;
    if (__builtin_add_overflow(base, offset, &target) || target < 0) {
        return -1;
    }
    m_position = target;
    return 0;
}

unsigned int WINAPI ImageReader::readFrom(void* buffer, unsigned int size, unsigned int count, void* handle)
{
    return static_cast<ImageReader*>(handle)->read(buffer, size, count);
}

unsigned int WINAPI ImageReader::writeNothing(void*, unsigned int, unsigned int, void*)
{
    return 0;
}

int WINAPI ImageReader::seekIn(void* handle, long offset, int origin)
{
    return static_cast<ImageReader*>(handle)->seek(offset, origin);
}

long WINAPI ImageReader::tellOf(void* handle)
{
    return static_cast<ImageReader*>(handle)->m_position;
}

ImageReaderFunctions ImageReader::functions() noexcept
{
    return {readFrom, writeNothing, seekIn, tellOf};
}

} // namespace krnutil
