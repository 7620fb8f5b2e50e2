#include "AtModuleEnd.h"

#include <atomic>
#include <cstdlib>
#include <type_traits>

using namespace krnos;

// Static objects that end are what has to be over by then.
static_assert(std::is_trivially_destructible_v<AtModuleEnd>);

namespace {

constinit std::atomic<const AtModuleEnd*> latest{nullptr};

} // namespace

AtModuleEnd::AtModuleEnd(void (*end)()) noexcept : m_end(end), m_earlier(latest.load())
{
    while (!latest.compare_exchange_weak(m_earlier, this)) {
    }
}

void AtModuleEnd::runAll()
{
    for (const AtModuleEnd* entry = latest.exchange(nullptr); entry != nullptr; entry = entry->m_earlier) {
        entry->m_end();
    }
}

// 101 is the first priority that programs may use: the end of everything with a later one, or none, is over. On Windows
// destructors of that kind run before those of static objects, but what was asked for first comes last there.
#if defined(_WIN32)
extern "C" [[gnu::constructor(101)]] void surfaceModuleBegins();
extern "C" void surfaceModuleBegins()
{
    std::atexit(AtModuleEnd::runAll);
}
#else
extern "C" [[gnu::destructor(101)]] void surfaceModuleEnds();
extern "C" void surfaceModuleEnds()
{
    AtModuleEnd::runAll();
}
#endif
