// Message texts, error texts, the code page, and the lock.
#include "sys/krnos.h"
#include "sys/krnutil.h"

#include <string>
#include <thread>

#include <gtest/gtest.h>

namespace {

TEST(MessageText, IsTheHostsWhereItGaveOne)
{
    char buffer[300];
    EXPECT_EQ(krnGetMessageText(15301, buffer, sizeof buffer), 0);
    EXPECT_STREQ(buffer, "of");
    krnSetMessageText(15301, "von insgesamt");
    EXPECT_EQ(krnGetMessageText(15301, buffer, 4), 0);
    EXPECT_STREQ(buffer, "von");
    krnSetMessageText(15301, nullptr);
    EXPECT_NE(krnGetMessageText(15301, buffer, sizeof buffer), 0);
    EXPECT_STREQ(buffer, "");
    krnSetMessageText(15301, "of");
    EXPECT_NE(krnGetMessageText(1, buffer, sizeof buffer), 0);
    EXPECT_NE(krnGetMessageText(15301, nullptr, 300), 0);
    EXPECT_NE(krnGetMessageText(15301, buffer, 0), 0);
}

TEST(ErrorText, IsNeverNull)
{
    char buffer[3024];
    EXPECT_STREQ(kosGetErrorText(8, buffer, sizeof buffer), "Not enough memory");
    EXPECT_STREQ(kosGetErrorText(8, buffer, 4), "Not");
    EXPECT_STREQ(kosGetErrorText(-7, buffer, sizeof buffer), "Unknown error -7");
    EXPECT_STRNE(kosGetErrorText(-7, nullptr, 10), "");
}

TEST(CodePage, ComesBackInEveryCharacter)
{
    std::string all;
    for (int value = 1; value < 256; ++value) {
        all += static_cast<char>(value);
    }
    unsigned short wide[300];
    char narrow[300];
    EXPECT_EQ(intlCStringToUnicode(all.c_str(), wide, 300), 255);
    EXPECT_EQ(wide[0x80 - 1], 0x20AC);
    EXPECT_EQ(wide[0x9F - 1], 0x0178);
    EXPECT_EQ(wide[0xE9 - 1], 0x00E9);
    EXPECT_EQ(wide[255], 0);
    EXPECT_EQ(intlUnicodeToCString(wide, narrow, 300), 255);
    EXPECT_EQ(narrow, all);
}

TEST(CodePage, CutsAndReplaces)
{
    const unsigned short wide[] = {'a', 0x80, 0x3B1, 0xD83D, 0xDE00, 0};
    char narrow[] = "xxxxxxxx";
    EXPECT_EQ(intlUnicodeToCString(wide, narrow, 8), 5);
    EXPECT_STREQ(narrow, "a????");
    EXPECT_EQ(intlUnicodeToCString(wide, narrow, 2), 1);
    EXPECT_STREQ(narrow, "a");
    EXPECT_EQ(intlUnicodeToCString(wide, narrow, 0), 0);
    EXPECT_STREQ(narrow, "a");
    unsigned short target[2] = {7, 7};
    EXPECT_EQ(intlCStringToUnicode("ab", target, 1), 0);
    EXPECT_EQ(target[0], 0);
    EXPECT_EQ(target[1], 7);
    EXPECT_EQ(intlCStringToUnicode(nullptr, target, 2), 0);
}

TEST(ThreadMutex, LetsOneThreadInAndThatOneAgain)
{
    ThreadMutex__ mutex("DrawTextLock");
    EXPECT_FALSE(mutex.relinquish());
    int counter = 0;
    const auto count = [&] {
        for (int round = 0; round < 20000; ++round) {
            mutex.acquire();
            mutex.acquire();
            mutex.relinquish();
            ++counter;
            mutex.relinquish();
        }
    };
    std::thread other(count);
    count();
    other.join();
    EXPECT_EQ(counter, 40000);

    EXPECT_TRUE(mutex.acquire());
    std::thread([&] { EXPECT_FALSE(mutex.relinquish()); }).join();
    EXPECT_TRUE(mutex.relinquish());
    EXPECT_FALSE(mutex.relinquish());
}

} // namespace
