// Measures of text, and what of it reaches a device: the lines of DrawTextA and the runs of ExtTextOut, read from the
// records of a metafile.
#include <windows.h>

#include <algorithm>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "support/MetafileRecords.h"

namespace {

LOGFONTA fontOf(const char* face, LONG height, LONG weight = 0, LONG width = 0, LONG angle = 0)
{
    LOGFONTA font{height, width, angle, angle, weight, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, {}};
    lstrcpyA(font.lfFaceName, face);
    return font;
}

const LOGFONTA Arial = fontOf("Arial", -13);

// The font goes when the context does.
void selectFont(HDC context, const LOGFONTA& font)
{
    const HFONT handle = CreateFontIndirectA(&font);
    SelectObject(context, handle);
    DeleteObject(handle);
}

// A text as "x,y [left top right bottom] characters", a filled strip as "x,y width x height".
std::string outputOf(const MetafileRecord& record)
{
    const auto number = [&](std::size_t field) {
        return std::to_string(record.fields.at(field));
    };
    if (record.type == EMR_BITBLT) {
        return number(4) + "," + number(5) + " " + number(6) + "x" + number(7);
    }
    std::string text = number(7) + "," + number(8) + " [" + number(0) + " " + number(1) + " " + number(2) +
                       " " + number(3) + "] ";
    for (std::size_t index = 0; index < static_cast<std::size_t>(record.fields.at(9)); ++index) {
        const auto words = static_cast<std::uint32_t>(record.fields.at(17 + index / 2));
        text.push_back(static_cast<char>(index % 2 == 0 ? words : words >> 16));
    }
    return text;
}

// The outputs of a drawing in Arial of 13 pixels: most letters 7, f r t and blanks 4, i and l 3, w and & 9.
std::string outputs(const LOGFONTA& font, const std::function<void(HDC)>& draw)
{
    const HDC context = CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr);
    selectFont(context, font);
    draw(context);
    const HENHMETAFILE metafile = CloseEnhMetaFile(context);
    std::vector<unsigned char> bytes(GetEnhMetaFileBits(metafile, 0, nullptr));
    GetEnhMetaFileBits(metafile, static_cast<UINT>(bytes.size()), bytes.data());
    DeleteEnhMetaFile(metafile);
    std::string lines;
    for (const MetafileRecord& record : metafileRecords(bytes)) {
        if (record.type == EMR_BITBLT || record.type == EMR_EXTTEXTOUTW) {
            lines += outputOf(record) + "|";
        }
    }
    return lines;
}

class TextTest : public testing::Test {
protected:
    TextTest() : m_screen(GetDC(nullptr)) {}
    ~TextTest() override { ReleaseDC(nullptr, m_screen); }

    // Height, ascent, external leading, average width, weight, pitch and family, the width of a text.
    std::vector<LONG> measures() const
    {
        TEXTMETRICA metrics{};
        SIZE size{};
        EXPECT_TRUE(GetTextMetricsA(m_screen, &metrics));
        EXPECT_TRUE(GetTextExtentPoint32A(m_screen, "Hello, World", 12, &size));
        return {metrics.tmHeight,
                metrics.tmAscent,
                metrics.tmExternalLeading,
                metrics.tmAveCharWidth,
                metrics.tmWeight,
                metrics.tmPitchAndFamily,
                size.cx};
    }

    HDC m_screen;
};

struct MeasureCase {
    LOGFONTA font;
    std::vector<LONG> measures;
};

// The numbers of the tables of the Liberation fonts, scaled and rounded. The last is at the limit of sizes.
const MeasureCase MeasureCases[] = {
    {Arial, {15, 12, 0, 6, 400, 0x27, 70}},
    {fontOf("System", 0), {16, 13, 0, 6, 400, 0x27, 77}},
    {fontOf("No Such Face", 16), {16, 13, 0, 6, 400, 0x27, 77}},
    {fontOf("Times New Roman", -96, 700), {107, 86, 4, 41, 700, 0x17, 535}},
    {fontOf("Courier New", -16), {18, 13, 0, 10, 400, 0x36, 120}},
    {fontOf("arial", -96, 0, 84), {107, 87, 3, 84, 400, 0x27, 1036}},
    {fontOf("Arial", -2147483647 - 1), {11172, 9053, 327, 4414, 400, 0x27, 54460}},
};

TEST_F(TextTest, MeasuresAreThoseOfTheFaceInWholePixels)
{
    for (const MeasureCase& expected : MeasureCases) {
        selectFont(m_screen, expected.font);
        EXPECT_EQ(measures(), expected.measures) << expected.font.lfFaceName;
    }
}

// 107 and 521 pixels, of which six make a unit; then the same again turned, and twice as high.
TEST_F(TextTest, MeasuresFollowTheMapping)
{
    selectFont(m_screen, fontOf("Arial", -16));
    SetMapMode(m_screen, MM_ANISOTROPIC);
    SetWindowExtEx(m_screen, 100, 100, nullptr);
    SetViewportExtEx(m_screen, 600, -600, nullptr);
    EXPECT_EQ(measures(), (std::vector<LONG>{18, 15, 1, 7, 400, 0x27, 87}));
    SetMapMode(m_screen, MM_TEXT);
    SetGraphicsMode(m_screen, GM_ADVANCED);
    const XFORM turned{0, 6, -12, 0, 0, 0};
    SetWorldTransform(m_screen, &turned);
    EXPECT_EQ(measures(), (std::vector<LONG>{18, 15, 1, 7, 400, 0x27, 87}));
}

TEST_F(TextTest, PartialExtentsEndAtTheMaximum)
{
    selectFont(m_screen, Arial);
    SetTextCharacterExtra(m_screen, 1);
    INT extents[5] = {};
    INT fit = -1;
    SIZE size{};
    ASSERT_TRUE(GetTextExtentExPointA(m_screen, "Hello", 5, 26, &fit, extents, &size));
    EXPECT_EQ(fit, 4);
    EXPECT_EQ(std::vector<INT>(extents, extents + 5), (std::vector<INT>{10, 18, 22, 26, 0}));
    EXPECT_EQ(size.cx, 34); // H 9, e 7, l 3, l 3, o 7, and the extra
}

// Notes as many as the vector has room for.
int CALLBACK noteFont(const LOGFONTA* font, const TEXTMETRICA* /*metrics*/, DWORD /*type*/, LPARAM data)
{
    // The interface hands pointers through numbers. NOLINTNEXTLINE(performance-no-int-to-ptr)
    auto& names = *reinterpret_cast<std::vector<std::string>*>(data);
    const BYTE* const style = reinterpret_cast<const ENUMLOGFONTEXA*>(font)->elfStyle;
    names.push_back(std::string(font->lfFaceName) + "\t" + reinterpret_cast<const char*>(style));
    return names.size() < names.capacity() ? 1 : 0;
}

TEST_F(TextTest, FontsAreEnumeratedInOrder)
{
    const auto enumerate = [&](LOGFONTA* wanted, std::size_t most) {
        std::vector<std::string> names;
        names.reserve(most);
        EnumFontFamiliesExA(m_screen, wanted, noteFont, reinterpret_cast<LPARAM>(&names), 0);
        return names;
    };
    const std::vector<std::string> all = enumerate(nullptr, 100000);
    LOGFONTA mono = fontOf("liberation mono", 0);
    const std::vector<std::string> styles = enumerate(&mono, 100);
    EXPECT_EQ(styles.at(3), "Liberation Mono\tRegular");
    EXPECT_TRUE(std::is_sorted(all.begin(), all.end()));
    EXPECT_TRUE(std::includes(all.begin(), all.end(), styles.begin(), styles.end()));
    EXPECT_EQ(enumerate(nullptr, 2).size(), 2U);
}

// More sizes than the cache of fonts holds.
TEST_F(TextTest, ThreadsShareFonts)
{
    const auto drawInAllSizes = [] {
        for (LONG height = 1; height <= 300; ++height) {
            RECT rect{};
            outputs(fontOf("Times New Roman", height), [&](HDC context) {
                EXPECT_EQ(DrawTextA(context, "\200uro", -1, &rect, DT_CALCRECT), height);
            });
        }
    };
    std::thread other(drawInAllSizes);
    drawInAllSizes();
    other.join();
}

struct DrawTextCase {
    const char* text;
    UINT flags;
    RECT rect;
    int result;
    std::string outputs; // with DT_CALCRECT right and bottom afterwards
};

const DrawTextCase DrawTextCases[] = {
    {"o\nw \r\n\nn\n", 0, {9, 5, 90, 80}, 60, "9,5 [9 5 15 19] o|9,20 [9 20 21 34] w |9,50 [9 50 15 64] n|"},
    {"on\ntw", DT_SINGLELINE | DT_NOCLIP, {9, 5, 90, 80}, 15, "9,5 [9 5 40 19] on\ntw|"},
    {"on tw  thr", DT_WORDBREAK, {0, 0, 31, 9}, 30, "0,0 [0 0 38 14] on tw  |0,15 [0 15 14 29] thr|"},
    {"whole it", DT_WORDBREAK, {0, 0, 9, 9}, 30, "0,0 [0 0 36 14] whole |0,15 [0 15 6 29] it|"},
    {"end", DT_RIGHT, {0, 0, 100, 50}, 15, "79,0 [79 0 99 14] end|"},
    {"end\nit", DT_CENTER, {0, 0, 99, 50}, 30, "39,0 [39 0 59 14] end|46,15 [46 15 52 29] it|"},
    {"end", DT_SINGLELINE | DT_VCENTER, {0, 0, 100, 50}, 32, "0,17 [0 17 20 31] end|"},
    {"end", DT_SINGLELINE | DT_BOTTOM, {0, 0, 100, 50}, 50, "0,35 [0 35 20 49] end|"},
    {"e\tnd\t\t", DT_EXPANDTABS, {5, 0, 300, 50}, 15, "5,0 [5 0 11 14] e|53,0 [53 0 66 14] nd|"},
    {"e\tn", DT_EXPANDTABS | DT_TABSTOP | 0x300, {5, 0, 99, 9}, 15, "5,0 [5 0 11 14] e|23,0 [23 0 29 14] n|"},
    {"e&nd && o&&n&", 0, {0, 0, 100, 50}, 15, "7,13 7x1|0,0 [0 0 60 14] end & o&n|"},
    {"e&nd &&", DT_NOPREFIX, {0, 0, 100, 50}, 15, "0,0 [0 0 51 14] e&nd &&|"},
    {"one\nlonger", DT_CALCRECT, {10, 20, 0, 0}, 30, "45 50"},
    {"one two  three ", DT_CALCRECT | DT_WORDBREAK, {0, 0, 46, 9}, 30, "45 30"},
    {"e\tnd", DT_CALCRECT | DT_EXPANDTABS, {5, 0, 0, 0}, 15, "67 15"},
    {"", DT_CALCRECT, {5, 6, 70, 80}, 0, "5 6"},
    // A dot is 4 wide, as is a backslash. Literals can't be written into.
    {"longer end",
     DT_END_ELLIPSIS | DT_SINGLELINE | DT_MODIFYSTRING,
     {0, 0, 50, 20},
     15,
     "0,0 [0 0 46 14] longer...|"},
    {"longer end", DT_END_ELLIPSIS | DT_CALCRECT, {5, 0, 55, 0}, 15, "52 15"},
    {"longer\nend", DT_END_ELLIPSIS, {0, 0, 20, 40}, 30, "0,0 [0 0 34 14] longer|0,15 [0 15 18 29] e...|"},
    {"one\ntwo\nend", DT_END_ELLIPSIS, {0, 0, 99, 30}, 30, "0,0 [0 0 20 14] one|0,15 [0 15 31 29] two...|"},
    {"one\ntwo\n",
     DT_END_ELLIPSIS | DT_NOCLIP,
     {0, 0, 9, 9},
     30,
     "0,0 [0 0 20 14] one|0,15 [0 15 11 29] ...|"},
    {"one two three four",
     DT_WORDBREAK | DT_END_ELLIPSIS,
     {0, 0, 46, 25},
     30,
     "0,0 [0 0 48 14] one two |0,15 [0 15 44 29] three ...|"},
    {"unbroken it",
     DT_WORDBREAK | DT_WORD_ELLIPSIS,
     {0, 0, 40, 9},
     30,
     "0,0 [0 0 36 14] unbr...|0,15 [0 15 6 29] it|"},
    {"C:\\docs\\file", DT_PATH_ELLIPSIS, {0, 0, 60, 20}, 15, "0,0 [0 0 56 14] C:\\d...\\file|"},
    {"C:\\docs\\lengthy", DT_PATH_ELLIPSIS, {0, 0, 40, 20}, 15, "0,0 [0 0 39 14] ...\\leng|"},
    {"longer name", DT_PATH_ELLIPSIS | DT_RIGHT, {0, 0, 55, 20}, 15, "1,0 [1 0 54 14] long...me|"},
    {"e&nd lon&ger", DT_END_ELLIPSIS, {0, 0, 34, 20}, 15, "7,13 7x1|0,0 [0 0 32 14] end...|"},
    {"e&nd && o&n", DT_HIDEPREFIX, {0, 0, 100, 50}, 15, "0,0 [0 0 51 14] end & on|"},
    {"e&nd && o", DT_PREFIXONLY, {0, 0, 100, 50}, 15, "7,13 7x1|"},
};

TEST_F(TextTest, LinesOfDrawText)
{
    for (const DrawTextCase& expected : DrawTextCases) {
        SCOPED_TRACE(expected.text);
        RECT rect = expected.rect;
        std::string lines = outputs(Arial, [&](HDC context) {
            EXPECT_EQ(DrawTextA(context, expected.text, -1, &rect, expected.flags), expected.result);
        });
        if (expected.flags & DT_CALCRECT) {
            lines += std::to_string(rect.right) + " " + std::to_string(rect.bottom);
        }
        EXPECT_EQ(lines, expected.outputs);
    }
}

TEST_F(TextTest, HostileTextIsTakenInOneGo)
{
    const std::string text = std::string(500000, 'w') + std::string(500000, '\t') + std::string(500000, '\n');
    RECT rect{2147483647, 2147483647, -2147483647, 5};
    EXPECT_EQ(DrawTextA(m_screen, text.c_str(), -1, &rect, DT_WORDBREAK | DT_EXPANDTABS), 500000 * 16);
    const UINT ellipses = DT_END_ELLIPSIS | DT_WORD_ELLIPSIS | DT_PATH_ELLIPSIS;
    EXPECT_EQ(DrawTextA(m_screen, text.c_str(), -1, &rect, ellipses | DT_NOCLIP), 500000 * 16);
    EXPECT_EQ(DrawTextA(m_screen, text.c_str(), -1, &rect, ellipses), 16);
    SetMapMode(m_screen, MM_ANISOTROPIC);
    SetWindowExtEx(m_screen, 2147483647, -2147483647, nullptr);
    EXPECT_GT(DrawTextA(m_screen, "The &least\tscale", -1, &rect, DT_WORDBREAK | DT_EXPANDTABS | ellipses),
              0);
}

struct RunCase {
    UINT alignment;
    LONG escapement;
    XFORM world;
    std::string outputs;
};

// "end" is 21 wide, 12 above the base line and 3 below it.
const RunCase RunCases[] = {
    {TA_RIGHT | TA_BOTTOM, 0, {1, 0, 0, 1, 0, 0}, "100,50 [79 35 99 49] end|"},
    {TA_CENTER | TA_BASELINE, 0, {1, 0, 0, 1, 0, 0}, "100,50 [90 38 110 52] end|"},
    {TA_LEFT, 900, {1, 0, 0, 1, 0, 0}, "100,50 [100 29 114 49] end|"},
    {TA_LEFT, 0, {0, 1, -1, 0, 7, 0}, "100,50 [-58 100 -44 120] end|"},
    {TA_LEFT, 900, {0, 1, -1, 0, 7, 0}, "100,50 [-43 100 -23 114] end|"},
    {TA_LEFT, 0, {1, 0, 0, -1, 0, 0}, "100,50 [100 -65 120 -51] end|"},
    {TA_LEFT, 0, {2, 0, 0, 2, 0, 0}, "100,50 [200 100 241 129] end|"},
};

TEST_F(TextTest, CellFollowsAlignmentAndDirection)
{
    for (const RunCase& expected : RunCases) {
        const auto draw = [&](HDC context) {
            SetTextAlign(context, expected.alignment);
            SetGraphicsMode(context, GM_ADVANCED);
            SetWorldTransform(context, &expected.world);
            EXPECT_TRUE(ExtTextOutA(context, 100, 50, 0, nullptr, "end", 3, nullptr));
        };
        EXPECT_EQ(outputs(fontOf("Arial", -13, 0, 0, expected.escapement), draw), expected.outputs);
    }
}

TEST_F(TextTest, RunsOfExtTextOut)
{
    const auto draw = [](HDC context) {
        const INT pairs[] = {10, 1, 20, 2, 30, 3};
        const RECT rect{1, 2, 30, 40};
        ExtTextOutA(context, 5, 6, ETO_PDY, nullptr, "end", 3, pairs);
        ExtTextOutW(context, 5, 6, ETO_OPAQUE, &rect, nullptr, 0, nullptr);
        EXPECT_FALSE(ExtTextOutA(context, 5, 6, 0, nullptr, "x", 65536, nullptr));
        SetTextCharacterExtra(context, -2);
        SetTextAlign(context, TA_UPDATECP);
        MoveToEx(context, 40, 41, nullptr);
        ExtTextOutA(context, 5, 6, 0, nullptr, "end", 3, nullptr);
        ExtTextOutA(context, 5, 6, 0, nullptr, "it", 2, nullptr);
    };
    EXPECT_EQ(outputs(Arial, draw), "5,6 [5 6 64 20] end|5,6 [1 2 29 39] |40,41 [40 41 54 55] end|"
                                    "55,41 [55 41 57 55] it|");
}

} // namespace
