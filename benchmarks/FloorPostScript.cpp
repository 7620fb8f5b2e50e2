// The least that the table page can cost as a PostScript document: its bytes, appended piece by piece to one
// string. There is no surface, and no decision but those on pen and brush and on the colour and the line width
// that are set already. Checks.cpp sees to it that the result is the surface's page byte for byte.
#include <charconv>
#include <string_view>

#include "FloorWriter.h"
#include "PostScriptPage.h"
#include "TablePage.h"
#include "postscript/PostScriptProlog.h"

namespace {

// More than any row writes.
constexpr std::size_t roomPerRow = 2000;
constexpr std::size_t roomForHead = 8000;

constexpr double pointsPerMillimetre = 2.83465;

constexpr std::string_view hatchPatterns[hatchCount] = {" HatchHorizontal", " HatchVertical",
                                                        " HatchFDiagonal",  " HatchBDiagonal",
                                                        " HatchCross",      " HatchDiagCross"};

// Stands in for a surface in drawTable.
class FloorPostScript : public FloorWriter {
public:
    using FloorWriter::FloorWriter;

    void setPen(unsigned long color, int /*style*/, int width)
    {
        m_penColor = color;
        m_penWidth = width;
    }

    void setBrush(unsigned long color, int style)
    {
        m_brushColor = color;
        m_brushStyle = style;
    }

    void drawRectangle(const RECT* rect)
    {
        writePlace(rect);
        if (m_brushStyle != hollowBrush) {
            write(" 4 copy");
            writeFill();
            write(" rectfill");
        }
        writePen();
        write(" rectstroke\n");
    }

    void drawLine(int x1, int y1, int x2, int y2)
    {
        writePen();
        write(" ", x1, " ", -y1, "  moveto ", x2, " ", -y2, "  lineto stroke\n");
    }

    void drawSolidRectangle(const RECT* rect, unsigned long color)
    {
        writeColor(color);
        write(" ");
        writePlace(rect);
        write(" solidrect\n");
    }

    void frameRect(const RECT* rect, unsigned long color)
    {
        writeColor(color);
        write(" ");
        writePlace(rect);
        write(" framerect\n");
    }

    void ellipse(const RECT* rect)
    {
        writePlainColor(m_penColor);
        write(m_penWidth, " setlinewidth ");
        writeEllipse(rect, " ellipse stroke ");
        if (m_brushStyle != hollowBrush) {
            writePlainColor(m_brushColor);
            writeEllipse(rect, " ellipse fill");
        }
        write("\n");
    }

    void polygon(const POINT* points, unsigned int count)
    {
        writePoints(points, count);
        write("closepath");
        if (m_brushStyle != hollowBrush) {
            const unsigned long outside = m_color;
            write(" gsave");
            writeFill();
            write(" fill grestore");
            m_color = outside;
        }
        writePen();
        write(" stroke\n");
    }

    void polyline(const POINT* points, unsigned int count)
    {
        writePoints(points, count);
        writePen();
        write(" stroke\n");
    }

    void writeScale(double pointsPerUnit)
    {
        char digits[16];
        const char* const end = std::to_chars(digits, digits + sizeof digits,
                                              static_cast<float>(pointsPerUnit), std::chars_format::fixed, 3)
                                    .ptr;
        write(std::string_view(digits, static_cast<std::size_t>(end - digits)), " ");
    }

private:
    void writePlace(const RECT* rect)
    {
        write(rect->left, " ", -rect->top, " ", rect->right - rect->left, " ", rect->top - rect->bottom, " ");
    }

    void writePoints(const POINT* points, unsigned int count)
    {
        write(" newpath ");
        for (const POINT* point = points; point != points + count; ++point) {
            write(point->x, " ", -point->y, point == points ? "  moveto " : "  lineto ");
        }
    }

    void writeEllipse(const RECT* rect, std::string_view paint)
    {
        const int rx = (rect->right - rect->left) / 2;
        const int ry = (rect->bottom - rect->top) / 2;
        write(rect->left + rx, " ", -(rect->top + ry), " ", rx, " ", ry, " 0 360 ", paint);
    }

    void writeColor(unsigned long color)
    {
        writePart(color & 0xFF);
        write(" ");
        writePart(color >> 8 & 0xFF);
        write(" ");
        writePart(color >> 16 & 0xFF);
    }

    // The part of 255 with three decimals. As "1ddd" or "2000" it has four digits in any case.
    void writePart(unsigned long part)
    {
        char digits[4];
        std::to_chars(digits, digits + sizeof digits, 1000 + (part * 1000 + 127) / 255);
        const char text[] = {static_cast<char>(digits[0] - 1), '.', digits[1], digits[2], digits[3]};
        write(std::string_view(text, sizeof text));
    }

    void writePlainColor(unsigned long color)
    {
        if (m_color != color) {
            m_color = color;
            writeColor(color);
            write(" setrgbcolor ");
        }
    }

    void writePen()
    {
        if (m_color != m_penColor) {
            m_color = m_penColor;
            write(" ");
            writeColor(m_color);
            write(" setrgbcolor");
        }
        if (m_width != m_penWidth) {
            m_width = m_penWidth;
            write(" ", m_width, " setlinewidth");
        }
        write(" 1 setlinecap ", " 1 setlinejoin ");
    }

    void writeFill()
    {
        if (m_brushStyle == solidBrush) {
            m_color = m_brushColor;
            write(" ");
            writeColor(m_color);
            write(" setrgbcolor ");
        } else {
            write("\n[/Pattern /DeviceRGB] setcolorspace ");
            writeColor(m_brushColor);
            write(hatchPatterns[m_brushStyle - firstHatch], " setcolor ");
        }
    }

    unsigned long m_penColor = 0;
    int m_penWidth = 1;
    unsigned long m_brushColor = 0;
    int m_brushStyle = hollowBrush;
    unsigned long m_color = 0; // set last by the text
    int m_width = 1;
};

// With an origin of 0, 0.
void writeHead(FloorPostScript& out, const RECT& bounds)
{
    constexpr RECT paper = pageMillimetres;
    const double height = paper.bottom * pointsPerMillimetre;
    out.write("%!PS-Adobe-3.0\n%%LanguageLevel: 2\n%%Creator: Tovo " SURFACE_VERSION "\n%%Orientation: ",
              bounds.right > bounds.bottom ? "Landscape\n" : "Portrait\n");
    out.write("0 0 translate\n0 ", static_cast<int>(height), " translate\n");
    out.writeScale(paper.right * pointsPerMillimetre / bounds.right);
    out.writeScale(height / bounds.bottom);
    out.write("scale\n\n", PostScriptProlog::jshow, PostScriptProlog::framerect, PostScriptProlog::solidrect,
              PostScriptProlog::ellipse, PostScriptProlog::hatch);
}

} // namespace

void makeFloorPostScript(int rows, std::string& page)
{
    page.clear();
    page.reserve(roomForHead + static_cast<std::size_t>(rows) * roomPerRow);
    FloorPostScript out(page);
    writeHead(out, tableBounds(rows));
    drawTable(out, rows);
    out.write("\nshowpage\n\n");
}
