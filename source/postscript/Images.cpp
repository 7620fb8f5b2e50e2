// Images: taken in once, as text, and written out wherever they are drawn.
#include "surfacePSPrinter.h"

#include <memory>

#include "PostScriptChange.h"
#include "PostScriptDetail.h"
#include "PostScriptPieces.h"
#include "PostScriptSamples.h"
#include "imageNumbers.h"
#include "putByNumber.h"

using namespace drawing;
using namespace postscript;

CPostScriptImage* CSurfacePSPrinter::Detail::imageAt(unsigned int id) const
{
    return m_page.m_images.atGet(id);
}

// An image that cannot be decoded stays in the table without data: its id is taken, and it draws nothing.
void CSurfacePSPrinter::includeImage(unsigned int id, unsigned char* data, int size, int width, int height,
                                     int picType)
{
    if (id > GreatestImageId) {
        Detail(*this).tellOfRefusedImage(id);
        return;
    }
    if (Detail(*this).imageAt(id) != nullptr) {
        return;
    }
    std::unique_ptr<CPostScriptImage> image(new CPostScriptImage);
    if (image == nullptr) {
        return;
    }
    image->m_width = width;
    image->m_height = height;
    image->m_compressed = picType != JpegPicture && picType != TilePicture;
    encodeImage(data, size, picType, image->m_compressed, width, height, true, &image->m_data,
                image->m_bitsPerPixel);
    putByNumber(m_images, id, static_cast<CPostScriptImage*>(nullptr)); // room, before anything can be seen
    if (picType == TilePicture) {
        Detail(*this).definePattern(static_cast<int>(id), width, height, image->m_data);
    }
    m_images[id] = image.release();
}

void CSurfacePSPrinter::Detail::appendImageDictionary(TovoTextString& s, int width, int height)
{
    appendPieces(s, "<< /ImageType 1 /Width ", width, " /Height ", height,
                 " /BitsPerComponent 8 /ImageMatrix [", width, " 0 0 ", height,
                 " 0 0] /Decode [0 1 0 1 0 1] /DataSource");
}

void CSurfacePSPrinter::drawImage(RECT* rect, unsigned int id, int mode, int /*x*/, int /*y*/)
{
    const CPostScriptImage* const image = Detail(*this).imageAt(id);
    if (rect == nullptr || image == nullptr || image->m_data.isEmpty()) {
        return;
    }
    const bool scaled = mode == ScaledMode;
    const int width = scaled ? widthOf(*rect) : image->m_width;
    const int height = scaled ? heightOf(*rect) : image->m_height;
    Detail::Change change(*this);
    TovoTextString head(TextRoom{100});
    appendPieces(head, "gsave\n newpath ");
    appendPath(head, rect);
    appendPieces(head, " clip newpath\n",
                 PsPoint{rect->left, scaled ? int{rect->bottom} : wrapAdd(rect->top, image->m_height)},
                 " translate ", width, " ", height, " scale ");
    if (mode == TiledMode) {
        Detail(*this).usePattern(static_cast<int>(id));
        appendPieces(head, "\n[/Pattern /DeviceRGB] setcolorspace Pattern", id,
                     " setpattern  clippath fill\ngrestore\n");
        m_body.append(head);
        change.keep();
        return;
    }
    appendPieces(head, " /DeviceRGB setcolorspace\n");
    Detail::appendImageDictionary(head, image->m_width, image->m_height);
    appendPieces(head, " currentfile /ASCIIHexDecode filter",
                 std::string_view(image->m_compressed ? " /RunLengthDecode filter\n" : "\n"));
    if (image->m_bitsPerPixel == WithTransparency) {
        m_proceduresUsed |= Detail::TransparentImageUsed;
        appendPieces(head, ">> 1 transparentimage\n");
    } else {
        appendPieces(head, ">> image\n");
    }
    constexpr std::string_view End = "\n>\ngrestore\n";
    // Samples may be many, so they are copied once only: with the room made first, no part can fail.
    m_body.room(lengthIn32Bits(std::uint64_t{head.length()} + image->m_data.length() + End.size()));
    m_body.append(head);
    m_body.append(image->m_data);
    appendPieces(m_body, End);
    change.keep();
}
