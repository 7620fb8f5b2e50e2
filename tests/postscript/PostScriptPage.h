// Pages as PostScript text: what the tests of the writer share. A test draws on a fresh page and compares all
// that came of it.
#pragma once

#include <cstddef>
#include <functional>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "surfacePSPrinter.h"

using PsDrawing = std::function<void(CSurfacePSPrinter&)>;

// Some calls and the page text they leave.
struct PsCase {
    std::string name;
    PsDrawing draw;
    std::string text;
    friend void PrintTo(const PsCase& drawn, std::ostream* out) { *out << drawn.name; }
};
inline std::string nameOf(const testing::TestParamInfo<PsCase>& drawn)
{
    return drawn.param.name;
}

// The test that the tables of all files run through; its body stands beside the document's own tests.
class PostScriptPage : public testing::TestWithParam<PsCase> {};

// A page of ten units to the millimetre.
inline CSurfacePSPrinter freshPage(int width = 2100, int height = 2970)
{
    CSurfacePSPrinter page(0, 0);
    page.m_width = width;
    page.m_height = height;
    page.m_pageWidth = width / 10;
    page.m_pageHeight = height / 10;
    return page;
}

inline std::string textOf(CSurfacePSPrinter& page)
{
    const int length = page.getDataLength();
    return std::string(static_cast<const char*>(page.getData()), static_cast<std::size_t>(length));
}

inline std::string drawnText(const PsDrawing& draw)
{
    CSurfacePSPrinter page = freshPage();
    draw(page);
    return textOf(page);
}

inline std::string documentOf(const PsDrawing& draw)
{
    CSurfacePSPrinter page = freshPage();
    draw(page);
    EXPECT_EQ(0, page.closeSurface());
    return textOf(page);
}

// A rectangle that needs an address only while the call lasts.
inline RECT* in(RECT&& rect)
{
    return &rect;
}

// A Windows bitmap of one row: `pixels` holds blue, green, red and, with 32 bits, alpha.
inline std::string bitmapOf(const std::string& pixels, int bits, int height = 1)
{
    const auto number = [](std::size_t value, int bytes) {
        std::string text;
        for (; bytes > 0; --bytes, value >>= 8U) {
            text += static_cast<char>(value);
        }
        return text;
    };
    const auto rows = static_cast<std::size_t>(height);
    const std::size_t pixelSize = static_cast<std::size_t>(bits) / 8;
    const std::size_t rowSize = pixels.size() / rows;
    std::string padded;
    for (std::size_t y = 0; y < rows; ++y) {
        padded += pixels.substr(y * rowSize, rowSize);
        padded.resize((padded.size() + 3) / 4 * 4, '\x7F');
    }
    return "BM" + number(54 + padded.size(), 4) + number(0, 4) + number(54, 4) + number(40, 4) +
           number(rowSize / pixelSize, 4) + number(rows, 4) + number(1, 2) + number(pixelSize * 8, 2) +
           number(0, 24) + padded;
}

inline void include(CSurfacePSPrinter& s, unsigned int id, std::string image, int width, int height,
                    int type = 8)
{
    s.includeImage(id, reinterpret_cast<unsigned char*>(image.data()), static_cast<int>(image.size()), width,
                   height, type);
}

inline void usePicture(CSurfacePSPrinter& s, int picture)
{
    CSurfaceBrush brush;
    brush.setPicture(picture);
    s.setBrush(&brush);
}
