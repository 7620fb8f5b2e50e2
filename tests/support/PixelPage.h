// A small white page of pixels to draw on, and its pixels as text: one letter for each.
#pragma once

#include <gdidevice.h>

#include <cstddef>
#include <string>

constexpr COLORREF Red = 0x0000FF;
constexpr COLORREF Green = 0x00FF00;
constexpr COLORREF Blue = 0xFF0000;
constexpr COLORREF Yellow = 0x00FFFF;
constexpr COLORREF White = 0xFFFFFF;
constexpr COLORREF Black = 0x000000;

// '#' black, '.' white, r g b c m y; '?' for others.
inline char letterOf(COLORREF color)
{
    const bool pure = (color & 0x010101) * 255 == color;
    return pure ? "#rgybmc."[(color & 1) | (color >> 7 & 2) | (color >> 14 & 4)] : '?';
}

// Each row after a line break.
template <class ColorAt>
std::string pictureFrom(int width, int height, const ColorAt& colorAt)
{
    std::string picture;
    for (int y = 0; y < height; ++y) {
        picture += '\n';
        for (int x = 0; x < width; ++x) {
            picture += letterOf(colorAt(x, y));
        }
    }
    return picture;
}

inline std::string pictureOf(HDC context, int width, int height)
{
    return pictureFrom(width, height, [context](int x, int y) { return GetPixel(context, x, y); });
}

class PixelPage {
public:
    explicit PixelPage(const GdiDeviceOptions& options = {})
        : m_options(options), m_context(gdiCreateDevice(&m_options)),
          m_bits(gdiDeviceBits(m_context, &m_stride))
    {
    }
    PixelPage(int width, int height) : PixelPage(GdiDeviceOptions{width, height}) {}
    PixelPage(const PixelPage&) = delete;
    PixelPage& operator=(const PixelPage&) = delete;
    ~PixelPage() { DeleteDC(m_context); }

    HDC context() const { return m_context; }
    int width() const { return m_options.width; }
    int height() const { return m_options.height; }

    // Whatever the context's mapping and clip are.
    COLORREF at(int x, int y) const
    {
        const unsigned char* const pixel = m_bits + std::ptrdiff_t{y} * m_stride + std::ptrdiff_t{4} * x;
        return static_cast<COLORREF>(pixel[2] | pixel[1] << 8 | pixel[0] << 16);
    }
    std::string picture() const
    {
        return pictureFrom(width(), height(), [this](int x, int y) { return at(x, y); });
    }

private:
    GdiDeviceOptions m_options;
    HDC m_context;
    int m_stride = 0;
    const unsigned char* m_bits;
};

// Selects an object that goes when the context does.
inline void use(HDC context, HGDIOBJ object)
{
    SelectObject(context, object);
    DeleteObject(object);
}

inline HPEN geometricPen(DWORD style, DWORD width, COLORREF color)
{
    const LOGBRUSH brush{BS_SOLID, color, 0};
    return ExtCreatePen(style | PS_GEOMETRIC, width, &brush, 0, nullptr);
}

inline void line(HDC context, POINT from, POINT to)
{
    MoveToEx(context, from.x, from.y, nullptr);
    LineTo(context, to.x, to.y);
}
