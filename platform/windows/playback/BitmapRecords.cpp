// Records that copy bitmaps, or fill by raster operations without one.
#include <algorithm>
#include <cstdint>

#include "FileDib.h"
#include "RecordHandlers.h"
#include "SourceBitmap.h"
#include "UnplayedRecords.h"

namespace wingdi {

namespace {

template <class Fields>
DibPlace sourceOf(const Fields& fields)
{
    return {fields.offBmiSrc, fields.cbBmiSrc, fields.offBitsSrc, fields.cbBitsSrc};
}

// BITBLT (`size` empty: the source is as large as the target) and STRETCHBLT.
bool playCopy(Playback& playback, const metafile::Record& record, const EMRBITBLT& fields, const SIZEL* size)
{
    const HDC target = playback.target();
    const DibPlace place = sourceOf(fields);
    if (place.headLength == 0) {
        PatBlt(target, fields.xDest, fields.yDest, fields.cxDest, fields.cyDest, fields.dwRop);
        return true;
    }
    if (!FileDib::stands(record, place)) {
        return false;
    }
    const auto dib = FileDib::read(playback, record, place, fields.iUsageSrc);
    if (!dib) {
        countUnplayed(record.type);
        return true;
    }
    const SourceBitmap bitmap(target, *dib, dib->isMonochrome());
    const SourceContext source(target, bitmap, fields.xformSrc, fields.crBkColorSrc);
    if (size == nullptr) {
        BitBlt(target, fields.xDest, fields.yDest, fields.cxDest, fields.cyDest, source.handle(), fields.xSrc,
               fields.ySrc, fields.dwRop);
    } else {
        StretchBlt(target, fields.xDest, fields.yDest, fields.cxDest, fields.cyDest, source.handle(),
                   fields.xSrc, fields.ySrc, size->cx, size->cy, fields.dwRop);
    }
    return true;
}

bool bitBlt(Playback& playback, const metafile::Record& record)
{
    const auto fields = record.field<EMRBITBLT>(0);
    return fields && playCopy(playback, record, *fields, nullptr);
}

bool stretchBlt(Playback& playback, const metafile::Record& record)
{
    const auto fields = record.field<EMRSTRETCHBLT>(0);
    if (!fields) {
        return false;
    }
    const SIZEL size{fields->cxSrc, fields->cySrc};
    return playCopy(playback, record, fields->blt, &size);
}

// Whether a JPEG or a PNG is sound is known when a device has decoded it.
void countUndecoded(const FileDib& dib, int rows, DWORD recordType)
{
    if (rows == 0 && dib.isEncoded()) {
        countUnplayed(recordType);
    }
}

bool stretchDibits(Playback& playback, const metafile::Record& record)
{
    const auto fields = record.field<EMRSTRETCHDIBITS>(0);
    if (!fields || !FileDib::stands(record, sourceOf(*fields))) {
        return false;
    }
    const HDC target = playback.target();
    if (fields->cbBmiSrc == 0) {
        PatBlt(target, fields->xDest, fields->yDest, fields->cxDest, fields->cyDest, fields->dwRop);
        return true;
    }
    const auto dib = FileDib::read(playback, record, sourceOf(*fields), fields->iUsageSrc, 0, true);
    if (!dib) {
        countUnplayed(record.type);
        return true;
    }
    const int rows = StretchDIBits(target, fields->xDest, fields->yDest, fields->cxDest, fields->cyDest,
                                   fields->xSrc, fields->ySrc, fields->cxSrc, fields->cySrc, dib->bits(),
                                   dib->info(), DIB_RGB_COLORS, fields->dwRop);
    countUndecoded(*dib, rows, record.type);
    return true;
}

// Rows that a SETDIBITSTODEVICE record holds and also asks for.
struct Band {
    LONG sourceRow; // counted among the rows held
    LONG targetRow; // counted from the top of the target
    LONG rows;      // 0 or less: none
};

Band bandOf(const EMRSETDIBITSTODEVICE& fields, bool bottomUp, LONG held)
{
    const std::int64_t first = std::max<std::int64_t>(fields.ySrc, fields.iStartScan);
    const std::int64_t asked = std::int64_t{fields.ySrc} + fields.cySrc;
    const std::int64_t end = std::min(asked, std::int64_t{fields.iStartScan} + held);
    if (end <= first) {
        return {0, 0, 0};
    }
    const std::int64_t below = bottomUp ? asked - end : first - fields.ySrc;
    return {static_cast<LONG>(first - fields.iStartScan), static_cast<LONG>(below),
            static_cast<LONG>(end - first)};
}

// A pixel of the bitmap is one of the reference device, whatever the logical units are.
bool setDibitsToDevice(Playback& playback, const metafile::Record& record)
{
    const auto fields = record.field<EMRSETDIBITSTODEVICE>(0);
    if (!fields || !FileDib::stands(record, sourceOf(*fields))) {
        return false;
    }
    constexpr DWORD MostRows = 1 << 24;
    const auto held = static_cast<LONG>(std::min(fields->cScans, MostRows));
    const auto dib = FileDib::read(playback, record, sourceOf(*fields), fields->iUsageSrc, held, true);
    if (!dib) {
        countUnplayed(record.type);
        return true;
    }
    const Band band = bandOf(*fields, dib->bottomUp(), std::min<LONG>(held, dib->height()));
    if (band.rows > 0) {
        const POINT place = playback.fileMapping().toDevice({fields->xDest, fields->yDest});
        playback.applyMappingOnce({});
        const int rows = StretchDIBits(playback.target(), place.x,
                                       toDeviceUnit(static_cast<double>(place.y) + band.targetRow),
                                       fields->cxSrc, band.rows, fields->xSrc, band.sourceRow, fields->cxSrc,
                                       band.rows, dib->bits(), dib->info(), DIB_RGB_COLORS, SRCCOPY);
        countUndecoded(*dib, rows, record.type);
    }
    return true;
}

constexpr RecordEntry Entries[] = {
    {EMR_BITBLT, bitBlt},
    {EMR_STRETCHBLT, stretchBlt},
    {EMR_STRETCHDIBITS, stretchDibits},
    {EMR_SETDIBITSTODEVICE, setDibitsToDevice},
};

} // namespace

std::span<const RecordEntry> bitmapRecords() noexcept
{
    return Entries;
}

} // namespace wingdi
