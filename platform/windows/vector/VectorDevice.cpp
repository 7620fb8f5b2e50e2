#include "VectorDevice.h"

#include <algorithm>
#include <cmath>

#include "BlendRule.h"
#include "ClipShapes.h"
#include "DeviceContext.h"
#include "LineOfText.h"
#include "PixelColor.h"
#include "RealizedFont.h"
#include "VectorPictures.h"

namespace wingdi {

namespace {

constexpr int RasterPrinter = 2; // the answer to TECHNOLOGY
constexpr double MillimetersPerInch = 25.4;

bool isPageOrPart(const VectorClip& clip)
{
    return !clip.rectangles || !clip.rectangles->empty();
}

// A logical rectangle by its edges. An outline's points are middles of pixels.
Outline areaOf(const Mapping& mapping, const RECT& rect)
{
    const auto edge = [&mapping](LONG x, LONG y) {
        const DevicePoint point = mapping.apply(x, y);
        return DevicePoint{point.x - 0.5, point.y - 0.5};
    };
    Outline area;
    area.moveTo(edge(rect.left, rect.top));
    area.lineTo(edge(rect.right, rect.top));
    area.lineTo(edge(rect.right, rect.bottom));
    area.lineTo(edge(rect.left, rect.bottom));
    area.close();
    return area;
}

void invert(VectorPaint& paint)
{
    constexpr COLORREF White = 0xFFFFFF;
    paint.color ^= White;
    if (paint.gaps) {
        *paint.gaps ^= White;
    }
    if (paint.tile) {
        paint.tile = inverted(*paint.tile);
    }
}

VectorPaint plain(COLORREF color, Blend blend = Blend::Normal)
{
    VectorPaint paint;
    paint.color = color;
    paint.blend = blend;
    return paint;
}

std::shared_ptr<const VectorPicture> tileOf(const ContextState& state, const Bitmap& pattern, UINT style)
{
    const BitmapView view = pattern.view();
    ColorRule colors;
    if (style == BS_PATTERN && pattern.isMonochrome()) {
        colors = {ColorRule::Kind::FromMonochrome, pixelOf(state.backColor), pixelOf(state.textColor)};
    }
    return pictureOf(view, {0, 0, view.width, view.height}, colors);
}

// Clips of more are regions.
constexpr std::size_t MostClipPoints = 4096;
constexpr std::size_t MostClipShapes = 16;
// Of all clips of a page: each is written anew wherever it begins to be in force.
constexpr std::size_t MostClipPieces = std::size_t{1} << 21;

constexpr COLORREF WhiteInk = 0xFFFFFF;

// What a rule makes of a paint; nothing when it paints nothing.
std::optional<VectorPaint> ruled(const BlendRule& rule, VectorPaint paint)
{
    switch (rule.operand) {
    case BlendRule::Operand::None:
        return std::nullopt;
    case BlendRule::Operand::Black:
        return plain(0);
    case BlendRule::Operand::White:
        return plain(WhiteInk);
    case BlendRule::Operand::Inverted:
        invert(paint);
        break;
    case BlendRule::Operand::Given:
        break;
    }
    paint.blend = rule.blend;
    return paint;
}

} // namespace

bool isSame(const VectorClip& first, const VectorClip& second)
{
    const auto isSameRect = [](const RECT& a, const RECT& b) {
        return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
    };
    const auto isSameShape = [](const VectorClip::Shape& a, const VectorClip::Shape& b) {
        return a.outline == b.outline && a.fillMode == b.fillMode;
    };
    if (first.rectangles.has_value() != second.rectangles.has_value()) {
        return false;
    }
    return (!first.rectangles || std::ranges::equal(*first.rectangles, *second.rectangles, isSameRect)) &&
           std::ranges::equal(first.shapes, second.shapes, isSameShape);
}

void VectorDevice::setPageSize(double width, double height, int dotsPerInch)
{
    m_dotsPerInch = dotsPerInch;
    m_width = width;
    m_height = height;
}

void VectorDevice::setPage(VectorPage* page)
{
    m_page = page;
    m_clipBudget = MostClipPieces;
    m_clip = {};
    m_steps.reset();
}

int VectorDevice::capability(int index) const
{
    const auto units = [this](double millimeters) {
        return static_cast<int>(std::lround(millimeters * m_dotsPerInch / MillimetersPerInch));
    };
    switch (index) {
    case TECHNOLOGY:
        return RasterPrinter;
    case HORZSIZE:
        return static_cast<int>(std::lround(m_width));
    case VERTSIZE:
        return static_cast<int>(std::lround(m_height));
    case HORZRES:
        return units(m_width);
    case VERTRES:
        return units(m_height);
    case BITSPIXEL:
        return 32;
    case PLANES:
        return 1;
    case RASTERCAPS:
        return RC_BITBLT | RC_STRETCHBLT;
    case LOGPIXELSX:
    case LOGPIXELSY:
        return m_dotsPerInch;
    default:
        return 0;
    }
}

VectorClip VectorDevice::clipOf(const DeviceContext& context, const Region* within)
{
    VectorClip clip;
    std::optional<Region> region = context.effectiveClip();
    if (within != nullptr) {
        Region both = region ? *region : *within;
        both.combine(*within, RGN_AND);
        region = both;
    }
    if (region) {
        clip.rectangles = region->rectangles();
    }
    for (const auto* const shapes : {&context.state.metaClipShapes, &context.state.clipShapes}) {
        for (const ClipShape& shape : *shapes) {
            clip.shapes.push_back({shape.outline, shape.fillMode});
        }
    }
    return clip;
}

VectorClip VectorDevice::affordable(const VectorClip& clip)
{
    std::size_t pieces = clip.rectangles ? clip.rectangles->size() : 0;
    for (const VectorClip::Shape& shape : clip.shapes) {
        pieces += shape.outline->size();
    }
    if (pieces <= m_clipBudget) {
        m_clipBudget -= pieces;
        return clip;
    }
    ++m_approximations;
    VectorClip box;
    if (clip.rectangles) {
        box.rectangles = std::vector{Region(*clip.rectangles).box()};
    }
    return box;
}

bool VectorDevice::begin(const DeviceContext& context, const Region* within)
{
    if (m_page == nullptr) {
        return false;
    }
    flush();
    VectorClip clip = clipOf(context, within);
    if (!isSame(clip, m_clip)) {
        m_page->setClip(affordable(clip));
        m_clip = std::move(clip);
    }
    return isPageOrPart(m_clip);
}

void VectorDevice::fill(const Outline& area, int fillMode, const VectorPaint& paint, BYTE operation)
{
    const BlendRule rule = blendWithPattern(operation);
    if (rule.invertsBefore) {
        m_page->fill(area, fillMode, plain(WhiteInk, Blend::Difference));
    }
    if (const std::optional<VectorPaint> ink = ruled(rule, paint)) {
        m_page->fill(area, fillMode, *ink);
    }
    if (rule.invertsAfter) {
        m_page->fill(area, fillMode, plain(WhiteInk, Blend::Difference));
    }
    m_approximations += isPlain(rule) ? 0 : 1;
}

PenLook VectorDevice::lookOnPage(const DeviceContext& context) const
{
    PenLook look = lookOf(context, *context.state.pen);
    if (look.thin) {
        look.thin = false;
        look.width = screenPixel();
        look.style = (look.style & ~static_cast<DWORD>(PS_ENDCAP_MASK | PS_JOIN_MASK)) | PS_ENDCAP_SQUARE |
                     PS_JOIN_MITER;
        for (double& dash : look.dashes) {
            dash *= screenPixel();
        }
        if (!look.dashes.empty()) {
            look.style = (look.style & ~static_cast<DWORD>(PS_ENDCAP_MASK)) | PS_ENDCAP_FLAT;
        }
    }
    return look;
}

void VectorDevice::stroke(const DeviceContext& context, const Outline& lines)
{
    const std::optional<VectorPaint> paint = paintOf(context, *context.state.pen);
    if (!paint) {
        return;
    }
    const PenLook look = lookOnPage(context);
    const BlendRule rule = blendWithPattern(ternaryOfBinary(context.state.rop2));
    if (look.gapColor && isPlain(rule)) {
        PenLook below = look;
        below.dashes.clear();
        m_page->stroke(lines, below, plain(colorOf(*look.gapColor)));
    }
    if (rule.invertsBefore) {
        m_page->stroke(lines, look, plain(WhiteInk, Blend::Difference));
    }
    if (const std::optional<VectorPaint> ink = ruled(rule, *paint)) {
        m_page->stroke(lines, look, *ink);
    }
    if (rule.invertsAfter) {
        m_page->stroke(lines, look, plain(WhiteInk, Blend::Difference));
    }
    m_approximations += isPlain(rule) ? 0 : 1;
}

std::optional<VectorPaint> VectorDevice::paintOf(const DeviceContext& context, const BrushObject& brush) const
{
    VectorPaint paint;
    paint.color = brush.color;
    paint.unit = screenPixel();
    paint.origin = context.state.brushOrigin;
    const bool opaque = context.state.backMode == OPAQUE;
    switch (brush.style) {
    case BS_SOLID:
        return paint;
    case BS_HATCHED:
        paint.hatch = brush.hatch;
        paint.gaps = opaque ? std::optional(context.state.backColor) : std::nullopt;
        return paint;
    case BS_PATTERN:
    case BS_DIBPATTERNPT:
        paint.tile = brush.pattern ? tileOf(context.state, *brush.pattern, brush.style) : nullptr;
        return paint.tile ? std::optional(paint) : std::nullopt;
    default:
        return std::nullopt;
    }
}

std::optional<VectorPaint> VectorDevice::paintOf(const DeviceContext& context, const PenObject& pen) const
{
    if ((pen.style & PS_STYLE_MASK) == PS_NULL || pen.brushStyle == BS_NULL) {
        return std::nullopt;
    }
    VectorPaint paint = plain(pen.color);
    if (pen.brushStyle == BS_HATCHED) {
        paint.hatch = pen.hatch;
        paint.unit = screenPixel();
        paint.origin = context.state.brushOrigin;
        paint.gaps = context.state.backMode == OPAQUE ? std::optional(context.state.backColor) : std::nullopt;
    } else if (pen.pattern) {
        paint.unit = screenPixel();
        paint.origin = context.state.brushOrigin;
        paint.tile = tileOf(context.state, *pen.pattern, pen.brushStyle);
    }
    return paint;
}

void VectorDevice::drawShape(DeviceContext& context, const Outline& outline, bool isArea)
{
    if (!begin(context)) {
        return;
    }
    const ContextState& state = context.state;
    if (isArea) {
        if (const std::optional<VectorPaint> paint = paintOf(context, *state.brush)) {
            fill(outline, state.polyFillMode, *paint, ternaryOfBinary(state.rop2));
        }
    }
    stroke(context, outline);
}

void VectorDevice::drawPath(DeviceContext& context, const DrawnPath& path)
{
    if (!begin(context)) {
        return;
    }
    const ContextState& state = context.state;
    const std::optional<VectorPaint> paint =
        path.filled ? paintOf(context, *state.brush) : std::optional<VectorPaint>();
    if (paint && path.widened) {
        m_page->stroke(path.outline, lookOnPage(context), *paint);
    } else if (paint) {
        fill(path.outline, state.polyFillMode, *paint, ternaryOfBinary(state.rop2));
    }
    if (path.stroked) {
        stroke(context, path.outline);
    }
}

// An outline that only narrows the clip stays one; its region is the box around it.
bool VectorDevice::selectClipPath(DeviceContext& context, int mode)
{
    std::optional<Outline> path = takePath();
    if (!path) {
        return false;
    }
    ContextState& state = context.state;
    const bool isLarge = path->size() > MostClipPoints || state.clipShapes.size() >= MostClipShapes;
    if ((mode != RGN_AND && mode != RGN_COPY) || isLarge) {
        flattenClip(context);
        Region clip = state.clip ? *state.clip : Region(context.deviceArea());
        clip.combine(visibleRegion(*path, context.deviceArea(), state.polyFillMode), mode);
        state.clip = std::move(clip);
        return true;
    }
    if (mode == RGN_COPY) {
        state.clip.reset();
        state.clipShapes.clear();
    }
    RECT box = path->box();
    ++box.right;
    ++box.bottom;
    Region clip = state.clip ? *state.clip : Region(box);
    clip.combine(Region(box), RGN_AND);
    state.clip = std::move(clip);
    state.clipShapes.push_back({std::make_shared<const Outline>(std::move(*path)), state.polyFillMode});
    return true;
}

bool VectorDevice::patternBlt(DeviceContext& context, std::span<const RECT> rects, const BrushObject& brush,
                              DWORD operation)
{
    const BYTE table = ternaryOf(operation);
    const std::optional<VectorPaint> paint =
        usesPattern(table) ? paintOf(context, brush) : std::optional(VectorPaint{});
    if (begin(context) && paint) {
        const Mapping mapping = context.mapping();
        for (const RECT& rect : rects) {
            fill(areaOf(mapping, rect), WINDING, *paint, table);
        }
    }
    return m_page != nullptr;
}

bool VectorDevice::fillRegion(DeviceContext& context, const Region& region,
                              const std::shared_ptr<BrushObject>& brush)
{
    const std::optional<VectorPaint> paint = paintOf(context, *brush);
    if (begin(context) && paint) {
        // One area, so that neighbours show no seam.
        Outline all;
        const Mapping mapping = context.mapping();
        for (const RECT& rect : region.rectangles()) {
            all.append(areaOf(mapping, rect));
        }
        if (!all.empty()) {
            fill(all, WINDING, *paint, ternaryOfBinary(context.state.rop2));
        }
    }
    return m_page != nullptr;
}

bool VectorDevice::floodFill(DeviceContext& /*context*/, POINT /*start*/, COLORREF /*color*/, UINT /*type*/)
{
    return false;
}

// A pixel of the device.
bool VectorDevice::setPixel(DeviceContext& context, POINT point, COLORREF color)
{
    const POINT at = context.mapping().toDevice(point);
    const RECT area = context.deviceArea();
    if (!begin(context) || at.x < area.left || at.y < area.top || at.x >= area.right || at.y >= area.bottom) {
        return false;
    }
    m_page->fill(areaOf(Mapping{}, {at.x, at.y, at.x + 1, at.y + 1}), WINDING, plain(color));
    return true;
}

COLORREF VectorDevice::pixel(DeviceContext& /*context*/, POINT /*point*/)
{
    return CLR_INVALID;
}

bool VectorDevice::text(DeviceContext& context, const TextOutput& output)
{
    const VectorPaint back = plain(context.state.backColor);
    if ((output.options & ETO_OPAQUE) != 0 && begin(context)) {
        m_page->fill(areaOf(context.mapping(), output.rect), WINDING, back);
    }
    const bool clipped = (output.options & ETO_CLIPPED) != 0;
    const Region within = clipped ? textClip(context, output.rect) : Region();
    if (!begin(context, clipped ? &within : nullptr) || output.text.empty() || !output.font) {
        return m_page != nullptr;
    }
    const LineSpace space = spaceOf(output);
    const auto drawBar = [&](double top, double bottom, const VectorPaint& paint) {
        Outline bar = barOf(space, 0, top, lengthOf(output.deviceAdvances), bottom);
        bar.move(-0.5, -0.5);
        m_page->fill(bar, WINDING, paint);
    };
    const TEXTMETRICA& metrics = output.font->metrics();
    if (context.state.backMode == OPAQUE) {
        drawBar(-metrics.tmAscent, metrics.tmDescent, back);
    }
    m_page->text(output, context.state.textColor);
    const VectorPaint ink = plain(context.state.textColor);
    const int thickness = output.font->lineThickness();
    if (metrics.tmUnderlined != 0) {
        const int top = output.font->underlinePosition();
        drawBar(top, top + thickness, ink);
    }
    if (metrics.tmStruckOut != 0) {
        const int top = output.font->strikeOutPosition();
        drawBar(top, top + thickness, ink);
    }
    return true;
}

} // namespace wingdi
