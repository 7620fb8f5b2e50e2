// A function that the host may hang in, with its context: the log's sink, the handler of assertions.
//
// Used by Log.cpp and Assertion.cpp. Calls come one at a time and under the lock, so that a host that took its
// function out again may let go of the context at once. The lock is recursive: a host's function may log, and
// may set another function.
#pragma once

#include <mutex>

namespace krnos {

template <typename Function>
class HostCallback {
public:
    void set(Function* function, void* context)
    {
        const std::lock_guard lock(m_mutex);
        m_function = function;
        m_context = context;
    }

    // False when the host has hung in nothing.
    template <typename... Arguments>
    bool call(Arguments... arguments)
    {
        const std::lock_guard lock(m_mutex);
        if (m_function == nullptr) {
            return false;
        }
        m_function(arguments..., m_context);
        return true;
    }

private:
    std::recursive_mutex m_mutex;
    Function* m_function = nullptr;
    void* m_context = nullptr;
};

} // namespace krnos
