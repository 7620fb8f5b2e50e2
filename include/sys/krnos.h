// What the module needs of its operating-system layer: heaps, string storage, the log, assertions, a lock,
// error texts, and numbers and characters converted in a form that no locale changes.
//
// Called by everything; knows nobody. The strings of tovostr.h use the string storage, the containers
// of tovoarray.h on the default heap. Every operation here may be called from any thread.
#pragma once

#include <atomic>
#include <cstddef>
#include <mutex>
#include <thread>

#include "sys/surfaceExport.h"

// The one exception of the platform, thrown by value and caught by reference: a code for the kind of
// failure and a number for the single one.
class SURFACE_API KrnException {
public:
    static constexpr unsigned int outOfMemoryCode = 0xE0000003U;
    static constexpr int outOfMemoryNumber = -100;

    constexpr KrnException(unsigned int code, int number) noexcept : m_code(code), m_number(number) {}

    constexpr unsigned int code() const noexcept { return m_code; }
    constexpr int number() const noexcept { return m_number; }

private:
    unsigned int m_code;
    int m_number;
};
static_assert(sizeof(KrnException) == 8);

// Throws the KrnException of exhausted memory. Sizes that 32 bits cannot hold end here as well.
[[noreturn]] SURFACE_API void krnOutOfMemory();

// A heap object. Blocks come from the process and are aligned for every basic type, so a heap that ends
// while blocks of it are still in use takes nothing away from their owners. Destruction does no work at all,
// which is why a heap in static storage serves the destructors of all other static objects too.
class SURFACE_API XHeap {
public:
    enum class Exhausted { givesNull, throws };

    // A private heap. The arguments are sizing hints for layers that carve a region of their own; none here.
    XHeap(const char* name, unsigned int initialSize, unsigned int regionSize, bool growing,
          unsigned int largestBlock, unsigned int options) noexcept;

    constexpr explicit XHeap(Exhausted answer) noexcept : m_answer(answer) {}

    XHeap(const XHeap&) = delete;
    XHeap& operator=(const XHeap&) = delete;

    // A block of `size` bytes, not zeroed; 0 bytes give a block of its own too. The flag has no meaning here.
    // Without memory a private heap gives null, and kosDefaultHeap throws KrnException.
    void* alloc(unsigned int size, bool flag);

    // Gives back a block that came from this heap; null does nothing.
    void free(void* block) noexcept;

    // Blocks handed out and not given back yet.
    unsigned int blocksInUse() const noexcept { return m_blocks.load(std::memory_order_relaxed); }

private:
    std::atomic<unsigned int> m_blocks{0};
    const Exhausted m_answer;
};

// The platform's own heap: holds the blocks of Vector and Array, and its alloc never gives null. It is ready
// before any constructor of a static object runs.
extern SURFACE_API XHeap kosDefaultHeap;

// The shared empty string. Strings without a buffer point to it, and pointers are compared with it; nobody
// writes to it.
extern SURFACE_API const char* const kstr_null_string;

// String storage. Large blocks get some room to spare, in proportion to their size, so that a string which
// asks for a little more again and again is moved only now and then.
// Results: a block of at least `size` bytes, or null when there is no memory; then the old block stays as it
// is. For `block`, null and kstr_null_string both mean no block.
SURFACE_API void* kstr_allocate(unsigned int size) noexcept;
SURFACE_API void* kstr_reallocate(void* block, unsigned int size) noexcept;
SURFACE_API void kstr_deallocate(void* block) noexcept;

// For tests of failure handling: once `calls` more allocations and reallocations were served, every further
// one fails until this is called again. Below 0: none fails.
SURFACE_API void kstr_setFailure(long calls) noexcept;

// A named log. One call is one line: to the sink, when the host set one, as the bare message; else to standard
// error after the log's name. Lines of different threads never mix, and line ends inside a message turn into
// blanks, so that text from a page cannot forge a line.
class SURFACE_API KrnLog {
public:
    // `name` (null: none) is kept as a pointer and must outlive the log. The other arguments choose among the
    // places that a full platform logs to; there is one place here.
    KrnLog(const char* name, const char* second, bool toFile, bool toConsole) noexcept;

    // Formats as intlSprintf does, at any length. Gives the length of the message, or -1 when it has none
    // because the format is no format.
    [[gnu::format(printf, 2, 3)]] int log(const char* format, ...);

private:
    const char* m_name;
};

// Where log lines go instead of standard error; null: standard error again. The line ends with a zero byte
// and without a line feed. Calls of the sink come one at a time, and none is running or comes any more once
// this returns, unless the sink itself called it. For that they run under one lock of all threads: a sink may log, and
// may set another sink, but one that waits for a thread which logs waits for ever.
SURFACE_API void krnSetLogSink(void (*sink)(const char* line, void* context), void* context);

// Reports a violated invariant: to the host's handler, else as one log line. Returns, unless the handler
// doesn't. Null texts count as empty.
SURFACE_API void kosAssertFail(const char* caption, const char* expression, const char* module,
                               const char* file, int line);

// Who hears of violated invariants; null: the log. Called under the same rules as a log sink, by a lock of its own.
SURFACE_API void kosSetAssertHandler(void (*handler)(const char* caption, const char* expression,
                                                     const char* module, const char* file, int line,
                                                     void* context),
                                     void* context);

// sprintf in the "C" locale, whatever locale the process or thread is in. The caller sizes the buffer.
[[gnu::format(printf, 2, 3)]] SURFACE_API int intlSprintf(char* buffer, const char* format, ...);

// Reads whole numbers as sscanf does in the "C" locale, with these means: "%d" into an int; white space, which
// passes over any white space; every other character, which must be in the text as well. Numbers beyond 32 bits
// become the nearest int. The first thing that does not match ends the reading, and its target and all later
// ones stay as they were. Gives the number of fields read, 0 at the end of the text too. Looks at no
// character after the last one it needs.
[[gnu::format(scanf, 2, 3)]] SURFACE_API int intlSscanNumeric(const char* text, const char* format, ...);

// The text of `value` with exactly `decimals` digits after the point, rounded as printf rounds, in a buffer
// of `size` bytes with its terminator. What is too long for the buffer, infinities included, becomes the
// nearest value of that form which fits: "99999999.99" for 12 bytes and 2 decimals. NaN counts as 0. Where
// not even 0 fits, the result is the empty string. Gives the start of the text.
SURFACE_API char* intlFloatToStringFixed(char* buffer, int size, float value, int decimals);

// The number at the start of `text`, after white space: sign, digits, point, digits, exponent. 0 when there
// is none (null, words, hexadecimal digits after the 0); beyond the range of double the largest finite
// value with the number's sign.
SURFACE_API double intlStringToDoubleFixed(const char* text);

// Text from 16-bit to 8-bit characters, those of code page 1252 in every locale, and back, up to the first zero.
// `size` is that of the target in characters, the terminator among them: what does not fit is cut, and a target
// of at least 1 is always terminated. A 16-bit character without an 8-bit form becomes "?", one for each half of
// a pair, so that positions in both texts agree. Give the characters converted, without the terminator; a null
// source counts as empty.
SURFACE_API int intlUnicodeToCString(const unsigned short* source, char* target, int size);
SURFACE_API int intlCStringToUnicode(const char* source, unsigned short* target, int size);

// The text of a Windows error number, in `buffer` of `size` bytes, cut and terminated; without a buffer a
// constant text, which nobody writes to. Never null: a number that has no text is named in words.
SURFACE_API char* kosGetErrorText(int error, char* buffer, unsigned int size);

// A named lock between the threads of the process. The thread that holds it may acquire it again, and lets go
// once it relinquished as often as it acquired.
class SURFACE_API ThreadMutex__ { // NOLINT(bugprone-reserved-identifier): the platform's name for it.
public:
    // The name is for whoever looks at the lock: two locks of one name are two locks. It is kept as a pointer
    // and must outlive the lock.
    explicit ThreadMutex__(const char* name) noexcept;
    ~ThreadMutex__() = default;

    ThreadMutex__(const ThreadMutex__&) = delete;
    ThreadMutex__& operator=(const ThreadMutex__&) = delete;

    const char* name() const noexcept { return m_name; }

    // Blocks until the lock is held. True.
    bool acquire();

    // False, and nothing happens, when the calling thread does not hold the lock.
    bool relinquish();

private:
    const char* m_name;
    std::mutex m_mutex;
    std::atomic<std::thread::id> m_holder{};
    unsigned int m_depth = 0;
};
