#include "RasterOperation.h"

#include <algorithm>
#include <cstring>

namespace wingdi {

namespace {

// A truth table as a sum (exclusive or) of products: the coefficients, each all ones or all zeros.
struct Products {
    DWORD term[8];
};

Products productsOf(BYTE operation)
{
    unsigned int table = operation;
    // The coefficient of a product is the sum of the table's entries for all its subsets.
    table ^= (table << 1) & 0xAA;
    table ^= (table << 2) & 0xCC;
    table ^= (table << 4) & 0xF0;
    Products products{};
    for (unsigned int i = 0; i < 8; ++i) {
        products.term[i] = 0U - ((table >> i) & 1);
    }
    return products;
}

// The pixel becomes (pixel & keep) ^ flip.
void change(DWORD* pixels, DWORD keep, DWORD flip, std::size_t count)
{
    if (keep == 0) {
        std::fill_n(pixels, count, flip);
        return;
    }
    for (std::size_t i = 0; i < count; ++i) {
        pixels[i] = (pixels[i] & keep) ^ flip;
    }
}

} // namespace

void combine(BYTE operation, DWORD* pixels, DWORD pattern, const DWORD* source, std::size_t count) noexcept
{
    const auto [c] = productsOf(operation);
    if (!usesSource(operation)) {
        change(pixels, c[1] ^ (c[5] & pattern), c[0] ^ (c[4] & pattern), count);
        return;
    }
    switch (ternaryOf(static_cast<DWORD>(operation) << 16)) {
    case ternaryOf(SRCCOPY):
        std::memmove(pixels, source, count * sizeof(DWORD));
        return;
    case ternaryOf(SRCINVERT):
        for (std::size_t i = 0; i < count; ++i) {
            pixels[i] ^= source[i];
        }
        return;
    case ternaryOf(SRCAND):
        for (std::size_t i = 0; i < count; ++i) {
            pixels[i] &= source[i];
        }
        return;
    default:
        break;
    }
    const DWORD flip = c[0] ^ (c[4] & pattern);
    const DWORD keep = c[1] ^ (c[5] & pattern);
    const DWORD sourceFlip = c[2] ^ (c[6] & pattern);
    const DWORD sourceKeep = c[3] ^ (c[7] & pattern);
    for (std::size_t i = 0; i < count; ++i) {
        pixels[i] = flip ^ (pixels[i] & keep) ^ (source[i] & (sourceFlip ^ (pixels[i] & sourceKeep)));
    }
}

void combine(BYTE operation, DWORD* pixels, const DWORD* pattern, const DWORD* source,
             std::size_t count) noexcept
{
    const auto [c] = productsOf(operation);
    const bool sourced = usesSource(operation);
    for (std::size_t i = 0; i < count; ++i) {
        const DWORD p = pattern[i];
        const DWORD d = pixels[i];
        const DWORD s = sourced ? source[i] : 0;
        pixels[i] = c[0] ^ (c[4] & p) ^ (d & (c[1] ^ (c[5] & p))) ^
                    (s & (c[2] ^ (c[6] & p) ^ (d & (c[3] ^ (c[7] & p)))));
    }
}

} // namespace wingdi
