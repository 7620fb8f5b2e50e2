// How FreeImage reads the bytes of an image here: a view of them with a position, and the four functions that
// work on it.
//
// Used by FreeImageDesc.cpp. FreeImage's own memory streams leave a buffer as it was where the data ends, and
// many decoders do not ask how much they got: they go on with sizes that are whatever the memory held. This
// reader gives them zeros.
#pragma once

#include <cstddef>

#include <windows.h>

namespace krnutil {

// The functions as FreeImage calls them (FreeImageIO of its header), each with the reader as its handle.
#pragma pack(push, 1)
struct ImageReaderFunctions {
    unsigned int(WINAPI* read)(void* buffer, unsigned int size, unsigned int count, void* handle);
    unsigned int(WINAPI* write)(void* buffer, unsigned int size, unsigned int count, void* handle);
    int(WINAPI* seek)(void* handle, long offset, int origin);
    long(WINAPI* tell)(void* handle);
};
#pragma pack(pop)

class ImageReader {
public:
    ImageReader(const unsigned char* data, std::size_t size) noexcept
        : m_data(data), m_size(static_cast<long>(size))
    {
    }

    static ImageReaderFunctions functions() noexcept;

    const unsigned char* data() const noexcept { return m_data; }
    std::size_t size() const noexcept { return static_cast<std::size_t>(m_size); }
    void rewind() noexcept { m_position = 0; }

private:
    // `count` items of `size` bytes; gives the number of whole items. What is missing is zero.
    unsigned int read(void* buffer, unsigned int size, unsigned int count) noexcept;

    // As fseek: 0, or -1 for a place before the start. After the end there is nothing to read.
    int seek(long offset, int origin) noexcept;

    // The same as FreeImage calls them.
    static unsigned int WINAPI readFrom(void* buffer, unsigned int size, unsigned int count, void* handle);
    static unsigned int WINAPI writeNothing(void* buffer, unsigned int size, unsigned int count,
                                            void* handle);
    static int WINAPI seekIn(void* handle, long offset, int origin);
    static long WINAPI tellOf(void* handle);

    const unsigned char* m_data;
    long m_size;
    long m_position = 0;
};

} // namespace krnutil
