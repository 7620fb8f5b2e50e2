// PlayEnhMetaFile: the walk over the records of a metafile.
#include <windows.h>

#include <array>
#include <atomic>
#include <memory>
#include <optional>
#include <span>

#include "DeviceContext.h"
#include "HandleTable.h"
#include "Playback.h"
#include "RecordHandlers.h"
#include "UnplayedRecords.h"
#include "failWith.h"
#include "gdidevice.h"
#include "sys/recordReader.h"

using namespace wingdi;

namespace {

constexpr DWORD TypeLimit = 128; // above all types that are documented

std::array<std::atomic<int>, TypeLimit> unplayed;

using HandlerTable = std::array<RecordHandler, TypeLimit>;

struct Handlers {
    HandlerTable play{};
    std::array<bool, TypeLimit> draws{}; // and so needs the mapping on the target
};

Handlers allHandlers()
{
    Handlers handlers;
    const auto enter = [&](std::span<const RecordEntry> group, bool draws) {
        for (const RecordEntry& entry : group) {
            handlers.play[entry.type] = entry.play;
            handlers.draws[entry.type] = draws;
        }
    };
    enter(stateRecords(), false);
    enter(mappingRecords(), false);
    enter(objectRecords(), false);
    enter(shapeRecords(), true);
    enter(polyRecords(), true);
    enter(regionRecords(), true);
    enter(bitmapRecords(), true);
    enter(maskedBitmapRecords(), true);
    enter(gradientRecords(), true);
    enter(textRecords(), false); // these bring their own
    return handlers;
}

// False when the record contradicts itself.
bool playRecord(Playback& playback, const metafile::Record& record)
{
    static const Handlers Handlers = allHandlers();
    const DWORD type = record.type;
    const RecordHandler play = type < TypeLimit ? Handlers.play[type] : nullptr;
    if (play == nullptr) {
        countUnplayed(type);
        return true;
    }
    if (Handlers.draws[type]) {
        playback.applyMapping();
    }
    return play(playback, record);
}

// False when something could not be played because the bytes are unsound: a single record, or all from a place on
// where no record is.
bool playRecords(Playback& playback, metafile::Page page, unsigned int position)
{
    bool sound = true;
    while (const std::optional<metafile::Record> record = metafile::recordAt(page, position)) {
        if (record->type == EMR_EOF) {
            return sound;
        }
        sound = playRecord(playback, *record) && sound;
        position += static_cast<unsigned int>(record->bytes.size());
    }
    return false;
}

bool play(HDC handle, DeviceContext& context, metafile::Page page, const RECT& rect)
{
    const std::optional<metafile::Record> header = metafile::recordAt(page, 0);
    const std::optional<ReferenceDevice> device =
        header && header->type == EMR_HEADER ? ReferenceDevice::of(*header) : std::nullopt;
    if (!device) {
        return failWith(ERROR_INVALID_PARAMETER, false);
    }
    Playback playback(handle, context, *device, rect);
    return playback.begin() && playRecords(playback, page, static_cast<unsigned int>(header->bytes.size()));
}

} // namespace

void wingdi::countUnplayed(DWORD type) noexcept
{
    ++unplayed[type < TypeLimit ? type : 0];
}

int gdiUnplayedRecords(DWORD type)
{
    return unplayed[type < TypeLimit ? type : 0];
}

BOOL PlayEnhMetaFile(HDC context, HENHMETAFILE metafile, const RECT* rect)
{
    return onContext(context, "PlayEnhMetaFile", FALSE, [&](DeviceContext& found) {
        const auto file = HandleTable::instance().find<MetafileObject>(metafile, ObjectKind::Metafile);
        if (!file || rect == nullptr) {
            return failWith(file ? ERROR_INVALID_PARAMETER : ERROR_INVALID_HANDLE, FALSE);
        }
        return play(context, found, file->bytes, *rect) ? TRUE : FALSE;
    });
}
