// A picture drawn in its three modes.
#include "surfacePicture.h"

#include "imageNumbers.h"
#include "moduleObjects.h"
#include "pictureDecoding.h"
#include "sys/errorNumbers.h"
#include "wrappingInt.h"

using namespace drawing;
using namespace gdi;

namespace {

constexpr int HatchSize = 8; // of the smallest brush that devices take

// The pixels of a picture as a bitmap object, for as long as the picture is drawn; none for a picture without a
// transparent colour.
class Section {
public:
    Section(HDC hdc, const BITMAPINFO* info, const unsigned char* bits, COLORREF transparent)
        : m_transparent(transparent), m_bitmap(nullptr)
    {
        if (transparent == CSurfacePicture::noColor) {
            return;
        }
        void* room = nullptr;
        m_bitmap = CreateDIBSection(hdc, info, DIB_RGB_COLORS, &room, nullptr, 0);
        if (m_bitmap != nullptr) {
            SetDIBits(hdc, m_bitmap, 0, static_cast<UINT>(info->bmiHeader.biHeight), bits, info,
                      DIB_RGB_COLORS);
        }
    }
    ~Section()
    {
        if (m_bitmap != nullptr) {
            DeleteObject(m_bitmap);
        }
    }
    Section(const Section&) = delete;
    Section& operator=(const Section&) = delete;

    HBITMAP get() const { return m_bitmap; }
    COLORREF transparent() const { return m_transparent; }

private:
    COLORREF m_transparent;
    HBITMAP m_bitmap;
};

// Where a picture goes, and which part of it. The source's y counts from the bitmap's bottom row in `sourceY` and
// from its top row in `sourceYFromTop`.
struct Placement {
    int left;
    int top;
    int width;
    int height;
    int sourceX;
    int sourceY;
    int sourceWidth;
    int sourceHeight;
    bool fromBottom; // sourceY has to be turned round for functions that count from the top
};

Placement placementOf(const CSurfacePicture& picture, const RECT& rect, int x, int y, int mode)
{
    int width = wrapSubtract(rect.right, rect.left);
    int height = wrapSubtract(rect.bottom, rect.top);
    if (mode == ScaledMode) {
        return {rect.left, rect.top, width, height, 0, 0, picture.m_width, picture.m_height, false};
    }
    if (height < picture.m_height) {
        y = wrapSubtract(y, wrapSubtract(picture.m_height, height)); // y = 0 shows the top rows
    } else {
        height = picture.m_height;
    }
    width = width > picture.m_width ? picture.m_width : width;
    return {rect.left, rect.top, width, height, x, wrapSubtract(0, y), width, height, true};
}

void drawPlaced(HDC hdc, const Placement& place, const BITMAPINFO* info, const unsigned char* bits,
                HBITMAP section, COLORREF transparent)
{
    const int sourceY =
        place.fromBottom ? wrapSubtract(info->bmiHeader.biHeight, wrapAdd(place.sourceY, place.sourceHeight))
                         : place.sourceY;
    if (section != nullptr &&
        CSurfacePicture::drawTransparent(hdc, section, place.left, place.top, place.width, place.height,
                                         place.sourceX, sourceY, place.sourceWidth, place.sourceHeight,
                                         transparent)) {
        return;
    }
    StretchDIBits(hdc, place.left, place.top, place.width, place.height, place.sourceX, place.sourceY,
                  place.sourceWidth, place.sourceHeight, bits, info, DIB_RGB_COLORS, SRCCOPY);
}

// As many copies of the picture as fit in 8 by 8 pixels.
HBRUSH smallTile(CSurfacePicture& picture, const BITMAPINFO* info, const unsigned char* bits)
{
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, HatchSize, HatchSize);
    const HGDIOBJ former = SelectObject(memory, bitmap);
    for (int x = 0; x < HatchSize; x += picture.m_width) {
        for (int y = 0; y < HatchSize; y += picture.m_height) {
            StretchDIBits(memory, x, y, picture.m_width, picture.m_height, 0, 0, picture.m_width,
                          picture.m_height, bits, info, DIB_RGB_COLORS, SRCCOPY);
        }
    }
    picture.m_width = HatchSize;
    picture.m_height = HatchSize;
    SelectObject(memory, former);
    DeleteDC(memory);
    const HBRUSH brush = CreatePatternBrush(bitmap);
    DeleteObject(bitmap);
    ReleaseDC(nullptr, screen);
    return brush;
}

void tile(CSurfacePicture& picture, HDC hdc, const RECT& rect, int x, int y, const BITMAPINFO* info,
          const unsigned char* bits)
{
    if (picture.m_width < 1 || picture.m_height < 1) {
        return;
    }
    const HBRUSH brush = picture.m_width >= HatchSize && picture.m_height >= HatchSize
                             ? CreateDIBPatternBrushPt(info, DIB_RGB_COLORS)
                             : smallTile(picture, info, bits);
    SetBrushOrgEx(hdc, wrapSubtract(rect.left, x), wrapSubtract(rect.top, y), nullptr);
    FillRect(hdc, &rect, brush);
    DeleteObject(brush);
}

#if defined(_WIN32)
// The compiler puts an exported class's constants into the library only where somebody needs their addresses.
[[gnu::used]] const void* const ExportedConstants[] = {&CSurfacePicture::noColor};
#endif

} // namespace

CSurfacePicture::CSurfacePicture()
    : m_length(0), m_width(0), m_height(0), m_hdc(nullptr), m_data(nullptr), m_type(0)
{
}

CSurfacePicture::~CSurfacePicture()
{
    freeToModuleHeap(m_data);
}

int CSurfacePicture::draw(HDC hdc, RECT* rect, int x, int y, int mode)
{
    FreeImageDesc library(false);
    if (!library.isProcLoaded()) {
        return krnError::ImageLibraryMissing;
    }
    const DecodedImage bitmap(library, decoded(library, *this));
    if (bitmap.get() == nullptr) {
        return krnError::NotConverted;
    }
    if (rect == nullptr) {
        return 0;
    }
    const BITMAPINFO* const info = library.imageGetInfo(bitmap.get());
    const unsigned char* const bits = library.imageGetBits(bitmap.get());
    if (mode == TiledMode) {
        tile(*this, hdc, *rect, x, y, info, bits);
        return 0;
    }
    const Section section(hdc, info, bits,
                          formatOf(*this) == FIF_PNG ? findTransparentColor(info, bits) : noColor);
    if (mode == NaturalMode || mode == ScaledMode) {
        drawPlaced(hdc, placementOf(*this, *rect, x, y, mode), info, bits, section.get(),
                   section.transparent());
    }
    return 0;
}
