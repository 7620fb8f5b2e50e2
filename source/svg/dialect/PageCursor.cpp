#include "PageCursor.h"

#include <algorithm>
#include <climits>

namespace svg {

namespace {

constexpr int NoDigit = 16;

int digitOf(char character)
{
    if (character >= '0' && character <= '9') {
        return character - '0';
    }
    const char lower = static_cast<char>(character | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : NoDigit;
}

// 16, 8 or 10 by the prefix; a hexadecimal one is stepped over.
int takePrefix(const char*& at)
{
    if (*at != '0') {
        return 10;
    }
    if ((at[1] == 'x' || at[1] == 'X') && digitOf(at[2]) < 16) {
        at += 2;
        return 16;
    }
    return 8;
}

} // namespace

IntegerRead<const char> readNumber(const char* at, int base)
{
    constexpr long long Beyond = 1LL + INT_MAX; // the magnitude of the least int
    const char* cursor = skipBlanks(at);
    const bool negative = *cursor == '-';
    if (negative || *cursor == '+') {
        ++cursor;
    }
    if (base == 0) {
        base = takePrefix(cursor);
    }
    if (digitOf(*cursor) >= base) {
        return {0, at};
    }
    long long magnitude = 0;
    for (; digitOf(*cursor) < base; ++cursor) {
        magnitude = std::min(magnitude * base + digitOf(*cursor), Beyond);
    }
    return {static_cast<int>(negative ? -magnitude : std::min<long long>(magnitude, INT_MAX)), cursor};
}

} // namespace svg
