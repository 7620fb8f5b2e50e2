#include "MetafileDevice.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

#include "DeviceContext.h"

namespace wingdi {

namespace {

// The reference device: the screen. A pixel is 0.26458 mm along both axes, 96 to the inch.
constexpr SIZEL DevicePixels{1920, 1440};
constexpr SIZEL DeviceMillimeters{508, 381};
constexpr int BitsPerPixel = 32;
constexpr int DotsPerInch = 96;
constexpr int RasterDisplay = 1;

constexpr std::pair<int, int> Capabilities[] = {
    {TECHNOLOGY, RasterDisplay},
    {HORZSIZE, DeviceMillimeters.cx},
    {VERTSIZE, DeviceMillimeters.cy},
    {HORZRES, DevicePixels.cx},
    {VERTRES, DevicePixels.cy},
    {BITSPIXEL, BitsPerPixel},
    {PLANES, 1},
    {RASTERCAPS, RC_BITBLT | RC_STRETCHBLT},
    {LOGPIXELSX, DotsPerInch},
    {LOGPIXELSY, DotsPerInch},
};

constexpr DWORD FormatVersion = 0x10000;

// The frame around pixels, in hundredths of a millimetre: from the left edge of the first to the right one of the last.
RECTL frameAround(const RECTL& pixels)
{
    const auto hundredths = [](std::int64_t edge, LONG millimeters, LONG resolution) {
        const std::int64_t value = edge * millimeters * 100 / resolution;
        return static_cast<LONG>(std::clamp<std::int64_t>(value, INT32_MIN, INT32_MAX));
    };
    return {hundredths(pixels.left, DeviceMillimeters.cx, DevicePixels.cx),
            hundredths(pixels.top, DeviceMillimeters.cy, DevicePixels.cy),
            hundredths(std::int64_t{pixels.right} + 1, DeviceMillimeters.cx, DevicePixels.cx),
            hundredths(std::int64_t{pixels.bottom} + 1, DeviceMillimeters.cy, DevicePixels.cy)};
}

} // namespace

MetafileDevice::MetafileDevice(const RECT* frame)
{
    if (frame != nullptr) {
        m_frame = *frame;
    }
    m_buffer.append(EMR_HEADER, ENHMETAHEADER{});
}

std::optional<std::vector<BYTE>> MetafileDevice::finish() noexcept
{
    EMREOF end{};
    end.offPalEntries = offsetof(EMREOF, nSizeLast);
    end.nSizeLast = sizeof(end);
    record(EMR_EOF, end);
    if (m_buffer.stopped()) {
        return std::nullopt;
    }
    ENHMETAHEADER header{};
    header.iType = EMR_HEADER;
    header.nSize = sizeof(header);
    header.rclBounds = m_drawn.box;
    header.rclFrame = m_frame ? RECTL{m_frame->left, m_frame->top, m_frame->right, m_frame->bottom}
                              : frameAround(m_drawn.box);
    header.dSignature = ENHMETA_SIGNATURE;
    header.nVersion = FormatVersion;
    header.nBytes = static_cast<DWORD>(m_buffer.bytes().size());
    header.nRecords = m_buffer.recordCount();
    header.nHandles = static_cast<WORD>(m_objects.entryCount());
    header.szlDevice = DevicePixels;
    header.szlMillimeters = DeviceMillimeters;
    header.szlMicrometers = {DeviceMillimeters.cx * 1000, DeviceMillimeters.cy * 1000};
    std::memcpy(m_buffer.bytes().data(), &header, sizeof(header));
    return std::move(m_buffer.bytes());
}

int MetafileDevice::capability(int index) const
{
    const auto* const found = std::find_if(std::begin(Capabilities), std::end(Capabilities),
                                           [index](const auto& entry) { return entry.first == index; });
    return found == std::end(Capabilities) ? 0 : found->second;
}

bool MetafileDevice::comment(DeviceContext& /*context*/, std::span<const BYTE> data)
{
    EMRGDICOMMENT fields{};
    fields.cbData = static_cast<DWORD>(data.size());
    BYTE* const tail = record(EMR_GDICOMMENT, fields, data.size());
    if (tail == nullptr) {
        return false;
    }
    if (!data.empty()) {
        std::memcpy(tail, data.data(), data.size());
    }
    return true;
}

void MetafileDevice::markDrawn(const DeviceContext& context, DrawnBounds bounds)
{
    if (bounds.empty()) {
        return;
    }
    for (const std::optional<Region>* clip : {&context.state.clip, &context.state.metaClip}) {
        if (*clip) {
            bounds.clip((*clip)->box());
        }
    }
    m_drawn.add(bounds.box);
}

RECTL MetafileDevice::markStroked(const DeviceContext& context, DrawnBounds bounds, Corners corners)
{
    if (m_pathState == PathState::Open) {
        m_path.add(bounds.box);
        return DrawnBounds{}.box;
    }
    bounds.grow(penReach(context, corners));
    markDrawn(context, bounds);
    return bounds.box;
}

RECTL MetafileDevice::markPath(const DeviceContext& context, bool stroked)
{
    DrawnBounds bounds = m_path;
    m_path = {};
    m_pathState = PathState::None;
    if (stroked) {
        return markStroked(context, bounds, Corners::Any);
    }
    markDrawn(context, bounds);
    return bounds.box;
}

} // namespace wingdi
