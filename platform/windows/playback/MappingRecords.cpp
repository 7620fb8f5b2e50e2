// Records of map mode, extents, origins and world transform. They go to the context of the file's device.
#include "RecordHandlers.h"

namespace wingdi {

namespace {

bool setMapMode(Playback& playback, const metafile::Record& record)
{
    const auto mode = record.field<int>(sizeof(EMR));
    if (!mode) {
        return false;
    }
    SetMapMode(playback.reference(), *mode);
    playback.mappingChanged();
    return true;
}

// Window and viewport, origin and extent.
template <class Former, BOOL (*function)(HDC, int, int, Former*)>
void setPlace(Playback& playback, const EMRPOINT& record)
{
    function(playback.reference(), record.ptl.x, record.ptl.y, nullptr);
    playback.mappingChanged();
}

template <BOOL (*function)(HDC, int, int, int, int, SIZE*)>
void scaleExtent(Playback& playback, const EMRSCALEEXTENT& record)
{
    function(playback.reference(), record.xNum, record.xDenom, record.yNum, record.yDenom, nullptr);
    playback.mappingChanged();
}

void setWorldTransform(Playback& playback, const EMRSETWORLDTRANSFORM& record)
{
    SetWorldTransform(playback.reference(), &record.xform);
    playback.mappingChanged();
}

void modifyWorldTransform(Playback& playback, const EMRMODIFYWORLDTRANSFORM& record)
{
    if (record.iMode == MWT_SET) {
        SetWorldTransform(playback.reference(), &record.xform);
    } else {
        ModifyWorldTransform(playback.reference(), &record.xform, record.iMode);
    }
    playback.mappingChanged();
}

constexpr RecordEntry Entries[] = {
    {EMR_SETMAPMODE, setMapMode},
    {EMR_SETWINDOWEXTEX, playFields<EMRPOINT, setPlace<SIZE, SetWindowExtEx>>},
    {EMR_SETWINDOWORGEX, playFields<EMRPOINT, setPlace<POINT, SetWindowOrgEx>>},
    {EMR_SETVIEWPORTEXTEX, playFields<EMRPOINT, setPlace<SIZE, SetViewportExtEx>>},
    {EMR_SETVIEWPORTORGEX, playFields<EMRPOINT, setPlace<POINT, SetViewportOrgEx>>},
    {EMR_SCALEWINDOWEXTEX, playFields<EMRSCALEEXTENT, scaleExtent<ScaleWindowExtEx>>},
    {EMR_SCALEVIEWPORTEXTEX, playFields<EMRSCALEEXTENT, scaleExtent<ScaleViewportExtEx>>},
    {EMR_SETWORLDTRANSFORM, playFields<EMRSETWORLDTRANSFORM, setWorldTransform>},
    {EMR_MODIFYWORLDTRANSFORM, playFields<EMRMODIFYWORLDTRANSFORM, modifyWorldTransform>},
};

} // namespace

std::span<const RecordEntry> mappingRecords() noexcept
{
    return Entries;
}

} // namespace wingdi
