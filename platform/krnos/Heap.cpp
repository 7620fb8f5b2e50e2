// XHeap: counted blocks of the process's allocator, and the exception that stands for exhausted memory.
//
// Called through the operators of the module's classes (heap "SRF") and by the containers (kosDefaultHeap).
#include "sys/krnos.h"

#include <cstdlib>
#include <type_traits>

// Blocks may be given back by destructors of static objects, in whatever order those run.
static_assert(std::is_trivially_destructible_v<XHeap>);

#if defined(_WIN32)
namespace {

// The compiler puts an exported class's constants into the library only where somebody needs their addresses.
[[gnu::used]] const void* const exportedConstants[] = {&KrnException::outOfMemoryCode,
                                                       &KrnException::outOfMemoryNumber};

} // namespace
#endif

constinit XHeap kosDefaultHeap(XHeap::Exhausted::throws);

void krnOutOfMemory()
{
    throw KrnException(KrnException::outOfMemoryCode, KrnException::outOfMemoryNumber);
}

XHeap::XHeap(const char*, unsigned int, unsigned int, bool, unsigned int, unsigned int) noexcept
    : XHeap(Exhausted::givesNull)
{
}

void* XHeap::alloc(unsigned int size, bool)
{
    void* const block = std::malloc(size != 0 ? size : 1);
    if (block != nullptr) {
        m_blocks.fetch_add(1, std::memory_order_relaxed);
    } else if (m_answer == Exhausted::throws) {
        krnOutOfMemory();
    }
    return block;
}

void XHeap::free(void* block) noexcept
{
    if (block != nullptr) {
        m_blocks.fetch_sub(1, std::memory_order_relaxed);
        std::free(block);
    }
}
