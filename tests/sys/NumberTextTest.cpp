// Numbers as text and back: the same in every locale, bounded by the buffer, exact at the edges.
#include "sys/krnos.h"

#include <cfloat>
#include <climits>
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>

#include <gtest/gtest.h>

namespace {

constexpr float Infinity = std::numeric_limits<float>::infinity();
constexpr float NotANumber = std::numeric_limits<float>::quiet_NaN();

// Each test runs in the "C" locale and in one with a decimal comma.
class NumberText : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override
    {
#if defined(SURFACE_TEST_LOCALES)
        setenv("LOCPATH", SURFACE_TEST_LOCALES, 1);
#endif
        ASSERT_NE(std::setlocale(LC_ALL, GetParam()), nullptr);
        ASSERT_STREQ(std::localeconv()->decimal_point, GetParam() == std::string("C") ? "." : ",");
    }
    void TearDown() override
    {
        std::setlocale(LC_ALL, "C");
    }
};

INSTANTIATE_TEST_SUITE_P(Locales, NumberText, testing::Values("C", SURFACE_TEST_LOCALE),
                         [](const auto& locale) { return locale.index == 0 ? "Neutral" : "German"; });

TEST_P(NumberText, FloatsAreFixedAndFitTheirBuffer)
{
    struct Case {
        float value;
        int size, decimals;
        const char* expected;
    };
    const Case cases[] = {// Ties and signs, as printf gives them.
                          {0.125F, 12, 2, "0.12"},
                          {0.375F, 12, 2, "0.38"},
                          {128 / 255.0F, 12, 3, "0.502"},
                          {-0.001F, 12, 2, "-0.00"},
                          {-7.0F, 12, -1, "-7"},
                          {-NotANumber, 12, 2, "0.00"},
                          // The last that fits, the first that does not.
                          {99999992.0F, 12, 2, "99999992.00"},
                          {1e8F, 12, 2, "99999999.99"},
                          {-1e7F, 12, 2, "-9999999.99"},
                          {FLT_MAX, 49, 2, "340282346638528859811704183484516925440.00"},
                          {Infinity, 6, 2, "99.99"},
                          {9.996F, 5, 2, "9.99"},
                          {-5.0F, 5, 2, "0.00"},
                          {-0.0F, 5, 2, "0.00"},
                          {-5.0F, 2, 0, "0"},
                          // Room for no number at all.
                          {5.0F, 4, 2, ""},
                          {5.0F, 1, 0, ""},
                          {1.0F, 12, INT_MAX, ""}};
    for (const Case& c : cases) {
        std::string buffer(60, '#');
        EXPECT_STREQ(intlFloatToStringFixed(buffer.data(), c.size, c.value, c.decimals), c.expected);
        EXPECT_EQ(buffer.find_first_not_of('#', static_cast<std::size_t>(c.size)), std::string::npos)
            << c.value;
    }
    EXPECT_STREQ(intlFloatToStringFixed(nullptr, 12, 1, 2), "");
    char untouched = '#';
    EXPECT_STREQ(intlFloatToStringFixed(&untouched, 0, 1, 2), "");
    EXPECT_EQ(untouched, '#');
}

TEST_P(NumberText, FormatsAsInTheNeutralLocale)
{
    char buffer[80];
    EXPECT_EQ(intlSprintf(buffer, "%d %ld|%s|%x|%.2f|%.2x", -1, 1234567L, "t", 255U, 1234.5, 10U), 26);
    EXPECT_STREQ(buffer, "-1 1234567|t|ff|1234.50|0a");
    testing::internal::CaptureStderr();
    KrnLog("surface", nullptr, true, true).log("%.2f", 1234.5);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "surface: 1234.50\n");
}

TEST_P(NumberText, DoublesAreReadWithAPoint)
{
    const std::pair<std::string, double> cases[] = {{"12.50)", 12.5},
                                                    {" \t\n+.5e1x", 5},
                                                    {"1,5", 1},
                                                    {"1e", 1},
                                                    {"2E-2", 0.02},
                                                    {"4.9e-324", 4.9e-324},
                                                    {"-1e99999999999999999999", -DBL_MAX},
                                                    {"1.7976931348623157e308", DBL_MAX},
                                                    {std::string(400, '9') + "e-399", 10},
                                                    {"0." + std::string(400, '0') + "1e401", 1},
                                                    {std::string(400, '1') + "e-50", DBL_MAX}};
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(intlStringToDoubleFixed(text.c_str()), expected) << text;
    }
    for (const char* none :
         {"", "inf", "nan", ".", "- 1", "0x10", "0e999", "1e-999", "0.1e-99999999999999999999"}) {
        EXPECT_EQ(intlStringToDoubleFixed(none), 0) << none;
    }
    EXPECT_EQ(intlStringToDoubleFixed(nullptr), 0);
    EXPECT_TRUE(std::signbit(intlStringToDoubleFixed("-0.00")));
}

TEST_P(NumberText, WholeNumbersAreReadByFormat)
{
    struct Case {
        const char *text, *format;
        int count, first, second;
    };
    const Case cases[] = {{"10,20", "%d,%d", 2, 10, 20},
                          {" \t-3 \n +4", "%d%d", 2, -3, 4},
                          {"12mm", "%d,%d", 1, 12, -9},

                          {"1   ,2", "%d ,%d", 2, 1, 2},

                          {"99999999999999999999 -99999999999999999999", "%d%d", 2, INT_MAX, INT_MIN},

                          {"+ 1", "%d%d", 0, -9, -9},
                          {"", "%d%d", 0, -9, -9},

                          {"0x1F", "%dx%d", 2, 0, 1}};
    for (const Case& c : cases) {
        int first = -9, second = -9;
        EXPECT_EQ(intlSscanNumeric(c.text, c.format, &first, &second), c.count) << c.text;
        EXPECT_TRUE(first == c.first && second == c.second) << c.text << first << ' ' << second;
    }
}

} // namespace
