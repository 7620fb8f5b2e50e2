// The pictures of a surface: held encoded under the caller's ids, drawn, and made into brushes.
#include <cstring>
#include <memory>

#include "GdiDetail.h"
#include "moduleObjects.h"
#include "pictureDecoding.h"
#include "surfaceGDI.h"

using namespace drawing;
using namespace gdi;

namespace {

constexpr unsigned int NotHeld = 0; // positions count from 1

unsigned int positionOf(const Vector<unsigned int, 10>& ids, unsigned int id)
{
    for (unsigned int position = 1; position <= ids.size(); ++position) {
        if (*ids.at(position) == id) {
            return position;
        }
    }
    return NotHeld;
}

// By the containers' own rule of growth, ahead of an add that must not fail.
template <typename Table>
void makeRoom(Table& table)
{
    if (table.size() == table.capacity()) {
        table.reSize(table.capacity() * 3 / 2 + 1);
    }
}

// Null without memory.
std::unique_ptr<CSurfacePicture> pictureOf(const unsigned char* data, unsigned int size)
{
    std::unique_ptr<CSurfacePicture> picture(new CSurfacePicture);
    if (!picture) {
        return nullptr;
    }
    picture->m_data = static_cast<unsigned char*>(allocateFromModuleHeap(size));
    if (picture->m_data == nullptr) {
        return nullptr;
    }
    std::memcpy(picture->m_data, data, size);
    picture->m_length = size;
    return picture;
}

} // namespace

int CSurfaceGDI::requiredPictureType(int /*picType*/)
{
    return 1;
}

void CSurfaceGDI::includeImage(unsigned int id, unsigned char* data, int size, int width, int height,
                               int picType)
{
    if (data == nullptr || size < 1 || positionOf(m_pictureIds, id) != NotHeld) {
        return;
    }
    std::unique_ptr<CSurfacePicture> picture = pictureOf(data, static_cast<unsigned int>(size));
    if (!picture) {
        return;
    }
    picture->m_width = width;
    picture->m_height = height;
    picture->m_hdc = m_hdc;
    picture->m_type = picType;
    // Both or neither: the two run in parallel.
    makeRoom(m_pictureIds);
    makeRoom(m_pictures);
    m_pictureIds.add(id);
    m_pictures.add(picture.release());
}

void CSurfaceGDI::drawImage(RECT* rect, unsigned int id, int mode, int x, int y)
{
    if (rect == nullptr) {
        return;
    }
    if (const unsigned int position = positionOf(m_pictureIds, id); position != NotHeld) {
        m_pictures.at(position)->draw(m_hdc, rect, x, y, mode);
    }
}

// Hollow for a position that holds no picture; null for a picture that can't be decoded.
HBRUSH CSurfaceGDI::Detail::pictureBrush(int position) const
{
    CSurfacePicture* const picture =
        position > 0 ? m_surface.m_pictures.at(static_cast<unsigned int>(position)) : nullptr;
    if (picture == nullptr) {
        return static_cast<HBRUSH>(GetStockObject(NULL_BRUSH));
    }
    FreeImageDesc library(false);
    if (!library.isProcLoaded()) {
        return nullptr;
    }
    const DecodedImage bitmap(library, decoded(library, *picture));
    return bitmap.get() != nullptr
               ? CreateDIBPatternBrushPt(library.imageGetInfo(bitmap.get()), DIB_RGB_COLORS)
               : nullptr;
}
