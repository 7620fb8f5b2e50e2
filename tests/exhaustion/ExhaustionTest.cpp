// Each request for memory fails once, and from there on until its call ends, while a page of all operations is drawn. What
// closeSurface then gives is the page with or without the call that failed, never with half of it.
#include <map>

#include <gtest/gtest.h>

#include "exhaustion/DrawnPage.h"
#include "exhaustion/FailingMemory.h"
#include "exhaustion/everyFailure.h"

namespace {

// How a call ended under a failure.
enum class End { Served, Failed, Thrown };

End runShort(const std::function<void()>& call)
{
    End end = End::Served;
    try {
        call();
    } catch (const KrnException&) {
        end = End::Thrown;
    }
    if (failedRequests() > 0) {
        failMemoryAfter(-1, false);
        return end == End::Thrown ? end : End::Failed;
    }
    EXPECT_EQ(End::Served, end) << "thrown with all memory there";
    return end;
}

// The pages that the steps make when one is left out; -1: none.
class Pages {
public:
    explicit Pages(const Target& target) : m_target(target) {}
    const std::string& without(int left)
    {
        const auto known = m_pages.find(left);
        return known != m_pages.end() ? known->second
                                      : m_pages.emplace(left, drawnWithout(m_target, left)).first->second;
    }

private:
    const Target& m_target;
    std::map<int, std::string> m_pages;
};

std::string nameOf(int step)
{
    const auto index = static_cast<std::size_t>(step);
    return step < 0 ? "nothing" : index < PageSteps.size() ? PageSteps[index].name : "closeSurface";
}

// Draws the page and gives whether a request failed.
bool drawShort(const Target& target, Pages& pages, const SetFailure& setFailure)
{
    const std::unique_ptr<Sheet> sheet = target.make();
    setFailure();
    const int steps = static_cast<int>(PageSteps.size());
    int failed = -1;
    End end = End::Served;
    for (int step = 0; step < steps && failed < 0; ++step) {
        const auto run = [&] {
            PageSteps[static_cast<std::size_t>(step)].run(sheet->surface());
        };
        end = runShort(run);
        if (end != End::Served) {
            failed = step;
            for (int later = step + 1; later < steps; ++later) {
                PageSteps[static_cast<std::size_t>(later)].run(sheet->surface());
            }
        }
    }
    int closed = -1;
    if (const End closing = runShort([&] { closed = sheet->surface().closeSurface(); });
        closing != End::Served) {
        failed = steps;
        end = closing;
        if (closed != 0) {
            closed = sheet->surface().closeSurface();
        }
    }
    failMemoryAfter(-1, false);
    const std::string page = bytesOf(sheet->surface());
    if (closed != 0) {
        EXPECT_TRUE(failed >= 0 && target.mayStop && page.empty()) << nameOf(failed);
        return true;
    }
    EXPECT_EQ("", target.faultOf(page)) << nameOf(failed);
    // A picture that has no memory to be converted in does not appear, and nobody is told.
    if (target.exact && end != End::Failed) {
        EXPECT_TRUE(page == pages.without(-1) || page == pages.without(failed)) << nameOf(failed);
    }
    return failed >= 0;
}

class Exhaustion : public testing::TestWithParam<const Target*> {};

TEST_P(Exhaustion, LeavesThePageWithOrWithoutTheFailedCall)
{
    const Target& target = *GetParam();
    Pages pages(target);
    forEveryFailure([&](const SetFailure& setFailure) { return drawShort(target, pages, setFailure); });
}

INSTANTIATE_TEST_SUITE_P(Targets, Exhaustion,
                         testing::Values(&SvgTarget, &PostScriptTarget, &MetafileTarget, &PixelTarget),
                         [](const auto& target) { return target.param->name; });

} // namespace
