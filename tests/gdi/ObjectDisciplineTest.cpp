// Who deletes which object, and what is reported when somebody else exchanged one. Also the list of fonts.
#include "RecordedPage.h"

#include <cstring>

#include "surfaceHdc.h"

namespace {

RECT everywhere{0, 0, 100, 100};

void choose(CSurfaceGDI& s, float size)
{
    char face[] = "Arial";
    s.setFont(face, size, false, false, false, false);
}

void turn(CSurfaceGDI& s, int angle)
{
    CTextStyle style(0, 0, angle, angle);
    s.setTextStyle(&style);
}

struct Sequence {
    const char* name;
    void (*calls)(CSurfaceGDI&);
    unsigned int left; // objects, once surface and context are gone
};

const Sequence Sequences[] = {
    {"nothing", [](CSurfaceGDI&) {}, 0},
    {"exchanged",
     [](CSurfaceGDI& s) {
         for (int i = 0; i < 4; ++i) {
             choose(s, static_cast<float>(8 + i));
             s.setPen(0, i, i);
             s.setBrush(0xFF, i);
         }
         s.drawSolidRectangle(&everywhere, 0);
         s.setClippingRegion(&everywhere);
     },
     0},
    {"turned and back",
     [](CSurfaceGDI& s) {
         choose(s, 8);
         turn(s, 30);
         choose(s, 8);
     },
     0},
    {"turned last",
     [](CSurfaceGDI& s) {
         choose(s, 8);
         turn(s, 30);
     },
     1},
    {"restored", [](CSurfaceGDI& s) { s.restoreFont(); }, 0},
    {"rotated string last",
     [](CSurfaceGDI& s) {
         choose(s, 8);
         s.drawStringRotated("A", &everywhere, 0, 10, 10);
     },
     1},
    {"rotated string and a font",
     [](CSurfaceGDI& s) {
         choose(s, 8);
         s.drawStringRotated("A", &everywhere, 0, 10, 10);
         choose(s, 8);
     },
     0},
    {"restored last",
     [](CSurfaceGDI& s) {
         choose(s, 8);
         choose(s, 9);
         s.restoreFont();
     },
     1},
    {"a brush that can't be made",
     [](CSurfaceGDI& s) {
         s.setBrush(0xFF, 0);
         s.setBrush(0xFF, 98);
     },
     0},
    {"created",
     [](CSurfaceGDI& s) {
         for (int i = 0; i < 3; ++i) {
             s.m_pen.set(0, i, 1);
             s.m_brush.set(0xFF, 2 * i);
             s.createPen();
             s.createPen();
             s.createBrush();
         }
     },
     2},
};

unsigned int objects()
{
    return GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
}

TEST(ObjectDiscipline, LeavesNoMoreThanItsRules)
{
    const HDC counted = CreateCompatibleDC(nullptr);
    const bool counts = objects() != 0;
    DeleteDC(counted);
    if (!counts) {
        GTEST_SKIP() << "NOT TESTED: this system does not count drawing objects, as Wine does not";
    }
    for (const Sequence& sequence : Sequences) {
        const unsigned int before = objects();
        const HDC context = CreateCompatibleDC(nullptr);
        {
            CSurfaceHdc surface(context);
            sequence.calls(surface);
        }
        EXPECT_TRUE(DeleteDC(context));
        EXPECT_EQ(before + sequence.left, objects()) << sequence.name;
    }
}

// What the log and the assertions say while `calls` run.
std::string reportsOf(const std::function<void(CSurfaceGDI&)>& calls)
{
    std::string reports;
    krnSetLogSink(
        [](const char* line, void* text) { *static_cast<std::string*>(text) += std::string(line) + "\n"; },
        &reports);
    kosSetAssertHandler(
        [](const char* caption, const char* expression, const char* module, const char* file, int,
           void* text) {
            *static_cast<std::string*>(text) +=
                std::string(caption) + "|" + expression + "|" + module + "|" + file + "\n";
        },
        &reports);
    const HDC context = CreateCompatibleDC(nullptr);
    {
        CSurfaceHdc surface(context);
        calls(surface);
    }
    DeleteDC(context);
    krnSetLogSink(nullptr, nullptr);
    kosSetAssertHandler(nullptr, nullptr);
    return reports;
}

TEST(ObjectDiscipline, ReportsWhatSomebodyElseExchanged)
{
    const std::string numbers = "bold=400, italic=0, strikeout=0, underline=0, orientation=";
    const std::pair<std::function<void(CSurfaceGDI&)>, std::string> cases[] = {
        {[](CSurfaceGDI& s) {
             choose(s, 12);
             turn(s, 30);
             choose(s, 12);
         },
         "Current font is not same as that previously set!\nExpected font Family=Arial, size=-16, " +
             numbers + "0, escapement=0\nbut found Family=Arial, size=-16, " + numbers +
             "300, escapement=300\n"},
        {[](CSurfaceGDI& s) {
             choose(s, 12);
             DeleteObject(SelectObject(s.getHDC(), GetStockObject(SYSTEM_FONT)));
             s.setPen(1, 0, 1);
             s.setBrush(1, 0);
             SelectObject(s.getHDC(), GetStockObject(BLACK_PEN));
             SelectObject(s.getHDC(), GetStockObject(NULL_BRUSH));
             s.setPen(1, 0, 1);
             s.setBrush(1, 0);
         },
         "Assertion failed|m_currentPen == ::GetCurrentObject(m_hdc, OBJ_PEN)|surface|source\\SurfaceGDI\n"
         "Assertion failed|m_currentBrush == ::GetCurrentObject(m_hdc, "
         "OBJ_BRUSH)|surface|source\\SurfaceGDI\n"},
        {[](CSurfaceGDI& s) { s.printerNofMMarker({}); },
         "Assertion failed|false|surface|include\\surfaceGDI\n"},
    };
    for (const auto& [calls, reports] : cases) {
        EXPECT_EQ(reports, reportsOf(calls));
    }
}

int CALLBACK sumOf(int request, std::uint32_t value, const char** text, unsigned int* length)
{
    return std::strlen(*text) == *length ? request + static_cast<int>(value) : 0;
}

TEST(FontList, ComesInWhateverTheRecordOffers)
{
    const HDC context = CreateCompatibleDC(nullptr);
    CSurfaceHdc surface(context);
    DskParam param{};
    EXPECT_EQ(0, surface.loadFonts(&param));
    EXPECT_EQ(DskParam::buffer, param.kind);
    const std::string list = param.text;
#if defined(_WIN32)
    constexpr const char* known =
        "Liberation Sans;Regular;Western;T;400;0;0;0;"; // Windows tells one face of a family
#else
    constexpr const char* known = "Liberation Sans;Bold;Western;T;700;0;0;0;";
#endif
    EXPECT_NE(std::string::npos, list.find(known)) << list;

    std::string room(65536, '#');
    param.kind = DskParam::countedBuffer;
    param.text = room.data();
    EXPECT_EQ(0, surface.loadFonts(&param));
    EXPECT_EQ(list.size(), param.value);
    EXPECT_EQ(list, room.c_str());

    param.kind = DskParam::otherFunction;
    param.value = 7;
    param.answer = sumOf;
    EXPECT_EQ(25, surface.loadFonts(&param));
    param.answer = nullptr;
    EXPECT_EQ(-1, surface.loadFonts(&param));
    EXPECT_EQ(-1, surface.loadFonts(nullptr));
    DeleteDC(context);
}

} // namespace
