// The image, its two encodings, and the page around each.
#include "ImagePage.h"

#include <numbers>

#include "PageWork.h"
#include "PostScriptPage.h"
#include "surfacePSPrinter.h"
#include "surfaceSVG.h"

namespace {

constexpr RECT ImageRect{0, 0, ImageSide, ImageSide};

void appendNumber(std::string& out, unsigned int value)
{
    for (int shift = 0; shift < 32; shift += 8) {
        out += static_cast<char>(value >> shift & 0xFF);
    }
}

void writeImage(CSurface& surface, std::string& image, int pictureType, std::string& page)
{
    drawImageOn(surface, image, pictureType);
    takePage(surface, page);
}

} // namespace

void drawImageOn(CSurface& surface, std::string& image, int pictureType)
{
    RECT rect = ImageRect;
    surface.includeImage(1, reinterpret_cast<unsigned char*>(image.data()), static_cast<int>(image.size()),
                         ImageSide, ImageSide, pictureType);
    surface.drawImage(&rect, 1, 1, 0, 0);
}

CairoSurface drawImage()
{
    CairoSurface image(cairo_image_surface_create(CAIRO_FORMAT_RGB24, ImageSide, ImageSide));
    const CairoContext cairo(cairo_create(image.get()));
    const CairoPattern gradient(cairo_pattern_create_linear(0, 0, ImageSide, ImageSide));
    cairo_pattern_add_color_stop_rgb(gradient.get(), 0, 0.9, 0.6, 0.1);
    cairo_pattern_add_color_stop_rgb(gradient.get(), 1, 0.1, 0.3, 0.8);
    cairo_set_source(cairo.get(), gradient.get());
    cairo_paint(cairo.get());
    for (unsigned int spot = 0; spot < 1000; ++spot) {
        const unsigned int scattered = spot * 2654435761U;
        setColor(cairo.get(), scattered >> 8);
        cairo_arc(cairo.get(), scattered % ImageSide, (scattered >> 12) % ImageSide, 3 + spot % 17, 0,
                  2 * std::numbers::pi);
        cairo_fill(cairo.get());
    }
    cairo_surface_flush(image.get());
    return image;
}

std::string pngOf(cairo_surface_t* image)
{
    std::string png;
    if (cairo_surface_write_to_png_stream(image, appendBytes, &png) != CAIRO_STATUS_SUCCESS) {
        throw std::runtime_error("cairo did not write the image");
    }
    return png;
}

std::string bitmapOf(cairo_surface_t* image)
{
    constexpr unsigned int HeaderBytes = 14 + 40; // BITMAPFILEHEADER and BITMAPINFOHEADER
    constexpr unsigned int PixelBytes = 3U * ImageSide * ImageSide;
    constexpr unsigned int PlanesAndDepth = 1 | 24U << 16;
    static_assert(3 * ImageSide % 4 == 0, "rows are padded to four bytes");
    std::string bitmap = "BM";
    for (const unsigned int field : {HeaderBytes + PixelBytes, 0U, HeaderBytes, 40U, unsigned{ImageSide},
                                     unsigned{ImageSide}, PlanesAndDepth, 0U, PixelBytes, 0U, 0U, 0U, 0U}) {
        appendNumber(bitmap, field);
    }
    const unsigned char* const pixels = cairo_image_surface_get_data(image);
    const std::ptrdiff_t stride = cairo_image_surface_get_stride(image);
    for (std::ptrdiff_t y = ImageSide - 1; y >= 0; --y) {
        for (std::ptrdiff_t x = 0; x < ImageSide; ++x) {
            bitmap.append(reinterpret_cast<const char*>(pixels + y * stride + x * 4), 3);
        }
    }
    return bitmap;
}

void carryPng(cairo_surface_t* image, const std::string& png)
{
    cairo_surface_set_mime_data(image, CAIRO_MIME_TYPE_PNG,
                                reinterpret_cast<const unsigned char*>(png.data()), png.size(), nullptr,
                                nullptr);
}

void makeSurfaceImage(std::string& image, int pictureType, std::string& page)
{
    RECT rect = ImageRect;
    CSurfaceSVG surface(&rect, &rect);
    writeImage(surface, image, pictureType, page);
}

void makePostScriptImage(std::string& image, int pictureType, std::string& page)
{
    CSurfacePSPrinter surface = makePostScriptSurface(ImageRect, ImageRect);
    writeImage(surface, image, pictureType, page);
}

void makeCairoImage(PageFormat format, cairo_surface_t* image, std::string& page)
{
    writeCairoPage(format, ImageRect, page, [image](cairo_t* cairo) {
        cairo_set_source_surface(cairo, image, 0, 0);
        cairo_paint(cairo);
    });
}
