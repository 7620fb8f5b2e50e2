#include "BitmapRows.h"

#include <cstring>

namespace wingdi {

void readPixels(const BitmapView& view, int x, int y, int count, DWORD* pixels)
{
    const BYTE* row = view.row(y);
    if (hasCommonOrder(view)) {
        std::memcpy(pixels, row + std::ptrdiff_t{4} * x, static_cast<std::size_t>(count) * 4);
        return;
    }
    if (view.bitsPerPixel == 24) {
        const BYTE* octet = row + std::ptrdiff_t{3} * x;
        for (int i = 0; i < count; ++i, octet += 3) {
            pixels[i] = static_cast<DWORD>(octet[0] | octet[1] << 8 | octet[2] << 16);
        }
        return;
    }
    for (int i = 0; i < count; ++i) {
        pixels[i] = view.pixel(x + i, y);
    }
}

} // namespace wingdi
