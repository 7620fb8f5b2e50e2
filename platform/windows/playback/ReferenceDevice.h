// The device that a metafile was recorded for, as its header describes it: it has sizes and paints nothing. A context of it
// takes the file's mapping records, so that map modes and extents mean what they meant there.
#pragma once

#include <windows.h>

#include <optional>

#include "Mapping.h"
#include "ScreenDevice.h"
#include "sys/recordReader.h"

namespace wingdi {

class ReferenceDevice : public ScreenDevice {
public:
    // From the header record; nothing when it has no sizes above 0.
    static std::optional<ReferenceDevice> of(const metafile::Record& header);

    int capability(int index) const override;

    // From the device's pixels to those units in which the picture's frame becomes the rectangle. A picture without
    // extent keeps its size.
    Mapping onto(const RECT& rect) const noexcept;

private:
    SIZEL m_pixels{};
    SIZEL m_millimeters{};
    // Of the frame, in pixels.
    double m_left = 0;
    double m_top = 0;
    double m_width = 0;
    double m_height = 0;
};

} // namespace wingdi
