// The part of a bitmap that may be painted, row by row as pixels 0x00RRGGBB.
#pragma once

#include <windows.h>

#include <memory>
#include <vector>

#include "Bitmap.h"
#include "BitmapRows.h"
#include "DeviceRect.h"
#include "Ink.h"

namespace wingdi {

class DeviceContext;
class Region;

// The bitmap of a context within its clip, for one call. Device units.
class Canvas {
public:
    // Nothing may be painted on when the context holds no bitmap. `within` (may be null) restricts the clip.
    explicit Canvas(const DeviceContext& context, const Region* within = nullptr);

    bool empty() const noexcept { return isEmpty(m_box); }
    // Around all that may be painted.
    const RECT& box() const noexcept { return m_box; }
    // In bands from the top; none: the whole box.
    const std::vector<RECT>& clip() const noexcept { return m_clip; }
    const std::shared_ptr<Bitmap>& bitmap() const noexcept { return m_bitmap; }
    const BitmapView& view() const noexcept { return m_view; }
    // 32 bits in the common order: rows are changed in place.
    bool isDirect() const noexcept { return m_direct; }

    void fill(const RECT& rect, const Ink& ink);
    void fillSpan(int y, int left, int right, const Ink& ink) { fill({left, y, right, y + 1}, ink); }
    bool contains(int x, int y) const noexcept;

    // Calls change(pixels, x, y, count) for each stretch of a row of `rect` that may be painted.
    template <class Change>
    void change(const RECT& rect, const Change& change)
    {
        if (m_clip.empty()) {
            changeRows(overlap(rect, m_box), change);
            return;
        }
        for (std::size_t i = firstBand(rect.top); i < m_clip.size() && m_clip[i].top < rect.bottom; ++i) {
            changeRows(overlap(rect, m_clip[i]), change);
        }
    }

private:
    void setClip(const Region& clip);
    // The first clip rectangle that reaches below `y`.
    std::size_t firstBand(int y) const noexcept;
    DWORD* directRow(int y) const noexcept { return reinterpret_cast<DWORD*>(m_bitmap->row(y)); }
    void storePixels(int x, int y, int count, const DWORD* pixels);

    template <class Change>
    void changeRows(const RECT& rect, const Change& change)
    {
        const int count = rect.right - rect.left;
        for (int y = rect.top; y < rect.bottom; ++y) {
            if (m_direct) {
                change(directRow(y) + rect.left, rect.left, y, count);
                continue;
            }
            m_row.resize(static_cast<std::size_t>(count));
            readPixels(m_view, rect.left, y, count, m_row.data());
            change(m_row.data(), rect.left, y, count);
            storePixels(rect.left, y, count, m_row.data());
        }
    }

    std::shared_ptr<Bitmap> m_bitmap;
    BitmapView m_view;
    bool m_direct = false;
    RECT m_box{0, 0, 0, 0};
    std::vector<RECT> m_clip;
    std::vector<DWORD> m_row;
};

} // namespace wingdi
