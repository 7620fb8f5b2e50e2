#include "ReferenceDevice.h"

#include <cmath>
#include <cstddef>

namespace wingdi {

namespace {

// Older headers have no micrometres, and some writers leave nonsense there: they count where they agree with the
// millimetres but for the rounding of those.
double micrometersOf(LONG millimeters, LONG micrometers)
{
    const double rounded = millimeters * 1000.0;
    return std::abs(micrometers - rounded) < 1000 ? micrometers : rounded;
}

} // namespace

std::optional<ReferenceDevice> ReferenceDevice::of(const metafile::Record& header)
{
    const auto frame = header.field<RECTL>(offsetof(ENHMETAHEADER, rclFrame));
    const auto pixels = header.field<SIZEL>(offsetof(ENHMETAHEADER, szlDevice));
    const auto millimeters = header.field<SIZEL>(offsetof(ENHMETAHEADER, szlMillimeters));
    if (!frame || !pixels || !millimeters || pixels->cx <= 0 || pixels->cy <= 0 || millimeters->cx <= 0 ||
        millimeters->cy <= 0) {
        return std::nullopt;
    }
    const SIZEL micrometers =
        header.field<SIZEL>(offsetof(ENHMETAHEADER, szlMicrometers)).value_or(SIZEL{0, 0});
    // The frame is in hundredths of a millimetre.
    const double scaleX = 10.0 * pixels->cx / micrometersOf(millimeters->cx, micrometers.cx);
    const double scaleY = 10.0 * pixels->cy / micrometersOf(millimeters->cy, micrometers.cy);
    ReferenceDevice device;
    device.m_pixels = *pixels;
    device.m_millimeters = *millimeters;
    device.m_left = frame->left * scaleX;
    device.m_top = frame->top * scaleY;
    device.m_width = frame->right * scaleX - device.m_left;
    device.m_height = frame->bottom * scaleY - device.m_top;
    return device;
}

int ReferenceDevice::capability(int index) const
{
    switch (index) {
    case HORZSIZE:
        return m_millimeters.cx;
    case VERTSIZE:
        return m_millimeters.cy;
    case HORZRES:
        return m_pixels.cx;
    case VERTRES:
        return m_pixels.cy;
    default:
        return ScreenDevice::capability(index);
    }
}

Mapping ReferenceDevice::onto(const RECT& rect) const noexcept
{
    const auto scaleOf = [](LONG from, LONG to, double length) {
        return length > 0 ? (static_cast<double>(to) - from) / length : 1.0;
    };
    Mapping mapping;
    mapping.xx = scaleOf(rect.left, rect.right, m_width);
    mapping.yy = scaleOf(rect.top, rect.bottom, m_height);
    mapping.dx = rect.left - m_left * mapping.xx;
    mapping.dy = rect.top - m_top * mapping.yy;
    return mapping;
}

} // namespace wingdi
