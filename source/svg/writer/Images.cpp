// Images and the patterns over them.
//
// A page carries its images inside: one element each in the definitions, with the bytes in Base64, and short
// references wherever it is placed. PNG and JPEG stay as they are; everything else becomes PNG. A failed
// conversion costs the image's data and nothing else: an element without data remains.
#include "surfaceSVG.h"

#include <cstdlib>

#include "SvgChange.h"
#include "SvgDialect.h"
#include "SvgWriterDetail.h"
#include "decodedImage.h"
#include "imageNumbers.h"
#include "moduleObjects.h"
#include "pageText.h"
#include "rectangle.h"
#include "sys/errorNumbers.h"
#include "sys/krnutil.h"
#include "toldOnce.h"

using namespace drawing;
using namespace svg;

namespace {

// The format of the data by the caller's picture type; unknown: by the data's own signature.
struct PictureType {
    int type;
    FREE_IMAGE_FORMAT format;
};

constexpr PictureType PictureTypes[] = {
    {1, FIF_BMP}, {3, FIF_ICO}, {5, FIF_ICO}, {6, FIF_TIFF}, {7, FIF_JPEG}, {8, FIF_PNG}, {9, FIF_GIF},
};

FREE_IMAGE_FORMAT formatOf(int picType)
{
    for (const PictureType& row : PictureTypes) {
        if (row.type == picType) {
            return row.format;
        }
    }
    return FIF_UNKNOWN;
}

// What base64Encode gave.
struct Base64Text {
    Base64Text() = default;
    Base64Text(const Base64Text&) = delete;
    Base64Text& operator=(const Base64Text&) = delete;
    ~Base64Text() { base64Free(characters); }

    char* characters = nullptr;
};

// So that atPut needs no memory.
template <typename T>
void makeRoomFor(Vector<T, 10>& table, unsigned int index)
{
    if (index >= table.capacity()) {
        table.reSize(index + 1);
    }
}

// Encodes as `format` and gives Base64 text; 0, or an error number.
int encodeBitmap(FreeImageDesc& library, FREE_IMAGE_FORMAT format, FIBITMAP* bitmap, char*& text,
                 int& textLength)
{
    fiio_mem_handle_s encoded{};
    if (!library.imageSaveToMem(format, bitmap, &encoded)) {
        return krnError::NotConverted;
    }
    const int result = base64Encode(static_cast<unsigned char*>(encoded.data),
                                    static_cast<unsigned int>(encoded.datalen), text, textLength, false);
    std::free(encoded.data);
    return result;
}

} // namespace

void CSurfaceSVG::includeImage(unsigned int id, unsigned char* data, int size, int width, int height,
                               int picType)
{
    if (id > GreatestImageId) {
        if (firstTold(m_toldImages, id)) {
            moduleLog.log("CSurfaceSVG::includeImage Image id %u is above %d", id, GreatestImageId);
        }
        return;
    }
    Base64Text text;
    int textLength = 0;
    const int error = convertImage(data, size, picType, text.characters, textLength);
    TovoTextString element(TextRoom{200});
    appendPieces(element, ImageTag, " id='", ImageId, id, "' width='", width, "' height='", height, "' ",
                 PictureTypeKey, picType, "' preserveAspectRatio='defer' ", HrefKey, "data:;base64,\n");
    if (error == 0) {
        element.append(text.characters, static_cast<unsigned int>(textLength));
    }
    appendPieces(element, "'/>\n");
    makeRoomFor(m_imageSizes, id);
    makeRoomFor(m_imagesIncluded, id);
    m_imageDefs.append(element);
    // The image counts once it is written.
    m_imageSizes.atPut(id, POINT{width, height});
    m_imagesIncluded.atPut(id, true);
}

int CSurfaceSVG::convertImage(unsigned char* data, int size, int picType, char*& text, int& textLength)
{
    if (data == nullptr || size <= 0) {
        return krnError::NotConverted;
    }
    FreeImageDesc library(false);
    FREE_IMAGE_FORMAT source = formatOf(picType);
    if (source == FIF_UNKNOWN) {
        if (!library.isProcLoaded()) {
            return krnError::ImageLibraryMissing;
        }
        source = formatOfData(library, data, size);
    }
    const FREE_IMAGE_FORMAT target = source == FIF_JPEG ? FIF_JPEG : FIF_PNG;
    if (source == target) {
        return base64Encode(data, static_cast<unsigned int>(size), text, textLength, false);
    }
    if (!library.isProcLoaded()) {
        return krnError::ImageLibraryMissing;
    }
    DecodedImage bitmap(library, library.imageLoadFromMem(source, data, static_cast<unsigned int>(size)));
    if (bitmap.get() == nullptr) {
        return krnError::NotConverted;
    }
    constexpr int TrueColor = 24; // bits a pixel
    if (library.imageGetInfo(bitmap.get())->bmiHeader.biBitCount < TrueColor) {
        bitmap.replace(library.imageConvertTo24Bits(bitmap.get()));
        if (bitmap.get() == nullptr) {
            return krnError::NotConverted;
        }
    }
    return encodeBitmap(library, target, bitmap.get(), text, textLength);
}

const POINT* CSurfaceSVG::Detail::sizeOfImage(int id) const
{
    const unsigned int index = static_cast<unsigned int>(id); // none below 0 lies in the table
    const bool* const included = m_page.m_imagesIncluded.atGet(index);
    return included != nullptr && *included ? m_page.m_imageSizes.atGet(index) : nullptr;
}

void CSurfaceSVG::drawImage(RECT* rect, unsigned int id, int mode, int x, int y)
{
    const POINT* const size = Detail(*this).sizeOfImage(wrapToInt(id));
    if (rect == nullptr || size == nullptr) {
        return;
    }
    const int width = widthOf(*rect);
    const int height = heightOf(*rect);
    Detail::Change change(*this);
    TovoTextString element(TextRoom{400});
    appendPieces(element, "\n", SvgTag, " x='", int{rect->left}, "' y='", int{rect->top}, "' width='", width,
                 "' height='", height, "' ", ViewBoxKey, "0 0 ");
    if (mode == ScaledMode) {
        appendPieces(element, int{size->x}, " ", int{size->y});
    } else if (mode == NaturalMode || mode == TiledMode) {
        appendPieces(element, width, " ", height);
    }
    appendPieces(element, "' preserveAspectRatio='xMinYMin meet'>\n\t", UseTag, " x='", x, "' y='", y);
    if (mode == TiledMode) {
        makePatternDef(wrapToInt(id));
        appendPieces(element, "' width='", width, "' height='", height, "' ", FillKey, "url(",
                     PatternReference, m_patternCount, ")' ", HrefKey, "#", TiledImageSymbol);
        m_symbolsUsed |= Detail::TiledImageUsed;
    } else {
        appendPieces(element, "' ", HrefKey, "#", ImageId, id);
    }
    appendPieces(element, "'/>\n", SvgEndTag, "\n");
    m_body.append(element);
    change.keep();
}

void CSurfaceSVG::makePatternDef(int image)
{
    const POINT* const size = Detail(*this).sizeOfImage(image);
    if (size == nullptr) {
        return;
    }
    ++m_patternCount;
    appendPieces(m_patternDefs, PatternTag, " id='", PatternId, m_patternCount,
                 "' patternUnits='userSpaceOnUse' x='0' y='0' width='", int{size->x}, "' height='",
                 int{size->y}, "'>", UseTag, " ", HrefKey, "#", ImageId, image, "'/>", PatternEndTag, "\n");
}
