#include "RecordedObjects.h"

#include <algorithm>
#include <exception>
#include <functional>

namespace wingdi {

namespace {

constexpr DWORD MostEntries = 0xFFFF; // the header counts them in 16 bits

// Makes room for as many elements, doubling it.
void makeRoom(std::vector<DWORD>& elements, std::size_t count)
{
    if (elements.capacity() < count) {
        elements.reserve(2 * count);
    }
}

} // namespace

DWORD RecordedObjects::find(HGDIOBJ handle) noexcept
{
    const std::lock_guard lock(m_mutex);
    const auto found = m_entries.find(handle);
    return found == m_entries.end() ? 0 : found->second;
}

DWORD RecordedObjects::add(HGDIOBJ handle) noexcept
{
    if (m_free.empty() && m_entryCount == MostEntries) {
        return 0;
    }
    const DWORD entry = m_free.empty() ? m_entryCount : m_free.front();
    try {
        // Memory for the end of the object comes now, since its deletion can't fail.
        makeRoom(m_free, m_entryCount + 1);
        makeRoom(m_savedHolds, m_entryCount + 2);
        const std::lock_guard lock(m_mutex);
        makeRoom(m_deleted, m_entryCount + 1);
        if (handle != nullptr) {
            m_entries.emplace(handle, entry);
        }
    } catch (const std::exception&) {
        return 0;
    }
    if (m_free.empty()) {
        ++m_entryCount;
        m_savedHolds.insert(m_savedHolds.end() - 1, 0);
    } else {
        std::pop_heap(m_free.begin(), m_free.end(), std::greater<>());
        m_free.pop_back();
    }
    return entry;
}

void RecordedObjects::release(DWORD entry) noexcept
{
    m_free.push_back(entry);
    std::push_heap(m_free.begin(), m_free.end(), std::greater<>());
}

void RecordedObjects::objectDeleted(HGDIOBJ handle) noexcept
{
    const std::lock_guard lock(m_mutex);
    const auto found = m_entries.find(handle);
    if (found == m_entries.end()) {
        return;
    }
    m_deleted.push_back(found->second);
    m_entries.erase(found);
    m_anyDeleted.store(true, std::memory_order_relaxed);
}

void RecordedObjects::saveSelection()
{
    m_saved.push_back(m_selected);
    for (const DWORD entry : m_selected) {
        ++savedHolds(entry);
    }
}

void RecordedObjects::restoreSelection(int levels) noexcept
{
    for (; levels < 0 && !m_saved.empty(); ++levels) {
        m_selected = m_saved.back();
        m_saved.pop_back();
        for (const DWORD entry : m_selected) {
            --savedHolds(entry);
        }
    }
}

bool RecordedObjects::isHeld(DWORD entry) const noexcept
{
    return m_savedHolds[entry] != 0 ||
           std::find(m_selected.begin(), m_selected.end(), entry) != m_selected.end();
}

DWORD& RecordedObjects::savedHolds(DWORD entry) noexcept
{
    return m_savedHolds[std::min<std::size_t>(entry, m_savedHolds.size() - 1)];
}

} // namespace wingdi
