#include <algorithm>
#include <mutex>
#include <vector>

#include "core/Device.h"

namespace {

struct Watchers {
    std::mutex mutex;
    std::vector<Device*> devices;
};

// Never destroyed: a recording may be left open until the process ends.
Watchers& watchers()
{
    static Watchers& all = *new Watchers;
    return all;
}

} // namespace

DeletionWatch::DeletionWatch(Device& device) : m_device(device)
{
    const std::lock_guard lock(watchers().mutex);
    watchers().devices.push_back(&device);
}

DeletionWatch::~DeletionWatch()
{
    const std::lock_guard lock(watchers().mutex);
    std::erase(watchers().devices, &m_device);
}

void DeletionWatch::objectDeleted(HGDIOBJ object)
{
    const std::lock_guard lock(watchers().mutex);
    for (Device* device : watchers().devices) {
        device->objectDeleted(object);
    }
}
