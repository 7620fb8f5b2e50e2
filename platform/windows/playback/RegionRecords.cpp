// Records of the clip and of filled regions. A clip's region is in pixels of the reference device, others are in
// logical units.
#include <algorithm>
#include <utility>

#include "HandleTable.h"
#include "PlayedRegion.h"
#include "RecordHandlers.h"

namespace wingdi {

namespace {

// The rectangles of region data ([MS-EMF] 2.2.24); nothing when it is unsound.
std::optional<std::vector<RECT>> readRectangles(const metafile::Record& record, std::size_t offset,
                                                DWORD length)
{
    const auto header = record.field<RGNDATAHEADER>(offset);
    if (!header || !record.piece(offset, length) || length < sizeof(RGNDATAHEADER) ||
        header->iType != RDH_RECTANGLES ||
        std::uint64_t{header->nCount} * sizeof(RECT) > length - sizeof(RGNDATAHEADER)) {
        return std::nullopt;
    }
    return record.values<RECT>(offset + sizeof(RGNDATAHEADER), header->nCount);
}

// Rectangles of a region as a region of other units, where they may lie askew.
Region regionOf(std::span<const RECT> rectangles, const Mapping& mapping)
{
    if (mapping.isAxisAligned()) {
        std::vector<RECT> mapped;
        mapped.reserve(rectangles.size());
        for (const RECT& rect : rectangles) {
            const POINT first = mapping.toDevice({rect.left, rect.top});
            const POINT last = mapping.toDevice({rect.right, rect.bottom});
            mapped.push_back({first.x, first.y, last.x, last.y});
        }
        return regionOfRectangles(mapped);
    }
    std::vector<POINT> corners;
    corners.reserve(rectangles.size() * 4);
    for (const RECT& rect : rectangles) {
        for (const POINT corner : {POINT{rect.left, rect.top}, POINT{rect.right, rect.top},
                                   POINT{rect.right, rect.bottom}, POINT{rect.left, rect.bottom}}) {
            corners.push_back(mapping.toDevice(corner));
        }
    }
    return regionOfPolygons(std::move(corners), std::vector<INT>(rectangles.size(), 4));
}

bool selectClip(Playback& playback, const metafile::Record& record)
{
    const auto fields = record.field<EMREXTSELECTCLIPRGN>(0);
    if (!fields) {
        return false;
    }
    const auto mode = static_cast<int>(fields->iMode);
    if (fields->cbRgnData == 0) {
        playback.selectClip(nullptr, mode);
        return true;
    }
    const auto rectangles = readRectangles(record, sizeof(*fields), fields->cbRgnData);
    if (!rectangles) {
        return false;
    }
    const PlayedRegion region(regionOf(*rectangles, playback.deviceMapping()));
    playback.selectClip(region.handle(), mode);
    return true;
}

template <int (*function)(HDC, int, int, int, int)>
void combineClipRect(Playback& playback, const EMRBOX& record)
{
    const RECTL& box = record.rclBox;
    function(playback.target(), box.left, box.top, box.right, box.bottom);
}

void offsetClip(Playback& playback, const EMRPOINT& record)
{
    OffsetClipRgn(playback.target(), record.ptl.x, record.ptl.y);
}

bool keepClip(Playback& playback, const metafile::Record& /*record*/)
{
    playback.keepClip();
    return true;
}

bool fillRegion(Playback& playback, const metafile::Record& record)
{
    const auto fields = record.field<EMRFILLRGN>(0);
    const auto rectangles =
        fields ? readRectangles(record, sizeof(*fields), fields->cbRgnData) : std::nullopt;
    if (!rectangles) {
        return false;
    }
    const PlayedRegion region(regionOf(*rectangles, {}));
    FillRgn(playback.target(), region.handle(),
            static_cast<HBRUSH>(playback.objects().find(fields->ihBrush)));
    return true;
}

bool paintRegion(Playback& playback, const metafile::Record& record)
{
    const auto fields = record.field<EMRINVERTRGN>(0);
    const auto rectangles =
        fields ? readRectangles(record, sizeof(*fields), fields->cbRgnData) : std::nullopt;
    if (!rectangles) {
        return false;
    }
    const PlayedRegion region(regionOf(*rectangles, {}));
    FillRgn(playback.target(), region.handle(),
            static_cast<HBRUSH>(GetCurrentObject(playback.target(), OBJ_BRUSH)));
    return true;
}

bool invertRegion(Playback& playback, const metafile::Record& record)
{
    const auto fields = record.field<EMRINVERTRGN>(0);
    const auto rectangles =
        fields ? readRectangles(record, sizeof(*fields), fields->cbRgnData) : std::nullopt;
    if (!rectangles) {
        return false;
    }
    // Rectangles that overlap in the file must not be inverted twice.
    for (const RECT& rect : regionOf(*rectangles, {}).rectangles()) {
        PatBlt(playback.target(), rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top,
               DSTINVERT);
    }
    return true;
}

// What a region loses when it is moved by the stroke to each of the four sides.
Region frameOf(const Region& region, SIZEL stroke)
{
    Region inner = region;
    for (const POINT side :
         {POINT{stroke.cx, 0}, POINT{-stroke.cx, 0}, POINT{0, stroke.cy}, POINT{0, -stroke.cy}}) {
        Region moved = region;
        moved.translate(side.x, side.y);
        inner.combine(moved, RGN_AND);
    }
    Region frame = region;
    frame.combine(inner, RGN_DIFF);
    return frame;
}

bool frameRegion(Playback& playback, const metafile::Record& record)
{
    const auto fields = record.field<EMRFRAMERGN>(0);
    const auto rectangles =
        fields ? readRectangles(record, sizeof(*fields), fields->cbRgnData) : std::nullopt;
    if (!rectangles) {
        return false;
    }
    constexpr LONG Widest = 1 << 24; // beyond that there is no inner part
    const SIZEL stroke{std::clamp<LONG>(fields->szlStroke.cx, 0, Widest),
                       std::clamp<LONG>(fields->szlStroke.cy, 0, Widest)};
    const PlayedRegion region(frameOf(regionOf(*rectangles, {}), stroke));
    FillRgn(playback.target(), region.handle(),
            static_cast<HBRUSH>(playback.objects().find(fields->ihBrush)));
    return true;
}

constexpr RecordEntry Entries[] = {
    {EMR_EXTSELECTCLIPRGN, selectClip},
    {EMR_INTERSECTCLIPRECT, playFields<EMRBOX, combineClipRect<IntersectClipRect>>},
    {EMR_EXCLUDECLIPRECT, playFields<EMRBOX, combineClipRect<ExcludeClipRect>>},
    {EMR_OFFSETCLIPRGN, playFields<EMRPOINT, offsetClip>},
    {EMR_SETMETARGN, keepClip},
    {EMR_FILLRGN, fillRegion},
    {EMR_FRAMERGN, frameRegion},
    {EMR_INVERTRGN, invertRegion},
    {EMR_PAINTRGN, paintRegion},
};

} // namespace

std::span<const RecordEntry> regionRecords() noexcept
{
    return Entries;
}

} // namespace wingdi
