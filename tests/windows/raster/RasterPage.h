// A small page to draw on, and its pixels as text: one letter for each, each row behind a line break.
#pragma once

#include <gdidevice.h>

#include <string>

constexpr COLORREF red = 0x0000FF;
constexpr COLORREF green = 0x00FF00;
constexpr COLORREF blue = 0xFF0000;
constexpr COLORREF yellow = 0x00FFFF;
constexpr COLORREF white = 0xFFFFFF;
constexpr COLORREF black = 0x000000;

inline char letterOf(COLORREF color)
{
    switch (color) {
    case red:
        return 'r';
    case green:
        return 'g';
    case blue:
        return 'b';
    case yellow:
        return 'y';
    case white:
        return '.';
    case black:
        return '#';
    default:
        return '?';
    }
}

inline std::string pictureOf(HDC context, int width, int height)
{
    std::string picture;
    for (int y = 0; y < height; ++y) {
        picture += '\n';
        for (int x = 0; x < width; ++x) {
            picture += letterOf(GetPixel(context, x, y));
        }
    }
    return picture;
}

class RasterPage {
public:
    RasterPage(int width, int height) : m_width(width), m_height(height)
    {
        GdiDeviceOptions options;
        options.width = width;
        options.height = height;
        m_context = gdiCreateDevice(&options);
    }
    RasterPage(const RasterPage&) = delete;
    RasterPage& operator=(const RasterPage&) = delete;
    ~RasterPage() { DeleteDC(m_context); }

    HDC context() const { return m_context; }
    // Whatever the context's mapping and clip are.
    std::string picture() const
    {
        int stride = 0;
        const unsigned char* bits = gdiDeviceBits(m_context, &stride);
        std::string picture;
        for (int y = 0; y < m_height; ++y) {
            picture += '\n';
            for (int x = 0; x < m_width; ++x) {
                const unsigned char* pixel = bits + y * stride + 4 * x;
                picture += letterOf(static_cast<COLORREF>(pixel[2] | pixel[1] << 8 | pixel[0] << 16));
            }
        }
        return picture;
    }

private:
    int m_width;
    int m_height;
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
