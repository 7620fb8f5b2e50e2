// One record of an enhanced metafile as it stands in a file: bytes whose fields nobody has checked. All reading goes
// through here and stays within the record; nothing is read in place, so fields may have any address.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <span>
#include <vector>

class Record {
public:
    // The whole record with its head, which was checked: at least 8 bytes.
    explicit Record(std::span<const BYTE> bytes) noexcept : m_bytes(bytes) {}

    DWORD type() const noexcept { return field<DWORD>(0).value_or(0); }
    std::size_t size() const noexcept { return m_bytes.size(); }

    // The value at an offset from the record's start; nothing when the record ends before it does.
    template <class Value>
    std::optional<Value> field(std::size_t offset) const noexcept
    {
        if (offset > m_bytes.size() || m_bytes.size() - offset < sizeof(Value)) {
            return std::nullopt;
        }
        Value value;
        std::memcpy(&value, m_bytes.data() + offset, sizeof(Value));
        return value;
    }

    // A piece of the record, for offsets and lengths from a file; nothing when it leaves the record.
    std::optional<std::span<const BYTE>> piece(std::uint64_t offset, std::uint64_t length) const noexcept
    {
        if (offset > m_bytes.size() || length > m_bytes.size() - offset) {
            return std::nullopt;
        }
        return m_bytes.subspan(static_cast<std::size_t>(offset), static_cast<std::size_t>(length));
    }

    // `count` values, one after the other; nothing, and no memory asked for, when they leave the record.
    template <class Value>
    std::optional<std::vector<Value>> values(std::uint64_t offset, std::uint64_t count) const
    {
        const auto bytes = count <= m_bytes.size() ? piece(offset, count * sizeof(Value)) : std::nullopt;
        if (!bytes) {
            return std::nullopt;
        }
        std::vector<Value> result(static_cast<std::size_t>(count));
        if (!result.empty()) {
            std::memcpy(result.data(), bytes->data(), bytes->size());
        }
        return result;
    }

private:
    std::span<const BYTE> m_bytes;
};
