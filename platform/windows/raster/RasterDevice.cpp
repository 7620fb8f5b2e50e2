#include "RasterDevice.h"

#include <algorithm>
#include <cmath>

#include "DeviceContext.h"
#include "failWith.h"

namespace wingdi {

namespace {

// What the device knows of itself, in the order of m_capabilities.
constexpr int CapabilityIndexes[] = {TECHNOLOGY, HORZSIZE, VERTSIZE,   HORZRES,    VERTRES,
                                     BITSPIXEL,  PLANES,   RASTERCAPS, LOGPIXELSX, LOGPIXELSY};
constexpr int RasterDisplay = 1; // the answer to TECHNOLOGY

int millimeters(int pixels, int dpi)
{
    return static_cast<int>(std::lround(pixels * 25.4 / dpi));
}

} // namespace

std::unique_ptr<Device> makeRasterDevice(const GdiDeviceOptions& options)
{
    return std::make_unique<RasterDevice>(options);
}

std::unique_ptr<Device> makeRasterDevice(const Device& reference)
{
    return std::make_unique<RasterDevice>(reference);
}

RasterDevice::RasterDevice(const GdiDeviceOptions& options)
    : m_capabilities{RasterDisplay,
                     millimeters(options.width, options.dpi),
                     millimeters(options.height, options.dpi),
                     options.width,
                     options.height,
                     32,
                     1,
                     static_cast<int>(options.rasterCaps),
                     options.dpi,
                     options.dpi},
      m_failBlitsAfter(options.failBlitsAfter)
{
}

RasterDevice::RasterDevice(const Device& reference)
{
    std::transform(std::begin(CapabilityIndexes), std::end(CapabilityIndexes), m_capabilities.begin(),
                   [&reference](int index) { return reference.capability(index); });
}

int RasterDevice::capability(int index) const
{
    static_assert(std::size(CapabilityIndexes) == std::tuple_size_v<decltype(m_capabilities)>);
    const auto* found = std::find(std::begin(CapabilityIndexes), std::end(CapabilityIndexes), index);
    return found == std::end(CapabilityIndexes)
               ? 0
               : m_capabilities[static_cast<std::size_t>(found - std::begin(CapabilityIndexes))];
}

bool RasterDevice::mayStretch()
{
    if (m_failBlitsAfter >= 0 && m_stretches >= m_failBlitsAfter) {
        return failWith(ERROR_GEN_FAILURE, false);
    }
    return true;
}

} // namespace wingdi
