#include "CairoPage.h"

#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <cstring>

#include "CairoPicture.h"
#include "DeviceRect.h"
#include "LongStroke.h"
#include "PixelColor.h"

namespace wingdi {

namespace {

constexpr std::size_t MostHatches = 256; // kept at a time
constexpr double HatchSize = 8;
constexpr std::size_t MostPointsOfDashes = 1024; // that cairo dashes itself

double part(COLORREF color, int shift)
{
    return static_cast<double>(color >> shift & 0xFF) / 255;
}

void setColor(cairo_t* cairo, COLORREF color)
{
    cairo_set_source_rgb(cairo, part(color, 0), part(color, 8), part(color, 16));
}

cairo_operator_t operatorOf(Blend blend)
{
    constexpr cairo_operator_t Operators[] = {CAIRO_OPERATOR_OVER, CAIRO_OPERATOR_MULTIPLY,
                                              CAIRO_OPERATOR_SCREEN, CAIRO_OPERATOR_DIFFERENCE};
    return Operators[static_cast<std::size_t>(blend)];
}

cairo_matrix_t matrixOf(const Mapping& mapping)
{
    return {mapping.xx, mapping.xy, mapping.yx, mapping.yy, mapping.dx, mapping.dy};
}

bool isUsable(const cairo_matrix_t& matrix)
{
    constexpr double Largest = 1e7;
    const double parts[] = {matrix.xx, matrix.yx, matrix.xy, matrix.yy, matrix.x0, matrix.y0};
    const bool inRange = std::all_of(std::begin(parts), std::end(parts), [](double value) {
        return std::isfinite(value) && std::abs(value) <= Largest;
    });
    return inRange && std::abs(matrix.xx * matrix.yy - matrix.xy * matrix.yx) > 1e-12;
}

// The lines of a hatch, a pixel of the screen wide, through the middles of the pixels that the hatch has there. Those that
// slant go on in the neighbours' corners.
void drawHatch(cairo_t* cairo, DWORD hatch)
{
    const auto line = [cairo](double x1, double y1, double x2, double y2) {
        cairo_move_to(cairo, x1, y1);
        cairo_line_to(cairo, x2, y2);
    };
    constexpr double Middle = 4.5;
    if (hatch == HS_HORIZONTAL || hatch == HS_CROSS) {
        line(0, Middle, HatchSize, Middle);
    }
    if (hatch == HS_VERTICAL || hatch == HS_CROSS) {
        line(Middle, 0, Middle, HatchSize);
    }
    for (const double shift : {-HatchSize, 0.0, HatchSize}) {
        if (hatch == HS_FDIAGONAL || hatch == HS_DIAGCROSS) {
            line(shift - 1, -1, shift + HatchSize + 1, HatchSize + 1);
        }
        if (hatch == HS_BDIAGONAL || hatch == HS_DIAGCROSS) {
            line(shift - 1, HatchSize + 1, shift + HatchSize + 1, -1);
        }
    }
    cairo_set_line_width(cairo, 1);
    cairo_stroke(cairo);
}

} // namespace

CairoPage::CairoPage(cairo_surface_t* surface, double scale, double width, double height)
    : m_cairo(cairo_create(surface)), m_scale(scale), m_width(width), m_height(height)
{
    begin();
    setColor(m_cairo.get(), 0xFFFFFF);
    cairo_paint(m_cairo.get());
}

void CairoPage::begin()
{
    cairo_scale(m_cairo.get(), m_scale, m_scale);
}

void CairoPage::recover()
{
    cairo_surface_t* const surface = cairo_get_target(m_cairo.get());
    if (cairo_status(m_cairo.get()) == CAIRO_STATUS_SUCCESS ||
        cairo_surface_status(surface) != CAIRO_STATUS_SUCCESS) {
        return;
    }
    m_cairo.reset(cairo_create(surface));
    begin();
    setClip(VectorClip(m_clip));
}

bool CairoPage::finish()
{
    cairo_reset_clip(m_cairo.get());
    cairo_show_page(m_cairo.get());
    return cairo_status(m_cairo.get()) == CAIRO_STATUS_SUCCESS;
}

bool CairoPage::isDocument() const
{
    return cairo_surface_get_type(cairo_get_target(m_cairo.get())) == CAIRO_SURFACE_TYPE_PDF;
}

RECT CairoPage::visibleBox() const
{
    return grown({0, 0, static_cast<LONG>(m_width) + 1, static_cast<LONG>(m_height) + 1}, Nearby);
}

void CairoPage::setClip(const VectorClip& clip)
{
    m_clip = clip;
    cairo_t* const cairo = m_cairo.get();
    cairo_reset_clip(cairo);
    const RECT around = visibleBox();
    if (clip.rectangles) {
        for (const RECT& rect : *clip.rectangles) {
            const RECT seen = overlap(rect, around);
            cairo_rectangle(cairo, seen.left, seen.top, static_cast<double>(seen.right) - seen.left,
                            static_cast<double>(seen.bottom) - seen.top);
        }
        cairo_set_fill_rule(cairo, CAIRO_FILL_RULE_WINDING);
        cairo_clip(cairo);
    }
    for (const VectorClip::Shape& shape : clip.shapes) {
        shape.outline->clippedArea(around).trace(cairo);
        cairo_set_fill_rule(cairo,
                            shape.fillMode == WINDING ? CAIRO_FILL_RULE_WINDING : CAIRO_FILL_RULE_EVEN_ODD);
        cairo_clip(cairo);
    }
}

cairo_surface_t* CairoPage::hatchTile(const HatchKey& key)
{
    if (const auto found = m_hatches.find(key); found != m_hatches.end()) {
        return found->second.get();
    }
    if (m_hatches.size() >= MostHatches) {
        m_hatches.clear();
    }
    const cairo_rectangle_t extent{0, 0, HatchSize, HatchSize};
    Surface tile(cairo_recording_surface_create(CAIRO_CONTENT_COLOR_ALPHA, &extent));
    const std::unique_ptr<cairo_t, CairoRelease> cairo(cairo_create(tile.get()));
    if (key.gaps) {
        setColor(cairo.get(), *key.gaps);
        cairo_paint(cairo.get());
    }
    setColor(cairo.get(), key.color);
    drawHatch(cairo.get(), key.hatch);
    return m_hatches.emplace(key, std::move(tile)).first->second.get();
}

bool CairoPage::setSource(const VectorPaint& paint)
{
    cairo_t* const cairo = m_cairo.get();
    cairo_set_operator(cairo, operatorOf(paint.blend));
    if (!paint.hatch && !paint.tile) {
        setColor(cairo, paint.color);
        return true;
    }
    Surface picture = paint.tile ? surfaceOf(*paint.tile) : nullptr;
    cairo_surface_t* const tile =
        paint.tile ? picture.get() : hatchTile({*paint.hatch, paint.color, paint.gaps});
    if (tile == nullptr) {
        return false;
    }
    cairo_set_source_surface(cairo, tile, 0, 0);
    cairo_pattern_t* const pattern = cairo_get_source(cairo);
    cairo_pattern_set_extend(pattern, CAIRO_EXTEND_REPEAT);
    cairo_pattern_set_filter(pattern, paint.tile ? CAIRO_FILTER_NEAREST : CAIRO_FILTER_GOOD);
    cairo_matrix_t toTile;
    cairo_matrix_init_scale(&toTile, 1 / paint.unit, 1 / paint.unit);
    cairo_matrix_translate(&toTile, -paint.origin.x, -paint.origin.y);
    cairo_pattern_set_matrix(pattern, &toTile);
    return true;
}

void CairoPage::fill(const Outline& area, int fillMode, const VectorPaint& paint)
{
    if (!setSource(paint)) {
        return;
    }
    cairo_t* const cairo = m_cairo.get();
    const RECT around = visibleBox();
    if (liesWithin(area.box(), around)) {
        area.trace(cairo);
    } else {
        area.clippedArea(around).trace(cairo);
    }
    cairo_set_fill_rule(cairo, fillMode == WINDING ? CAIRO_FILL_RULE_WINDING : CAIRO_FILL_RULE_EVEN_ODD);
    cairo_fill(cairo);
    recover();
}

void CairoPage::stroke(const Outline& lines, const PenLook& pen, const VectorPaint& paint)
{
    if (!setSource(paint)) {
        return;
    }
    const int reach = static_cast<int>(std::ceil(pen.reach()));
    const RECT around = grown(visibleBox(), reach);
    const bool isNear = liesWithin(grown(lines.box(), reach), around);
    if (isDocument()) {
        write(isNear ? lines : lines.clippedLines(around, pen.dashes), pen, isNear);
    } else if (isNear && (pen.dashes.empty() || lines.size() <= MostPointsOfDashes)) {
        paintStroke(lines, pen, paint.blend);
    } else {
        PenLook plain = pen;
        plain.dashes.clear();
        paintStroke(lines.clippedLines(around, pen.dashes), plain, paint.blend);
    }
    recover();
}

// In the surface's own units a line takes fewer bytes: a document writes down each scale that is in force.
void CairoPage::write(const Outline& lines, const PenLook& pen, bool dashed)
{
    cairo_t* const cairo = m_cairo.get();
    cairo_matrix_t before;
    cairo_get_matrix(cairo, &before);
    lines.trace(cairo);
    PenLook look = pen;
    if (!pen.nib) {
        cairo_identity_matrix(cairo);
        look.width *= m_scale;
        std::ranges::for_each(look.dashes, [this](double& dash) { dash *= m_scale; });
    }
    cairo_set_dash(cairo, look.dashes.data(), dashed ? static_cast<int>(look.dashes.size()) : 0, 0);
    strokeTraced(cairo, look);
    cairo_set_dash(cairo, nullptr, 0, 0);
    cairo_set_matrix(cairo, &before);
}

// What many strokes cover meets the page once.
void CairoPage::paintStroke(const Outline& lines, const PenLook& pen, Blend blend)
{
    cairo_t* const cairo = m_cairo.get();
    const bool grouped = blend != Blend::Normal;
    if (grouped) {
        cairo_push_group(cairo);
        cairo_set_operator(cairo, CAIRO_OPERATOR_OVER);
    }
    cairo_set_dash(cairo, pen.dashes.data(), static_cast<int>(pen.dashes.size()), 0);
    strokeOutline(cairo, pen, lines);
    cairo_set_dash(cairo, nullptr, 0, 0);
    if (grouped) {
        cairo_pop_group_to_source(cairo);
        cairo_set_operator(cairo, operatorOf(blend));
        cairo_paint(cairo);
    }
}

// Cairo's PDF would name a picture's object twice among those of the page. As a form of its own it has a name of its own,
// and the pixels are still the same object.
CairoPage::Surface CairoPage::again(Surface picture, int width, int height, bool smooth) const
{
    if (!isDocument()) {
        return picture;
    }
    const cairo_rectangle_t extent{0, 0, static_cast<double>(width), static_cast<double>(height)};
    Surface form(cairo_recording_surface_create(CAIRO_CONTENT_COLOR_ALPHA, &extent));
    const std::unique_ptr<cairo_t, CairoRelease> cairo(cairo_create(form.get()));
    cairo_set_source_surface(cairo.get(), picture.get(), 0, 0);
    cairo_pattern_set_filter(cairo_get_source(cairo.get()),
                             smooth ? CAIRO_FILTER_GOOD : CAIRO_FILTER_NEAREST);
    cairo_rectangle(cairo.get(), 0, 0, width, height);
    cairo_fill(cairo.get());
    return form;
}

void CairoPage::picture(const std::shared_ptr<const VectorPicture>& picture, const Mapping& toPage,
                        bool smooth, Blend blend)
{
    const cairo_matrix_t matrix = matrixOf(toPage);
    Surface surface = isUsable(matrix) ? surfaceOf(*picture) : nullptr;
    if (surface == nullptr) {
        return;
    }
    if (!m_shown.insert(picture->id).second) {
        surface = again(std::move(surface), picture->width, picture->height, smooth);
    }
    cairo_t* const cairo = m_cairo.get();
    cairo_save(cairo);
    cairo_set_operator(cairo, operatorOf(blend));
    cairo_transform(cairo, &matrix);
    cairo_set_source_surface(cairo, surface.get(), 0, 0);
    cairo_pattern_set_filter(cairo_get_source(cairo), smooth ? CAIRO_FILTER_GOOD : CAIRO_FILTER_NEAREST);
    cairo_rectangle(cairo, 0, 0, picture->width, picture->height);
    cairo_fill(cairo);
    cairo_restore(cairo);
    recover();
}

} // namespace wingdi
