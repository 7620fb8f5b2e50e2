// A painted surface as the bytes of a JPEG file.
#pragma once

#include <cairo.h>

#include <cstddef>
#include <span>

namespace wingdi {

class JpegPicture {
public:
    static constexpr double LongestSide = 65500; // pixels, of the library that writes it

    // Of an image surface without holes; `quality` from 1 to 100, others are brought there. No bytes when there is no memory.
    JpegPicture(cairo_surface_t* surface, int quality);
    JpegPicture(const JpegPicture&) = delete;
    JpegPicture& operator=(const JpegPicture&) = delete;
    ~JpegPicture();

    std::span<const unsigned char> bytes() const { return {m_bytes, m_length}; }

private:
    unsigned char* m_bytes = nullptr;
    unsigned long m_length = 0;
};

} // namespace wingdi
