// A small page to draw on, and its pixels as text: one letter for each, each row after a line break.
#pragma once

#include <gdidevice.h>

#include <algorithm>
#include <iterator>
#include <string>

constexpr COLORREF Red = 0x0000FF;
constexpr COLORREF Green = 0x00FF00;
constexpr COLORREF Blue = 0xFF0000;
constexpr COLORREF Yellow = 0x00FFFF;
constexpr COLORREF White = 0xFFFFFF;
constexpr COLORREF Black = 0x000000;

// '?' for a colour that is none of these.
inline char letterOf(COLORREF color)
{
    constexpr COLORREF Colors[] = {Red, Green, Blue, Yellow, White, Black};
    const auto* found = std::find(std::begin(Colors), std::end(Colors), color);
    return "rgby.#?"[found - std::begin(Colors)];
}

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

class RasterPage {
public:
    RasterPage(int width, int height) : m_options{width, height}, m_context(gdiCreateDevice(&m_options)) {}
    RasterPage(const RasterPage&) = delete;
    RasterPage& operator=(const RasterPage&) = delete;
    ~RasterPage() { DeleteDC(m_context); }

    HDC context() const { return m_context; }
    // Whatever the context's mapping and clip are.
    std::string picture() const
    {
        int stride = 0;
        const unsigned char* bits = gdiDeviceBits(m_context, &stride);
        return pictureFrom(m_options.width, m_options.height, [&](int x, int y) {
            const unsigned char* pixel = bits + std::ptrdiff_t{y} * stride + std::ptrdiff_t{4} * x;
            return static_cast<COLORREF>(pixel[2] | pixel[1] << 8 | pixel[0] << 16);
        });
    }

private:
    GdiDeviceOptions m_options;
    HDC m_context;
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
