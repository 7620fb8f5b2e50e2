// The part of MetafileDevice that records text: one record for each piece that is laid out.
#include <algorithm>
#include <cstring>

#include "DeviceContext.h"
#include "MetafileDevice.h"
#include "TextInk.h"

namespace wingdi {

namespace {

// Hundredths of a millimetre along one pixel of the reference device.
constexpr double HundredthsPerPixel = 508.0 * 100 / 1920;

} // namespace

bool MetafileDevice::text(DeviceContext& context, const TextOutput& output)
{
    const bool usesRect = (output.options & (ETO_OPAQUE | ETO_CLIPPED)) != 0;
    const std::uint64_t textLength = paddedLength(output.text.size_bytes());
    const bool hasAdvances = output.advances.size() >= output.text.size();
    const std::uint64_t advancesLength = hasAdvances ? output.text.size() * sizeof(INT) : 0;

    const DrawnBounds ink = boundsOfInk(context, output);
    DrawnBounds cell{output.bounds};
    if (!isUpright(output)) {
        cell.add(ink.box);
    }
    EMREXTTEXTOUTW fields{};
    fields.rclBounds = cell.box;
    fields.iGraphicsMode = static_cast<DWORD>(context.state.graphicsMode);
    if (context.state.graphicsMode == GM_COMPATIBLE) {
        // Page units become hundredths of a millimetre; advanced mode has no use for it.
        const Mapping page = context.pageMapping();
        fields.exScale = static_cast<FLOAT>(page.scaleX() * HundredthsPerPixel);
        fields.eyScale = static_cast<FLOAT>(page.scaleY() * HundredthsPerPixel);
    }
    fields.emrtext.ptlReference = {output.reference.x, output.reference.y};
    fields.emrtext.nChars = static_cast<DWORD>(output.text.size());
    fields.emrtext.offString = sizeof(fields);
    fields.emrtext.fOptions = output.options;
    fields.emrtext.rcl = usesRect
                             ? RECTL{output.rect.left, output.rect.top, output.rect.right, output.rect.bottom}
                             : RECTL{0, 0, -1, -1};
    fields.emrtext.offDx = hasAdvances ? static_cast<DWORD>(sizeof(fields) + textLength) : 0;
    BYTE* const tail = record(EMR_EXTTEXTOUTW, fields, textLength + advancesLength);
    if (tail == nullptr) {
        return false;
    }
    if (!output.text.empty()) {
        std::memcpy(tail, output.text.data(), output.text.size_bytes());
        if (hasAdvances) {
            std::memcpy(tail + textLength, output.advances.data(), static_cast<std::size_t>(advancesLength));
        }
    }

    if (m_pathState == PathState::Open) {
        m_path.add(cell.box);
        m_path.add(ink.box);
        return true;
    }
    DrawnBounds drawn = cell;
    drawn.add(ink.box);
    const DrawnBounds rect = usesRect ? boundsOfArea(context.mapping(), output.rect) : DrawnBounds{};
    if ((output.options & ETO_CLIPPED) != 0) {
        drawn.clip(rect.area());
    }
    if ((output.options & ETO_OPAQUE) != 0) {
        drawn.add(rect.box);
    }
    markDrawn(context, drawn);
    return true;
}

} // namespace wingdi
