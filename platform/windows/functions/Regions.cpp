// Region objects.
#include <utility>

#include "DeviceContext.h"
#include "HandleTable.h"
#include "failWith.h"

using namespace wingdi;

namespace {

HRGN addRegion(Region region)
{
    auto object = std::make_shared<RegionObject>();
    object->region = std::move(region);
    return static_cast<HRGN>(HandleTable::instance().add(std::move(object)));
}

std::shared_ptr<RegionObject> findRegion(HRGN handle)
{
    auto region = HandleTable::instance().find<RegionObject>(handle, ObjectKind::Region);
    if (!region) {
        SetLastError(ERROR_INVALID_HANDLE);
    }
    return region;
}

} // namespace

HRGN CreateRectRgn(int left, int top, int right, int bottom)
{
    const RECT rect{left, top, right, bottom};
    return CreateRectRgnIndirect(&rect);
}

HRGN CreateRectRgnIndirect(const RECT* rect)
{
    if (rect == nullptr) {
        return failWith(ERROR_INVALID_PARAMETER, nullptr);
    }
    return guarded<HRGN>(nullptr, [&] { return addRegion(Region(*rect)); });
}

HRGN CreatePolygonRgn(const POINT* points, int count, int fillMode)
{
    if (points == nullptr || count < 2 || (fillMode != ALTERNATE && fillMode != WINDING)) {
        return failWith(ERROR_INVALID_PARAMETER, nullptr);
    }
    return guarded<HRGN>(nullptr, [&] {
        const std::span polygon(points, static_cast<std::size_t>(count));
        return addRegion(Region::fromPolygons(polygon, {&count, 1}, fillMode));
    });
}

int CombineRgn(HRGN target, HRGN first, HRGN second, int mode)
{
    return guarded(ERROR, [&] {
        const auto result = findRegion(target);
        const auto left = findRegion(first);
        const auto right = mode == RGN_COPY ? left : findRegion(second);
        if (!result || !left || !right || mode < RGN_AND || mode > RGN_COPY) {
            return ERROR;
        }
        Region combined = left->region;
        combined.combine(right->region, mode);
        result->region = std::move(combined);
        return result->region.complexity();
    });
}

int GetRgnBox(HRGN region, RECT* box)
{
    const auto found = findRegion(region);
    if (!found || box == nullptr) {
        return ERROR;
    }
    *box = found->region.box();
    return found->region.complexity();
}
