// What the floors of the PostScript documents share: the head, colours, points, numbers with decimals.
#pragma once

#include <charconv>
#include <string_view>

#include "FloorWriter.h"
#include "TablePage.h"

class FloorPostScriptWriter : public FloorWriter {
public:
    static constexpr double PointsPerMillimetre = 2.83465;

    using FloorWriter::FloorWriter;

    // The document up to its procedures, with an origin of 0, 0.
    void writeHead(const RECT& bounds)
    {
        constexpr RECT Paper = PageMillimetres;
        const double height = Paper.bottom * PointsPerMillimetre;
        write("%!PS-Adobe-3.0\n%%LanguageLevel: 2\n%%Creator: Tovo " SURFACE_VERSION "\n%%Orientation: ",
              bounds.right > bounds.bottom ? "Landscape\n" : "Portrait\n", "0 0 translate\n0 ",
              static_cast<int>(height), " translate\n");
        writeDecimal(Paper.right * PointsPerMillimetre / bounds.right, 3);
        write(" ");
        writeDecimal(height / bounds.bottom, 3);
        write(" scale\n\n");
    }

    void writeDecimal(double value, int decimals)
    {
        char digits[32];
        const std::to_chars_result end = std::to_chars(
            digits, digits + sizeof digits, static_cast<float>(value), std::chars_format::fixed, decimals);
        write(std::string_view(digits, static_cast<std::size_t>(end.ptr - digits)));
    }

    void writePoint(int x, int y) { write(x, " ", -y, " "); }

    void writeColor(unsigned long color)
    {
        writePart(color & 0xFF);
        write(" ");
        writePart(color >> 8 & 0xFF);
        write(" ");
        writePart(color >> 16 & 0xFF);
    }

private:
    // The part of 255 with three decimals. As "1ddd" or "2000" it has four digits in any case.
    void writePart(unsigned long part)
    {
        char digits[4] = {};
        std::to_chars(digits, digits + sizeof digits, 1000 + (part * 1000 + 127) / 255);
        const char text[] = {static_cast<char>(digits[0] - 1), '.', digits[1], digits[2], digits[3]};
        write(std::string_view(text, sizeof text));
    }
};
