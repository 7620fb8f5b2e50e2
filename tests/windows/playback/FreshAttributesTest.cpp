// A metafile is played with the attributes of a fresh context, whatever a surface has left in its device, and the
// surface finds what it left.
#include <gtest/gtest.h>

#include "MetafilePage.h"
#include "surfaceEMF.h"
#include "surfaceHdc.h"

namespace {

constexpr GdiDeviceOptions Wide{240, 100};
constexpr COLORREF Red = 0xFF;
RECT rightPart{130, 10, 230, 90};

// A rectangle, a line from the first position, a star, a text with a blank; then a saved state and much else is left.
const std::string PlainRecords =
    "43 60 40 100 90; 54 20 90; 84 0 0 0 0 1 0 0 50 10 3 76 0 0 0 -1 -1 0 0x200061 0x62; 37 0x80000004;"
    "3 0 0 0 0 5 5 30 55 30 10 60 30 5 50 60; 39 1 2 0xFF00 4; 37 1; 33; 37 0x80000008; 24 0xFF00; 37 "
    "0x8000000B;";

void leaveAttributes(CSurfaceGDI& surface, HDC device)
{
    char face[] = "Arial";
    surface.setForeColor(Red);
    surface.setBackMode(TRANSPARENT);
    surface.setFont(face, 20, true, false, false, true);
    surface.setPen(0xFF0000, 0, 5);
    surface.setBrush(Red, 4);
    DeleteObject(GetCurrentObject(device, OBJ_BRUSH)); // goes on as long as it is selected
    SetBkColor(device, 0xFFFF);
    SetTextAlign(device, TA_RIGHT | TA_BASELINE);
    SetTextCharacterExtra(device, 5);
    SetTextJustification(device, 9, 1);
    SetPolyFillMode(device, WINDING);
    SetROP2(device, R2_NOTXORPEN);
    SetStretchBltMode(device, COLORONCOLOR);
    SetArcDirection(device, AD_CLOCKWISE);
    SetBrushOrgEx(device, 3, 2, nullptr);
    SetMiterLimit(device, 3, nullptr);
    MoveToEx(device, 110, 7, nullptr);
    SaveDC(device);
}

std::vector<LONG_PTR> stateOf(HDC device)
{
    POINT position{};
    POINT origin{};
    GetCurrentPositionEx(device, &position);
    GetBrushOrgEx(device, &origin);
    const int level = SaveDC(device);
    RestoreDC(device, -1);
    std::vector<LONG_PTR> state{level, position.x, position.y, origin.x, origin.y};
    for (const UINT kind : {OBJ_PEN, OBJ_BRUSH, OBJ_FONT}) {
        state.push_back(reinterpret_cast<LONG_PTR>(GetCurrentObject(device, kind)));
    }
    for (const auto mode : {GetBkMode, GetROP2, GetPolyFillMode, GetStretchBltMode, GetArcDirection,
                            GetTextCharacterExtra, GetMapMode, GetGraphicsMode}) {
        state.push_back(mode(device));
    }
    for (const auto color : {GetTextColor, GetBkColor, GetTextAlign}) {
        state.push_back(color(device));
    }
    return state;
}

struct Drawing {
    bool withSurface; // leaves its attributes, and draws on the right with them
    bool played;
    bool cutShort;
};

void draw(CSurfaceGDI& surface, const Drawing& drawing)
{
    const HDC device = surface.getHDC();
    if (drawing.withSurface) {
        leaveAttributes(surface, device);
    }
    const std::vector<LONG_PTR> before = stateOf(device);
    if (drawing.played) {
        const auto file = HandMadeMetafile(PlainRecords, {}, !drawing.cutShort).bytes();
        EXPECT_EQ(play(device, file, {0, 0, 12, 6}), !drawing.cutShort);
    }
    EXPECT_EQ(stateOf(device), before);
    if (drawing.withSurface) {
        surface.setForeColor(Red);
        surface.drawRectangle(&rightPart);
        ExtTextOutA(device, 220, 60, 0, nullptr, "a b", 3, nullptr);
    }
}

// The page left and right of its middle.
std::pair<std::vector<COLORREF>, std::vector<COLORREF>> halvesOf(const Drawing& drawing, bool recorded)
{
    const PixelPage page(Wide);
    if (recorded) {
        RECT frame{0, 0, 50800, 38100};
        CSurfaceEMF surface(&frame);
        draw(surface, drawing);
        EXPECT_EQ(surface.closeSurface(), 0);
        std::vector<unsigned char> bytes(static_cast<std::size_t>(surface.getDataLength()));
        unsigned int size = static_cast<unsigned int>(bytes.size());
        surface.getData(bytes.data(), size);
        EXPECT_TRUE(play(page.context(), bytes, {0, 0, 1920, 1440}));
    } else {
        CSurfaceHdc surface(page.context());
        draw(surface, drawing);
    }
    std::vector<COLORREF> left;
    std::vector<COLORREF> right;
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x) {
            (x < page.width() / 2 ? left : right).push_back(page.at(x, y));
        }
    }
    return {left, right};
}

TEST(PlayedMetafile, TakesNoAttributesFromTheSurfaceAndLeavesNone)
{
    const DWORD before = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    const auto played = halvesOf({false, true, false}, false).first;
    const auto drawn = halvesOf({true, false, false}, false).second;
    EXPECT_NE(played, drawn);
    for (const bool recorded : {false, true}) {
        for (const bool cutShort : {false, true}) {
            const auto [left, right] = halvesOf({true, true, cutShort}, recorded);
            EXPECT_EQ(left == played, true) << recorded << cutShort;
            EXPECT_EQ(right == drawn, true) << recorded << cutShort;
        }
        EXPECT_EQ(halvesOf({false, true, false}, recorded).first == played, true) << recorded;
    }
    EXPECT_EQ(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS), before);
}

} // namespace
