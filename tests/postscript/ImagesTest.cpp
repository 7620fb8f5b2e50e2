// Images as text: samples, run lengths, transparency, patterns.
#include "PostScriptPage.h"

#include <climits>

#include "sys/krnutil.h"

namespace {

constexpr int Jpeg = 7; // kept without run lengths, whatever the bytes are
constexpr int Png = 8;
constexpr int Tile = 100;

std::string times(int count, const std::string& text)
{
    return count > 0 ? text + times(count - 1, text) : "";
}

const std::string Black(12, '\0');
const std::string Red("\0\0\xFF\0\0\xFF\0\0\xFF\0\0\xFF", 12);
const std::string SeeThrough("\x01\x02\x03\0\x04\x05\x06\x01\x07\x08\x09\x80", 12);

struct ImageCase {
    std::string pixels;
    std::size_t bits, rows;
    int width, height, type;
    std::string data;
};

const ImageCase Images[] = {
    {Black, 24, 2, 2, 2, Png, "f50080"},
    {times(129, "a"), 24, 1, 43, 1, Png, "8161006180"},
    {times(132, "a"), 24, 1, 44, 1, Png, "8161fd6180"},
    {"aaaaaabbbabc", 24, 1, 4, 1, Png, "fb61fe620263626180"},
    {times(64, "ab") + "a", 24, 1, 43, 1, Png, "7f" + times(64, "6162") + "006180"},
    {times(300, "a"), 24, 2, 50, 2, Jpeg, times(2, times(150, "61") + "\n")},
    {SeeThrough, 32, 1, 3, 1, Jpeg, "010181030201060504090807"},
    {SeeThrough, 32, 1, 3, 1, Png, "0b01018103020106050409080780"},
    // Stated sizes that the pixels don't reach; the last one stays within them.
    {Black, 24, 2, 2, INT_MAX, Png, "none"},
    {SeeThrough, 32, 1, 3, 2, Png, "none"},
    {Black, 24, 2, -2, 2, Png, "none"},
    {"abcdefghijkl", 24, 2, 2, 1, Jpeg, "636261666564"},
};

TEST(PostScriptImages, AreWrittenAsSamples)
{
    for (const ImageCase& c : Images) {
        const std::string text = drawnText([&](CSurfacePSPrinter& s) {
            include(s, 0, bitmapOf(c.pixels, c.bits, c.rows), c.width, c.height, c.type);
            s.drawImage(in({0, 0, 1, 1}), 0, 0, 0, 0);
        });
        const std::size_t start = text.find("image\n");
        EXPECT_EQ(c.data, start == std::string::npos
                              ? "none"
                              : text.substr(start + 6, text.rfind("\n>\n") - start - 6));
    }
}

std::string definition(const std::string& id, const std::string& data)
{
    return "<<\n /PaintType 1 /PatternType 1 /TilingType 1 /BBox[0 0 2 2] /XStep 2 /YStep 2 /PaintProc {\n  "
           "pop\n  2 2  scale\n  /DeviceRGB setcolorspace\n  << @d\n   <" +
           data + ">\n  >>image\n }\n>> matrix makepattern /Pattern" + id + " exch def\n";
}

std::string filled(const std::string& id)
{
    return "1 -2 3 -4 @pPattern" + id + " setpattern  rectfill\n";
}

void place(CSurfacePSPrinter& s, unsigned int id, int mode)
{
    s.drawImage(in({10, 20, 110, 70}), id, mode, 5, -6);
}

void fillWith(CSurfacePSPrinter& s, int picture)
{
    CSurfaceBrush brush;
    brush.setPicture(picture);
    s.setBrush(&brush);
    s.setPen(0, 5, 1);
    s.drawRectangle(in({1, 2, 4, 6}));
}

const PsCase Uses[] = {
    {[](auto& s) {
         include(s, 0, bitmapOf(Black, 24, 2), 2, 2);
         include(s, 0, bitmapOf(Red, 24, 2), 2, 2, Tile);
         include(s, 65535, bitmapOf(Black, 24, 2), 2, 2, Jpeg);
         place(s, 0, 1);
         place(s, 65535, 0);
     },
     "@f10 -70  translate 100 50 scale @i /RunLengthDecode filter\n>> image\nf50080\n>\ngrestore\n@f10 -22  "
     "translate 2 2 scale @i\n>> image\n000000000000000000000000\n>\ngrestore\n"},
    {[](auto& s) {
         include(s, 3, bitmapOf(SeeThrough + std::string(4, '\0'), 32, 2), 2, 2, Tile);
         place(s, 3, 0);
     },
     definition("3", "01010302010605048101090807000000") +
         "@f10 -22  translate 2 2 scale @i\n>> 1 "
         "transparentimage\n01010302010605048101090807000000\n>\ngrestore\n"},
    // The newest definition comes first, and those of images that were no tiles come with their first use.
    {[](auto& s) {
         include(s, 1, bitmapOf(Black, 24, 2), 2, 2);
         include(s, 2, bitmapOf(Red, 24, 2), 2, 2, Tile);
         include(s, 3, bitmapOf(SeeThrough + std::string(4, '\0'), 32, 2), 2, 2);
         fillWith(s, 2);
         EXPECT_GT(s.getDataLength(), 0);
         fillWith(s, 1);
         place(s, 3, 2);
         fillWith(s, 3);
         fillWith(s, 4);
     },
     definition("3", "030201060504090807000000") + definition("1", times(24, "0")) +
         definition("2", "ff0000ff0000ff0000ff0000") + filled("2") + filled("1") +
         "@f10 -22  translate 2 2 scale @pPattern3 setpattern  clippath fill\ngrestore\n" + filled("3") +
         filled("4")},
    // What cannot be decoded keeps its id and, as a tile, its pattern.
    {[](auto& s) {
         include(s, 5, "no image at all", 2, 2, Tile);
         include(s, 5, bitmapOf(Black, 24, 2), 2, 2);
         include(s, 6, "", 2, 2);
         include(s, 65536, bitmapOf(Black, 24, 2), 2, 2);
         for (const unsigned int id : {4U, 5U, 6U, 65536U, ~0U}) {
             place(s, id, 1);
             place(s, id, 2);
         }
         fillWith(s, -1);
         s.ellipse(in({0, 0, 2, 2}));
         s.drawImage(nullptr, 5, 0, 0, 0);
     },
     definition("5", "") + filled("-1") + "1 -1 1 1 0 360  ellipse fill\n"},
};

TEST(PostScriptImages, LeaveTheirText)
{
    expectTexts(Uses);
}

TEST(PostScriptImages, AreEmptyWithoutTheLibraryOrMemory)
{
    EXPECT_EQ("", drawnText([](auto& s) {
                  krnSetImageLibrary("no such library");
                  include(s, 1, bitmapOf(Black, 24, 2), 2, 2);
                  krnSetImageLibrary(nullptr);
                  kstr_setFailure(0);
                  include(s, 2, bitmapOf(Black, 24, 2), 2, 2);
                  kstr_setFailure(-1);
                  place(s, 1, 0);
                  place(s, 2, 0);
              }));
}

} // namespace
