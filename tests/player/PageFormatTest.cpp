// The way into a player: telling a page's format from its bytes, and what happens when nothing can be played.
#include "support/PlayedPage.h"

#include "metaFilePlayerSVG.h"

#include <memory>

using namespace std::string_literals;

namespace {

const std::string Metafile = "\1\0\0\0"s + std::string(36, 'x') + " EMF";
const std::string BothMarks = "<?xml ?><!DOCTYPE svg";

TEST(PageFormat, IsToldByTheBytes)
{
    const std::pair<std::string, int> formats[] = {
        {"", 0},
        {Metafile + BothMarks, 1},
        {Metafile.substr(0, 43), 0}, // a head that ends before its signature does
        {Metafile.substr(0, 40) + "EMF " + BothMarks, 2},
        {"<!DOCTYPE svg<?xml", 2},        // wherever the marks are
        {"\0<?xml\0\0<!DOCTYPE svg"s, 2}, // zero bytes do not end the search
        {"<!DOCTYPE svg", 0},
        {"<?xml<!DOCTYPE sv", 0}, // nothing is after the buffer
    };
    for (const auto& [page, format] : formats) {
        std::vector<unsigned char> bytes(page.begin(), page.end()); // exactly as long as the page
        const auto length = static_cast<unsigned int>(page.size());
        EXPECT_EQ(CMetaFilePlayer::getMetaFileFormat(bytes.data(), length), format) << page;
    }
    unsigned char page[] = "<?xml<!DOCTYPE svg";
    for (const unsigned int length : {0U, 0x80000000U, 0xFFFFFFFFU}) { // as signed numbers 0 and less
        EXPECT_EQ(CMetaFilePlayer::getMetaFileFormat(page, length), 0);
    }
    EXPECT_EQ(CMetaFilePlayer::getMetaFileFormat(nullptr, sizeof page), 0);
}

TEST(PageFormat, UnknownPagesAreRefusedWithALogLine)
{
    const CaughtReports reports;
    unsigned char page[] = "no page";
    unsigned int n[] = {1, 2, 3, 4, 5};
    unsigned char* found = page;
    int x = 6;
    int y = 7;
    EXPECT_EQ(CMetaFilePlayer::createPlayer(page, 7), nullptr);
    EXPECT_FALSE(CMetaFilePlayer::insertPageCount(page, 7, 1, 2));
    CMetaFilePlayer::getImageSize(page, 7, n[0], n[1]);
    EXPECT_EQ(
        CMetaFilePlayer::searchPageForString(page, 7, "page", true, true, n[2], n[3], found, n[4], x, y), 0);
    EXPECT_EQ(std::vector(std::begin(n), std::end(n)), std::vector({0U, 0U, 3U, 4U, 5U}));
    EXPECT_TRUE(found == page && x == 6 && y == 7);
    std::vector<std::string> expected;
    for (const char* operation : {"createPlayer", "insertPageCount", "getImageSize", "searchPageForString"}) {
        expected.push_back("CMetaFilePlayer::"s + operation + " Unknown meta file format 0");
    }
    EXPECT_EQ(reports.log, expected);
}

TEST(Playback, NeedsMemoryASurfaceAndARectangle)
{
    const CaughtReports reports;
    std::string page = BothMarks + ">" + framed(mark(1));
    const auto bytes = reinterpret_cast<unsigned char*>(page.data());
    const auto length = static_cast<unsigned int>(page.size());
    RecordingSurface surface;
    RECT rect{};
    kstr_setFailure(0);
    EXPECT_THROW(CMetaFilePlayer::createPlayer(bytes, length), KrnException);
    kstr_setFailure(-1);
    const std::unique_ptr<CMetaFilePlayer> player(CMetaFilePlayer::createPlayer(bytes, length));
    ASSERT_NE(player, nullptr);
    EXPECT_EQ(player->metaFileFormat(), 2);
    EXPECT_EQ(player->play(nullptr, &rect), 0);
    EXPECT_EQ(player->play(&surface, nullptr), 0);
    EXPECT_EQ(CMetaFilePlayerSVG(nullptr, length).play(&surface, &rect), 1);
    EXPECT_EQ(surface.text(), "");
}

TEST(Playback, ExhaustedMemoryEndsThePage)
{
    class ExhaustedSurface : public RecordingSurface {
        void drawFocusRect(RECT*) override { krnOutOfMemory(); }
    };
    const CaughtReports reports;
    ExhaustedSurface surface;
    EXPECT_EQ(playOn(surface, "<polyline points='' />" + mark(1) + "<polyline points='' />"), 0);
    EXPECT_EQ(surface.text(), "setPen rgb(0,0,0) style 0 width 1\npolyline []\n");
    EXPECT_EQ(reports.log, std::vector({"CMetaFilePlayerSVG::player - Exception during SVG playback, "
                                        "exception number=-100"s}));
}

} // namespace
