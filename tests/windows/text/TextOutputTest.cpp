// What reaches a device: the lines of DrawTextA and the runs of ExtTextOut, read from the records of a metafile.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "support/MetafileRecords.h"
#include "windows/text/SelectedFont.h"

namespace {

// A text as "x,y [left top right bottom] characters", a filled strip as "x,y width x height".
std::string outputOf(const MetafileRecord& record)
{
    const auto number = [&](std::size_t field) {
        return std::to_string(record.fields.at(field));
    };
    if (record.type == 76) {
        return number(4) + "," + number(5) + " " + number(6) + "x" + number(7);
    }
    std::string text = number(7) + "," + number(8) + " [" + number(0) + " " + number(1) + " " + number(2) +
                       " " + number(3) + "] ";
    for (int index = 0; index < record.fields.at(9); ++index) {
        const auto words =
            static_cast<std::uint32_t>(record.fields.at(17 + static_cast<std::size_t>(index) / 2));
        text.push_back(static_cast<char>(index % 2 == 0 ? words : words >> 16));
    }
    return text;
}

// What a drawing leaves in Arial of 13 pixels: most letters 7, f r t and blanks 4, i and l 3, w and & 9.
std::vector<std::string> outputs(const FontForm& form, const std::function<void(HDC)>& draw)
{
    const HDC context = CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr);
    {
        const SelectedFont font(context, form);
        draw(context);
    }
    const HENHMETAFILE metafile = CloseEnhMetaFile(context);
    std::vector<unsigned char> bytes(GetEnhMetaFileBits(metafile, 0, nullptr));
    GetEnhMetaFileBits(metafile, static_cast<UINT>(bytes.size()), bytes.data());
    DeleteEnhMetaFile(metafile);
    std::vector<std::string> lines;
    for (const MetafileRecord& record : metafileRecords(bytes)) {
        if (record.type == 76 || record.type == 84) {
            lines.push_back(outputOf(record));
        }
    }
    return lines;
}

const FontForm arial{"Arial", -13};

struct DrawTextCase {
    const char* text;
    UINT flags;
    RECT rect;
    int result;
    std::vector<std::string> outputs; // empty with DT_CALCRECT
    RECT after;                       // likewise the only one with it
};

const DrawTextCase drawTextCases[] = {
    {"one\ntwo \r\n\nend\n",
     0,
     {10, 20, 90, 80},
     60,
     {"10,20 [10 20 30 34] one", "10,35 [10 35 33 49] two ", "10,65 [10 65 30 79] end"},
     {}},
    {"one\ntwo", DT_SINGLELINE | DT_NOCLIP, {10, 20, 90, 80}, 15, {"10,20 [10 20 55 34] one\ntwo"}, {}},
    {"one two  three",
     DT_WORDBREAK,
     {0, 0, 46, 9},
     30,
     {"0,0 [0 0 52 14] one two  ", "0,15 [0 15 28 29] three"},
     {}},
    {"unbreakable it is",
     DT_WORDBREAK,
     {0, 0, 20, 9},
     45,
     {"0,0 [0 0 73 14] unbreakable ", "0,15 [0 15 10 29] it ", "0,30 [0 30 9 44] is"},
     {}},
    {"end", DT_RIGHT, {0, 0, 100, 50}, 15, {"79,0 [79 0 99 14] end"}, {}},
    {"end\nit", DT_CENTER, {0, 0, 100, 50}, 30, {"39,0 [39 0 59 14] end", "46,15 [46 15 52 29] it"}, {}},
    {"end", DT_SINGLELINE | DT_VCENTER, {0, 0, 100, 50}, 32, {"0,17 [0 17 20 31] end"}, {}},
    {"end", DT_SINGLELINE | DT_BOTTOM, {0, 0, 100, 50}, 50, {"0,35 [0 35 20 49] end"}, {}},
    {"e\tnd\t\tx",
     DT_EXPANDTABS,
     {5, 0, 300, 50},
     15,
     {"5,0 [5 0 11 14] e", "53,0 [53 0 66 14] nd", "149,0 [149 0 155 14] x"},
     {}},
    {"e\tnd",
     DT_EXPANDTABS | DT_TABSTOP | 0x300,
     {5, 0, 300, 50},
     15,
     {"5,0 [5 0 11 14] e", "23,0 [23 0 36 14] nd"},
     {}},
    {"e&nd && o&&n&", 0, {0, 0, 100, 50}, 15, {"7,13 7x1", "0,0 [0 0 60 14] end & o&n"}, {}},
    {"e&nd &&", DT_NOPREFIX, {0, 0, 100, 50}, 15, {"0,0 [0 0 51 14] e&nd &&"}, {}},
    {"one\nlonger", DT_CALCRECT, {10, 20, 0, 0}, 30, {}, {10, 20, 45, 50}},
    {"one two  three ", DT_CALCRECT | DT_WORDBREAK, {0, 0, 46, 9}, 30, {}, {0, 0, 45, 30}},
    {"e\tnd", DT_CALCRECT | DT_EXPANDTABS, {5, 0, 0, 0}, 15, {}, {5, 0, 67, 15}},
    {"", DT_CALCRECT, {5, 6, 70, 80}, 0, {}, {5, 6, 5, 6}},
};

TEST(DrawText, LaysLinesOut)
{
    for (const DrawTextCase& expected : drawTextCases) {
        SCOPED_TRACE(expected.text);
        RECT rect = expected.rect;
        const auto lines = outputs(arial, [&](HDC context) {
            EXPECT_EQ(DrawTextA(context, expected.text, -1, &rect, expected.flags), expected.result);
        });
        EXPECT_EQ(lines, expected.outputs);
        const RECT after = expected.outputs.empty() ? expected.after : expected.rect;
        EXPECT_TRUE(rect.left == after.left && rect.top == after.top && rect.right == after.right &&
                    rect.bottom == after.bottom)
            << rect.right << " " << rect.bottom;
    }
}

TEST(DrawText, TakesHostileTextInOneGo)
{
    const HDC screen = GetDC(nullptr);
    const std::string words =
        std::string(500000, 'w') + std::string(500000, '\t') + std::string(500000, '\n');
    RECT rect{2147483647, 2147483647, -2147483647, 5};
    EXPECT_EQ(DrawTextA(screen, words.c_str(), -1, &rect, DT_WORDBREAK | DT_EXPANDTABS | DT_CENTER),
              500000 * 16);
    EXPECT_EQ(DrawTextA(screen, words.c_str(), -2, &rect, 0), 0);
    EXPECT_EQ(DrawTextA(screen, nullptr, 3, &rect, 0), 0);
    EXPECT_EQ(DrawTextA(nullptr, "x", 1, &rect, 0), 0);
    SetMapMode(screen, MM_ANISOTROPIC);
    SetWindowExtEx(screen, 2147483647, -2147483647, nullptr);
    EXPECT_GT(DrawTextA(screen, "The &least\tscale", -1, &rect, DT_WORDBREAK | DT_RIGHT), 0);
    ReleaseDC(nullptr, screen);
}

struct RunCase {
    UINT alignment;
    LONG escapement;
    XFORM world;
    std::string output;
};

const XFORM identity{1, 0, 0, 1, 0, 0};

// "end" is 21 wide, 12 above the base line and 3 below it.
const RunCase runCases[] = {
    {TA_RIGHT | TA_BOTTOM, 0, identity, "100,50 [79 35 99 49] end"},
    {TA_CENTER | TA_BASELINE, 0, identity, "100,50 [90 38 110 52] end"},
    {TA_LEFT, 900, identity, "100,50 [100 29 114 49] end"},
    {TA_LEFT, 1800, identity, "100,50 [79 35 99 49] end"},
    {TA_LEFT, 0, {0, 1, -1, 0, 7, 0}, "100,50 [-58 100 -44 120] end"},
    {TA_LEFT, 900, {0, 1, -1, 0, 7, 0}, "100,50 [-43 100 -23 114] end"},
    {TA_LEFT, 0, {1, 0, 0, -1, 0, 0}, "100,50 [100 -65 120 -51] end"},
    {TA_LEFT, 0, {2, 0, 0, 2, 0, 0}, "100,50 [200 100 241 129] end"},
    {TA_LEFT,
     0,
     {0, 0, 0, 0, 0, 0},
     "100,50 [0 0 1 1] end"}, // a transform that leaves nothing: the least there is
};

TEST(ExtTextOut, CellFollowsAlignmentAndDirection)
{
    for (const RunCase& expected : runCases) {
        const FontForm form{"Arial", -13, FW_NORMAL, 0, 0, expected.escapement};
        const auto lines = outputs(form, [&](HDC context) {
            SetTextAlign(context, expected.alignment);
            SetGraphicsMode(context, GM_ADVANCED);
            SetWorldTransform(context, &expected.world);
            EXPECT_TRUE(ExtTextOutA(context, 100, 50, 0, nullptr, "end", 3, nullptr));
        });
        EXPECT_EQ(lines, std::vector<std::string>{expected.output});
    }
}

TEST(ExtTextOut, AdvancesPositionsAndRefusals)
{
    const auto lines = outputs(arial, [](HDC context) {
        const INT pairs[] = {10, 1, 20, 2, 30, 3};
        const RECT rect{1, 2, 30, 40};
        ExtTextOutA(context, 5, 6, ETO_PDY, nullptr, "end", 3, pairs);
        ExtTextOutW(context, 5, 6, ETO_OPAQUE, &rect, nullptr, 0, nullptr);
        EXPECT_TRUE(ExtTextOutW(context, 5, 6, 0, nullptr, nullptr, 0, nullptr));
        EXPECT_FALSE(ExtTextOutA(context, 5, 6, 0, nullptr, nullptr, 1, nullptr));
        EXPECT_FALSE(ExtTextOutA(context, 5, 6, 0, nullptr, "x", 65536, nullptr));
        SetTextCharacterExtra(context, -2);
        ExtTextOutA(context, 5, 6, 0, nullptr, "end", 3, nullptr);
        SetTextCharacterExtra(context, 0);
        SetTextAlign(context, TA_UPDATECP);
        MoveToEx(context, 40, 41, nullptr);
        ExtTextOutA(context, 5, 6, 0, nullptr, "end", 3, nullptr);
        ExtTextOutA(context, 5, 6, 0, nullptr, "it", 2, nullptr);
    });
    EXPECT_EQ(lines,
              (std::vector<std::string>{"5,6 [5 6 64 20] end", "5,6 [1 2 29 39] ", "5,6 [5 6 19 20] end",
                                        "40,41 [40 41 60 55] end", "61,41 [61 41 67 55] it"}));
}

} // namespace
