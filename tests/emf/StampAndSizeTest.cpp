// The page count that is stamped into a metafile page, its size, and what play says without a device.
#include "MetafileBuilder.h"
#include "metaFilePlayerEMF.h"
#include "RecordingSurface.h"
#include "sys/krnutil.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

using namespace std::string_literals;

namespace {

std::string markerRecord(int left, int right)
{
    return recordOf(EMR_GDICOMMENT, bytesOf(DWORD{11}) + "TPC" + bytesOf(POINTL{left, right}));
}

// Page 7 of 12, from a buffer of exactly the page's length.
bool stamp(std::string& page)
{
    std::vector<unsigned char> bytes(page.begin(), page.end());
    const bool found = CMetaFilePlayer::insertPageCount(bytes.data(), static_cast<int>(bytes.size()), 7, 12);
    page.assign(bytes.begin(), bytes.end());
    return found;
}

// Without a font nothing but characters, their number and the options change.
TEST(MetafileStamp, GoesToTheNextTextWithRoom)
{
    const std::string marker = markerRecord(0, 90);
    const std::string word(299, 'w');
    const struct {
        std::vector<std::string> texts; // each behind a marker, but for those that begin with "+"
        std::vector<std::string> stamped;
        const char* word = "of";
        bool found = true;
    } cases[] = {
        {{"page x of y"}, {"7 of 12"}},
        {{" x of y"}, {"12"}},
        {{"1234567"}, {"7 of 12"}},
        {{"123456", "+1234567", "+1234567"}, {"123456", "7 of 12", "1234567"}},
        {{"", "+ ", "+  "}, {"", " ", "12"}},
        {{"123456"}, {"123456"}},
        {{"12345678", "12345678"}, {"7 of 12", "7 of 12"}},
        {{"+12345678"}, {"12345678"}, "of", false},
        {{"12345678"}, {"7 of 12"}, nullptr},
        {{std::string(310, '.')}, {"7 " + word + " 12"}, word.c_str()},
    };
    for (const auto& [texts, stamped, between, found] : cases) {
        for (const bool wide : {false, true}) {
            std::vector<std::string> before;
            std::vector<std::string> after;
            for (std::size_t i = 0; i < texts.size(); ++i) {
                const bool marked = texts[i].substr(0, 1) != "+";
                const std::string old = texts[i].substr(marked ? 0 : 1);
                std::string changed =
                    textRecord(5, 6, stamped[i] + old.substr(std::min(old.size(), stamped[i].size())), wide);
                if (old != stamped[i]) {
                    changed =
                        withNumber(withNumber(changed, 44, static_cast<DWORD>(stamped[i].size())), 52, 0);
                }
                for (auto* const records : {&before, &after}) {
                    records->insert(records->end(), marked ? 2 : 0, marker);
                }
                before.push_back(textRecord(5, 6, old, wide));
                after.push_back(changed);
            }
            std::string page = metafileOf(before);
            krnSetMessageText(15301, between);
            EXPECT_EQ(stamp(page), found) << texts[0];
            krnSetMessageText(15301, "of");
            EXPECT_EQ(page, metafileOf(after)) << texts[0] << wide;
        }
    }
}

LOGFONTW fontOf(int number)
{
    LOGFONTW font{};
    font.lfHeight = -5 * number;
    std::copy_n(u"DejaVu Sans", 11, font.lfFaceName);
    return font;
}

// What the stamp leaves: the advances, left and right of the bounds, x of the reference point.
std::vector<int> spacingOf(const std::string& record)
{
    std::vector<int> spacing;
    for (const std::size_t offset : {8, 16, 36}) {
        spacing.push_back(static_cast<int>(numberAt(record, offset)));
    }
    const std::size_t advances = record.size() - 36; // of nine characters
    for (std::size_t i = 0; i < 9; ++i) {
        spacing.push_back(static_cast<int>(numberAt(record, advances + 4 * i)));
    }
    return spacing;
}

// By the measures of "7 of 12" in the font: null without one.
struct Measures {
    explicit Measures(int number)
    {
        const LOGFONTW description = fontOf(number);
        const HDC screen = GetDC(nullptr);
        const HFONT font = CreateFontIndirectW(&description);
        const HGDIOBJ before = SelectObject(screen, font);
        SIZE size{};
        GetTextExtentExPointA(screen, "7 of 12", 7, 400, &fit, extents, &size);
        width = size.cx;
        SelectObject(screen, before);
        DeleteObject(font);
        ReleaseDC(nullptr, screen);
    }
    INT extents[7]{};
    INT fit = 0;
    int width = 0;
};

std::string objectRecord(char kind, DWORD number)
{
    switch (kind) {
    case 'c':
        return recordOf(EMR_EXTCREATEFONTINDIRECTW,
                        bytesOf(number) + bytesOf(fontOf(static_cast<int>(number))));
    case 'x': // a font that is cut short
        return recordOf(EMR_EXTCREATEFONTINDIRECTW, bytesOf(number) + std::string(88, 'x'));
    default:
        return recordOf(kind == 's' ? EMR_SELECTOBJECT : EMR_DELETEOBJECT, bytesOf(number));
    }
}

TEST(MetafileStamp, SpacesAndAlignsTheText)
{
    enum Alignment { left, centred, right };
    constexpr DWORD stock = ENHMETA_STOCK_OBJECT;
    constexpr DWORD noAdvances = 0;
    const struct {
        std::vector<std::pair<char, DWORD>> objects;
        int font; // its number; 0: none
        POINTL band{0, 80};
        Alignment alignment = left;
        DWORD advances = 88; // their offset
    } cases[] = {
        {{}, 0},
        {{{'x', 4}}, 0},
        {{{'c', 4}}, 4},
        {{{'c', 4}, {'s', stock + 13}, {'s', 5}}, 4},
        {{{'c', 4}, {'c', 5}, {'s', 4}}, 4},
        {{{'c', 4}, {'c', 100}}, 100},
        {{{'c', 99}, {'c', 100}, {'c', 4}, {'s', 100}, {'s', 99}, {'s', 100}}, 99},
        {{{'c', 4}, {'d', 4}}, 4},
        {{{'c', 4}, {'c', 5}, {'d', 4}, {'s', 4}}, 5},
        {{{'c', 4}}, 4, {-10, 150}, centred},
        {{{'c', 4}}, 4, {-10, 90}, right},
        {{{'c', 4}}, 4, {1, 150}, left},
        {{{'c', 4}}, 4, {-10, 150}, centred, noAdvances},
        {{{'c', 4}}, 4, {-10, 90}, right, 124 - 24},
    };
    for (const auto& [objects, font, band, alignment, advances] : cases) {
        std::vector<std::string> records;
        for (const auto& [kind, number] : objects) {
            records.push_back(objectRecord(kind, number));
        }
        records.push_back(markerRecord(band.x, band.y));
        records.push_back(withNumber(textRecord(0, 6, "123456789"), 72, advances));
        std::string page = metafileOf(records);
        EXPECT_TRUE(stamp(page));

        std::vector<int> expected{0, 89, 0, 7, 7, 7, 7, 7, 7, 7, 7, 7};
        if (font != 0) {
            const Measures measures(font);
            for (int i = 6; i >= 0 && advances == 88; --i) {
                const int end = i < measures.fit ? measures.extents[i] : 7;
                const int start = i == 0 ? 0 : i - 1 < measures.fit ? measures.extents[i - 1] : 7;
                expected[static_cast<std::size_t>(i) + 3] = end - start;
            }
            if (alignment == centred) {
                expected[0] = (band.y - band.x - measures.width) / 2 + band.x;
                expected[1] = band.y;
            } else if (alignment == right) {
                expected[0] = 89 - measures.width;
            }
            expected[2] = expected[0];
        }
        EXPECT_EQ(spacingOf(recordsOf(page)[records.size()]), expected)
            << font << ' ' << band.x << ' ' << advances;
    }
}

TEST(MetafileSize, IsThatOfTheFrameInPixels)
{
    const std::string page = metafileOf({});
    const struct {
        std::string page;
        unsigned int width;
        unsigned int height;
    } cases[] = {
        {page, 793, 1122},
        {page.substr(0, 88), 793, 1122},
        {page.substr(0, 87), 0, 0},
        {withNumber(page, 72, 0), 0, 0},
        {withNumber(page, 84, 0), 0, 0},
        {withNumber(page, 32, 0xFFFFFFFF), 0, 0},                                  // ends before it begins
        {withNumber(withNumber(page, 24, 0x80000000), 80, 1), 0, 0},               // wider than 32 bits
        {withNumber(withNumber(page, 72, 0xFFFFF880), 32, 0xFFFFADF8), 793, 1122}, // both negative
    };
    for (const auto& test : cases) {
        std::vector<unsigned char> bytes(test.page.begin(), test.page.end());
        unsigned int width = 1;
        unsigned int height = 1;
        CMetaFilePlayer::getImageSize(bytes.data(), static_cast<int>(bytes.size()), width, height);
        EXPECT_TRUE(width == test.width && height == test.height) << width << ' ' << height;
    }
}

TEST(MetafilePlayer, TellsTheLogWithoutADevice)
{
    std::string page = metafileOf({});
    const std::unique_ptr<CMetaFilePlayer> player(CMetaFilePlayer::createPlayer(
        reinterpret_cast<unsigned char*>(page.data()), static_cast<unsigned int>(page.size())));
    std::string line;
    krnSetLogSink([](const char* text, void* to) { *static_cast<std::string*>(to) = text; }, &line);
    RecordingSurface surface;
    RECT rect{0, 0, 100, 100};
    EXPECT_EQ(player->play(&surface, &rect), 0);
    krnSetLogSink(nullptr, nullptr);
    EXPECT_TRUE(line.starts_with("CMetaFilePlayerEMF::player - output device=0, emf=")) << line;
    EXPECT_TRUE(line.ends_with(", both should be non-zero")) << line;
    EXPECT_EQ(player->metaFileFormat(), 1);
}

} // namespace
