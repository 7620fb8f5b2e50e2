// The part of MetafileDevice that records a context's state: colours, modes, mapping, clip, saved states.
#include <cstring>

#include "DeviceContext.h"
#include "MetafileDevice.h"

namespace wingdi {

namespace {

template <class Number>
EMRSETMODE modeRecord(Number mode)
{
    return {{}, static_cast<DWORD>(mode)};
}

EMRPOINT pointRecord(POINT point)
{
    return {{}, {point.x, point.y}};
}

} // namespace

void MetafileDevice::stateChanged(DeviceContext& context, StateField field)
{
    const ContextState& state = context.state;
    switch (field) {
    case StateField::BackColor:
        record(EMR_SETBKCOLOR, EMRSETBKCOLOR{{}, state.backColor});
        break;
    case StateField::TextColor:
        record(EMR_SETTEXTCOLOR, EMRSETTEXTCOLOR{{}, state.textColor});
        break;
    case StateField::BackMode:
        record(EMR_SETBKMODE, modeRecord(state.backMode));
        break;
    case StateField::TextAlign:
        record(EMR_SETTEXTALIGN, modeRecord(state.textAlign));
        break;
    case StateField::TextJustification:
        record(EMR_SETTEXTJUSTIFICATION, EMRSETTEXTJUSTIFICATION{{}, state.breakExtra, state.breakCount});
        break;
    case StateField::Rop2:
        record(EMR_SETROP2, modeRecord(state.rop2));
        break;
    case StateField::PolyFillMode:
        record(EMR_SETPOLYFILLMODE, modeRecord(state.polyFillMode));
        break;
    case StateField::StretchMode:
        record(EMR_SETSTRETCHBLTMODE, modeRecord(state.stretchMode));
        break;
    case StateField::ArcDirection:
        record(EMR_SETARCDIRECTION, modeRecord(state.arcDirection));
        break;
    case StateField::MiterLimit:
        record(EMR_SETMITERLIMIT, EMRSETMITERLIMIT{{}, state.miterLimit});
        break;
    case StateField::BrushOrigin:
        record(EMR_SETBRUSHORGEX, pointRecord(state.brushOrigin));
        break;
    case StateField::MapMode:
        record(EMR_SETMAPMODE, modeRecord(state.mapMode));
        break;
    case StateField::WindowExtent:
        record(EMR_SETWINDOWEXTEX, EMREXTENT{{}, state.windowExtent});
        break;
    case StateField::ViewportExtent:
        record(EMR_SETVIEWPORTEXTEX, EMREXTENT{{}, state.viewportExtent});
        break;
    case StateField::WindowOrigin:
        record(EMR_SETWINDOWORGEX, pointRecord(state.windowOrigin));
        break;
    case StateField::ViewportOrigin:
        record(EMR_SETVIEWPORTORGEX, pointRecord(state.viewportOrigin));
        break;
    case StateField::WorldTransform:
        record(EMR_SETWORLDTRANSFORM, EMRSETWORLDTRANSFORM{{}, state.world});
        break;
    case StateField::Position:
        record(EMR_MOVETOEX, pointRecord(state.position));
        break;
    }
}

void MetafileDevice::worldTransformModified(DeviceContext& /*context*/, const XFORM& transform, DWORD mode)
{
    record(EMR_MODIFYWORLDTRANSFORM, EMRMODIFYWORLDTRANSFORM{{}, transform, mode});
}

void MetafileDevice::extentScaled(DeviceContext& /*context*/, bool window, const int (&factors)[4])
{
    record(window ? EMR_SCALEWINDOWEXTEX : EMR_SCALEVIEWPORTEXTEX,
           EMRSCALEEXTENT{{}, factors[0], factors[1], factors[2], factors[3]});
}

void MetafileDevice::clipSelected(DeviceContext& /*context*/, const Region* region, int mode)
{
    EMREXTSELECTCLIPRGN fields{};
    fields.iMode = static_cast<DWORD>(mode);
    if (region == nullptr) {
        record(EMR_EXTSELECTCLIPRGN, fields);
        return;
    }
    const RegionRecord data(*region);
    fields.cbRgnData = data.length();
    if (BYTE* const tail = record(EMR_EXTSELECTCLIPRGN, fields, data.length())) {
        data.write(tail);
    }
}

void MetafileDevice::clipRectCombined(DeviceContext& /*context*/, const RECT& rect, int mode)
{
    record(mode == RGN_DIFF ? EMR_EXCLUDECLIPRECT : EMR_INTERSECTCLIPRECT,
           EMRBOX{{}, {rect.left, rect.top, rect.right, rect.bottom}});
}

void MetafileDevice::clipOffset(DeviceContext& /*context*/, int x, int y)
{
    record(EMR_OFFSETCLIPRGN, pointRecord({x, y}));
}

// Pixels are known only to whoever plays the path. What counts as drawn here is cut off at the path's box, or not at
// all where the new clip may hold more.
bool MetafileDevice::selectClipPath(DeviceContext& context, int mode)
{
    if (m_pathState != PathState::Ended) {
        return false;
    }
    const Region pathBox(m_path.area());
    m_path = {};
    m_pathState = PathState::None;
    std::optional<Region>& clip = context.state.clip;
    if (mode == RGN_COPY || (mode == RGN_AND && !clip)) {
        clip = pathBox;
    } else if (clip && mode != RGN_DIFF) {
        clip->combine(pathBox, mode == RGN_AND ? RGN_AND : RGN_OR);
    }
    return record(EMR_SELECTCLIPPATH, modeRecord(mode)) != nullptr;
}

void MetafileDevice::stateSaved(DeviceContext& /*context*/)
{
    m_objects.saveSelection();
    record(EMR_SAVEDC, EMR{});
}

void MetafileDevice::stateRestored(DeviceContext& /*context*/, int levels)
{
    record(EMR_RESTOREDC, EMRRESTOREDC{{}, levels});
    m_objects.restoreSelection(levels);
}

RegionRecord::RegionRecord(const Region& region)
    : m_rectangles(region.rectangles()), m_box(region.box()),
      m_length(sizeof(RGNDATAHEADER) + m_rectangles.size() * sizeof(RECT))
{
}

void RegionRecord::write(BYTE* target) const noexcept
{
    const std::size_t length = m_rectangles.size() * sizeof(RECT);
    const RGNDATAHEADER header{sizeof(RGNDATAHEADER), RDH_RECTANGLES, static_cast<DWORD>(m_rectangles.size()),
                               static_cast<DWORD>(length), m_box};
    std::memcpy(target, &header, sizeof(header));
    if (length != 0) {
        std::memcpy(target + sizeof(header), m_rectangles.data(), length);
    }
}

} // namespace wingdi
