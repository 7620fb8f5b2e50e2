// The player itself, and the size of a page.
#include "metaFilePlayerEMF.h"

#include <cstdint>

#include "MetafileText.h"
#include "moduleObjects.h"
#include "surface.h"

using namespace drawing;
using namespace metafile;

namespace {

// Handles are logged in 32 bits, as the line's format has it.
unsigned int shortened(const void* handle)
{
    return static_cast<unsigned int>(reinterpret_cast<std::uintptr_t>(handle));
}

// How many pixels of the reference device an extent in hundredths of a millimetre has, by the size of the device
// in both units; neither is 0.
float pixels(LONG from, LONG to, LONG deviceMillimeters, LONG devicePixels)
{
    const float perPixel = static_cast<float>(deviceMillimeters) * 100.0F / static_cast<float>(devicePixels);
    return static_cast<float>(std::int64_t{to} - from) / perPixel;
}

bool isSize(float value)
{
    constexpr float Beyond = 4294967296.0F;
    return value >= 0 && value < Beyond;
}

} // namespace

CMetaFilePlayerEMF::CMetaFilePlayerEMF(unsigned char* page, unsigned int length)
    : m_metafile(SetEnhMetaFileBits(length, page))
{
}

CMetaFilePlayerEMF::~CMetaFilePlayerEMF()
{
    if (m_metafile != nullptr) {
        DeleteEnhMetaFile(m_metafile);
    }
}

int CMetaFilePlayerEMF::play(CSurface* surface, RECT* rect)
{
    const HDC device = surface != nullptr ? surface->getEMFPlayerDestination() : nullptr;
    if (m_metafile == nullptr || device == nullptr) {
        moduleLog.log("CMetaFilePlayerEMF::player - output device=%x, emf=%x, both should be non-zero",
                      shortened(device), shortened(m_metafile));
        return 0;
    }
    return rect != nullptr && PlayEnhMetaFile(device, m_metafile, rect) != FALSE ? 1 : 0;
}

int CMetaFilePlayerEMF::metaFileFormat()
{
    return 1;
}

void CMetaFilePlayerEMF::getImageSize(unsigned char* page, int length, unsigned int& width,
                                      unsigned int& height)
{
    // The header as far as the size in millimetres, where its shortest form ends; whatever its own size says.
    const metafile::Record header{EMR_HEADER, 0, metafile::pageOf(page, length)};
    const auto frame = header.field<RECTL>(offsetof(ENHMETAHEADER, rclFrame));
    const auto device = header.field<SIZEL>(offsetof(ENHMETAHEADER, szlDevice));
    const auto millimeters = header.field<SIZEL>(offsetof(ENHMETAHEADER, szlMillimeters));
    if (!frame || !device || !millimeters) {
        width = 0;
        height = 0;
        return;
    }
    if (device->cx == 0 || device->cy == 0 || millimeters->cx == 0 || millimeters->cy == 0) {
        return;
    }
    const float across = pixels(frame->left, frame->right, millimeters->cx, device->cx);
    const float down = pixels(frame->top, frame->bottom, millimeters->cy, device->cy);
    const bool sized = isSize(across) && isSize(down);
    width = sized ? static_cast<unsigned int>(across) : 0;
    height = sized ? static_cast<unsigned int>(down) : 0;
}
