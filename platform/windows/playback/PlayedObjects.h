// The objects that a metafile has made so far, under the numbers by which its records name them.
#pragma once

#include <windows.h>

#include <vector>

namespace wingdi {

class PlayedObjects {
public:
    PlayedObjects() = default;
    PlayedObjects(const PlayedObjects&) = delete;
    PlayedObjects& operator=(const PlayedObjects&) = delete;
    // Deletes what the file has left.
    ~PlayedObjects();

    // Takes an object over; one that had the number before is deleted. A number that no header can announce, and 0,
    // are refused: the object is deleted at once. A null object is ignored.
    void add(DWORD number, HGDIOBJ object);
    // The object, or the stock object if the number's top bit says so; null if there is none.
    HGDIOBJ find(DWORD number) const noexcept;
    void remove(DWORD number) noexcept;

private:
    std::vector<HGDIOBJ> m_objects;
};

} // namespace wingdi
