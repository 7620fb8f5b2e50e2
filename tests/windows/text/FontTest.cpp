// Measures of fonts. The numbers are those of the tables of the Liberation fonts, scaled and rounded.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <thread>
#include <vector>

#include "windows/text/SelectedFont.h"

namespace {

constexpr char hello[] = "Hello, World";

struct MeasureCase {
    FontForm font;
    LONG height, ascent, leading, average;
    int pitchAndFamily;
    LONG width; // of "Hello, World"
};

constexpr MeasureCase measureCases[] = {
    {{"Arial", -13}, 15, 12, 0, 6, 0x27, 70},
    {{"arial", -96}, 107, 87, 3, 42, 0x27, 521},
    {{"System", 0}, 16, 13, 0, 6, 0x27, 77},
    {{"", 16}, 16, 13, 0, 6, 0x27, 77},
    {{"No Such Face", 16}, 16, 13, 0, 6, 0x27, 77},
    {{"Times New Roman", -16}, 17, 14, 1, 6, 0x17, 83},
    {{"Times New Roman", -96, FW_BOLD}, 107, 86, 4, 41, 0x17, 535},
    {{"Courier New", -16, FW_NORMAL, 1}, 18, 13, 0, 10, 0x36, 120},
    {{"Arial", -96, FW_NORMAL, 0, 84}, 107, 87, 3, 84, 0x27, 1036},
    {{"Arial", -2147483647 - 1}, 11172, 9053, 327, 4414, 0x27, 54460}, // at the limit of sizes
};

TEXTMETRICA metricsOf(HDC context)
{
    TEXTMETRICA metrics{};
    EXPECT_TRUE(GetTextMetricsA(context, &metrics));
    return metrics;
}

SIZE extentOf(HDC context, const char* text)
{
    SIZE size{};
    EXPECT_TRUE(GetTextExtentPoint32A(context, text, lstrlenA(text), &size));
    return size;
}

TEST(Font, MeasuresAreThoseOfTheFaceInWholePixels)
{
    const HDC screen = GetDC(nullptr);
    for (const MeasureCase& expected : measureCases) {
        SCOPED_TRACE(std::string(expected.font.face) + " " + std::to_string(expected.font.height));
        const SelectedFont font(screen, expected.font);
        const TEXTMETRICA metrics = metricsOf(screen);
        EXPECT_EQ(metrics.tmHeight, expected.height);
        EXPECT_EQ(metrics.tmAscent, expected.ascent);
        EXPECT_EQ(metrics.tmDescent, expected.height - expected.ascent);
        EXPECT_EQ(metrics.tmExternalLeading, expected.leading);
        EXPECT_EQ(metrics.tmAveCharWidth, expected.average);
        EXPECT_EQ(metrics.tmPitchAndFamily, expected.pitchAndFamily);
        EXPECT_EQ(metrics.tmWeight, expected.font.weight);
        EXPECT_EQ(metrics.tmItalic, expected.font.italic);
        EXPECT_EQ(extentOf(screen, hello).cx, expected.width);
        EXPECT_EQ(extentOf(screen, hello).cy, expected.height);
    }
    ReleaseDC(nullptr, screen);
}

TEST(Font, FollowsTheMapping)
{
    const HDC screen = GetDC(nullptr);
    const SelectedFont font(screen, {"Arial", -16});
    SetMapMode(screen, MM_ANISOTROPIC);
    SetWindowExtEx(screen, 100, 100, nullptr);
    SetViewportExtEx(screen, 600, -600, nullptr);
    EXPECT_EQ(extentOf(screen, hello).cx, 87); // 521 pixels of six to a unit
    EXPECT_EQ(metricsOf(screen).tmHeight, 18); // 107 likewise
    SetMapMode(screen, MM_TEXT);
    SetGraphicsMode(screen, GM_ADVANCED);
    const XFORM quarterTurnAndWide{0, 6, -12, 0, 0, 0};
    SetWorldTransform(screen, &quarterTurnAndWide);
    EXPECT_EQ(metricsOf(screen).tmHeight, 18); // 16 times 12 pixels high, half as wide
    EXPECT_EQ(extentOf(screen, hello).cx, 87);
    ReleaseDC(nullptr, screen);
}

TEST(Font, PartialExtentsEndAtTheMaximum)
{
    const HDC screen = GetDC(nullptr);
    const SelectedFont font(screen, {"Arial", -13}); // H 9, e 7, l 3, l 3, o 7
    SetTextCharacterExtra(screen, 1);
    struct {
        int maximum;
        std::vector<INT> extents;
    } const cases[] = {{400, {10, 18, 22, 26, 34}}, {26, {10, 18, 22, 26}}, {25, {10, 18, 22}}, {9, {}}};
    for (const auto& expected : cases) {
        std::vector<INT> extents(5, -1);
        INT fit = -1;
        SIZE size{};
        ASSERT_TRUE(GetTextExtentExPointA(screen, "Hello", 5, expected.maximum, &fit, extents.data(), &size));
        ASSERT_EQ(static_cast<std::size_t>(fit), expected.extents.size());
        EXPECT_TRUE(std::equal(expected.extents.begin(), expected.extents.end(), extents.begin()));
        EXPECT_TRUE(std::all_of(extents.begin() + fit, extents.end(), [](INT value) { return value == -1; }));
        EXPECT_EQ(size.cx, 34);
    }
    INT all[5] = {};
    SIZE size{};
    EXPECT_TRUE(GetTextExtentExPointA(screen, "Hello", 5, 1, nullptr, all, &size));
    EXPECT_EQ(all[4], 34);
    EXPECT_FALSE(GetTextExtentExPointA(screen, "Hello", -1, 1, nullptr, all, &size));
    EXPECT_FALSE(GetTextExtentExPointA(screen, nullptr, 5, 1, nullptr, all, &size));
    ReleaseDC(nullptr, screen);
}

struct Enumeration {
    std::vector<std::string> names;
    std::size_t most;
};

int CALLBACK noteFont(const LOGFONTA* font, const TEXTMETRICA* metrics, DWORD type, LPARAM data)
{
    auto& enumeration = *reinterpret_cast<Enumeration*>(data);
    const auto* const names = reinterpret_cast<const ENUMLOGFONTEXA*>(font);
    EXPECT_EQ(type, TRUETYPE_FONTTYPE);
    EXPECT_EQ(font->lfHeight, metrics->tmHeight);
    enumeration.names.push_back(std::string(font->lfFaceName) + "\t" +
                                reinterpret_cast<const char*>(names->elfStyle) + "\t" +
                                reinterpret_cast<const char*>(names->elfScript));
    return enumeration.names.size() < enumeration.most ? 1 : 0;
}

TEST(Font, EnumerationIsSortedFilteredAndStoppable)
{
    const HDC screen = GetDC(nullptr);
    Enumeration all{{}, 100000};
    EXPECT_EQ(EnumFontFamiliesExA(screen, nullptr, noteFont, reinterpret_cast<LPARAM>(&all), 0), 1);
    EXPECT_TRUE(std::is_sorted(all.names.begin(), all.names.end()));
    Enumeration family{{}, 100000};
    LOGFONTA wanted{};
    wanted.lfCharSet = DEFAULT_CHARSET;
    lstrcpyA(wanted.lfFaceName, "liberation mono");
    EnumFontFamiliesExA(screen, &wanted, noteFont, reinterpret_cast<LPARAM>(&family), 0);
    const std::vector<std::string> styles = {
        "Liberation Mono\tBold\tWestern", "Liberation Mono\tBold Italic\tWestern",
        "Liberation Mono\tItalic\tWestern", "Liberation Mono\tRegular\tWestern"};
    EXPECT_EQ(family.names, styles);
    EXPECT_TRUE(std::includes(all.names.begin(), all.names.end(), styles.begin(), styles.end()));
    Enumeration two{{}, 2};
    EXPECT_EQ(EnumFontFamiliesExA(screen, nullptr, noteFont, reinterpret_cast<LPARAM>(&two), 0), 0);
    EXPECT_EQ(two.names.size(), 2U);
    ReleaseDC(nullptr, screen);
}

// More sizes than the cache of fonts holds, from several threads.
TEST(Font, ThreadsShareFonts)
{
    const auto measure = [](std::vector<LONG>& widths) {
        const HDC screen = GetDC(nullptr);
        for (LONG height = 1; height <= 300; ++height) {
            const SelectedFont font(screen, {"Times New Roman", -height});
            widths.push_back(extentOf(screen, "\200uro \374ber").cx);
        }
        ReleaseDC(nullptr, screen);
    };
    std::vector<LONG> widths[3];
    std::vector<std::thread> threads;
    for (std::vector<LONG>& each : widths) {
        threads.emplace_back(measure, std::ref(each));
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(widths[0], widths[1]);
    EXPECT_EQ(widths[0], widths[2]);
    EXPECT_TRUE(std::is_sorted(widths[0].begin(), widths[0].end()));
}

} // namespace
