// What metafiles look like when they are played, what playing leaves on its target, what becomes of damaged files.
#include <filesystem>
#include <fstream>
#include <iterator>

#include <gtest/gtest.h>

#include "MetafilePage.h"
#include "support/MetafileRecords.h"
#include "support/encodedPicture.h"

namespace {

constexpr RECT WholePage{0, 0, 12, 6};

// Head, palette, rows.
const std::map<std::string, Words> Bitmaps{
    // Black, white; below red, green.
    {"four", {40, 2, 2, 0x80001, 0, 8, 0, 0, 4, 0, 0, 0xFFFFFF, 0xFF0000, 0x00FF00, 0x0302, 0x0100}},
    {"four24", {40, 2, -2, 0x180001, 0, 0, 0, 0, 0, 0, 0x000000FF, 0x0000FF00, 0x000000FF, 0x0000FF00}},
    // A run of two, the end of the row, a pixel each.
    {"runs", {40, 2, 2, 0x80001, BI_RLE8, 8, 0, 0, 2, 0, 0, 0xFF0000, 0x00000102, 0x00010101, 0x0100}},
    {"bits", {40, 4, 2, 0x10001, 0, 8, 0, 0, 2, 0, 0, 0xFFFFFF, 0x50, 0xA0}},
    // Red, and a pixel that is not there.
    {"alpha", {40, 2, -1, 0x200001, 0, 8, 0, 0, 0, 0, static_cast<std::int32_t>(0xFFFF0000), 0}},
    {"mask", {40, 2, 2, 0x10001, 0, 8, 0, 0, 2, 0, 0, 0xFFFFFF, 0x80, 0x40}},
};

std::vector<unsigned char> metafile(const std::string& records, bool withEnd = true)
{
    return HandMadeMetafile(records, Bitmaps, withEnd).bytes();
}

// Fills without outlines; fills all, to show clips and mappings.
const std::string Black = "SELECTOBJECT 0x80000008; SELECTOBJECT 0x80000004;";
const std::string All = "RECTANGLE -99 -99 99 99;";
const std::string Bar = "BITBLT 0 0 0 0 0 1 12 2 0x42 0 0 0 0 0 0 0 0 0 0 0 0 0 0;";

TEST(Playback, PaintsRecords)
{
    const struct {
        const char* name;
        std::string records;
        std::string picture;
    } cases[] = {
        {"objects, one of them with a number used again",
         "CREATEPEN 1 0 0 0 0xFF; CREATEBRUSHINDIRECT 2 0 0xFF0000 0; SELECTOBJECT 1; SELECTOBJECT 2; "
         "RECTANGLE 1 1 4 4; DELETEOBJECT 2; CREATEBRUSHINDIRECT 2 0 0xFF00 0; SELECTOBJECT 2; SELECTOBJECT "
         "77; RECTANGLE "
         "POLYLINETO 0 9 2;",
         "......rrrr.. .rrrr.rggr.. .rbbr.rrrr.. .rbbr....... .rrrr....... ............ "},
        {"lines",
         "MOVETOEX 1 0; LINETO 1 5; POLYLINE16 0 0 0 0 3 0x10003 0x10009 0x50009; MOVETOEX 9 5; POLYLINETO16 "
         "0 0 0 0 1 0x50005;"
         "POLYPOLYLINE 0 0 0 0 2 4 2 2 11 0 11 2 11 4 11 6; SETPIXELV 6 3 0xFF;",
         ".#.........# .#.#######.# .#.......#.. .#....r..#.. .#.......#.# ......####.# "},
        {"polygons",
         Black + "POLYGON 0 0 0 0 4 0 0 3 0 3 3 0 3;"
                 "POLYPOLYGON16 0 0 0 0 2 8 4 4 5 11 0x6000B 0x60005 0x20007 0x20009 0x40009 0x40007;",
         "###..######. ###..######. ###..##..##. .....##..##. .....######. .....######. "},
        {"figures of PolyDraw",
         "POLYDRAW16 0 0 0 0 3 0x10001 0x10005 0x40005 0x030206; MOVETOEX 6 5; POLYDRAW 0 0 0 0 3 7 5 9 5 11 "
         "5 0x040404;",
         "............ .#####...... ..##.#...... ....##...... .....#...... ......#####. "},
        {"a filled path, a clip path",
         Black +
             "BEGINPATH; MOVETOEX 1 1; LINETO 4 1; LINETO 4 4; LINETO 1 4; CLOSEFIGURE; ENDPATH; FILLPATH 0 "
             "0 0 0;"
             "BEGINPATH; POLYGON16 0 0 0 0 4 0x10006 0x1000B 0x50008 0x50006; ENDPATH; SELECTCLIPPATH 5;" +
             All,
         "............ .###..#####. .###..#####. .###..####.. ......###... ............ "},
        {"saved states",
         Black + "SAVEDC; CREATEBRUSHINDIRECT 1 0 0xFF 0; SELECTOBJECT 1; INTERSECTCLIPRECT 0 0 4 6; "
                 "SETWINDOWORGEX -2 0; RECTANGLE 0 0 20 3; RESTOREDC -1; RESTOREDC -1; RESTOREDC 5; "
                 "RECTANGLE 6 0 8 3;",
         "..rr..##.... ..rr..##.... ..rr..##.... ............ ............ ............ "},
        {"clips",
         Black + "EXTSELECTCLIPRGN $ 5 R( 1 1 4 4 6 2 11 5 ); OFFSETCLIPRGN 0 1; EXCLUDECLIPRECT 2 0 3 6;" +
             All +
             "SETMETARGN; EXTSELECTCLIPRGN 0 5; CREATEBRUSHINDIRECT 1 0 0xFF 0; SELECTOBJECT 1; RECTANGLE 0 "
             "0 12 3; EXTSELECTCLIPRGN $ 5 R( 0 5 12 6 );" +
             All,
         "............ ............ .r.r........ .#.#..#####. .#.#..#####. ......rrrrr. "},
        {"regions",
         "CREATEBRUSHINDIRECT 1 0 0xFF 0; FILLRGN 0 0 0 0 $ 1 R( 1 1 4 4 6 2 11 5 ); SELECTOBJECT "
         "0x80000004; PAINTRGN 0 0 0 0 $ R( 0 0 2 1 );"
         "INVERTRGN 0 0 0 0 $ R( 3 3 8 4 ); FRAMERGN 0 0 0 0 $ 1 1 1 R( 8 0 12 4 );",
         "##......rrrr .rrr....r..r .rrr..rrrrrr .rrc##ccrrrr ......rrrrr. ............ "},
        {"axes that point up",
         Black + "SETMAPMODE 8; SETWINDOWEXTEX 24 -12; SETVIEWPORTEXTEX 12 6; SETVIEWPORTORGEX 0 6; "
                 "RECTANGLE 2 2 10 4; SETMAPMODE 2; SCALEWINDOWEXTEX 2 1 2 1; RECTANGLE 80 30 100 50;",
         "............ ........##.. ........##.. ............ .####....... ............ "},
        {"world transforms",
         Black + "SETWORLDTRANSFORM 0f 1f -1f 0f 6f 0f; RECTANGLE 1 0 2 4; MODIFYWORLDTRANSFORM 1f 0f 0f 1f "
                 "2f -5f 2; RECTANGLE 1 1 3 2;"
                 "MODIFYWORLDTRANSFORM 0f 0f 0f 0f 0f 0f 1; RECTANGLE 0 0 1 6;",
         "#........... #.####...... #........... #........#.. #........#.. #........... "},
        {"raster operations",
         Bar + "BITBLT 0 0 0 0 4 0 4 3 0x550009 0 0 0 0 0 0 0 0 0 0 0 0 0 0; SETROP2 6; MOVETOEX 0 2; LINETO "
               "12 2;",
         "....####.... ####....#### ....####.... ............ ............ ............ "},
        {"bitmaps",
         "STRETCHDIBITS 0 0 0 0 0 0 0 0 2 2 @four 0 0xCC0020 2 2; STRETCHDIBITS 0 0 0 0 3 0 0 0 2 2 @four 0 "
         "0xCC0020 4 4;"
         "STRETCHDIBITS 0 0 0 0 8 0 0 0 2 2 @four24 0 0xCC0020 2 2; STRETCHDIBITS 0 0 0 0 0 4 0 0 2 2 @runs "
         "0 0xCC0020 2 2;"
         "SETDIBITSTODEVICE 0 0 0 0 8 4 0 0 2 2 @four 0 0 2; SETDIBITSTODEVICE 0 0 0 0 11 4 0 0 2 2 @four 0 "
         "0 1;",
         "#..##...br.. rg.##...br.. ...rrgg..... ...rrgg..... r#......#... rr......rg.r "},
        {"copies, monochrome ones in the text's colours",
         "SETTEXTCOLOR 0xFF; SETBKCOLOR 0xFF0000;"
         "BITBLT 0 0 0 0 1 1 4 2 0xCC0020 0 0 1f 0f 0f 1f 0f 0f 0 0 @bits;"
         "STRETCHBLT 0 0 0 0 6 0 4 4 0xCC0020 0 0 1f 0f 0f 1f 0f 0f 0 0 @four 2 2;",
         "......##.... .brbr.##.... .rbrb.rrgg.. ......rrgg.. ............ ............ "},
        {"chosen pixels",
         "CREATEBRUSHINDIRECT 1 0 0xFF0000 0; SELECTOBJECT 1; SELECTOBJECT 0x80000008;" + All +
             "TRANSPARENTBLT 0 0 0 0 0 0 4 4 0xFFFFFF 0 0 1f 0f 0f 1f 0f 0f 0 0 @four 2 2;"
             "TRANSPARENTBLT 0 0 0 0 8 4 2 1 0xFFFFFF 0 0 1f 0f 0f 1f 0f 0f 0 0 @four 2 2;" // no colour mixed
             "MASKBLT 0 0 0 0 6 0 2 2 0xAACC0020 0 0 1f 0f 0f 1f 0f 0f 0 0 @four 0 0 0 @mask;",
         "##bbbbb.bbbb ##bbbbrbbbbb rrggbbbbbbbb rrggbbbbbbbb bbbbbbbbrbbb bbbbbbbbbbbb "},
        {"parallelograms",
         "PLGBLT 0 0 0 0 4 0 4 4 0 0 0 0 2 2 1f 0f 0f 1f 0f 0f 0 0 @four 0 0 0 0 0 0 0;"
         "PLGBLT 0 0 0 0 6 0 10 0 6 4 0 0 2 2 1f 0f 0f 1f 0f 0f 0 0 @four 0 0 0 @mask;",
         "rr##........ rr##........ gg....rr.... gg....rr.... ............ ............ "},
        {"transparent pictures",
         "CREATEBRUSHINDIRECT 1 0 0xFF0000 0; SELECTOBJECT 1; SELECTOBJECT 0x80000008;" + All +
             "ALPHABLEND 0 0 0 0 0 0 4 2 0x01FF0000 0 0 1f 0f 0f 1f 0f 0f 0 0 @alpha 2 1;"
             "ALPHABLEND 0 0 0 0 4 0 4 2 0x00FF0000 0 0 1f 0f 0f 1f 0f 0f 0 0 @alpha 2 1;"
             "ALPHABLEND 0 0 0 0 8 0 4 2 0x01000000 0 0 1f 0f 0f 1f 0f 0f 0 0 @alpha 2 1;",
         "rrbbrr##bbbb rrbbrr##bbbb bbbbbbbbbbbb bbbbbbbbbbbb bbbbbbbbbbbb bbbbbbbbbbbb "},
        {"pens with patterns",
         "EXTCREATEPEN 1 @four 0x10200 2 5 0 0 0 0; SELECTOBJECT 1; MOVETOEX 2 2; LINETO 8 2;"
         "SETTEXTCOLOR 0xFF; SETBKCOLOR 0xFF0000; EXTCREATEPEN 2 @bits 0x10200 2 3 0 0 0 0; SELECTOBJECT 2;"
         "MOVETOEX 2 5; LINETO 8 5;",
         "............ ..rgrgrg.... ..#.#.#..... ............ ..brbrbr.... ..rbrbrb.... "},
        {"gradients",
         "GRADIENTFILL 0 0 0 0 2 1 0 1 1 0xFF000000 0 4 3 0xFF000000 0 0 1;"
         "GRADIENTFILL 0 0 0 0 3 1 2 6 0 0 0xFF00 12 0 0 0xFF00 6 6 0 0xFF00 0 1 2;",
         "......bbbbbb .ggg..bbbbb. .ggg..bbbb.. ......bbb... ......bb.... ......b..... "},
    };
    const DWORD before = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    for (const auto& [name, records, picture] : cases) {
        Page page;
        EXPECT_TRUE(play(page.context(), metafile(records), WholePage)) << name;
        EXPECT_EQ(page.picture(), picture) << name;
    }
    EXPECT_EQ(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS), before);
}

TEST(Playback, LeavesItsTargetAsItWas)
{
    Page page;
    const HDC target = page.context();
    SetMapMode(target, MM_ANISOTROPIC);
    SetWindowExtEx(target, 6, 3, nullptr);
    SetViewportExtEx(target, 12, 6, nullptr);
    IntersectClipRect(target, 1, 0, 3, 3);
    MoveToEx(target, 2, 1, nullptr);
    const int level = SaveDC(target);
    // The file's clip can't reach beyond the target's, and what it saves, opens and selects ends with it.
    EXPECT_TRUE(play(target,
                     metafile("CREATEPEN 1 0 0 0 255; SELECTOBJECT 1; SAVEDC; EXTSELECTCLIPRGN 0 5; "
                              "RESTOREDC -9; MOVETOEX 5 5; SETTEXTCOLOR 255;" +
                              Bar + "BEGINPATH;"),
                     {0, 0, 6, 3}));
    EXPECT_EQ(page.picture(),
              "............ ..####...... ..####...... ............ ............ ............ ");
    POINT position{};
    GetCurrentPositionEx(target, &position);
    EXPECT_EQ(position.x, 2);
    EXPECT_EQ(GetCurrentObject(target, OBJ_PEN), GetStockObject(BLACK_PEN));
    EXPECT_EQ(GetGraphicsMode(target), GM_COMPATIBLE);
    EXPECT_EQ(GetMapMode(target), MM_ANISOTROPIC);
    EXPECT_EQ(GetTextColor(target), 0U);
    EXPECT_EQ(SaveDC(target), level + 1);
    PatBlt(target, 0, 0, 6, 1, BLACKNESS);
    EXPECT_EQ(page.picture().substr(0, 13), "..####...... ");
}

// The frame lies on the rectangle, whose corners may be swapped.
TEST(Playback, MapsTheFrame)
{
    Page page;
    EXPECT_TRUE(play(page.context(), metafile(Bar), {3, 6, 9, 0}));
    EXPECT_EQ(page.picture(),
              "............ ............ ............ ...######... ...######... ............ ");
}

// Six fields of each record; of texts the reference point, the length, and all from the characters on.
std::string recordedAgain(
    const std::string& records, void (*prepare)(HDC) = [](HDC) {})
{
    const RECT frame{0, 0, 50800, 38100};
    const HDC recording = CreateEnhMetaFileA(nullptr, nullptr, &frame, nullptr);
    prepare(recording);
    EXPECT_TRUE(play(recording, metafile(records), {0, 0, 24, 12}));
    const HENHMETAFILE closed = CloseEnhMetaFile(recording);
    std::vector<unsigned char> bytes(GetEnhMetaFileBits(closed, 0, nullptr));
    GetEnhMetaFileBits(closed, static_cast<UINT>(bytes.size()), bytes.data());
    DeleteEnhMetaFile(closed);
    std::string text;
    for (MetafileRecord& record : metafileRecords(bytes)) {
        if (record.type == EMR_EXTTEXTOUTW) {
            record.fields.erase(record.fields.begin() + 10, record.fields.begin() + 17);
            record.fields.erase(record.fields.begin(), record.fields.begin() + 7);
        }
        if (record.type != EMR_HEADER && record.type != EMR_EOF) {
            text += textOf(record, 6) + "; ";
        }
    }
    return text;
}

// Texts of all forms come out as the characters that a search finds; objects and their numbers are made anew. Where
// the axes point up, text is turned over around its reference point.
TEST(Playback, RecordsAgain)
{
    const std::string wide = "EXTTEXTOUTW 0 0 0 0 1 0 0 5 3 2 76 0 0 0 -1 -1 80 0x620061 4 4;";
    EXPECT_EQ(
        recordedAgain("CREATEBRUSHINDIRECT 5 0 255 0; SELECTOBJECT 5; GDICOMMENT 4 0x01020304; GDICOMMENT 4 "
                      "0x2B464D45;" +
                      wide + "EXTTEXTOUTA 0 0 0 0 1 0 0 5 3 2 76 0 0 0 -1 -1 80 0x6261 4 4;"),
        "SAVEDC:; CREATEBRUSHINDIRECT: 1 0 255 0; SELECTOBJECT: 1; GDICOMMENT: 4 16909060; "
        "SETWORLDTRANSFORM: 1073741824 0 0 1073741824 0 0; "
        "EXTTEXTOUTW: 5 3 2 6422625 4 4; EXTTEXTOUTW: 5 3 2 6422625 4 4; RESTOREDC: -1; DELETEOBJECT: 1; ");
    EXPECT_EQ(recordedAgain("SMALLTEXTOUT 7 2 2 0x300 1 0 0 0x6261;"
                            "POLYTEXTOUTW 0 0 0 0 1 0 0 1 5 3 2 80 0 0 0 -1 -1 84 0x620061 4 4;"),
              "SAVEDC:; SETWORLDTRANSFORM: 1073741824 0 0 1073741824 0 0; EXTTEXTOUTW: 7 2 2 6422625 8 9; "
              "EXTTEXTOUTW: 5 3 2 6422625 4 4; RESTOREDC: -1; ");
    EXPECT_EQ(recordedAgain("SETMAPMODE 8; SETVIEWPORTEXTEX 1 -1;" + wide + "LINETO 9 9;"),
              "SAVEDC:; SETWORLDTRANSFORM: 1073741824 0 0 1073741824 0 -1052770304; EXTTEXTOUTW: 5 3 2 "
              "6422625 4 4; "
              "SETWORLDTRANSFORM: 1073741824 0 0 -1073741824 0 0; LINETO: 9 9; RESTOREDC: -1; ");
}

// Attributes that differ from those of a fresh context are records, both ways; colour and font of texts come back in
// records of their own, for readers that keep no saved states.
TEST(Playback, RecordsTheWayToFreshAttributesAndBack)
{
    const auto prepare = [](HDC recording) {
        SetTextColor(recording, 255);
        SetBkColor(recording, 7);
        SetTextAlign(recording, TA_RIGHT);
        SetBkMode(recording, TRANSPARENT);
        SetTextCharacterExtra(recording, 7);
        SetROP2(recording, R2_BLACK);
        SetPolyFillMode(recording, WINDING);
        SetStretchBltMode(recording, HALFTONE);
        SetArcDirection(recording, AD_CLOCKWISE);
        SetTextJustification(recording, 5, 1);
        SetMiterLimit(recording, 2, nullptr);
        SetBrushOrgEx(recording, 3, 4, nullptr);
        MoveToEx(recording, 5, 6, nullptr);
        LOGFONTW font{};
        font.lfHeight = -20;
        SelectObject(recording, CreateFontIndirectW(&font));
        SelectObject(recording, GetStockObject(NULL_PEN));
        SelectObject(recording, GetStockObject(NULL_BRUSH));
    };
    EXPECT_EQ(recordedAgain("SAVEDC; SETTEXTCOLOR 77; RESTOREDC -1; SETTEXTCOLOR 99;", prepare),
              "SETTEXTCOLOR: 255; SETBKCOLOR: 7; SETTEXTALIGN: 2; SETBKMODE: 1; SETROP2: 1; SETPOLYFILLMODE: "
              "2; SETSTRETCHBLTMODE: 4; SETARCDIRECTION: 2; SETTEXTJUSTIFICATION: 5 1; SETMITERLIMIT: "
              "1073741824; SETBRUSHORGEX: 3 4; "
              "MOVETOEX: 5 6; EXTCREATEFONTINDIRECTW: 1 -20 0 0 0 0; SELECTOBJECT: 1; SELECTOBJECT: "
              "-2147483640; SELECTOBJECT: -2147483643; "
              "SAVEDC:; SETTEXTCOLOR: 0; SETBKCOLOR: 16777215; SETTEXTALIGN: 0; SETBKMODE: 2; SETROP2: 13; "
              "SETPOLYFILLMODE: 1; SETSTRETCHBLTMODE: 1; SETARCDIRECTION: 1; SETTEXTJUSTIFICATION: 0 0; "
              "SETMITERLIMIT: 1092616192; "
              "SETBRUSHORGEX: 0 0; MOVETOEX: 0 0; SELECTOBJECT: -2147483641; SELECTOBJECT: -2147483648; "
              "SELECTOBJECT: -2147483635; "
              "SAVEDC:; SETTEXTCOLOR: 77; RESTOREDC: -1; SETTEXTCOLOR: 99; RESTOREDC: -1; SETTEXTCOLOR: 255; "
              "SELECTOBJECT: 1; ");
    EXPECT_EQ(recordedAgain("SELECTOBJECT 0x8000000B; SETTEXTCOLOR 0;"),
              "SAVEDC:; SELECTOBJECT: -2147483637; SETTEXTCOLOR: 0; RESTOREDC: -1; ");
}

TEST(Playback, PlaysWhatIsSound)
{
    const std::string unsound[] = {"POLYGON16 0 0 0 0 0x40000001 0;",
                                   "POLYPOLYGON16 0 0 0 0 2 3 2 -2 0 1 2;",
                                   "EXTTEXTOUTW 0 0 0 0 1 0 0 0 0 5 -4 0 0 0 0 0 76;",
                                   "STRETCHDIBITS 0 0 0 0 0 0 0 0 2 2 80 -16 16 9 0 0xCC0020 2 2;",
                                   "EXTSELECTCLIPRGN 48 5 32 1 0x10000001 16 0 0 0 0 0 0 9 9;",
                                   "RECTANGLE 1 2;"};
    for (const std::string& record : unsound) {
        Page page;
        EXPECT_FALSE(play(page.context(), metafile(record + Bar), WholePage)) << record;
        EXPECT_EQ(page.picture().substr(13, 12), "############") << record;
    }
    // No next record is found.
    for (const int size : {0, 4, 10, 255}) {
        Page page;
        auto bytes = metafile(Bar + Bar);
        bytes[88 + 4] = static_cast<BYTE>(size);
        EXPECT_FALSE(play(page.context(), bytes, WholePage));
        EXPECT_EQ(page.picture().find('#'), std::string::npos);
    }
    Page page;
    EXPECT_FALSE(play(page.context(), metafile(Bar, false), WholePage));
    constexpr DWORD Escape = 106;
    const int before = gdiUnplayedRecords(Escape);
    EXPECT_TRUE(play(page.context(), metafile("106 0 0; SELECTPALETTE 0;"), WholePage));
    EXPECT_EQ(gdiUnplayedRecords(Escape), before + 1);
    EXPECT_EQ(gdiUnplayedRecords(EMR_SELECTPALETTE), 0);
}

// Kept as they are in a metafile, decoded when it is painted; what can't be is counted.
TEST(Playback, DecodesPictures)
{
    struct Case {
        FREE_IMAGE_FORMAT format;
        DWORD compression;
        LONG side; // that the record says
        bool whole;
        bool painted;
    };
    for (const Case& each : {Case{FIF_JPEG, BI_JPEG, 4, true, true}, Case{FIF_PNG, BI_PNG, 4, true, true},
                             Case{FIF_PNG, BI_JPEG, 4, true, true}, Case{FIF_JPEG, BI_JPEG, 5, true, false},
                             Case{FIF_PNG, BI_PNG, 4, false, false}}) {
        std::vector<unsigned char> data = encodedPicture(each.format, 4);
        ASSERT_FALSE(data.empty());
        data.resize(each.whole ? data.size() : data.size() / 2);
        const BITMAPINFO info = encodedHead(each.compression, each.side, data.size());
        const RECT frame{0, 0, 12 * 2540 / 96, 6 * 2540 / 96};
        const HDC recording = CreateEnhMetaFileA(nullptr, nullptr, &frame, nullptr);
        StretchDIBits(recording, 2, 1, 4, 4, 0, 0, 4, 4, data.data(), &info, DIB_RGB_COLORS, SRCCOPY);
        const HENHMETAFILE file = CloseEnhMetaFile(recording);
        std::vector<unsigned char> bytes(GetEnhMetaFileBits(file, 0, nullptr));
        GetEnhMetaFileBits(file, static_cast<UINT>(bytes.size()), bytes.data());
        DeleteEnhMetaFile(file);
        EXPECT_NE(std::search(bytes.begin(), bytes.end(), data.begin(), data.end()), bytes.end());

        Page page;
        const int before = gdiUnplayedRecords(EMR_STRETCHDIBITS);
        EXPECT_TRUE(play(page.context(), bytes, WholePage));
        EXPECT_EQ(gdiUnplayedRecords(EMR_STRETCHDIBITS), before + (each.painted ? 0 : 1));
        const std::string row = each.painted ? "..####......" : "............";
        EXPECT_EQ(page.picture().substr(13, 12), row) << each.format << ' ' << each.compression;
        EXPECT_FALSE(CreateDIBPatternBrushPt(&info, DIB_RGB_COLORS));
    }
}

// Files of other writers, where they are at hand.
TEST(Playback, PlaysFilesOfOthers)
{
    const std::filesystem::path folder = std::filesystem::path(SURFACE_CORPUS) / "emf";
    if (!std::filesystem::exists(folder)) {
        GTEST_SKIP() << "NOT TESTED: there is no " << folder;
    }
    const DWORD before = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (entry.path().extension() == ".emf") {
            std::ifstream stream(entry.path(), std::ios::binary);
            const std::vector<unsigned char> bytes{std::istreambuf_iterator<char>(stream), {}};
            Page page;
            const bool damaged = entry.path().parent_path().filename() == "corrupted";
            EXPECT_TRUE(play(page.context(), bytes, {0, 0, 400, 300}) || damaged) << entry.path();
        }
    }
    EXPECT_EQ(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS), before);
}

} // namespace
