// The clip of a context: a region in device units.
#include <algorithm>
#include <utility>

#include "ClipShapes.h"
#include "DeviceContext.h"
#include "HandleTable.h"
#include "failWith.h"

using namespace wingdi;

namespace {

// What a context without a clip shows: everything.
Region everything()
{
    return Region(RECT{-RegionLimit, -RegionLimit, RegionLimit, RegionLimit});
}

int complexityOf(const DeviceContext& context)
{
    const std::optional<Region> clip = context.effectiveClip();
    return clip ? clip->complexity() : SIMPLEREGION;
}

void combineClip(DeviceContext& context, const Region& region, int mode)
{
    if (mode == RGN_COPY) {
        context.state.clipShapes.clear();
    } else if (mode != RGN_AND && mode != RGN_DIFF) {
        flattenClip(context);
    }
    Region clip = context.state.clip ? *context.state.clip : everything();
    clip.combine(region, mode);
    context.state.clip = std::move(clip);
}

// A logical rectangle on the device, where it may lie askew.
Region regionOf(const DeviceContext& context, const RECT& rect)
{
    const Mapping mapping = context.mapping();
    const POINT corners[] = {
        mapping.toDevice({rect.left, rect.top}), mapping.toDevice({rect.right, rect.top}),
        mapping.toDevice({rect.right, rect.bottom}), mapping.toDevice({rect.left, rect.bottom})};
    if (mapping.isAxisAligned()) {
        return Region(RECT{corners[0].x, corners[0].y, corners[2].x, corners[2].y});
    }
    const INT count = 4;
    return Region::fromPolygons(corners, {&count, 1}, ALTERNATE);
}

// A rectangle of the device in logical units: mapped as it is, or the box of its corners where it lies askew.
RECT logicalBox(const Mapping& mapping, const RECT& device)
{
    const Mapping back = mapping.inverse();
    const POINT first = back.toDevice({device.left, device.top});
    const POINT last = back.toDevice({device.right, device.bottom});
    if (mapping.isAxisAligned()) {
        return {first.x, first.y, last.x, last.y};
    }
    const POINT third = back.toDevice({device.right, device.top});
    const POINT fourth = back.toDevice({device.left, device.bottom});
    const auto [left, right] = std::minmax({first.x, last.x, third.x, fourth.x});
    const auto [top, bottom] = std::minmax({first.y, last.y, third.y, fourth.y});
    return {left, top, right, bottom};
}

int combineRect(HDC handle, const char* function, const RECT& rect, int mode)
{
    return onContext(handle, function, ERROR, [&](DeviceContext& context) {
        combineClip(context, regionOf(context, rect), mode);
        context.device().clipRectCombined(context, rect, mode);
        return complexityOf(context);
    });
}

int selectClip(DeviceContext& context, HRGN handle, int mode)
{
    if (handle == nullptr) {
        if (mode != RGN_COPY) {
            return failWith(ERROR_INVALID_PARAMETER, ERROR);
        }
        context.state.clip.reset();
        context.state.clipShapes.clear();
        context.device().clipSelected(context, nullptr, mode);
        return complexityOf(context);
    }
    const auto object = HandleTable::instance().find<RegionObject>(handle, ObjectKind::Region);
    if (!object || mode < RGN_AND || mode > RGN_COPY) {
        return failWith(object ? ERROR_INVALID_PARAMETER : ERROR_INVALID_HANDLE, ERROR);
    }
    combineClip(context, object->region, mode);
    context.device().clipSelected(context, &object->region, mode);
    return complexityOf(context);
}

} // namespace

int SelectClipRgn(HDC context, HRGN region)
{
    return onContext(context, "SelectClipRgn", ERROR,
                     [&](DeviceContext& found) { return selectClip(found, region, RGN_COPY); });
}

int ExtSelectClipRgn(HDC context, HRGN region, int mode)
{
    return onContext(context, "ExtSelectClipRgn", ERROR,
                     [&](DeviceContext& found) { return selectClip(found, region, mode); });
}

int IntersectClipRect(HDC context, int left, int top, int right, int bottom)
{
    return combineRect(context, "IntersectClipRect", {left, top, right, bottom}, RGN_AND);
}

int ExcludeClipRect(HDC context, int left, int top, int right, int bottom)
{
    return combineRect(context, "ExcludeClipRect", {left, top, right, bottom}, RGN_DIFF);
}

int OffsetClipRgn(HDC context, int x, int y)
{
    return onContext(context, "OffsetClipRgn", ERROR, [&](DeviceContext& found) {
        flattenClip(found);
        if (found.state.clip) {
            Mapping distance = found.mapping();
            distance.dx = 0;
            distance.dy = 0;
            const POINT offset = distance.toDevice({x, y});
            found.state.clip->translate(offset.x, offset.y);
        }
        found.device().clipOffset(found, x, y);
        return complexityOf(found);
    });
}

// The box in logical units of what is left of the device.
int GetClipBox(HDC context, RECT* box)
{
    return onContext(context, "GetClipBox", ERROR, [&](DeviceContext& found) {
        if (box == nullptr) {
            return failWith(ERROR_INVALID_PARAMETER, ERROR);
        }
        Region visible(found.deviceArea());
        if (const std::optional<Region> clip = found.effectiveClip()) {
            visible.combine(*clip, RGN_AND);
        }
        *box = visible.empty() ? RECT{} : logicalBox(found.mapping(), visible.box());
        return visible.complexity();
    });
}
