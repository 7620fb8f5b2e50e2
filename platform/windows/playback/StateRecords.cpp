// Records that set colours and modes, save and restore, and those without anything to play.
#include <string_view>

#include "RecordHandlers.h"

namespace wingdi {

namespace {

// Palettes on devices of true colour, colour management, layout, the header again.
bool passOver(Playback& /*playback*/, const metafile::Record& /*record*/)
{
    return true;
}

void setMiterLimit(Playback& playback, const EMRSETMITERLIMIT& record)
{
    SetMiterLimit(playback.target(), record.eMiterLimit, nullptr);
}

void setTextJustification(Playback& playback, const EMRSETTEXTJUSTIFICATION& record)
{
    SetTextJustification(playback.target(), record.nBreakExtra, record.nBreakCount);
}

void setBrushOrigin(Playback& playback, const EMRPOINT& record)
{
    const POINT origin = playback.deviceMapping().toDevice({record.ptl.x, record.ptl.y});
    SetBrushOrgEx(playback.target(), origin.x, origin.y, nullptr);
}

void saveState(Playback& playback, const EMR& /*record*/)
{
    playback.saveState();
}

void restoreState(Playback& playback, const EMRRESTOREDC& record)
{
    playback.restoreState(record.iRelative);
}

// An application's own comments go on into a metafile. Others describe the same picture in other words, whose places
// and sizes would no longer hold.
bool comment(Playback& playback, const metafile::Record& record)
{
    const auto length = record.field<DWORD>(offsetof(EMRGDICOMMENT, cbData));
    const auto data = length ? record.piece(sizeof(EMRGDICOMMENT), *length) : std::nullopt;
    if (!data) {
        return false;
    }
    const std::string_view text(reinterpret_cast<const char*>(data->data()), data->size());
    if (!text.starts_with("EMF+") && !text.starts_with("GDIC")) {
        GdiComment(playback.target(), *length, data->data());
    }
    return true;
}

constexpr RecordEntry Entries[] = {
    {EMR_HEADER, passOver},
    {EMR_SETMAPPERFLAGS, passOver},
    {EMR_SETCOLORADJUSTMENT, passOver},
    {EMR_SELECTPALETTE, passOver},
    {EMR_CREATEPALETTE, passOver},
    {EMR_SETPALETTEENTRIES, passOver},
    {EMR_RESIZEPALETTE, passOver},
    {EMR_REALIZEPALETTE, passOver},
    {EMR_SETICMMODE, passOver},
    {EMR_SETLAYOUT, passOver},
    {EMR_SETBKMODE, playValue<int, int, SetBkMode>},
    {EMR_SETPOLYFILLMODE, playValue<int, int, SetPolyFillMode>},
    {EMR_SETROP2, playValue<int, int, SetROP2>},
    {EMR_SETSTRETCHBLTMODE, playValue<int, int, SetStretchBltMode>},
    {EMR_SETARCDIRECTION, playValue<int, int, SetArcDirection>},
    {EMR_SETTEXTALIGN, playValue<UINT, UINT, SetTextAlign>},
    {EMR_SETTEXTCOLOR, playValue<COLORREF, COLORREF, SetTextColor>},
    {EMR_SETBKCOLOR, playValue<COLORREF, COLORREF, SetBkColor>},
    {EMR_SETMITERLIMIT, playFields<EMRSETMITERLIMIT, setMiterLimit>},
    {EMR_SETTEXTJUSTIFICATION, playFields<EMRSETTEXTJUSTIFICATION, setTextJustification>},
    {EMR_SETBRUSHORGEX, playFields<EMRPOINT, setBrushOrigin>},
    {EMR_SAVEDC, playFields<EMR, saveState>},
    {EMR_RESTOREDC, playFields<EMRRESTOREDC, restoreState>},
    {EMR_GDICOMMENT, comment},
};

} // namespace

std::span<const RecordEntry> stateRecords() noexcept
{
    return Entries;
}

} // namespace wingdi
