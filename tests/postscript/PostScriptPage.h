// Pages as PostScript text: what the tests of the writer share. A test draws on a fresh page and compares all
// that came of it.
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "support/bitmapFile.h"
#include "surfacePSPrinter.h"

using PsDrawing = std::function<void(CSurfacePSPrinter&)>;

// Some calls and the page text they leave, in which marks stand for what returns again and again.
struct PsCase {
    PsDrawing draw;
    std::string text;
};

// A page of ten units to the millimetre.
inline CSurfacePSPrinter freshPage()
{
    CSurfacePSPrinter page(0, 0);
    page.m_width = 2100;
    page.m_height = 2970;
    page.m_pageWidth = 210;
    page.m_pageHeight = 297;
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

inline void expectTexts(std::span<const PsCase> cases)
{
    constexpr std::pair<const char*, const char*> Marks[] = {
        {"@h", "1 -2 3 -4 @p0.000 0.000 0.000 Hatch"},
        {"@i", " /DeviceRGB setcolorspace\n<< @d currentfile /ASCIIHexDecode filter"},
        {"~", " 1 setlinecap  1 setlinejoin "},
        {"@0", "0.000 0.000 0.000 setrgbcolor"},
        {"@r", "1.000 0.000 0.000 setrgbcolor"},
        {"@g", "0.000 1.000 0.000 setrgbcolor"},
        {"@p", "\n[/Pattern /DeviceRGB] setcolorspace "},
        {"@b", "newpath 1 -2  moveto 3 -2  lineto 3 -4  lineto 1 -4  lineto closepath"},
        {"@l", "0 0  moveto 0 0  lineto stroke\n"},
        {"@f", "gsave\n newpath 10 -20  moveto 110 -20  lineto 110 -70  lineto 10 -70  lineto closepath clip "
               "newpath\n"},
        {"@d", "/ImageType 1 /Width 2 /Height 2 /BitsPerComponent 8 /ImageMatrix [2 0 0 2 0 0] /Decode [0 1 "
               "0 1 0 1] /DataSource"},
    };
    for (PsCase c : cases) {
        for (const auto& [mark, meaning] : Marks) {
            for (std::size_t at = 0; (at = c.text.find(mark, at)) != std::string::npos;) {
                c.text.replace(at, std::string(mark).size(), meaning);
            }
        }
        EXPECT_EQ(c.text, drawnText(c.draw));
    }
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

inline void include(CSurfacePSPrinter& s, unsigned int id, std::string image, int width, int height,
                    int type = 8)
{
    s.includeImage(id, reinterpret_cast<unsigned char*>(image.data()), static_cast<int>(image.size()), width,
                   height, type);
}
