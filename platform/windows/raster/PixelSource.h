// What a copy reads: an area of a bitmap, brought to the size and place that it takes on the device. Each target pixel
// shows the source pixel that its middle falls on, so that the same areas choose the same pixels whatever is copied;
// only a picture that a plain copy makes smaller keeps something of all its pixels.
#pragma once

#include <windows.h>

#include <optional>
#include <vector>

#include "Bitmap.h"
#include "Mapping.h"

#include "ColorRule.h"
#include "CornerPair.h"
#include "ShrunkPixels.h"

namespace wingdi {

// In which colours a copy is read, what it does where it makes smaller, and where sizes below 0 begin.
struct CopyRules {
    ColorRule colors;
    Shrinking shrinking = Shrinking::Nearest;
    bool startsOnPixel = false; // takeFirstPixel() of the target
};

class PixelSource {
public:
    // Pixels of the view at `area`; `target` in logical units; what lies outside `visible` is not asked for.
    PixelSource(const BitmapView& view, const CornerPair& area, const RECT& target, const Mapping& toDevice,
                const RECT& visible, const CopyRules& rules);
    PixelSource(const PixelSource&) = delete;
    PixelSource& operator=(const PixelSource&) = delete;

    // Around all target pixels that have a source pixel. Device units.
    const RECT& box() const noexcept { return m_box; }

    // A row of source pixels for the target pixels from `offset` on; the others have none.
    struct Stretch {
        const DWORD* pixels;
        int offset;
        int count;
    };
    // For the target pixels from (x, y) on to the right, within box(). Valid until the next call.
    Stretch read(int x, int y, int count);

private:
    void placeStraight(const CornerPair& area, const CornerPair& target, const RECT& visible);
    void placeTurned(const CornerPair& area, const RECT& target, const Mapping& toDevice,
                     const RECT& visible);
    Stretch readTurned(int x, int y, int count);
    // Of the source pixels that fall on a target pixel, whose middle is at this point of the source.
    DWORD mixTurned(int x, int y, const DevicePoint& middle) const;
    void readScaled(int x, int y, int count);

    BitmapView m_view;
    CopyRules m_rules;
    RECT m_inside{}; // the part of the area that lies on the view
    RECT m_box{};
    std::vector<int> m_columns; // straight: the source's for each of the box, and its rows
    std::vector<int> m_rows;
    bool m_unscaled = false;
    std::optional<ShrunkPixels> m_shrunk; // straight, and smaller along an axis
    bool m_turned = false;
    Mapping m_toSource;      // turned
    int m_samplesAcross = 1; // turned: in each target pixel, more than 1 where the picture is made smaller
    int m_samplesDown = 1;
    std::vector<DWORD> m_pixels;
    std::vector<DWORD> m_sourceRow; // the row that was read last, from the leftmost column in use on
    int m_sourceRowAt = -1;
};

} // namespace wingdi
