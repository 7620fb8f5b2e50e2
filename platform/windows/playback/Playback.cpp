#include "Playback.h"

#include <algorithm>
#include <array>

#include "FreshAttributes.h"
#include "PlayedRegion.h"

namespace wingdi {

namespace {

constexpr std::size_t DeepestSave = 1000;
// Saved states hold copies of the clip.
constexpr std::size_t MostSavedRectangles = std::size_t{4} << 20;

std::size_t rectanglesOf(const std::optional<Region>& clip)
{
    return clip && clip->complexity() == COMPLEXREGION ? clip->rectangles().size() : 1;
}

// The target's device units become logical ones, in advanced mode.
void removePageMapping(HDC target, const ContextState& state)
{
    if (state.graphicsMode != GM_ADVANCED) {
        SetGraphicsMode(target, GM_ADVANCED);
    }
    if (state.mapMode != MM_TEXT) {
        SetMapMode(target, MM_TEXT);
    }
    if (state.windowOrigin.x != 0 || state.windowOrigin.y != 0) {
        SetWindowOrgEx(target, 0, 0, nullptr);
    }
    if (state.viewportOrigin.x != 0 || state.viewportOrigin.y != 0) {
        SetViewportOrgEx(target, 0, 0, nullptr);
    }
}

} // namespace

Playback::Playback(HDC target, DeviceContext& context, const ReferenceDevice& device, const RECT& rect)
    : m_target(target), m_context(context),
      m_referenceContext(
          std::make_shared<DeviceContext>(ContextKind::Screen, std::make_unique<ReferenceDevice>(device))),
      m_deviceMapping(device.onto(rect).then(context.mapping()))
{
    m_reference = addContext(m_referenceContext);
    m_savedLevel = SaveDC(target);
}

bool Playback::begin()
{
    if (m_savedLevel == 0 || m_reference == nullptr) {
        return false;
    }
    SetGraphicsMode(m_reference, GM_ADVANCED);
    removePageMapping(m_target, m_context.state);
    keepClip();
    return setFreshAttributes(m_target, m_context.state);
}

Playback::~Playback()
{
    if (m_pathIsOpen) {
        AbortPath(m_target);
    }
    if (m_savedLevel != 0) {
        restoreTarget();
    }
    if (m_reference != nullptr) {
        DeleteDC(m_reference);
    }
}

// Readers of a recorded page that look for text follow its colours and fonts, but no saved states: they are told what
// has come back.
void Playback::restoreTarget()
{
    const ContextState& state = m_context.state;
    const COLORREF color = state.textColor;
    const HGDIOBJ font = state.font->handle();
    RestoreDC(m_target, m_savedLevel);
    if (m_context.contextKind() != ContextKind::Metafile) {
        return;
    }
    if (state.textColor != color) {
        SetTextColor(m_target, state.textColor);
    }
    if (state.font->handle() != font && state.font->stockIndex() < 0) {
        SelectObject(m_target, state.font->handle());
    }
}

void Playback::applyMapping()
{
    if (!m_mappingApplies) {
        setTransform(fileMapping().then(m_deviceMapping));
        m_mappingApplies = true;
    }
}

void Playback::applyMappingOnce(const Mapping& toReference)
{
    setTransform(toReference.then(m_deviceMapping));
    m_mappingApplies = false;
}

void Playback::setTransform(const Mapping& toDevice)
{
    const auto part = [](double value) {
        return static_cast<FLOAT>(std::clamp(value, -1e30, 1e30));
    };
    const XFORM transform{part(toDevice.xx), part(toDevice.xy), part(toDevice.yx),
                          part(toDevice.yy), part(toDevice.dx), part(toDevice.dy)};
    const XFORM& present = m_context.state.world;
    const auto partsOf = [](const XFORM& form) {
        return std::array{form.eM11, form.eM12, form.eM21, form.eM22, form.eDx, form.eDy};
    };
    if (partsOf(transform) != partsOf(present)) {
        SetWorldTransform(m_target, &transform);
    }
}

void Playback::saveState()
{
    const std::size_t rectangles = rectanglesOf(m_context.state.clip);
    if (m_saved.size() >= DeepestSave || rectangles > MostSavedRectangles - m_savedRectangles) {
        return;
    }
    m_saved.reserve(m_saved.size() + 1);
    if (SaveDC(m_reference) == 0) {
        return;
    }
    if (SaveDC(m_target) == 0) {
        RestoreDC(m_reference, -1);
        return;
    }
    m_saved.push_back(rectangles);
    m_savedRectangles += rectangles;
}

void Playback::restoreState(LONG level)
{
    const auto depth = static_cast<LONG>(m_saved.size());
    const LONG levels = level > 0 ? depth - level + 1 : (level < -depth ? 0 : -level);
    if (levels <= 0 || levels > depth) {
        return;
    }
    RestoreDC(m_reference, -levels);
    RestoreDC(m_target, -levels);
    for (LONG count = 0; count < levels; ++count) {
        m_savedRectangles -= m_saved.back();
        m_saved.pop_back();
    }
    mappingChanged();
}

bool Playback::confinesClip() const noexcept
{
    return m_context.state.metaClip && m_context.contextKind() == ContextKind::Metafile;
}

void Playback::selectClip(HRGN region, int mode)
{
    if (!confinesClip()) {
        ExtSelectClipRgn(m_target, region, mode);
        return;
    }
    const PlayedRegion kept(*m_context.state.metaClip);
    if (region == nullptr) {
        ExtSelectClipRgn(m_target, kept.handle(), mode);
        return;
    }
    ExtSelectClipRgn(m_target, region, mode);
    if (mode != RGN_AND && mode != RGN_DIFF) {
        ExtSelectClipRgn(m_target, kept.handle(), RGN_AND);
    }
}

void Playback::selectClipPath(int mode)
{
    SelectClipPath(m_target, mode);
    if (confinesClip() && mode != RGN_AND && mode != RGN_DIFF) {
        const PlayedRegion kept(*m_context.state.metaClip);
        ExtSelectClipRgn(m_target, kept.handle(), RGN_AND);
    }
}

// A recorder has no record for a clip that can't be given up, so its clip stays and is the one given back.
void Playback::keepClip()
{
    ContextState& state = m_context.state;
    state.metaClip = m_context.effectiveClip();
    state.metaClipShapes.insert(state.metaClipShapes.end(), state.clipShapes.begin(), state.clipShapes.end());
    if (m_context.state.clip && m_context.contextKind() != ContextKind::Metafile) {
        SelectClipRgn(m_target, nullptr);
    }
}

bool Playback::spendDecodedBytes(std::size_t bytes) noexcept
{
    if (bytes > LargestBitmap - m_decodedBytes) {
        return false;
    }
    m_decodedBytes += bytes;
    return true;
}

} // namespace wingdi
