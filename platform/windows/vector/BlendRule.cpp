#include "BlendRule.h"

namespace wingdi {

namespace {

using Operand = BlendRule::Operand;

// By the truth table of (operand, page), page the lower bit.
constexpr BlendRule Rules[16] = {
    {false, Operand::Black, Blend::Normal, false},      // 0
    {false, Operand::Given, Blend::Screen, true},       // neither
    {false, Operand::Inverted, Blend::Multiply, false}, // page and not operand
    {false, Operand::Inverted, Blend::Normal, false},   // not operand
    {true, Operand::Given, Blend::Multiply, false},     // operand and not page
    {true, Operand::None, Blend::Normal, false},        // not page
    {false, Operand::Given, Blend::Difference, false},  // one of them
    {false, Operand::Given, Blend::Multiply, true},     // not both
    {false, Operand::Given, Blend::Multiply, false},    // both
    {false, Operand::Given, Blend::Difference, true},   // none or both
    {false, Operand::None, Blend::Normal, false},       // page
    {false, Operand::Inverted, Blend::Screen, false},   // page or not operand
    {false, Operand::Given, Blend::Normal, false},      // operand
    {true, Operand::Given, Blend::Screen, false},       // operand or not page
    {false, Operand::Given, Blend::Screen, false},      // either
    {false, Operand::White, Blend::Normal, false},      // 1
};

} // namespace

BlendRule blendWithPattern(BYTE ternary)
{
    return Rules[(ternary & 3) | (ternary >> 4 & 3) << 2];
}

BlendRule blendWithSource(BYTE ternary)
{
    return Rules[ternary & 0xF];
}

} // namespace wingdi
