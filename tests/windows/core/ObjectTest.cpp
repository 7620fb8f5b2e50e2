// Handles: what is refused, what lives on while it is selected, and what is counted.
#include <windows.h>

#include <cstddef>
#include <cstring>
#include <thread>

#include <gtest/gtest.h>

namespace {

DWORD liveObjects()
{
    return GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
}

TEST(Objects, DeletedOnesLiveOnWhereTheyAreSelected)
{
    const DWORD before = liveObjects();
    const HDC first = CreateCompatibleDC(nullptr);
    const HDC second = GetDC(nullptr);
    const HBRUSH brush = CreateSolidBrush(0x01123456);
    const HGDIOBJ initial = SelectObject(first, brush);
    EXPECT_EQ(initial, GetStockObject(WHITE_BRUSH));
    EXPECT_EQ(SelectObject(second, brush), initial);
    EXPECT_EQ(SaveDC(first), 1);

    EXPECT_TRUE(DeleteObject(brush));
    LOGBRUSH record{7, 7, 7};
    EXPECT_EQ(GetObjectA(brush, sizeof record, &record), 0);
    EXPECT_EQ(record.lbStyle, 7U);
    EXPECT_FALSE(DeleteObject(brush));
    EXPECT_EQ(SelectObject(first, brush), nullptr);
    EXPECT_EQ(GetCurrentObject(first, OBJ_BRUSH), brush);

    EXPECT_EQ(SelectObject(first, initial), brush);
    EXPECT_EQ(liveObjects(), before + 3);
    EXPECT_TRUE(DeleteDC(first)); // its saved state held the brush as well
    EXPECT_EQ(SelectObject(second, initial), brush);
    EXPECT_EQ(liveObjects(), before + 1);
    const HBRUSH next = CreateSolidBrush(0); // in the same slot
    EXPECT_EQ(SelectObject(second, brush), nullptr);
    EXPECT_TRUE(DeleteObject(next) && ReleaseDC(nullptr, second) == 1);
    EXPECT_EQ(ReleaseDC(nullptr, second), 0);
    EXPECT_EQ(liveObjects(), before);
}

TEST(Objects, OneContextAtATimeHoldsABitmap)
{
    const HDC first = CreateCompatibleDC(nullptr);
    const HDC second = CreateCompatibleDC(first);
    const HBITMAP bitmap = CreateBitmap(4, 4, 1, 32, nullptr);
    const HGDIOBJ pixel = GetCurrentObject(second, OBJ_BITMAP);
    EXPECT_EQ(SelectObject(first, bitmap), pixel);
    EXPECT_EQ(SelectObject(second, bitmap), nullptr);
    EXPECT_FALSE(DeleteObject(bitmap));
    EXPECT_TRUE(DeleteDC(first));
    EXPECT_EQ(SelectObject(second, bitmap), pixel);
    EXPECT_EQ(SelectObject(second, pixel), bitmap);
    EXPECT_TRUE(DeleteObject(bitmap) && DeleteDC(second));
}

TEST(Objects, SayWhatTheyAre)
{
    const HDC memory = CreateCompatibleDC(nullptr);
    const HDC recording = CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr);
    const LOGBRUSH brush{BS_SOLID, 0, 0};
    LOGFONTA font{};
    const std::pair<HGDIOBJ, DWORD> owned[] = {
        {CreatePen(PS_SOLID, 1, 0), OBJ_PEN},
        {ExtCreatePen(PS_GEOMETRIC, 1, &brush, 0, nullptr), OBJ_EXTPEN},
        {CreateSolidBrush(0), OBJ_BRUSH},
        {CreateFontIndirectA(&font), OBJ_FONT},
        {CreateBitmap(1, 1, 1, 1, nullptr), OBJ_BITMAP},
        {CreateRectRgn(0, 0, 1, 1), OBJ_REGION},
    };
    for (const auto& [object, type] : owned) {
        EXPECT_EQ(GetObjectType(object), type);
        EXPECT_TRUE(DeleteObject(object));
        EXPECT_EQ(GetObjectType(object), 0U);
    }
    EXPECT_EQ(GetObjectType(memory), DWORD{OBJ_MEMDC});
    EXPECT_EQ(GetObjectType(recording), DWORD{OBJ_ENHMETADC});
    const HENHMETAFILE metafile = CloseEnhMetaFile(recording);
    EXPECT_EQ(GetObjectType(metafile), DWORD{OBJ_ENHMETAFILE});
    EXPECT_TRUE(DeleteEnhMetaFile(metafile) && DeleteDC(memory));
}

TEST(Objects, DescribePens)
{
    const HPEN plain = CreatePen(PS_DASH, 1, 0x030201);
    LOGPEN record{};
    EXPECT_EQ(GetObjectA(plain, 0, nullptr), int{sizeof(record)});
    EXPECT_EQ(GetObjectA(plain, sizeof(record), &record), int{sizeof(record)});
    EXPECT_EQ(record.lopnStyle, DWORD{PS_DASH});
    EXPECT_EQ(record.lopnWidth.x, 1);
    EXPECT_EQ(record.lopnColor, 0x030201U);

    const LOGBRUSH hatched{BS_HATCHED, 0x060504, HS_CROSS};
    const DWORD dashes[] = {7, 8, 9};
    const HPEN extended = ExtCreatePen(PS_GEOMETRIC | PS_USERSTYLE, 5, &hatched, 3, dashes);
    struct {
        EXTLOGPEN head;
        DWORD more[2];
    } extendedRecord{};
    EXPECT_EQ(GetObjectA(extended, sizeof(extendedRecord), &extendedRecord),
              int{offsetof(EXTLOGPEN, elpStyleEntry) + sizeof(dashes)});
    EXPECT_EQ(extendedRecord.head.elpNumEntries, 3U);
    EXPECT_EQ(extendedRecord.head.elpHatch, ULONG_PTR{HS_CROSS});
    EXPECT_EQ(std::memcmp(extendedRecord.head.elpStyleEntry, dashes, sizeof(dashes)), 0);
    EXPECT_TRUE(DeleteObject(plain) && DeleteObject(extended));
}

TEST(Objects, RefuseHandlesThatNameSomethingElse)
{
    HDC context = CreateCompatibleDC(nullptr);
    const HRGN region = CreateRectRgn(0, 0, 1, 1);
    const HGDIOBJ pen = GetCurrentObject(context, OBJ_PEN);
    for (HGDIOBJ object : {HGDIOBJ{nullptr}, HGDIOBJ{context}, HGDIOBJ{region}, HGDIOBJ{&context}}) {
        EXPECT_EQ(SelectObject(context, object), nullptr);
    }
    EXPECT_EQ(SelectObject(static_cast<HDC>(pen), pen), nullptr);
    EXPECT_FALSE(DeleteObject(context) || DeleteDC(static_cast<HDC>(HGDIOBJ{region})));
    EXPECT_TRUE(DeleteObject(pen)); // a stock object, which stays
    EXPECT_TRUE(DeleteObject(region) && DeleteDC(context));
    EXPECT_EQ(GetTextColor(context), CLR_INVALID);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
}

TEST(Objects, ComeAndGoOnSeveralThreads)
{
    const DWORD before = liveObjects();
    const auto work = [] {
        LOGFONTA font{};
        std::strcpy(font.lfFaceName, "Liberation S\xE9rif");
        for (int round = 0; round < 2000; ++round) {
            const HDC context = CreateCompatibleDC(nullptr);
            const HFONT handle = CreateFontIndirectA(&font);
            SelectObject(context, handle);
            LOGFONTA read{};
            ASSERT_EQ(GetObjectA(handle, sizeof read, &read), 60);
            ASSERT_STREQ(read.lfFaceName, font.lfFaceName);
            ASSERT_TRUE(DeleteObject(handle) && DeleteDC(context));
        }
    };
    std::thread other(work);
    work();
    other.join();
    EXPECT_EQ(liveObjects(), before);
}

} // namespace
