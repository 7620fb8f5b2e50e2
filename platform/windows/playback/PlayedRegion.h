// A region with a handle, as long as one record or call needs it.
#pragma once

#include <windows.h>

#include "core/Region.h"

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
