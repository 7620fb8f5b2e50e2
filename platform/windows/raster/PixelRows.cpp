#include "PixelRows.h"

#include <algorithm>
#include <cstring>

#include "DeviceContext.h"

namespace wingdi {

namespace {

// Nearer to white than to black.
bool isLight(DWORD pixel)
{
    return (pixel >> 16 & 0xFF) + (pixel >> 8 & 0xFF) + (pixel & 0xFF) > 382;
}

void storeBits(BYTE* row, int x, int count, const DWORD* pixels)
{
    for (int i = 0; i < count; ++i) {
        const auto bit = static_cast<BYTE>(0x80 >> ((x + i) & 7));
        BYTE& octet = row[(x + i) >> 3];
        octet = static_cast<BYTE>(isLight(pixels[i]) ? octet | bit : octet & ~bit);
    }
}

} // namespace

Canvas::Canvas(const DeviceContext& context, const Region* within)
{
    if (!context.bitmap || !context.bitmap->bitmap) {
        return;
    }
    m_bitmap = context.bitmap->bitmap;
    m_view = m_bitmap->view();
    m_direct = hasCommonOrder(m_view);
    m_box = {0, 0, m_view.width, m_view.height};
    const bool clipped = context.state.clip || context.state.metaClip;
    if (!clipped && within == nullptr) {
        return;
    }
    Region clip = clipped ? *context.effectiveClip() : *within;
    if (clipped && within != nullptr) {
        clip.combine(*within, RGN_AND);
    }
    setClip(clip);
}

void Canvas::setClip(const Region& clip)
{
    m_box = overlap(m_box, clip.box());
    if (clip.complexity() != COMPLEXREGION) {
        return;
    }
    m_clip = clip.rectangles();
    for (RECT& piece : m_clip) {
        piece = overlap(piece, m_box);
    }
    std::erase_if(m_clip, isEmpty);
    if (m_clip.size() <= 1) {
        m_box = m_clip.empty() ? RECT{0, 0, 0, 0} : m_clip.front();
        m_clip.clear();
    }
}

std::size_t Canvas::firstBand(int y) const noexcept
{
    const auto found = std::partition_point(m_clip.begin(), m_clip.end(),
                                            [y](const RECT& rect) { return rect.bottom <= y; });
    return static_cast<std::size_t>(found - m_clip.begin());
}

bool Canvas::contains(int x, int y) const noexcept
{
    const auto holds = [x, y](const RECT& rect) {
        return x >= rect.left && x < rect.right && y >= rect.top && y < rect.bottom;
    };
    if (!holds(m_box) || m_clip.empty()) {
        return holds(m_box);
    }
    for (std::size_t i = firstBand(y); i < m_clip.size() && m_clip[i].top <= y; ++i) {
        if (holds(m_clip[i])) {
            return true;
        }
    }
    return false;
}

void Canvas::fill(const RECT& rect, const Ink& ink)
{
    change(rect, [&ink](DWORD* pixels, int x, int y, int count) { ink.lay(pixels, x, y, count); });
}

void Canvas::storePixels(int x, int y, int count, const DWORD* pixels)
{
    BYTE* row = m_bitmap->row(y);
    if (m_bitmap->isMonochrome()) {
        storeBits(row, x, count, pixels);
        return;
    }
    if (m_view.bitsPerPixel == 24) {
        BYTE* octet = row + std::ptrdiff_t{3} * x;
        for (int i = 0; i < count; ++i, octet += 3) {
            octet[0] = static_cast<BYTE>(pixels[i]);
            octet[1] = static_cast<BYTE>(pixels[i] >> 8);
            octet[2] = static_cast<BYTE>(pixels[i] >> 16);
        }
        return;
    }
    for (int i = 0; i < count; ++i) {
        m_bitmap->setPixel(x + i, y, pixels[i] & 0xFFFFFF);
    }
}

} // namespace wingdi
