// Records that copy some pixels of a bitmap and leave others: by a mask, or all but those of one colour. The pixels to
// be copied become a clip, so that they come out on any device.
#include <bit>
#include <cstdint>
#include <cstdlib>
#include <utility>

#include "FileDib.h"
#include "PlayedRegion.h"
#include "RecordHandlers.h"
#include "SourceBitmap.h"
#include "UnplayedRecords.h"

namespace wingdi {

namespace {

// A rectangle of pixels of a view that cover a rectangle of logical units.
struct Coverage {
    POINTL pixel; // top left
    SIZEL pixels;
    POINTL place;
    SIZEL size;
};

// More pieces than a region would keep; they would cost far more memory than the mask.
constexpr std::size_t MostPieces = 1'000'000;

// The pixels that `accepts` as a region of the target; outside of the view it is asked for no pixel and accepts none.
template <class Accepts>
Region regionOf(HDC target, const BitmapView& view, const Coverage& coverage, const Accepts& accepts)
{
    std::vector<POINT> corners;
    const double scaleX = static_cast<double>(coverage.size.cx) / coverage.pixels.cx;
    const double scaleY = static_cast<double>(coverage.size.cy) / coverage.pixels.cy;
    const auto enter = [&](std::int64_t x, std::int64_t end, int y) {
        const auto across = [&](std::int64_t column) {
            return toDeviceUnit(coverage.place.x + static_cast<double>(column - coverage.pixel.x) * scaleX);
        };
        const auto down = [&](std::int64_t row) {
            return toDeviceUnit(coverage.place.y + static_cast<double>(row - coverage.pixel.y) * scaleY);
        };
        const LONG top = down(y);
        const LONG bottom = down(std::int64_t{y} + 1);
        corners.insert(corners.end(),
                       {{across(x), top}, {across(end), top}, {across(end), bottom}, {across(x), bottom}});
    };
    for (int y = 0; y < view.height; ++y) {
        int begin = 0;
        for (int x = 0; x <= view.width; ++x) {
            if (x < view.width && accepts(x, y)) {
                continue;
            }
            if (x > begin && corners.size() < MostPieces * 4) {
                enter(begin, x, y);
            }
            begin = x + 1;
        }
    }
    LPtoDP(target, corners.data(), static_cast<int>(corners.size()));
    const std::vector<INT> counts(corners.size() / 4, 4);
    return regionOfPolygons(std::move(corners), counts);
}

// Runs a drawing with the clip cut down to the region, and no pixel mixed with those that are left out.
template <class Draw>
void drawWithin(HDC target, const Region& region, const Draw& draw)
{
    const PlayedRegion clip(region);
    if (SaveDC(target) != 0) {
        ExtSelectClipRgn(target, clip.handle(), RGN_AND);
        SetStretchBltMode(target, COLORONCOLOR);
        draw();
        RestoreDC(target, -1);
    }
}

DibPlace sourceOf(const EMRBITBLT& fields)
{
    return {fields.offBmiSrc, fields.cbBmiSrc, fields.offBitsSrc, fields.cbBitsSrc};
}

// Without a mask the operation for its set bits holds everywhere.
bool maskBlt(Playback& playback, const metafile::Record& record)
{
    const auto fields = record.field<EMRMASKBLT>(0);
    if (!fields) {
        return false;
    }
    const EMRBITBLT& blt = fields->blt;
    const DibPlace maskPlace{fields->offBmiMask, fields->cbBmiMask, fields->offBitsMask, fields->cbBitsMask};
    if (!FileDib::stands(record, sourceOf(blt)) || !FileDib::stands(record, maskPlace)) {
        return false;
    }
    const auto dib = FileDib::read(playback, record, sourceOf(blt), blt.iUsageSrc);
    const auto mask = FileDib::read(playback, record, maskPlace, fields->iUsageMask);
    if (!dib || (fields->cbBmiMask != 0 && !mask)) {
        countUnplayed(record.type);
        return true;
    }
    const HDC target = playback.target();
    const SourceBitmap bitmap(target, *dib, dib->isMonochrome());
    const SourceContext source(target, bitmap, blt.xformSrc, blt.crBkColorSrc);
    const auto copy = [&](DWORD operation) {
        BitBlt(target, blt.xDest, blt.yDest, blt.cxDest, blt.cyDest, source.handle(), blt.xSrc, blt.ySrc,
               operation);
    };
    const DWORD setOperation = blt.dwRop & 0xFFFFFF;
    if (!mask) {
        copy(setOperation);
        return true;
    }
    const BitmapView view = mask->view();
    const SIZEL size{std::abs(blt.cxDest), std::abs(blt.cyDest)};
    if (size.cx == 0 || size.cy == 0 || view.bitsPerPixel != 1) {
        return true;
    }
    const Coverage coverage{
        {fields->xMask, fields->yMask}, size, {blt.xDest, blt.yDest}, {blt.cxDest, blt.cyDest}};
    const DWORD clearOperation = (blt.dwRop >> 8 & 0xFF0000);
    for (const unsigned int bit : {0U, 1U}) {
        const Region region =
            regionOf(target, view, coverage, [&](int x, int y) { return view.index(x, y) == bit; });
        drawWithin(target, region, [&] { copy(bit == 1 ? setOperation : clearOperation); });
    }
    return true;
}

// The operation is the colour that is left out.
bool transparentBlt(Playback& playback, const metafile::Record& record)
{
    const auto fields = record.field<EMRSTRETCHBLT>(0);
    if (!fields || !FileDib::stands(record, sourceOf(fields->blt))) {
        return false;
    }
    const EMRBITBLT& blt = fields->blt;
    const auto dib = FileDib::read(playback, record, sourceOf(blt), blt.iUsageSrc);
    if (!dib) {
        countUnplayed(record.type);
        return true;
    }
    if (fields->cxSrc <= 0 || fields->cySrc <= 0) {
        return true;
    }
    const HDC target = playback.target();
    const BitmapView view = dib->view();
    const DWORD left = (blt.dwRop & 0xFF) << 16 | (blt.dwRop & 0xFF00) | (blt.dwRop >> 16 & 0xFF);
    const Coverage coverage{{blt.xSrc, blt.ySrc},
                            {fields->cxSrc, fields->cySrc},
                            {blt.xDest, blt.yDest},
                            {blt.cxDest, blt.cyDest}};
    const Region region =
        regionOf(target, view, coverage, [&](int x, int y) { return view.pixel(x, y) != left; });
    const SourceBitmap bitmap(target, *dib, false);
    const SourceContext source(target, bitmap, blt.xformSrc, blt.crBkColorSrc);
    drawWithin(target, region, [&] {
        StretchBlt(target, blt.xDest, blt.yDest, blt.cxDest, blt.cyDest, source.handle(), blt.xSrc, blt.ySrc,
                   fields->cxSrc, fields->cySrc, SRCCOPY);
    });
    return true;
}

// The operation is a BLENDFUNCTION.
bool alphaBlend(Playback& playback, const metafile::Record& record)
{
    const auto fields = record.field<EMRSTRETCHBLT>(0);
    if (!fields || !FileDib::stands(record, sourceOf(fields->blt))) {
        return false;
    }
    const EMRBITBLT& blt = fields->blt;
    const auto dib = FileDib::read(playback, record, sourceOf(blt), blt.iUsageSrc);
    if (!dib) {
        countUnplayed(record.type);
        return true;
    }
    const HDC target = playback.target();
    const SourceBitmap bitmap(target, *dib, false);
    const SourceContext source(target, bitmap, blt.xformSrc, blt.crBkColorSrc);
    if (GdiAlphaBlend(target, blt.xDest, blt.yDest, blt.cxDest, blt.cyDest, source.handle(), blt.xSrc,
                      blt.ySrc, fields->cxSrc, fields->cySrc,
                      std::bit_cast<BLENDFUNCTION>(blt.dwRop)) == FALSE) {
        countUnplayed(record.type);
    }
    return true;
}

// What brings a rectangle of this size at (0, 0) to the parallelogram.
XFORM toParallelogram(const POINTL (&corners)[3], LONG width, LONG height)
{
    const auto share = [](LONG to, LONG from, LONG size) {
        return static_cast<FLOAT>((static_cast<double>(to) - from) / size);
    };
    const auto& [first, right, below] = corners;
    return {share(right.x, first.x, width),  share(right.y, first.y, width), share(below.x, first.x, height),
            share(below.y, first.y, height), static_cast<FLOAT>(first.x),    static_cast<FLOAT>(first.y)};
}

// With a mask, where its bits are set.
bool parallelogramBlt(Playback& playback, const metafile::Record& record)
{
    const auto fields = record.field<EMRPLGBLT>(0);
    if (!fields) {
        return false;
    }
    const DibPlace place{fields->offBmiSrc, fields->cbBmiSrc, fields->offBitsSrc, fields->cbBitsSrc};
    const DibPlace maskPlace{fields->offBmiMask, fields->cbBmiMask, fields->offBitsMask, fields->cbBitsMask};
    if (!FileDib::stands(record, place) || !FileDib::stands(record, maskPlace)) {
        return false;
    }
    const auto dib = FileDib::read(playback, record, place, fields->iUsageSrc);
    const auto mask = FileDib::read(playback, record, maskPlace, fields->iUsageMask);
    if (!dib || (fields->cbBmiMask != 0 && !mask)) {
        countUnplayed(record.type);
        return true;
    }
    const HDC target = playback.target();
    const SIZEL size{fields->cxSrc, fields->cySrc};
    if (size.cx <= 0 || size.cy <= 0 || SaveDC(target) == 0) {
        return true;
    }
    const SourceBitmap bitmap(target, *dib, dib->isMonochrome());
    const SourceContext source(target, bitmap, fields->xformSrc, fields->crBkColorSrc);
    SetGraphicsMode(target, GM_ADVANCED);
    const XFORM transform = toParallelogram(fields->aptlDest, size.cx, size.cy);
    ModifyWorldTransform(target, &transform, MWT_LEFTMULTIPLY);
    const auto copy = [&] {
        StretchBlt(target, 0, 0, size.cx, size.cy, source.handle(), fields->xSrc, fields->ySrc, size.cx,
                   size.cy, SRCCOPY);
    };
    if (mask) {
        const BitmapView view = mask->view();
        const Coverage coverage{{fields->xMask, fields->yMask}, size, {0, 0}, size};
        drawWithin(target,
                   regionOf(target, view, coverage,
                            [&](int x, int y) { return view.bitsPerPixel == 1 && view.index(x, y) == 1; }),
                   copy);
    } else {
        copy();
    }
    RestoreDC(target, -1);
    return true;
}

constexpr RecordEntry Entries[] = {
    {EMR_ALPHABLEND, alphaBlend},
    {EMR_MASKBLT, maskBlt},
    {EMR_PLGBLT, parallelogramBlt},
    {EMR_TRANSPARENTBLT, transparentBlt},
};

} // namespace

std::span<const RecordEntry> maskedBitmapRecords() noexcept
{
    return Entries;
}

} // namespace wingdi
