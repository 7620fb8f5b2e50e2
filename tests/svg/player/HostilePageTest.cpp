// Large pages made to exhaust the stack or the clock: quadratic work would keep these tests from ending.
#include "support/PlayedPage.h"

#include "metaFilePlayerSVG.h"

#if !defined(_WIN32)
// AddressSanitizer's own strstr measures the whole text at each search, which is quadratic work too.
extern "C" SURFACE_API const char* __asan_default_options(); // NOLINT(bugprone-reserved-identifier)
const char* __asan_default_options()                         // NOLINT(bugprone-reserved-identifier)
{
    return "intercept_strstr=0";
}
#endif

namespace {

constexpr int Megabyte = 1 << 20;
constexpr int Depth = Megabyte / 8;

std::string repeated(const std::string& piece, int count)
{
    std::string text;
    while (count-- > 0) {
        text += piece;
    }
    return text;
}

// The innermost are too deep to follow. No level has a size, so each looks for one in all the rest.
TEST(HostilePage, NestedDocuments)
{
    const PlayedPage played = playPage(repeated("<svg >", 500) + mark(1) + repeated("<svg >", Depth) +
                                       mark(2) + repeated("</svg>", Depth + 500) + mark(3));
    EXPECT_EQ(played.calls,
              "prepareSurface 0x0 0x0 50x60; drawFocusRect (1, 0, 1, 0); drawFocusRect (3, 0, 3, 0)");
    EXPECT_EQ(played.log.size(), 1U);
}

TEST(HostilePage, NestedDocumentsWithoutEnd)
{
    EXPECT_EQ(playPage(repeated("<svg >", Depth)).calls, "");
    // Here each of the outer walks ends at a document that does not.
    EXPECT_EQ(playPage(repeated("<svg >", 900) + repeated("<text >", Depth) + repeated("</svg>", 900)).calls,
              "prepareSurface 0x0 0x0 50x60");
}

// What each level of nesting would look for, or read, again. Plain searches look at 200 to 1,000 bytes for each of these
// pages'.
TEST(HostilePage, IsSearchedInProportionToItsLength)
{
    constexpr int Levels = 990;
    const auto nested = [](const std::string& inner) {
        return repeated("<svg >", Levels) + inner + repeated("</svg>", Levels);
    };
    const std::string before = "<?xml ?><!DOCTYPE svg>";
    const auto closed = [&](const std::string& piece) {
        return before + repeated(piece, Depth / 8) + repeated("</svg>", Depth / 4);
    };
    const std::string pages[] = {
        nested("<svg x='" + std::string(Megabyte, '1') + "'></svg>"),
        nested("<svg y='" + std::string(Megabyte, ' ') + "'></svg>"),
        nested("<svg viewBox='0 0 " + std::string(Megabyte, '\t') + "9'></svg>"),
        nested(std::string(Megabyte, 'x')),
        closed("<svg</svg><!--<svg>"),
        closed("<svg </svg><!--<svg>"),
        closed("<svg</svg><svg>"),
    };
    for (std::string page : pages) {
        RecordingSurface surface;
        RECT rect{0, 0, 50, 60};
        const CaughtReports reports;
        CMetaFilePlayerSVG player(reinterpret_cast<unsigned char*>(page.data()),
                                  static_cast<unsigned int>(page.size()));
        player.play(&surface, &rect);
        EXPECT_LT(player.bytesSearched(), 8 * page.size()) << page.substr(0, 60);
    }
}

TEST(HostilePage, NestedDefinitions)
{
    const std::string symbols = repeated("<symbol>", Depth) + repeated("</symbol>", Depth);
    EXPECT_EQ(playPage(framed("<defs>" + symbols + "</defs>" + mark(1))).calls,
              Prepared + "drawFocusRect (1, 0, 1, 0)");
}

TEST(HostilePage, BracketsOnly)
{
    const std::string brackets(Megabyte, '<');
    EXPECT_EQ(playPage(brackets).calls, "");
    EXPECT_EQ(playPage(framed(brackets + ">" + mark(1))).calls, Prepared + "drawFocusRect (1, 0, 1, 0)");
}

TEST(HostilePage, OneLargePatternForManyShapes)
{
    const std::string pattern = "<pattern id='pattern1'>" + std::string(500000, ' ') + "</pattern>";
    const std::string shape = "<rect x='0' y='0' width='1' height='1' fill='url(#pattern1)' />";
    const std::string calls = "; setBrush rgb(0,0,0) style 2 picture 0; setPen rgb(0,0,0) style 0 width 1; "
                              "drawRectangle (0, 0, 1, 1)";
    EXPECT_TRUE(playPage(framed("<defs>" + pattern + "</defs>" + repeated(shape, 20000))).calls ==
                "prepareSurface 100x200 210x297 50x60" + repeated(calls, 20000));
}

} // namespace
