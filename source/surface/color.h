// The parts of a 32-bit colour: red in the low byte, then green, then blue. The top byte is nobody's here.
#pragma once

namespace drawing {

constexpr unsigned long cutColor(unsigned long color)
{
    return color & 0xFFFFFFFFUL; // `unsigned long` has 64 bits on some systems
}

constexpr int redOf(unsigned long color)
{
    return static_cast<int>(color & 0xFFU);
}

constexpr int greenOf(unsigned long color)
{
    return static_cast<int>((color >> 8U) & 0xFFU);
}

constexpr int blueOf(unsigned long color)
{
    return static_cast<int>((color >> 16U) & 0xFFU);
}

// Each component is cut to its low 8 bits.
constexpr unsigned long colorOf(int red, int green, int blue)
{
    return (static_cast<unsigned long>(red) & 0xFFU) | ((static_cast<unsigned long>(green) & 0xFFU) << 8U) |
           ((static_cast<unsigned long>(blue) & 0xFFU) << 16U);
}

} // namespace drawing
