// Base64 in both directions, on texts that were not written by anyone who means well too.
#include "sys/krnutil.h"

#include <string>

#include <gtest/gtest.h>

namespace {

std::string encoded(std::string bytes)
{
    char* text = nullptr;
    int length = 0;
    EXPECT_EQ(base64Encode(reinterpret_cast<unsigned char*>(bytes.data()),
                           static_cast<unsigned int>(bytes.size()), text, length, false),
              0);
    std::string result(text, static_cast<std::size_t>(length));
    EXPECT_EQ(text[length], '\0');
    base64Free(text);
    return result;
}

struct Decoded {
    std::string bytes;
    bool wellFormed;
    bool operator==(const Decoded&) const = default;
};

Decoded decoded(std::string text)
{
    unsigned char* data = nullptr;
    int size = -1;
    const int result = base64Decode(text.data(), data, size);
    EXPECT_EQ(data == nullptr, size == 0);
    Decoded answer{std::string(reinterpret_cast<char*>(data), static_cast<std::size_t>(size)), result == 0};
    base64Free(data);
    return answer;
}

TEST(Base64, WritesAndReadsTheVectorsOfTheStandard)
{
    const char* const vectors[][2] = {{"", ""},
                                      {"f", "Zg=="},
                                      {"fo", "Zm8="},
                                      {"foo", "Zm9v"},
                                      {"foob", "Zm9vYg=="},
                                      {"fooba", "Zm9vYmE="},
                                      {"foobar", "Zm9vYmFy"},
                                      {"\xFB\xFF\xBF", "+/+/"}};
    for (const auto& [bytes, text] : vectors) {
        EXPECT_EQ(encoded(bytes), text);
        EXPECT_EQ(decoded(text), (Decoded{bytes, true}));
    }
    std::string all;
    for (int length = 0; length < 600; ++length) {
        all += static_cast<char>(length * 37 + length / 256);
    }
    EXPECT_EQ(decoded(encoded(all)), (Decoded{all, true}));
}

TEST(Base64, DecodesWhatIsThere)
{
    const std::pair<std::string, Decoded> cases[] = {{"Zm9vYg", {"foob", true}},
                                                     {"Zm9vYmE", {"fooba", true}},
                                                     {" Zm\r\n9v\tYm\v\fFy\n", {"foobar", true}},
                                                     {"Zg==Zm9v", {"f", true}},
                                                     {"Zm9vY", {"foo", false}},
                                                     {"Zm9v'Zm9v", {"foo", false}},
                                                     {"Zm-vZm9v", {"f", false}},
                                                     {"Zm9\xFF", {"fo", false}},
                                                     {"====", {"", true}},
                                                     {"!", {"", false}},
                                                     {" \n ", {"", true}},
                                                     {std::string("Zm9v\0Zm9v", 9), {"foo", true}}};
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(decoded(text), expected) << text;
    }
    unsigned char* data = nullptr;
    int size = -1;
    EXPECT_EQ(base64Decode(nullptr, data, size), 0);
    EXPECT_EQ(size, 0);
}

TEST(Base64, RefusesWhatItCannotSize)
{
    unsigned char byte = 0;
    char* text = &reinterpret_cast<char&>(byte);
    int length = 1;
    EXPECT_NE(base64Encode(&byte, 0xFFFFFFFFU, text, length, false), 0);
    EXPECT_EQ(text, nullptr);
    EXPECT_EQ(length, 0);
    EXPECT_NE(base64Encode(nullptr, 1, text, length, false), 0);
    base64Free(text);
}

} // namespace
