// VectorDevice: pictures, and the three steps that draw one with holes.
#include <algorithm>
#include <cstdint>

#include "BlendRule.h"
#include "CornerPair.h"
#include "DeviceContext.h"
#include "EncodedPicture.h"
#include "PixelColor.h"
#include "VectorDevice.h"
#include "VectorPictures.h"

namespace wingdi {

namespace {

constexpr BYTE SourceCopy = ternaryOf(SRCCOPY);
constexpr BYTE SourceXor = ternaryOf(SRCINVERT);
constexpr BYTE SourceAnd = ternaryOf(SRCAND);

bool holdsPixels(const DeviceContext& context)
{
    return context.bitmap && context.bitmap->bitmap;
}

bool isSame(const Mapping& first, const Mapping& second)
{
    return first.xx == second.xx && first.xy == second.xy && first.yx == second.yx && first.yy == second.yy &&
           first.dx == second.dx && first.dy == second.dy;
}

// From pixels of an area, counted from the corner of a part of it, to the page: the area's first corner comes to the
// target's left and top, its second one to right and bottom.
Mapping wayToPage(const CornerPair& area, const RECT& part, const RECT& target, const Mapping& toDevice)
{
    const double width = static_cast<double>(area.second.x) - area.first.x;
    const double height = static_cast<double>(area.second.y) - area.first.y;
    Mapping toTarget;
    toTarget.xx = (static_cast<double>(target.right) - target.left) / width;
    toTarget.yy = (static_cast<double>(target.bottom) - target.top) / height;
    toTarget.dx = target.left + (static_cast<double>(part.left) - area.first.x) * toTarget.xx;
    toTarget.dy = target.top + (static_cast<double>(part.top) - area.first.y) * toTarget.yy;
    return toTarget.then(toDevice);
}

ColorRule colorsOf(const DeviceContext& target, const DeviceContext& source)
{
    if (!source.bitmap->bitmap->isMonochrome()) {
        return {};
    }
    return {ColorRule::Kind::FromMonochrome, pixelOf(target.state.backColor),
            pixelOf(target.state.textColor)};
}

} // namespace

bool VectorDevice::copy(DeviceContext& context, const RECT& target, DeviceContext& source,
                        const SourceArea& area, DWORD operation, bool stretch)
{
    if (m_page == nullptr || !holdsPixels(source)) {
        return false;
    }
    CornerPair corners = cornersOf(area, source.mapping());
    if (stretch) {
        takeFirstPixel(corners, area.width < 0, area.height < 0);
    }
    place(context, source.bitmap->bitmap->view(), corners, target, colorsOf(context, source), operation);
    return true;
}

bool VectorDevice::copyDib(DeviceContext& context, const RECT& target, const BITMAPINFO* info,
                           const void* bits, UINT usage, const SourceArea& area, DWORD operation)
{
    const std::optional<DibHead> head = readPictureHead(info, usage);
    if (!head || bits == nullptr || m_page == nullptr) {
        return false;
    }
    std::shared_ptr<Bitmap> expanded;
    const std::optional<BitmapView> view = viewOf(*head, info, bits, usage, expanded);
    if (!view) {
        return false;
    }
    std::span<const BYTE> jpeg(static_cast<const BYTE*>(bits),
                               head->compression == BI_JPEG ? head->bitsBytes : 0);
    if (!isCommonJpeg(jpeg, head->width, head->height)) {
        jpeg = {};
    }
    place(context, *view, cornersOfDib(area, head->bottomUp), target, {}, operation, jpeg);
    return true;
}

bool VectorDevice::alphaBlend(DeviceContext& context, const RECT& target, DeviceContext& source,
                              const SourceArea& area, const AlphaShare& share)
{
    if (m_page == nullptr || !holdsPixels(source)) {
        return false;
    }
    const BitmapView view = source.bitmap->bitmap->view();
    const CornerPair corners = cornersOf(area, source.mapping());
    const RECT part{corners.first.x, corners.first.y, corners.second.x, corners.second.y};
    if (begin(context) && part.left < part.right && part.top < part.bottom) {
        m_page->picture(transparentPictureOf(view, part, colorsOf(context, source), share),
                        wayToPage(corners, part, target, context.mapping()),
                        context.state.stretchMode == HALFTONE, Blend::Normal);
    }
    return true;
}

void VectorDevice::place(const DeviceContext& context, const BitmapView& view, const CornerPair& corners,
                         const RECT& target, const ColorRule& colors, DWORD operation,
                         std::span<const BYTE> jpeg)
{
    const RECT part{std::clamp<LONG>(std::min(corners.first.x, corners.second.x), 0, view.width),
                    std::clamp<LONG>(std::min(corners.first.y, corners.second.y), 0, view.height),
                    std::clamp<LONG>(std::max(corners.first.x, corners.second.x), 0, view.width),
                    std::clamp<LONG>(std::max(corners.first.y, corners.second.y), 0, view.height)};
    const bool isEmptyTarget = target.left == target.right || target.top == target.bottom;
    if (part.left >= part.right || part.top >= part.bottom || isEmptyTarget) {
        return;
    }
    const std::shared_ptr<VectorPicture> picture = pictureOf(view, part, colors);
    if (picture->width == view.width && picture->height == view.height) {
        picture->jpeg.assign(jpeg.begin(), jpeg.end());
    }
    const Placed placed{picture, wayToPage(corners, part, target, context.mapping()),
                        context.state.stretchMode == HALFTONE};
    const BYTE table = ternaryOf(operation);
    if (takeStep(context, placed, table)) {
        return;
    }
    if (table == SourceXor && begin(context)) {
        m_steps = MaskedSteps{placed, std::nullopt, m_clip};
        return;
    }
    if (!begin(context)) {
        return;
    }
    const bool patterned = usesPattern(table);
    m_approximations += patterned ? 1 : 0;
    put(placed, blendWithSource(patterned ? SourceCopy : table));
}

bool VectorDevice::takeStep(const DeviceContext& context, const Placed& placed, BYTE operation)
{
    if (!m_steps || placed.smooth != m_steps->picture.smooth || !isSame(clipOf(context), m_steps->clip) ||
        !isSame(m_steps->picture.toPage, placed.toPage) ||
        m_steps->picture.picture->width != placed.picture->width ||
        m_steps->picture.picture->height != placed.picture->height) {
        return false;
    }
    if (!m_steps->mask) {
        const bool isMask = operation == SourceAnd && isBlackAndWhite(*placed.picture);
        if (isMask) {
            m_steps->mask = placed;
        }
        return isMask;
    }
    if (operation != SourceXor || placed.picture->id != m_steps->picture.picture->id) {
        return false;
    }
    const std::shared_ptr<const VectorPicture> picture = masked(*placed.picture, *m_steps->mask->picture);
    m_steps.reset();
    m_page->picture(picture, placed.toPage, placed.smooth, Blend::Normal);
    return true;
}

void VectorDevice::flush()
{
    if (!m_steps || m_page == nullptr) {
        return;
    }
    const MaskedSteps steps = std::move(*m_steps);
    m_steps.reset();
    put(steps.picture, blendWithSource(SourceXor));
    if (steps.mask) {
        put(*steps.mask, blendWithSource(SourceAnd));
    }
}

void VectorDevice::put(const Placed& placed, const BlendRule& rule)
{
    const VectorPicture& picture = *placed.picture;
    Outline area;
    for (const POINT corner : {POINT{0, 0}, POINT{picture.width, 0}, POINT{picture.width, picture.height},
                               POINT{0, picture.height}}) {
        const DevicePoint point = placed.toPage.apply(corner.x, corner.y);
        const DevicePoint moved{point.x - 0.5, point.y - 0.5};
        if (area.empty()) {
            area.moveTo(moved);
        } else {
            area.lineTo(moved);
        }
    }
    area.close();
    VectorPaint white;
    white.color = 0xFFFFFF;
    white.blend = Blend::Difference;
    if (rule.invertsBefore) {
        m_page->fill(area, WINDING, white);
    }
    switch (rule.operand) {
    case BlendRule::Operand::Given:
        m_page->picture(placed.picture, placed.toPage, placed.smooth, rule.blend);
        break;
    case BlendRule::Operand::Inverted:
        m_page->picture(inverted(picture), placed.toPage, placed.smooth, rule.blend);
        break;
    case BlendRule::Operand::Black:
    case BlendRule::Operand::White: {
        VectorPaint paint;
        paint.color = rule.operand == BlendRule::Operand::White ? 0xFFFFFF : 0;
        m_page->fill(area, WINDING, paint);
        break;
    }
    case BlendRule::Operand::None:
        break;
    }
    if (rule.invertsAfter) {
        m_page->fill(area, WINDING, white);
    }
    m_approximations += isPlain(rule) ? 0 : 1;
}

} // namespace wingdi
