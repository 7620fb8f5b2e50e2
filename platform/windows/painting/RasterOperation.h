// Raster operations: what becomes of a destination pixel, bit by bit, by a pattern, a source and the pixel itself.
// A ternary operation is a truth table of eight bits, the result of (pattern, source, destination) at bit
// pattern * 4 + source * 2 + destination; it is in bits 16-23 of a BitBlt operation ([MS-WMF] 2.1.1.31).
#pragma once

#include <windows.h>

#include <cstddef>

namespace wingdi {

constexpr BYTE CopyPattern = 0xF0;

constexpr BYTE ternaryOf(DWORD operation)
{
    return static_cast<BYTE>(operation >> 16);
}

// Of a binary operation of SetROP2 (R2_BLACK to R2_WHITE), whose number less one is the table of (pen, destination).
constexpr BYTE ternaryOfBinary(int rop2)
{
    const unsigned int table = static_cast<unsigned int>(rop2 - 1) & 0xF;
    return static_cast<BYTE>((table & 3) * 5 + ((table >> 2) * 5 << 4));
}
static_assert(ternaryOfBinary(R2_COPYPEN) == CopyPattern);

constexpr bool usesPattern(BYTE operation)
{
    return ((operation >> 4) & 0xF) != (operation & 0xF);
}
constexpr bool usesSource(BYTE operation)
{
    return ((operation >> 2) & 0x33) != (operation & 0x33);
}

// Changes `count` pixels. The source may be null for an operation without one.
void combine(BYTE operation, DWORD* pixels, DWORD pattern, const DWORD* source, std::size_t count) noexcept;
void combine(BYTE operation, DWORD* pixels, const DWORD* pattern, const DWORD* source,
             std::size_t count) noexcept;

} // namespace wingdi
