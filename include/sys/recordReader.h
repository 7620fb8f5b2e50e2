// Checked reading of enhanced metafiles ([MS-EMF] 2.3), for all that walk over their records.
//
// for (const metafile::Record& record : metafile::Records(page)) meets every record up to EMR_EOF. Pages come from
// strangers and records lie at any address: nothing is read in place. A field is copied out, and only where its record
// has it.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <optional>
#include <span>
#include <type_traits>
#include <vector>

#include <windows.h>

namespace metafile {

static_assert(std::endian::native == std::endian::little, "fields are copied as they are in a page");

using Page = std::span<const unsigned char>;

// No bytes without a page or for a negative length.
template <typename Length>
Page pageOf(const unsigned char* page, Length length)
{
    return page != nullptr && length > 0 ? Page(page, static_cast<std::size_t>(length)) : Page();
}

// A record of a metafile, within the page.
struct Record {
    // The value, or all fields of a layout, at an offset in the record, in bytes; nothing where it leaves the record.
    template <typename T>
    std::optional<T> field(std::size_t offset) const noexcept
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
    std::optional<Layout> as() const noexcept
    {
        return field<Layout>(0);
    }

    // A piece of the record, for offsets and lengths from a file; nothing when it leaves the record.
    std::optional<Page> piece(std::uint64_t offset, std::uint64_t length) const noexcept
    {
        if (offset > bytes.size() || length > bytes.size() - offset) {
            return std::nullopt;
        }
        return bytes.subspan(static_cast<std::size_t>(offset), static_cast<std::size_t>(length));
    }

    // `count` values, one after the other; nothing, and no memory asked for, when they leave the record.
    template <typename T>
    std::optional<std::vector<T>> values(std::uint64_t offset, std::uint64_t count) const
    {
        static_assert(std::is_trivially_copyable_v<T>);
        const std::optional<Page> found =
            count <= bytes.size() ? piece(offset, count * sizeof(T)) : std::nullopt;
        if (!found) {
            return std::nullopt;
        }
        std::vector<T> result(static_cast<std::size_t>(count));
        if (!result.empty()) {
            std::memcpy(result.data(), found->data(), found->size());
        }
        return result;
    }

    DWORD type = 0;
    unsigned int position = 0; // where it begins in the page, in bytes
    Page bytes;                // its head included
};

// Why there is no record at a place.
enum class Fault {
    None,
    CutInHead,   // the page ends in the record's head, or before it
    Size,        // the size is below that of a head, or no multiple of 4
    CutInRecord, // the size leads out of the page
};

// What is in a place of a page.
struct Found {
    std::optional<Record> record;
    Fault fault = Fault::None;
    DWORD size = 0; // that the head names; 0 without one
};

inline Found findRecord(Page page, unsigned int position) noexcept
{
    const Record rest{0, position, position < page.size() ? page.subspan(position) : Page()};
    const std::optional<EMR> head = rest.as<EMR>();
    if (!head) {
        return {std::nullopt, Fault::CutInHead, 0};
    }
    if (head->nSize < sizeof(EMR) || head->nSize % sizeof(DWORD) != 0) {
        return {std::nullopt, Fault::Size, head->nSize};
    }
    if (head->nSize > rest.bytes.size()) {
        return {std::nullopt, Fault::CutInRecord, head->nSize};
    }
    return {Record{head->iType, position, rest.bytes.first(head->nSize)}, Fault::None, head->nSize};
}

// The record that begins at a position; nothing where there can't be one.
inline std::optional<Record> recordAt(Page page, unsigned int position) noexcept
{
    return findRecord(page, position).record;
}

// The records up to EMR_EOF, which is not met itself, the end of the page, or a place without a record.
class Records {
public:
    explicit Records(Page page) : m_page(page) {}

    // The place of a record.
    class Iterator {
    public:
        explicit Iterator(Page page) : m_page(page) { moveTo(0); }

        const Record& operator*() const { return *m_record; }
        Iterator& operator++()
        {
            moveTo(m_record->position + static_cast<unsigned int>(m_record->bytes.size()));
            return *this;
        }
        bool operator==(std::default_sentinel_t) const { return !m_record.has_value(); }

    private:
        void moveTo(unsigned int position)
        {
            m_record = recordAt(m_page, position);
            if (m_record && m_record->type == EMR_EOF) {
                m_record.reset();
            }
        }

        Page m_page;
        std::optional<Record> m_record;
    };

    Iterator begin() const { return Iterator(m_page); }
    static std::default_sentinel_t end() { return {}; }

private:
    Page m_page;
};

} // namespace metafile
