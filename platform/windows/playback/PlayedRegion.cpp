#include "playback/PlayedRegion.h"

#include <memory>
#include <utility>

#include "core/HandleTable.h"

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
