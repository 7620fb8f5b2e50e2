// The comment record that marks the next text as the page count: three letters, then the two ends of the band that the
// text lies in, in device units. Nothing is aligned.
#pragma once

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>
#include <span>
#include <string_view>

#include <windows.h>

namespace metafile {

struct PageCountMarker {
    static constexpr std::string_view Letters = "TPC";
    static constexpr std::size_t Size = Letters.size() + 2 * sizeof(LONG);

    LONG left;
    LONG right;

    std::array<BYTE, Size> data() const
    {
        std::array<BYTE, Size> bytes{};
        std::copy(Letters.begin(), Letters.end(), bytes.begin());
        const LONG ends[] = {left, right};
        std::memcpy(bytes.data() + Letters.size(), ends, sizeof(ends));
        return bytes;
    }

    // Nothing where the comment is another.
    static std::optional<PageCountMarker> of(std::span<const unsigned char> comment)
    {
        if (comment.size() != Size || std::memcmp(comment.data(), Letters.data(), Letters.size()) != 0) {
            return std::nullopt;
        }
        LONG ends[2];
        std::memcpy(ends, comment.data() + Letters.size(), sizeof(ends));
        return PageCountMarker{ends[0], ends[1]};
    }
};
static_assert(PageCountMarker::Size == 11);

} // namespace metafile
