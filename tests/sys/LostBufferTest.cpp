// Strings over a storage that answers with the shared empty string, against its contract. The storage is this
// program's own: it is not linked with the library.
#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

#include "sys/tovostr.h"

#include <windows.h>

namespace {

bool answersWithNothing = false;
std::string asserted;

void* block(void* old, unsigned int size)
{
    void* const own = old == kstr_null_string ? nullptr : old;
    if (!answersWithNothing) {
        return std::realloc(own, size);
    }
    std::free(own);
    return const_cast<char*>(kstr_null_string);
}

} // namespace

const char* const kstr_null_string = "";

void* kstr_allocate(unsigned int size) noexcept
{
    return block(nullptr, size);
}

void* kstr_reallocate(void* old, unsigned int size) noexcept
{
    return block(old, size);
}

void kstr_deallocate(void* old) noexcept
{
    if (old != kstr_null_string) {
        std::free(old);
    }
}

void krnOutOfMemory()
{
    throw KrnException(KrnException::outOfMemoryCode, KrnException::outOfMemoryNumber);
}

void kosAssertFail(const char* caption, const char* expression, const char* module, const char* file,
                   int line)
{
    asserted =
        std::string(caption) + "|" + expression + "|" + module + "|" + file + "|" + std::to_string(line);
}

TEST(LostBuffer, LeavesAnEmptyStringAndWritesNothing)
{
    using String = TovoTextString;
    const struct {
        const char* name;
        void (*run)(String& text);
        bool reports;
    } cases[] = {
        {"append", [](String& s) { s.append("a longer text than there is room for", 36); }, true},
        {"assign", [](String& s) { s.assign(std::string(200, 'x').data(), 200); }, false},
        {"reserve", [](String& s) { s.reserve(500); }, false},
        {"setLength", [](String& s) { s.setLength(500); }, false},
        {"copy", [](String& s) { s = String(std::string(200, 'x').c_str()); }, false},
        {"room", [](String& s) { EXPECT_THROW(s.room(500), KrnException); }, false},
        {"sum", [](String& s) { s = String("a") + String("b"); }, false},
    };
    for (const auto& test : cases) {
        for (const std::string& before : {std::string(), std::string(63, 'b')}) {
            answersWithNothing = false;
            String text(before.c_str());
            asserted.clear();
            answersWithNothing = true;
            test.run(text);
            EXPECT_TRUE(text.text() == kstr_null_string && text.isEmpty() && text.capacity() == 0)
                << test.name;
            EXPECT_EQ(asserted, test.reports
                                    ? "Assertion failed|_length == 0|surface|..\\..\\include\\sys/tovostr|450"
                                    : "")
                << test.name;
        }
    }
}
