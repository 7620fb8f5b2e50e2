// Images: definitions go to the surface at once, uses draw them by their number.
#include "metaFilePlayerSVG.h"

#include <memory>

#include "PageCursor.h"
#include "SvgDialect.h"
#include "SvgPlayerDetail.h"
#include "WalkMemory.h"
#include "imageNumbers.h"
#include "moduleObjects.h"
#include "surface.h"
#include "sys/krnutil.h"
#include "toldOnce.h"
#include "wrappingInt.h"

using namespace drawing;
using namespace svg;

namespace {

// What the writer leaves of an image that it could not convert decodes to this many bytes at most.
constexpr int LongestNoImage = 10;

struct FreeDecoded {
    void operator()(unsigned char* data) const { base64Free(data); }
};

RECT rectOf(const SvgViewport& viewport)
{
    return RECT{viewport.x, viewport.y, wrapAdd(viewport.x, viewport.width),
                wrapAdd(viewport.y, viewport.height)};
}

} // namespace

int CMetaFilePlayerSVG::Detail::processImageDefinition(char* element)
{
    constexpr int IdOffset = 8; // past the "image" of the element's own name
    char* const number = findAfter(stepOver(element, IdOffset), ImageId);
    if (number == nullptr) {
        return -1;
    }
    const auto [id, cursor] = readInteger(number);
    const char* const size = findKey(cursor, "width=");
    char* const typeText = findAfter(cursor, PictureTypeKey);
    char* const data = findAfter(cursor, "base64,");
    if (typeText == nullptr || data == nullptr) {
        return -1;
    }
    int width = 0;
    int height = 0;
    if (size == nullptr || intlSscanNumeric(size, "width='%d' height='%d'", &width, &height) != 2) {
        return 0;
    }
    if (id > GreatestImageId) {
        if (firstTold(m_player.m_memory->toldImages, static_cast<unsigned int>(id))) {
            moduleLog.log("CMetaFilePlayerSVG::player - Image id %d is above %d", id, GreatestImageId);
        }
        return 0;
    }
    const int picType = integerAt(typeText);
    char* const text = stepOver(data, 1); // the line feed after the comma
    endValue(text);
    unsigned char* decoded = nullptr;
    int decodedSize = 0;
    base64Decode(text, decoded, decodedSize);
    const std::unique_ptr<unsigned char, FreeDecoded> owner(decoded);
    if (decodedSize > LongestNoImage && id >= 0) {
        m_player.m_surface->includeImage(static_cast<unsigned int>(id), decoded, decodedSize, width, height,
                                         picType);
    }
    return 0;
}

int CMetaFilePlayerSVG::Detail::processImageUse(char* element, const char* name, int x, int y)
{
    if (m_player.m_memory->depth == 0) {
        return 0; // outside a nested <svg> there is no frame to draw in
    }
    RECT frame = rectOf(*m_player.m_viewport);
    if (const char* const digits = afterPrefix(name, ImageId)) {
        // The frame of a scaled image has the viewBox of the image's own size.
        const RECT& viewBox = m_player.m_viewport->viewBox;
        const bool ownSize =
            m_player.m_viewport->width == viewBox.right && m_player.m_viewport->height == viewBox.bottom;
        m_player.m_surface->drawImage(&frame, static_cast<unsigned int>(integerAt(digits)),
                                      ownSize ? NaturalMode : ScaledMode, x, y);
    } else if (beginsWith(name, TiledImageSymbol)) {
        char* const number = findAfter(element, PatternId);
        CSurfaceBrush brush;
        if (number == nullptr) {
            return 0;
        }
        if (usePattern(integerAt(number, 0), &brush) < 0) {
            return -1;
        }
        m_player.m_surface->drawImage(&frame, static_cast<unsigned int>(brush.getPicture()), TiledMode, x, y);
    }
    return 0;
}
