// Numbers as text, in a form that no locale changes: called by every writer of a page.
#include "sys/krnos.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdarg>
#include <cstdio>

#include "NeutralLocale.h"

using namespace krnos;

namespace {

// All nines; for a negative number without room for a sign and a digit, zero. `room` is without terminator.
char* writeNearestThatFits(char* buffer, int room, bool negative, int decimals) noexcept
{
    const int behindDigits = decimals != 0 ? std::min(decimals, room) + 1 : 0;
    const int digits = room - behindDigits;
    if (digits < 1) {
        *buffer = '\0';
        return buffer;
    }
    const bool zero = negative && digits < 2;
    char* const last = std::fill_n(buffer, room, zero ? '0' : '9');
    *last = '\0';
    if (negative && !zero) {
        *buffer = '-';
    }
    if (decimals != 0) {
        buffer[digits] = '.';
    }
    return buffer;
}

} // namespace

int intlSprintf(char* buffer, const char* format, ...)
{
    const NeutralLocale locale;
    std::va_list arguments;
    va_start(arguments, format);
    const int length = std::vsprintf(buffer, format, arguments);
    va_end(arguments);
    return length;
}

char* intlFloatToStringFixed(char* buffer, int size, float value, int decimals)
{
    if (buffer == nullptr || size <= 0) {
        return const_cast<char*>(kstr_null_string);
    }
    const float number = std::isnan(value) ? 0.0F : value;
    const int precision = std::max(decimals, 0);
    if (std::isfinite(number)) {
        // Widened, because that is the number printf would be given.
        const std::to_chars_result result =
            std::to_chars(buffer, buffer + size - 1, double{number}, std::chars_format::fixed, precision);
        if (result.ec == std::errc()) {
            *result.ptr = '\0';
            return buffer;
        }
    }
    return writeNearestThatFits(buffer, size - 1, std::signbit(number), precision);
}
