// The measuring functions of <windows.h>.
#include <windows.h>

#include "CodePageText.h"
#include "TextMeasure.h"
#include "failWith.h"

using namespace wingdi;

namespace {

// Partial extents stop at the first above `maximum`.
struct PartialExtents {
    INT* extents;
    INT* fit;
    int maximum;
};

bool measureText(const DeviceContext& context, const char* text, int length, PartialExtents partial,
                 SIZE& size)
{
    TextMeasure measure(context);
    if (length < 0 || (text == nullptr && length > 0) || !measure.font()) {
        return failWith(ERROR_INVALID_PARAMETER, false);
    }
    std::int64_t total = 0;
    int fitting = 0;
    bool fits = true;
    for (int index = 0; index < length; ++index) {
        total += measure.next(wideCharacter(text[index]));
        if (partial.extents == nullptr && partial.fit == nullptr) {
            continue;
        }
        const LONG extent = measure.logicalWidth(total);
        fits = fits && (partial.fit == nullptr || extent <= partial.maximum);
        if (fits) {
            ++fitting;
            if (partial.extents != nullptr) {
                partial.extents[index] = extent;
            }
        }
    }
    if (partial.fit != nullptr) {
        *partial.fit = fitting;
    }
    size = {measure.logicalWidth(total), measure.logicalHeight(measure.font()->metrics().tmHeight)};
    return true;
}

} // namespace

BOOL WINAPI GetTextExtentExPointA(HDC context, LPCSTR text, int length, int maximum, INT* fit, INT* extents,
                                  SIZE* size)
{
    return onContext(context, "GetTextExtentExPointA", BOOL{FALSE}, [&](DeviceContext& found) -> BOOL {
        const PartialExtents partial{extents, fit, maximum};
        return size != nullptr && measureText(found, text, length, partial, *size) ? TRUE : FALSE;
    });
}

BOOL WINAPI GetTextExtentPoint32A(HDC context, LPCSTR text, int length, SIZE* size)
{
    return onContext(context, "GetTextExtentPoint32A", BOOL{FALSE}, [&](DeviceContext& found) -> BOOL {
        const PartialExtents none{nullptr, nullptr, 0};
        return size != nullptr && measureText(found, text, length, none, *size) ? TRUE : FALSE;
    });
}

BOOL WINAPI GetTextMetricsA(HDC context, TEXTMETRICA* metrics)
{
    return onContext(context, "GetTextMetricsA", BOOL{FALSE}, [&](DeviceContext& found) -> BOOL {
        const TextMeasure measure(found);
        if (metrics == nullptr || !measure.font()) {
            return failWith(ERROR_INVALID_PARAMETER, FALSE);
        }
        *metrics = measure.font()->metrics();
        metrics->tmHeight = measure.logicalHeight(metrics->tmHeight);
        metrics->tmAscent = measure.logicalHeight(metrics->tmAscent);
        metrics->tmDescent = metrics->tmHeight - metrics->tmAscent;
        metrics->tmInternalLeading = measure.logicalHeight(metrics->tmInternalLeading);
        metrics->tmExternalLeading = measure.logicalHeight(metrics->tmExternalLeading);
        metrics->tmAveCharWidth = measure.logicalWidth(metrics->tmAveCharWidth);
        metrics->tmMaxCharWidth = measure.logicalWidth(metrics->tmMaxCharWidth);
        return TRUE;
    });
}
