#include "PlayedObjects.h"

#include <utility>

namespace wingdi {

namespace {

// The header counts objects in 16 bits. Its own count is not held against a file: many writers get it wrong by one.
constexpr DWORD MostObjects = 65535;

} // namespace

PlayedObjects::~PlayedObjects()
{
    for (HGDIOBJ object : m_objects) {
        if (object != nullptr) {
            DeleteObject(object);
        }
    }
}

void PlayedObjects::add(DWORD number, HGDIOBJ object)
{
    if (object == nullptr) {
        return;
    }
    if (number == 0 || number > MostObjects) {
        DeleteObject(object);
        return;
    }
    if (number >= m_objects.size()) {
        try {
            m_objects.resize(std::size_t{number} + 1);
        } catch (...) {
            DeleteObject(object);
            throw;
        }
    }
    remove(number);
    m_objects[number] = object;
}

HGDIOBJ PlayedObjects::find(DWORD number) const noexcept
{
    if ((number & ENHMETA_STOCK_OBJECT) != 0) {
        return GetStockObject(static_cast<int>(number & ~ENHMETA_STOCK_OBJECT));
    }
    return number < m_objects.size() ? m_objects[number] : nullptr;
}

void PlayedObjects::remove(DWORD number) noexcept
{
    if (number < m_objects.size() && m_objects[number] != nullptr) {
        DeleteObject(std::exchange(m_objects[number], nullptr));
    }
}

} // namespace wingdi
