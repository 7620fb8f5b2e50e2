// How a context turns logical units into device units: map mode, extents, origins, world transform.
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

#include "DeviceContext.h"
#include "failWith.h"

using namespace wingdi;

namespace {

// Logical units in 254 mm of the fixed modes, from MM_LOMETRIC to MM_TWIPS: a tenth and a hundredth of a millimetre,
// a hundredth and a thousandth of an inch, a twentieth of a point.
constexpr int UnitsIn254Millimeters[] = {2540, 25400, 1000, 10000, 14400};

bool takesExtents(int mapMode) noexcept
{
    return mapMode == MM_ISOTROPIC || mapMode == MM_ANISOTROPIC;
}

// y goes up in the fixed modes.
void setMetricExtents(DeviceContext& context, int unitsIn254)
{
    const Device& device = context.device();
    const auto units = [&](int size) {
        return toDeviceUnit(static_cast<double>(device.capability(size)) * unitsIn254 / 254.0);
    };
    const SIZE window{units(HORZSIZE), units(VERTSIZE)};
    const SIZE viewport{device.capability(HORZRES), -device.capability(VERTRES)};
    if (window.cx != 0 && window.cy != 0 && viewport.cx != 0 && viewport.cy != 0) {
        context.state.windowExtent = window;
        context.state.viewportExtent = viewport;
    }
}

// MM_ISOTROPIC begins with the extents of MM_LOMETRIC, MM_ANISOTROPIC with those in force.
void enterMapMode(DeviceContext& context, int mode)
{
    if (mode == MM_TEXT) {
        context.state.windowExtent = {1, 1};
        context.state.viewportExtent = {1, 1};
    } else if (mode == MM_ISOTROPIC) {
        setMetricExtents(context, UnitsIn254Millimeters[0]);
    } else if (mode != MM_ANISOTROPIC) {
        setMetricExtents(context, UnitsIn254Millimeters[mode - MM_LOMETRIC]);
    } else if (context.state.mapMode == MM_ISOTROPIC) {
        context.state.viewportExtent = context.viewportExtent();
    }
    context.state.mapMode = mode;
}

bool isUsable(const XFORM& transform) noexcept
{
    const double determinant = static_cast<double>(transform.eM11) * transform.eM22 -
                               static_cast<double>(transform.eM12) * transform.eM21;
    return std::isfinite(determinant) && determinant != 0 && std::isfinite(transform.eDx) &&
           std::isfinite(transform.eDy);
}

constexpr XFORM Identity{1, 0, 0, 1, 0, 0};

bool isIdentity(const XFORM& transform) noexcept
{
    return transform.eM11 == 1 && transform.eM12 == 0 && transform.eM21 == 0 && transform.eM22 == 1 &&
           transform.eDx == 0 && transform.eDy == 0;
}

// Out of range becomes infinite, which isUsable() refuses.
FLOAT narrowed(double value) noexcept
{
    constexpr double Most = std::numeric_limits<FLOAT>::max();
    return std::abs(value) <= Most ? static_cast<FLOAT>(value) : std::numeric_limits<FLOAT>::infinity();
}

XFORM product(const XFORM& first, const XFORM& second) noexcept
{
    const Mapping both = mappingOf(first).then(mappingOf(second));
    return {narrowed(both.xx), narrowed(both.xy), narrowed(both.yx),
            narrowed(both.yy), narrowed(both.dx), narrowed(both.dy)};
}

std::optional<XFORM> modified(const XFORM& current, const XFORM* transform, DWORD mode) noexcept
{
    if (mode == MWT_IDENTITY) {
        return Identity;
    }
    if (transform == nullptr || (mode != MWT_LEFTMULTIPLY && mode != MWT_RIGHTMULTIPLY)) {
        return std::nullopt;
    }
    const XFORM result =
        mode == MWT_LEFTMULTIPLY ? product(*transform, current) : product(current, *transform);
    return isUsable(result) ? std::optional(result) : std::nullopt;
}

// Window or viewport: the functions differ in the fields only.
struct Side {
    SIZE ContextState::*extent;
    POINT ContextState::*origin;
    StateField extentChanged;
    StateField originChanged;
};
constexpr Side Window{&ContextState::windowExtent, &ContextState::windowOrigin, StateField::WindowExtent,
                      StateField::WindowOrigin};
constexpr Side Viewport{&ContextState::viewportExtent, &ContextState::viewportOrigin,
                        StateField::ViewportExtent, StateField::ViewportOrigin};

SIZE extentOf(const DeviceContext& context, const Side& side) noexcept
{
    return &side == &Viewport ? context.viewportExtent() : context.state.*side.extent;
}

BOOL setExtent(HDC handle, const char* function, const Side& side, SIZE extent, SIZE* former)
{
    return onContext(handle, function, FALSE, [&](DeviceContext& context) {
        const SIZE old = extentOf(context, side);
        const bool taken = takesExtents(context.state.mapMode);
        if (taken && (extent.cx == 0 || extent.cy == 0)) {
            return failWith(ERROR_INVALID_PARAMETER, FALSE);
        }
        if (former != nullptr) {
            *former = old;
        }
        if (taken) {
            context.state.*side.extent = extent;
            context.device().stateChanged(context, side.extentChanged);
        }
        return TRUE;
    });
}

BOOL getExtent(HDC handle, const char* function, const Side& side, SIZE* extent)
{
    return onContext(handle, function, FALSE, [&](DeviceContext& context) {
        if (extent == nullptr) {
            return failWith(ERROR_INVALID_PARAMETER, FALSE);
        }
        *extent = extentOf(context, side);
        return TRUE;
    });
}

BOOL setOrigin(HDC handle, const char* function, const Side& side, POINT origin, POINT* former)
{
    return onContext(handle, function, FALSE, [&](DeviceContext& context) {
        const POINT old = std::exchange(context.state.*side.origin, origin);
        if (former != nullptr) {
            *former = old;
        }
        context.device().stateChanged(context, side.originChanged);
        return TRUE;
    });
}

BOOL getOrigin(HDC handle, const char* function, const Side& side, POINT* origin)
{
    return onContext(handle, function, FALSE, [&](DeviceContext& context) {
        if (origin == nullptr) {
            return failWith(ERROR_INVALID_PARAMETER, FALSE);
        }
        *origin = context.state.*side.origin;
        return TRUE;
    });
}

BOOL scaleExtent(HDC handle, const char* function, const Side& side, const int (&factors)[4], SIZE* former)
{
    return onContext(handle, function, FALSE, [&](DeviceContext& context) {
        const SIZE old = extentOf(context, side);
        const auto scaled = [](LONG extent, int multiplier, int divisor) {
            return divisor == 0 ? 0 : toDeviceUnit(std::trunc(double(extent) * multiplier / divisor));
        };
        const SIZE extent{scaled(old.cx, factors[0], factors[1]), scaled(old.cy, factors[2], factors[3])};
        const bool taken = takesExtents(context.state.mapMode);
        if (taken && (extent.cx == 0 || extent.cy == 0)) {
            return failWith(ERROR_INVALID_PARAMETER, FALSE);
        }
        if (former != nullptr) {
            *former = old;
        }
        if (taken) {
            context.state.*side.extent = extent;
            context.device().extentScaled(context, &side == &Window, factors);
        }
        return TRUE;
    });
}

BOOL mapPoints(HDC handle, const char* function, POINT* points, int count, bool toDevice)
{
    return onContext(handle, function, FALSE, [&](DeviceContext& context) {
        if (count < 0 || (points == nullptr && count > 0)) {
            return failWith(ERROR_INVALID_PARAMETER, FALSE);
        }
        const Mapping forward = context.mapping();
        const Mapping mapping = toDevice ? forward : forward.inverse();
        for (POINT& point : std::span(points, static_cast<std::size_t>(count))) {
            point = mapping.toDevice(point);
        }
        return TRUE;
    });
}

} // namespace

int SetMapMode(HDC context, int mode)
{
    return onContext(context, "SetMapMode", 0, [&](DeviceContext& found) {
        const int former = found.state.mapMode;
        if (mode < MM_TEXT || mode > MM_ANISOTROPIC) {
            return failWith(ERROR_INVALID_PARAMETER, FALSE);
        }
        if (mode != former) {
            enterMapMode(found, mode);
        }
        found.device().stateChanged(found, StateField::MapMode);
        return former;
    });
}

int GetMapMode(HDC context)
{
    return onContext(context, "GetMapMode", 0, [](DeviceContext& found) { return found.state.mapMode; });
}

BOOL SetWindowExtEx(HDC context, int x, int y, SIZE* former)
{
    return setExtent(context, "SetWindowExtEx", Window, {x, y}, former);
}

BOOL GetWindowExtEx(HDC context, SIZE* extent)
{
    return getExtent(context, "GetWindowExtEx", Window, extent);
}

BOOL SetViewportExtEx(HDC context, int x, int y, SIZE* former)
{
    return setExtent(context, "SetViewportExtEx", Viewport, {x, y}, former);
}

BOOL GetViewportExtEx(HDC context, SIZE* extent)
{
    return getExtent(context, "GetViewportExtEx", Viewport, extent);
}

BOOL SetWindowOrgEx(HDC context, int x, int y, POINT* former)
{
    return setOrigin(context, "SetWindowOrgEx", Window, {x, y}, former);
}

BOOL GetWindowOrgEx(HDC context, POINT* origin)
{
    return getOrigin(context, "GetWindowOrgEx", Window, origin);
}

BOOL SetViewportOrgEx(HDC context, int x, int y, POINT* former)
{
    return setOrigin(context, "SetViewportOrgEx", Viewport, {x, y}, former);
}

BOOL GetViewportOrgEx(HDC context, POINT* origin)
{
    return getOrigin(context, "GetViewportOrgEx", Viewport, origin);
}

BOOL ScaleWindowExtEx(HDC context, int xMultiplier, int xDivisor, int yMultiplier, int yDivisor, SIZE* former)
{
    return scaleExtent(context, "ScaleWindowExtEx", Window, {xMultiplier, xDivisor, yMultiplier, yDivisor},
                       former);
}

BOOL ScaleViewportExtEx(HDC context, int xMultiplier, int xDivisor, int yMultiplier, int yDivisor,
                        SIZE* former)
{
    return scaleExtent(context, "ScaleViewportExtEx", Viewport,
                       {xMultiplier, xDivisor, yMultiplier, yDivisor}, former);
}

int SetGraphicsMode(HDC context, int mode)
{
    return onContext(context, "SetGraphicsMode", 0, [&](DeviceContext& found) -> int {
        const bool known = mode == GM_COMPATIBLE || mode == GM_ADVANCED;
        if (!known || (mode == GM_COMPATIBLE && !isIdentity(found.state.world))) {
            return failWith(ERROR_INVALID_PARAMETER, FALSE);
        }
        return std::exchange(found.state.graphicsMode, mode);
    });
}

int GetGraphicsMode(HDC context)
{
    return onContext(context, "GetGraphicsMode", 0,
                     [](DeviceContext& found) { return found.state.graphicsMode; });
}

BOOL GetWorldTransform(HDC context, XFORM* transform)
{
    return onContext(context, "GetWorldTransform", FALSE, [&](DeviceContext& found) {
        if (transform == nullptr) {
            return failWith(ERROR_INVALID_PARAMETER, FALSE);
        }
        *transform = found.state.world;
        return TRUE;
    });
}

BOOL SetWorldTransform(HDC context, const XFORM* transform)
{
    return onContext(context, "SetWorldTransform", FALSE, [&](DeviceContext& found) {
        if (found.state.graphicsMode != GM_ADVANCED || transform == nullptr || !isUsable(*transform)) {
            return failWith(ERROR_INVALID_PARAMETER, FALSE);
        }
        found.state.world = *transform;
        found.device().stateChanged(found, StateField::WorldTransform);
        return TRUE;
    });
}

BOOL ModifyWorldTransform(HDC context, const XFORM* transform, DWORD mode)
{
    return onContext(context, "ModifyWorldTransform", FALSE, [&](DeviceContext& found) {
        const std::optional<XFORM> result = modified(found.state.world, transform, mode);
        if (found.state.graphicsMode != GM_ADVANCED || !result) {
            return failWith(ERROR_INVALID_PARAMETER, FALSE);
        }
        found.state.world = *result;
        found.device().worldTransformModified(found, mode == MWT_IDENTITY ? Identity : *transform, mode);
        return TRUE;
    });
}

BOOL LPtoDP(HDC context, POINT* points, int count)
{
    return mapPoints(context, "LPtoDP", points, count, true);
}

BOOL DPtoLP(HDC context, POINT* points, int count)
{
    return mapPoints(context, "DPtoLP", points, count, false);
}
