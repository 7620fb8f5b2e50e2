#include "FileOrder.h"

#include <algorithm>

namespace pagetool {

namespace {

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

// Takes a run of digits, or one other character, from the front.
std::string_view takePiece(std::string_view& text)
{
    std::size_t length = 0;
    while (length < text.size() && isDigit(text[length])) {
        ++length;
    }
    const std::string_view piece = text.substr(0, std::max<std::size_t>(length, 1));
    text.remove_prefix(piece.size());
    return piece;
}

std::string_view withoutZeros(std::string_view digits)
{
    return digits.substr(std::min(digits.find_first_not_of('0'), digits.size()));
}

// Below, equal to or above 0. Numbers of any length.
int compare(std::string_view first, std::string_view second)
{
    if (!isDigit(first[0]) || !isDigit(second[0])) {
        return first.compare(second);
    }
    const std::string_view a = withoutZeros(first);
    const std::string_view b = withoutZeros(second);
    if (a.size() != b.size()) {
        return a.size() < b.size() ? -1 : 1;
    }
    return a.compare(b);
}

bool differInNumbersOnly(std::string_view first, std::string_view second)
{
    while (!first.empty() && !second.empty()) {
        const std::string_view a = takePiece(first);
        const std::string_view b = takePiece(second);
        if (a != b && !(isDigit(a[0]) && isDigit(b[0]))) {
            return false;
        }
    }
    return first.empty() && second.empty();
}

} // namespace

bool comesBefore(std::string_view first, std::string_view second)
{
    std::string_view a = first;
    std::string_view b = second;
    while (!a.empty() && !b.empty()) {
        if (const int order = compare(takePiece(a), takePiece(b)); order != 0) {
            return order < 0;
        }
    }
    return a.size() != b.size() ? a.size() < b.size() : first < second;
}

std::string disorderOf(const std::vector<std::string>& files)
{
    const auto swapped =
        std::adjacent_find(files.begin(), files.end(), [](const std::string& a, const std::string& b) {
            return differInNumbersOnly(a, b) && comesBefore(b, a);
        });
    return swapped == files.end() ? std::string()
                                  : std::string(*swapped).append(" comes before ").append(swapped[1]);
}

} // namespace pagetool
