// How the encoded bytes of a picture become pixels.
#pragma once

#include "decodedImage.h"
#include "imageNumbers.h"
#include "surfacePicture.h"

namespace gdi {

using namespace drawing;

// Pictures of type 7 are JPEG, all others PNG.
inline FREE_IMAGE_FORMAT formatOf(const CSurfacePicture& picture)
{
    return picture.m_type == JpegPicture ? FIF_JPEG : FIF_PNG;
}

// Null without the image library and for bytes that can't be decoded.
inline FIBITMAP* decoded(FreeImageDesc& library, const CSurfacePicture& picture)
{
    return library.imageLoadFromMem(formatOf(picture), picture.m_data, picture.m_length);
}

} // namespace gdi
