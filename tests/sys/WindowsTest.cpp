// The string and rectangle functions of <windows.h>.
#include <windows.h>

#include <climits>
#include <cstring>
#include <string>

#include <gtest/gtest.h>

namespace {

TEST(WindowsStrings, AnswerNullPointers)
{
    char buffer[16] = "ab";
    EXPECT_EQ(lstrlenA(nullptr), 0);
    EXPECT_EQ(lstrcpyA(nullptr, "x"), nullptr);
    EXPECT_EQ(lstrcatA(buffer, nullptr), nullptr);
    EXPECT_EQ(lstrcmpA(nullptr, nullptr), 0);
    EXPECT_EQ(lstrcmpA(nullptr, ""), -1);
    EXPECT_EQ(CharLowerA(nullptr), nullptr);
    EXPECT_STREQ(lstrcatA(buffer, "cd"), "abcd");
    EXPECT_EQ(lstrlenA(buffer), 4);
    EXPECT_STREQ(lstrcpyA(buffer, "\xE9"), "\xE9");
    EXPECT_EQ(lstrcmpA(buffer, "e"), 1);
    EXPECT_EQ(lstrcmpA(buffer, "\xE9"), 0);
}

TEST(WindowsStrings, LowerCaseIsThatOfCodePage1252)
{
    char text[] = "AZ[\x8A\x8E\x9F\xC0\xD7\xDE\xDF\xF7";
    EXPECT_EQ(CharLowerA(text), text);
    EXPECT_STREQ(text, "az[\x9A\x9E\xFF\xE0\xD7\xFE\xDF\xF7");
    const auto single = [](ULONG_PTR character) {
        return reinterpret_cast<ULONG_PTR>(
            CharLowerA(reinterpret_cast<LPSTR>(character))); // NOLINT(performance-no-int-to-ptr)
    };
    EXPECT_EQ(single(0xC4), 0xE4U);
    EXPECT_EQ(single('!'), ULONG_PTR{'!'});
}

TEST(WindowsStrings, LettersAndDigitsAreThoseOfCodePage1252)
{
    std::string letters, digits;
    for (int value = CHAR_MIN; value <= CHAR_MAX; ++value) {
        const char character = static_cast<char>(value);
        letters += IsCharAlphaA(character) != 0 ? std::string(1, character) : "";
        digits += IsCharAlphaNumericA(character) != 0 ? std::string(1, character) : "";
    }
    std::erase_if(digits, [&](char c) { return letters.find(c) != letters.npos; });
    EXPECT_EQ(letters.size(), 52U + 9 + 3 + 62);
    EXPECT_EQ(letters.find_first_of("\xD7\xF7\x80\xA0_0"), std::string::npos);
    EXPECT_EQ(digits, "\xB2\xB3\xB9"
                      "0123456789");
}

TEST(WindowsRectangles, IntersectWithoutOverflow)
{
    const RECT whole = {INT_MIN, INT_MIN, INT_MAX, INT_MAX};
    const RECT cases[][3] = {{{0, 0, 10, 10}, {5, -5, 20, 7}, {5, 0, 10, 7}},
                             {{0, 0, 10, 10}, {10, 0, 20, 10}, {}},
                             {{0, 0, 10, 10}, {2, 5, 8, 5}, {}},
                             {{8, 8, 2, 2}, whole, {}},
                             {whole, {INT_MIN, 0, INT_MAX, 1}, {INT_MIN, 0, INT_MAX, 1}}};
    for (const auto& [first, second, expected] : cases) {
        RECT target = first;
        EXPECT_EQ(IntersectRect(&target, &target, &second), expected.bottom != 0 ? TRUE : FALSE);
        EXPECT_EQ(std::memcmp(&target, &expected, sizeof target), 0) << target.left << ' ' << target.top;
    }
    RECT target = whole;
    EXPECT_EQ(IntersectRect(&target, nullptr, &whole), FALSE);
    EXPECT_EQ(SetRect(nullptr, 1, 2, 3, 4), FALSE);
    EXPECT_EQ(SetRect(&target, 1, 2, 3, 4), TRUE);
    EXPECT_EQ(target.bottom, 4);
}

} // namespace
