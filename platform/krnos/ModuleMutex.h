// Locks of static objects of the module.
//
// On Windows a std::mutex of this compiler takes a block of memory at its first lock and never gives it back, so that each
// module that comes and goes would leave some behind; there they are the system's own, which take nothing.
#pragma once

#include <mutex>

#if defined(_WIN32)

#include <windows.h>

#include "sys/krnos.h"

namespace krnos {

class ModuleMutex {
public:
    ModuleMutex() = default;
    ModuleMutex(const ModuleMutex&) = delete;
    ModuleMutex& operator=(const ModuleMutex&) = delete;

    void lock() { AcquireSRWLockExclusive(&m_lock); }
    void unlock() { ReleaseSRWLockExclusive(&m_lock); }

private:
    SRWLOCK m_lock = SRWLOCK_INIT;
};

// Its holder may lock it again.
class RecursiveModuleMutex {
public:
    void lock() { m_mutex.acquire(); }
    void unlock() { m_mutex.relinquish(); }

private:
    ThreadMutex__ m_mutex{"module"};
};

} // namespace krnos

#else

namespace krnos {

using ModuleMutex = std::mutex;
using RecursiveModuleMutex = std::recursive_mutex;

} // namespace krnos

#endif
