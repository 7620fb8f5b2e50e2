// Lets cairo paint on a canvas. A plain ink on a bitmap of 32 bits, top row first, is painted by cairo itself;
// otherwise cairo paints a mask of coverage, window by window, and the ink is laid down through it: cairo knows neither
// raster operations on the bits of pixels nor bitmaps whose rows go upwards or hold other forms of pixels.
#pragma once

#include <windows.h>

#include <memory>
#include <vector>

#include "Bitmap.h"
#include "CairoRelease.h"
#include "PixelRows.h"

namespace wingdi {

class CairoPainter {
public:
    // Calls draw(cairo, window) to paint the part of a shape that lies within a window, in device units, with a source
    // and a clip that are set already; it leaves no path and no transform behind. Nothing of the shape lies outside
    // `bounds`.
    template <class Draw>
    void paint(Canvas& canvas, const RECT& bounds, const Ink& ink, const Draw& draw)
    {
        const RECT visible = overlap(bounds, canvas.box());
        if (isEmpty(visible)) {
            return;
        }
        if (cairo_t* direct = beginDirect(canvas, ink)) {
            draw(direct, visible);
            endDirect();
            return;
        }
        for (int top = visible.top; top < visible.bottom; top += WindowSize) {
            for (int left = visible.left; left < visible.right; left += WindowSize) {
                const RECT window = overlap(visible, {left, top, left + WindowSize, top + WindowSize});
                if (cairo_t* mask = beginMask(window)) {
                    draw(mask, window);
                    layMask(canvas, window, ink);
                }
            }
        }
    }

private:
    static constexpr int WindowSize = 4096;

    // Null when the bitmap or the ink can't be left to cairo.
    cairo_t* beginDirect(Canvas& canvas, const Ink& ink);
    void endDirect();
    void applyClip(const Canvas& canvas);
    // A mask without coverage; null without memory.
    cairo_t* beginMask(const RECT& window);
    void layMask(Canvas& canvas, const RECT& window, const Ink& ink);

    // The bitmap painted on last, kept because cairo goes on to know its pixels.
    std::shared_ptr<Bitmap> m_bitmap;
    std::unique_ptr<cairo_surface_t, CairoRelease> m_surface;
    std::unique_ptr<cairo_t, CairoRelease> m_cairo;
    DWORD m_color = 0;
    RECT m_clipBox{0, 0, 0, 0};
    std::vector<RECT> m_clip;

    std::unique_ptr<cairo_surface_t, CairoRelease> m_mask;
    std::unique_ptr<cairo_t, CairoRelease> m_maskCairo;
};

} // namespace wingdi
