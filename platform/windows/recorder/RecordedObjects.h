// The object table of a metafile that is being recorded ([MS-EMF] 3.1.1.1): which entry stands for which handle,
// which entries are selected, and which objects the application has deleted since. An entry in use is never given
// to another object; freed ones are used again, the lowest first. Entry 0 stands for the metafile itself.
//
// The context's thread calls everything but objectDeleted(), which any thread may call.
#pragma once

#include <windows.h>

#include <array>
#include <atomic>
#include <mutex>
#include <unordered_map>
#include <vector>

#include "GdiObject.h"

namespace wingdi {

class RecordedObjects {
public:
    // The entry of a handle; 0 when it has none.
    DWORD find(HGDIOBJ handle) noexcept;
    // Takes the lowest free entry, for a handle or, with null, for an object without one. 0 when the table is full or
    // memory ran out.
    DWORD add(HGDIOBJ handle) noexcept;
    // Gives back the entry of an object without a handle.
    void release(DWORD entry) noexcept;

    // The application deleted an object.
    void objectDeleted(HGDIOBJ handle) noexcept;
    bool anyDeleted() const noexcept { return m_anyDeleted.load(std::memory_order_relaxed); }
    // Frees the entries of the deleted objects that are not selected any more, in the order in which they died, and
    // passes them to the body, which must not throw.
    template <class Body>
    void takeDeleted(const Body& body) noexcept
    {
        const std::lock_guard lock(m_mutex);
        std::size_t kept = 0;
        for (const DWORD entry : m_deleted) {
            if (isHeld(entry)) {
                m_deleted[kept++] = entry;
            } else {
                body(entry);
                release(entry);
            }
        }
        m_deleted.resize(kept);
        m_anyDeleted.store(kept != 0, std::memory_order_relaxed);
    }

    // What playback of the records has selected: entries, or stock objects by their number and the top bit.
    DWORD selected(ObjectKind kind) const noexcept { return m_selected.at(slotOf(kind)); }
    void select(ObjectKind kind, DWORD entry) noexcept { m_selected.at(slotOf(kind)) = entry; }
    void saveSelection();
    void restoreSelection(int levels) noexcept; // levels below 0

    // Entries that the table ever had, entry 0 included.
    DWORD entryCount() const noexcept { return m_entryCount; }

private:
    using Selection = std::array<DWORD, 3>; // pen, brush, font

    static std::size_t slotOf(ObjectKind kind) noexcept { return static_cast<std::size_t>(kind); }
    bool isHeld(DWORD entry) const noexcept;
    DWORD& savedHolds(DWORD entry) noexcept;

    Selection m_selected{ENHMETA_STOCK_OBJECT | BLACK_PEN, ENHMETA_STOCK_OBJECT | WHITE_BRUSH,
                         ENHMETA_STOCK_OBJECT | SYSTEM_FONT};
    std::vector<Selection> m_saved;
    std::vector<DWORD> m_savedHolds = {
        0, 0}; // for each entry: how often m_saved names it; the last: stock objects
    DWORD m_entryCount = 1;
    std::vector<DWORD> m_free; // a heap, the lowest on top

    std::mutex m_mutex; // of what follows
    std::unordered_map<HGDIOBJ, DWORD> m_entries;
    std::vector<DWORD> m_deleted;
    std::atomic<bool> m_anyDeleted = false;
};
static_assert(static_cast<int>(ObjectKind::Pen) == 0 && static_cast<int>(ObjectKind::Brush) == 1 &&
              static_cast<int>(ObjectKind::Font) == 2);

} // namespace wingdi
