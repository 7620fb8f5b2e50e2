// What calls on a metafile context leave in the metafile, record by record.
#include <windows.h>

#include <functional>
#include <string>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "support/MetafileRecords.h"

namespace {

std::vector<unsigned char> bytesOf(HENHMETAFILE metafile)
{
    std::vector<unsigned char> bytes(GetEnhMetaFileBits(metafile, 0, nullptr));
    EXPECT_EQ(GetEnhMetaFileBits(metafile, static_cast<UINT>(bytes.size()), bytes.data()), bytes.size());
    return bytes;
}

std::vector<MetafileRecord> recorded(const std::function<void(HDC)>& draw, const RECT* frame = nullptr)
{
    const HDC context = CreateEnhMetaFileA(nullptr, nullptr, frame, nullptr);
    draw(context);
    const HENHMETAFILE metafile = CloseEnhMetaFile(context);
    std::vector<MetafileRecord> records = metafileRecords(bytesOf(metafile));
    EXPECT_TRUE(DeleteEnhMetaFile(metafile));
    EXPECT_FALSE(DeleteEnhMetaFile(metafile));
    return records;
}

struct Drawing {
    const char* name;
    void (*draw)(HDC);
    std::vector<std::string>
        expected; // without header and end; a "*" at the end stands for any further fields
};

class RecordedCalls : public testing::TestWithParam<Drawing> {};

TEST_P(RecordedCalls, BecomeRecords)
{
    const std::vector<MetafileRecord> records = recorded(GetParam().draw);
    const std::vector<std::string>& expected = GetParam().expected;
    ASSERT_GE(records.size(), 2U);
    for (std::size_t index = 0; index < std::max(records.size() - 2, expected.size()); ++index) {
        std::string line = index + 2 < records.size() ? textOf(records[index + 1]) : "nothing";
        std::string wanted = index < expected.size() ? expected[index] : "nothing";
        if (wanted.back() == '*') {
            wanted.pop_back();
            line.resize(std::min(line.size(), wanted.size()));
        }
        EXPECT_EQ(line, wanted) << index;
    }
}

HBRUSH stockBrush(int index)
{
    return static_cast<HBRUSH>(GetStockObject(index));
}

const Drawing Drawings[] = {
    {"BoxesWithAllEdgesInAdvancedModeOnly",
     [](HDC context) {
         Rectangle(context, 110, 70, 10, 20);
         Rectangle(context, 5, 5, 5, 9);
         RoundRect(context, 0, 0, 10, 12, 4, 6);
         Pie(context, 0, 0, 10, 12, 1, 2, 3, 4);
         SetGraphicsMode(context, GM_ADVANCED);
         Ellipse(context, 10, 20, 110, 70);
     },
     {"RECTANGLE: 10 20 109 69", "ROUNDRECT: 0 0 9 11 4 6", "PIE: 0 0 9 11 1 2 3 4",
      "ELLIPSE: 10 20 110 70"}},
    {"PointsInSixteenBitsWhenAllFit",
     [](HDC context) {
         const POINT points[] = {{1, 2}, {-3, 4}, {40000, -32768}};
         const DWORD counts[] = {2, 2};
         const POINT four[] = {{1, 2}, {-3, 4}, {0, 0}, {0, 1}};
         Polyline(context, points, 2);
         Polygon(context, points, 3);
         PolyPolyline(context, four, counts, 2);
     },
     {"POLYLINE16: -3 2 1 4 2 131073 327677", "POLYGON: -3 -32768 40000 4 3 1 2 -3 4 40000 -32768",
      "POLYPOLYLINE16: -3 0 1 4 2 4 2 2 131073 327677 0 65536"}},
    {"BoundsOfWhatAPenOfOneUnitCovers",
     [](HDC context) {
         const POINT line[] = {{2, 3}, {5, 3}};
         SetGraphicsMode(context, GM_ADVANCED);
         const XFORM tenfold{10, 0, 0, 10, 0, 0};
         SetWorldTransform(context, &tenfold);
         for (const int width : {1, 0}) {
             const HPEN pen = CreatePen(PS_SOLID, width, 0);
             SelectObject(context, pen);
             Polyline(context, line, 2);
             SelectObject(context, GetStockObject(BLACK_PEN));
             DeleteObject(pen);
         }
     },
     {"SETWORLDTRANSFORM: 1092616192 0 0 1092616192 0 0", "CREATEPEN: 1 0 1 0 0", "SELECTOBJECT: 1",
      "POLYLINE16: 14 24 56 36 2 196610 196613", "SELECTOBJECT: -2147483641", "DELETEOBJECT: 1",
      "CREATEPEN: 1 0 0 0 0", "SELECTOBJECT: 1", "POLYLINE16: 20 30 50 30 2 196610 196613",
      "SELECTOBJECT: -2147483641", "DELETEOBJECT: 1"}},
    {"PathsWithTheirBounds",
     [](HDC context) {
         EndPath(context);
         BeginPath(context);
         MoveToEx(context, 10, 10, nullptr);
         LineTo(context, 20, 30);
         CloseFigure(context);
         EndPath(context);
         FillPath(context);
         FillPath(context);
     },
     {"BEGINPATH:", "MOVETOEX: 10 10", "LINETO: 20 30", "CLOSEFIGURE:", "ENDPATH:", "FILLPATH: 10 10 20 30"}},
    {"State",
     [](HDC context) {
         SetBkColor(context, 0x12345);
         SetTextAlign(context, TA_BASELINE);
         SetMapMode(context, MM_ANISOTROPIC);
         SetWindowExtEx(context, 200, 100, nullptr);
         ScaleViewportExtEx(context, 3, 1, 5, 2, nullptr);
         SetBrushOrgEx(context, -1, 3, nullptr);
         SetMiterLimit(context, 2.0F, nullptr);
         SaveDC(context);
         RestoreDC(context, -1);
     },
     {"SETBKCOLOR: 74565", "SETTEXTALIGN: 24", "SETMAPMODE: 8", "SETWINDOWEXTEX: 200 100",
      "SCALEVIEWPORTEXTEX: 3 1 5 2", "SETBRUSHORGEX: -1 3", "SETMITERLIMIT: 1073741824",
      "SAVEDC:", "RESTOREDC: -1"}},
    {"Clips",
     [](HDC context) {
         const HRGN region = CreateRectRgn(1, 2, 30, 40);
         SelectClipRgn(context, region);
         IntersectClipRect(context, 5, 6, 7, 8);
         OffsetClipRgn(context, 1, -1);
         SelectClipRgn(context, nullptr);
         FillRgn(context, region, stockBrush(BLACK_BRUSH));
         DeleteObject(region);
     },
     {"EXTSELECTCLIPRGN: 48 5 32 1 1 16 1 2 30 40 1 2 30 40", "INTERSECTCLIPRECT: 5 6 7 8",
      "OFFSETCLIPRGN: 1 -1", "EXTSELECTCLIPRGN: 0 5",
      "FILLRGN: 1 2 29 39 48 -2147483644 32 1 1 16 1 2 30 40 1 2 30 40"}},
    {"ObjectsOnceAndTheirEntriesAgain",
     [](HDC context) {
         const HBRUSH first = CreateSolidBrush(1);
         const HBRUSH second = CreateHatchBrush(HS_CROSS, 2);
         for (const HBRUSH brush : {first, second, first}) {
             SelectObject(context, brush);
         }
         DeleteObject(second);
         DeleteObject(first); // stays in the table as long as it is selected
         const LOGBRUSH blue{BS_SOLID, 0xFF0000, 0};
         const DWORD dashes[] = {4, 5};
         const HPEN pen = ExtCreatePen(PS_GEOMETRIC | PS_USERSTYLE, 3, &blue, 2, dashes);
         SelectObject(context, pen);
         SelectObject(context, GetStockObject(NULL_BRUSH));
         const HPEN thin = CreatePen(PS_DOT, 1, 7);
         SelectObject(context, thin);
         DeleteObject(pen);
         DeleteObject(thin);
         SelectObject(context, GetStockObject(BLACK_PEN));
         GdiComment(context, 5, reinterpret_cast<const BYTE*>("TPC\x01\x02"));
     },
     {"CREATEBRUSHINDIRECT: 1 0 1 0", "SELECTOBJECT: 1", "CREATEBRUSHINDIRECT: 2 2 2 4", "SELECTOBJECT: 2",
      "SELECTOBJECT: 1", "DELETEOBJECT: 2", "EXTCREATEPEN: 2 0 0 0 0 65543 3 0 16711680 0 2 4 5",
      "SELECTOBJECT: 2", "SELECTOBJECT: -2147483643", "DELETEOBJECT: 1", "CREATEPEN: 1 2 1 0 7",
      "SELECTOBJECT: 1", "DELETEOBJECT: 2", "SELECTOBJECT: -2147483641", "DELETEOBJECT: 1",
      "GDICOMMENT: 5 21188692 2"}},
    {"FillsWithABrushOfTheirOwn",
     [](HDC context) {
         const RECT rect{10, 20, 30, 40};
         FillRect(context, &rect, stockBrush(GRAY_BRUSH));
         FillRect(context, &rect, stockBrush(WHITE_BRUSH));
     },
     {"SELECTOBJECT: -2147483646", "BITBLT: 10 20 29 39 10 20 20 20 15728673 0 0 *",
      "SELECTOBJECT: -2147483648", "BITBLT: 10 20 29 39 10 20 20 20 15728673 *"}},
    {"BitsOfAMonochromeSource",
     [](HDC context) {
         const BYTE rows[] = {0x80, 0, 0x40, 0};
         const HBITMAP bitmap = CreateBitmap(2, 2, 1, 1, rows);
         const HDC source = CreateCompatibleDC(context);
         SelectObject(source, bitmap);
         StretchBlt(context, 8, 0, -8, 4, source, 0, 0, 2, 2, SRCAND);
         DeleteDC(source);
         DeleteObject(bitmap);
     },
     {"STRETCHBLT: 1 0 8 3 8 0 -8 4 8913094 0 0 1065353216 0 0 1065353216 0 0 16777215 0 108 48 156 8 2 2 "
      "40 2 2 65537 0 8 0 0 0 0 0 16777215 64 128"}},
    {"BitsOfADib",
     [](HDC context) {
         BITMAPINFO info{};
         info.bmiHeader = {sizeof(BITMAPINFOHEADER), 1, 2, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
         const DWORD pixels[] = {1, 2};
         StretchDIBits(context, 0, 0, 4, 4, 0, 1, 1, 1, pixels, &info, DIB_RGB_COLORS, SRCCOPY);
         info.bmiHeader.biWidth = 0x7FFFFFFF;
         StretchDIBits(context, 0, 0, 4, 4, 0, 1, 1, 1, pixels, &info, DIB_RGB_COLORS, SRCCOPY);
     },
     {"STRETCHDIBITS: 0 0 3 3 0 0 0 1 1 1 80 40 120 8 0 13369376 4 4 40 1 2 2097153 0 0 0 0 0 0 1 2"}},
};

INSTANTIATE_TEST_SUITE_P(Recorder, RecordedCalls, testing::ValuesIn(Drawings),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(MetafileText, HasCharactersAndAdvances)
{
    const auto records = recorded([](HDC context) {
        const INT advances[] = {7, 9, 8};
        const RECT clip{1, 2, 3, 4};
        ExtTextOutA(context, 10, 20, ETO_CLIPPED, &clip, "ab\x80", 3, advances);
    });
    ASSERT_EQ(records.size(), 3U);
    ASSERT_EQ(records[1].fields.size(), 22U);
    // The scale, as the bits of a float, is 26.458334: hundredths of a millimetre along a pixel.
    EXPECT_EQ(textOf({84, {records[1].fields.begin() + 4, records[1].fields.end()}}),
              "EXTTEXTOUTW: 1 1104390827 1104390827 10 20 3 76 4 1 2 3 4 84 6422625 8364 7 9 8");
    EXPECT_EQ(records[1].fields[0], 10);
    EXPECT_EQ(records[1].fields[2], 33);
}

TEST(MetafileHeader, TellsBoundsFrameAndDevice)
{
    const auto drawClipped = [](HDC context) {
        SetPixelV(context, 96, 96, 0);
        IntersectClipRect(context, 0, 0, 192, 192);
        const POINT line[] = {{100, 100}, {900, 100}};
        Polyline(context, line, 2);
    };
    const RECT frame{0, 0, 21000, 29700};
    const auto drawArc = [](HDC context) {
        Arc(context, 0, 0, 100, 100, 100, 50, 50, 0);
    };
    const std::tuple<std::function<void(HDC)>, const RECT*, std::string> cases[] = {
        {[](HDC) {}, nullptr, "HEADER: 0 0 -1 -1 0 0 0 0"},
        {drawArc, nullptr, "HEADER: 50 0 99 50 1322 0 2645 1349"},
        {drawClipped, nullptr, "HEADER: 96 96 191 100 2540 2540 5080 2672"},
        {drawClipped, &frame, "HEADER: 96 96 191 100 0 0 21000 29700"},
    };
    for (const auto& [draw, given, expected] : cases) {
        MetafileRecord header = recorded(draw, given).front();
        header.fields.erase(header.fields.begin() + 10,
                            header.fields.begin() + 13); // what the walk has checked
        EXPECT_EQ(textOf(header), expected + " 1179469088 65536 0 0 0 1920 1440 508 381 0 0 0 508000 381000");
    }
}

TEST(MetafileBits, AreTakenWithASoundHeaderOnly)
{
    const HDC context = CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(GetDeviceCaps(context, LOGPIXELSY), 96);
    const HENHMETAFILE metafile = CloseEnhMetaFile(context);
    EXPECT_EQ(CloseEnhMetaFile(context), nullptr);
    const std::vector<unsigned char> sound = bytesOf(metafile);
    unsigned char byte = 0;
    EXPECT_EQ(GetEnhMetaFileBits(metafile, 1, &byte), 0U);
    DeleteEnhMetaFile(metafile);

    struct Change {
        std::size_t offset;
        unsigned char value;
        bool taken;
    };
    // Type, header sizes, signature, size of the file.
    for (const Change& change : {Change{0, 1, true},
                                 {0, 2, false},
                                 {4, 88, true},
                                 {4, 100, true},
                                 {4, 84, false},
                                 {4, 106, false},
                                 {5, 1, false},
                                 {40, 0, false},
                                 {49, 1, false}}) {
        std::vector<unsigned char> bytes = sound;
        bytes[change.offset] = change.value;
        const HENHMETAFILE copy = SetEnhMetaFileBits(static_cast<UINT>(bytes.size()), bytes.data());
        EXPECT_EQ(copy != nullptr, change.taken) << change.offset << ' ' << int{change.value};
        DeleteEnhMetaFile(copy);
    }
    EXPECT_EQ(SetEnhMetaFileBits(87, sound.data()), nullptr);
    EXPECT_EQ(SetEnhMetaFileBits(88, nullptr), nullptr);
}

} // namespace
