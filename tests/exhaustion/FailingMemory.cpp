// The allocator's functions as the linker's --wrap option names them: __wrap_X is called instead of X, which goes on
// under the name __real_X.
#include "exhaustion/FailingMemory.h"

#include <atomic>
#include <cstddef>
#include <new>

namespace {

std::atomic<long> requestsLeft{-1};
std::atomic<bool> failureLasts{false};
std::atomic<long> failures{0};

bool isServed()
{
    const long left = requestsLeft.load();
    if (left < 0) {
        return true;
    }
    if (left > 0) {
        requestsLeft = left - 1;
        return true;
    }
    if (!failureLasts) {
        requestsLeft = -1;
    }
    ++failures;
    return false;
}

} // namespace

void failMemoryAfter(long served, bool lasting)
{
    failureLasts = lasting;
    failures = 0;
    requestsLeft = served;
}

long failedRequests()
{
    return failures;
}

void* realMalloc(std::size_t size) asm("__real_malloc");
void* realCalloc(std::size_t count, std::size_t size) asm("__real_calloc");
void* realRealloc(void* block, std::size_t size) asm("__real_realloc");
void* realNew(std::size_t size) asm("__real__Znwm");
void* realNewArray(std::size_t size) asm("__real__Znam");
void* realNewOrNull(std::size_t size, const std::nothrow_t& tag) noexcept asm("__real__ZnwmRKSt9nothrow_t");
void* realNewArrayOrNull(std::size_t size, const std::nothrow_t& tag) noexcept
    asm("__real__ZnamRKSt9nothrow_t");

void* wrappedMalloc(std::size_t size) asm("__wrap_malloc");
void* wrappedCalloc(std::size_t count, std::size_t size) asm("__wrap_calloc");
void* wrappedRealloc(void* block, std::size_t size) asm("__wrap_realloc");
void* wrappedNew(std::size_t size) asm("__wrap__Znwm");
void* wrappedNewArray(std::size_t size) asm("__wrap__Znam");
void* wrappedNewOrNull(std::size_t size, const std::nothrow_t& tag) noexcept
    asm("__wrap__ZnwmRKSt9nothrow_t");
void* wrappedNewArrayOrNull(std::size_t size, const std::nothrow_t& tag) noexcept
    asm("__wrap__ZnamRKSt9nothrow_t");

void* wrappedMalloc(std::size_t size)
{
    return isServed() ? realMalloc(size) : nullptr;
}

void* wrappedCalloc(std::size_t count, std::size_t size)
{
    return isServed() ? realCalloc(count, size) : nullptr;
}

void* wrappedRealloc(void* block, std::size_t size)
{
    return isServed() ? realRealloc(block, size) : nullptr;
}

void* wrappedNew(std::size_t size)
{
    if (!isServed()) {
        throw std::bad_alloc();
    }
    return realNew(size);
}

void* wrappedNewArray(std::size_t size)
{
    if (!isServed()) {
        throw std::bad_alloc();
    }
    return realNewArray(size);
}

void* wrappedNewOrNull(std::size_t size, const std::nothrow_t& tag) noexcept
{
    return isServed() ? realNewOrNull(size, tag) : nullptr;
}

void* wrappedNewArrayOrNull(std::size_t size, const std::nothrow_t& tag) noexcept
{
    return isServed() ? realNewArrayOrNull(size, tag) : nullptr;
}
