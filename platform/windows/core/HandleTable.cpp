#include "HandleTable.h"

#include <bit>
#include <new>
#include <utility>

#include "AtModuleEnd.h"

namespace wingdi {

using namespace krnos;

namespace {

// A handle is generation and slot side by side in the width of a pointer. Generations begin at 1, so that no handle is
// null or a small number.
constexpr unsigned int SlotBits = sizeof(ULONG_PTR) * 4;
constexpr std::size_t SlotMask = (std::size_t{1} << SlotBits) - 1;

HGDIOBJ makeHandle(std::size_t slot, DWORD generation) noexcept
{
    return std::bit_cast<HGDIOBJ>((ULONG_PTR{generation} << SlotBits) | slot);
}

// Generations come back after a full round of the bits that a handle has for them.
DWORD nextGeneration(DWORD generation) noexcept
{
    const DWORD next = (generation + 1) & static_cast<DWORD>(SlotMask);
    return next != 0 ? next : 1;
}

} // namespace

// Ends last, and not at all while there are contexts or objects: those of other threads and of static storage may
// outlive any moment of the exit.
HandleTable& HandleTable::instance()
{
    static HandleTable& table = *new HandleTable;
    static const AtModuleEnd End([] {
        if (table.count() == 0) {
            delete &table;
        }
    });
    return table;
}

// Objects that end with their slot ask for it, and find none.
HandleTable::~HandleTable()
{
    const std::vector<Slot> ending = std::exchange(m_slots, {});
}

HGDIOBJ HandleTable::add(std::shared_ptr<GdiObject> object) noexcept
{
    return enter(std::move(object), -1);
}

HGDIOBJ HandleTable::addStock(std::shared_ptr<GdiObject> object, int stockIndex) noexcept
{
    return enter(std::move(object), stockIndex);
}

void HandleTable::standFor(GdiObject& object, const GdiObject& stockObject) noexcept
{
    object.m_handle = stockObject.m_handle;
    object.m_stockIndex = stockObject.m_stockIndex;
}

// The list of free slots keeps room for every slot, so that release() never asks for memory.
HGDIOBJ HandleTable::enter(std::shared_ptr<GdiObject> object, int stockIndex) noexcept
try {
    const std::lock_guard lock(m_mutex);
    if (m_free.empty()) {
        if (m_slots.size() >= SlotMask) {
            return nullptr;
        }
        m_slots.emplace_back();
        m_free.reserve(m_slots.capacity());
        m_free.push_back(m_slots.size() - 1);
    }
    const std::size_t index = m_free.back();
    m_free.pop_back();
    Slot& slot = m_slots[index];
    object->m_handle = makeHandle(index, slot.generation);
    object->m_stockIndex = stockIndex;
    m_count += stockIndex < 0 ? 1 : 0;
    slot.object = std::move(object);
    return slot.object->m_handle;
} catch (const std::bad_alloc&) {
    return nullptr;
}

HandleTable::Slot* HandleTable::slotOf(HGDIOBJ handle) noexcept
{
    const auto value = std::bit_cast<ULONG_PTR>(handle);
    const std::size_t index = value & SlotMask;
    if (index >= m_slots.size() || m_slots[index].generation != value >> SlotBits) {
        return nullptr;
    }
    return &m_slots[index];
}

std::shared_ptr<GdiObject> HandleTable::find(HGDIOBJ handle) noexcept
{
    const std::lock_guard lock(m_mutex);
    const Slot* slot = slotOf(handle);
    return slot != nullptr ? slot->object : nullptr;
}

bool HandleTable::remove(HGDIOBJ handle) noexcept
{
    std::shared_ptr<GdiObject> object; // ends after the lock, which its destructor takes again
    const std::lock_guard lock(m_mutex);
    Slot* slot = slotOf(handle);
    if (slot == nullptr || !slot->object || slot->object->stockIndex() >= 0) {
        return false;
    }
    object = std::move(slot->object);
    return true;
}

void HandleTable::release(HGDIOBJ handle) noexcept
{
    const std::lock_guard lock(m_mutex);
    Slot* slot = slotOf(handle);
    if (slot != nullptr) {
        slot->generation = nextGeneration(slot->generation);
        m_free.push_back(static_cast<std::size_t>(slot - m_slots.data()));
        --m_count;
    }
}

DWORD HandleTable::count() noexcept
{
    const std::lock_guard lock(m_mutex);
    return m_count;
}

} // namespace wingdi
