// The page count that is stamped into a metafile page, its size, and what play says without a device.
#include "MetafileBuilder.h"
#include "RecordingSurface.h"
#include "metaFilePlayerEMF.h"
#include "sys/krnutil.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <sstream>

namespace {

// Page 7 of 12, in a buffer of exactly the page's length; the records afterwards.
std::vector<std::string> stamped(const std::vector<std::string>& records, bool found = true)
{
    const std::string page = metafileOf(records);
    std::vector<unsigned char> bytes(page.begin(), page.end());
    EXPECT_EQ(CMetaFilePlayer::insertPageCount(bytes.data(), static_cast<int>(bytes.size()), 7, 12), found);
    return recordsOf({bytes.begin(), bytes.end()});
}

TEST(MetafileStamp, GoesToTheNextTextWithRoom)
{
    const std::string word(299, 'w');
    const struct {
        const char* texts; // those after a marker begin with "!"
        std::string stamped;
        const char* word = "of";
    } cases[] = {
        {"!page x of y", "7.of.12/"},
        {"!  of y", "12/"},
        {"!1234567/1234567", "7.of.12/1234567/"},
        {"!123456/1234567", "123456/7.of.12/"},
        {"!/ /  ", "/./12/"},
        {"!12345678/!12345678", "7.of.12/7.of.12/"},
        {"!12345678", "7.of.12/", nullptr},
        {word.c_str(), word + '/'},
    };
    for (const auto& [texts, expected, between] : cases) {
        for (const bool wide : {false, true}) {
            std::vector<std::string> records;
            std::istringstream lines(texts);
            for (std::string text; std::getline(lines, text, '/');) {
                if (text[0] == '!') {
                    records.insert(records.end(), 2, markerRecord(0, 90));
                    text.erase(0, 1);
                }
                records.push_back(textRecord(5, 6, text, wide));
            }
            krnSetMessageText(15301, between);
            std::string after;
            for (const std::string& record : stamped(records, texts[0] == '!')) {
                after += numberAt(record, 0) == numberAt(records.back(), 0) ? charactersOf(record) + '/' : "";
            }
            EXPECT_EQ(after, expected);
        }
    }
    krnSetMessageText(15301, word.c_str());
    EXPECT_EQ(charactersOf(stamped({markerRecord(0, 9), textRecord(0, 0, std::string(310, 'x'))})[2]),
              "7." + word + ".12");
    krnSetMessageText(15301, "of");
}

std::string fontRecord(DWORD number)
{
    LOGFONTW font{};
    font.lfHeight = -5 * static_cast<int>(number);
    std::copy_n(u"DejaVu Sans", 11, font.lfFaceName);
    return recordOf(EMR_EXTCREATEFONTINDIRECTW, bytesOf(number) + bytesOf(font));
}

// The advances of "7 of 12" over sevens, and its width after them.
std::vector<int> measuresIn(DWORD number)
{
    LOGFONTW font{};
    std::memcpy(&font, fontRecord(number).data() + 12, sizeof(font));
    const HDC screen = GetDC(nullptr);
    const HFONT made = CreateFontIndirectW(&font);
    const HGDIOBJ before = SelectObject(screen, made);
    std::vector<INT> measures(8, 7);
    SIZE size{};
    INT fit = 0;
    GetTextExtentExPointA(screen, "7 of 12", 7, 400, &fit, measures.data(), &size);
    SelectObject(screen, before);
    DeleteObject(made);
    ReleaseDC(nullptr, screen);
    std::adjacent_difference(measures.begin(), measures.end() - 1, measures.begin());
    measures.back() = size.cx;
    return measures;
}

std::string select(DWORD number)
{
    return recordOf(EMR_SELECTOBJECT, bytesOf(number));
}

TEST(MetafileStamp, SpacesAndAlignsTheText)
{
    const std::string font = fontRecord(4);
    const std::string larger = fontRecord(6);
    const std::string last = fontRecord(99);
    const std::string beyond = fontRecord(100); // too high for its text to fit the measure
    const std::string cut = withNumber(font, 4, 100).substr(0, 100);
    const struct {
        std::vector<std::string> objects;
        DWORD font; // 0: nothing is spaced or moved
        POINTL band{0, 80};
        char alignment = 'l';
        DWORD advances = 88; // their offset
    } cases[] = {
        {{}, 0},
        {{cut}, 0},
        {{font, select(ENHMETA_STOCK_OBJECT + 13), select(5)}, 4},
        {{font, larger, select(4)}, 4},
        {{font, beyond}, 100},
        {{last, beyond, font, select(100), select(99)}, 99},
        {{last, beyond, font, select(100)}, 4},
        {{font, larger, recordOf(EMR_DELETEOBJECT, bytesOf(DWORD{4})), select(4)}, 6},
        {{font}, 4, {-10, 150}, 'c'},
        {{font}, 4, {-10, 90}, 'r'},
        {{font}, 4, {1, 150}},
        {{font}, 4, {-10, 150}, 'c', 0},
        {{font}, 4, {-10, 90}, 'r', 100},
    };
    for (auto [records, number, band, alignment, offset] : cases) {
        records.push_back(markerRecord(band.x, band.y));
        records.push_back(withNumber(textRecord(0, 6, "123456789"), 72, offset));
        const std::string text = stamped(records)[records.size()];
        const std::vector<int> measures = measuresIn(number);
        RECTL bounds{0, 6, 89, 15};
        if (alignment == 'c') {
            bounds = {(band.y - band.x - measures[7]) / 2 + band.x, 6, band.y, 15};
        } else if (alignment == 'r') {
            bounds.left = bounds.right - measures[7];
        }
        std::string expected;
        for (std::size_t i = 0; i < 9; ++i) {
            expected += bytesOf(number != 0 && offset == 88 && i < 7 ? measures[i] : 7);
        }
        EXPECT_EQ(text.substr(8, 16), bytesOf(bounds)) << alignment << number;
        EXPECT_EQ(text.substr(36, 8), bytesOf(POINTL{bounds.left, 6}));
        EXPECT_EQ(text.substr(88), expected);
    }
}

TEST(MetafileSize, IsThatOfTheFrameInPixels)
{
    const std::string page = metafileOf({});
    const std::string tooWide = withNumber(withNumber(page, 24, 0x80000000), 80, 1);
    const std::pair<std::string, unsigned int> cases[] = {{page, 793},
                                                          {page.substr(0, 88), 793},
                                                          {page.substr(0, 87), 0},
                                                          {withNumber(page, 72, 0), 0},
                                                          {tooWide, 0}};
    for (auto [bytes, expected] : cases) {
        unsigned int size[] = {0, 0};
        CMetaFilePlayer::getImageSize(reinterpret_cast<unsigned char*>(bytes.data()),
                                      static_cast<int>(bytes.size()), size[0], size[1]);
        EXPECT_EQ(size[0], expected);
    }
}

TEST(MetafilePlayer, TellsTheLogWithoutADevice)
{
    std::string page = metafileOf({});
    CMetaFilePlayerEMF player(reinterpret_cast<unsigned char*>(page.data()), 0);
    std::string line;
    krnSetLogSink([](const char* text, void* to) { *static_cast<std::string*>(to) = text; }, &line);
    RecordingSurface surface;
    RECT rect{0, 0, 100, 100};
    EXPECT_EQ(player.play(&surface, &rect), 0);
    krnSetLogSink(nullptr, nullptr);
    EXPECT_EQ(line, "CMetaFilePlayerEMF::player - output device=0, emf=0, both should be non-zero");
}

} // namespace
