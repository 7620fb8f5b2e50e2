#include "exhaustion/everyFailure.h"

#include <exception>
#include <string>

#include <gtest/gtest.h>

#include "exhaustion/FailingMemory.h"
#include "moduleUse.h"
#include "sys/krnos.h"

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr long Stride = 5; // sanitized runs take longer; a prime number, so that neighbours differ
#else
constexpr long Stride = 1;
#endif

ModuleUse use()
{
    ModuleUse now;
    surfaceModuleUse(&now);
    return now;
}

void ignoreLine(const char* /*line*/, void* /*context*/) {}

// One round; gives whether a request failed.
bool runRound(const std::function<bool(const SetFailure&)>& work, long served, bool lasting)
{
    const ModuleUse before = use();
    bool met = true;
    try {
        met = work([=] { failMemoryAfter(served, lasting); });
    } catch (const KrnException&) {
        EXPECT_GT(failedRequests(), 0) << "thrown with all memory there";
    } catch (const std::exception& foreign) {
        ADD_FAILURE() << foreign.what();
    }
    failMemoryAfter(-1, false);
    const ModuleUse after = use();
    EXPECT_EQ(before.moduleBlocks, after.moduleBlocks);
    EXPECT_EQ(before.containerBlocks, after.containerBlocks);
    EXPECT_EQ(before.drawingObjects, after.drawingObjects);
    return met;
}

} // namespace

void forEveryFailure(const std::function<bool(const SetFailure&)>& work)
{
    constexpr int MostFaults = 20; // that one run lists
    krnSetLogSink(ignoreLine, nullptr);
    work([] {}); // makes the faces and tables that stay
    long failures = 0;
    int faults = 0;
    for (const bool lasting : {false, true}) {
        bool met = true;
        for (long served = 0; met && faults < MostFaults; served += Stride) {
            const int partsBefore =
                testing::UnitTest::GetInstance()->current_test_info()->result()->total_part_count();
            met = runRound(work, served, lasting);
            failures += met ? 1 : 0;
            if (testing::UnitTest::GetInstance()->current_test_info()->result()->total_part_count() >
                partsBefore) {
                ++faults;
                ADD_FAILURE() << "when " << served << " requests were served and "
                              << (lasting ? "all others" : "one") << " failed";
            }
        }
    }
    krnSetLogSink(nullptr, nullptr);
    testing::Test::RecordProperty("failures", std::to_string(failures));
    EXPECT_GT(failures, 0);
}
