// How a page's bytes are appended at the least cost: literals as they are, numbers by std::to_chars, nothing
// else. The floors of the table page and of the text page write with this.
#pragma once

#include <charconv>
#include <string>
#include <string_view>

#include "TablePage.h"

struct Rgb {
    unsigned long color;
};

class FloorWriter {
public:
    explicit FloorWriter(std::string& page) : m_page(page) {}

    template <class... Pieces>
    void write(const Pieces&... pieces)
    {
        (append(pieces), ...);
    }

    // The document up to its definitions.
    void writeHead(const RECT& bounds)
    {
        constexpr RECT Paper = PageMillimetres;
        write("<?xml version='1.0' encoding='UTF-8' standalone='no'?>\n"
              "<!DOCTYPE svg PUBLIC '-//W3C//DTD SVG 20010904//EN' "
              "'http://www.w3.org/TR/2001/REC-SVG-20010904/DTD/svg10.dtd'>\n"
              "<!-- Created by Tovo " SURFACE_VERSION " -->\n\n",
              "<svg width='", Paper.right, "mm' height='", Paper.bottom, "mm' viewBox='0 0 ", bounds.right,
              " ", bounds.bottom,
              "' xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' "
              "xmlns:tovo='urn:tovo:surface'>\n\n");
    }

private:
    void append(std::string_view literal) { m_page.append(literal); }

    void append(int number)
    {
        char digits[12];
        m_page.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
    }

    void append(Rgb rgb)
    {
        const auto part = [rgb](int shift) {
            return static_cast<int>(rgb.color >> shift & 0xFF);
        };
        write("rgb(", part(0), ",", part(8), ",", part(16), ")");
    }

    std::string& m_page;
};
