// Arithmetic on coordinates that may be any 32-bit number.
//
// Coordinates come from callers and from stored pages. Sums, differences, negations and products wrap as the
// machine's 32-bit arithmetic does; a floating-point number that leaves the range becomes its nearest end.
#pragma once

#include <cstdint>
#include <limits>

namespace drawing {

constexpr int wrapToInt(std::uint32_t bits)
{
    return static_cast<int>(bits);
}

constexpr int wrapAdd(int a, int b)
{
    return wrapToInt(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}

constexpr int wrapSubtract(int a, int b)
{
    return wrapToInt(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}

constexpr int wrapMultiply(int a, int b)
{
    return wrapToInt(static_cast<std::uint32_t>(a) * static_cast<std::uint32_t>(b));
}

// Truncated toward zero; no number gives 0.
constexpr int saturateToInt(double value)
{
    constexpr int Least = std::numeric_limits<int>::min();
    constexpr int Greatest = std::numeric_limits<int>::max();
    if (value >= static_cast<double>(Greatest)) {
        return Greatest;
    }
    if (value <= static_cast<double>(Least)) {
        return Least;
    }
    return value == value ? static_cast<int>(value) : 0;
}

// The nearest float there is; no number gives 0.
constexpr float saturateToFloat(double value)
{
    constexpr float Greatest = std::numeric_limits<float>::max();
    if (value >= static_cast<double>(Greatest)) {
        return Greatest;
    }
    if (value <= -static_cast<double>(Greatest)) {
        return -Greatest;
    }
    return value == value ? static_cast<float>(value) : 0.0F;
}

} // namespace drawing
