// The strings: the growth rule, content that moves with its buffer, positions at the edges, memory that ends.
#include "sys/tovostr.h"

#include <cstdint>
#include <functional>
#include <new>
#include <string>

#include <gtest/gtest.h>

namespace {

constexpr unsigned int Maximum = 0xFFFFFFFFU;

std::string contentOf(const TovoTextString& text)
{
    return {text.text(), text.length()};
}

// What every live string promises, whatever was done to it.
void expectSound(const TovoTextString& text)
{
    EXPECT_TRUE(text.capacity() == 0 ? text.text() == kstr_null_string && text.isEmpty()
                                     : text.length() < text.capacity() && text.text()[text.length()] == 0 &&
                                           text.text()[text.capacity() - 1] == 0);
}

TEST(TextString, GrowsToTheNextMultipleOf64AboveTheLength)
{
    const unsigned int cases[][2] = {{63, 64}, {64, 128}, {128, 192}, {8192, 8256}};
    for (const auto& [length, capacity] : cases) {
        const std::string bytes(length, 'x');
        TovoTextString text;
        text.append(bytes.c_str());
        TovoTextString composed(TextRoom{length});
        bytes.copy(composed.room(length), length);
        composed.grow(length);
        for (const TovoTextString& copy : {text, composed}) {
            EXPECT_EQ(copy.capacity(), capacity) << length;
            EXPECT_EQ(contentOf(copy), bytes);
            expectSound(copy);
        }
        EXPECT_TRUE(text.capacity() == capacity && composed.capacity() == capacity) << length;
    }
}

TEST(TextString, StandsOnTheSharedEmptyStringUntilThereIsContent)
{
    TovoTextString text;
    text.append("", 0);
    text.assign(nullptr, 5);
    text.toLower();
    text.truncate(1);
    text.append(TovoTextString(nullptr, 7));
    EXPECT_EQ(text.text(), kstr_null_string);
    text.assign("abc", 3);
    text.assign("abc", 0);
    EXPECT_EQ(text.capacity(), 64U);
    expectSound(text);
    text.setLength(0);
    EXPECT_EQ(text.text(), kstr_null_string);
    expectSound(text);
}

TEST(TextString, AppendsAndAssignsPiecesOfItself)
{
    TovoTextString text("0123456789");
    std::string expected = contentOf(text);
    for (int round = 0; round < 12; ++round) {
        expected += expected.substr(3);
        text.append(text.text() + 3, text.length() - 3);
        ASSERT_EQ(contentOf(text), expected);
    }
    text.assign(text.text() + 5, 20);
    EXPECT_EQ(contentOf(text), expected.substr(5, 20));
    expectSound(text);
}

TEST(TextString, CutsAndFindsAtTheEdges)
{
    const TovoTextString text("hello");
    EXPECT_EQ(contentOf(text.mid(-2, 2) + text.mid(1, 3) + text.mid(3, 9)), "heelllo");
    EXPECT_EQ(contentOf(text.mid(5, 1) + text.mid(6, 1) + text.mid(2, -1) + text.mid(5) + text.mid(6)), "");
    EXPECT_EQ(contentOf(text.left(0) + text.left(9) + text.left(-1) + text.mid(3)), "hellolo");

    const TovoTextString cut("ab\0ab", 5);
    EXPECT_EQ(cut.find("ab", -1), 0);
    EXPECT_EQ(cut.find("ab", 1), -1);
    EXPECT_EQ(cut.find("ab", 3), 3);
    EXPECT_EQ(cut.find("", 5), 5);
    EXPECT_EQ(cut.find("", 6), -1);

    TovoTextString shortened(text);
    shortened.truncate(-1);
    shortened.truncate(2);
    EXPECT_EQ(contentOf(shortened), "hel");
    shortened.truncate(4);
    EXPECT_TRUE(shortened.isEmpty());
    expectSound(shortened);
}

TEST(TextString, MovesTheBuffer)
{
    TovoTextString source("moved");
    TovoTextString target("old");
    target = std::move(source);
    EXPECT_EQ(contentOf(TovoTextString(std::move(target))), "moved");
}

[[gnu::noinline]] void destroy(TovoTextString* text)
{
    text->~TovoTextString();
}

TEST(TextString, ShowsUseAfterDestruction)
{
    alignas(TovoTextString) unsigned char place[sizeof(TovoTextString)];
    destroy(new (place) TovoTextString("gone"));
    std::uintptr_t first = 0;
    std::memcpy(&first, place, sizeof first);
    EXPECT_EQ(first, 0xBAADF00DU);
}

TEST(BinaryString, CountsBytesAndLeavesSamplesUnterminated)
{
    TovoBinaryString bytes("a\0b", 3);
    bytes.append("\0c", 2);
    EXPECT_EQ(std::string(bytes.data(), bytes.length() + 1), std::string("a\0b\0c\0", 6));
    bytes.assignSamples("xy", 2);
    EXPECT_EQ(std::string(bytes.data(), 5), std::string("xyb\0c", 5));
    EXPECT_EQ(bytes.length(), 2U);
}

TEST(TextString, IsUnchangedWhenMemoryEnds)
{
    using Action = std::function<void(TovoTextString&)>;
    const Action growing[] = {[](TovoTextString& t) { t.assign(std::string(100, 'm').data(), 100); },
                              [](TovoTextString& t) { t.append("more than fits"); },
                              [](TovoTextString& t) { t.append(t); },
                              [](TovoTextString& t) { t.setLength(64); },
                              [](TovoTextString& t) { t.room(4); },
                              [](TovoTextString& t) { t = t + t; },
                              [](TovoTextString& t) { t.reserve((kstr_setFailure(-1), Maximum)); },
                              [](TovoTextString& t) {
                                  t.append(t.text(), (kstr_setFailure(-1), Maximum));
                              }};
    for (const Action& action : growing) {
        TovoTextString text(std::string(60, 'q').c_str());
        const char* const before = text.text();
        kstr_setFailure(0);
        try {
            action(text);
            ADD_FAILURE() << "nothing was thrown by action " << &action - growing;
        } catch (const KrnException& failure) {
            EXPECT_EQ(failure.code(), 0xE0000003U);
            EXPECT_EQ(failure.number(), -100);
        }
        kstr_setFailure(-1);
        EXPECT_TRUE(text.text() == before && text.capacity() == 64);
        EXPECT_EQ(contentOf(text), std::string(60, 'q'));
    }
}

TEST(StringStorage, FailsAfterTheGivenNumberOfCalls)
{
    kstr_setFailure(2);
    void* const block = kstr_reallocate(kstr_allocate(5000), 5001);
    EXPECT_NE(block, nullptr);
    EXPECT_EQ(kstr_reallocate(block, 5002), nullptr);
    EXPECT_EQ(kstr_allocate(1), nullptr);
    kstr_setFailure(-1);
    EXPECT_EQ(kstr_reallocate(block, 5002), block) << "a large block has room to spare";
    kstr_deallocate(block);
    kstr_deallocate(const_cast<char*>(kstr_null_string));
}

} // namespace
