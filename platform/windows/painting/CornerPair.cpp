#include "CornerPair.h"

#include <algorithm>
#include <cstdint>

#include "EncodedPicture.h"

namespace wingdi {

namespace {

LONG sum(int first, int second)
{
    return static_cast<LONG>(std::clamp<std::int64_t>(std::int64_t{first} + second, INT32_MIN, INT32_MAX));
}

} // namespace

void takeFirstPixel(CornerPair& corners, bool leftward, bool upward) noexcept
{
    if (leftward && corners.second.x < corners.first.x) {
        corners.first.x = std::min(corners.first.x, INT32_MAX - 1) + 1;
        ++corners.second.x;
    }
    if (upward && corners.second.y < corners.first.y) {
        corners.first.y = std::min(corners.first.y, INT32_MAX - 1) + 1;
        ++corners.second.y;
    }
}

CornerPair cornersOf(const SourceArea& area, const Mapping& toPixels)
{
    return {toPixels.toDevice({area.x, area.y}),
            toPixels.toDevice({sum(area.x, area.width), sum(area.y, area.height)})};
}

CornerPair cornersOfDib(const SourceArea& area, bool bottomUp)
{
    CornerPair corners = cornersOf(area, Mapping{});
    takeFirstPixel(corners, area.width < 0, area.height < 0 && !bottomUp);
    if (area.height < 0 && bottomUp) {
        // Among rows that are counted from the bottom, those after the first are below it.
        corners.first.y = sum(corners.first.y, -1);
        corners.second.y = sum(corners.second.y, -1);
    }
    return corners;
}

std::optional<BitmapView> viewOf(const DibHead& head, const BITMAPINFO* info, const void* bits, UINT usage,
                                 std::shared_ptr<Bitmap>& expanded)
{
    if (head.compression == BI_RLE8 || head.compression == BI_RLE4) {
        expanded = Bitmap::createDib(head, bits);
        return expanded ? std::optional(expanded->view()) : std::nullopt;
    }
    if (isEncoded(head)) {
        expanded = decodePicture(head, {static_cast<const BYTE*>(bits), head.bitsBytes});
        return expanded ? std::optional(expanded->view()) : std::nullopt;
    }
    return viewDib({reinterpret_cast<const BYTE*>(info), head.headBytes},
                   {static_cast<const BYTE*>(bits), head.bitsBytes}, usage);
}

} // namespace wingdi
