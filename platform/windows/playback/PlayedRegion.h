// A region with a handle, as long as one record or call needs it.
#pragma once

#include <windows.h>

#include <span>
#include <vector>

#include "Region.h"

namespace wingdi {

// The region of rectangles, joined by halves so that many cost little more than few.
Region regionOfRectangles(std::span<const RECT> rectangles);
// The region of polygons. Corners are drawn in to 131,072 pixels: scanning taller ones would take a file's time for
// nothing anybody sees.
Region regionOfPolygons(std::vector<POINT> corners, std::span<const INT> counts);

class PlayedRegion {
public:
    explicit PlayedRegion(Region region);
    PlayedRegion(const PlayedRegion&) = delete;
    PlayedRegion& operator=(const PlayedRegion&) = delete;
    ~PlayedRegion();

    // Null without memory.
    HRGN handle() const noexcept { return m_handle; }

private:
    HRGN m_handle;
};

} // namespace wingdi
