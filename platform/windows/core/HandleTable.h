// The one table behind all handles. A handle carries a slot and the slot's generation, so that a stale, foreign or
// null one is told apart and refused, never followed.
#pragma once

#include <windows.h>

#include <memory>
#include <mutex>
#include <vector>

#include "GdiObject.h"

namespace wingdi {

class HandleTable {
public:
    static HandleTable& instance();
    HandleTable(const HandleTable&) = delete;
    HandleTable& operator=(const HandleTable&) = delete;

    // Enters an object and gives its handle; null without memory.
    HGDIOBJ add(std::shared_ptr<GdiObject> object) noexcept;
    HGDIOBJ addStock(std::shared_ptr<GdiObject> object, int stockIndex) noexcept;
    // Gives an object that is in no slot the handle and the number of a stock object.
    static void standFor(GdiObject& object, const GdiObject& stockObject) noexcept;

    // The live object of a handle; null for a handle that names none, or names a dead one.
    std::shared_ptr<GdiObject> find(HGDIOBJ handle) noexcept;
    // The same for one kind of object.
    template <class Object>
    std::shared_ptr<Object> find(HGDIOBJ handle, ObjectKind kind) noexcept
    {
        std::shared_ptr<GdiObject> object = find(handle);
        if (!object || object->kind() != kind) {
            return nullptr;
        }
        return std::static_pointer_cast<Object>(std::move(object));
    }

    // Ends a handle: find() no longer knows it. While somebody else still holds the object it goes on counting, and
    // the slot is not given out again. False for a handle that names no live object.
    bool remove(HGDIOBJ handle) noexcept;

    // Objects that exist, dead ones that are still selected included, stock ones not.
    DWORD count() noexcept;

private:
    friend class GdiObject;

    HandleTable() = default;
    ~HandleTable();

    struct Slot {
        std::shared_ptr<GdiObject> object; // null: free, or dead and still held elsewhere
        DWORD generation = 1;
    };

    HGDIOBJ enter(std::shared_ptr<GdiObject> object, int stockIndex) noexcept;
    Slot* slotOf(HGDIOBJ handle) noexcept;
    void release(HGDIOBJ handle) noexcept;

    std::mutex m_mutex;
    std::vector<Slot> m_slots;
    std::vector<std::size_t> m_free;
    DWORD m_count = 0;
};

} // namespace wingdi
