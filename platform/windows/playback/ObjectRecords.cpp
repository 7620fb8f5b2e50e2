// Records that make, select and delete pens, brushes and fonts.
#include <bit>
#include <cstring>

#include "FileDib.h"
#include "RecordHandlers.h"
#include "SourceBitmap.h"
#include "UnplayedRecords.h"

namespace wingdi {

namespace {

void selectObject(Playback& playback, const EMRSELECTOBJECT& record)
{
    if (const HGDIOBJ object = playback.objects().find(record.ihObject)) {
        SelectObject(playback.target(), object);
    }
}

void deleteObject(Playback& playback, const EMRSELECTOBJECT& record)
{
    playback.objects().remove(record.ihObject);
}

void createPen(Playback& playback, const EMRCREATEPEN& record)
{
    const auto style = static_cast<int>(record.style & PS_STYLE_MASK);
    playback.objects().add(record.ihPen, CreatePen(style, record.width.x, record.color));
}

bool createPatternPen(Playback& playback, const metafile::Record& record, const EMREXTCREATEPEN& fields,
                      const std::vector<DWORD>& dashes)
{
    const DibPlace place{fields.offBmi, fields.cbBmi, fields.offBits, fields.cbBits};
    if (!FileDib::stands(record, place)) {
        return false;
    }
    const auto dib = FileDib::read(playback, record, place, DIB_RGB_COLORS);
    if (!dib) {
        countUnplayed(record.type);
        return true;
    }
    const SourceBitmap bitmap(playback.target(), *dib,
                              fields.elp.elpBrushStyle == BS_PATTERN && dib->isMonochrome());
    const LOGBRUSH brush{BS_PATTERN, 0, std::bit_cast<ULONG_PTR>(bitmap.handle())};
    playback.objects().add(fields.ihPen, ExtCreatePen(fields.elp.elpPenStyle, fields.elp.elpWidth, &brush,
                                                      static_cast<DWORD>(dashes.size()),
                                                      dashes.empty() ? nullptr : dashes.data()));
    return true;
}

// The brush of a file's pen or brush. Hatches beyond those of calls ([MS-EMF] 2.1.17) are plain areas in the colour
// told, the text's or the background's; the rest of a pattern would be an address of somebody else's memory.
LOGBRUSH brushOf(HDC target, const LOGBRUSH32& brush)
{
    constexpr ULONG TextColorHatch = 8;
    constexpr ULONG BackColorHatch = 10;
    switch (brush.lbStyle) {
    case BS_NULL:
        return {BS_NULL, 0, 0};
    case BS_HATCHED:
        if (brush.lbHatch <= ULONG{HS_DIAGCROSS}) {
            return {BS_HATCHED, brush.lbColor, brush.lbHatch};
        }
        if (brush.lbHatch >= BackColorHatch) {
            return {BS_SOLID, GetBkColor(target), 0};
        }
        return {BS_SOLID, brush.lbHatch >= TextColorHatch ? GetTextColor(target) : brush.lbColor, 0};
    default:
        return {BS_SOLID, brush.lbColor, 0};
    }
}

bool createExtendedPen(Playback& playback, const metafile::Record& record)
{
    const auto number = record.field<DWORD>(offsetof(EMREXTCREATEPEN, ihPen));
    // A pen without dashes may end before the first of them.
    constexpr std::size_t Start = offsetof(EMREXTCREATEPEN, elp);
    constexpr std::size_t DashStart = Start + offsetof(EXTLOGPEN32, elpStyleEntry);
    EXTLOGPEN32 pen{};
    const auto fixed = record.piece(Start, offsetof(EXTLOGPEN32, elpStyleEntry));
    if (!number || !fixed) {
        return false;
    }
    std::memcpy(&pen, fixed->data(), fixed->size());
    const bool userStyle = (pen.elpPenStyle & PS_STYLE_MASK) == PS_USERSTYLE;
    const auto dashes = record.values<DWORD>(DashStart, userStyle ? pen.elpNumEntries : 0);
    if (!dashes) {
        return false;
    }
    const auto places = record.field<EMREXTCREATEPEN>(0);
    const bool isPatterned = pen.elpBrushStyle == BS_PATTERN || pen.elpBrushStyle == BS_DIBPATTERN ||
                             pen.elpBrushStyle == BS_DIBPATTERNPT;
    if (isPatterned && places && places->cbBmi != 0) {
        return createPatternPen(playback, record, *places, *dashes);
    }
    const LOGBRUSH brush = brushOf(playback.target(), {pen.elpBrushStyle, pen.elpColor, pen.elpHatch});
    playback.objects().add(*number, ExtCreatePen(pen.elpPenStyle, pen.elpWidth, &brush,
                                                 static_cast<DWORD>(dashes->size()),
                                                 dashes->empty() ? nullptr : dashes->data()));
    return true;
}

void createBrush(Playback& playback, const EMRCREATEBRUSHINDIRECT& record)
{
    const LOGBRUSH brush = brushOf(playback.target(), record.lb);
    playback.objects().add(record.ihBrush, CreateBrushIndirect(&brush));
}

bool createPatternBrush(Playback& playback, const metafile::Record& record)
{
    const auto fields = record.field<EMRCREATEMONOBRUSH>(0);
    if (!fields) {
        return false;
    }
    const DibPlace place{fields->offBmi, fields->cbBmi, fields->offBits, fields->cbBits};
    if (!FileDib::stands(record, place)) {
        return false;
    }
    const auto dib = FileDib::read(playback, record, place, fields->iUsage);
    if (!dib) {
        countUnplayed(record.type);
        return true;
    }
    if (record.type == EMR_CREATEMONOBRUSH) {
        const SourceBitmap bitmap(playback.target(), *dib, true);
        playback.objects().add(fields->ihBrush, CreatePatternBrush(bitmap.handle()));
        return true;
    }
    const std::vector<BYTE> packed = dib->packed();
    playback.objects().add(fields->ihBrush, CreateDIBPatternBrushPt(packed.data(), DIB_RGB_COLORS));
    return true;
}

// Records end after the LOGFONTW, or carry more than is needed here.
bool createFont(Playback& playback, const metafile::Record& record)
{
    const auto number = record.field<DWORD>(offsetof(EMREXTCREATEFONTINDIRECTW, ihFont));
    auto font = record.field<LOGFONTW>(offsetof(EMREXTCREATEFONTINDIRECTW, elfw));
    if (!number || !font) {
        return false;
    }
    font->lfFaceName[LF_FACESIZE - 1] = 0;
    playback.objects().add(*number, CreateFontIndirectW(&*font));
    return true;
}

constexpr RecordEntry Entries[] = {
    {EMR_SELECTOBJECT, playFields<EMRSELECTOBJECT, selectObject>},
    {EMR_DELETEOBJECT, playFields<EMRSELECTOBJECT, deleteObject>},
    {EMR_CREATEPEN, playFields<EMRCREATEPEN, createPen>},
    {EMR_EXTCREATEPEN, createExtendedPen},
    {EMR_CREATEBRUSHINDIRECT, playFields<EMRCREATEBRUSHINDIRECT, createBrush>},
    {EMR_CREATEMONOBRUSH, createPatternBrush},
    {EMR_CREATEDIBPATTERNBRUSHPT, createPatternBrush},
    {EMR_EXTCREATEFONTINDIRECTW, createFont},
};

} // namespace

std::span<const RecordEntry> objectRecords() noexcept
{
    return Entries;
}

} // namespace wingdi
