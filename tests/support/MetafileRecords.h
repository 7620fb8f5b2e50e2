// A walk over the records of a metafile that knows their heads only, and nothing of the layouts that the recorder uses.
#pragma once

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

struct RecordName {
    std::uint32_t type;
    const char* name;
};
inline constexpr RecordName RecordNames[] = {
#include "recordNames.inc"
};

// As in the enumeration, without its prefix; the number of a type that has none.
inline std::string nameOfRecord(std::uint32_t type)
{
    const auto* const named = std::ranges::find(RecordNames, type, &RecordName::type);
    return named != std::end(RecordNames) ? named->name : std::to_string(type);
}

struct MetafileRecord {
    std::uint32_t type = 0;
    std::vector<std::int32_t> fields; // all 32-bit words after type and size
};

// The records of a metafile from its header to its end; expects its chain, counts and object table to be sound.
inline std::vector<MetafileRecord> metafileRecords(const std::vector<unsigned char>& bytes)
{
    std::vector<MetafileRecord> records;
    const auto word = [&](std::size_t offset) {
        std::int32_t value = 0;
        std::memcpy(&value, bytes.data() + offset, sizeof(value));
        return value;
    };
    std::size_t offset = 0;
    while (offset + 8 <= bytes.size()) {
        const auto size = static_cast<std::size_t>(word(offset + 4));
        if (size < 8 || size % 4 != 0 || size > bytes.size() - offset) {
            ADD_FAILURE() << "size " << size << " at " << offset;
            return records;
        }
        records.push_back({static_cast<std::uint32_t>(word(offset)), {}});
        for (std::size_t field = 8; field < size; field += 4) {
            records.back().fields.push_back(word(offset + field));
        }
        offset += size;
    }
    EXPECT_EQ(offset, bytes.size());
    if (records.size() < 2 || records.front().fields.size() < 20) {
        ADD_FAILURE() << "no metafile";
        return records;
    }

    const std::set<std::uint32_t> creations = {
        EMR_CREATEPEN,       EMR_CREATEBRUSHINDIRECT,     EMR_EXTCREATEFONTINDIRECTW,
        EMR_CREATEMONOBRUSH, EMR_CREATEDIBPATTERNBRUSHPT, EMR_EXTCREATEPEN};
    std::set<std::int32_t> live;
    std::int32_t handles = 1;
    for (const MetafileRecord& record : records) {
        if (creations.contains(record.type)) {
            EXPECT_TRUE(live.insert(record.fields[0]).second)
                << "object " << record.fields[0] << " made twice";
            handles = std::max(handles, record.fields[0] + 1);
        } else if (record.type == EMR_SELECTOBJECT && record.fields[0] >= 0) {
            EXPECT_TRUE(live.contains(record.fields[0])) << "object " << record.fields[0] << " selected";
        } else if (record.type == EMR_DELETEOBJECT) {
            EXPECT_EQ(live.erase(record.fields[0]), 1U) << "object " << record.fields[0] << " deleted";
        }
    }
    const std::vector<std::int32_t>& header = records.front().fields;
    EXPECT_EQ(records.front().type, std::uint32_t{EMR_HEADER});
    EXPECT_EQ(header[10], static_cast<std::int32_t>(bytes.size()));
    EXPECT_EQ(header[11], static_cast<std::int32_t>(records.size()));
    EXPECT_EQ(header[12], handles);
    EXPECT_EQ(records.back().type, std::uint32_t{EMR_EOF});
    EXPECT_EQ(records.back().fields, (std::vector<std::int32_t>{0, 16, 20}));
    return records;
}

// A record as its name and at most so many fields: "RECTANGLE: 10 20 109 69".
inline std::string textOf(const MetafileRecord& record, std::size_t fields = SIZE_MAX)
{
    std::string text = nameOfRecord(record.type).append(":");
    for (std::size_t index = 0; index < std::min(fields, record.fields.size()); ++index) {
        text.append(" ").append(std::to_string(record.fields[index]));
    }
    return text;
}
