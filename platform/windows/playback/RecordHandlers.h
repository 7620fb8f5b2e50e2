// The functions that play records, by type. Each group has a file of its own and a table; what no
// table names is passed over.
#pragma once

#include <windows.h>

#include <span>

#include "Playback.h"
#include "sys/recordReader.h"

namespace wingdi {

// False when fields of the record contradict its size: nothing was drawn. What the device refuses is no such case.
using RecordHandler = bool (*)(Playback& playback, const metafile::Record& record);

struct RecordEntry {
    DWORD type;
    RecordHandler play;
};

std::span<const RecordEntry> stateRecords() noexcept;
std::span<const RecordEntry> mappingRecords() noexcept;
std::span<const RecordEntry> objectRecords() noexcept;
std::span<const RecordEntry> shapeRecords() noexcept;
std::span<const RecordEntry> polyRecords() noexcept;
std::span<const RecordEntry> regionRecords() noexcept;
std::span<const RecordEntry> bitmapRecords() noexcept;
std::span<const RecordEntry> maskedBitmapRecords() noexcept;
std::span<const RecordEntry> gradientRecords() noexcept;
std::span<const RecordEntry> textRecords() noexcept;

// The handler of a record that needs no more than the fields it begins with.
template <class Fields, void (*function)(Playback&, const Fields&)>
bool playFields(Playback& playback, const metafile::Record& record)
{
    const auto fields = record.field<Fields>(0);
    if (!fields) {
        return false;
    }
    function(playback, *fields);
    return true;
}

// The same for one that calls a function of the context without arguments: BeginPath, EndPath, ...
template <BOOL (*function)(HDC)>
bool playCall(Playback& playback, const metafile::Record& /*record*/)
{
    function(playback.target());
    return true;
}

// The same for a function of the context that takes the record's one number.
template <class Result, class Value, Result (*function)(HDC, Value)>
bool playValue(Playback& playback, const metafile::Record& record)
{
    static_assert(sizeof(Value) == sizeof(DWORD));
    const auto value = record.field<Value>(sizeof(EMR));
    if (!value) {
        return false;
    }
    function(playback.target(), *value);
    return true;
}

} // namespace wingdi
