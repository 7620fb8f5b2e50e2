// The records of a metafile ([MS-EMF] 2.3), one after the other, and what breaks their chain.
#pragma once

#include <cstddef>
#include <cstring>
#include <functional>
#include <optional>
#include <span>
#include <string>

#include <windows.h>

struct FileRecord {
    // A layout at an offset in the record; nothing where it leaves the record.
    template <typename Layout>
    std::optional<Layout> at(std::size_t offset) const
    {
        if (offset > bytes.size() || bytes.size() - offset < sizeof(Layout)) {
            return std::nullopt;
        }
        Layout layout;
        std::memcpy(&layout, bytes.data() + offset, sizeof(Layout));
        return layout;
    }

    DWORD type = 0;
    std::size_t position = 0;             // in the file, in bytes
    std::span<const unsigned char> bytes; // head included
};

// Visits every record up to and with EMR_EOF. Gives what is wrong with the chain; empty: nothing.
std::string walkRecords(std::span<const unsigned char> page,
                        const std::function<void(const FileRecord&)>& visit);

// As in [MS-EMF] without its prefix, or "record N".
std::string recordName(DWORD type);
