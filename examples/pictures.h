// The picture that the report shows: drawn pixel by pixel, then encoded as each type that surfaces take.
//
// Called by the page of pictures. Encoding goes through the image library of the platform. Without it there are no
// pictures, the bitmap included, which a page could not keep either.
#pragma once

#include <vector>

// A kind of encoded image. Types are those of CSurface::includeImage.
struct PictureKind {
    int type;
    int format; // FREE_IMAGE_FORMAT
    int bits;   // a pixel of the bitmap that it is encoded from: 8, 24, or 32 with alpha
    const char* title;
};

inline constexpr PictureKind PictureKinds[] = {
    {8, 13, 32, "PNG, alpha"},  {7, 2, 24, "JPEG"},          {1, 0, 24, "BMP"},
    {9, 25, 8, "GIF"},          {6, 18, 24, "TIFF"},         {3, 1, 32, "Icon, alpha"},
    {5, 1, 24, "Icon, type 5"}, {0, 2, 24, "Type by bytes"},
};

// A sun on a sky, `side` pixels wide and high, as a file of the kind; empty when it can't be encoded.
std::vector<unsigned char> drawPicture(const PictureKind& kind, int side);

bool canEncodePictures();
