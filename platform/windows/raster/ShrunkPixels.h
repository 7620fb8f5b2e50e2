// Pictures that a copy makes smaller, so that thin lines don't get lost: each target pixel takes all source pixels
// together that it covers. PixelSource asks for them; an axis that is not made smaller chooses the nearest pixel.
#pragma once

#include <windows.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "Bitmap.h"
#include "ColorRule.h"

namespace wingdi {

// What becomes of source pixels that share a target pixel.
enum class Shrinking : unsigned char {
    Nearest, // the one that the target pixel's middle falls on stays
    Average, // weighted by area, in whole numbers: exact; of samples where the mapping turns
    All,     // the bits that all have (AND), of the pixels with their middle on the target pixel
    Any,     // the bits that any has (OR), of the same
};
// By SetStretchBltMode, for a copy with this ternary operation: everything but a plain copy stays nearest, so that
// raster steps which belong together choose the same pixels. `oneBit`: the source or the target is a one-bit picture.
Shrinking shrinkingFor(int stretchMode, BYTE operation, bool oneBit) noexcept;

// The way from target to source along one axis. Ends may be swapped; none is farther than 2^26 from 0.
struct AxisCopy {
    std::int64_t target;
    std::int64_t targetEnd;
    std::int64_t source;
    std::int64_t sourceEnd;

    bool shrinks() const noexcept;
};

// Source positions from `first` to `last` that become one. Those between have the axis' inner weight; where first and
// last are one, `firstWeight` is its weight.
struct SourceSpan {
    int first;
    int last;
    std::uint64_t firstWeight;
    std::uint64_t lastWeight;
};

struct ShrunkAxis {
    // For the target positions from `begin` on, whose nearest source positions, all within [low, high), are given.
    ShrunkAxis(const AxisCopy& copy, const std::vector<int>& nearest, int begin, int low, int high,
               Shrinking shrinking);

    std::vector<SourceSpan> spans; // not more than target positions
    std::vector<std::size_t> spanOf;
    std::uint64_t innerWeight = 1;
};

// What single pixels become together, all of the same weight, by the rule for colours.
class MixedPixel {
public:
    MixedPixel(const ColorRule& rule, Shrinking shrinking);

    void add(DWORD pixel);
    bool empty() const noexcept { return m_count == 0; }
    // Not for an empty one.
    DWORD result() const;

private:
    ColorRule m_rule;
    Shrinking m_shrinking;
    std::array<std::uint64_t, 4> m_sums{};
    std::uint64_t m_count = 0;
    DWORD m_merged;
};

// One pixel for each pair of spans. Made in a time that grows with the source pixels in use, whatever the sizes are.
class ShrunkPixels {
public:
    ShrunkPixels(const BitmapView& view, const ColorRule& rule, Shrinking shrinking, ShrunkAxis columns,
                 ShrunkAxis rows);

    // Only of what is in view, and never more than a bitmap may take.
    static bool mayHold(std::size_t columns, std::size_t rows) noexcept
    {
        return rows != 0 && columns <= LargestBitmap / sizeof(DWORD) / rows;
    }

    // The pixels of `count` target columns of a row, both counted from the axes' begin. Valid until the next call.
    const DWORD* read(std::size_t column, std::size_t row, std::size_t count);

private:
    void averageRow(const SourceSpan& span, DWORD* pixels) const;
    void mergeRow(const SourceSpan& span, DWORD* pixels) const;

    const BitmapView& m_view;
    const ColorRule& m_rule;
    Shrinking m_shrinking;
    ShrunkAxis m_columns;
    ShrunkAxis m_rows;
    std::vector<DWORD> m_picture;
    std::vector<DWORD> m_stretch;
};

} // namespace wingdi
