// The log, the assertions, and what of the platform several threads use at once.
#include "sys/krnos.h"
#include "sys/tovostr.h"

#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

namespace {

class Log : public testing::Test {
protected:
    void TearDown() override
    {
        krnSetLogSink(nullptr, nullptr);
        kosSetAssertHandler(nullptr, nullptr);
    }

    void keepLines() { krnSetLogSink(keepLine, &m_lines); }

    KrnLog m_log{"surface", nullptr, true, true};
    std::vector<std::string> m_lines;

private:
    static void keepLine(const char* line, void* context)
    {
        static_cast<std::vector<std::string>*>(context)->emplace_back(line);
    }
};

TEST_F(Log, GoesToTheSinkBareAndToStandardErrorNamed)
{
    for (const std::size_t length : {511U, 512U, 513U, 1024U}) {
        const std::string text(length, 'x');
        testing::internal::CaptureStderr();
        EXPECT_EQ(m_log.log("%s", text.c_str()), static_cast<int>(length));
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "surface: " + text + '\n');
        keepLines();
        m_log.log("%s", text.c_str());
        krnSetLogSink(nullptr, nullptr);
        EXPECT_EQ(m_lines.back(), text);
    }
}

TEST_F(Log, IsOneLineWhateverTheTextHolds)
{
    keepLines();
    m_log.log("page %.1f\r\n%s", 0.5, "surface: forged");
    EXPECT_EQ(m_lines, std::vector<std::string>{"page 0.5  surface: forged"});
}

TEST_F(Log, TellsOfAssertionsOnlyWithoutAHandler)
{
    keepLines();
    kosAssertFail("Assertion failed", "a == b", "surface", "source\\X", 12);
    EXPECT_EQ(m_lines, std::vector<std::string>{"Assertion failed: a == b (source\\X, line 12)"});

    std::string heard;
    kosSetAssertHandler(
        [](const char* caption, const char* expression, const char* module, const char* file, int line,
           void* context) {
            *static_cast<std::string*>(context) = std::string(caption) + '|' + expression + '|' + module +
                                                  '|' + file + '|' + std::to_string(line);
        },
        &heard);
    kosAssertFail("Assertion failed", "false", "surface", nullptr, 3);
    EXPECT_EQ(heard, "Assertion failed|false|surface||3");
    EXPECT_EQ(m_lines.size(), 1U);
}

TEST_F(Log, StandsWithHeapAndStringsInManyThreads)
{
    keepLines();
    XHeap heap("SRF", 0, 65535, true, 768, 0);
    const auto work = [this, &heap](int number) {
        TovoTextString text;
        char piece[32];
        for (int round = 0; round < 500; ++round) {
            void* const block = heap.alloc(0, false);
            intlSprintf(piece, "%d:%.2f,", number, 0.25);
            text.append(piece);
            heap.free(block);
            heap.free(nullptr);
            m_log.log("%s", text.text());
        }
    };
    std::thread threads[] = {std::thread(work, 1), std::thread(work, 2), std::thread(work, 3)};
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(heap.blocksInUse(), 0U);
    ASSERT_EQ(m_lines.size(), 1500U);
    for (const std::string& line : m_lines) {
        ASSERT_EQ(line.size() % 7, 0U);
        ASSERT_EQ(line.substr(7), line.substr(0, line.size() - 7));
    }
}

} // namespace
