#include "Region.h"

#include <cairo.h>

#include <algorithm>
#include <new>

namespace wingdi {

namespace {

constexpr int MostRectangles = 1'000'000;

LONG limited(LONG value) noexcept
{
    return std::clamp(value, -RegionLimit, RegionLimit);
}

cairo_rectangle_int_t cairoRect(const RECT& rect) noexcept
{
    const LONG left = limited(std::min(rect.left, rect.right));
    const LONG top = limited(std::min(rect.top, rect.bottom));
    return {left, top, limited(std::max(rect.left, rect.right)) - left,
            limited(std::max(rect.top, rect.bottom)) - top};
}

RECT rectOf(const cairo_rectangle_int_t& rect) noexcept
{
    return {rect.x, rect.y, rect.x + rect.width, rect.y + rect.height};
}

} // namespace

// Takes over a region that cairo made.
void Region::adopt(_cairo_region* region)
{
    std::shared_ptr<_cairo_region> owned(region, cairo_region_destroy);
    if (cairo_region_status(region) != CAIRO_STATUS_SUCCESS) {
        throw std::bad_alloc();
    }
    if (cairo_region_num_rectangles(region) > MostRectangles) {
        cairo_rectangle_int_t box;
        cairo_region_get_extents(region, &box);
        adopt(cairo_region_create_rectangle(&box));
        return;
    }
    m_region = std::move(owned);
}

Region::Region(const RECT& rect)
{
    const cairo_rectangle_int_t box = cairoRect(rect);
    if (box.width > 0 && box.height > 0) {
        adopt(cairo_region_create_rectangle(&box));
    }
}

Region::Region(std::span<const RECT> rects)
{
    std::vector<cairo_rectangle_int_t> boxes;
    boxes.reserve(rects.size());
    for (const RECT& rect : rects) {
        const cairo_rectangle_int_t box = cairoRect(rect);
        if (box.width > 0 && box.height > 0) {
            boxes.push_back(box);
        }
    }
    if (!boxes.empty()) {
        adopt(cairo_region_create_rectangles(boxes.data(), static_cast<int>(boxes.size())));
    }
}

void Region::combine(const Region& other, int mode)
{
    if (mode == RGN_COPY) {
        m_region = other.m_region;
        return;
    }
    using Operation = cairo_status_t (*)(cairo_region_t*, const cairo_region_t*);
    constexpr Operation Operations[] = {cairo_region_intersect, cairo_region_union, cairo_region_xor,
                                        cairo_region_subtract};
    if (mode < RGN_AND || mode > RGN_DIFF) {
        return;
    }
    const Region nothing;
    const auto own = [](const Region& region) {
        return region.m_region ? cairo_region_copy(region.m_region.get()) : cairo_region_create();
    };
    cairo_region_t* result = own(*this);
    cairo_region_t* second = other.m_region ? cairo_region_reference(other.m_region.get()) : own(nothing);
    Operations[mode - RGN_AND](result, second); // a failure stays in the status of the result
    cairo_region_destroy(second);
    adopt(result);
}

void Region::translate(int x, int y)
{
    if (!m_region) {
        return;
    }
    // Within the limit, so that no coordinate leaves 32 bits.
    const RECT old = box();
    const auto moved = [](LONG low, LONG high, int distance) {
        return std::clamp(std::int64_t{distance}, std::int64_t{-2} * RegionLimit - low,
                          std::int64_t{2} * RegionLimit - high);
    };
    cairo_region_t* result = cairo_region_copy(m_region.get());
    cairo_region_translate(result, static_cast<int>(moved(old.left, old.right, x)),
                           static_cast<int>(moved(old.top, old.bottom, y)));
    adopt(result);
    combine(Region(RECT{-RegionLimit, -RegionLimit, RegionLimit, RegionLimit}), RGN_AND);
}

bool Region::empty() const noexcept
{
    return !m_region || cairo_region_is_empty(m_region.get()) != 0;
}

bool Region::contains(int x, int y) const noexcept
{
    return m_region && cairo_region_contains_point(m_region.get(), x, y) != 0;
}

RECT Region::box() const noexcept
{
    if (empty()) {
        return {};
    }
    cairo_rectangle_int_t box;
    cairo_region_get_extents(m_region.get(), &box);
    return rectOf(box);
}

std::vector<RECT> Region::rectangles() const
{
    std::vector<RECT> result;
    const int count = m_region ? cairo_region_num_rectangles(m_region.get()) : 0;
    result.reserve(static_cast<std::size_t>(count));
    for (int index = 0; index < count; ++index) {
        cairo_rectangle_int_t rect;
        cairo_region_get_rectangle(m_region.get(), index, &rect);
        result.push_back(rectOf(rect));
    }
    return result;
}

int Region::complexity() const noexcept
{
    if (empty()) {
        return NULLREGION;
    }
    return cairo_region_num_rectangles(m_region.get()) == 1 ? SIMPLEREGION : COMPLEXREGION;
}

} // namespace wingdi
