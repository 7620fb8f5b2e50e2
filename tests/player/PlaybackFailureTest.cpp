// What a player does when it cannot play: no surface, no memory.
#include "PlayedPage.h"

#include "metaFilePlayerSVG.h"

namespace {

// Runs out of memory when it is to draw.
class ExhaustedSurface : public RecordingSurface {
public:
    void drawFocusRect(RECT*) override { krnOutOfMemory(); }
};

TEST(PlaybackFailure, ExhaustedMemoryEndsThePage)
{
    const CaughtReports reports;
    ExhaustedSurface surface;
    EXPECT_EQ(playOn(surface, framed("<polyline points='' />" + mark(1) + "<polyline points='' />")), 0);
    EXPECT_EQ(surface.calls(), std::vector<std::string>({framePrepared, plainPen, "polyline []"}));
    EXPECT_EQ(reports.log,
              std::vector<std::string>(
                  {"CMetaFilePlayerSVG::player - Exception during SVG playback, exception number=-100"}));
}

TEST(PlaybackFailure, CreationWithoutMemoryThrows)
{
    unsigned char page[] = "<?xml<!DOCTYPE svg";
    kstr_setFailure(0);
    EXPECT_THROW(CMetaFilePlayer::createPlayer(page, sizeof page), KrnException);
    kstr_setFailure(-1);
}

TEST(PlaybackFailure, NothingToPlayOnOrIn)
{
    const CaughtReports reports;
    std::string page = framed(mark(1));
    const auto bytes = reinterpret_cast<unsigned char*>(page.data());
    const auto length = static_cast<unsigned int>(page.size());
    RecordingSurface surface;
    RECT rect{0, 0, 50, 60};
    EXPECT_EQ(CMetaFilePlayerSVG(bytes, length).play(nullptr, &rect), 0);
    EXPECT_EQ(CMetaFilePlayerSVG(bytes, length).play(&surface, nullptr), 0);
    EXPECT_EQ(surface.calls(), std::vector<std::string>());
    EXPECT_EQ(CMetaFilePlayerSVG(nullptr, length).play(&surface, &rect), 1);
    EXPECT_EQ(surface.calls(), std::vector<std::string>());
}

} // namespace
