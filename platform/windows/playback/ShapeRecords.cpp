// Records of the current position, lines, boxes, arcs, pixels, flood fills and paths. In records a box includes its
// right and bottom edges, as it does in calls of the advanced graphics mode.
#include "RecordHandlers.h"

namespace wingdi {

namespace {

void moveTo(Playback& playback, const EMRPOINT& record)
{
    MoveToEx(playback.target(), record.ptl.x, record.ptl.y, nullptr);
}

void lineTo(Playback& playback, const EMRPOINT& record)
{
    LineTo(playback.target(), record.ptl.x, record.ptl.y);
}

template <BOOL (*function)(HDC, int, int, int, int)>
void drawBox(Playback& playback, const EMRBOX& record)
{
    const RECTL& box = record.rclBox;
    function(playback.target(), box.left, box.top, box.right, box.bottom);
}

void drawRoundBox(Playback& playback, const EMRROUNDRECT& record)
{
    const RECTL& box = record.rclBox;
    RoundRect(playback.target(), box.left, box.top, box.right, box.bottom, record.szlCorner.cx,
              record.szlCorner.cy);
}

template <BOOL (*function)(HDC, int, int, int, int, int, int, int, int)>
void drawArc(Playback& playback, const EMRARC& record)
{
    const RECTL& box = record.rclBox;
    function(playback.target(), box.left, box.top, box.right, box.bottom, record.ptlStart.x,
             record.ptlStart.y, record.ptlEnd.x, record.ptlEnd.y);
}

void drawAngleArc(Playback& playback, const EMRANGLEARC& record)
{
    AngleArc(playback.target(), record.ptlCenter.x, record.ptlCenter.y, record.nRadius, record.eStartAngle,
             record.eSweepAngle);
}

void setPixel(Playback& playback, const EMRSETPIXELV& record)
{
    SetPixelV(playback.target(), record.ptlPixel.x, record.ptlPixel.y, record.crColor);
}

void floodFill(Playback& playback, const EMREXTFLOODFILL& record)
{
    ExtFloodFill(playback.target(), record.ptlStart.x, record.ptlStart.y, record.crColor, record.iMode);
}

template <BOOL (*function)(HDC), bool isOpenAfterwards>
bool changePath(Playback& playback, const metafile::Record& /*record*/)
{
    function(playback.target());
    playback.setPathOpen(isOpenAfterwards);
    return true;
}

void selectClipPath(Playback& playback, const EMRSETMODE& record)
{
    playback.selectClipPath(static_cast<int>(record.iMode));
}

constexpr RecordEntry Entries[] = {
    {EMR_MOVETOEX, playFields<EMRPOINT, moveTo>},
    {EMR_LINETO, playFields<EMRPOINT, lineTo>},
    {EMR_RECTANGLE, playFields<EMRBOX, drawBox<Rectangle>>},
    {EMR_ELLIPSE, playFields<EMRBOX, drawBox<Ellipse>>},
    {EMR_ROUNDRECT, playFields<EMRROUNDRECT, drawRoundBox>},
    {EMR_ARC, playFields<EMRARC, drawArc<Arc>>},
    {EMR_ARCTO, playFields<EMRARC, drawArc<ArcTo>>},
    {EMR_CHORD, playFields<EMRARC, drawArc<Chord>>},
    {EMR_PIE, playFields<EMRARC, drawArc<Pie>>},
    {EMR_ANGLEARC, playFields<EMRANGLEARC, drawAngleArc>},
    {EMR_SETPIXELV, playFields<EMRSETPIXELV, setPixel>},
    {EMR_EXTFLOODFILL, playFields<EMREXTFLOODFILL, floodFill>},
    {EMR_BEGINPATH, changePath<BeginPath, true>},
    {EMR_ENDPATH, changePath<EndPath, false>},
    {EMR_ABORTPATH, changePath<AbortPath, false>},
    {EMR_CLOSEFIGURE, playCall<CloseFigure>},
    {EMR_FLATTENPATH, playCall<FlattenPath>},
    {EMR_WIDENPATH, playCall<WidenPath>},
    {EMR_FILLPATH, playCall<FillPath>},
    {EMR_STROKEPATH, playCall<StrokePath>},
    {EMR_STROKEANDFILLPATH, playCall<StrokeAndFillPath>},
    {EMR_SELECTCLIPPATH, playFields<EMRSETMODE, selectClipPath>},
};

} // namespace

std::span<const RecordEntry> shapeRecords() noexcept
{
    return Entries;
}

} // namespace wingdi
