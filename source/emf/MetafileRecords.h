// The records of a stored metafile ([MS-EMF] 2.3), as the page operations see them.
//
// for (const MetafileRecord& record : MetafileRecords(page)) meets every record up to EMR_EOF. Pages come from
// strangers and records lie at any address: a field is copied out, and only where its record has it.
#pragma once

#include <bit>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <optional>
#include <span>
#include <type_traits>

#include <windows.h>

#include "sys/tovostr.h"

static_assert(std::endian::native == std::endian::little, "fields are copied as they stand in a page");

using MetafilePage = std::span<const unsigned char>;

// No bytes without a page or for a negative length.
template <typename Length>
MetafilePage metafilePage(const unsigned char* page, Length length)
{
    return page != nullptr && length > 0 ? MetafilePage(page, static_cast<std::size_t>(length))
                                         : MetafilePage();
}

struct MetafileRecord {
    // A field, or all fields of a layout, at an offset in the record; nothing where they leave the record.
    template <typename T>
    std::optional<T> field(std::size_t offset) const
    {
        static_assert(std::is_trivially_copyable_v<T>);
        if (offset > bytes.size() || bytes.size() - offset < sizeof(T)) {
            return std::nullopt;
        }
        T value;
        std::memcpy(&value, bytes.data() + offset, sizeof(T));
        return value;
    }

    template <typename Layout>
    std::optional<Layout> as() const
    {
        return field<Layout>(0);
    }

    DWORD type = 0;
    unsigned int position = 0; // where it begins in the page, in bytes
    MetafilePage bytes;        // its head included
};

// The record that begins at a position; nothing where there can't be one: the page ends there, or its size is
// below that of its head, no multiple of 4, or leads out of the page.
std::optional<MetafileRecord> recordAt(MetafilePage page, unsigned int position);

// The records up to EMR_EOF, which is not met itself, the end of the page, or a place without a record.
class MetafileRecords {
public:
    explicit MetafileRecords(MetafilePage page) : _page(page) {}

    class Iterator {
    public:
        explicit Iterator(MetafilePage page) : _page(page) { moveTo(0); }

        const MetafileRecord& operator*() const { return *_record; }
        Iterator& operator++()
        {
            moveTo(_record->position + static_cast<unsigned int>(_record->bytes.size()));
            return *this;
        }
        bool operator==(std::default_sentinel_t) const { return !_record.has_value(); }

    private:
        void moveTo(unsigned int position);

        MetafilePage _page;
        std::optional<MetafileRecord> _record;
    };

    Iterator begin() const { return Iterator(_page); }
    static std::default_sentinel_t end() { return {}; }

private:
    MetafilePage _page;
};

// The fields of an EMR_EXTTEXTOUTA or EMR_EXTTEXTOUTW ([MS-EMF] 2.3.5.7, 2.3.5.8). Its characters, if it has
// any, lie inside the record and after these fields.
struct MetafileText {
    EMREXTTEXTOUT fields;
    unsigned int characterSize; // in bytes: 1 or 2

    std::size_t offsetOf(unsigned int character) const
    {
        return fields.emrtext.offString + std::size_t{character} * characterSize;
    }
};

// Nothing for other records and for those whose characters lie elsewhere.
std::optional<MetafileText> textOf(const MetafileRecord& record);

// Adds the characters as 8 bits, a zero among them as a blank: one for each of the record, so that an index into
// them is one into the record's. Throws KrnException without memory.
void appendCharacters(const MetafileRecord& record, const MetafileText& text, TovoTextString& out);
