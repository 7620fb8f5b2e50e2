// Numbers out of text, in a form that no locale changes: called by every reader of a page.
//
// Texts are stretches of pages from strangers and may be very long; nothing here looks beyond the number it
// reads, and nothing asks for the length of a text.
#include "sys/krnos.h"

#include <algorithm>
#include <cfloat>
#include <charconv>
#include <climits>
#include <cstdarg>
#include <cstdint>

namespace {

bool isBlank(char character) noexcept
{
    return character == ' ' || (character >= '\t' && character <= '\r');
}

bool isDigit(char character) noexcept
{
    return character >= '0' && character <= '9';
}

bool isSign(char character) noexcept
{
    return character == '+' || character == '-';
}

const char* skipBlanks(const char* text) noexcept
{
    while (isBlank(*text)) {
        ++text;
    }
    return text;
}

const char* skipDigits(const char* text) noexcept
{
    while (isDigit(*text)) {
        ++text;
    }
    return text;
}

// The digits at `text` as a number, no further from 0 than `limit`.
std::int64_t readDigits(const char*& text, std::int64_t limit) noexcept
{
    std::int64_t number = 0;
    for (; isDigit(*text); ++text) {
        number = std::min(number * 10 + (*text - '0'), limit);
    }
    return number;
}

// Reads one field and moves `text` after it; false, with both arguments as they were, when there is none.
bool readField(const char*& text, int& field) noexcept
{
    const char* next = skipBlanks(text);
    const bool negative = *next == '-';
    if (isSign(*next)) {
        ++next;
    }
    if (!isDigit(*next)) {
        return false;
    }
    const std::int64_t number = readDigits(next, negative ? -std::int64_t{INT_MIN} : INT_MAX);
    field = static_cast<int>(negative ? -number : number);
    text = next;
    return true;
}

// Where the digits, point and exponent at `first` end; `first` itself when there is no digit.
const char* endOfNumber(const char* first) noexcept
{
    const char* end = skipDigits(first);
    std::ptrdiff_t digits = end - first;
    if (*end == '.') {
        const char* const fraction = end + 1;
        end = skipDigits(fraction);
        digits += end - fraction;
    }
    if (digits == 0) {
        return first;
    }
    if (*end == 'e' || *end == 'E') {
        const char* const exponent = isSign(end[1]) ? end + 2 : end + 1;
        if (isDigit(*exponent)) {
            end = skipDigits(exponent);
        }
    }
    return end;
}

// Whether a number beyond the range of double is too large, not too small: its first digit other than 0, with
// the exponent counted in, comes before the point.
bool isTooLarge(const char* first, const char* end) noexcept
{
    const char* const mantissaEnd = std::find_if(first, end, [](char c) { return c == 'e' || c == 'E'; });
    const char* const point = std::find(first, mantissaEnd, '.');
    const char* const leading = std::find_if(first, mantissaEnd, [](char c) { return c >= '1' && c <= '9'; });
    std::int64_t exponent = 0;
    if (mantissaEnd != end) {
        const bool negative = mantissaEnd[1] == '-';
        const char* digits = isSign(mantissaEnd[1]) ? mantissaEnd + 2 : mantissaEnd + 1;
        exponent = readDigits(digits, INT64_MAX / 100);
        exponent = negative ? -exponent : exponent;
    }
    return exponent + (point - leading) > 0;
}

} // namespace

int intlSscanNumeric(const char* text, const char* format, ...)
{
    if (text == nullptr || format == nullptr) {
        return 0;
    }
    int count = 0;
    std::va_list targets;
    va_start(targets, format);
    while (*format != '\0') {
        if (isBlank(*format)) {
            text = skipBlanks(text);
            ++format;
        } else if (format[0] == '%' && format[1] == 'd') {
            int field = 0;
            if (!readField(text, field)) {
                break;
            }
            *va_arg(targets, int*) = field;
            ++count;
            format += 2;
        } else if (*text == *format) {
            ++text;
            ++format;
        } else {
            break;
        }
    }
    va_end(targets);
    return count;
}

double intlStringToDoubleFixed(const char* text)
{
    if (text == nullptr) {
        return 0;
    }
    const char* first = skipBlanks(text);
    const bool negative = *first == '-';
    if (isSign(*first)) {
        ++first;
    }
    const char* const end = endOfNumber(first);
    if (first == end) {
        return 0;
    }
    double number = 0;
    if (std::from_chars(first, end, number).ec == std::errc::result_out_of_range) {
        number = isTooLarge(first, end) ? DBL_MAX : 0;
    }
    return negative ? -number : number;
}
