#include "DeviceContext.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <utility>

#include "HandleTable.h"
#include "StockObjects.h"

using namespace wingdi;

DeviceContext::DeviceContext(ContextKind kind, std::unique_ptr<Device> device)
    : GdiObject(ObjectKind::Context), m_contextKind(kind), m_device(std::move(device))
{
}

DeviceContext::~DeviceContext()
{
    if (bitmap) {
        bitmap->selectedInto = nullptr;
    }
}

SIZE DeviceContext::viewportExtent() const noexcept
{
    SIZE extent = state.viewportExtent;
    if (state.mapMode != MM_ISOTROPIC) {
        return extent;
    }
    // Millimetres of one logical unit along either axis.
    const auto unit = [this](int viewport, int window, int size, int resolution) {
        return std::abs(static_cast<double>(viewport) / window) * m_device->capability(size) /
               std::max(1, m_device->capability(resolution));
    };
    const double unitX = unit(extent.cx, state.windowExtent.cx, HORZSIZE, HORZRES);
    const double unitY = unit(extent.cy, state.windowExtent.cy, VERTSIZE, VERTRES);
    const auto shrunk = [](LONG value, double factor) {
        const LONG result = toDeviceUnit(value * factor);
        return result != 0 ? result : (value < 0 ? -1 : 1);
    };
    if (unitX > unitY && unitX > 0) {
        extent.cx = shrunk(extent.cx, unitY / unitX);
    } else if (unitY > unitX && unitY > 0) {
        extent.cy = shrunk(extent.cy, unitX / unitY);
    }
    return extent;
}

Mapping DeviceContext::pageMapping() const noexcept
{
    const SIZE viewport = viewportExtent();
    Mapping mapping;
    mapping.xx = static_cast<double>(viewport.cx) / state.windowExtent.cx;
    mapping.yy = static_cast<double>(viewport.cy) / state.windowExtent.cy;
    mapping.dx = state.viewportOrigin.x - state.windowOrigin.x * mapping.xx;
    mapping.dy = state.viewportOrigin.y - state.windowOrigin.y * mapping.yy;
    return mapping;
}

Mapping DeviceContext::mapping() const noexcept
{
    return mappingOf(state.world).then(pageMapping());
}

std::optional<Region> DeviceContext::effectiveClip() const
{
    if (!state.clip || !state.metaClip) {
        return state.clip ? state.clip : state.metaClip;
    }
    Region both = *state.clip;
    both.combine(*state.metaClip, RGN_AND);
    return both;
}

RECT DeviceContext::deviceArea() const noexcept
{
    if (bitmap) {
        return {0, 0, bitmap->bitmap->width(), bitmap->bitmap->height()};
    }
    return {0, 0, m_device->capability(HORZRES), m_device->capability(VERTRES)};
}

HDC wingdi::addContext(std::shared_ptr<DeviceContext> context) noexcept
{
    return guarded<HDC>(nullptr, [&]() -> HDC {
        ContextState& state = context->state;
        state.pen = std::static_pointer_cast<PenObject>(stockObject(BLACK_PEN));
        state.brush = std::static_pointer_cast<BrushObject>(stockObject(WHITE_BRUSH));
        state.font = std::static_pointer_cast<FontObject>(stockObject(SYSTEM_FONT));
        const bool memory = context->contextKind() == ContextKind::Memory;
        if (memory) {
            context->bitmap = makeDefaultBitmap();
        }
        if (!state.pen || !state.brush || !state.font || (memory && !context->bitmap)) {
            throw std::bad_alloc();
        }
        return static_cast<HDC>(HandleTable::instance().add(std::move(context)));
    });
}

std::shared_ptr<DeviceContext> wingdi::findContext(HDC handle, const char* function)
{
    std::shared_ptr<DeviceContext> context =
        HandleTable::instance().find<DeviceContext>(handle, ObjectKind::Context);
    if (context && context->contextKind() == ContextKind::Page) {
        const auto found = context->calls.find(std::string_view(function));
        if (found != context->calls.end()) {
            ++found->second;
        } else {
            context->calls.emplace(function, 1);
        }
    }
    return context;
}
