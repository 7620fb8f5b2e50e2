// Tables by the numbers that callers give: of images, above all.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

namespace drawing {

// Stores at the 0-based place `number`, with room ahead: the tables themselves make exactly the room they need,
// and ascending numbers would move all they hold each time.
template <typename Table, typename Value>
void putByNumber(Table& table, unsigned int number, const Value& value)
{
    if (number >= table.capacity()) {
        const std::uint64_t ahead =
            std::max(std::uint64_t{number} + 1, std::uint64_t{table.capacity()} * 3 / 2);
        table.reSize(static_cast<unsigned int>(
            std::min<std::uint64_t>(ahead, std::numeric_limits<unsigned int>::max())));
    }
    table.atPut(number, value);
}

} // namespace drawing
