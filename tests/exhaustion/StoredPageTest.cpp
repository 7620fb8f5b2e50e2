// Each request for memory fails, as above, while a stored page is played, stamped, searched, and while a surface is copied.
#include <gtest/gtest.h>

#include "exhaustion/DrawnPage.h"
#include "exhaustion/FailingMemory.h"
#include "exhaustion/everyFailure.h"
#include "metaFilePlayer.h"
#include "surfacePSPrinter.h"
#include "surfaceSVG.h"

namespace {

unsigned char* bytes(std::string& page)
{
    return reinterpret_cast<unsigned char*>(page.data());
}

bool failed()
{
    const bool any = failedRequests() > 0;
    failMemoryAfter(-1, false);
    return any;
}

// Without memory for a player there is none, or the exception.
void play(std::string& page, CSurface& surface)
{
    try {
        CMetaFilePlayer* const player =
            CMetaFilePlayer::createPlayer(bytes(page), static_cast<unsigned int>(page.size()));
        RECT rect{0, 0, 400, 300};
        if (player != nullptr) {
            player->play(&surface, &rect);
            delete player;
        }
    } catch (const KrnException&) {
        EXPECT_GT(failedRequests(), 0);
    }
}

struct Replay {
    const char* name;
    const Target* page;
    const Target* target;
};

class PlayedShort : public testing::TestWithParam<Replay> {};

TEST_P(PlayedShort, LeavesAPage)
{
    const Target& target = *GetParam().target;
    std::string page = drawnWithout(*GetParam().page, -1);
    forEveryFailure([&](const SetFailure& setFailure) {
        const std::unique_ptr<Sheet> sheet = target.make();
        setFailure();
        play(page, sheet->surface());
        const bool met = failed();
        const int closed = sheet->surface().closeSurface();
        EXPECT_TRUE(closed == 0 || (met && target.mayStop));
        if (closed == 0) {
            EXPECT_EQ("", target.faultOf(bytesOf(sheet->surface())));
        }
        return met;
    });
}

INSTANTIATE_TEST_SUITE_P(Replays, PlayedShort,
                         testing::Values(Replay{"SvgOnSvg", &SvgTarget, &SvgTarget},
                                         Replay{"SvgOnPostScript", &SvgTarget, &PostScriptTarget},
                                         Replay{"SvgOnMetafile", &SvgTarget, &MetafileTarget},
                                         Replay{"SvgOnPixels", &SvgTarget, &PixelTarget},
                                         Replay{"MetafileOnMetafile", &MetafileTarget, &MetafileTarget},
                                         Replay{"MetafileOnPixels", &MetafileTarget, &PixelTarget}),
                         [](const auto& replay) { return replay.param.name; });

class OperatedShort : public testing::TestWithParam<const Target*> {};

TEST_P(OperatedShort, StampsWhollyOrNotAtAll)
{
    const std::string page = drawnWithout(*GetParam(), -1);
    const int size = static_cast<int>(page.size());
    std::string whole = page;
    ASSERT_TRUE(CMetaFilePlayer::insertPageCount(bytes(whole), size, 1, 12));
    forEveryFailure([&](const SetFailure& setFailure) {
        std::string stamped = page;
        setFailure();
        bool done = false;
        try {
            done = CMetaFilePlayer::insertPageCount(bytes(stamped), size, 1, 12);
        } catch (const KrnException&) {
            EXPECT_GT(failedRequests(), 0);
        }
        const bool met = failed();
        EXPECT_TRUE(stamped == (done ? whole : page));
        return met;
    });
}

TEST_P(OperatedShort, FindsAllOrNothing)
{
    std::string page = drawnWithout(*GetParam(), -1);
    for (const bool wholeWord : {false, true}) {
        std::string expected;
        forEveryFailure([&](const SetFailure& setFailure) {
            unsigned int position = 0;
            unsigned int offset = 0;
            unsigned char* found = nullptr;
            unsigned int length = 0;
            int x = 0;
            int y = 0;
            setFailure();
            try {
                CMetaFilePlayer::searchPageForString(bytes(page), static_cast<unsigned int>(page.size()),
                                                     "last", false, wholeWord, position, offset, found,
                                                     length, x, y);
            } catch (const KrnException&) {
                EXPECT_GT(failedRequests(), 0);
            }
            const bool met = failed();
            const std::string marked = length != 0 ? std::string(reinterpret_cast<char*>(found), length) : "";
            CMetaFilePlayer::freeFoundPage(found);
            if (expected.empty()) {
                expected = marked;
            }
            EXPECT_TRUE(marked == expected || (met && marked.empty()));
            return met;
        });
        EXPECT_NE("", expected);
    }
}

INSTANTIATE_TEST_SUITE_P(Formats, OperatedShort, testing::Values(&SvgTarget, &MetafileTarget),
                         [](const auto& target) { return target.param->name; });

template <typename Surface>
void copyShort(const Target& target)
{
    const std::unique_ptr<Sheet> source = target.make();
    for (const Step& step : PageSteps) {
        step.run(source->surface());
    }
    const auto& drawn = dynamic_cast<const Surface&>(source->surface());
    const std::string whole = drawnWithout(target, -1);
    forEveryFailure([&](const SetFailure& setFailure) {
        const std::unique_ptr<Sheet> other = target.make();
        other->surface().drawLine(1, 2, 3, 4);
        const std::unique_ptr<Sheet> untouched = target.make();
        untouched->surface().drawLine(1, 2, 3, 4);
        untouched->surface().closeSurface();
        setFailure();
        try {
            Surface copy(drawn);
            EXPECT_EQ(0, copy.closeSurface());
            EXPECT_TRUE(whole == bytesOf(copy));
        } catch (const KrnException&) {
            EXPECT_GT(failedRequests(), 0);
        }
        bool assigned = true;
        try {
            dynamic_cast<Surface&>(other->surface()) = drawn;
        } catch (const KrnException&) {
            assigned = false;
        }
        const bool met = failed();
        other->surface().closeSurface();
        EXPECT_TRUE(bytesOf(other->surface()) == (assigned ? whole : bytesOf(untouched->surface())));
        return met;
    });
}

TEST(CopiedShort, IsTheSourceOrWhatItWas)
{
    copyShort<CSurfaceSVG>(SvgTarget);
    copyShort<CSurfacePSPrinter>(PostScriptTarget);
}

} // namespace
