// Paths: collected and drawn by the device.
#include "DeviceContext.h"
#include "failWith.h"

using namespace wingdi;

namespace {

BOOL step(HDC handle, const char* function, PathStep pathStep)
{
    return onContext(handle, function, FALSE, [&](DeviceContext& context) {
        return context.device().path(context, pathStep) ? TRUE : FALSE;
    });
}

} // namespace

BOOL BeginPath(HDC context)
{
    return step(context, "BeginPath", PathStep::Begin);
}

BOOL EndPath(HDC context)
{
    return step(context, "EndPath", PathStep::End);
}

BOOL CloseFigure(HDC context)
{
    return step(context, "CloseFigure", PathStep::CloseFigure);
}

BOOL AbortPath(HDC context)
{
    return step(context, "AbortPath", PathStep::Abort);
}

BOOL FlattenPath(HDC context)
{
    return step(context, "FlattenPath", PathStep::Flatten);
}

BOOL WidenPath(HDC context)
{
    return step(context, "WidenPath", PathStep::Widen);
}

BOOL FillPath(HDC context)
{
    return step(context, "FillPath", PathStep::Fill);
}

BOOL StrokePath(HDC context)
{
    return step(context, "StrokePath", PathStep::Stroke);
}

BOOL StrokeAndFillPath(HDC context)
{
    return step(context, "StrokeAndFillPath", PathStep::StrokeAndFill);
}

BOOL SelectClipPath(HDC context, int mode)
{
    return onContext(context, "SelectClipPath", FALSE, [&](DeviceContext& found) {
        if (mode < RGN_AND || mode > RGN_COPY) {
            return failWith(ERROR_INVALID_PARAMETER, FALSE);
        }
        return found.device().selectClipPath(found, mode) ? TRUE : FALSE;
    });
}
