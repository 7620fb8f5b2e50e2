// Large pages made to exhaust the stack or the clock: quadratic work would keep these tests from ending.
#include "PlayedPage.h"

namespace {

constexpr int megabyte = 1 << 20;

std::string repeated(const std::string& piece, int count)
{
    std::string text;
    while (count-- > 0) {
        text += piece;
    }
    return text;
}

TEST(HostilePage, NestedDocuments)
{
    constexpr int depth = megabyte / 6;
    // Only the nested ones have a size: each level asks the whole rest for the keys that its head lacks.
    const std::string page = repeated("<svg >", 500) + mark(1) + repeated("<svg >", depth) + mark(2) +
                             repeated("</svg>", depth + 500);
    const PlayedPage played = playPage(page);
    EXPECT_EQ(played.result, 1);
    EXPECT_EQ(played.calls.size(), 2U);
    EXPECT_EQ(played.calls.back(), marked(1));
    EXPECT_EQ(played.log.size(), 1U);
}

TEST(HostilePage, NestedDocumentsThatDoNotEnd)
{
    constexpr int depth = megabyte / 6;
    EXPECT_EQ(playPage(repeated("<svg >", depth)).calls, std::vector<std::string>());
    // Each level of the first 900 has an end and a walk that then finds a document without one.
    const PlayedPage played =
        playPage(repeated("<svg >", 900) + repeated("<svg ", depth) + ">" + repeated("</svg>", 900));
    EXPECT_EQ(played.result, 1);
}

TEST(HostilePage, NestedDefinitions)
{
    constexpr int depth = megabyte / 10;
    const PlayedPage played = playPage(
        framed("<defs>" + repeated("<symbol>", depth) + repeated("</symbol>", depth) + "</defs>" + mark(1)));
    EXPECT_EQ(played.calls, std::vector<std::string>({framePrepared, marked(1)}));
}

TEST(HostilePage, BracketsOnly)
{
    const std::string brackets(megabyte, '<');
    EXPECT_EQ(playPage(brackets).result, 1);
    EXPECT_EQ(playPage(framed(brackets)).calls, std::vector<std::string>({framePrepared}));
    EXPECT_EQ(playPage(framed(brackets + ">" + mark(1))).calls,
              std::vector<std::string>({framePrepared, marked(1)}));
}

TEST(HostilePage, OneLargePatternForManyShapes)
{
    constexpr int shapes = 20000;
    const std::string pattern = "<pattern id='pattern1'>" + std::string(500000, ' ') + "</pattern>";
    const std::string shape = "<rect x='0' y='0' width='1' height='1' fill='url(#pattern1)' />";
    const PlayedPage played = playPage(framed("<defs>" + pattern + "</defs>" + repeated(shape, shapes)));
    EXPECT_EQ(played.calls.size(), 1U + 3U * shapes);
    EXPECT_EQ(played.calls[1], "setBrush rgb(0,0,0) style 2 picture 0");
}

} // namespace
