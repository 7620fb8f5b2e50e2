// The storage of string buffers, with room to spare in large blocks.
//
// Called by the strings of tovostr.h, which ask again every 64 bytes. In front of each block is its usable
// size; a request that fits is answered with the same block. Under AddressSanitizer the spare room is closed
// to everyone, so that a string which runs past what it asked for is found out.
#include "sys/krnos.h"

#include <atomic>
#include <bit>
#include <cstddef>
#include <cstdlib>

#if __has_include(<sanitizer/asan_interface.h>)
#include <sanitizer/asan_interface.h>
#else
#define ASAN_POISON_MEMORY_REGION(address, size)
#define ASAN_UNPOISON_MEMORY_REGION(address, size)
#endif

namespace {

constinit std::atomic<long> callsUntilFailure{-1};

bool isServed() noexcept
{
    long calls = callsUntilFailure.load(std::memory_order_relaxed);
    while (calls > 0) {
        if (callsUntilFailure.compare_exchange_weak(calls, calls - 1, std::memory_order_relaxed)) {
            return true;
        }
    }
    return calls < 0;
}

struct alignas(std::max_align_t) BlockHeader {
    std::size_t usable;
    std::size_t open; // what was asked for last
};

constexpr std::size_t SmallestRoundedSize = 4096;

// Large sizes go up to the next quarter of a power of two: at most a quarter of the memory stays unused, and a
// block that grows little by little moves a number of times that is logarithmic in its size.
std::size_t usableSizeFor(std::size_t size) noexcept
{
    if (size < SmallestRoundedSize) {
        return size;
    }
    const std::size_t step = std::bit_floor(size - 1) / 4;
    return (size + step - 1) & ~(step - 1);
}

BlockHeader* headerOf(void* block) noexcept
{
    return static_cast<BlockHeader*>(block) - 1;
}

bool isNoBlock(const void* block) noexcept
{
    return block == nullptr || block == kstr_null_string;
}

// Only where the end moves over: a string grows many times in one block.
void* openTo(BlockHeader* header, std::size_t size) noexcept
{
    char* const block = reinterpret_cast<char*>(header + 1);
    if (size > header->open) {
        ASAN_UNPOISON_MEMORY_REGION(block + header->open, size - header->open);
    } else {
        ASAN_POISON_MEMORY_REGION(block + size, header->open - size);
    }
    header->open = size;
    return block;
}

void* newBlock(void* oldHeader, std::size_t size) noexcept
{
    const std::size_t usable = usableSizeFor(size);
    auto* const header = static_cast<BlockHeader*>(std::realloc(oldHeader, sizeof(BlockHeader) + usable));
    if (header == nullptr) {
        return nullptr;
    }
    header->usable = usable;
    header->open = usable;
    return openTo(header, size);
}

} // namespace

constinit const char* const kstr_null_string = "";

void* kstr_allocate(unsigned int size) noexcept
{
    return isServed() ? newBlock(nullptr, size) : nullptr;
}

void* kstr_reallocate(void* block, unsigned int size) noexcept
{
    if (!isServed()) {
        return nullptr;
    }
    if (isNoBlock(block)) {
        return newBlock(nullptr, size);
    }
    BlockHeader* const header = headerOf(block);
    if (size <= header->usable) {
        return openTo(header, size);
    }
    ASAN_UNPOISON_MEMORY_REGION(block, header->usable);
    return newBlock(header, size);
}

void kstr_deallocate(void* block) noexcept
{
    if (!isNoBlock(block)) {
        ASAN_UNPOISON_MEMORY_REGION(block, headerOf(block)->usable);
        std::free(headerOf(block));
    }
}

void kstr_setFailure(long calls) noexcept
{
    callsUntilFailure.store(calls, std::memory_order_relaxed);
}
