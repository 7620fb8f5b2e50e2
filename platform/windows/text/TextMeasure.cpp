#include "TextMeasure.h"

#include <algorithm>
#include <cmath>

namespace wingdi {

namespace {

// Keeps the sums of many in 64 bits.
constexpr int LargestExtra = 1 << 20; // device units

int extraOnDevice(int logical, double scale)
{
    return static_cast<int>(
        std::clamp(std::floor(logical * scale + 0.5), -double{LargestExtra}, double{LargestExtra}));
}

} // namespace

TextMeasure::TextMeasure(const DeviceContext& context)
    : m_frame(frameOfText(context)), m_font(RealizedFont::realize(context, m_frame)),
      m_characterExtra(extraOnDevice(context.state.characterExtra, m_frame.along)),
      m_breakExtra(extraOnDevice(context.state.breakExtra, m_frame.along)),
      m_breakCount(context.state.breakCount)
{
}

LONG TextMeasure::logicalWidth(std::int64_t device) const noexcept
{
    return toDeviceUnit(static_cast<double>(device) / m_frame.along);
}

LONG TextMeasure::logicalHeight(std::int64_t device) const noexcept
{
    return toDeviceUnit(static_cast<double>(device) / m_frame.across);
}

// The whole extra is shared out so that after `m_breakCount` breaks nothing is lost to rounding.
int TextMeasure::breakExtra() noexcept
{
    const std::int64_t before = std::int64_t{m_breakExtra} * m_breaks / m_breakCount;
    ++m_breaks;
    return static_cast<int>(std::int64_t{m_breakExtra} * m_breaks / m_breakCount - before);
}

} // namespace wingdi
