#include <algorithm>
#include <mutex>
#include <vector>

#include "AtModuleEnd.h"
#include "Device.h"

namespace wingdi {

using namespace krnos;

namespace {

struct Watchers {
    std::mutex mutex;
    std::vector<Device*> devices;
};

// Stays when a recording is left open until the process ends.
Watchers& watchers()
{
    static Watchers& all = *new Watchers;
    static const AtModuleEnd End([] {
        if (all.devices.empty()) {
            delete &all;
        }
    });
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

} // namespace wingdi
