// A picture drawn with one colour left out, on devices that know raster operations and no transparency.
#include <cstdlib>

#include "moduleObjects.h"
#include "surfacePicture.h"

using namespace drawing;

namespace {

constexpr COLORREF White = 0xFFFFFF;
constexpr COLORREF Black = 0x000000;

// The three steps: where the mask is white the device keeps its pixel, where it is black it takes the source's.
struct RasterStep {
    bool fromMask;
    DWORD operation;
};
constexpr RasterStep RasterSteps[] = {{false, SRCINVERT}, {true, SRCAND}, {false, SRCINVERT}};

void logFailedStep()
{
    char text[3024];
    const DWORD error = GetLastError();
    moduleLog.log(
        "Printer error %d (%s)\n Unable to print transparent image, printed non-transparently instead",
        static_cast<int>(error), kosGetErrorText(static_cast<int>(error), text, sizeof(text)));
}

} // namespace

COLORREF CSurfacePicture::findTransparentColor(const BITMAPINFO* info, const unsigned char* bits)
{
    constexpr std::size_t BytesPerPixel = 4;
    if (info == nullptr || bits == nullptr || info->bmiHeader.biBitCount != 8 * BytesPerPixel) {
        return noColor;
    }
    const std::size_t pixels = static_cast<std::size_t>(std::llabs(info->bmiHeader.biWidth)) *
                               static_cast<std::size_t>(std::llabs(info->bmiHeader.biHeight));
    for (std::size_t i = 0; i < pixels; ++i, bits += BytesPerPixel) {
        if (bits[3] == 0) {
            return static_cast<COLORREF>(bits[2] | bits[1] << 8 | bits[0] << 16);
        }
    }
    return noColor;
}

bool CSurfacePicture::drawTransparent(HDC hdc, HBITMAP bitmap, int x, int y, int width, int height, int xSrc,
                                      int ySrc, int widthSrc, int heightSrc, COLORREF transparent)
{
    if ((static_cast<UINT>(GetDeviceCaps(hdc, RASTERCAPS)) & (RC_BITBLT | RC_STRETCHBLT)) == 0) {
        moduleLog.log("Printer doesn't support 'Blt' operations required to print transparent image, printed "
                      "non-transparently instead");
        return false;
    }
    // The mask is to come out white and black on the device.
    const COLORREF formerDeviceBack = SetBkColor(hdc, White);
    const COLORREF formerDeviceText = SetTextColor(hdc, Black);
    const HDC source = CreateCompatibleDC(hdc);
    const HDC mask = CreateCompatibleDC(hdc);
    const HGDIOBJ formerBitmap = SelectObject(source, bitmap);
    BITMAP size{};
    GetObjectA(bitmap, sizeof(size), &size);
    const HBITMAP maskBitmap = CreateBitmap(size.bmWidth, size.bmHeight, 1, 1, nullptr);
    const HGDIOBJ formerMask = SelectObject(mask, maskBitmap);

    // Pixels of the background colour become white in a monochrome copy, all others black.
    const COLORREF formerBack = SetBkColor(source, transparent);
    BitBlt(mask, 0, 0, size.bmWidth, size.bmHeight, source, 0, 0, SRCCOPY);

    SetLastError(0);
    bool done = true;
    for (const RasterStep& step : RasterSteps) {
        done = done && StretchBlt(hdc, x, y, width, height, step.fromMask ? mask : source, xSrc, ySrc,
                                  widthSrc, heightSrc, step.operation) != FALSE;
    }
    if (!done) {
        logFailedStep();
    }
    SetBkColor(source, formerBack);
    SelectObject(source, formerBitmap);
    SelectObject(mask, formerMask);
    SetBkColor(hdc, formerDeviceBack);
    SetTextColor(hdc, formerDeviceText);
    DeleteObject(maskBitmap);
    DeleteDC(mask);
    DeleteDC(source);
    return done;
}
