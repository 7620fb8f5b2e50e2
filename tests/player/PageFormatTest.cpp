// Telling a page's format from its bytes, and the operations on pages that are of none.
#include "PlayedPage.h"

#include "metaFilePlayer.h"

#include <algorithm>
#include <memory>

using namespace std::string_literals;

namespace {

const std::string metafileHead = "\1\0\0\0"s + std::string(36, 'x') + " EMF";

struct FormatCase {
    std::string page;
    int format;
};

const FormatCase formats[] = {
    {"", 0},
    {metafileHead, 1},
    {metafileHead + "<?xml<!DOCTYPE svg", 1},
    {metafileHead.substr(0, 43), 0}, // a head that ends before its signature does
    {"\1\0\0\0"s, 0},
    {"\1\0\0\0<?xml<!DOCTYPE svg"s, 2},
    {metafileHead.substr(0, 40) + "EMF <!DOCTYPE svg<?xml", 2},
    {"<?xml version='1.0'?><!DOCTYPE svg PUBLIC>", 2},
    {"<!DOCTYPE svg<?xml", 2},          // wherever the marks stand
    {"\0\0<?xml\0\0<!DOCTYPE svg"s, 2}, // zero bytes do not end the search
    {"<?xml\0<!DOCTYPE\0svg"s, 0},
    {"<?xml version='1.0'?>", 0},
    {"<!DOCTYPE svg>", 0},
    {"<?xml<!doctype svg", 0},
    {"<?xml<!DOCTYPE sv", 0}, // the last byte is missing: nothing stands behind the buffer
};

TEST(PageFormat, IsToldByTheBytes)
{
    for (const FormatCase& expected : formats) {
        const auto bytes = std::make_unique<unsigned char[]>(expected.page.size());
        std::copy(expected.page.begin(), expected.page.end(), bytes.get());
        const auto length = static_cast<unsigned int>(expected.page.size());
        EXPECT_EQ(CMetaFilePlayer::getMetaFileFormat(bytes.get(), length), expected.format) << expected.page;
    }
}

TEST(PageFormat, IsUnknownForNoPage)
{
    unsigned char page[] = "<?xml<!DOCTYPE svg";
    EXPECT_EQ(CMetaFilePlayer::getMetaFileFormat(nullptr, 18), 0);
    for (const unsigned int length :
         {0U, 0x80000000U, 0xFFFFFFFFU}) { // as signed numbers 0 and negative ones
        EXPECT_EQ(CMetaFilePlayer::getMetaFileFormat(page, length), 0);
    }
}

TEST(PageFormat, MakesThePlayerOfASvgPage)
{
    std::string page = "<?xml?><!DOCTYPE svg>" + framed("");
    const std::unique_ptr<CMetaFilePlayer> player(CMetaFilePlayer::createPlayer(
        reinterpret_cast<unsigned char*>(page.data()), static_cast<unsigned int>(page.size())));
    ASSERT_NE(player, nullptr);
    EXPECT_EQ(player->metaFileFormat(), 2);
}

TEST(PageFormat, UnknownPagesAreRefusedWithALogLine)
{
    const CaughtReports reports;
    unsigned char page[] = "no page";
    unsigned int width = 7;
    unsigned int height = 7;
    unsigned int position = 1;
    unsigned int offset = 2;
    unsigned char* found = page;
    unsigned int foundLength = 3;
    int x = 4;
    int y = 5;

    EXPECT_EQ(CMetaFilePlayer::createPlayer(page, 7), nullptr);
    EXPECT_FALSE(CMetaFilePlayer::insertPageCount(page, 7, 1, 2));
    CMetaFilePlayer::getImageSize(page, 7, width, height);
    EXPECT_EQ(CMetaFilePlayer::searchPageForString(page, 7, "page", true, true, position, offset, found,
                                                   foundLength, x, y),
              0);

    EXPECT_STREQ(reinterpret_cast<char*>(page), "no page");
    EXPECT_EQ(std::vector({width, height}), std::vector({0U, 0U}));
    EXPECT_EQ(std::vector({position, offset, foundLength}), std::vector({1U, 2U, 3U}));
    EXPECT_EQ(found, page);
    EXPECT_EQ(std::vector({x, y}), std::vector({4, 5}));
    EXPECT_EQ(reports.log, std::vector<std::string>({
                               "CMetaFilePlayer::createPlayer Unknown meta file format 0",
                               "CMetaFilePlayer::insertPageCount Unknown meta file format 0",
                               "CMetaFilePlayer::getImageSize Unknown meta file format 0",
                               "CMetaFilePlayer::searchPageForString Unknown meta file format 0",
                           }));
}

} // namespace
