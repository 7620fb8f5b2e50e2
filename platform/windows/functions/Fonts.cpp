// Font objects: descriptions only; what they look like is decided where text is laid out.
#include <algorithm>
#include <cstring>
#include <iterator>
#include <utility>

#include <sys/krnos.h>

#include "DeviceContext.h"
#include "FontDescriptions.h"
#include "HandleTable.h"
#include "failWith.h"

using namespace wingdi;

namespace {

// Both forms begin with the same 28 bytes, up to the face.
constexpr std::size_t CommonSize = offsetof(LOGFONTA, lfFaceName);
static_assert(CommonSize == offsetof(LOGFONTW, lfFaceName));

} // namespace

LOGFONTW wingdi::wideDescription(const LOGFONTA& font)
{
    LOGFONTW wide{};
    std::memcpy(&wide, &font, CommonSize);
    char face[LF_FACESIZE] = {};
    std::copy_n(font.lfFaceName, LF_FACESIZE - 1, face); // a face may come without its zero
    unsigned short converted[LF_FACESIZE] = {};
    intlCStringToUnicode(face, converted, LF_FACESIZE);
    std::ranges::copy(converted, wide.lfFaceName);
    return wide;
}

LOGFONTA wingdi::narrowDescription(const LOGFONTW& font)
{
    LOGFONTA narrow{};
    std::memcpy(&narrow, &font, CommonSize);
    unsigned short face[LF_FACESIZE] = {};
    std::copy_n(font.lfFaceName, LF_FACESIZE - 1, face);
    intlUnicodeToCString(face, narrow.lfFaceName, LF_FACESIZE);
    return narrow;
}

HFONT CreateFontIndirectA(const LOGFONTA* font)
{
    if (font == nullptr) {
        return failWith(ERROR_INVALID_PARAMETER, nullptr);
    }
    const LOGFONTW wide = wideDescription(*font);
    return CreateFontIndirectW(&wide);
}

HFONT CreateFontIndirectW(const LOGFONTW* font)
{
    if (font == nullptr) {
        return failWith(ERROR_INVALID_PARAMETER, nullptr);
    }
    return guarded<HFONT>(nullptr, [&] {
        auto object = std::make_shared<FontObject>();
        object->description = *font;
        object->description.lfFaceName[LF_FACESIZE - 1] = 0;
        return static_cast<HFONT>(HandleTable::instance().add(std::move(object)));
    });
}
