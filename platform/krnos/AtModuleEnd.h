// What the module does last: when it is unloaded, and when the process ends, after the destructors of all static
// objects.
//
// For tables that those destructors, a host's among them, may still reach: they are made on the heap at their first use
// and given back here, where nothing of the module runs any more.
#pragma once

namespace krnos {

class AtModuleEnd {
public:
    // `end` is called once; of several, the one that was asked for last comes first. The object stands in static
    // storage.
    explicit AtModuleEnd(void (*end)()) noexcept;
    AtModuleEnd(const AtModuleEnd&) = delete;
    AtModuleEnd& operator=(const AtModuleEnd&) = delete;

    static void runAll();

private:
    void (*const m_end)();
    const AtModuleEnd* m_earlier = nullptr;
};

} // namespace krnos
