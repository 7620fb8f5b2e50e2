// ThreadMutex__: a lock between the threads of the process, which its holder may take again.
//
// Called where the module serialises a drawing call across all threads.
#include "sys/krnos.h"

#if defined(_WIN32)
#include <windows.h>
#endif

namespace {

#if defined(_WIN32)

static_assert(sizeof(SRWLOCK) == sizeof(void*)); // null is SRWLOCK_INIT

void lock(void*& mutex)
{
    AcquireSRWLockExclusive(reinterpret_cast<SRWLOCK*>(&mutex));
}

void unlock(void*& mutex)
{
    ReleaseSRWLockExclusive(reinterpret_cast<SRWLOCK*>(&mutex));
}

#else

void lock(std::mutex& mutex)
{
    mutex.lock();
}

void unlock(std::mutex& mutex)
{
    mutex.unlock();
}

#endif

} // namespace

ThreadMutex__::ThreadMutex__(const char* name) noexcept : m_name(name) {}

// The holder is compared before the lock is held: no other thread ever writes the id of this one there.
bool ThreadMutex__::acquire()
{
    const std::thread::id self = std::this_thread::get_id();
    if (m_holder.load(std::memory_order_relaxed) != self) {
        lock(m_mutex);
        m_holder.store(self, std::memory_order_relaxed);
    }
    ++m_depth;
    return true;
}

bool ThreadMutex__::relinquish()
{
    if (m_holder.load(std::memory_order_relaxed) != std::this_thread::get_id()) {
        return false;
    }
    if (--m_depth == 0) {
        m_holder.store(std::thread::id(), std::memory_order_relaxed);
        unlock(m_mutex);
    }
    return true;
}
