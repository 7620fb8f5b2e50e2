// ThreadMutex__: a lock between the threads of the process, which its holder may take again.
//
// Called where the module serialises a drawing call across all threads.
#include "sys/krnos.h"

ThreadMutex__::ThreadMutex__(const char* name) noexcept : m_name(name) {}

// The holder is compared before the lock is held: no other thread ever writes the id of this one there.
bool ThreadMutex__::acquire()
{
    const std::thread::id self = std::this_thread::get_id();
    if (m_holder.load(std::memory_order_relaxed) != self) {
        m_mutex.lock();
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
        m_mutex.unlock();
    }
    return true;
}
