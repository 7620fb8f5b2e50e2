#include "PlayedRegion.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "HandleTable.h"

namespace wingdi {

Region regionOfRectangles(std::span<const RECT> rectangles)
{
    if (rectangles.size() <= 1) {
        return rectangles.empty() ? Region() : Region(rectangles.front());
    }
    const std::size_t half = rectangles.size() / 2;
    Region all = regionOfRectangles(rectangles.first(half));
    all.combine(regionOfRectangles(rectangles.subspan(half)), RGN_OR);
    return all;
}

Region regionOfPolygons(std::vector<POINT> corners, std::span<const INT> counts)
{
    constexpr LONG Farthest = 1 << 17;
    for (POINT& corner : corners) {
        corner = {std::clamp(corner.x, -Farthest, Farthest), std::clamp(corner.y, -Farthest, Farthest)};
    }
    return Region::fromPolygons(corners, counts, WINDING);
}

PlayedRegion::PlayedRegion(Region region)
{
    auto object = std::make_shared<RegionObject>();
    object->region = std::move(region);
    m_handle = static_cast<HRGN>(HandleTable::instance().add(std::move(object)));
}

PlayedRegion::~PlayedRegion()
{
    DeleteObject(m_handle);
}

} // namespace wingdi
