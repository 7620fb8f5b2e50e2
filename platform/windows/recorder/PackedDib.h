// A bitmap in the form in which records carry it: BITMAPINFOHEADER, masks or colour table, rows from the bottom.
#pragma once

#include <windows.h>

#include <cstdint>

#include "Bitmap.h"

namespace wingdi {

class PackedDib {
public:
    explicit PackedDib(const BitmapView& view) noexcept;

    std::uint64_t headLength() const noexcept;
    std::uint64_t bitsLength() const noexcept
    {
        return m_rowLength * static_cast<std::uint64_t>(m_view.height);
    }
    // Writes so many bytes.
    void writeHead(BYTE* target) const noexcept;
    void writeBits(BYTE* target) const noexcept;

private:
    bool hasMasks() const noexcept;
    std::uint64_t colorCount() const noexcept;

    const BitmapView& m_view;
    std::uint64_t m_rowLength; // padded to 32 bits
};

} // namespace wingdi
