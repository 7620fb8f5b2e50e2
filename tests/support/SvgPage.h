// Pages as text: what the tests of the SVG writer share. A test draws on a fresh page and compares all that
// came of it, since each blank is part of the page format.
#pragma once

#include <functional>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "surfaceSVG.h"

using Drawing = std::function<void(CSurfaceSVG&)>;

// Some calls and what they leave on a page: its definitions and its content.
struct DrawnCase {
    std::string name;
    Drawing draw;
    std::string page;
    friend void PrintTo(const DrawnCase& drawn, std::ostream* out) { *out << drawn.name; }
};
inline std::string nameOf(const testing::TestParamInfo<DrawnCase>& drawn)
{
    return drawn.param.name;
}

// The test that the tables of all files run through; its body is next to the document's own tests.
class SvgPage : public testing::TestWithParam<DrawnCase> {};

// Closes the surface and takes the document.
inline std::string closedPage(CSurfaceSVG& surface)
{
    EXPECT_EQ(0, surface.closeSurface());
    std::string page(static_cast<std::size_t>(surface.getDataLength()), '\0');
    unsigned int size = ~0U;
    surface.getData(reinterpret_cast<unsigned char*>(page.data()), size);
    EXPECT_EQ(page.size(), size);
    return page;
}

// The head of a document whose root element has these sizes.
inline std::string headOf(const std::string& sizes)
{
    return "<?xml version='1.0' encoding='UTF-8' standalone='no'?>\n<!DOCTYPE svg PUBLIC "
           "'-//W3C//DTD SVG 20010904//EN' 'http://www.w3.org/TR/2001/REC-SVG-20010904/DTD/svg10.dtd'>\n"
           "<!-- Created by Tovo " SURFACE_TESTED_VERSION " -->\n\n<svg " +
           sizes +
           " xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' "
           "xmlns:tovo='urn:tovo:surface'>\n\n";
}

// What `draw` leaves on a fresh page between head and end; the whole document when they are not there.
inline std::string drawnPage(const Drawing& draw)
{
    RECT sheet{0, 0, 2, 3};
    CSurfaceSVG surface(&sheet, &sheet);
    draw(surface);
    const std::string page = closedPage(surface);
    const std::string head = headOf("width='2mm' height='3mm' viewBox='0 0 2 3'");
    const bool complete = page.starts_with(head) && page.ends_with("</svg>\n\n");
    return complete ? page.substr(head.size(), page.size() - head.size() - 8) : page;
}

// A rectangle that needs an address only while the call lasts.
inline RECT* in(RECT&& rect)
{
    return &rect;
}

// The attributes of the pen that a surface starts with.
inline const std::string FreshPen = " tovo:penStyle='0'  stroke='rgb(0,0,0)' stroke-width='1' "
                                    "stroke-linecap='round' stroke-linejoin='round' ";
